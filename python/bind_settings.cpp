#include "bindings.hpp"

namespace velmar::python {

void bindSettings(py::module_&) {}

}  // namespace velmar::python
