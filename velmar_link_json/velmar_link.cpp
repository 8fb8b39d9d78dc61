#include "velmar_link_json/velmar_link.hpp"

#include "json_common/logging/error_messages.hpp"
#include "json_common/logging/library_version.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"
#include "velmar_link_json/link_ll_session.hpp"

#include <boost/asio/ip/address.hpp>

#include <fstream>
#include <iterator>

namespace velmar {

namespace {

// Message formats of the file failures of this facade; kept letter for letter like the others.
constexpr std::string_view FILE_NOT_FOUND_MESSAGE = "file '{0}' not found";
constexpr std::string_view FILE_NOT_OPENED_MESSAGE = "file '{0}' could not be opened";
constexpr std::string_view FILE_NOT_READ_MESSAGE = "file '{0}' could not be read";
constexpr std::string_view FILE_NOT_WRITTEN_MESSAGE = "file '{0}' could not be written";

}  // namespace

VelmarLink::VelmarLink(std::string host, std::string port, unsigned flags, std::string user, std::string password)
    : session_(std::move(host), std::move(port), flags, std::move(user), std::move(password)) {}

VelmarLink::~VelmarLink() = default;

ErrorObject VelmarLink::connect() { return session_.connect(); }
void VelmarLink::disconnect() { session_.disconnect(); }
bool VelmarLink::isConnected() const { return session_.isConnected(); }
VelmarLinkConnectionStatusEnum VelmarLink::getConnectionStatus() const { return session_.getConnectionStatus(); }

void VelmarLink::setConnectionStatusCallback(std::function<void(VelmarLinkConnectionStatusEnum)> callback) {
    session_.setConnectionStatusCallback(std::move(callback));
}

void VelmarLink::setRequestTimeout(std::chrono::milliseconds timeout) { session_.setRequestTimeout(timeout); }
void VelmarLink::setConnectionTimeout(std::chrono::milliseconds timeout) { session_.setConnectionTimeout(timeout); }
void VelmarLink::setMaxMessageSize(std::size_t bytes) { session_.setMaxMessageSize(bytes); }
std::size_t VelmarLink::getMaxMessageSize() const { return session_.getMaxMessageSize(); }

void VelmarLink::setDestinationHost(const std::string& host, const std::string& port) {
    session_.getFactory().setDestinationHost(host, port);
}

void VelmarLink::setHttpAuthenticationInfo(const std::string& user, const std::string& password) {
    session_.getFactory().setHttpAuthenticationInfo(user, password);
}

void VelmarLink::setFlag(unsigned flag) {
    auto& factory = session_.getFactory();
    factory.setFlags(factory.getFlags() | flag);
}

void VelmarLink::clearFlag(unsigned flag) {
    auto& factory = session_.getFactory();
    factory.setFlags(factory.getFlags() & ~flag);
}

bool VelmarLink::testFlag(unsigned flag) const {
    return (session_.getFactory().getFlags() & flag) == flag;
}

unsigned VelmarLink::getSupportedProtocolVersion() { return LibraryVersion::getProtocolVersion(); }
std::string VelmarLink::getLibraryVersion() { return std::string(LibraryVersion::getVersion()); }

bool VelmarLink::isIpAddress(const std::string& text) {
    boost::system::error_code ec;
    boost::asio::ip::make_address(text, ec);
    return !ec;
}

std::expected<WorkstationInfo, ErrorObject> VelmarLink::getWorkstationInfo() { return session_.getWorkstationInfo(); }
std::expected<WorkstationStatus, ErrorObject> VelmarLink::getWorkstationStatus() {
    return session_.getWorkstationStatus();
}
std::expected<WebsocketConnectionInfo, ErrorObject> VelmarLink::getOwnConnectionInfo() {
    return session_.getOwnConnectionInfo();
}
std::expected<std::vector<WebsocketConnectionInfo>, ErrorObject> VelmarLink::getEcwConnectionList() {
    return session_.getEcwConnectionList();
}
ErrorObject VelmarLink::dropEcwConnection(const WebsocketConnectionInfo& info) {
    return session_.dropEcwConnection(info);
}

std::expected<WorkstationInfo, ErrorObject> VelmarLink::id(std::chrono::milliseconds timeout) {
    if (session_.isConnected()) return session_.getWorkstationInfo(static_cast<int>(timeout.count()));
    const auto& data = session_.getFactory().getConnectionData();
    LinkJsonSession probe(data.host, data.port, data.flags, data.user, data.password);
    probe.setConnectionTimeout(timeout);
    if (auto error = probe.connect()) return std::unexpected(std::move(error));
    auto info = probe.getWorkstationInfo(static_cast<int>(timeout.count()));
    probe.disconnect();
    return info;
}

std::expected<WorkstationInfo, ErrorObject> VelmarLink::id(const std::string& host, const std::string& port,
                                                           std::chrono::milliseconds timeout) {
    VelmarLink probe(host, port);
    return probe.id(timeout);
}

ErrorObject VelmarLink::doJob(AbstractMeasurementJob& job) { return session_.doJob(job); }
ErrorObject VelmarLink::waitForJobToFinish(AbstractMeasurementJob& job) { return session_.waitForJobToFinish(job); }
ErrorObject VelmarLink::checkJobParameters(AbstractMeasurementJob& job) { return session_.checkJobParameters(job); }
std::expected<JobInfo, ErrorObject> VelmarLink::getJobInfo(const AbstractMeasurementJob& job) {
    return session_.getJobInfo(job);
}
std::expected<std::vector<JobInfo>, ErrorObject> VelmarLink::getJobInfoList(bool excludeFinishedJobs) {
    return session_.getJobInfoList(excludeFinishedJobs);
}
std::expected<std::shared_ptr<DataSet>, ErrorObject> VelmarLink::getJobResultData(AbstractMeasurementJob& job) {
    return session_.getJobResultData(job);
}
void VelmarLink::sendStop(QueueStopModeEnum mode) { session_.sendStop(mode); }

std::expected<SettingsSet, ErrorObject> VelmarLink::getSettings() { return session_.getAllSettings(); }
ErrorObject VelmarLink::updateSettings(SettingsSet& settings) { return session_.updateSettings(settings); }

std::expected<Resource, ErrorObject> VelmarLink::createResource(ResourceTypeEnum type, const std::string& name) {
    return session_.createResource(type, name);
}

std::expected<Resource, ErrorObject> VelmarLink::createResourceFromFile(ResourceTypeEnum type,
                                                                        const std::filesystem::path& file,
                                                                        const std::string& name) {
    std::error_code ec;
    if (!std::filesystem::is_regular_file(file, ec)) {
        return std::unexpected(ErrorObject(ErrorCodeEnum::FILE_NOT_FOUND, FILE_NOT_FOUND_MESSAGE, file.string()));
    }
    std::ifstream input(file, std::ios::binary);
    if (!input) {
        return std::unexpected(
            ErrorObject(ErrorCodeEnum::FILE_COULD_NOT_BE_OPENED, FILE_NOT_OPENED_MESSAGE, file.string()));
    }
    std::string content((std::istreambuf_iterator<char>(input)), std::istreambuf_iterator<char>());
    if (input.bad()) {
        return std::unexpected(ErrorObject(ErrorCodeEnum::FILE_COULD_NOT_BE_READ, FILE_NOT_READ_MESSAGE, file.string()));
    }
    auto resource = session_.createResource(type, name.empty() ? file.filename().string() : name);
    if (!resource) return resource;
    if (!content.empty()) {
        if (auto error = session_.appendToResource(*resource, content)) return std::unexpected(std::move(error));
    }
    if (auto error = session_.getUpdatedResourceInfo(*resource)) return std::unexpected(std::move(error));
    return resource;
}

ErrorObject VelmarLink::appendToResource(const Resource& resource, std::string_view bytes) {
    return session_.appendToResource(resource, bytes);
}

ErrorObject VelmarLink::retrieveResource(const Resource& resource, std::string& out, std::uint64_t offset,
                                         std::uint64_t limit) {
    return session_.retrieveResource(resource, out, offset, limit);
}

ErrorObject VelmarLink::retrieveFullResource(const Resource& resource, std::string& out, std::uint64_t limit) {
    return session_.retrieveFullResource(resource, out, limit);
}

ErrorObject VelmarLink::deleteResource(const Resource& resource) { return session_.deleteResource(resource); }

std::expected<std::vector<Resource>, ErrorObject> VelmarLink::getAvailableResources(ResourceTypeEnum type) {
    return session_.getResourceList(type);
}

ErrorObject VelmarLink::getUpdatedResourceInfo(Resource& resource) { return session_.getUpdatedResourceInfo(resource); }

ErrorObject VelmarLink::downloadResourceToFile(const Resource& resource, const std::filesystem::path& file) {
    std::string content;
    if (auto error = session_.retrieveFullResource(resource, content, 0)) return error;
    std::error_code ec;
    if (file.has_parent_path()) std::filesystem::create_directories(file.parent_path(), ec);
    std::ofstream output(file, std::ios::binary | std::ios::trunc);
    if (!output) return ErrorObject(ErrorCodeEnum::FILE_COULD_NOT_BE_OPENED, FILE_NOT_OPENED_MESSAGE, file.string());
    output.write(content.data(), static_cast<std::streamsize>(content.size()));
    output.close();
    if (!output) return ErrorObject(ErrorCodeEnum::FILE_COULD_NOT_BE_WRITTEN, FILE_NOT_WRITTEN_MESSAGE, file.string());
    return {};
}

void VelmarLink::cancelPendingOperations() { session_.cancelPendingOperations(); }

ErrorObject VelmarLink::setEventHandler(std::shared_ptr<VelmarLinkEventHandler> handler) {
    return session_.setEventHandler(std::move(handler));
}

void VelmarLink::clearEventHandler(const std::shared_ptr<VelmarLinkEventHandler>& handler) {
    session_.clearEventHandler(handler);
}

LinkJsonSession& VelmarLink::getSession() { return session_; }

}  // namespace velmar
