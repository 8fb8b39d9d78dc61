#include "bindings.hpp"

namespace velmar::python {

void bindJobsCommon(py::module_&) {}

}  // namespace velmar::python
