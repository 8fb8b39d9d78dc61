#pragma once

// Templates for the repeated shapes of the job bindings: described records with keyword
// constructors, job classes with their parameter class and a generated request example.
// Included by the job binding files only, after py_common.hpp.

#include "py_common.hpp"

#include "velmar_link_json/jobs/measurement_job.hpp"

#include <boost/describe/members.hpp>
#include <boost/json.hpp>
#include <boost/mp11/algorithm.hpp>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <variant>

namespace velmar::python {

template <class T>
using DescribedMembers = boost::describe::describe_members<T, boost::describe::mod_public>;

template <class T, class D>
using MemberType = std::remove_cvref_t<decltype(std::declval<T&>().*D::pointer)>;

using MetaData = std::map<std::string, std::string>;

/// True once a C++ type has a Python class (whoever registered it first).
template <class T>
bool isRegistered() {
    return py::detail::get_type_info(typeid(T)) != nullptr;
}

/// Builds a T from one argument per described member, in member order.
template <class T, class... D>
T assignMembers(boost::mp11::mp_list<D...>, MemberType<T, D>... values) {
    T record{};
    ((record.*D::pointer = std::move(values)), ...);
    return record;
}

/// `cls.def(py::init(...))` with one keyword argument per described member of T, named like
/// the member and defaulting to the member of a default-constructed T, followed by arguments of
/// the types Rest (named by `extraArgs`); `make` turns the record and the rest into the object.
template <class T, class... Rest, class Class, class Make, class... ExtraArgs, template <class...> class L, class... D>
void defineDescribedInitImpl(Class& cls, L<D...>, Make make, const char* doc,
                             ExtraArgs... extraArgs) {
    [[maybe_unused]] const T defaults{};
    cls.def(py::init([make](MemberType<T, D>... values, Rest... rest) {
                return make(assignMembers<T>(boost::mp11::mp_list<D...>{}, std::move(values)...), std::move(rest)...);
            }),
            doc, (py::arg(D::name) = defaults.*D::pointer)..., extraArgs...);
}

template <class T, class... Rest, class Class, class Make, class... ExtraArgs>
void defineDescribedInit(Class& cls, Make make, const char* doc, ExtraArgs... extraArgs) {
    defineDescribedInitImpl<T, Rest...>(cls, DescribedMembers<T>{}, std::move(make), doc, extraArgs...);
}

/// A plain record with a keyword constructor and one read-write property per member.
/// Registered once: a second call for the same type returns the existing class.
template <class T>
py::class_<T> bindRecord(py::handle scope, const char* name, const char* doc) {
    if (isRegistered<T>()) return py::reinterpret_borrow<py::class_<T>>(py::detail::get_type_handle(typeid(T), false));
    py::class_<T> cls(scope, name, doc);
    defineDescribedInit<T>(cls, [](T record) { return record; }, "Create the record; every field is a keyword argument.");
    boost::mp11::mp_for_each<DescribedMembers<T>>([&](auto member) {
        const auto memberDoc = std::string("The \"") + member.name + "\" value (the key of the same name on the wire).";
        cls.def_readwrite(member.name, member.pointer, memberDoc.c_str());
    });
    cls.def("__copy__", [](const T& self) { return T(self); }, "An independent copy.");
    cls.def("__deepcopy__", [](const T& self, py::dict) { return T(self); }, "An independent copy.", "memo"_a);
    return cls;
}

/// "velmar_link.control.BeepJob" for a class named `name` in the submodule `m`.
inline std::string qualifiedName(py::module_& m, const char* name) {
    auto module = py::str(m.attr("__name__")).cast<std::string>();
    if (module.starts_with("_")) module.erase(0, 1);
    return module + "." + name;
}

/// The job's "/job/start" request, indented, as a reStructuredText collapse block.
inline std::string requestExampleBlock(const AbstractMeasurementJob& job) {
    auto request = makeJobRequestObject("/job/start", job);
    request["request_id"] = "123e4567-e89b-42d3-a456-426614174000";
    const auto json = py::module_::import("json");
    const auto text = json.attr("dumps")(json.attr("loads")(boost::json::serialize(request)), "indent"_a = 4)
                          .cast<std::string>();
    std::string block = "\n\n.. collapse:: WebSocket JSON Example\n\n    .. code-block:: json\n\n";
    std::size_t start = 0;
    while (start <= text.size()) {
        const auto end = text.find('\n', start);
        block += "        " + text.substr(start, end == std::string::npos ? std::string::npos : end - start) + "\n";
        if (end == std::string::npos) break;
        start = end + 1;
    }
    return block;
}

/// ":param name: ..." lines for the described members of P.
template <class P>
std::string parameterLines() {
    std::string lines = boost::mp11::mp_size<DescribedMembers<P>>::value > 0 ? "\n" : "";
    boost::mp11::mp_for_each<DescribedMembers<P>>([&](auto member) {
        lines += std::string("\n:param ") + member.name + ": the \"" + member.name + "\" parameter of the request";
    });
    return lines;
}

/// What a job constructor takes besides its parameters.
/// NO_CONSTRUCTOR leaves the constructors to the caller.
enum class JobArguments { PARAMETERS_ONLY, WITH_META_DATA, WITH_META_DATA_AND_STOP_CONDITIONS, NO_CONSTRUCTOR };

template <class Job>
using JobClass = py::class_<Job, AbstractMeasurementJob, std::shared_ptr<Job>>;

/// A job class: its parameter class (bound first, named `parametersName`, unless already
/// bound), a keyword constructor, the read-only `parameters` property, `get_job_result` for
/// single-value jobs, and a docstring ending in the job's request example.
template <class Job, JobArguments Arguments = JobArguments::PARAMETERS_ONLY>
JobClass<Job> bindJob(py::module_& m, const char* name, const char* parametersName, const std::string& doc) {
    using P = typename Job::Parameters;
    constexpr bool hasParameters = boost::mp11::mp_size<DescribedMembers<P>>::value > 0;
    if (hasParameters && parametersName != nullptr) {
        const auto parametersDoc = "Parameters of :class:`" + qualifiedName(m, name) + "`.";
        bindRecord<P>(m, parametersName, parametersDoc.c_str());
    }
    const Job example{};
    const std::string fullDoc = doc + parameterLines<P>() + requestExampleBlock(example);
    JobClass<Job> cls(m, name, fullDoc.c_str(), py::release_gil_before_calling_cpp_dtor());
    const char* initDoc = "Create the job from its parameters.";
    if constexpr (Arguments == JobArguments::PARAMETERS_ONLY) {
        defineDescribedInit<P>(cls, [](P p) { return std::make_shared<Job>(std::move(p)); }, initDoc);
    } else if constexpr (Arguments == JobArguments::WITH_META_DATA) {
        defineDescribedInit<P, MetaData>(
            cls, [](P p, MetaData meta) { return std::make_shared<Job>(std::move(p), std::move(meta)); }, initDoc,
            py::arg("meta_data") = MetaData{});
    } else if constexpr (Arguments == JobArguments::WITH_META_DATA_AND_STOP_CONDITIONS) {
        defineDescribedInit<P, StopConditionList, MetaData>(
            cls,
            [](P p, StopConditionList stops, MetaData meta) {
                return std::make_shared<Job>(std::move(p), std::move(meta), std::move(stops));
            },
            initDoc, py::arg("stop_conditions") = StopConditionList{}, py::arg("meta_data") = MetaData{});
    }
    if constexpr (hasParameters) {
        cls.def_property_readonly(
            "parameters", [](const Job& job) { return job.getParameters(); },
            "An object with the parameters that were passed to the constructor.");
    }
    if constexpr (requires(const Job& job) { job.getJobResult(); }) {
        using Result = std::remove_cvref_t<decltype(example.getJobResult())>;
        if constexpr (std::is_same_v<Result, std::vector<std::uint8_t>>) {
            cls.def(
                "get_job_result",
                [](const Job& job) {
                    const auto& bytes = job.getJobResult();
                    return py::bytes(reinterpret_cast<const char*>(bytes.data()), bytes.size());
                },
                "The result of the last run as bytes; meaningful only when the job was successful.");
        } else {
            cls.def(
                "get_job_result", [](const Job& job) { return job.getJobResult(); },
                "The result of the last run; meaningful only when the job was successful.");
        }
    }
    return cls;
}

/// Docstrings shared by the live-data callbacks of the DC and impedance jobs.
inline constexpr const char* ADD_FINISHED_DOC =
    R"(Add a callback for the end of this job's live data; it receives the JobInfo.)";
inline constexpr const char* LIVE_DATA_CALLBACK_COUNT_DOC = R"(The number of live-data callbacks added to this job.)";

/// A live-data handler of a job that calls a Python callable with the messages of one kind
/// (`Message`, one alternative of the job's message variant); `convert(holder, message)` calls
/// the holder, which converts the arguments under the interpreter lock.
template <class Message, class Variant, class Convert>
std::function<void(const Variant&)> pyLiveDataHandler(py::object callable, Convert convert) {
    auto holder = std::make_shared<PyCallbackHolder>(std::move(callable));
    return [holder, convert](const Variant& message) {
        if (const auto* part = std::get_if<Message>(&message)) convert(*holder, *part);
    };
}

}  // namespace velmar::python
