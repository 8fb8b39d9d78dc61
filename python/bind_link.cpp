#include "bindings.hpp"

#include "json_common/logging/library_version.hpp"
#include "velmar_link_json/events/velmar_link_event_handler.hpp"
#include "velmar_link_json/jobs/abstract_measurement_job.hpp"
#include "velmar_link_json/jobs/common/dataset.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"
#include "velmar_link_json/velmar_link.hpp"
#include "velmar_link_json/velmar_link_exc.hpp"

#include <boost/json.hpp>

#include <mutex>

namespace velmar::python {

namespace {

using JobPtr = std::shared_ptr<AbstractMeasurementJob>;
using Release = py::call_guard<py::gil_scoped_release>;

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

// ---- conversions ---------------------------------------------------------------------------

py::object jsonToPython(const boost::json::value& value) {
    switch (value.kind()) {
    case boost::json::kind::null: return py::none();
    case boost::json::kind::bool_: return py::bool_(value.get_bool());
    case boost::json::kind::int64: return py::int_(value.get_int64());
    case boost::json::kind::uint64: return py::int_(value.get_uint64());
    case boost::json::kind::double_: return py::float_(value.get_double());
    case boost::json::kind::string: return py::str(value.get_string().data(), value.get_string().size());
    case boost::json::kind::array: {
        py::list list;
        for (const auto& element : value.get_array()) list.append(jsonToPython(element));
        return std::move(list);
    }
    case boost::json::kind::object: {
        py::dict dict;
        for (const auto& member : value.get_object()) {
            dict[py::str(member.key().data(), member.key().size())] = jsonToPython(member.value());
        }
        return std::move(dict);
    }
    }
    return py::none();
}

/// A read-only view of the caller's buffer; released with the interpreter lock held.
class ContiguousBytes {
public:
    explicit ContiguousBytes(const py::object& data) {
        if (PyObject_GetBuffer(data.ptr(), &view_, PyBUF_C_CONTIGUOUS) != 0) throw py::error_already_set();
    }
    ~ContiguousBytes() { PyBuffer_Release(&view_); }
    ContiguousBytes(const ContiguousBytes&) = delete;
    ContiguousBytes& operator=(const ContiguousBytes&) = delete;
    std::string_view bytes() const {
        return {static_cast<const char*>(view_.buf), static_cast<std::size_t>(view_.len)};
    }

private:
    Py_buffer view_{};
};

AbstractMeasurementJob& requireJob(const JobPtr& job) {
    if (!job) throw py::reference_cast_error();
    return *job;
}

// ---- docstrings shared by both link classes ------------------------------------------------

constexpr const char* kConnectDoc = R"(Connect to a running RQ5.

The interpreter lock is released while connecting.

:returns: :class:`velmar_link.ErrorObject`, falsy on success; ``ALREADY_CONNECTED`` when
    connected, ``CONNECTION_DNS_ERROR``, ``CONNECTION_FAILED``, ``UNAUTHORIZED``,
    ``PROTOCOL_VERSION_MISMATCH``, ... otherwise.)";
constexpr const char* kDisconnectDoc = R"(Disconnect from the RQ5.

Jobs can no longer be executed after disconnect has been called. However, data that is
available in the job objects after the job has been executed remains valid and can still be
used. The connection-status callback is cleared first; the interpreter lock is released while
the connection is closed. Call it from the thread that owns the link.)";
constexpr const char* kCancelDoc = R"(Thread-safe cancellation of all pending client-side operations.

Blocked calls of another thread (``do_job``, ``get_job_result_data``,
``wait_for_job_to_finish``, requests) return ``STOPPED_MANUALLY`` at once. The connection stays
established and jobs already running on the device continue; the owner thread must still call
:meth:`disconnect`.)";
constexpr const char* kSetEventHandlerDoc = R"(Register a handler made by a ``VelmarLinkEventHandler.make_*`` factory.

The handler's callback runs on the link's I/O thread for every event of its type, also while
the calling thread waits in a blocking call such as :meth:`do_job`. One handler per event type:
registering a different handler for a type that already has one raises (``RuntimeError`` here,
:class:`velmar_link.VelmarLinkException` on ``VelmarLinkExc``); registering the same handler
again does nothing.

:param event_handler: a :class:`velmar_link.VelmarLinkEventHandler`.)";
constexpr const char* kClearEventHandlerDoc = R"(Remove a handler passed to :meth:`set_event_handler` before.

