#pragma once

#include "emulator/core/connection_peer.hpp"
#include "emulator/core/connection_registry.hpp"
#include "emulator/core/device_identity.hpp"
#include "emulator/core/endpoint_registry.hpp"
#include "emulator/core/fault_table.hpp"
#include "emulator/core/id_source.hpp"
#include "emulator/core/resource_store.hpp"
#include "emulator/core/settings_table.hpp"

#include <boost/json/object.hpp>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmar::emulator {

/// Set-up values of the emulated device.
struct DeviceModelOptions {
    /// Seed of every random choice (identifiers, later measurement noise); none = random.
    std::optional<std::uint64_t> seed;
    /// Factor on emulated measurement durations (2.0 runs twice as fast); test hooks ignore it.
    double timeScale = 1.0;
    /// The protocol version that the device speaks.
    unsigned protocolVersion = 12;
    /// The configured HTTP user, shown as the "user_name" setting ("admin" when empty).
    std::string userName;
    /// Bound of the sum of all resource contents.
    std::uint64_t resourceCapacity = 1ull << 30;
    /// Bound of the sum of all resource descriptions (names, headers; see ResourceStore).
    std::uint64_t resourceDescriptionCapacity = 64ull << 20;
};

/// The queue mode of a "/stop" request.
enum class StopQueueModeEnum { FLUSH, CONTINUE, UNSPECIFIED };

/// One "/stop" request as received.
struct StopRequest {
    std::string connectionId;
    StopQueueModeEnum queue = StopQueueModeEnum::UNSPECIFIED;
};

/// The emulated workstation without its transport: connections are registered by the
/// transport, every text frame is handed to handleText, and answers go back through each
/// connection's ConnectionPeer. Endpoints live in an EndpointRegistry, so that further
/// areas (jobs, job results) add handlers without touching the transport.
///
/// Threads: handleText, openConnection and closeConnection are called by the transport's
/// I/O thread; the components lock themselves, so handlers and scheduled tasks may use them
/// from any thread. The model must outlive the transport's I/O context.
class DeviceModel {
public:
    /// `scheduler` runs delayed steps; it must outlive the model.
    explicit DeviceModel(Scheduler& scheduler, DeviceModelOptions options = {});
    ~DeviceModel();
    DeviceModel(const DeviceModel&) = delete;
    DeviceModel& operator=(const DeviceModel&) = delete;

    /// Registers an accepted connection and returns its new identifier (a UUID text).
    std::string openConnection(ConnectionMeta meta, std::weak_ptr<ConnectionPeer> peer);
    /// Forgets a connection that has ended.
    void closeConnection(std::string_view connectionId);

    /// Handles one received text frame: parses it, dispatches it to its endpoint and sends
    /// the answer. Frames from unknown connections are ignored. A frame that is not JSON
    /// gets a "FAILED" reply with JSON_MALFORMED, one that is not an object
    /// JSON_OBJECT_EXPECTED, one without a string "do" PARAMETER_MISSING, an unknown path
    /// ENDPOINT_NOT_FOUND; "request_id" is echoed whenever it could be read.
    void handleText(std::string_view connectionId, std::string_view text);
    /// Binary frames are not part of the request protocol; they are logged and dropped.
    void handleBinary(std::string_view connectionId, std::size_t size);

    /// Executes answer steps for one connection in order; a pause defers the rest through
    /// the scheduler. Text and binary steps for a connection that has gone are dropped. At
    /// most MAX_PAUSED_ANSWERS answers wait in a pause at a time; the rest of a further one
    /// is dropped (reported on standard error).
    void run(std::weak_ptr<ConnectionPeer> peer, std::vector<OutStep> steps);

    /// Sends any frame (for example a "JOB_DONE") to one connection, if it still exists.
    void sendFrame(std::string_view connectionId, const boost::json::object& frame);
    /// Sends {"type":"EVENT","event":event} to one connection (if it still exists).
    void sendEvent(std::string_view connectionId, boost::json::object event);
    /// Sends the event to every connection.
    void broadcastEvent(const boost::json::object& event);

    EndpointRegistry& endpoints() { return endpoints_; }
    ResourceStore& resources() { return resources_; }
    SettingsTable& settings() { return settings_; }
    ConnectionRegistry& connections() { return connections_; }
    FaultTable& faults() { return faults_; }
    IdSource& ids() { return ids_; }
    Scheduler& scheduler() { return scheduler_; }
    const DeviceIdentity& identity() const { return identity_; }
    const DeviceModelOptions& options() const { return options_; }

    /// Whole seconds since the model was made.
    std::chrono::seconds uptime() const;
    /// The date of the last DC calibration, ISO 8601 UTC text.
    const std::string& lastDcCalibration() const { return lastDcCalibration_; }

    /// The job queue reports whether the device is busy; without a provider it is idle.
    void setBusyProvider(std::function<bool()> provider);
    bool busy() const;

    /// The job queue's reaction to "/stop"; called on the I/O thread after the request has
    /// been recorded. The latest requests (up to kStopRequestsKept) are kept in stopRequests().
    void setStopHandler(std::function<void(const StopRequest&)> handler);
    std::vector<StopRequest> stopRequests() const;
    static constexpr std::size_t kStopRequestsKept = 256;
    static constexpr std::size_t MAX_PAUSED_ANSWERS = 4096;
    /// Records a stop request and calls the stop handler ("/stop" endpoint).
    void receiveStop(StopRequest request);

private:
    void runFrom(std::weak_ptr<ConnectionPeer> peer, std::shared_ptr<std::vector<OutStep>> steps, std::size_t index);
    void sendFailure(const std::shared_ptr<ConnectionPeer>& peer, const boost::json::value* requestId,
                     const ErrorObject& error);

    Scheduler& scheduler_;
    const DeviceModelOptions options_;
    const DeviceIdentity identity_;
    const std::chrono::steady_clock::time_point started_;
    const std::string lastDcCalibration_;
    IdSource ids_;
    ConnectionRegistry connections_;
    SettingsTable settings_;
    ResourceStore resources_;
    FaultTable faults_;
    EndpointRegistry endpoints_;

    std::atomic<std::size_t> pausedAnswers_{0};
    mutable std::mutex hooksMutex_;
    std::function<bool()> busyProvider_;
    std::function<void(const StopRequest&)> stopHandler_;
    std::vector<StopRequest> stopRequests_;
};

/// The "REPLY" frame: {"type":"REPLY","request_id"?,"status","error"?, result keys...}.
/// `requestId` may be null (not echoed). Result keys are written only on success.
boost::json::object makeReply(const boost::json::value* requestId, const ErrorObject& error,
                              const boost::json::object& result);

/// {"type":"EVENT","event":event}.
boost::json::object makeEventFrame(boost::json::object event);

// The endpoint families; the model's constructor registers them all.
void registerDeviceEndpoints(DeviceModel& model);
void registerResourceEndpoints(DeviceModel& model);
void registerEmulatorEndpoints(DeviceModel& model);

}  // namespace velmar::emulator
