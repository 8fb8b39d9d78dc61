#pragma once

#include "json_common/configuration/workstation_info.hpp"
#include "json_common/configuration/workstation_mode.hpp"
#include "json_common/jobs/job_status.hpp"
#include "json_common/logging/error_object.hpp"
#include "json_common/protocol/event_type.hpp"
#include "json_common/resources/resource.hpp"
#include "settings/settings_set.hpp"
#include "velmar_link_json/session_runtime.hpp"

#include <boost/json/fwd.hpp>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <expected>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmar {

class AbstractMeasurementJob;
struct BinaryDestination;
class DataSet;
struct JobInfo;
class LinkLlSessionAbstractFactory;
class VelmarLinkEventHandler;

/// Why pending work is cancelled.
enum class CancellationReason { CONNECTION_LOSS = 0, MANUAL_STOP = 1 };

/// One WebSocket connection to a workstation as a request/reply/event protocol of JSON text
/// frames: request identifiers, the tables of pending requests, jobs and operations, request
/// time-outs, routing of incoming frames, the single pending binary download, and locally
/// built failure replies (same shape as the workstation's) for everything that cannot be
/// answered by the workstation.
///
/// The session owns the job protocol: its pending-job table (non-owning job pointers) starts,
/// routes live data to, completes and cancels every job run.
///
/// Threads: the owner thread connects and disconnects; while connected one I/O thread reads
/// frames, runs timers and calls every handler. A blocking call made on the I/O thread (from a
/// handler) fails at once with UNEXPECTED_EXCEPTION; a blocking call from any other thread
/// enforces its own deadline, so a busy I/O thread never extends a time-out. No handler is
/// ever called with a session table mutex held.
class LinkJsonSession {
public:
    using ReplyHandler = std::function<void(const boost::json::object&)>;
    using EventHandler = std::function<void(const boost::json::object&)>;
    /// A job's own live-data decoder: returns an error for an event that it cannot read.
    using JobEventHandler = std::function<ErrorObject(EventTypeEnum, const boost::json::object&)>;
    using PendingOperation = std::shared_ptr<std::function<void(CancellationReason)>>;
    using DownloadHandler = std::function<void(std::string&&, std::optional<ErrorObject>)>;
    using StatusCallback = std::function<void(VelmarLinkConnectionStatusEnum)>;

    static constexpr std::chrono::milliseconds DEFAULT_REQUEST_TIMEOUT{1000};
    static constexpr std::chrono::milliseconds DEFAULT_CONNECTION_TIMEOUT{1500};
    static constexpr std::chrono::milliseconds DEFAULT_DOWNLOAD_TIMEOUT{120000};
    static constexpr std::size_t DEFAULT_MAX_MESSAGE_SIZE = std::size_t{256} << 20;

    /// Uses `factory` (not owned; it must outlive the session) for every connect.
    explicit LinkJsonSession(LinkLlSessionAbstractFactory* factory);
    /// Runs the protocol logic on `runtime` (clock, timers, waits) instead of an own I/O thread;
    /// the transport's handlers are then expected on the runtime's I/O thread.
    LinkJsonSession(LinkLlSessionAbstractFactory* factory, std::shared_ptr<SessionRuntime> runtime);
    /// Builds its own factory from the connection data.
    LinkJsonSession(std::string host, std::string port = "1994", unsigned flags = 0, std::string user = {},
                    std::string password = {});
    /// Disconnects. Owner thread.
    ~LinkJsonSession();
    LinkJsonSession(const LinkJsonSession&) = delete;
    LinkJsonSession& operator=(const LinkJsonSession&) = delete;

    // ---- connection (owner thread unless stated) ----

