#pragma once

#include "py_common.hpp"

// One function per binding area, called by the module frame in dependency order.
namespace velmar::python {

void bindErrors(py::module_& m);
void bindEnums(py::module_& m);
void bindConstants(py::module_& m);

}  // namespace velmar::python
