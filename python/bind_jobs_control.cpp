#include "bindings.hpp"

namespace velmar::python {

void bindJobsControl(py::module_&) {}

}  // namespace velmar::python
