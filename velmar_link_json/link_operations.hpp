#pragma once

// The operations of VelmarLink as scripts see them, each listed once: its script name, the
// native function, its docstring, its argument names and whether it runs without the
// interpreter lock. VelmarLinkExc raises through the same functions generically, and the
// script classes VelmarLink and VelmarLinkExc (and so their type stubs) are made by walking
// this list, in its order. Adding an operation is one entry here.

#include "velmar_link_json/resource_bytes.hpp"
#include "velmar_link_json/velmar_link.hpp"

#include <array>
#include <cstdint>
#include <tuple>

namespace velmar {

namespace link_operations {

/// One argument: its script name, and whether it may be left out (it is then the
/// default-constructed value of its type).
struct Arg {
    const char* name = nullptr;
    bool optional = false;
};

/// Whether the script waits for the call without the interpreter lock. Every call that waits
/// for the workstation gives the lock up, so that event and status callbacks, which take it
/// on the I/O thread, run while it waits; calls that only touch local state keep it.
enum class Lock { HELD, RELEASED };

/// What the raising facade does with a failure.
enum class OnFailure {
    RAISE,                    ///< raise VelmarLinkException
    RAISE_UNLESS_SUPPRESSED,  ///< return the ErrorObject for codes passed to suppressDoJobException
    RAISE_IF_JOB_FAILED,      ///< also raise when the job of the call did not finish successfully
};

/// What the script class VelmarLink makes of the native result.
enum class ScriptResult {
    AS_IS,      ///< the value, `X | ErrorObject` or the ErrorObject
    NONE,       ///< nothing: the outcome travels in an argument
    RAISED,     ///< nothing on success; a failure raises RuntimeError with its message
};

/// One operation. `Function` is a member of VelmarLink, a free function taking the VelmarLink
/// first, or a static function.
template <auto Function>
struct Operation {
    static constexpr auto function = Function;

