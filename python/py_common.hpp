#pragma once

// The one include of pybind11 for every binding file: all translation units see the same
// casters. Also the precompiled header of the module.

#include <pybind11/chrono.h>
#include <pybind11/complex.h>
#include <pybind11/eval.h>
#include <pybind11/functional.h>
#include <pybind11/native_enum.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>
#include <pybind11/stl/filesystem.h>
#include <pybind11/typing.h>

#include "casters/byte_buffers.hpp"
#include "casters/expected.hpp"
#include "casters/py_callback.hpp"

#include <string>
#include <vector>

namespace py = pybind11;
using namespace pybind11::literals;

namespace velmar::python {

/// A submodule created by the module frame ("xml", "control", "meas", "calibration").
inline py::module_ submodule(py::module_& m, const char* name) { return m.attr(name).cast<py::module_>(); }

}  // namespace velmar::python