:param event_handler: the :class:`velmar_link.VelmarLinkEventHandler` to remove.)";
constexpr const char* kSendStopDoc = R"(Stop the device.

:param queue_stop_mode: :class:`velmar_link.QueueStopModeEnum`: flush the queued jobs or continue
    with the next one.)";
constexpr const char* kStatusCallbackDoc = R"(Set the callable called on every change of the connection status.

The callable receives a :class:`velmar_link.VelmarLinkConnectionStatusEnum` on the link's I/O
thread; exceptions it raises are reported as unraisable and do not affect the link.

:param callback: a callable, or ``None`` to clear.)";
constexpr const char* kRequestTimeoutDoc = R"(Set the time-out of every request (default 1 s).

:param timeout: a :class:`datetime.timedelta`; zero restores the default.)";
constexpr const char* kConnectionTimeoutDoc = R"(Set the time-out of the connection set-up (default 1.5 s).

:param timeout: a :class:`datetime.timedelta`; zero restores the default.)";

constexpr const char* kIdExcDoc = R"(Query device identification without a persistent connection.

``link.id(timeout)`` asks the link's workstation (over the connection when connected,
otherwise over a short-lived one); ``VelmarLinkExc.id(hostname, port, timeout)`` asks a
workstation by address without a link.

:param timeout: :class:`datetime.timedelta` bounding each step.
:returns: :class:`velmar_link.WorkstationInfo`.
:raises velmar_link.VelmarLinkException: on failure.)";

constexpr const char* kIdDoc = R"(Query device identification without a persistent connection.

``link.id(timeout)`` asks the link's workstation; ``VelmarLink.id(hostname, port, timeout)``
asks a workstation by address without a link.

When the link is connected the connection is used; otherwise a short-lived connection to the
link's address is made.

:param timeout: :class:`datetime.timedelta` bounding each step.)";

template <class Link, class Class>
void bindCommon(Class& cls) {
    cls.def("disconnect",
            [](Link& link) {
                link.setConnectionStatusCallback({});
                py::gil_scoped_release release;
                link.disconnect();
            },
            kDisconnectDoc)
        .def("cancel_pending_operations", &Link::cancelPendingOperations, Release(), kCancelDoc)
        .def("set_event_handler",
             [](Link& link, std::shared_ptr<VelmarLinkEventHandler> handler) {
                 if (!handler) throw py::type_error("event_handler must not be None");
                 if constexpr (std::is_same_v<Link, VelmarLink>) {
                     if (auto error = link.setEventHandler(std::move(handler))) {
                         throw std::runtime_error(error.getMessageFormatted());
                     }
                 } else {
                     link.setEventHandler(std::move(handler));
                 }
             },
             kSetEventHandlerDoc, "event_handler"_a)
        .def("clear_event_handler", &Link::clearEventHandler, kClearEventHandlerDoc, "event_handler"_a)
        .def("send_stop", &Link::sendStop, Release(), kSendStopDoc, "queue_stop_mode"_a)
        .def("get_connection_status", &Link::getConnectionStatus,
             R"(:returns: the :class:`velmar_link.VelmarLinkConnectionStatusEnum` of the link.)")
        .def("is_connected", &Link::isConnected, R"(True if the link is connected.)")
        .def("set_request_timeout", &Link::setRequestTimeout, kRequestTimeoutDoc, "timeout"_a)
        .def("set_connection_timeout", &Link::setConnectionTimeout, kConnectionTimeoutDoc, "timeout"_a)
        .def("set_connection_status_callback",
             [](Link& link, const py::object& callback) {
                 if (callback.is_none()) {
                     link.setConnectionStatusCallback({});
                     return;
                 }
                 if (!PyCallable_Check(callback.ptr())) throw py::type_error("callback must be callable or None");
                 link.setConnectionStatusCallback(wrapPyCallback<VelmarLinkConnectionStatusEnum>(callback));
             },
             kStatusCallbackDoc, "callback"_a)
        .def("set_destination_host", &Link::setDestinationHost, R"(Change the address used by the next connect.

:param hostname: IP address or host name.
:param port: the port as a string.)", "hostname"_a, "port"_a)
        .def("set_http_authentication_info", &Link::setHttpAuthenticationInfo,
             R"(Change the HTTP credentials used by the next connect.

:param http_user: user name from the settings.
:param http_password: password from the settings.)", "http_user"_a, "http_password"_a)
        .def("set_flag", &Link::setFlag, R"(Set connection flag bits for the next connect.

:param flag: :class:`velmar_link.VelmarLinkConnectionFlags` bits.)", "flag"_a)
        .def("clear_flag", &Link::clearFlag, R"(Clear connection flag bits for the next connect.

:param flag: :class:`velmar_link.VelmarLinkConnectionFlags` bits.)", "flag"_a)
        .def("test_flag", &Link::testFlag, R"(True if all the given flag bits are set.

:param flag: :class:`velmar_link.VelmarLinkConnectionFlags` bits.)", "flag"_a)
        .def_static("get_library_revision", &Link::getLibraryVersion, R"(() -> str

:returns: the library version string.)")
        .def_static("get_supported_protocol_version", &Link::getSupportedProtocolVersion,
                    R"(:returns: the protocol version that this library speaks.)")
        .def_static("is_ip_address", &Link::isIpAddress, R"(True if ``text`` is an IPv4 or IPv6 address.

:param text: the text to check.)", "text"_a);
}

