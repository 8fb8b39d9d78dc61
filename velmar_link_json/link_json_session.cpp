#include "velmar_link_json/link_json_session.hpp"

#include "velmar_link_json/events/velmar_link_event_handler.hpp"

#include "json_common/base64.hpp"
#include "json_common/exact_json.hpp"
#include "json_common/logging/error_factory.hpp"
#include "json_common/logging/error_messages.hpp"
#include "json_common/logging/error_object_json.hpp"
#include "velmar_link_json/jobs/abstract_measurement_job.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"
#include "velmar_link_json/link_json_session_impl.hpp"

#include "velmar_link_json/binary_destination.hpp"

#include <boost/asio/post.hpp>
#include <boost/json.hpp>

#include <bit>
#include <condition_variable>
#include <sched.h>
#include <future>
#include <iostream>
#include <random>

namespace velmar {

namespace net = boost::asio;
namespace json = boost::json;
using ErrorCode = ErrorCodeEnum;

// ---------------------------------------------------------------------------------------------
// Request identifiers

namespace {

void quarterRound(std::array<std::uint32_t, 16>& x, int a, int b, int c, int d) {
    x[a] += x[b]; x[d] = std::rotl(x[d] ^ x[a], 16);
    x[c] += x[d]; x[b] = std::rotl(x[b] ^ x[c], 12);
    x[a] += x[b]; x[d] = std::rotl(x[d] ^ x[a], 8);
    x[c] += x[d]; x[b] = std::rotl(x[b] ^ x[c], 7);
}

}  // namespace

ChaChaUuidGenerator::ChaChaUuidGenerator() {
    // "expand 32-byte k", a random key and nonce, block counter 0.
    state_[0] = 0x61707865;
    state_[1] = 0x3320646e;
    state_[2] = 0x79622d32;
    state_[3] = 0x6b206574;
    std::random_device device;
    for (std::size_t i = 4; i < 12; ++i) state_[i] = device();
    state_[12] = 0;
    state_[13] = 0;
    state_[14] = device();
    state_[15] = device();
}

void ChaChaUuidGenerator::refill() {
    block_ = state_;
    for (int round = 0; round < 10; ++round) {
        quarterRound(block_, 0, 4, 8, 12);
        quarterRound(block_, 1, 5, 9, 13);
        quarterRound(block_, 2, 6, 10, 14);
        quarterRound(block_, 3, 7, 11, 15);
        quarterRound(block_, 0, 5, 10, 15);
        quarterRound(block_, 1, 6, 11, 12);
        quarterRound(block_, 2, 7, 8, 13);
        quarterRound(block_, 3, 4, 9, 14);
    }
    for (std::size_t i = 0; i < 16; ++i) block_[i] += state_[i];
    if (++state_[12] == 0) ++state_[13];
    used_ = 0;
}

std::string ChaChaUuidGenerator::next() {
    if (used_ + 4 > block_.size()) refill();
    std::array<unsigned char, 16> bytes{};
    for (std::size_t i = 0; i < 4; ++i) {
        const auto word = block_[used_ + i];
        for (std::size_t b = 0; b < 4; ++b) bytes[i * 4 + b] = static_cast<unsigned char>(word >> (8 * b));
    }
    used_ += 4;
    bytes[6] = static_cast<unsigned char>((bytes[6] & 0x0F) | 0x40);
    bytes[8] = static_cast<unsigned char>((bytes[8] & 0x3F) | 0x80);
    static constexpr char digits[] = "0123456789abcdef";
    std::string text;
    text.reserve(36);
    for (std::size_t i = 0; i < 16; ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) text.push_back('-');
        text.push_back(digits[bytes[i] >> 4]);
        text.push_back(digits[bytes[i] & 0x0F]);
    }
    return text;
}

// ---------------------------------------------------------------------------------------------
// Helpers

