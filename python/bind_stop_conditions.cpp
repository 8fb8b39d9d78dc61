#include "bindings.hpp"

namespace velmar::python {

void bindStopConditions(py::module_&) {}

}  // namespace velmar::python
