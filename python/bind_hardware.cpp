#include "bindings.hpp"

namespace velmar::python {

void bindHardware(py::module_&) {}

}  // namespace velmar::python