    const char* name;
    /// Summary and parameters; the result and failure lines are added per script class.
    const char* doc;
    std::array<Arg, 3> args{};
    Lock lock = Lock::HELD;
    /// What a successful result is, for ":returns:"; nullptr where the result is an
    /// ErrorObject or nothing.
    const char* returns = nullptr;
    /// When the raising facade raises.
    const char* raises = "on failure";
    OnFailure onFailure = OnFailure::RAISE;
    ScriptResult scriptResult = ScriptResult::AS_IS;
};

/// disconnect() as scripts call it: the status callback is cleared before the connection
/// is torn down, so that no callback asks for the interpreter lock meanwhile.
inline void disconnect(VelmarLink& link) {
    link.setConnectionStatusCallback({});
    link.disconnect();
}

/// retrieveResource with the script's argument order and the bytes as the result.
inline std::expected<ResourceContent, ErrorObject> retrieveResource(VelmarLink& link, const Resource& resource,
                                                                    std::uint64_t limit, std::uint64_t offset) {
    ResourceContent content;
    if (auto error = link.retrieveResource(resource, content.bytes, offset, limit)) {
        return std::unexpected(std::move(error));
    }
    return content;
}

inline ErrorObject appendToResource(VelmarLink& link, const Resource& resource, ByteView data) {
    return link.appendToResource(resource, data.bytes);
}

/// The operations in the order in which the script classes list them.
inline constexpr auto LIST = std::tuple{
    Operation<&VelmarLink::connect>{
        .name = "connect",
        .doc = R"(Connect to a running RQ5.

Failures: ``ALREADY_CONNECTED`` when connected, ``CONNECTION_DNS_ERROR``, ``CONNECTION_FAILED``,
``UNAUTHORIZED``, ``PROTOCOL_VERSION_MISMATCH``, ... otherwise.)",
        .lock = Lock::RELEASED,
        .raises = "if the connection failed"},
    Operation<&disconnect>{
        .name = "disconnect",
        .doc = R"(Disconnect from the RQ5.

Jobs can no longer be executed after disconnect has been called. However, data that is
available in the job objects after the job has been executed remains valid and can still be
used. The connection-status callback is cleared first; the interpreter lock is released while
the connection is closed. Call it from the thread that owns the link.)",
        .lock = Lock::RELEASED},
    // "id" is bound beside this list: it is a query of the link on an instance and a query
    // by address on the class.
    Operation<&VelmarLink::doJob>{
        .name = "do_job",
        .doc = R"(Perform a job and wait until it has finished.

The interpreter lock is released while the job runs.

:param job: the job, a :class:`velmar_link.AbstractMeasurementJob`.)",
        .args = {{{"job"}}},
        .lock = Lock::RELEASED,
        .returns = ":class:`velmar_link.ErrorObject`, falsy if the job was successful",
        .raises = "if the job failed and its code is not suppressed",
        .onFailure = OnFailure::RAISE_UNLESS_SUPPRESSED},
    Operation<&VelmarLink::waitForJobToFinish>{
        .name = "wait_for_job_to_finish",
        .doc = R"(Wait until a job started earlier has finished (interpreter lock released).

:param job: the job.)",
        .args = {{{"job"}}},
        .lock = Lock::RELEASED,
        .returns = ":class:`velmar_link.ErrorObject`, falsy if the job was successful",
        .raises = "if the job failed and its code is not suppressed",
        .onFailure = OnFailure::RAISE_UNLESS_SUPPRESSED},
    Operation<&VelmarLink::cancelPendingOperations>{
        .name = "cancel_pending_operations",
        .doc = R"(Thread-safe cancellation of all pending client-side operations.

Blocked calls of another thread (``do_job``, ``get_job_result_data``,
``wait_for_job_to_finish``, requests) return ``STOPPED_MANUALLY`` at once. The connection stays
established and jobs already running on the device continue; the owner thread must still call
:meth:`disconnect`.)",
        .lock = Lock::RELEASED},
    Operation<&VelmarLink::getJobResultData>{
        .name = "get_job_result_data",
        .doc = R"(Download the result data of a job.

Must be used for jobs that return measurement data and online data that have a longer
duration. The interpreter lock is released during the retrieval.

:param job: the job.)",
        .args = {{{"job"}}},
        .lock = Lock::RELEASED,
        .returns = "a :class:`velmar_link.DcDataset` or :class:`velmar_link.EisDataset`",
        .raises = "if retrieval failed or job did not finish successfully",
        .onFailure = OnFailure::RAISE_IF_JOB_FAILED},
    Operation<&VelmarLink::sendStop>{
        .name = "send_stop",
        .doc = R"(Stop the device.

:param queue_stop_mode: :class:`velmar_link.QueueStopModeEnum`: flush the queued jobs or continue
    with the next one.)",
        .args = {{{"queue_stop_mode"}}},
        .lock = Lock::RELEASED},
    Operation<&VelmarLink::updateSettings>{
        .name = "update_settings",
        .doc = R"(Update device settings.

The outcome of each entry is written into the set passed in: read it with
:meth:`velmar_link.SettingsSet.all_successfully_updated` and
:meth:`velmar_link.Setting.get_update_failure_reason`. Without a connection the set is left
untouched.

:param settings: the :class:`velmar_link.SettingsSet` to send.)",
        .args = {{{"settings"}}},
        .lock = Lock::RELEASED,
        .raises = "if the request failed",
        .scriptResult = ScriptResult::NONE},
    Operation<&VelmarLink::getSettings>{
        .name = "get_settings",
        .doc = R"(Get the current device settings.)",
        .lock = Lock::RELEASED,
        .returns = ":class:`velmar_link.SettingsSet`"},
    Operation<&VelmarLink::getConnectionStatus>{
        .name = "get_connection_status",
        .doc = R"(The connection status of the link.)",
        .returns = "the :class:`velmar_link.VelmarLinkConnectionStatusEnum` of the link"},
    Operation<&VelmarLink::isConnected>{
        .name = "is_connected",
        .doc = R"(True if the link is connected.)"},
    Operation<&VelmarLink::setRequestTimeout>{
        .name = "set_request_timeout",
        .doc = R"(Set the time-out of every request (default 1 s).

:param timeout: a :class:`datetime.timedelta`; zero restores the default.)",
        .args = {{{"timeout"}}}},
    Operation<&VelmarLink::getJobInfoList>{
        .name = "get_job_info_list",
        .doc = R"(List the jobs of the device.

:param exclude_finished_jobs: leave out jobs that have finished.)",
        .args = {{{"exclude_finished_jobs"}}},
        .lock = Lock::RELEASED,
        .returns = "``list`` of :class:`velmar_link.JobInfo`"},
    Operation<&VelmarLink::getJobInfo>{
        .name = "get_job_info",
        .doc = R"(Ask the device for the current information on a job.

:param job: the job.)",
        .args = {{{"job"}}},
        .lock = Lock::RELEASED,
        .returns = ":class:`velmar_link.JobInfo`"},
    Operation<&VelmarLink::getWorkstationInfo>{
        .name = "get_workstation_info",
        .doc = R"(Get the identity of the connected RQ5.)",
        .lock = Lock::RELEASED,
        .returns = ":class:`velmar_link.WorkstationInfo`"},
    Operation<&VelmarLink::getWorkstationStatus>{
        .name = "get_workstation_status",
        .doc = R"(Get the status of the connected RQ5.)",
        .lock = Lock::RELEASED,
        .returns = ":class:`velmar_link.WorkstationStatus`"},
    Operation<&VelmarLink::getOwnConnectionInfo>{
        .name = "get_own_connection_info",
        .doc = R"(Get information about the own WebSocket connection to the ECW.)",
        .lock = Lock::RELEASED,
        .returns = ":class:`velmar_link.WebsocketConnectionInfo`"},
    Operation<&VelmarLink::getEcwConnectionList>{
        .name = "get_ecw_connection_list",
        .doc = R"(List all active WebSocket connections of the device.)",
        .lock = Lock::RELEASED,
        .returns = "``list`` of :class:`velmar_link.WebsocketConnectionInfo`"},
    Operation<&VelmarLink::dropEcwConnection>{
        .name = "drop_ecw_connection",
        .doc = R"(Disconnect one WebSocket connection of the device.

:param connection_info: the :class:`velmar_link.WebsocketConnectionInfo` of the connection.)",
        .args = {{{"connection_info"}}},
        .lock = Lock::RELEASED,
        .raises = "if the operation failed"},
    Operation<&VelmarLink::setConnectionStatusCallback>{
        .name = "set_connection_status_callback",
        .doc = R"(Set the callable called on every change of the connection status.

The callable receives a :class:`velmar_link.VelmarLinkConnectionStatusEnum` on the link's I/O
thread; exceptions it raises are reported as unraisable and do not affect the link.

:param callback: a callable, or ``None`` to clear.)",
        .args = {{{"callback"}}}},
    Operation<&VelmarLink::setEventHandler>{
        .name = "set_event_handler",
        .doc = R"(Register a handler made by a ``VelmarLinkEventHandler.make_*`` factory.

The handler's callback runs on the link's I/O thread for every event of its type, also while
the calling thread waits in a blocking call such as :meth:`do_job`. One handler per event type:
registering a different handler for a type that already has one raises (``RuntimeError`` on
``VelmarLink``, :class:`velmar_link.VelmarLinkException` on ``VelmarLinkExc``); registering the
same handler again does nothing.

:param event_handler: a :class:`velmar_link.VelmarLinkEventHandler`.)",
        .args = {{{"event_handler"}}},
        .raises = "if another handler of the type is set",
        .scriptResult = ScriptResult::RAISED},
    Operation<&VelmarLink::clearEventHandler>{
        .name = "clear_event_handler",
        .doc = R"(Remove a handler passed to :meth:`set_event_handler` before.

:param event_handler: the :class:`velmar_link.VelmarLinkEventHandler` to remove.)",
        .args = {{{"event_handler"}}}},
    Operation<&VelmarLink::checkJobParameters>{
        .name = "check_job_parameters",
        .doc = R"(Let the device check the parameters of a job without running it.

:param job: the job.)",
        .args = {{{"job"}}},
        .lock = Lock::RELEASED,
        .returns = ":class:`velmar_link.ErrorObject`, falsy if the parameters are valid",
        .raises = "if the parameters are invalid"},
    Operation<&VelmarLink::createResource>{
        .name = "create_resource",
        .doc = R"(Create an empty resource.

:param type: :class:`velmar_link.ResourceTypeEnum` of the resource.
:param resource_name: its name.)",
        .args = {{{"type"}, {"resource_name"}}},
        .lock = Lock::RELEASED,
        .returns = ":class:`velmar_link.Resource`"},
    Operation<&VelmarLink::createResourceFromFile>{
        .name = "create_resource_from_file",
        .doc = R"(Create a resource holding the content of a file.

:param type: :class:`velmar_link.ResourceTypeEnum` of the resource.
:param file_name_and_path: the file, ``os.PathLike``, ``str`` or ``bytes``.
:param resource_name: optional name; the file name when empty.)",
        .args = {{{"type"}, {"file_name_and_path"}, {"resource_name", true}}},
        .lock = Lock::RELEASED,
        .returns = ":class:`velmar_link.Resource`"},
    Operation<&appendToResource>{
        .name = "append_to_resource",
        .doc = R"(Append bytes to a resource.

:param resource: the :class:`velmar_link.Resource`.
:param data: Data as bytearray (any object supporting the buffer protocol).)",
        .args = {{{"resource"}, {"data"}}},
        .lock = Lock::RELEASED},
    Operation<&retrieveResource>{
        .name = "retrieve_resource",
        .doc = R"(Read part of a resource's content.

:param resource: the :class:`velmar_link.Resource`.
:param limit: the number of bytes; 0 means the maximum (``Resource.DATA_CHUNK_SIZE_LIMIT``).
:param offset: the first byte.)",
        .args = {{{"resource"}, {"limit"}, {"offset"}}},
        .lock = Lock::RELEASED,
        .returns = "``bytes``"},
    Operation<&VelmarLink::downloadResourceToFile>{
        .name = "download_resource_to_file",
        .doc = R"(Download the whole content of a resource into a file.

:param resource: the :class:`velmar_link.Resource`.
:param file_name_and_path: the file; missing parent directories are created.)",
        .args = {{{"resource"}, {"file_name_and_path"}}},
        .lock = Lock::RELEASED},
    Operation<&VelmarLink::deleteResource>{
        .name = "delete_resource",
        .doc = R"(Delete a resource.

:param resource: the :class:`velmar_link.Resource`.)",
        .args = {{{"resource"}}},
        .lock = Lock::RELEASED},
    Operation<&VelmarLink::getAvailableResources>{
        .name = "get_available_resources",
        .doc = R"(List the resources of one type.

:param type: :class:`velmar_link.ResourceTypeEnum`.)",
        .args = {{{"type"}}},
        .lock = Lock::RELEASED,
        .returns = "``list`` of :class:`velmar_link.Resource`"},
    Operation<&VelmarLink::getUpdatedResourceInfo>{
        .name = "get_updated_resource_info",
        .doc = R"(Refresh the given resource description in place.

:param resource: the :class:`velmar_link.Resource`.)",
        .args = {{{"resource"}}},
        .lock = Lock::RELEASED},
    Operation<&VelmarLink::setDestinationHost>{
        .name = "set_destination_host",
        .doc = R"(Change the address used by the next connect.

:param hostname: IP address or host name.
:param port: the port as a string.)",
        .args = {{{"hostname"}, {"port"}}}},
    Operation<&VelmarLink::setHttpAuthenticationInfo>{
        .name = "set_http_authentication_info",
        .doc = R"(Change the HTTP credentials used by the next connect.

:param http_user: user name from the settings.
:param http_password: password from the settings.)",
        .args = {{{"http_user"}, {"http_password"}}}},
    Operation<&VelmarLink::setFlag>{
        .name = "set_flag",
        .doc = R"(Set connection flag bits for the next connect.

:param flag: :class:`velmar_link.VelmarLinkConnectionFlags` bits.)",
        .args = {{{"flag"}}}},
    Operation<&VelmarLink::clearFlag>{
        .name = "clear_flag",
        .doc = R"(Clear connection flag bits for the next connect.

:param flag: :class:`velmar_link.VelmarLinkConnectionFlags` bits.)",
        .args = {{{"flag"}}}},
    Operation<&VelmarLink::testFlag>{
        .name = "test_flag",
        .doc = R"(True if all the given flag bits are set.

:param flag: :class:`velmar_link.VelmarLinkConnectionFlags` bits.)",
        .args = {{{"flag"}}}},
    Operation<&VelmarLink::getLibraryVersion>{
        .name = "get_library_revision",
        .doc = R"(The library version string, also the package's ``__version__``.)",
        .returns = "the library version string"},
    Operation<&VelmarLink::getSupportedProtocolVersion>{
        .name = "get_supported_protocol_version",
        .doc = R"(The protocol version that this library speaks.)",
        .returns = "the protocol version, an ``int``"},
    // ---- beyond the script table: connection set-up details ----
    Operation<&VelmarLink::setConnectionTimeout>{
        .name = "set_connection_timeout",
        .doc = R"(Set the time-out of the connection set-up (default 1.5 s).

:param timeout: a :class:`datetime.timedelta`; zero restores the default.)",
        .args = {{{"timeout"}}}},
    Operation<&VelmarLink::isIpAddress>{
        .name = "is_ip_address",
        .doc = R"(True if ``text`` is an IPv4 or IPv6 address.

:param text: the text to check.)",
        .args = {{{"text"}}}},
    Operation<&VelmarLink::setMaxMessageSize>{
        .name = "set_max_message_size",
        .doc = R"(Set the largest message, text or binary, that the link accepts (default 256 MiB).

A larger binary frame fails the pending download with ``RESOURCE_CONTENT_INVALID``; a larger
text frame is reported on the standard error stream and dropped. The link stays connected.

:param size: the limit in bytes.)",
        .args = {{{"size"}}}},
    Operation<&VelmarLink::getMaxMessageSize>{
        .name = "get_max_message_size",
        .doc = R"(The largest message that the link accepts.)",
        .returns = "the limit in bytes, an ``int``"},
};

}  // namespace link_operations

}  // namespace velmar