template <class Link>
std::shared_ptr<Link> makeLink(std::string hostname, std::string port, unsigned flags, std::string user,
                               std::string password);

template <>
std::shared_ptr<VelmarLink> makeLink<VelmarLink>(std::string hostname, std::string port, unsigned flags,
                                                 std::string user, std::string password) {
    auto link = std::make_shared<VelmarLink>(std::move(hostname), std::move(port), flags, std::move(user),
                                             std::move(password));
    LiveLinks::instance().add(link);
    return link;
}

template <>
std::shared_ptr<VelmarLinkExc> makeLink<VelmarLinkExc>(std::string hostname, std::string port, unsigned flags,
                                                       std::string user, std::string password) {
    auto holder = std::make_shared<VelmarLinkExc>(std::move(hostname), std::move(port), flags, std::move(user),
                                                  std::move(password));
    // The registry holds the inner VelmarLink with the lifetime of its owner.
    LiveLinks::instance().add(std::shared_ptr<VelmarLink>(holder, &holder->getLink()));
    return holder;
}

constexpr const char* kConstructorDoc = R"(Create a link; nothing is connected here.

:param hostname: IP address or host name of the RQ5.
:param port: the port as a string (default "1994").
:param flags: optional combination of :class:`velmar_link.VelmarLinkConnectionFlags` bits, which
    can be combined with bitwise OR operation.
:param http_user: user name from the settings.
:param http_password: password from the settings.)";

void bindRecords(py::module_& m) {
    py::class_<WorkstationInfo>(m, "WorkstationInfo", R"(Identity of an RQ5, the reply of its "/id".)")
        .def_readonly("protocol_version", &WorkstationInfo::protocol_version,
                      R"(protocol version announced by the device in the handshake (0 if unknown))")
        .def_readonly("serial_number", &WorkstationInfo::serial_number, R"(serial number of the device)")
        .def_readonly("model_name", &WorkstationInfo::model_name, R"(model name of the device)")
        .def_readonly("firmware_version", &WorkstationInfo::firmware_version, R"(firmware version)")
        .def_readonly("firmware_build_id", &WorkstationInfo::firmware_build_id, R"(firmware build id)")
        .def_readonly("cpu_card_uuid", &WorkstationInfo::cpu_card_uuid, R"(UUID of the CPU card)")
        .def_readonly("system_mac", &WorkstationInfo::system_mac, R"(MAC address of the system)")
        .def_readonly("system_name", &WorkstationInfo::system_name, R"(name of the system)")
        .def_readonly("mode", &WorkstationInfo::mode, R"(:class:`velmar_link.WorkstationModeEnum` of the device)");

    py::class_<WorkstationStatus>(m, "WorkstationStatus", R"(Status of an RQ5, the reply of its "/status".)")
        .def_readonly("mode", &WorkstationStatus::mode, R"(:class:`velmar_link.WorkstationModeEnum` of the device)")
        .def_readonly("uptime", &WorkstationStatus::uptime, R"(uptime of the device in seconds)")
        .def_readonly("busy", &WorkstationStatus::busy, R"(True while the device runs a job)")
        .def_readonly("last_dc_calibration", &WorkstationStatus::last_dc_calibration,
                      R"(date of the last DC calibration)");

    py::class_<WebsocketConnectionInfo>(m, "WebsocketConnectionInfo",
                                        R"(One WebSocket connection to the RQ5's server.)")
        .def_readonly("connection_id", &WebsocketConnectionInfo::connection_id, R"(identifier of the connection)")
        .def_readonly("connected_since", &WebsocketConnectionInfo::connected_since, R"(time of the connect)")
        .def_readonly("remote_addr", &WebsocketConnectionInfo::remote_addr, R"(address of the client)")
        .def_readonly("remote_port", &WebsocketConnectionInfo::remote_port, R"(port of the client)")
        .def_readonly("target", &WebsocketConnectionInfo::target, R"(target of the WebSocket handshake)")
        .def_readonly("user_agent", &WebsocketConnectionInfo::user_agent, R"(User-Agent of the client)")
        .def_readonly("using_tls", &WebsocketConnectionInfo::using_tls, R"(True for a TLS connection)");

    py::class_<Resource>(m, "Resource", R"(Description of a resource stored on the RQ5.)")
        .def_readonly("resource_id", &Resource::resource_id, R"(identifier of the resource)")
        .def_readonly("type", &Resource::type, R"(:class:`velmar_link.ResourceTypeEnum` of the resource)")
        .def_readonly("name", &Resource::name, R"(name of the resource)")
        .def_readonly("sub_type", &Resource::sub_type, R"(sub-type, e.g. the dataset kind of a job result)")
        .def_readonly("size", &Resource::size, R"(size of the content in bytes)")
        .def_readonly("created_by", &Resource::created_by, R"(creator of the resource)")
        .def_readonly("job_id", &Resource::job_id, R"(job that produced the resource, if any)")
        .def_property_readonly("header", [](const Resource& r) { return jsonToPython(r.header); },
                               R"(header that travels beside the content, as a ``dict``)")
        .def("get_id", &Resource::getId, R"(:returns: the identifier of the resource.)")
        .def("get_name", &Resource::getName, R"(:returns: the name of the resource.)")
        .def("get_creation_date", &Resource::getCreationDate, R"(:returns: the creation date as text.)")
        .def("get_last_updated_date", &Resource::getLastUpdatedDate, R"(:returns: the date of the last change.)")
        .def_readonly_static("DATA_CHUNK_SIZE_LIMIT", &Resource::DATA_CHUNK_SIZE_LIMIT,
                             R"(largest chunk of one append or retrieve request, in bytes)");
}

