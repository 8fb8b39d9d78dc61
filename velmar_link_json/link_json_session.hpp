#pragma once

#include "json_common/configuration/workstation_info.hpp"
#include "json_common/configuration/workstation_mode.hpp"
#include "json_common/jobs/job_status.hpp"
#include "json_common/logging/error_object.hpp"
#include "json_common/protocol/event_type.hpp"
#include "json_common/resources/resource.hpp"
#include "settings/settings_set.hpp"

#include <boost/json/fwd.hpp>

#include <chrono>
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
/// Threads: the owner thread connects and disconnects; while connected one I/O thread reads
/// frames, runs timers and calls every handler. Handlers must not block on a request of the
/// same session. No handler is ever called with a session mutex held.
class LinkJsonSession {
public:
    using ReplyHandler = std::function<void(const boost::json::object&)>;
    using EventHandler = std::function<void(const boost::json::object&)>;
    using PendingOperation = std::shared_ptr<std::function<void(CancellationReason)>>;
    using DownloadHandler = std::function<void(std::string&&, std::optional<ErrorObject>)>;
    using StatusCallback = std::function<void(VelmarLinkConnectionStatusEnum)>;

    static constexpr std::chrono::milliseconds DEFAULT_REQUEST_TIMEOUT{1000};
    static constexpr std::chrono::milliseconds DEFAULT_CONNECTION_TIMEOUT{1500};
    static constexpr std::chrono::milliseconds DEFAULT_DOWNLOAD_TIMEOUT{120000};

    /// Uses `factory` (not owned; it must outlive the session) for every connect.
    explicit LinkJsonSession(LinkLlSessionAbstractFactory* factory);
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
    /// joins the I/O thread. Never call it from a handler (the I/O thread).
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
    /// CONNECTION_BROKEN when the send is refused, OPERATION_TIMED_OUT, CONNECTION_WAS_CLOSED,
    /// STOPPED_MANUALLY). A time-out below 1 uses the request time-out.
    void sendRequest(boost::json::object request, ReplyHandler handler, int timeoutMs);
    /// Blocking form: waits for the reply (bounded by the time-out).
    [[nodiscard]] boost::json::object sendRequest(boost::json::object request, int timeoutMs = 0);
    /// Sends prepared text under `requestId`; false when it could not be handed to the
    /// connection (the handler has then been called with the failure reply).
    bool sendRawRequest(const std::string& requestId, std::string text, ReplyHandler handler, int timeoutMs);
    void addPendingRequest(const std::string& requestId, ReplyHandler handler, int timeoutMs);
    void addRequestTimeout(const std::string& requestId, int timeoutMs);
    /// Removes the entry and calls its handler with `message`; unknown ids are ignored.
    void resolvePendingRequest(const std::string& requestId, const boost::json::object& message);

    /// Jobs: `job` (may be null) must stay alive until the entry is resolved or removed.
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

    /// The handler for one event type; a null pointer clears it.
    void setEventHandler(EventTypeEnum type, std::shared_ptr<EventHandler> handler);
    /// Clears the handler, or only if it is `onlyIfSame` when that is given.
    void clearEventHandler(EventTypeEnum type, const std::shared_ptr<EventHandler>& onlyIfSame = nullptr);

    /// The application's handler for its event type. It is kept apart from the per-type
    /// handlers that running jobs register, so a job's live-data handlers and the caller's
    /// handler of the same type both receive the event (the job's first). Setting the same
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

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace velmar
