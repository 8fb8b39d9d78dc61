#include "bindings.hpp"

namespace velmar::python {

void bindDatasets(py::module_&) {}

}  // namespace velmar::python