    /// Connects and starts the I/O thread. ALREADY_CONNECTED, CONNECTION_DNS_ERROR,
    /// CONNECTION_FAILED, TLS_SETUP_FAILED, TLS_HANDSHAKE_FAILED,
    /// FAILED_TO_ESTABLISH_WEBSOCKET_CONNECTION, UNAUTHORIZED, PROTOCOL_VERSION_MISMATCH,
    /// UNEXPECTED_EXCEPTION, UNKNOWN_ERR.
    [[nodiscard]] ErrorObject connect();
    /// Closes the connection, answers everything pending with CONNECTION_WAS_CLOSED, stops and
    /// joins the I/O thread. Called from a handler (the I/O thread) it completes the same way
    /// except that the I/O thread ends after the handler returns and is joined by the owner's
    /// next connect, disconnect or the destructor.
    void disconnect();
    /// Any thread.
    [[nodiscard]] bool isConnected() const;
    /// Any thread.
    [[nodiscard]] VelmarLinkConnectionStatusEnum getConnectionStatus() const;
    /// Called on every change of the status (on the I/O thread, or on the owner thread for
    /// the connect); an empty function clears it. Any thread.
    void setConnectionStatusCallback(StatusCallback callback);
    /// A time-out below 1 ms restores the default. Any thread.
    void setRequestTimeout(std::chrono::milliseconds timeout);
    [[nodiscard]] std::chrono::milliseconds getRequestTimeout() const;
    void setConnectionTimeout(std::chrono::milliseconds timeout);
    [[nodiscard]] std::chrono::milliseconds getConnectionTimeout() const;
    /// The time a download waits for its binary frame (default 120000 ms).
    void setDownloadTimeout(std::chrono::milliseconds timeout);
    /// Messages larger than this are refused by the transport (default 256 MiB). Applies to the
    /// current connection from its next message, and to every later connect. Owner thread.
    void setMaxMessageSize(std::size_t bytes);
    [[nodiscard]] std::size_t getMaxMessageSize() const;
    /// The version announced by the workstation in the last successful handshake (0 if none).
    [[nodiscard]] unsigned getDeviceProtocolVersion() const;
    /// The factory whose connection data the next connect uses.
    [[nodiscard]] LinkLlSessionAbstractFactory& getFactory();
    [[nodiscard]] const LinkLlSessionAbstractFactory& getFactory() const;

    // ---- requests (any thread) ----

    /// A random version-4 UUID in canonical lower-case text.
    [[nodiscard]] std::string generateRequestId();
    /// Sets "request_id", sends the request and calls `handler` exactly once with the reply,
    /// real or synthesised (CONNECTION_NOT_ESTABLISHED at once when not connected,
    /// PARAMETER_IS_NOT_A_NUMBER at once for a request holding NaN or an infinity,
    /// CONNECTION_BROKEN when the send is refused, OPERATION_TIMED_OUT, CONNECTION_WAS_CLOSED,
    /// STOPPED_MANUALLY). A time-out below 1 uses the request time-out.
    void sendRequest(boost::json::object request, ReplyHandler handler, int timeoutMs);
    /// Blocking form: waits for the reply; the calling thread enforces the time-out. On the
    /// I/O thread it fails at once with UNEXPECTED_EXCEPTION without sending.
    [[nodiscard]] boost::json::object sendRequest(boost::json::object request, int timeoutMs = 0);
    /// Sends prepared text under `requestId`; false when it could not be handed to the
    /// connection (the handler has then been called with the failure reply).
    bool sendRawRequest(const std::string& requestId, std::string text, ReplyHandler handler, int timeoutMs);
    void addPendingRequest(const std::string& requestId, ReplyHandler handler, int timeoutMs);
    void addRequestTimeout(const std::string& requestId, int timeoutMs);
    /// Removes the entry and calls its handler with `message`; unknown ids are ignored.
    void resolvePendingRequest(const std::string& requestId, const boost::json::object& message);

    // ---- jobs (blocking calls: any thread except the I/O thread) ----