/// Installs `id` as a name that is an instance method when read from a link and the static
/// query by address when read from the class, as scripts call it both ways.
void installInstanceOrClassId(py::handle cls, const char* doc) {
    py::dict scope;
    py::exec(R"(
class InstanceOrClassMethod:
    def __init__(self, on_instance, on_class, doc):
        self._on_instance, self._on_class, self.__doc__ = on_instance, on_class, doc

    def __get__(self, instance, owner=None):
        if instance is None:
            return self._on_class
        return self._on_instance.__get__(instance, owner)
)",
             scope);
    py::setattr(cls, "id", scope["InstanceOrClassMethod"](cls.attr("__dict__")["_id_of_link"], cls.attr("_id_of_address"), doc));
}

}  // namespace

void bindLink(py::module_& m) {
    bindRecords(m);

    // ---- VelmarLink --------------------------------------------------------------------------
    py::class_<VelmarLink, std::shared_ptr<VelmarLink>> link(m, "VelmarLink", R"(Class which manages the connection to the RQ5

This class provides methods for communicating with an RQ5 device and executing jobs.
Results that may fail are returned as the value or a :class:`velmar_link.ErrorObject`;
operations that only succeed or fail return an ``ErrorObject``, falsy on success.)",
                                                             py::release_gil_before_calling_cpp_dtor());
    link.def(py::init(&makeLink<VelmarLink>), kConstructorDoc, "hostname"_a, "port"_a = "1994", "flags"_a = 0u,
             "http_user"_a = "", "http_password"_a = "")
        .def("connect", &VelmarLink::connect, Release(), kConnectDoc)
        .def("_id_of_link", py::overload_cast<std::chrono::milliseconds>(&VelmarLink::id), Release(), kIdDoc,
             "timeout"_a)
        .def_static("_id_of_address",
                    py::overload_cast<const std::string&, const std::string&, std::chrono::milliseconds>(
                        &VelmarLink::id),
                    Release(), kIdDoc, "hostname"_a, "port"_a, "timeout"_a)
        .def("do_job", [](VelmarLink& l, const JobPtr& job) {
                 auto& j = requireJob(job);
                 py::gil_scoped_release release;
                 return l.doJob(j);
             },
             R"(Perform a job and wait until it has finished.

The interpreter lock is released while the job runs.

:param job: the job, a :class:`velmar_link.AbstractMeasurementJob`.
:returns: :class:`velmar_link.ErrorObject`, falsy if the job was successful.)", "job"_a)
        .def("wait_for_job_to_finish", [](VelmarLink& l, const JobPtr& job) {
                 auto& j = requireJob(job);
                 py::gil_scoped_release release;
                 return l.waitForJobToFinish(j);
             },
             R"(Wait until a job started earlier has finished (interpreter lock released).

:param job: the job.
:returns: :class:`velmar_link.ErrorObject`, falsy if the job was successful.)", "job"_a)
        .def("get_job_result_data", [](VelmarLink& l, const JobPtr& job) {
                 auto& j = requireJob(job);
                 py::gil_scoped_release release;
                 return l.getJobResultData(j);
             },
             R"(Download the result data of a job.

Must be used for jobs that return measurement data and online data that have a longer
duration. The interpreter lock is released during the retrieval.

:param job: the job.
:returns: a :class:`velmar_link.DcDataset` or :class:`velmar_link.EisDataset`, or
    :class:`velmar_link.ErrorObject`.)", "job"_a)
        .def("update_settings",
             [](VelmarLink& l, SettingsSet& settings) {
                 // The outcome travels in the set itself; a failed request marks every entry.
                 static_cast<void>(l.updateSettings(settings));
             },
             Release(), R"(Update device settings.

The outcome of each entry is written into the set passed in: read it with
:meth:`velmar_link.SettingsSet.all_successfully_updated` and
:meth:`velmar_link.Setting.get_update_failure_reason`. Without a connection the set is left
untouched.

:param settings: the :class:`velmar_link.SettingsSet` to send.)", "settings"_a)
        .def("get_settings", &VelmarLink::getSettings, Release(), R"(Get the current device settings.

:returns: :class:`velmar_link.SettingsSet` or :class:`velmar_link.ErrorObject`.)")
        .def("get_job_info_list", &VelmarLink::getJobInfoList, Release(), R"(List the jobs of the device.

:param exclude_finished_jobs: leave out jobs that have finished.
:returns: ``list`` of :class:`velmar_link.JobInfo`, or :class:`velmar_link.ErrorObject`.)",
             "exclude_finished_jobs"_a)
        .def("get_job_info", [](VelmarLink& l, const JobPtr& job) {
                 auto& j = requireJob(job);
                 py::gil_scoped_release release;
                 return l.getJobInfo(j);
             },
             R"(Ask the device for the current information on a job.

:param job: the job.
:returns: :class:`velmar_link.JobInfo` or :class:`velmar_link.ErrorObject`.)", "job"_a)
        .def("get_workstation_info", &VelmarLink::getWorkstationInfo, Release(),
             R"(:returns: :class:`velmar_link.WorkstationInfo` or :class:`velmar_link.ErrorObject`.)")
        .def("get_workstation_status", &VelmarLink::getWorkstationStatus, Release(),
             R"(:returns: :class:`velmar_link.WorkstationStatus` or :class:`velmar_link.ErrorObject`.)")
        .def("get_own_connection_info", &VelmarLink::getOwnConnectionInfo, Release(),
             R"(Get information about the own WebSocket connection to the ECW.

:returns: :class:`velmar_link.WebsocketConnectionInfo` or :class:`velmar_link.ErrorObject`.)")
        .def("get_ecw_connection_list", &VelmarLink::getEcwConnectionList, Release(),
             R"(List all active WebSocket connections of the device.

:returns: ``list`` of :class:`velmar_link.WebsocketConnectionInfo`, or :class:`velmar_link.ErrorObject`.)")
        .def("drop_ecw_connection", &VelmarLink::dropEcwConnection, Release(),
             R"(Disconnect one WebSocket connection of the device.

:param connection_info: the :class:`velmar_link.WebsocketConnectionInfo` of the connection.
:returns: :class:`velmar_link.ErrorObject`, falsy on success.)", "connection_info"_a)
        .def("check_job_parameters", [](VelmarLink& l, const JobPtr& job) {
                 auto& j = requireJob(job);
                 py::gil_scoped_release release;
                 return l.checkJobParameters(j);
             },
             R"(Let the device check the parameters of a job without running it.

:param job: the job.
:returns: :class:`velmar_link.ErrorObject`, falsy if the parameters are valid.)", "job"_a)
        .def("create_resource", &VelmarLink::createResource, Release(), R"(Create an empty resource.

:param type: :class:`velmar_link.ResourceTypeEnum` of the resource.
:param resource_name: its name.
:returns: :class:`velmar_link.Resource` or :class:`velmar_link.ErrorObject`.)", "type"_a, "resource_name"_a)
        .def("create_resource_from_file", &VelmarLink::createResourceFromFile, Release(),
             R"(Create a resource holding the content of a file.

:param type: :class:`velmar_link.ResourceTypeEnum` of the resource.
:param file_name_and_path: the file, ``os.PathLike``, ``str`` or ``bytes``.
:param resource_name: optional name; the file name when empty.
:returns: :class:`velmar_link.Resource` or :class:`velmar_link.ErrorObject`.)", "type"_a,
             "file_name_and_path"_a, "resource_name"_a = "")
        .def("append_to_resource",
             [](VelmarLink& l, const Resource& resource, const py::object& data) {
                 ContiguousBytes bytes(data);
                 py::gil_scoped_release release;
                 return l.appendToResource(resource, bytes.bytes());
             },
             R"(Append bytes to a resource.

:param resource: the :class:`velmar_link.Resource`.
:param data: Data as bytearray (any object supporting the buffer protocol).
:returns: :class:`velmar_link.ErrorObject`, falsy on success.)", "resource"_a, "data"_a)
        .def("retrieve_resource",
             [](VelmarLink& l, const Resource& resource, std::uint64_t limit, std::uint64_t offset) -> py::object {
                 std::string out;
                 ErrorObject error;
                 {
                     py::gil_scoped_release release;
                     error = l.retrieveResource(resource, out, offset, limit);
                 }
                 if (error) return py::cast(std::move(error));
                 return py::bytes(out);
             },
             R"(Read part of a resource's content.

:param resource: the :class:`velmar_link.Resource`.
:param limit: the number of bytes; 0 means the maximum (``Resource.DATA_CHUNK_SIZE_LIMIT``).
:param offset: the first byte.
:returns: ``bytes`` or :class:`velmar_link.ErrorObject`.)", "resource"_a, "limit"_a, "offset"_a)
        .def("download_resource_to_file", &VelmarLink::downloadResourceToFile, Release(),
             R"(Download the whole content of a resource into a file.

:param resource: the :class:`velmar_link.Resource`.
:param file_name_and_path: the file; missing parent directories are created.
:returns: :class:`velmar_link.ErrorObject`, falsy on success.)", "resource"_a, "file_name_and_path"_a)
        .def("delete_resource", &VelmarLink::deleteResource, Release(), R"(Delete a resource.

:param resource: the :class:`velmar_link.Resource`.
:returns: :class:`velmar_link.ErrorObject`, falsy on success.)", "resource"_a)
        .def("get_available_resources", &VelmarLink::getAvailableResources, Release(),
             R"(List the resources of one type.

:param type: :class:`velmar_link.ResourceTypeEnum`.
:returns: ``list`` of :class:`velmar_link.Resource`, or :class:`velmar_link.ErrorObject`.)", "type"_a)
        .def("get_updated_resource_info", &VelmarLink::getUpdatedResourceInfo, Release(),
             R"(Refresh the given resource description in place.

:param resource: the :class:`velmar_link.Resource`.
:returns: :class:`velmar_link.ErrorObject`, falsy on success.)", "resource"_a);
    bindCommon<VelmarLink>(link);
    installInstanceOrClassId(link, kIdDoc);

    // ---- VelmarLinkExc -----------------------------------------------------------------------
    py::class_<VelmarLinkExc, std::shared_ptr<VelmarLinkExc>> exc(m, "VelmarLinkExc",
                                                                   R"(Variant of VelmarLink which raises :class:`velmar_link.VelmarLinkException` on errors for all methods.

Results are returned plain; ``do_job`` and ``wait_for_job_to_finish`` return the falsy
:class:`velmar_link.ErrorObject` on success and raise on failure unless the failing code was
passed to :meth:`suppress_do_job_exception`.)",
                                                                   py::release_gil_before_calling_cpp_dtor());
    exc.def(py::init(&makeLink<VelmarLinkExc>), kConstructorDoc, "hostname"_a, "port"_a = "1994", "flags"_a = 0u,
            "http_user"_a = "", "http_password"_a = "")
        .def("connect", &VelmarLinkExc::connect, Release(), R"(Connect to a running RQ5.

:raises velmar_link.VelmarLinkException: if the connection failed.)")
        .def("_id_of_link", py::overload_cast<std::chrono::milliseconds>(&VelmarLinkExc::id), Release(),
             kIdExcDoc, "timeout"_a)
        .def_static("_id_of_address",
                    py::overload_cast<const std::string&, const std::string&, std::chrono::milliseconds>(
                        &VelmarLinkExc::id),
                    Release(), kIdExcDoc, "hostname"_a, "port"_a, "timeout"_a)
        .def("do_job", [](VelmarLinkExc& l, const JobPtr& job) {
                 auto& j = requireJob(job);
                 py::gil_scoped_release release;
                 return l.doJob(j);
             },
             R"(Perform a job and wait until it has finished (interpreter lock released).

:param job: the job.
:returns: the falsy :class:`velmar_link.ErrorObject`, or the error of a suppressed code.
:raises velmar_link.VelmarLinkException: if the job failed.)", "job"_a)
        .def("wait_for_job_to_finish", [](VelmarLinkExc& l, const JobPtr& job) {
                 auto& j = requireJob(job);
                 py::gil_scoped_release release;
                 return l.waitForJobToFinish(j);
             },
             R"(Wait until a job started earlier has finished (interpreter lock released).

:param job: the job.
:returns: the falsy :class:`velmar_link.ErrorObject`, or the error of a suppressed code.
:raises velmar_link.VelmarLinkException: if the job failed.)", "job"_a)
        .def("get_job_result_data", [](VelmarLinkExc& l, const JobPtr& job) {
                 auto& j = requireJob(job);
                 py::gil_scoped_release release;
                 return l.getJobResultData(j);
             },
             R"(Download the result data of a job (interpreter lock released).

:param job: the job.
:returns: a :class:`velmar_link.DcDataset` or :class:`velmar_link.EisDataset`.
:raises velmar_link.VelmarLinkException: if retrieval failed or job did not finish successfully.)", "job"_a)
        .def("update_settings", &VelmarLinkExc::updateSettings, Release(), R"(Update device settings.

:param settings: the :class:`velmar_link.SettingsSet`; each entry's outcome is written into it.
:raises velmar_link.VelmarLinkException: if the request failed.)", "settings"_a)
        .def("get_settings", &VelmarLinkExc::getSettings, Release(), R"(Get the current device settings.

:returns: :class:`velmar_link.SettingsSet`.
:raises velmar_link.VelmarLinkException: on failure.)")
        .def("get_job_info_list", &VelmarLinkExc::getJobInfoList, Release(), R"(List the jobs of the device.

:param exclude_finished_jobs: leave out jobs that have finished.
:returns: ``list`` of :class:`velmar_link.JobInfo`.
:raises velmar_link.VelmarLinkException: on failure.)", "exclude_finished_jobs"_a)
        .def("get_job_info", [](VelmarLinkExc& l, const JobPtr& job) {
                 auto& j = requireJob(job);
                 py::gil_scoped_release release;
                 return l.getJobInfo(j);
             },
             R"(Ask the device for the current information on a job.

:param job: the job.
:returns: :class:`velmar_link.JobInfo`.
:raises velmar_link.VelmarLinkException: on failure.)", "job"_a)
        .def("get_workstation_info", &VelmarLinkExc::getWorkstationInfo, Release(), R"(:returns: :class:`velmar_link.WorkstationInfo`.
:raises velmar_link.VelmarLinkException: on failure.)")
        .def("get_workstation_status", &VelmarLinkExc::getWorkstationStatus, Release(), R"(:returns: :class:`velmar_link.WorkstationStatus`.
:raises velmar_link.VelmarLinkException: on failure.)")
        .def("get_own_connection_info", &VelmarLinkExc::getOwnConnectionInfo, Release(),
             R"(Get information about the own WebSocket connection to the ECW.

:returns: :class:`velmar_link.WebsocketConnectionInfo`.
:raises velmar_link.VelmarLinkException: on failure.)")
        .def("get_ecw_connection_list", &VelmarLinkExc::getEcwConnectionList, Release(),
             R"(List all active WebSocket connections of the device.

:returns: ``list`` of :class:`velmar_link.WebsocketConnectionInfo`.
:raises velmar_link.VelmarLinkException: on failure.)")
        .def("drop_ecw_connection", &VelmarLinkExc::dropEcwConnection, Release(),
             R"(Disconnect one WebSocket connection of the device.

:param connection_info: the :class:`velmar_link.WebsocketConnectionInfo` of the connection.
:raises velmar_link.VelmarLinkException: if the operation failed.)", "connection_info"_a)
        .def("check_job_parameters", [](VelmarLinkExc& l, const JobPtr& job) {
                 auto& j = requireJob(job);
                 py::gil_scoped_release release;
                 l.checkJobParameters(j);
             },
             R"(Let the device check the parameters of a job without running it.

:param job: the job.
:raises velmar_link.VelmarLinkException: if the parameters are invalid.)", "job"_a)
        .def("create_resource", &VelmarLinkExc::createResource, Release(), R"(Create an empty resource.

:param type: :class:`velmar_link.ResourceTypeEnum` of the resource.
:param resource_name: its name.
:returns: :class:`velmar_link.Resource`.
:raises velmar_link.VelmarLinkException: on failure.)", "type"_a, "resource_name"_a)
        .def("create_resource_from_file", &VelmarLinkExc::createResourceFromFile, Release(),
             R"(Create a resource holding the content of a file.

:param type: :class:`velmar_link.ResourceTypeEnum` of the resource.
:param file_name_and_path: the file.
:param resource_name: optional name; the file name when empty.
:returns: :class:`velmar_link.Resource`.
:raises velmar_link.VelmarLinkException: on failure.)", "type"_a, "file_name_and_path"_a, "resource_name"_a = "")
        .def("append_to_resource",
             [](VelmarLinkExc& l, const Resource& resource, const py::object& data) {
                 ContiguousBytes bytes(data);
                 py::gil_scoped_release release;
                 l.appendToResource(resource, bytes.bytes());
             },
             R"(Append bytes to a resource.

:param resource: the :class:`velmar_link.Resource`.
:param data: Data as bytearray (any object supporting the buffer protocol).
:raises velmar_link.VelmarLinkException: on failure.)", "resource"_a, "data"_a)
        .def("retrieve_resource",
             [](VelmarLinkExc& l, const Resource& resource, std::uint64_t limit, std::uint64_t offset) {
                 std::string out;
                 {
                     py::gil_scoped_release release;
                     out = l.retrieveResource(resource, offset, limit);
                 }
                 return py::bytes(out);
             },
             R"(Read part of a resource's content.

:param resource: the :class:`velmar_link.Resource`.
:param limit: the number of bytes; 0 means the maximum.
:param offset: the first byte.
:returns: ``bytes``.
:raises velmar_link.VelmarLinkException: on failure.)", "resource"_a, "limit"_a, "offset"_a)
        .def("download_resource_to_file", &VelmarLinkExc::downloadResourceToFile, Release(),
             R"(Download the whole content of a resource into a file.

:param resource: the :class:`velmar_link.Resource`.
:param file_name_and_path: the file; missing parent directories are created.
:raises velmar_link.VelmarLinkException: on failure.)", "resource"_a, "file_name_and_path"_a)
        .def("delete_resource", &VelmarLinkExc::deleteResource, Release(), R"(Delete a resource.

:param resource: the :class:`velmar_link.Resource`.
:raises velmar_link.VelmarLinkException: on failure.)", "resource"_a)
        .def("get_available_resources", &VelmarLinkExc::getAvailableResources, Release(),
             R"(List the resources of one type.

:param type: :class:`velmar_link.ResourceTypeEnum`.
:returns: ``list`` of :class:`velmar_link.Resource`.
:raises velmar_link.VelmarLinkException: on failure.)", "type"_a)
        .def("get_updated_resource_info", &VelmarLinkExc::getUpdatedResourceInfo, Release(),
             R"(Refresh the given resource description in place.

:param resource: the :class:`velmar_link.Resource`.
:raises velmar_link.VelmarLinkException: on failure.)", "resource"_a)
        .def("suppress_do_job_exception", &VelmarLinkExc::suppressDoJobException,
             R"(Let ``do_job`` return the :class:`velmar_link.ErrorObject` for this code instead of raising.

:param code: the :class:`velmar_link.ErrorCodeEnum`.)", "code"_a)
        .def("enable_do_job_exception", &VelmarLinkExc::enableDoJobException,
             R"(Undo :meth:`suppress_do_job_exception` for this code.

:param code: the :class:`velmar_link.ErrorCodeEnum`.)", "code"_a)
        .def("is_do_job_exception_suppressed", &VelmarLinkExc::isDoJobExceptionSuppressed,
             R"(True if ``do_job`` returns instead of raising for this code.

:param code: the :class:`velmar_link.ErrorCodeEnum`.)", "code"_a);
    bindCommon<VelmarLinkExc>(exc);
    installInstanceOrClassId(exc, kIdExcDoc);

    py::module_::import("atexit").attr("register")(
        py::cpp_function([]() { LiveLinks::instance().disconnectAll(); }));
}

}  // namespace velmar::python
