#include "bindings.hpp"

#include "json_common/logging/error_object.hpp"
#include "json_common/logging/velmar_link_exception.hpp"

#include <pybind11/gil_safe_call_once.h>

namespace velmar::python {

namespace {

// ErrorParameter is a std::variant, which the STL casters would turn into a plain Python
// value; scripts see it as a class of its own through this wrapper.
struct ErrorParameterPy {
    ErrorParameter parameter;
};

std::vector<ErrorParameterPy> wrapParameters(const ErrorObject& error) {
    std::vector<ErrorParameterPy> wrapped;
    for (const auto& parameter : error.message_parameters) wrapped.push_back({parameter});
    return wrapped;
}

py::object parameterValue(const ErrorParameter& parameter) {
    return std::visit([](const auto& value) { return py::cast(value); }, parameter);
}

std::string parameterRepr(const ErrorParameter& parameter) {
    if (const auto* text = std::get_if<std::string>(&parameter)) return "ErrorParameter(\"" + *text + "\")";
    return "ErrorParameter(" + errorParameterToString(parameter) + ")";
}

ErrorParameter parameterFromPython(const py::handle& value) {
    if (py::isinstance<py::bool_>(value)) return value.cast<bool>();
    if (py::isinstance<py::int_>(value)) {
        try {
            return value.cast<std::int64_t>();
        } catch (const py::cast_error&) {
            return value.cast<std::uint64_t>();
        }
    }
    if (py::isinstance<py::float_>(value)) return value.cast<double>();
    return py::str(value).cast<std::string>();
}

}  // namespace

void bindErrors(py::module_& m) {
    py::class_<ErrorParameterPy>(m, "ErrorParameter",
                                 R"(One parameter of an error message: a bool, a float, an int or a str.)")
        .def(py::init([](const py::object& value) { return ErrorParameterPy{parameterFromPython(value)}; }),
             R"(Create a parameter from a bool, int, float or str.)", "value"_a)
        .def_property_readonly(
            "value", [](const ErrorParameterPy& p) { return parameterValue(p.parameter); },
            R"(The parameter as a Python value.)")
        .def("__str__", [](const ErrorParameterPy& p) { return errorParameterToString(p.parameter); },
             R"(The value as text.)")
        .def("__repr__", [](const ErrorParameterPy& p) { return parameterRepr(p.parameter); },
             R"(``ErrorParameter(value)``, strings in double quotes.)")
        .def("__eq__", [](const ErrorParameterPy& a, const ErrorParameterPy& b) { return a.parameter == b.parameter; },
             R"(True if both hold the same value of the same kind.)", "other"_a);

    py::class_<ErrorObject>(m, "ErrorObject", R"(Class which contains information about an error.

An ``ErrorObject`` is falsy on success (code ``NONE``), so ``if link.connect(): ...`` enters
the branch only on failure.)")
        .def(py::init<>(), R"(The success value: code ``NONE``, message "no error occoured".)")
        .def(py::init([](ErrorCodeEnum code, std::string format, const std::vector<py::object>& parameters) {
                 std::vector<ErrorParameter> converted;
                 for (const auto& parameter : parameters) converted.push_back(parameterFromPython(parameter));
                 return ErrorObject::withParameters(code, std::move(format), std::move(converted));
             }),
             R"(Create an error from a code, a format string with ``{0}``-style placeholders and its parameters.)",
             "code"_a, "message_format"_a, "message_parameters"_a = std::vector<py::object>{})
        .def("get_error_code_enum", &ErrorObject::getErrorCodeEnum,
             R"(:returns: the :class:`velmar_link.ErrorCodeEnum` of the error.)")
        .def("get_message_format_string", &ErrorObject::getMessageFormatString,
             R"(:returns: the message format string with its placeholders.)")
        .def("get_message_parameters", &wrapParameters,
             R"(:returns: the list of :class:`velmar_link.ErrorParameter` that fill the placeholders.)")
        .def("get_message_formatted", &ErrorObject::getMessageFormatted,
             R"(:returns: the message with its placeholders filled.)")
        .def("is_none", &ErrorObject::isNone, R"(True if the code is ``NONE`` (success).)")
        .def("__bool__", [](const ErrorObject& e) { return static_cast<bool>(e); },
             R"(Convert ErrorObject to boolean.)")
        .def("__eq__", [](const ErrorObject& a, const ErrorObject& b) { return a == b; },
             R"(Compare code, format string and parameters.)", "other"_a)
        .def("__eq__", [](const ErrorObject& a, bool b) { return static_cast<bool>(a) == b; },
             R"(Allows patterns like ``error == False`` to check for success.)", "other"_a)
        .def("__ne__", [](const ErrorObject& a, const ErrorObject& b) { return !(a == b); },
             R"(Negation of ``__eq__``.)", "other"_a)
        .def("__ne__", [](const ErrorObject& a, bool b) { return static_cast<bool>(a) != b; },
             R"(Negation of ``__eq__``.)", "other"_a)
        .def("__str__", &ErrorObject::getMessageFormatted, R"(The formatted message.)")
        .def("__repr__", &ErrorObject::getMessageFormatted, R"(The formatted message.)")
        .def("__copy__", [](const ErrorObject& e) { return e; }, R"(An independent copy.)")
        .def("__deepcopy__", [](const ErrorObject& e, py::object) { return e; }, R"(An independent copy.)",
             "memo"_a);
    // Python would otherwise drop __hash__ because __eq__ is defined.
    m.attr("ErrorObject").attr("__hash__") = py::none();

    PYBIND11_CONSTINIT static py::gil_safe_call_once_and_store<py::object> exceptionType;
    exceptionType.call_once_and_store_result([&m]() {
        py::object type = py::exception<VelmarLinkException>(m, "VelmarLinkException", PyExc_Exception);
        type.attr("__doc__") = "Base class for all VelmarLink exceptions.";
        return type;
    });
    py::register_exception_translator([](std::exception_ptr pointer) {
        try {
            if (pointer) std::rethrow_exception(pointer);
        } catch (const VelmarLinkException& exception) {
            const py::object& type = exceptionType.get_stored();
            try {
                py::object instance = type(exception.what());
                instance.attr("error") = py::cast(exception.getError());
                PyErr_SetObject(type.ptr(), instance.ptr());
            } catch (const py::error_already_set&) {
                PyErr_SetString(type.ptr(), exception.what());
            }
        }
    });
}

}  // namespace velmar::python