    /// Runs the job: "/job/start", live data routed to the job by its id, the "JOB_DONE".
    /// Returns the job's error (falsy on success). Without a connection the job fails at once
    /// (CONNECTION_NOT_ESTABLISHED / NOT_CONNECTED); a request holding a non-finite number
    /// fails it without sending (PARAMETER_IS_NOT_A_NUMBER / FAILED_TO_CREATE); a job object
    /// that is running already (on any link) is refused with INVALID_PARAMETER "job is already
    /// running" and left alone. Only a start reply has a time-out; cancelPendingOperations()
    /// or the loss of the connection end the wait.
    [[nodiscard]] ErrorObject doJob(AbstractMeasurementJob& job);
    /// Waits until the job's run on this link has ended; a job not running on this link
    /// returns its stored outcome at once.
    [[nodiscard]] ErrorObject waitForJobToFinish(AbstractMeasurementJob& job);
    /// "/job/check_parameters" with the job's request object.
    [[nodiscard]] ErrorObject checkJobParameters(AbstractMeasurementJob& job);
    /// "/job/info" for the job's id.
    [[nodiscard]] std::expected<JobInfo, ErrorObject> getJobInfo(const AbstractMeasurementJob& job);
    /// "/job/list".
    [[nodiscard]] std::expected<std::vector<JobInfo>, ErrorObject> getJobInfoList(bool excludeFinished);
    /// Waits for the job if needed, downloads its result resource and decodes it.
    [[nodiscard]] std::expected<std::shared_ptr<DataSet>, ErrorObject> getJobResultData(AbstractMeasurementJob& job);

    /// Routes the live data of `job`'s pending run to `handler` (called by the job's
    /// setEventHandlers). Does nothing when the job is not pending on this session.
    void setJobEventHandler(const AbstractMeasurementJob& job, JobEventHandler handler);
    void clearJobEventHandler(const AbstractMeasurementJob& job);

    /// Low-level job table. `job` (may be null) must stay alive until the entry is resolved or
    /// removed; `handler` receives the "JOB_DONE" (real or synthesised on cancellation).
    void addPendingJob(const std::string& requestId, ReplyHandler handler, AbstractMeasurementJob* job);
    /// Updates the job's record from the start reply ("job_id", "status").
    void updatePendingJob(const std::string& requestId, const boost::json::object& message);
    void resolvePendingJob(const std::string& requestId, const boost::json::object& message);
    bool removePendingJob(const std::string& requestId);

    /// Long operations learn about cancellation through these.
    void addPendingOperation(PendingOperation operation);
    void removePendingOperation(const PendingOperation& operation);

    /// Fails every pending request, job, operation and the download with the reason's error.
    void cancelAllPendingOperations(CancellationReason reason);
    /// Manual stop: blocked callers return STOPPED_MANUALLY; the connection stays up.
    void cancelPendingOperations();

    /// An observer of every event of one type, whatever job it belongs to (jobs do not use
    /// this: their live data are routed by job id); a null pointer clears it.
    void setEventHandler(EventTypeEnum type, std::shared_ptr<EventHandler> handler);
    /// Clears the handler, or only if it is `onlyIfSame` when that is given.
    void clearEventHandler(EventTypeEnum type, const std::shared_ptr<EventHandler>& onlyIfSame = nullptr);

    /// The application's handler for its event type. It sees every event of its type, after
    /// the job that the event belongs to (if any) has had it. Setting the same
    /// handler again does nothing; a different one for a type that has one fails with
    /// "event handler already set". Any thread.
    [[nodiscard]] ErrorObject setEventHandler(std::shared_ptr<VelmarLinkEventHandler> handler);
    /// Removes the application's handler if it is this one. Any thread.
    void clearEventHandler(const std::shared_ptr<VelmarLinkEventHandler>& handler);

    /// The next binary frame goes to `handler` (moved); without one within the download
    /// time-out the handler gets OPERATION_TIMED_OUT. One download at a time. With a
    /// `destination`, the transport writes the frame straight into it and the handler gets an
    /// empty string (the destination is then marked filled).
    void setPendingDownload(DownloadHandler handler, std::shared_ptr<BinaryDestination> destination = nullptr);
    void clearPendingDownload();

