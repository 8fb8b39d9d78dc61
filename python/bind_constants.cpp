#include "bindings.hpp"

#include "json_common/configuration/workstation_mode.hpp"

namespace velmar::python {

namespace {

/// The metaclass of the constant classes: their attributes cannot be assigned or deleted.
py::object readOnlyMetaclass(py::module_& m) {
    py::object type = py::reinterpret_borrow<py::object>(reinterpret_cast<PyObject*>(&PyType_Type));
    py::dict attributes;
    attributes["__doc__"] = "Metaclass of the constant classes, whose attributes are read-only.";
    attributes["__module__"] = m.attr("__name__");
    py::object meta = type("_ReadOnlyConstants", py::make_tuple(type), attributes);
    auto refuse = [](const py::handle& cls, const py::str& name) {
        throw py::attribute_error("cannot change the constant " + py::str(cls.attr("__name__")).cast<std::string>() +
                                  "." + name.cast<std::string>());
    };
    meta.attr("__setattr__") = py::cpp_function(
        [refuse](const py::handle& cls, const py::str& name, const py::object& /*value*/) { refuse(cls, name); },
        py::name("__setattr__"), py::is_method(meta), "name"_a, "value"_a, "Refused: the constants are read-only.");
    meta.attr("__delattr__") = py::cpp_function(
        [refuse](const py::handle& cls, const py::str& name) { refuse(cls, name); }, py::name("__delattr__"),
        py::is_method(meta), "name"_a, "Refused: the constants are read-only.");
    return meta;
}

// A plain class whose read-only class attributes are ordinary strings or integers.
py::object makeConstantClass(py::module_& m, const py::object& meta, const char* name, const char* doc,
                             std::initializer_list<std::pair<const char*, py::object>> members) {
    py::dict attributes;
    attributes["__doc__"] = doc;
    attributes["__module__"] = m.attr("__name__");
    attributes["__slots__"] = py::tuple();
    for (const auto& [key, value] : members) attributes[key] = value;
    py::object constants = meta(name, py::make_tuple(), attributes);
    m.attr(name) = constants;
    return constants;
}

}  // namespace

void bindConstants(py::module_& m) {
    const py::object meta = readOnlyMetaclass(m);
    auto s = [](const char* value) { return py::object(py::str(value)); };
    makeConstantClass(m, meta, "TrackNames", "Constants for track names used in datasets.",
                      {{"TIME", s("time")},
                       {"VOLTAGE", s("voltage")},
                       {"CURRENT", s("current")},
                       {"FREQUENCY", s("frequency")},
                       {"PERIODS", s("periods")},
                       {"IMPEDANCE_ABSOLUTE", s("|impedance|")},
                       {"PHASE", s("phase")},
                       {"IMPEDANCE_ERROR", s("impedance error")},
                       {"PHASE_ERROR", s("phase error")},
                       {"IMPEDANCE_DRIFT", s("impedance drift")},
                       {"PHASE_DRIFT", s("phase drift")},
                       {"DC", s("dc")},
                       {"AMPLITUDE", s("amplitude")},
                       {"GAIN", s("gain")},
                       {"FILTER", s("filter")},
                       {"THD", s("thd")},
                       {"DRIFT", s("drift")},
                       {"SHUNT", s("shunt")},
                       {"BANDWITH", s("bandwith")},
                       {"WAVE_ID", s("wave_id")},
                       {"WAVE_SIZE", s("wave_size")}});
    makeConstantClass(m, meta, "UnitNames", "Constants for unit names used in datasets.",
                      {{"TIME", s("s")},
                       {"VOLTAGE", s("V")},
                       {"CURRENT", s("A")},
                       {"FREQUENCY", s("Hz")},
                       {"PERIODS", s("")},
                       {"IMPEDANCE_ABSOLUTE", s("\xE2\x84\xA6")},
                       {"PHASE_RAD", s("rad")},
                       {"IMPEDANCE_ERROR", s("")},
                       {"PHASE_ERROR", s("")},
                       {"IMPEDANCE_DRIFT", s("")},
                       {"PHASE_DRIFT", s("")},
                       {"GAIN", s("")},
                       {"FILTER", s("")},
                       {"FILTER_HZ", s("Hz")},
                       {"THD", s("%")},
                       {"DRIFT", s("1/period")},
                       {"SHUNT", s("")},
                       {"BANDWITH", s("")},
                       {"WAVE_ID", s("")},
                       {"WAVE_SIZE", s("")}});
    auto i = [](unsigned value) { return py::object(py::int_(value)); };
    namespace F = VelmarLinkConnectionFlags;
    makeConstantClass(
        m, meta, "VelmarLinkConnectionFlags",
        "Flags for the VelmarLink connection.\n\n"
        "Combine them with ``|`` and pass them as the ``flags`` argument of the connection classes or to "
        "``set_flag``, ``clear_flag`` and ``test_flag``.\n\n"
        "- ``NONE``: plain TCP, full checks\n"
        "- ``USE_SSL``: connect with TLS\n"
        "- ``SKIP_SSL_CERT_VALIDATION``: Skip any TLS certificate check\n"
        "- ``SKIP_SSL_HOSTNAME_MATCHING``: Skip only TLS certificate hostname check\n"
        "- ``SSL_DO_NOT_USE_SYSTEM_CAS``: Do not trust CAs supplyed by the OS\n"
        "- ``IGNORE_PROTOCOL_MISMATCH``: accept a workstation that speaks another protocol version\n"
        "- ``SSL_VERIFY_CUSTOM_HOSTNAME``: validate the server certificate against "
        "``TlsConfiguration.certificate_hostname`` instead of the host used to connect; with the flag set and "
        "that name empty the connection host is the fallback; ``SKIP_SSL_HOSTNAME_MATCHING`` takes precedence, "
        "and with both set the name only serves as the SNI name.",
        {{"NONE", i(F::NONE)},
         {"USE_SSL", i(F::USE_SSL)},
         {"SKIP_SSL_CERT_VALIDATION", i(F::SKIP_SSL_CERT_VALIDATION)},
         {"SKIP_SSL_HOSTNAME_MATCHING", i(F::SKIP_SSL_HOSTNAME_MATCHING)},
         {"SSL_DO_NOT_USE_SYSTEM_CAS", i(F::SSL_DO_NOT_USE_SYSTEM_CAS)},
         {"IGNORE_PROTOCOL_MISMATCH", i(F::IGNORE_PROTOCOL_MISMATCH)},
         {"SSL_VERIFY_CUSTOM_HOSTNAME", i(F::SSL_VERIFY_CUSTOM_HOSTNAME)}});
}

}  // namespace velmar::python
