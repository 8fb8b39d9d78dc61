#include "bindings.hpp"

#include "velmar_link_json/events/velmar_link_event_handler.hpp"
#include "velmar_link_json/jobs/abstract_measurement_job.hpp"
#include "velmar_link_json/jobs/common/dataset.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"
#include "velmar_link_json/link_operations.hpp"
#include "velmar_link_json/velmar_link.hpp"
#include "velmar_link_json/velmar_link_exc.hpp"

#include <mutex>
#include <type_traits>
#include <utility>

namespace velmar::python {

namespace {

namespace ops = link_operations;

// ---- live links: disconnected before the interpreter finalises ----------------------------

/// Every link made from Python, so that an atexit hook can disconnect those still alive and
/// no I/O thread calls into a finalised interpreter.
class LiveLinks {
public:
    static LiveLinks& instance() {
        static auto* links = new LiveLinks();  // never destroyed: used by the atexit hook
        return *links;
    }

    void add(const std::shared_ptr<VelmarLink>& link) {
        std::lock_guard lock(mutex_);
        std::erase_if(links_, [](const auto& weak) { return weak.expired(); });
        links_.push_back(link);
    }

    /// Interpreter lock held on entry.
    void disconnectAll() {
        std::vector<std::shared_ptr<VelmarLink>> alive;
        {
            std::lock_guard lock(mutex_);
            for (const auto& weak : links_) {
                if (auto link = weak.lock()) alive.push_back(std::move(link));
            }
            links_.clear();
        }
        for (const auto& link : alive) link->setConnectionStatusCallback({});
        py::gil_scoped_release release;
        for (const auto& link : alive) link->disconnect();
    }

private:
    std::mutex mutex_;
    std::vector<std::weak_ptr<VelmarLink>> links_;
};

template <class Link>
std::shared_ptr<Link> makeLink(std::string hostname, std::string port, unsigned flags, std::string user,
                               std::string password) {
    auto link = std::make_shared<Link>(std::move(hostname), std::move(port), flags, std::move(user),
                                       std::move(password));
    if constexpr (std::is_same_v<Link, VelmarLink>) {
        LiveLinks::instance().add(link);
    } else {
        // The registry holds the inner VelmarLink with the lifetime of its owner.
        LiveLinks::instance().add(std::shared_ptr<VelmarLink>(link, &link->getLink()));
    }
    return link;
}

constexpr const char* CONSTRUCTOR_DOC = R"(Create a link; nothing is connected here.

:param hostname: IP address or host name of the RQ5.
:param port: the port as a string (default "1994").
:param flags: optional combination of :class:`velmar_link.VelmarLinkConnectionFlags` bits, which
    can be combined with bitwise OR operation.
:param http_user: user name from the settings.
:param http_password: password from the settings.)";

// ---- the operations of link_operations::LIST as methods -----------------------------------

/// Result and arguments of an operation's function, without the link.
template <class F>
struct Signature;
template <class R, class... A>
struct Signature<R (VelmarLink::*)(A...)> {
    using Result = R;
    using Args = std::tuple<A...>;
    static constexpr bool IS_STATIC = false;
};
template <class R, class... A>
struct Signature<R (VelmarLink::*)(A...) const> : Signature<R (VelmarLink::*)(A...)> {};
template <class R, class... A>
struct Signature<R (*)(VelmarLink&, A...)> : Signature<R (VelmarLink::*)(A...)> {};
template <class R, class... A>
struct Signature<R (*)(A...)> {
    using Result = R;
    using Args = std::tuple<A...>;
    static constexpr bool IS_STATIC = true;
};

template <class T>
constexpr bool IS_EXPECTED = false;
template <class T>
constexpr bool IS_EXPECTED<std::expected<T, ErrorObject>> = true;

/// How a native argument is taken from Python: by default as it is.
template <class A, class Bare = std::remove_cvref_t<A>>
struct ScriptArg {
    using Type = A;
    static A toNative(A value) { return std::forward<A>(value); }
};

/// Handlers are objects made by factories; None is refused before anything runs.
template <class A, class T>
struct ScriptArg<A, std::shared_ptr<T>> {
    using Type = A;
    static A toNative(A value) {
        if (!value) throw py::type_error("an object is required, not None");
        return std::forward<A>(value);
    }
};

/// Callbacks: any callable, or None to clear; called through the holder that takes the lock.
template <class A, class... S>
struct ScriptArg<A, std::function<void(S...)>> {
    using Type = const py::typing::Optional<py::typing::Callable<void(S...)>>&;
    static std::function<void(S...)> toNative(Type callback) {
        if (callback.is_none()) return {};
        if (PyCallable_Check(callback.ptr()) == 0) throw py::type_error("callback must be callable or None");
        return wrapPyCallback<S...>(callback);
    }
};

struct KeepLock {};
template <ops::Lock lock>
using LockGuard = std::conditional_t<lock == ops::Lock::RELEASED, py::gil_scoped_release, KeepLock>;

/// Operation I of the list, called on `link` with converted arguments, the lock given up as
/// its entry says. The result is built before the lock is taken back and converted after.
template <class Link, std::size_t I, class... Native>
decltype(auto) callOperation(Link& link, Native&&... native) {
    static constexpr const auto& op = std::get<I>(ops::LIST);
    constexpr auto function = std::remove_cvref_t<decltype(op)>::function;
    [[maybe_unused]] LockGuard<op.lock> guard;
    if constexpr (std::is_same_v<Link, VelmarLinkExc>) {
        return link.template call<function, op.onFailure>(std::forward<Native>(native)...);
    } else if constexpr (op.scriptResult == ops::ScriptResult::NONE) {
        static_cast<void>(std::invoke(function, link, std::forward<Native>(native)...));
    } else if constexpr (op.scriptResult == ops::ScriptResult::RAISED) {
        if (auto error = std::invoke(function, link, std::forward<Native>(native)...)) {
            throw std::runtime_error(error.getMessageFormatted());
        }
    } else {
        return std::invoke(function, link, std::forward<Native>(native)...);
    }
}

/// The docstring of operation I on the script class `Link`: the entry's text, then what is
/// returned and what is raised.
template <class Link, std::size_t I>
std::string operationDoc() {
    static constexpr const auto& op = std::get<I>(ops::LIST);
    using Result = typename Signature<std::remove_cvref_t<decltype(op.function)>>::Result;
    constexpr bool returnsError = std::is_same_v<Result, ErrorObject>;
    constexpr bool mayFail = IS_EXPECTED<Result> || returnsError;
    constexpr bool raising = std::is_same_v<Link, VelmarLinkExc>;
    std::string returns;
    std::string raises;
    if constexpr (raising) {
        if constexpr (op.onFailure == ops::OnFailure::RAISE_UNLESS_SUPPRESSED) {
            returns = "the falsy :class:`velmar_link.ErrorObject`, or the error of a code passed to "
                      ":meth:`suppress_do_job_exception`";
        } else if (op.returns != nullptr && !returnsError) {
            returns = op.returns;
        }
        if (mayFail) raises = std::string(":raises velmar_link.VelmarLinkException: ") + op.raises + ".";
    } else {
        if constexpr (IS_EXPECTED<Result>) {
            returns = std::string(op.returns) + " or :class:`velmar_link.ErrorObject`";
        } else if constexpr (returnsError) {
            if (op.scriptResult == ops::ScriptResult::AS_IS) {
                returns = op.returns != nullptr ? op.returns : ":class:`velmar_link.ErrorObject`, falsy on success";
            }
        } else if (op.returns != nullptr) {
            returns = op.returns;
        }
        if (op.scriptResult == ops::ScriptResult::RAISED) raises = std::string(":raises RuntimeError: ") + op.raises + ".";
    }
    std::string doc = op.doc;
    if (!returns.empty() || !raises.empty()) doc += "\n";
    if (!returns.empty()) doc += "\n:returns: " + returns + ".";
    if (!raises.empty()) doc += "\n" + raises;
    return doc;
}

/// The keyword of argument K of operation I; an optional one defaults to its type's value.
template <std::size_t I, std::size_t K, class A>
auto argument() {
    static constexpr ops::Arg arg = std::get<I>(ops::LIST).args[K];
    static_assert(arg.name != nullptr, "every argument of an operation is named");
    if constexpr (arg.optional) {
        return py::arg(arg.name) = std::remove_cvref_t<A>{};
    } else {
        return py::arg(arg.name);
    }
}

template <class Link, class Class, std::size_t I, class... A, std::size_t... K>
void defineOperation(Class& cls, std::tuple<A...>* /*arguments*/, std::index_sequence<K...> /*indices*/) {
    static constexpr const auto& op = std::get<I>(ops::LIST);
    using Sig = Signature<std::remove_cvref_t<decltype(op.function)>>;
    static_assert(sizeof...(A) == op.args.size() || op.args[sizeof...(A)].name == nullptr,
                  "an operation names exactly its arguments");
    const std::string doc = operationDoc<Link, I>();
    if constexpr (Sig::IS_STATIC) {
        cls.def_static(
            op.name,
            [](typename ScriptArg<A>::Type... args) {
                return std::invoke(op.function, ScriptArg<A>::toNative(std::forward<typename ScriptArg<A>::Type>(args))...);
            },
            doc.c_str(), argument<I, K, A>()...);
    } else {
        cls.def(
            op.name,
            [](Link& link, typename ScriptArg<A>::Type... args) -> decltype(auto) {
                return callOperation<Link, I>(link,
                                              ScriptArg<A>::toNative(std::forward<typename ScriptArg<A>::Type>(args))...);
            },
            doc.c_str(), argument<I, K, A>()...);
    }
}

template <class Link, class Class, std::size_t... I>
void defineOperations(Class& cls, std::index_sequence<I...> /*indices*/) {
    (defineOperation<Link, Class, I>(
         cls,
         static_cast<typename Signature<std::remove_cvref_t<decltype(std::get<I>(ops::LIST).function)>>::Args*>(nullptr),
         std::make_index_sequence<std::tuple_size_v<typename Signature<
             std::remove_cvref_t<decltype(std::get<I>(ops::LIST).function)>>::Args>>{}),
     ...);
}

/// The names of the list, in order, with "id" after "disconnect" and `own` (the methods of one
/// class alone) after the last operation of the script table ("get_supported_protocol_version").
py::tuple methodOrder(std::initializer_list<const char*> own) {
    py::list names;
    std::apply(
        [&](const auto&... op) {
            for (const char* name : {op.name...}) {
                names.append(name);
                if (std::string_view(name) == "disconnect") names.append("id");
                if (std::string_view(name) == "get_supported_protocol_version") {
                    for (const char* ownName : own) names.append(ownName);
                }
            }
        },
        ops::LIST);
    return py::tuple(names);
}

// ---- id: the link's query on an instance, the query by address on the class ---------------

constexpr const char* ID_DOC = R"(Query device identification without a persistent connection.

``link.id(timeout)`` asks the link's workstation: over the connection when the link is
connected, otherwise over a short-lived connection to the link's address.
``VelmarLink.id(hostname, port, timeout)`` asks a workstation by address without a link.

:param timeout: :class:`datetime.timedelta` bounding each step.)";

