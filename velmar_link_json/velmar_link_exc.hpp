#pragma once

#include "velmar_link_json/velmar_link.hpp"

#include <mutex>
#include <set>

namespace velmar {

/// VelmarLink with the same operations, raising VelmarLinkException (carrying the ErrorObject)
/// on every failure and returning results plain. doJob and waitForJobToFinish return the
/// ErrorObject instead of raising for the codes passed to suppressDoJobException.
/// Threads: as VelmarLink.
class VelmarLinkExc {
public:
    explicit VelmarLinkExc(std::string host, std::string port = "1994", unsigned flags = 0, std::string user = {},
                           std::string password = {});

    void connect();
    void disconnect() { link_.disconnect(); }
    bool isConnected() const { return link_.isConnected(); }
    VelmarLinkConnectionStatusEnum getConnectionStatus() const { return link_.getConnectionStatus(); }
    void setConnectionStatusCallback(std::function<void(VelmarLinkConnectionStatusEnum)> callback) {
        link_.setConnectionStatusCallback(std::move(callback));
    }
    void setRequestTimeout(std::chrono::milliseconds timeout) { link_.setRequestTimeout(timeout); }
    void setConnectionTimeout(std::chrono::milliseconds timeout) { link_.setConnectionTimeout(timeout); }
    void setDestinationHost(const std::string& host, const std::string& port) { link_.setDestinationHost(host, port); }
    void setHttpAuthenticationInfo(const std::string& user, const std::string& password) {
        link_.setHttpAuthenticationInfo(user, password);
    }
    void setFlag(unsigned flag) { link_.setFlag(flag); }
    void clearFlag(unsigned flag) { link_.clearFlag(flag); }
    bool testFlag(unsigned flag) const { return link_.testFlag(flag); }
    static unsigned getSupportedProtocolVersion() { return VelmarLink::getSupportedProtocolVersion(); }
    static std::string getLibraryVersion() { return VelmarLink::getLibraryVersion(); }
    static bool isIpAddress(const std::string& text) { return VelmarLink::isIpAddress(text); }

    WorkstationInfo getWorkstationInfo();
    WorkstationStatus getWorkstationStatus();
    WebsocketConnectionInfo getOwnConnectionInfo();
    std::vector<WebsocketConnectionInfo> getEcwConnectionList();
    void dropEcwConnection(const WebsocketConnectionInfo& info);
    WorkstationInfo id(std::chrono::milliseconds timeout);
    static WorkstationInfo id(const std::string& host, const std::string& port, std::chrono::milliseconds timeout);

    /// The (falsy) ErrorObject on success or for a suppressed code; raises otherwise.
    ErrorObject doJob(AbstractMeasurementJob& job);
    ErrorObject waitForJobToFinish(AbstractMeasurementJob& job);
    void checkJobParameters(AbstractMeasurementJob& job);
    JobInfo getJobInfo(const AbstractMeasurementJob& job);
    std::vector<JobInfo> getJobInfoList(bool excludeFinishedJobs);
    std::shared_ptr<DataSet> getJobResultData(AbstractMeasurementJob& job);
    void sendStop(QueueStopModeEnum mode) { link_.sendStop(mode); }

    SettingsSet getSettings();
    void updateSettings(SettingsSet& settings);

    Resource createResource(ResourceTypeEnum type, const std::string& name);
    Resource createResourceFromFile(ResourceTypeEnum type, const std::filesystem::path& file,
                                    const std::string& name = {});
    void appendToResource(const Resource& resource, std::string_view bytes);
    std::string retrieveResource(const Resource& resource, std::uint64_t offset, std::uint64_t limit);
    std::string retrieveFullResource(const Resource& resource, std::uint64_t limit = 0);
    void deleteResource(const Resource& resource);
    std::vector<Resource> getAvailableResources(ResourceTypeEnum type);
    void getUpdatedResourceInfo(Resource& resource);
    void downloadResourceToFile(const Resource& resource, const std::filesystem::path& file);

    void cancelPendingOperations() { link_.cancelPendingOperations(); }
    /// Raises VelmarLinkException when another handler of the type is already set.
    void setEventHandler(std::shared_ptr<VelmarLinkEventHandler> handler);
    void clearEventHandler(const std::shared_ptr<VelmarLinkEventHandler>& handler) { link_.clearEventHandler(handler); }

    /// Codes for which doJob and waitForJobToFinish return instead of raising. Any thread.
    void suppressDoJobException(ErrorCodeEnum code);
    void enableDoJobException(ErrorCodeEnum code);
    bool isDoJobExceptionSuppressed(ErrorCodeEnum code) const;

    VelmarLink& getLink() { return link_; }
    LinkJsonSession& getSession() { return link_.getSession(); }

private:
    ErrorObject checkJobError(ErrorObject error) const;

    VelmarLink link_;
    mutable std::mutex suppressedMutex_;
    std::set<ErrorCodeEnum> suppressed_;
};

}  // namespace velmar
