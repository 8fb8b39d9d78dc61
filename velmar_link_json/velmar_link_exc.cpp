#include "velmar_link_json/velmar_link_exc.hpp"

#include "json_common/logging/velmar_link_exception.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"

namespace velmar {

namespace {

template <class T>
T valueOrThrow(std::expected<T, ErrorObject>&& result) {
    if (!result) throw VelmarLinkException(std::move(result.error()));
    return std::move(*result);
}

void throwIfError(ErrorObject&& error) {
    if (error) throw VelmarLinkException(std::move(error));
}

}  // namespace

VelmarLinkExc::VelmarLinkExc(std::string host, std::string port, unsigned flags, std::string user,
                             std::string password)
    : link_(std::move(host), std::move(port), flags, std::move(user), std::move(password)) {}

void VelmarLinkExc::connect() { throwIfError(link_.connect()); }

WorkstationInfo VelmarLinkExc::getWorkstationInfo() { return valueOrThrow(link_.getWorkstationInfo()); }
WorkstationStatus VelmarLinkExc::getWorkstationStatus() { return valueOrThrow(link_.getWorkstationStatus()); }
WebsocketConnectionInfo VelmarLinkExc::getOwnConnectionInfo() { return valueOrThrow(link_.getOwnConnectionInfo()); }
std::vector<WebsocketConnectionInfo> VelmarLinkExc::getEcwConnectionList() {
    return valueOrThrow(link_.getEcwConnectionList());
}
void VelmarLinkExc::dropEcwConnection(const WebsocketConnectionInfo& info) {
    throwIfError(link_.dropEcwConnection(info));
}
WorkstationInfo VelmarLinkExc::id(std::chrono::milliseconds timeout) { return valueOrThrow(link_.id(timeout)); }
WorkstationInfo VelmarLinkExc::id(const std::string& host, const std::string& port,
                                  std::chrono::milliseconds timeout) {
    return valueOrThrow(VelmarLink::id(host, port, timeout));
}

ErrorObject VelmarLinkExc::checkJobError(ErrorObject error) const {
    if (error && !isDoJobExceptionSuppressed(error.code)) throw VelmarLinkException(std::move(error));
    return error;
}

ErrorObject VelmarLinkExc::doJob(AbstractMeasurementJob& job) { return checkJobError(link_.doJob(job)); }
ErrorObject VelmarLinkExc::waitForJobToFinish(AbstractMeasurementJob& job) {
    return checkJobError(link_.waitForJobToFinish(job));
}
void VelmarLinkExc::checkJobParameters(AbstractMeasurementJob& job) { throwIfError(link_.checkJobParameters(job)); }
JobInfo VelmarLinkExc::getJobInfo(const AbstractMeasurementJob& job) { return valueOrThrow(link_.getJobInfo(job)); }
std::vector<JobInfo> VelmarLinkExc::getJobInfoList(bool excludeFinishedJobs) {
    return valueOrThrow(link_.getJobInfoList(excludeFinishedJobs));
}
std::shared_ptr<DataSet> VelmarLinkExc::getJobResultData(AbstractMeasurementJob& job) {
    return valueOrThrow(link_.getJobResultData(job));
}

SettingsSet VelmarLinkExc::getSettings() { return valueOrThrow(link_.getSettings()); }
void VelmarLinkExc::updateSettings(SettingsSet& settings) { throwIfError(link_.updateSettings(settings)); }

Resource VelmarLinkExc::createResource(ResourceTypeEnum type, const std::string& name) {
    return valueOrThrow(link_.createResource(type, name));
}
Resource VelmarLinkExc::createResourceFromFile(ResourceTypeEnum type, const std::filesystem::path& file,
                                               const std::string& name) {
    return valueOrThrow(link_.createResourceFromFile(type, file, name));
}
void VelmarLinkExc::appendToResource(const Resource& resource, std::string_view bytes) {
    throwIfError(link_.appendToResource(resource, bytes));
}
std::string VelmarLinkExc::retrieveResource(const Resource& resource, std::uint64_t offset, std::uint64_t limit) {
    std::string out;
    throwIfError(link_.retrieveResource(resource, out, offset, limit));
    return out;
}
std::string VelmarLinkExc::retrieveFullResource(const Resource& resource, std::uint64_t limit) {
    std::string out;
    throwIfError(link_.retrieveFullResource(resource, out, limit));
    return out;
}
void VelmarLinkExc::deleteResource(const Resource& resource) { throwIfError(link_.deleteResource(resource)); }
std::vector<Resource> VelmarLinkExc::getAvailableResources(ResourceTypeEnum type) {
    return valueOrThrow(link_.getAvailableResources(type));
}
void VelmarLinkExc::getUpdatedResourceInfo(Resource& resource) {
    throwIfError(link_.getUpdatedResourceInfo(resource));
}
void VelmarLinkExc::downloadResourceToFile(const Resource& resource, const std::filesystem::path& file) {
    throwIfError(link_.downloadResourceToFile(resource, file));
}

void VelmarLinkExc::suppressDoJobException(ErrorCodeEnum code) {
    std::lock_guard lock(suppressedMutex_);
    suppressed_.insert(code);
}

void VelmarLinkExc::enableDoJobException(ErrorCodeEnum code) {
    std::lock_guard lock(suppressedMutex_);
    suppressed_.erase(code);
}

bool VelmarLinkExc::isDoJobExceptionSuppressed(ErrorCodeEnum code) const {
    std::lock_guard lock(suppressedMutex_);
    return suppressed_.contains(code);
}

}  // namespace velmar

namespace velmar {

void VelmarLinkExc::setEventHandler(std::shared_ptr<VelmarLinkEventHandler> handler) {
    throwIfError(link_.setEventHandler(std::move(handler)));
}

}  // namespace velmar