namespace {

json::object failureReply(const std::string& requestId, json::value error) {
    return json::object{{"type", "REPLY"}, {"request_id", requestId}, {"status", "FAILED"}, {"error", std::move(error)}};
}

json::value cancellationError(CancellationReason reason) {
    return reason == CancellationReason::CONNECTION_LOSS
               ? ErrorFactory::makeJsonError<ErrorCode::CONNECTION_WAS_CLOSED>()
               : ErrorFactory::makeJsonError<ErrorCode::STOPPED_MANUALLY>();
}

json::object jobCancellationMessage(const std::string& requestId, const AbstractMeasurementJob* job,
                                    CancellationReason reason) {
    const auto detail = reason == CancellationReason::CONNECTION_LOSS ? JobStatusDetailEnum::CONNECTION_LOSS
                                                                      : JobStatusDetailEnum::STOPPED_BY_USER;
    ErrorObject error = reason == CancellationReason::CONNECTION_LOSS
                            ? ErrorFactory::makeError<ErrorCode::CONNECTION_WAS_CLOSED>()
                            : ErrorFactory::makeError<ErrorCode::STOPPED_MANUALLY>();
    JobInfo info = job != nullptr ? job->getLastJobInfo() : JobInfo{};
    info.setFailed(ErrorObject(error), detail, JobStatusEnum::FAILED);
    return json::object{
        {"type", "JOB_DONE"},
        {"request_id", requestId},
        {"error", errorObjectToJson(error)},
        {"job_id", job != nullptr ? std::string(job->getLastJobInfo().job_id) : std::string("void")},
        {"status", "FAILED"},
        {"status_detail", jobStatusDetailName(detail)},
        {"job_info", jobInfoToJson(info)},
    };
}

std::optional<std::string> requestIdOf(const json::object& message) {
    const auto* value = message.if_contains("request_id");
    if (value == nullptr || !value->is_string()) return std::nullopt;
    const auto& text = value->get_string();
    return std::string(text.data(), text.size());
}

constexpr std::array<std::string_view, 11> kEventTypeNames{
    "UNKNOWN",         "JOB_STATUS_UPDATE", "MESSAGE_FROM_JOB", "MESSAGE_FROM_SERVER",
    "JOB_DONE",        "LIVE_DATA_HEADER",  "LIVE_DATA_HEADER_EIS", "LIVE_DATA_ROWS",
    "LIVE_DATA_ROW_EIS", "LIVE_DATA_WAVES", "LIVE_DATA_FINISHED",
};

std::string resourcePath(ResourceTypeEnum type, std::string_view operation) {
    std::string path = "/";
    path += resourceTypeName(type);
    path += "/";
    path += operation;
    return path;
}

ErrorObject incompleteJson() { return ErrorObject(ErrorCode::JSON_MALFORMED, messages::JSON_INCOMPLETE); }

ErrorObject malformedJson(std::string_view what) {
    return ErrorObject(ErrorCode::JSON_MALFORMED, messages::JSON_MALFORMED, what);
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// Construction and connection

LinkJsonSession::Impl::Impl(LinkJsonSession& session, LinkLlSessionAbstractFactory* sessionFactory,
                            std::unique_ptr<LinkLlSessionAbstractFactory> owned)
    : self(session), ownedFactory(std::move(owned)), factory(sessionFactory) {}

LinkJsonSession::LinkJsonSession(LinkLlSessionAbstractFactory* factory)
    : impl_(std::make_unique<Impl>(*this, factory, nullptr)) {}

LinkJsonSession::LinkJsonSession(std::string host, std::string port, unsigned flags, std::string user,
                                 std::string password) {
    auto factory = std::make_unique<LinkLlSessionFactory<LinkLlSession>>(
        std::move(host), std::move(port), flags, std::move(user), std::move(password));
    auto* raw = factory.get();
    impl_ = std::make_unique<Impl>(*this, raw, std::move(factory));
}

LinkJsonSession::~LinkJsonSession() {
    setConnectionStatusCallback({});
    disconnect();
}

ErrorObject LinkJsonSession::connect() {
    auto& d = *impl_;
    if (d.status.load() == VelmarLinkConnectionStatusEnum::CONNECTED) {
        return ErrorObject(ErrorCode::ALREADY_CONNECTED, messages::ALREADY_CONNECTED);
    }
    d.teardown();
    try {
        d.connection = std::make_unique<Impl::Connection>();
        auto* ll = d.factory->createSession(d.connection->context);
        if (ll == nullptr) {
            d.connection.reset();
            return ErrorObject(ErrorCode::CONNECTION_FAILED, messages::CONNECTION_OBJECT_FAILED);
        }
        d.connection->ll = ll;
        ll->setConnectionTimeout(getConnectionTimeout());
        ll->setReceiveHandler([this](const std::string& text) { dispatchIncommingJson(text); });
        ll->setReceiveBinaryHandler([this](std::string&& data) { dispatchIncommingBinary(std::move(data)); });
        ll->setBinaryDestinationHandlers(
            [&d]() -> std::shared_ptr<BinaryDestination> {
                std::lock_guard lock(d.downloadMutex);
                return d.pendingDownload ? d.pendingDestination : nullptr;
            },
            [this](std::shared_ptr<BinaryDestination> destination) { dispatchIncommingBinary(std::move(destination)); });
        ll->setConnectionStatusCallback(
            [&d](VelmarLinkConnectionStatusEnum status) { d.onTransportStatus(status); });

        const int outcome = ll->connect();
        if (outcome != LinkConnectOutcome::SUCCESS) {
            d.teardown();
            const auto& data = d.factory->getConnectionData();
            switch (outcome) {
            case LinkConnectOutcome::RESOLVE_FAILED:
                return ErrorObject(ErrorCode::CONNECTION_DNS_ERROR, messages::CONNECTION_DNS_ERROR,
                                   data.host + ":" + data.port);
            case LinkConnectOutcome::TCP_CONNECT_FAILED:
                return ErrorObject(ErrorCode::CONNECTION_FAILED, messages::CONNECTION_FAILED);
            case LinkConnectOutcome::TLS_SETUP_FAILED:
                return ErrorObject(ErrorCode::TLS_SETUP_FAILED, messages::TLS_SETUP_FAILED);
            case LinkConnectOutcome::TLS_HANDSHAKE_FAILED:
                return ErrorObject(ErrorCode::TLS_HANDSHAKE_FAILED, messages::TLS_HANDSHAKE_FAILED);
            case LinkConnectOutcome::WEBSOCKET_HANDSHAKE_FAILED:
                return ErrorObject(ErrorCode::FAILED_TO_ESTABLISH_WEBSOCKET_CONNECTION, messages::WEBSOCKET_FAILED);
            case LinkConnectOutcome::UNAUTHORIZED:
                return ErrorObject(ErrorCode::UNAUTHORIZED, messages::UNAUTHORIZED);
            case LinkConnectOutcome::PROTOCOL_VERSION_MISMATCH:
                return ErrorObject(ErrorCode::PROTOCOL_VERSION_MISMATCH, messages::PROTOCOL_VERSION_MISMATCH);
            default: return ErrorObject(ErrorCode::UNKNOWN_ERR, messages::UNKNOWN_ERROR);
            }
        }
        d.deviceProtocolVersion = ll->getDeviceProtocolVersion();
        {
            std::lock_guard lock(d.tableMutex);
            d.sweepArmedAt = Impl::Clock::time_point::max();
        }
        auto& connection = *d.connection;
        connection.guard.emplace(connection.context.get_executor());
        connection.thread = std::thread([&context = connection.context] {
            // A handler that throws must not end the thread while the connection lives.
            for (;;) {
                try {
                    context.run();
                    return;
                } catch (const std::exception& error) {
                    std::cerr << "velmar_link: exception in I/O thread: " << error.what() << '\n';
                }
            }
        });
        d.status = VelmarLinkConnectionStatusEnum::CONNECTED;
        d.notifyStatus(VelmarLinkConnectionStatusEnum::CONNECTED);
        ll->startServices();
        return {};
    } catch (const std::exception& error) {
        d.teardown();
        return ErrorObject(ErrorCode::UNEXPECTED_EXCEPTION, messages::UNEXPECTED_EXCEPTION, error.what());
    }
}

void LinkJsonSession::disconnect() {
    auto& d = *impl_;
    if (d.connection && d.connection->ll != nullptr) d.connection->ll->disconnect();
    d.teardown();
    cancelAllPendingOperations(CancellationReason::CONNECTION_LOSS);
    if (d.status.exchange(VelmarLinkConnectionStatusEnum::DISCONNECTED) == VelmarLinkConnectionStatusEnum::CONNECTED) {
        d.notifyStatus(VelmarLinkConnectionStatusEnum::DISCONNECTED);
    }
}

// Owner thread: close, stop the context, join, then drop the low-level session and the context.
void LinkJsonSession::Impl::teardown() {
    if (!connection) return;
    connection->guard.reset();
    connection->context.stop();
    if (connection->thread.joinable()) connection->thread.join();
    if (connection->ll != nullptr) {
        factory->disposeSession(connection->ll);
        connection->ll = nullptr;
    }
    connection.reset();
}

void LinkJsonSession::Impl::onTransportStatus(VelmarLinkConnectionStatusEnum newStatus) {
    if (newStatus != VelmarLinkConnectionStatusEnum::DISCONNECTED) return;
    if (status.exchange(VelmarLinkConnectionStatusEnum::DISCONNECTED) != VelmarLinkConnectionStatusEnum::CONNECTED) {
        return;
    }
    self.cancelAllPendingOperations(CancellationReason::CONNECTION_LOSS);
    notifyStatus(VelmarLinkConnectionStatusEnum::DISCONNECTED);
}

void LinkJsonSession::Impl::notifyStatus(VelmarLinkConnectionStatusEnum newStatus) {
    std::shared_ptr<StatusCallback> callback;
    {
        std::lock_guard lock(statusMutex);
        callback = statusCallback;
    }
    if (callback && *callback) (*callback)(newStatus);
}

bool LinkJsonSession::isConnected() const {
    return impl_->status.load() == VelmarLinkConnectionStatusEnum::CONNECTED;
}

VelmarLinkConnectionStatusEnum LinkJsonSession::getConnectionStatus() const { return impl_->status.load(); }

void LinkJsonSession::setConnectionStatusCallback(StatusCallback callback) {
    auto holder = callback ? std::make_shared<StatusCallback>(std::move(callback)) : nullptr;
    std::shared_ptr<StatusCallback> previous;
    {
        std::lock_guard lock(impl_->statusMutex);
        previous = std::exchange(impl_->statusCallback, std::move(holder));
    }
    // `previous` is released here, outside the lock (a Python callable takes the interpreter
    // lock when it is destroyed).
}

void LinkJsonSession::setRequestTimeout(std::chrono::milliseconds timeout) {
    impl_->requestTimeoutMs = timeout.count() < 1 ? DEFAULT_REQUEST_TIMEOUT.count() : timeout.count();
}

std::chrono::milliseconds LinkJsonSession::getRequestTimeout() const {
    return std::chrono::milliseconds(impl_->requestTimeoutMs.load());
}

void LinkJsonSession::setConnectionTimeout(std::chrono::milliseconds timeout) {
    impl_->connectionTimeoutMs = timeout.count() < 1 ? DEFAULT_CONNECTION_TIMEOUT.count() : timeout.count();
}

std::chrono::milliseconds LinkJsonSession::getConnectionTimeout() const {
    return std::chrono::milliseconds(impl_->connectionTimeoutMs.load());
}

void LinkJsonSession::setDownloadTimeout(std::chrono::milliseconds timeout) {
    impl_->downloadTimeoutMs = timeout.count() < 1 ? DEFAULT_DOWNLOAD_TIMEOUT.count() : timeout.count();
}

unsigned LinkJsonSession::getDeviceProtocolVersion() const { return impl_->deviceProtocolVersion.load(); }

LinkLlSessionAbstractFactory& LinkJsonSession::getFactory() { return *impl_->factory; }
const LinkLlSessionAbstractFactory& LinkJsonSession::getFactory() const { return *impl_->factory; }

// ---------------------------------------------------------------------------------------------
// Requests

std::string LinkJsonSession::generateRequestId() {
    std::lock_guard lock(impl_->idMutex);
    return impl_->ids.next();
}

int LinkJsonSession::Impl::resolveTimeout(int timeoutMs) const {
    return timeoutMs < 1 ? static_cast<int>(requestTimeoutMs.load()) : timeoutMs;
}

void LinkJsonSession::sendRequest(json::object request, ReplyHandler handler, int timeoutMs) {
    std::string requestId = generateRequestId();
    if (!isConnected()) {
        handler(failureReply(requestId, ErrorFactory::makeJsonError<ErrorCode::CONNECTION_NOT_ESTABLISHED>()));
        return;
    }
    request["request_id"] = requestId;
    sendRawRequest(requestId, json::serialize(request), std::move(handler), timeoutMs);
}

namespace {

/// The rendezvous of a blocking request. A reply on a loopback connection often arrives within
/// a few tens of microseconds, so the waiter first spins briefly (only when the process may
/// run on more than one CPU, so that the I/O thread is not starved) and then sleeps.
class BlockingReply {
public:
    void set(const json::object& reply) {
        {
            std::lock_guard lock(mutex_);
            reply_ = reply;
            ready_.store(true, std::memory_order_release);
        }
        condition_.notify_one();
    }

    json::object wait() {
        if (spinningHelps()) {
            const auto until = std::chrono::steady_clock::now() + SPIN_BUDGET;
            for (unsigned i = 1; !ready_.load(std::memory_order_acquire); ++i) {
                if ((i & 63) == 0 && std::chrono::steady_clock::now() > until) break;
#if defined(__x86_64__) || defined(__i386__)
                __builtin_ia32_pause();
#endif
            }
        }
        std::unique_lock lock(mutex_);
        condition_.wait(lock, [this] { return ready_.load(std::memory_order_acquire); });
        return std::move(reply_);
    }

private:
    static constexpr auto SPIN_BUDGET = std::chrono::microseconds(50);

    static bool spinningHelps() {
        cpu_set_t cpus;
        CPU_ZERO(&cpus);
        return sched_getaffinity(0, sizeof(cpus), &cpus) == 0 && CPU_COUNT(&cpus) > 2;
    }

    std::mutex mutex_;
    std::condition_variable condition_;
    std::atomic<bool> ready_{false};
    json::object reply_;
};

}  // namespace

json::object LinkJsonSession::sendRequest(json::object request, int timeoutMs) {
    auto rendezvous = std::make_shared<BlockingReply>();
    sendRequest(
        std::move(request), [rendezvous](const json::object& reply) { rendezvous->set(reply); }, timeoutMs);
    return rendezvous->wait();
}

bool LinkJsonSession::sendRawRequest(const std::string& requestId, std::string text, ReplyHandler handler,
                                     int timeoutMs) {
    if (!isConnected()) {
        handler(failureReply(requestId, ErrorFactory::makeJsonError<ErrorCode::CONNECTION_NOT_ESTABLISHED>()));
        return false;
    }
    addPendingRequest(requestId, std::move(handler), timeoutMs);
    auto* connection = impl_->connection.get();
    if (connection == nullptr || connection->ll == nullptr || !connection->ll->send(std::move(text))) {
        resolvePendingRequest(requestId,
                              failureReply(requestId, ErrorFactory::makeJsonError<ErrorCode::CONNECTION_BROKEN>()));
        return false;
    }
    return true;
}

void LinkJsonSession::addPendingRequest(const std::string& requestId, ReplyHandler handler, int timeoutMs) {
    {
        std::lock_guard lock(impl_->tableMutex);
        impl_->pendingRequests.insert_or_assign(requestId, Impl::PendingRequest{std::move(handler), {}, false});
    }
    addRequestTimeout(requestId, timeoutMs);
}

// Deadlines share one timer on the I/O context: it is armed at the earliest deadline, and a
// request that is answered in time only leaves the deadline index.
void LinkJsonSession::addRequestTimeout(const std::string& requestId, int timeoutMs) {
    auto& d = *impl_;
    const auto deadline = Impl::Clock::now() + std::chrono::milliseconds(d.resolveTimeout(timeoutMs));
    bool rearm = false;
    {
        std::lock_guard lock(d.tableMutex);
        auto entry = d.pendingRequests.find(requestId);
        if (entry == d.pendingRequests.end()) return;
        if (entry->second.hasDeadline) d.deadlines.erase(entry->second.deadline);
        entry->second.deadline = d.deadlines.emplace(deadline, requestId);
        entry->second.hasDeadline = true;
        if (deadline < d.sweepArmedAt) {
            d.sweepArmedAt = deadline;
            rearm = true;
        }
    }
    if (rearm && d.connection) net::post(d.connection->context, [&d] { d.rearmSweep(); });
}

void LinkJsonSession::Impl::rearmSweep() {
    Clock::time_point at;
    {
        std::lock_guard lock(tableMutex);
        at = sweepArmedAt;
    }
    if (at == Clock::time_point::max() || !connection) return;
    connection->sweepTimer.expires_at(at);
    connection->sweepTimer.async_wait([this](boost::system::error_code ec) {
        if (!ec) sweepExpired();
    });
}

void LinkJsonSession::Impl::sweepExpired() {
    std::vector<std::pair<std::string, ReplyHandler>> expired;
    Clock::time_point next = Clock::time_point::max();
    {
        std::lock_guard lock(tableMutex);
        const auto now = Clock::now();
        auto it = deadlines.begin();
        while (it != deadlines.end() && it->first <= now) {
            auto entry = pendingRequests.find(it->second);
            if (entry != pendingRequests.end()) {
                expired.emplace_back(entry->first, std::move(entry->second.handler));
                pendingRequests.erase(entry);
            }
            it = deadlines.erase(it);
        }
        if (!deadlines.empty()) next = deadlines.begin()->first;
        sweepArmedAt = next;
    }
    if (next != Clock::time_point::max()) {
        connection->sweepTimer.expires_at(next);
        connection->sweepTimer.async_wait([this](boost::system::error_code ec) {
            if (!ec) sweepExpired();
        });
    }
    for (auto& [requestId, handler] : expired) {
        if (handler) handler(failureReply(requestId, ErrorFactory::makeJsonError<ErrorCode::OPERATION_TIMED_OUT>()));
    }
}

void LinkJsonSession::resolvePendingRequest(const std::string& requestId, const json::object& message) {
    ReplyHandler handler;
    {
        std::lock_guard lock(impl_->tableMutex);
        auto entry = impl_->pendingRequests.find(requestId);
        if (entry == impl_->pendingRequests.end()) return;
        handler = std::move(entry->second.handler);
        if (entry->second.hasDeadline) impl_->deadlines.erase(entry->second.deadline);
        impl_->pendingRequests.erase(entry);
    }
    if (handler) handler(message);
}

// ---------------------------------------------------------------------------------------------
// Jobs and operations

void LinkJsonSession::addPendingJob(const std::string& requestId, ReplyHandler handler, AbstractMeasurementJob* job) {
    std::lock_guard lock(impl_->tableMutex);
    impl_->pendingJobs.insert_or_assign(requestId, Impl::PendingJob{std::move(handler), job});
}

void LinkJsonSession::updatePendingJob(const std::string& requestId, const json::object& message) {
    AbstractMeasurementJob* job = nullptr;
    {
        std::lock_guard lock(impl_->tableMutex);
        auto entry = impl_->pendingJobs.find(requestId);
        if (entry == impl_->pendingJobs.end()) return;
        job = entry->second.job;
    }
    if (job == nullptr) return;
    JobInfo info = job->getLastJobInfo();
    if (const auto* jobId = message.if_contains("job_id"); jobId != nullptr && jobId->is_string()) {
        info.job_id = std::string(jobId->get_string());
    }
    if (const auto* status = message.if_contains("status"); status != nullptr && status->is_string()) {
        if (auto parsed = jobStatusFromName(status->get_string())) info.status = *parsed;
    }
    job->setLastJobInfo(info);
}

void LinkJsonSession::resolvePendingJob(const std::string& requestId, const json::object& message) {
    ReplyHandler handler;
    {
        std::lock_guard lock(impl_->tableMutex);
        auto entry = impl_->pendingJobs.find(requestId);
        if (entry == impl_->pendingJobs.end()) return;
        handler = std::move(entry->second.handler);
        impl_->pendingJobs.erase(entry);
    }
    if (handler) handler(message);
}

bool LinkJsonSession::removePendingJob(const std::string& requestId) {
    std::lock_guard lock(impl_->tableMutex);
    return impl_->pendingJobs.erase(requestId) > 0;
}

void LinkJsonSession::addPendingOperation(PendingOperation operation) {
    std::lock_guard lock(impl_->tableMutex);
    impl_->pendingOperations.push_back(std::move(operation));
}

void LinkJsonSession::removePendingOperation(const PendingOperation& operation) {
    std::lock_guard lock(impl_->tableMutex);
    std::erase(impl_->pendingOperations, operation);
}

void LinkJsonSession::cancelAllPendingOperations(CancellationReason reason) {
    auto& d = *impl_;
    decltype(d.pendingRequests) requests;
    decltype(d.pendingJobs) jobs;
    std::vector<PendingOperation> operations;
    {
        std::lock_guard lock(d.tableMutex);
        requests.swap(d.pendingRequests);
        jobs.swap(d.pendingJobs);
        d.deadlines.clear();
        operations = d.pendingOperations;
    }
    const json::value error = cancellationError(reason);
    for (auto& [requestId, entry] : requests) {
        if (entry.handler) entry.handler(failureReply(requestId, error));
    }
    for (auto& [requestId, entry] : jobs) {
        if (entry.handler) entry.handler(jobCancellationMessage(requestId, entry.job, reason));
    }
    for (const auto& operation : operations) {
        if (operation && *operation) (*operation)(reason);
    }
    std::shared_ptr<DownloadHandler> download;
    {
        std::lock_guard lock(d.downloadMutex);
        download = std::move(d.pendingDownload);
        d.pendingDestination.reset();
        ++d.downloadGeneration;
    }
    if (download) (*download)(std::string(), errorObjectFromJson(error));
}

void LinkJsonSession::cancelPendingOperations() { cancelAllPendingOperations(CancellationReason::MANUAL_STOP); }

// ---------------------------------------------------------------------------------------------
// Events and downloads

void LinkJsonSession::setEventHandler(EventTypeEnum type, std::shared_ptr<EventHandler> handler) {
    std::shared_ptr<EventHandler> previous;
    std::lock_guard lock(impl_->eventMutex);
    if (handler) {
        previous = std::exchange(impl_->eventHandlers[type], std::move(handler));
    } else if (auto entry = impl_->eventHandlers.find(type); entry != impl_->eventHandlers.end()) {
        previous = std::move(entry->second);
        impl_->eventHandlers.erase(entry);
    }
}

void LinkJsonSession::clearEventHandler(EventTypeEnum type, const std::shared_ptr<EventHandler>& onlyIfSame) {
    std::shared_ptr<EventHandler> previous;
    std::lock_guard lock(impl_->eventMutex);
    auto entry = impl_->eventHandlers.find(type);
    if (entry == impl_->eventHandlers.end()) return;
    if (onlyIfSame && entry->second != onlyIfSame) return;
    previous = std::move(entry->second);
    impl_->eventHandlers.erase(entry);
}

ErrorObject LinkJsonSession::setEventHandler(std::shared_ptr<VelmarLinkEventHandler> handler) {
    if (!handler) return {};
    std::lock_guard lock(impl_->eventMutex);
    auto& slot = impl_->applicationEventHandlers[handler->getType()];
    if (slot && slot != handler) return ErrorObject(ErrorCode::INVALID_PARAMETER, messages::EVENT_HANDLER_ALREADY_SET);
    slot = std::move(handler);
    return {};
}

void LinkJsonSession::clearEventHandler(const std::shared_ptr<VelmarLinkEventHandler>& handler) {
    if (!handler) return;
    std::shared_ptr<VelmarLinkEventHandler> previous;
    std::lock_guard lock(impl_->eventMutex);
    auto entry = impl_->applicationEventHandlers.find(handler->getType());
    if (entry == impl_->applicationEventHandlers.end() || entry->second != handler) return;
    previous = std::move(entry->second);
    impl_->applicationEventHandlers.erase(entry);
}

void LinkJsonSession::setPendingDownload(DownloadHandler handler, std::shared_ptr<BinaryDestination> destination) {
    auto& d = *impl_;
    std::shared_ptr<DownloadHandler> previous;
    std::uint64_t generation = 0;
    {
        std::lock_guard lock(d.downloadMutex);
        previous = std::exchange(d.pendingDownload, std::make_shared<DownloadHandler>(std::move(handler)));
        d.pendingDestination = std::move(destination);
        generation = ++d.downloadGeneration;
    }
    if (previous) (*previous)(std::string(), ErrorObject(ErrorCode::UNKNOWN_ERR, messages::UNKNOWN_ERROR));

    auto expire = [&d, generation](ErrorObject error) {
        std::shared_ptr<DownloadHandler> current;
        {
            std::lock_guard lock(d.downloadMutex);
            if (d.downloadGeneration != generation || !d.pendingDownload) return;
            current = std::move(d.pendingDownload);
            d.pendingDestination.reset();
        }
        (*current)(std::string(), std::move(error));
    };
    if (!isConnected() || !d.connection) {
        expire(ErrorFactory::makeError<ErrorCode::CONNECTION_NOT_ESTABLISHED>());
        return;
    }
    const auto timeout = std::chrono::milliseconds(d.downloadTimeoutMs.load());
    net::post(d.connection->context, [&d, timeout, expire] {
        d.connection->downloadTimer.expires_after(timeout);
        d.connection->downloadTimer.async_wait([expire](boost::system::error_code ec) {
            if (!ec) expire(ErrorFactory::makeError<ErrorCode::OPERATION_TIMED_OUT>());
        });
    });
}

void LinkJsonSession::clearPendingDownload() {
    std::shared_ptr<DownloadHandler> previous;
    std::lock_guard lock(impl_->downloadMutex);
    previous = std::move(impl_->pendingDownload);
    impl_->pendingDestination.reset();
    ++impl_->downloadGeneration;
}

// ---------------------------------------------------------------------------------------------
// Incoming frames

void LinkJsonSession::dispatchIncommingJson(const std::string& text) {
    boost::system::error_code ec;
    const json::value value = parseJsonExact(text, ec);
    if (ec) {
        std::cerr << "issue parsing incomming json " << ec.message() << '\n';
        return;
    }
    const auto* object = value.if_object();
    const json::value* type = object != nullptr ? object->if_contains("type") : nullptr;
    if (type == nullptr || !type->is_string()) {
        std::cerr << "missing property 'type'\n";
        return;
    }
    const auto& name = type->get_string();
    if (name == "REPLY") {
        handleReply(*object);
    } else if (name == "EVENT") {
        handleEvent(*object);
    } else if (name == "JOB_DONE") {
        handleJobDone(*object);
    } else {
        std::cout << "received unknown type " << std::string_view(name.data(), name.size()) << std::endl;
    }
}

void LinkJsonSession::dispatchIncommingBinary(std::string&& data) {
    std::shared_ptr<DownloadHandler> handler;
    {
        std::lock_guard lock(impl_->downloadMutex);
        handler = std::move(impl_->pendingDownload);
        impl_->pendingDestination.reset();
        ++impl_->downloadGeneration;
    }
    if (handler) (*handler)(std::move(data), std::nullopt);
}

// I/O thread. A frame written into a destination whose download has meanwhile ended (time-out,
// cancellation, a newer download) is dropped with it.
void LinkJsonSession::dispatchIncommingBinary(std::shared_ptr<BinaryDestination> destination) {
    std::shared_ptr<DownloadHandler> handler;
    {
        std::lock_guard lock(impl_->downloadMutex);
        if (!impl_->pendingDownload || impl_->pendingDestination != destination) return;
        handler = std::move(impl_->pendingDownload);
        impl_->pendingDestination.reset();
        ++impl_->downloadGeneration;
    }
    (*handler)(std::string(), std::nullopt);
}

void LinkJsonSession::handleReply(const json::object& message) {
    if (auto requestId = requestIdOf(message)) resolvePendingRequest(*requestId, message);
}

void LinkJsonSession::handleJobDone(const json::object& message) {
    if (auto requestId = requestIdOf(message)) resolvePendingJob(*requestId, message);
}

void LinkJsonSession::handleEvent(const json::object& message) {
    const auto* eventValue = message.if_contains("event");
    const auto* event = eventValue != nullptr ? eventValue->if_object() : nullptr;
    if (event == nullptr) return;
    const auto* typeValue = event->if_contains("type");
    if (typeValue == nullptr || !typeValue->is_string()) return;
    const std::string_view typeName(typeValue->get_string().data(), typeValue->get_string().size());
    std::optional<EventTypeEnum> type;
    for (std::size_t i = 0; i < kEventTypeNames.size(); ++i) {
        if (kEventTypeNames[i] == typeName) {
            type = static_cast<EventTypeEnum>(i);
            break;
        }
    }
    if (!type) return;
    std::shared_ptr<EventHandler> handler;
    std::shared_ptr<VelmarLinkEventHandler> applicationHandler;
    {
        std::lock_guard lock(impl_->eventMutex);
        auto entry = impl_->eventHandlers.find(*type);
        if (entry != impl_->eventHandlers.end()) handler = entry->second;
        auto application = impl_->applicationEventHandlers.find(*type);
        if (application != impl_->applicationEventHandlers.end()) applicationHandler = application->second;
    }
    if (handler && *handler) (*handler)(*event);
    if (applicationHandler) {
        const auto& callback = applicationHandler->getRawCallback();
        if (callback && *callback) (*callback)(*event);
    }
}

bool LinkJsonSession::wasSuccessful(const json::object& reply) {
    const auto* status = reply.if_contains("status");
    return status != nullptr && status->is_string() && status->get_string() == "SUCCESS";
}

ErrorObject LinkJsonSession::getError(const json::object& reply) {
    const auto* error = reply.if_contains("error");
    if (error == nullptr) return ErrorObject(ErrorCode::UNKNOWN_ERR, messages::UNKNOWN_ERROR);
    return errorObjectFromJson(*error);
}

// ---------------------------------------------------------------------------------------------
// Typed requests

template <class T>
std::expected<T, ErrorObject> LinkJsonSession::Impl::requestRecord(json::object request, std::string_view key,
                                                                   int timeoutMs) {
    const auto reply = self.sendRequest(std::move(request), timeoutMs);
    if (!wasSuccessful(reply)) return std::unexpected(getError(reply));
    const auto* value = reply.if_contains(key);
    if (value == nullptr || !value->is_object()) return std::unexpected(incompleteJson());
    try {
        return json::value_to<T>(*value);
    } catch (const std::exception& error) {
        return std::unexpected(malformedJson(error.what()));
    }
}

template <class T>
std::expected<std::vector<T>, ErrorObject> LinkJsonSession::Impl::requestList(json::object request,
                                                                              std::string_view key) {
    const auto reply = self.sendRequest(std::move(request), 0);
    if (!wasSuccessful(reply)) return std::unexpected(getError(reply));
    const auto* value = reply.if_contains(key);
    if (value == nullptr || !value->is_array()) return std::unexpected(incompleteJson());
    std::vector<T> result;
    result.reserve(value->get_array().size());
    try {
        for (const auto& element : value->get_array()) result.push_back(json::value_to<T>(element));
    } catch (const std::exception& error) {
        return std::unexpected(malformedJson(error.what()));
    }
    return result;
}

ErrorObject LinkJsonSession::Impl::requestStatus(json::object request) {
    const auto reply = self.sendRequest(std::move(request), 0);
    if (!wasSuccessful(reply)) return getError(reply);
    return {};
}

std::expected<WorkstationInfo, ErrorObject> LinkJsonSession::getWorkstationInfo(int timeoutMs) {
    auto info = impl_->requestRecord<WorkstationInfo>(json::object{{"do", "/id"}}, "workstation", timeoutMs);
    if (info) info->protocol_version = getDeviceProtocolVersion();
    return info;
}

std::expected<WorkstationStatus, ErrorObject> LinkJsonSession::getWorkstationStatus() {
    return impl_->requestRecord<WorkstationStatus>(json::object{{"do", "/status"}}, "workstation_status", 0);
}

std::expected<std::vector<WebsocketConnectionInfo>, ErrorObject> LinkJsonSession::getEcwConnectionList() {
    return impl_->requestList<WebsocketConnectionInfo>(json::object{{"do", "/connection/list"}}, "connections");
}

std::expected<WebsocketConnectionInfo, ErrorObject> LinkJsonSession::getOwnConnectionInfo() {
    return impl_->requestRecord<WebsocketConnectionInfo>(json::object{{"do", "/connection/id"}}, "connection", 0);
}

ErrorObject LinkJsonSession::dropEcwConnection(const WebsocketConnectionInfo& info) {
    return impl_->requestStatus(json::object{{"do", "/connection/drop"}, {"connection_id", info.connection_id}});
}

std::expected<SettingsSet, ErrorObject> LinkJsonSession::getAllSettings() {
    const auto reply = sendRequest(json::object{{"do", "/settings/get"}}, 0);
    if (!wasSuccessful(reply)) return std::unexpected(getError(reply));
    const auto* settings = reply.if_contains("settings");
    if (settings == nullptr || !settings->is_object()) return std::unexpected(incompleteJson());
    return settingsFromJson(settings->get_object());
}

ErrorObject LinkJsonSession::updateSettings(SettingsSet& settings) {
    if (!isConnected()) return ErrorFactory::makeError<ErrorCode::CONNECTION_NOT_ESTABLISHED>();
    const auto reply = sendRequest(json::object{{"do", "/settings/set"}, {"settings", settingsToJson(settings)}}, 0);
    applySettingsUpdateReply(settings, reply);
    if (!wasSuccessful(reply)) return getError(reply);
    return {};
}

std::expected<Resource, ErrorObject> LinkJsonSession::createResource(ResourceTypeEnum type, const std::string& name) {
    return impl_->requestRecord<Resource>(json::object{{"do", resourcePath(type, "create")}, {"name", name}},
                                          "resource", 0);
}

ErrorObject LinkJsonSession::appendToResource(const Resource& resource, std::string_view bytes) {
    const auto path = resourcePath(resource.type, "append");
    std::size_t offset = 0;
    do {
        const auto chunk = bytes.substr(offset, Resource::DATA_CHUNK_SIZE_LIMIT);
        auto error = impl_->requestStatus(
            json::object{{"do", path}, {"resource_id", resource.resource_id}, {"data", encodeBase64(chunk)}});
        if (error) return error;
        offset += chunk.size();
    } while (offset < bytes.size());
    return {};
}

ErrorObject LinkJsonSession::retrieveResource(const Resource& resource, std::string& out, std::uint64_t offset,
                                              std::uint64_t limit, std::uint64_t* totalSize) {
    const auto reply = sendRequest(json::object{{"do", resourcePath(resource.type, "get")},
                                                {"resource_id", resource.resource_id},
                                                {"offset", offset},
                                                {"limit", limit}},
                                   0);
    if (!wasSuccessful(reply)) return getError(reply);
    const auto* data = reply.if_contains("data");
    if (data == nullptr || !data->is_string()) return incompleteJson();
    auto decoded = decodeBase64(std::string_view(data->get_string().data(), data->get_string().size()));
    if (!decoded) return malformedJson(decoded.error());
    out = std::move(*decoded);
    if (totalSize != nullptr) {
        const auto* total = reply.if_contains("resource_total_size");
        auto converted = total != nullptr ? json::try_value_to<std::uint64_t>(*total) : std::uint64_t{0};
        *totalSize = converted ? *converted : 0;
    }
    return {};
}

ErrorObject LinkJsonSession::deleteResource(const Resource& resource) {
    return impl_->requestStatus(
        json::object{{"do", resourcePath(resource.type, "delete")}, {"resource_id", resource.resource_id}});
}

std::expected<std::vector<Resource>, ErrorObject> LinkJsonSession::getResourceList(ResourceTypeEnum type) {
    return impl_->requestList<Resource>(json::object{{"do", resourcePath(type, "list")}}, "resources");
}

ErrorObject LinkJsonSession::getUpdatedResourceInfo(Resource& resource) {
    auto updated = impl_->requestRecord<Resource>(
        json::object{{"do", resourcePath(resource.type, "info")}, {"resource_id", resource.resource_id}}, "resource",
        0);
    if (!updated) return updated.error();
    resource = std::move(*updated);
    return {};
}

ErrorObject LinkJsonSession::retrieveFullResource(const Resource& resource, std::string& out, std::uint64_t limit) {
    return retrieveFullResource(resource, nullptr, out, limit);
}

ErrorObject LinkJsonSession::retrieveFullResource(const Resource& resource,
                                                  const std::shared_ptr<BinaryDestination>& destination,
                                                  std::string& out, std::uint64_t limit) {
    if (!isConnected()) return ErrorFactory::makeError<ErrorCode::CONNECTION_NOT_ESTABLISHED>();
    using Outcome = std::pair<std::string, std::optional<ErrorObject>>;
    auto promise = std::make_shared<std::promise<Outcome>>();
    auto future = promise->get_future();
    // Armed before the request: the binary frame may follow the reply before this thread wakes.
    setPendingDownload(
        [promise](std::string&& data, std::optional<ErrorObject> error) {
            promise->set_value(Outcome(std::move(data), std::move(error)));
        },
        destination);
    const auto reply = sendRequest(json::object{{"do", resourcePath(resource.type, "download")},
                                                {"resource_id", resource.resource_id},
                                                {"limit", limit}},
                                   0);
    if (!wasSuccessful(reply)) {
        clearPendingDownload();
        return getError(reply);
    }
    auto outcome = future.get();
    if (outcome.second) return std::move(*outcome.second);
    out = std::move(outcome.first);
    return {};
}

void LinkJsonSession::sendStop(QueueStopModeEnum mode) {
    if (!isConnected() || !impl_->connection || impl_->connection->ll == nullptr) return;
    switch (mode) {
    case QueueStopModeEnum::QUEUE_STOP_MODE_FLUSH:
        impl_->connection->ll->send(R"({"do":"/stop","queue":"flush"})");
        break;
    case QueueStopModeEnum::QUEUE_STOP_MODE_CONTINUE:
        impl_->connection->ll->send(R"({"do":"/stop","queue":"continue"})");
        break;
    default: impl_->connection->ll->send(R"({"do":"/stop"})"); break;
    }
}

}  // namespace velmar
