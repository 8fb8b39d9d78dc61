#pragma once

#include "velmar_link_json/link_json_session.hpp"

#include <chrono>
#include <expected>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace velmar {

class AbstractMeasurementJob;
class DataSet;
struct JobInfo;

/// The connection to one workstation: owns a LinkJsonSession and forwards to it. Failures are
/// values: ErrorObject (falsy on success) or std::expected<T, ErrorObject>.
///
/// Threads: every operation belongs to the thread that owns the object, except
/// cancelPendingOperations(), which any thread may call while the owner is blocked. Callbacks
/// run on the session's I/O thread. Jobs passed in must outlive the call.
class VelmarLinkEventHandler;

class VelmarLink {
public:
    /// Nothing is connected here. `flags` is a combination of VelmarLinkConnectionFlags bits;
    /// user and password are those of the workstation's HTTP authentication.
    explicit VelmarLink(std::string host, std::string port = "1994", unsigned flags = 0, std::string user = {},
                        std::string password = {});
    ~VelmarLink();
    VelmarLink(const VelmarLink&) = delete;
    VelmarLink& operator=(const VelmarLink&) = delete;

    // ---- connection ----
    /// ALREADY_CONNECTED when connected; the connect outcomes of LinkJsonSession otherwise.
    [[nodiscard]] ErrorObject connect();
    /// Jobs can no longer be executed afterwards; data held by jobs that ran stays valid.
    void disconnect();
    [[nodiscard]] bool isConnected() const;
    [[nodiscard]] VelmarLinkConnectionStatusEnum getConnectionStatus() const;
    void setConnectionStatusCallback(std::function<void(VelmarLinkConnectionStatusEnum)> callback);
    void setRequestTimeout(std::chrono::milliseconds timeout);
    void setConnectionTimeout(std::chrono::milliseconds timeout);
    /// Messages larger than this are refused (default 256 MiB); applied at the next connect.
    void setMaxMessageSize(std::size_t bytes);
    [[nodiscard]] std::size_t getMaxMessageSize() const;
    /// Connection data for the next connect.
    void setDestinationHost(const std::string& host, const std::string& port);
    void setHttpAuthenticationInfo(const std::string& user, const std::string& password);
    void setFlag(unsigned flag);
    void clearFlag(unsigned flag);
    [[nodiscard]] bool testFlag(unsigned flag) const;
    [[nodiscard]] static unsigned getSupportedProtocolVersion();
    [[nodiscard]] static std::string getLibraryVersion();
    [[nodiscard]] static bool isIpAddress(const std::string& text);

    // ---- workstation and connections ----
    [[nodiscard]] std::expected<WorkstationInfo, ErrorObject> getWorkstationInfo();
    [[nodiscard]] std::expected<WorkstationStatus, ErrorObject> getWorkstationStatus();
    [[nodiscard]] std::expected<WebsocketConnectionInfo, ErrorObject> getOwnConnectionInfo();
    [[nodiscard]] std::expected<std::vector<WebsocketConnectionInfo>, ErrorObject> getEcwConnectionList();
    [[nodiscard]] ErrorObject dropEcwConnection(const WebsocketConnectionInfo& info);
    /// The identity of this link's workstation: over the connection when connected, otherwise
    /// over a short-lived connection to the stored address. `timeout` bounds each step.
    [[nodiscard]] std::expected<WorkstationInfo, ErrorObject> id(std::chrono::milliseconds timeout);
    /// The identity of the workstation at host:port, over a short-lived connection.
    [[nodiscard]] static std::expected<WorkstationInfo, ErrorObject> id(const std::string& host,
                                                                        const std::string& port,
                                                                        std::chrono::milliseconds timeout);

    // ---- jobs (see LinkJsonSession for the job protocol) ----
    [[nodiscard]] ErrorObject doJob(AbstractMeasurementJob& job);
    [[nodiscard]] ErrorObject waitForJobToFinish(AbstractMeasurementJob& job);
    [[nodiscard]] ErrorObject checkJobParameters(AbstractMeasurementJob& job);
    [[nodiscard]] std::expected<JobInfo, ErrorObject> getJobInfo(const AbstractMeasurementJob& job);
    [[nodiscard]] std::expected<std::vector<JobInfo>, ErrorObject> getJobInfoList(bool excludeFinishedJobs);
    [[nodiscard]] std::expected<std::shared_ptr<DataSet>, ErrorObject> getJobResultData(AbstractMeasurementJob& job);
    /// Stops the device ("/stop"); no reply is awaited.
    void sendStop(QueueStopModeEnum mode);

    // ---- settings ----
    [[nodiscard]] std::expected<SettingsSet, ErrorObject> getSettings();
    /// Writes each entry's outcome into `settings`.
    [[nodiscard]] ErrorObject updateSettings(SettingsSet& settings);

    // ---- resources ----
    [[nodiscard]] std::expected<Resource, ErrorObject> createResource(ResourceTypeEnum type, const std::string& name);
    /// Creates a resource named `name` (the file name when empty) and uploads the file.
    [[nodiscard]] std::expected<Resource, ErrorObject> createResourceFromFile(ResourceTypeEnum type,
                                                                              const std::filesystem::path& file,
                                                                              const std::string& name = {});
    [[nodiscard]] ErrorObject appendToResource(const Resource& resource, std::string_view bytes);
    /// Up to `limit` bytes (0: Resource::DATA_CHUNK_SIZE_LIMIT) from `offset`.
    [[nodiscard]] ErrorObject retrieveResource(const Resource& resource, std::string& out, std::uint64_t offset,
                                               std::uint64_t limit);
    /// The content as one binary frame (the first `limit` bytes; all for 0).
    [[nodiscard]] ErrorObject retrieveFullResource(const Resource& resource, std::string& out,
                                                   std::uint64_t limit = 0);
    [[nodiscard]] ErrorObject deleteResource(const Resource& resource);
    [[nodiscard]] std::expected<std::vector<Resource>, ErrorObject> getAvailableResources(ResourceTypeEnum type);
    /// Refreshes `resource` in place.
    [[nodiscard]] ErrorObject getUpdatedResourceInfo(Resource& resource);
    /// Downloads the whole content into a file (parent directories are created).
    [[nodiscard]] ErrorObject downloadResourceToFile(const Resource& resource, const std::filesystem::path& file);

    // ---- cancellation ----
    /// Thread-safe cancellation of all pending client-side operations: blocked calls return
    /// STOPPED_MANUALLY, the connection stays up, jobs on the device go on. Any thread.
    void cancelPendingOperations();

    /// Delivers the events of the handler's type to it (see LinkJsonSession::setEventHandler).
    [[nodiscard]] ErrorObject setEventHandler(std::shared_ptr<VelmarLinkEventHandler> handler);
    /// Stops delivering events to a handler given to setEventHandler before.
    void clearEventHandler(const std::shared_ptr<VelmarLinkEventHandler>& handler);

    [[nodiscard]] LinkJsonSession& getSession();

private:
    LinkJsonSession session_;
};

}  // namespace velmar