    // ---- incoming frames (I/O thread; public for tests that drive the dispatcher) ----

    /// Never throws: a frame that cannot be handled is reported on stderr and dropped, or
    /// fails the job it belongs to.
    void dispatchIncommingJson(const std::string& text);
    void dispatchIncommingBinary(std::string&& data);
    /// A binary frame written into `destination`; it completes the download armed with it.
    void dispatchIncommingBinary(std::shared_ptr<BinaryDestination> destination);
    void handleReply(const boost::json::object& message);
    void handleJobDone(const boost::json::object& message);
    void handleEvent(const boost::json::object& message);

    /// True exactly when "status" is "SUCCESS".
    [[nodiscard]] static bool wasSuccessful(const boost::json::object& reply);
    /// The "error" member; UNKNOWN_ERR "an unknown error occured" when it is missing.
    [[nodiscard]] static ErrorObject getError(const boost::json::object& reply);

    // ---- typed requests (blocking; any thread except the I/O thread) ----

    [[nodiscard]] std::expected<WorkstationInfo, ErrorObject> getWorkstationInfo(int timeoutMs = 0);
    [[nodiscard]] std::expected<WorkstationStatus, ErrorObject> getWorkstationStatus();
    [[nodiscard]] std::expected<std::vector<WebsocketConnectionInfo>, ErrorObject> getEcwConnectionList();
    [[nodiscard]] std::expected<WebsocketConnectionInfo, ErrorObject> getOwnConnectionInfo();
    [[nodiscard]] ErrorObject dropEcwConnection(const WebsocketConnectionInfo& info);
    [[nodiscard]] std::expected<SettingsSet, ErrorObject> getAllSettings();
    /// Writes each entry's outcome into `settings`; leaves it untouched when not connected.
    [[nodiscard]] ErrorObject updateSettings(SettingsSet& settings);

    [[nodiscard]] std::expected<Resource, ErrorObject> createResource(ResourceTypeEnum type, const std::string& name);
    /// Sends the bytes in chunks of at most Resource::DATA_CHUNK_SIZE_LIMIT.
    [[nodiscard]] ErrorObject appendToResource(const Resource& resource, std::string_view bytes);
    /// Reads up to `limit` bytes (0: the chunk limit) from `offset` into `out`.
    [[nodiscard]] ErrorObject retrieveResource(const Resource& resource, std::string& out, std::uint64_t offset,
                                               std::uint64_t limit, std::uint64_t* totalSize = nullptr);
    [[nodiscard]] ErrorObject deleteResource(const Resource& resource);
    [[nodiscard]] std::expected<std::vector<Resource>, ErrorObject> getResourceList(ResourceTypeEnum type);
    [[nodiscard]] ErrorObject getUpdatedResourceInfo(Resource& resource);
    /// Downloads the content (the first `limit` bytes; all for 0) as one binary frame.
    /// Bounded by the download time-out; cancelPendingOperations() ends it.
    [[nodiscard]] ErrorObject retrieveFullResource(const Resource& resource, std::string& out, std::uint64_t limit);
    /// Same, writing the frame straight into `destination` (see BinaryDestination). On
    /// success either `destination->filled` is set, or (a transport without destinations)
    /// the whole frame is in `out`.
    [[nodiscard]] ErrorObject retrieveFullResource(const Resource& resource,
                                                   const std::shared_ptr<BinaryDestination>& destination,
                                                   std::string& out, std::uint64_t limit);

    /// {"do":"/stop","queue":"flush"|"continue"} or {"do":"/stop"}; nothing when not connected.
    void sendStop(QueueStopModeEnum mode);

    /// The session's state; defined in the library's private link_json_session_impl.hpp.
    struct Impl;

private:
    std::unique_ptr<Impl> impl_;
};

}  // namespace velmar
