#include "bindings.hpp"

namespace velmar::python {

void bindEvents(py::module_&) {}

}  // namespace velmar::python