/// The descriptor behind `id`: read from a link it is the link's query, read from the class
/// it is the query by address.
template <class Link>
struct IdQuery {};

template <class Link, class Class>
void defineId(py::module_& m, Class& cls, const char* descriptorName) {
    using Result = decltype(std::declval<Link&>().id(std::chrono::milliseconds{}));
    const std::string doc = std::string(ID_DOC) +
                            (std::is_same_v<Link, VelmarLink>
                                 ? "\n\n:returns: :class:`velmar_link.WorkstationInfo` or :class:`velmar_link.ErrorObject`."
                                 : "\n\n:returns: :class:`velmar_link.WorkstationInfo`.\n"
                                   ":raises velmar_link.VelmarLinkException: on failure.");
    cls.def(
           "_id_of_link",
           [](Link& link, std::chrono::milliseconds timeout) {
               py::gil_scoped_release release;
               return link.id(timeout);
           },
           doc.c_str(), "timeout"_a)
        .def_static(
            "_id_of_address",
            [](const std::string& hostname, const std::string& port, std::chrono::milliseconds timeout) {
                py::gil_scoped_release release;
                return Link::id(hostname, port, timeout);
            },
            doc.c_str(), "hostname"_a, "port"_a, "timeout"_a);

    using OfAddress = py::typing::Callable<Result(const std::string&, const std::string&, std::chrono::milliseconds)>;
    using OfLink = py::typing::Callable<Result(std::chrono::milliseconds)>;
    py::class_<IdQuery<Link>>(m, descriptorName, "The ``id`` query of a link class.")
        .def(
            "__get__",
            [](const IdQuery<Link>&, std::nullptr_t, const py::type& owner) {
                return py::reinterpret_borrow<OfAddress>(owner.attr("_id_of_address"));
            },
            "Read from the class: the query by address.", "instance"_a, "owner"_a)
        .def(
            "__get__",
            [](const IdQuery<Link>&, Link& link, const py::type& /*owner*/) {
                return py::reinterpret_borrow<OfLink>(py::cast(&link, py::return_value_policy::reference)
                                                          .attr("_id_of_link"));
            },
            "Read from a link: the query of that link's workstation.", "instance"_a, "owner"_a);
    cls.attr("id") = IdQuery<Link>{};
}

}  // namespace

