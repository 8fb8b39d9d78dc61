#include "bindings.hpp"
#include "interpreter_version.hpp"

#include "json_common/logging/library_version.hpp"

namespace {

int add(int a, int b) { return a + b; }

long long factorial(int n) {
    if (n < 0) throw py::value_error("factorial is defined for non-negative numbers only");
    long long result = 1;
    for (int i = 2; i <= n; ++i) result *= i;
    return result;
}

}  // namespace

PYBIND11_MODULE_EXEC(_velmar_link, m) {
    using namespace velmar::python;
    m.doc() = "velmar_link library enabling programmatic control of Velmar RQ5 potentiostats";
    m.attr("__version__") = std::string(velmar::LibraryVersion::getVersion());
    m.def("add", &add, "A function which tests the binding between the native library and the interpreter.",
          "a"_a, "b"_a);
    m.def("factorial", &factorial,
          "A function which tests the binding between the native library and the interpreter.", "n"_a);

    // The submodules are entered in sys.modules under their full names, so that the package's
    // modules (velmar_link.meas and so on) import them by name.
    py::object modules = py::module_::import("sys").attr("modules");
    auto enter = [&modules](const py::module_& submodule) { modules[submodule.attr("__name__")] = submodule; };
    enter(m.def_submodule("xml", "Submodule with xml utilities."));
    enter(m.def_submodule("control", "Submodule with control jobs."));
    auto meas = m.def_submodule("meas", "Submodule with measurement jobs.");
    enter(meas);
    enter(meas.def_submodule("stop", "Submodule with measurement jobs."));
    enter(m.def_submodule("calibration", "Submodule with calibration jobs."));

    bindEnums(m);
    bindErrors(m);
    bindConstants(m);
    bindSettings(m);
    bindJobsCommon(m);
    bindStopConditions(m);
    bindHardware(m);
    bindJobsControl(m);
    bindJobsMeas(m);
    bindXmlSerializable(m);
    bindDatasets(m);
    bindEisLiveData(m);
    bindJobsDc(m);
    bindJobsAc(m);
    bindEisDataset(m);
    bindXml(m);
    bindVrb(m);
    bindEvents(m);
    bindLink(m);
}

// Module start: refuse an interpreter of another minor version before anything else runs,
// then hand a multi-phase definition to the interpreter. Running in several
// sub-interpreters is not supported.
extern "C" PYBIND11_EXPORT PyObject* PyInit__velmar_link() {
    const char* running = Py_GetVersion();
    if (!velmar::python::interpreterVersionMatches(VELMAR_PYTHON_BUILT_FOR, running)) {
        PyErr_Format(PyExc_ImportError,
                     "Python version mismatch: module was compiled for Python %s, but the interpreter version "
                     "is incompatible: %s.",
                     VELMAR_PYTHON_BUILT_FOR, running);
        return nullptr;
    }
    try {
        pybind11::detail::ensure_internals();
        static auto slots =
            pybind11::detail::init_slots(&pybind11_exec__velmar_link, py::multiple_interpreters::not_supported());
        static PyModuleDef definition{PyModuleDef_HEAD_INIT, "_velmar_link", nullptr, 0, nullptr, slots.data(),
                                      nullptr, nullptr, nullptr};
        return PyModuleDef_Init(&definition);
    }
    PYBIND11_CATCH_INIT_EXCEPTIONS
    return nullptr;
}
