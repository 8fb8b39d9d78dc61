#include "bindings.hpp"

namespace velmar::python {

void bindLink(py::module_&) {}

}  // namespace velmar::python