void bindLink(py::module_& m) {
    bindLinkRecords(m);
    constexpr auto operations = std::make_index_sequence<std::tuple_size_v<decltype(ops::LIST)>>{};

    py::class_<VelmarLink, std::shared_ptr<VelmarLink>> link(m, "VelmarLink", R"(Class which manages the connection to the RQ5

This class provides methods for communicating with an RQ5 device and executing jobs.
Results that may fail are returned as the value or a :class:`velmar_link.ErrorObject`;
operations that only succeed or fail return an ``ErrorObject``, falsy on success.)",
                                                             py::release_gil_before_calling_cpp_dtor());
    link.def(py::init(&makeLink<VelmarLink>), CONSTRUCTOR_DOC, "hostname"_a, "port"_a = "1994", "flags"_a = 0U,
             "http_user"_a = "", "http_password"_a = "");
    defineOperations<VelmarLink>(link, operations);
    defineId<VelmarLink>(m, link, "_VelmarLinkIdQuery");
    // pydoc lists the names of `_fields` first and in that order: help() shows the methods in
    // the order of the list rather than alphabetically.
    link.attr("_fields") = methodOrder({});

    py::class_<VelmarLinkExc, std::shared_ptr<VelmarLinkExc>> exc(m, "VelmarLinkExc",
                                                                   R"(Variant of VelmarLink which raises :class:`velmar_link.VelmarLinkException` on errors for all methods.

Results are returned plain; ``do_job`` and ``wait_for_job_to_finish`` return the falsy
:class:`velmar_link.ErrorObject` on success and raise on failure unless the failing code was
passed to :meth:`suppress_do_job_exception`.)",
                                                                   py::release_gil_before_calling_cpp_dtor());
    exc.def(py::init(&makeLink<VelmarLinkExc>), CONSTRUCTOR_DOC, "hostname"_a, "port"_a = "1994", "flags"_a = 0U,
            "http_user"_a = "", "http_password"_a = "");
    defineOperations<VelmarLinkExc>(exc, operations);
    defineId<VelmarLinkExc>(m, exc, "_VelmarLinkExcIdQuery");
    exc.def("suppress_do_job_exception", &VelmarLinkExc::suppressDoJobException,
            R"(Let ``do_job`` return the :class:`velmar_link.ErrorObject` for this code instead of raising.

:param code: the :class:`velmar_link.ErrorCodeEnum`.)", "code"_a)
        .def("enable_do_job_exception", &VelmarLinkExc::enableDoJobException,
             R"(Undo :meth:`suppress_do_job_exception` for this code.

:param code: the :class:`velmar_link.ErrorCodeEnum`.)", "code"_a)
        .def("is_do_job_exception_suppressed", &VelmarLinkExc::isDoJobExceptionSuppressed,
             R"(True if ``do_job`` returns instead of raising for this code.

:param code: the :class:`velmar_link.ErrorCodeEnum`.)", "code"_a);
    exc.attr("_fields") =
        methodOrder({"suppress_do_job_exception", "enable_do_job_exception", "is_do_job_exception_suppressed"});

    py::module_::import("atexit").attr("register")(
        py::cpp_function([]() { LiveLinks::instance().disconnectAll(); }));
}

}  // namespace velmar::python
