#include "bindings.hpp"

namespace velmar::python {

void bindJobsDc(py::module_&) {}

}  // namespace velmar::python
