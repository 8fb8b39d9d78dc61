#include "velmar_link_json/link_json_session.hpp"

#include "json_common/base64.hpp"
#include "json_common/enum_names.hpp"
#include "json_common/exact_json.hpp"
#include "json_common/logging/error_factory.hpp"
#include "json_common/logging/error_messages.hpp"
#include "json_common/logging/error_object_json.hpp"
#include "json_common/logging/exception_text.hpp"
#include "velmar_link_json/binary_destination.hpp"
#include "velmar_link_json/events/velmar_link_event_handler.hpp"
#include "velmar_link_json/link_json_session_impl.hpp"
#include "velmar_link_json/session_finite_numbers.hpp"
#include "velmar_link_json/session_messages.hpp"
#include "velmar_link_json/session_requests.hpp"

#include <boost/asio/post.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/json.hpp>
#include <boost/uuid/uuid_io.hpp>

#include <iostream>

namespace velmar {

namespace net = boost::asio;
namespace json = boost::json;
using ErrorCode = ErrorCodeEnum;

// ---------------------------------------------------------------------------------------------
// The runtime of a connected session: the steady clock and the connection's I/O context.

namespace {

class AsioRuntime final : public SessionRuntime {
public:
    AsioRuntime(net::io_context& context, const std::atomic<std::thread::id>& ioThread)
        : context_(context), ioThread_(ioThread) {}

    TimePoint now() const override { return Clock::now(); }

    void runAt(TimePoint at, std::function<void()> task) override {
        net::post(context_, [this, at, task = std::move(task)]() mutable {
            auto timer = std::make_shared<net::steady_timer>(context_, at);
            timer->async_wait([timer, task = std::move(task)](boost::system::error_code ec) {
                if (!ec) task();
            });
        });
    }

    bool isIoThread() const override { return ioThread_.load() == std::this_thread::get_id(); }

    bool wait(SessionSignal& signal, TimePoint deadline) override { return signal.waitUntil(deadline); }

private:
    net::io_context& context_;
    const std::atomic<std::thread::id>& ioThread_;
};

}  // namespace

// ---------------------------------------------------------------------------------------------
// Construction and runtime

LinkJsonSession::Impl::Impl(LinkJsonSession& session, LinkLlSessionAbstractFactory* sessionFactory,
                            std::unique_ptr<LinkLlSessionAbstractFactory> owned,
                            std::shared_ptr<SessionRuntime> injected)
    : self(session), ownedFactory(std::move(owned)), factory(sessionFactory), injectedRuntime(std::move(injected)) {}

LinkJsonSession::LinkJsonSession(LinkLlSessionAbstractFactory* factory)
    : impl_(std::make_unique<Impl>(*this, factory, nullptr, nullptr)) {}

LinkJsonSession::LinkJsonSession(LinkLlSessionAbstractFactory* factory, std::shared_ptr<SessionRuntime> runtime)
    : impl_(std::make_unique<Impl>(*this, factory, nullptr, std::move(runtime))) {}

LinkJsonSession::LinkJsonSession(std::string host, std::string port, unsigned flags, std::string user,
                                 std::string password) {
    auto factory = std::make_unique<LinkLlSessionFactory<LinkLlSession>>(
        std::move(host), std::move(port), flags, std::move(user), std::move(password));
    auto* raw = factory.get();
    impl_ = std::make_unique<Impl>(*this, raw, std::move(factory), nullptr);
}

LinkJsonSession::~LinkJsonSession() {
    setConnectionStatusCallback({});
    disconnect();
    impl_->teardown();
}

SessionRuntime* LinkJsonSession::Impl::runtime() const {
    if (injectedRuntime) return injectedRuntime.get();
    return connection ? connection->runtime.get() : nullptr;
}

LinkJsonSession::Impl::TimePoint LinkJsonSession::Impl::now() const {
    return injectedRuntime ? injectedRuntime->now() : Clock::now();
}

bool LinkJsonSession::Impl::isIoThread() const {
    return injectedRuntime ? injectedRuntime->isIoThread() : ioThread.load() == std::this_thread::get_id();
}

bool LinkJsonSession::Impl::waitFor(SessionSignal& signal, TimePoint deadline) {
    return injectedRuntime ? injectedRuntime->wait(signal, deadline) : signal.waitUntil(deadline);
}

int LinkJsonSession::Impl::resolveTimeout(int timeoutMs) const {
    return timeoutMs < 1 ? static_cast<int>(requestTimeoutMs.load()) : timeoutMs;
}

// ---------------------------------------------------------------------------------------------
// Connection

namespace {

ErrorObject connectOutcomeError(int outcome, const LinkConnectionData& data) {
    switch (outcome) {
    case LinkConnectOutcome::RESOLVE_FAILED:
        return ErrorObject(ErrorCode::CONNECTION_DNS_ERROR, messages::CONNECTION_DNS_ERROR, data.host + ":" + data.port);
    case LinkConnectOutcome::TCP_CONNECT_FAILED: return ErrorObject(ErrorCode::CONNECTION_FAILED, messages::CONNECTION_FAILED);
    case LinkConnectOutcome::TLS_SETUP_FAILED: return ErrorObject(ErrorCode::TLS_SETUP_FAILED, messages::TLS_SETUP_FAILED);
    case LinkConnectOutcome::TLS_HANDSHAKE_FAILED:
        return ErrorObject(ErrorCode::TLS_HANDSHAKE_FAILED, messages::TLS_HANDSHAKE_FAILED);
    case LinkConnectOutcome::WEBSOCKET_HANDSHAKE_FAILED:
        return ErrorObject(ErrorCode::FAILED_TO_ESTABLISH_WEBSOCKET_CONNECTION, messages::WEBSOCKET_FAILED);
    case LinkConnectOutcome::UNAUTHORIZED: return ErrorObject(ErrorCode::UNAUTHORIZED, messages::UNAUTHORIZED);
    case LinkConnectOutcome::PROTOCOL_VERSION_MISMATCH:
        return ErrorObject(ErrorCode::PROTOCOL_VERSION_MISMATCH, messages::PROTOCOL_VERSION_MISMATCH);
    default: return ErrorObject(ErrorCode::UNKNOWN_ERR, messages::UNKNOWN_ERROR);
    }
}

}  // namespace

ErrorObject LinkJsonSession::connect() {
    auto& d = *impl_;
    if (d.status.load() == VelmarLinkConnectionStatusEnum::CONNECTED) {
        return ErrorObject(ErrorCode::ALREADY_CONNECTED, messages::ALREADY_CONNECTED);
    }
    if (d.isIoThread()) return sessionmsg::blockingCallError();
    d.teardown();
    try {
        d.connection = std::make_unique<Impl::Connection>();
        auto& connection = *d.connection;
        auto* ll = d.factory->createSession(d.injectedRuntime ? d.idleContext : connection.context);
        if (ll == nullptr) {
            d.connection.reset();
            return ErrorObject(ErrorCode::CONNECTION_FAILED, messages::CONNECTION_OBJECT_FAILED);
        }
        connection.ll = ll;
        ll->setConnectionTimeout(getConnectionTimeout());
        ll->setMaxMessageSize(d.maxMessageSize.load());
        ll->setReceiveHandler([this](const std::string& text) { dispatchIncommingJson(text); });
        ll->setReceiveBinaryHandler([this](std::string&& data) { dispatchIncommingBinary(std::move(data)); });
        ll->setBinaryDestinationHandlers(
            [&d]() -> std::shared_ptr<BinaryDestination> {
                std::lock_guard lock(d.downloadMutex);
                return d.pendingDownload ? d.pendingDestination : nullptr;
            },
            [this](std::shared_ptr<BinaryDestination> destination) { dispatchIncommingBinary(std::move(destination)); });
        ll->setConnectionStatusCallback([&d](VelmarLinkConnectionStatusEnum status) { d.onTransportStatus(status); });

        const int outcome = ll->connect();
        if (outcome != LinkConnectOutcome::SUCCESS) {
            d.teardown();
            return connectOutcomeError(outcome, d.factory->getConnectionData());
        }
        d.deviceProtocolVersion = ll->getDeviceProtocolVersion();
        {
            std::lock_guard lock(d.tableMutex);
            d.sweepArmedAt = Impl::TimePoint::max();
        }
        if (!d.injectedRuntime) {
            connection.runtime = std::make_unique<AsioRuntime>(connection.context, d.ioThread);
            connection.guard.emplace(connection.context.get_executor());
            connection.thread = std::thread([&d, &connection] {
                d.ioThread = std::this_thread::get_id();
                // Handlers catch their own faults; this is the last line, so that nothing thrown
                // ends the thread while the connection lives.
                for (;;) {
                    try {
                        connection.context.run();
                        break;
                    } catch (const std::exception& error) {
                        std::cerr << "velmar_link: exception in I/O thread: " << exceptionText(error) << '\n';
                    }
                }
                if (connection.closeOnExit.load() && !connection.abandoned.load()) {
                    std::lock_guard lock(connection.llMutex);
                    if (connection.ll != nullptr) d.factory->disposeSession(std::exchange(connection.ll, nullptr));
                }
            });
        }
        d.status = VelmarLinkConnectionStatusEnum::CONNECTED;
        d.notifyStatus(VelmarLinkConnectionStatusEnum::CONNECTED);
        ll->startServices();
        return {};
    } catch (const std::exception& error) {
        d.teardown();
        return ErrorObject(ErrorCode::UNEXPECTED_EXCEPTION, messages::UNEXPECTED_EXCEPTION, exceptionText(error));
    }
}

void LinkJsonSession::disconnect() {
    auto& d = *impl_;
    if (d.isIoThread()) {
        d.disconnectOnIoThread();
        return;
    }
    // Not under the transport lock: the close needs the I/O thread, which may be sending.
    // A transport that a callback's disconnect hands to the I/O thread for disposal is skipped.
    if (d.connection && !d.connection->closeOnExit.load() && d.connection->ll != nullptr) d.connection->ll->disconnect();
    d.teardown();
    cancelAllPendingOperations(CancellationReason::CONNECTION_LOSS);
    if (d.status.exchange(VelmarLinkConnectionStatusEnum::DISCONNECTED) == VelmarLinkConnectionStatusEnum::CONNECTED) {
        d.notifyStatus(VelmarLinkConnectionStatusEnum::DISCONNECTED);
    }
}

// I/O thread (a callback asked): everything but the join happens now; the thread ends when the
// callback has returned, disposes the transport (closing the socket) and is joined later.
void LinkJsonSession::Impl::disconnectOnIoThread() {
    const bool wasConnected =
        status.exchange(VelmarLinkConnectionStatusEnum::DISCONNECTED) == VelmarLinkConnectionStatusEnum::CONNECTED;
    self.cancelAllPendingOperations(CancellationReason::CONNECTION_LOSS);
    if (wasConnected) notifyStatus(VelmarLinkConnectionStatusEnum::DISCONNECTED);
    if (!connection) return;
    if (injectedRuntime) {
        std::lock_guard lock(connection->llMutex);
        if (connection->ll != nullptr) connection->ll->disconnect();
        return;
    }
    connection->closeOnExit = true;
    connection->guard.reset();
    connection->context.stop();
}

// Owner thread: stop the context, join, then drop the low-level session and the context.
void LinkJsonSession::Impl::teardown() {
    if (!connection) return;
    connection->guard.reset();
    connection->context.stop();
    if (connection->thread.joinable()) {
        // A session destroyed from one of its own callbacks cannot join the thread it runs on.
        if (connection->thread.get_id() == std::this_thread::get_id()) {
            connection->abandoned = true;
            connection->thread.detach();
            (void)connection.release();  // the ending thread still runs on it: left to it, not freed
            return;
        }
        connection->thread.join();
    }
    ioThread = std::thread::id{};
    {
        std::lock_guard lock(connection->llMutex);
        if (connection->ll != nullptr) factory->disposeSession(std::exchange(connection->ll, nullptr));
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
    if (!callback || !*callback) return;
    try {
        (*callback)(newStatus);
    } catch (const std::exception& error) {
        std::cerr << "velmar_link: status callback failed: " << exceptionText(error) << '\n';
    }
}

bool LinkJsonSession::Impl::transmit(std::string text) {
    auto* current = connection.get();
    if (current == nullptr) return false;
    std::lock_guard lock(current->llMutex);
    return current->ll != nullptr && current->ll->send(std::move(text));
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

void LinkJsonSession::setMaxMessageSize(std::size_t bytes) {
    impl_->maxMessageSize = bytes;
    // The transport's setter is thread-safe and applies from its next message.
    if (auto* connection = impl_->connection.get()) {
        std::lock_guard lock(connection->llMutex);
        if (connection->ll != nullptr) connection->ll->setMaxMessageSize(bytes);
    }
}
std::size_t LinkJsonSession::getMaxMessageSize() const { return impl_->maxMessageSize.load(); }

unsigned LinkJsonSession::getDeviceProtocolVersion() const { return impl_->deviceProtocolVersion.load(); }

LinkLlSessionAbstractFactory& LinkJsonSession::getFactory() { return *impl_->factory; }
const LinkLlSessionAbstractFactory& LinkJsonSession::getFactory() const { return *impl_->factory; }

// ---------------------------------------------------------------------------------------------
// Requests

std::string LinkJsonSession::generateRequestId() {
    boost::uuids::uuid id;
    {
        std::lock_guard lock(impl_->idMutex);
        id = impl_->ids();
    }
    return boost::uuids::to_string(id);
}

LinkJsonSession::Impl::TimePoint LinkJsonSession::Impl::deadlineAfter(int timeoutMs) const {
    return now() + std::chrono::milliseconds(resolveTimeout(timeoutMs));
}

void LinkJsonSession::Impl::startRequest(const std::string& requestId, json::object& request, Completion handler,
                                         std::optional<TimePoint> deadline) {
    if (status.load() != VelmarLinkConnectionStatusEnum::CONNECTED) {
        handler(sessionmsg::failureReply(requestId, ErrorFactory::makeError<ErrorCode::CONNECTION_NOT_ESTABLISHED>()));
        return;
    }
    if (auto path = findNonFiniteNumber(request)) {
        handler(sessionmsg::failureReply(requestId, sessionmsg::notANumberError(*path)));
        return;
    }
    request["request_id"] = requestId;
    auto text = json::serialize(request);
    enterRequest(requestId, std::move(handler), deadline);
    if (!transmit(std::move(text))) {
        resolveRequest(requestId, sessionmsg::failureReply(requestId, ErrorFactory::makeError<ErrorCode::CONNECTION_BROKEN>()));
    }
}

namespace {

LinkJsonSession::Impl::Completion completionOf(LinkJsonSession::ReplyHandler handler) {
    return [handler = std::move(handler)](json::object&& message) {
        if (handler) handler(message);
    };
}

}  // namespace

void LinkJsonSession::sendRequest(json::object request, ReplyHandler handler, int timeoutMs) {
    impl_->startRequest(generateRequestId(), request, completionOf(std::move(handler)), impl_->deadlineAfter(timeoutMs));
}

json::object LinkJsonSession::sendRequest(json::object request, int timeoutMs) {
    auto& d = *impl_;
    const std::string requestId = generateRequestId();
    if (d.isIoThread()) return sessionmsg::failureReply(requestId, sessionmsg::blockingCallError());
    struct Rendezvous {
        SessionSignal signal;
        json::object reply;
    };
    auto rendezvous = std::make_shared<Rendezvous>();
    const auto deadline = d.deadlineAfter(timeoutMs);
    // No deadline in the table: this thread enforces it, whatever the I/O thread is doing.
    d.startRequest(
        requestId, request,
        [rendezvous](json::object&& reply) {
            rendezvous->reply = std::move(reply);
            rendezvous->signal.set();
        },
        std::nullopt);
    if (!d.waitFor(rendezvous->signal, deadline)) {
        // An entry that is gone has had its handler called (or is having it called right now).
        if (d.takePendingRequest(requestId)) {
            return sessionmsg::failureReply(requestId, ErrorFactory::makeError<ErrorCode::OPERATION_TIMED_OUT>());
        }
        rendezvous->signal.waitUntil(Impl::TimePoint::max());
    }
    return std::move(rendezvous->reply);
}

bool LinkJsonSession::sendRawRequest(const std::string& requestId, std::string text, ReplyHandler handler,
                                     int timeoutMs) {
    if (!isConnected()) {
        handler(sessionmsg::failureReply(requestId, ErrorFactory::makeError<ErrorCode::CONNECTION_NOT_ESTABLISHED>()));
        return false;
    }
    addPendingRequest(requestId, std::move(handler), timeoutMs);
    if (!impl_->transmit(std::move(text))) {
        resolvePendingRequest(requestId,
                              sessionmsg::failureReply(requestId, ErrorFactory::makeError<ErrorCode::CONNECTION_BROKEN>()));
        return false;
    }
    return true;
}

void LinkJsonSession::addPendingRequest(const std::string& requestId, ReplyHandler handler, int timeoutMs) {
    impl_->enterRequest(requestId, completionOf(std::move(handler)), impl_->deadlineAfter(timeoutMs));
}

void LinkJsonSession::addRequestTimeout(const std::string& requestId, int timeoutMs) {
    auto& d = *impl_;
    if (auto handler = d.takePendingRequest(requestId)) d.enterRequest(requestId, std::move(handler), d.deadlineAfter(timeoutMs));
}

// Deadlines share one timer: it is armed at the earliest deadline, and a request that is
// answered in time only leaves the deadline index.
void LinkJsonSession::Impl::enterRequest(const std::string& requestId, Completion handler,
                                         std::optional<TimePoint> deadline) {
    bool rearm = false;
    {
        std::lock_guard lock(tableMutex);
        auto [entry, inserted] = pendingRequests.insert_or_assign(requestId, PendingRequest{std::move(handler), {}, false});
        if (deadline) {
            entry->second.deadline = deadlines.emplace(*deadline, requestId);
            entry->second.hasDeadline = true;
            if (*deadline < sweepArmedAt) {
                sweepArmedAt = *deadline;
                rearm = true;
            }
        }
    }
    if (rearm) rearmSweep();
}

void LinkJsonSession::Impl::rearmSweep() {
    TimePoint at;
    {
        std::lock_guard lock(tableMutex);
        at = sweepArmedAt;
    }
    auto* current = runtime();
    if (at == TimePoint::max() || current == nullptr) return;
    current->runAt(at, [this, at] {
        {
            // A later arming for an earlier deadline has taken over.
            std::lock_guard lock(tableMutex);
            if (sweepArmedAt < at) return;
        }
        sweepExpired();
    });
}

void LinkJsonSession::Impl::sweepExpired() {
    std::vector<std::pair<std::string, Completion>> expired;
    bool rearm = false;
    {
        std::lock_guard lock(tableMutex);
        const auto current = now();
        auto it = deadlines.begin();
        while (it != deadlines.end() && it->first <= current) {
            auto entry = pendingRequests.find(it->second);
            if (entry != pendingRequests.end()) {
                expired.emplace_back(entry->first, std::move(entry->second.handler));
                pendingRequests.erase(entry);
            }
            it = deadlines.erase(it);
        }
        sweepArmedAt = deadlines.empty() ? TimePoint::max() : deadlines.begin()->first;
        rearm = sweepArmedAt != TimePoint::max();
    }
    if (rearm) rearmSweep();
    for (auto& [requestId, handler] : expired) {
        if (handler) handler(sessionmsg::failureReply(requestId, ErrorFactory::makeError<ErrorCode::OPERATION_TIMED_OUT>()));
    }
}

LinkJsonSession::Impl::Completion LinkJsonSession::Impl::takePendingRequest(const std::string& requestId) {
    std::lock_guard lock(tableMutex);
    auto entry = pendingRequests.find(requestId);
    if (entry == pendingRequests.end()) return {};
    Completion handler = std::move(entry->second.handler);
    if (!handler) handler = [](json::object&&) {};
    if (entry->second.hasDeadline) deadlines.erase(entry->second.deadline);
    pendingRequests.erase(entry);
    return handler;
}

void LinkJsonSession::Impl::resolveRequest(const std::string& requestId, json::object&& message) {
    if (auto handler = takePendingRequest(requestId)) handler(std::move(message));
}

void LinkJsonSession::resolvePendingRequest(const std::string& requestId, const json::object& message) {
    impl_->resolveRequest(requestId, json::object(message));
}

// ---------------------------------------------------------------------------------------------
// Operations and cancellation

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
        d.currentRunRequestId.clear();
        operations = d.pendingOperations;
    }
    const ErrorObject error = sessionmsg::cancellationError(reason);
    for (auto& [requestId, entry] : requests) {
        if (entry.handler) entry.handler(sessionmsg::failureReply(requestId, error));
    }
    // Runs with a waiting caller end through the cancellation of their wait (below); entries
    // made by addPendingJob get the "JOB_DONE" that the workstation would have sent.
    for (auto& [requestId, run] : jobs) {
        if (run->handler) run->handler(sessionmsg::jobCancellationMessage(requestId, run->job, reason));
    }
    for (const auto& operation : operations) {
        if (operation && *operation) (*operation)(reason);
    }
    d.jobWaits.emitSignal(sessionmsg::cancellationTypeOf(reason));
    std::shared_ptr<DownloadHandler> download;
    {
        std::lock_guard lock(d.downloadMutex);
        download = std::move(d.pendingDownload);
        d.pendingDestination.reset();
        ++d.downloadGeneration;
    }
    if (download) (*download)(std::string(), error);
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
    auto* current = d.runtime();
    if (!isConnected() || current == nullptr) {
        expire(ErrorFactory::makeError<ErrorCode::CONNECTION_NOT_ESTABLISHED>());
        return;
    }
    current->runAt(d.now() + std::chrono::milliseconds(d.downloadTimeoutMs.load()),
                   [expire] { expire(ErrorFactory::makeError<ErrorCode::OPERATION_TIMED_OUT>()); });
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
    // The boundary of the read loop: whatever a handler throws ends here, reported.
    try {
        boost::system::error_code ec;
        json::value value = parseJsonExact(text, ec);
        if (ec) {
            std::cerr << "issue parsing incomming json " << ec.message() << '\n';
            return;
        }
        auto* object = value.if_object();
        const json::value* type = object != nullptr ? object->if_contains("type") : nullptr;
        if (type == nullptr || !type->is_string()) {
            std::cerr << "missing property 'type'\n";
            return;
        }
        const auto& name = type->get_string();
        if (name == "REPLY") {
            // The reply is handed over to its caller, not copied.
            if (auto requestId = sessionmsg::requestIdOf(*object)) impl_->resolveRequest(*requestId, std::move(*object));
        } else if (name == "EVENT") {
            handleEvent(*object);
        } else if (name == "JOB_DONE") {
            handleJobDone(*object);
        } else {
            std::cout << "received unknown type " << std::string_view(name.data(), name.size()) << std::endl;
        }
    } catch (const std::exception& error) {
        std::cerr << "velmar_link: frame dropped: " << exceptionText(error) << '\n';
    } catch (...) {
        std::cerr << "velmar_link: frame dropped: unknown exception\n";
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
// cancellation, a newer download) is dropped with it. A frame the transport refused (too large)
// fails the pending download, whichever destination it was read into.
void LinkJsonSession::dispatchIncommingBinary(std::shared_ptr<BinaryDestination> destination) {
    std::shared_ptr<DownloadHandler> handler;
    const bool refused = destination && destination->failure.has_value();
    {
        std::lock_guard lock(impl_->downloadMutex);
        if (!impl_->pendingDownload) return;
        if (!refused && impl_->pendingDestination != destination) return;
        handler = std::move(impl_->pendingDownload);
        impl_->pendingDestination.reset();
        ++impl_->downloadGeneration;
    }
    if (refused) {
        (*handler)(std::string(), *destination->failure);
        return;
    }
    (*handler)(std::string(), std::nullopt);
}

void LinkJsonSession::handleReply(const json::object& message) {
    if (auto requestId = sessionmsg::requestIdOf(message)) resolvePendingRequest(*requestId, message);
}

void LinkJsonSession::handleEvent(const json::object& message) {
    const auto* eventValue = message.if_contains("event");
    const auto* event = eventValue != nullptr ? eventValue->if_object() : nullptr;
    if (event == nullptr) return;
    const auto* typeValue = event->if_contains("type");
    if (typeValue == nullptr || !typeValue->is_string()) return;
    const auto type = enumFromName<EventTypeEnum>(std::string_view(typeValue->get_string()));
    if (!type) return;

    impl_->routeEventToJob(*type, *event);

    std::shared_ptr<EventHandler> observer;
    std::shared_ptr<VelmarLinkEventHandler> application;
    {
        std::lock_guard lock(impl_->eventMutex);
        if (auto entry = impl_->eventHandlers.find(*type); entry != impl_->eventHandlers.end()) observer = entry->second;
        if (auto entry = impl_->applicationEventHandlers.find(*type); entry != impl_->applicationEventHandlers.end()) {
            application = entry->second;
        }
    }
    const auto deliver = [&](const EventHandler* callback) {
        if (callback == nullptr || !*callback) return;
        try {
            (*callback)(*event);
        } catch (const std::exception& error) {
            std::cerr << "velmar_link: " << enumName(*type) << " event handler failed: " << exceptionText(error) << '\n';
        }
    };
    deliver(observer.get());
    if (application) deliver(application->getRawCallback().get());
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
// Typed requests: each is one entry of the request table (session_requests.hpp).

std::expected<WorkstationInfo, ErrorObject> LinkJsonSession::getWorkstationInfo(int timeoutMs) {
    auto info = requests::call(*this, requests::WORKSTATION_INFO, {}, timeoutMs);
    if (info) info->protocol_version = getDeviceProtocolVersion();
    return info;
}

std::expected<WorkstationStatus, ErrorObject> LinkJsonSession::getWorkstationStatus() {
    return requests::call(*this, requests::WORKSTATION_STATUS);
}

std::expected<std::vector<WebsocketConnectionInfo>, ErrorObject> LinkJsonSession::getEcwConnectionList() {
    return requests::call(*this, requests::CONNECTION_LIST);
}

std::expected<WebsocketConnectionInfo, ErrorObject> LinkJsonSession::getOwnConnectionInfo() {
    return requests::call(*this, requests::OWN_CONNECTION);
}

ErrorObject LinkJsonSession::dropEcwConnection(const WebsocketConnectionInfo& info) {
    return requests::status(requests::call(*this, requests::DROP_CONNECTION, {{"connection_id", info.connection_id}}));
}

std::expected<SettingsSet, ErrorObject> LinkJsonSession::getAllSettings() {
    const auto reply = sendRequest(json::object{{"do", "/settings/get"}}, 0);
    if (!wasSuccessful(reply)) return std::unexpected(getError(reply));
    const auto* settings = reply.if_contains("settings");
    if (settings == nullptr || !settings->is_object()) {
        return std::unexpected(ErrorObject(ErrorCode::JSON_MALFORMED, messages::JSON_INCOMPLETE));
    }
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
    return requests::call(*this, requests::RESOURCE_CREATE.at(type), {{"name", name}});
}

ErrorObject LinkJsonSession::appendToResource(const Resource& resource, std::string_view bytes) {
    const auto op = requests::RESOURCE_APPEND.at(resource.type);
    std::size_t offset = 0;
    do {
        const auto chunk = bytes.substr(offset, Resource::DATA_CHUNK_SIZE_LIMIT);
        auto error = requests::status(
            requests::call(*this, op, {{"resource_id", resource.resource_id}, {"data", encodeBase64(chunk)}}));
        if (error) return error;
        offset += chunk.size();
    } while (offset < bytes.size());
    return {};
}

ErrorObject LinkJsonSession::retrieveResource(const Resource& resource, std::string& out, std::uint64_t offset,
                                              std::uint64_t limit, std::uint64_t* totalSize) {
    const auto reply = sendRequest(json::object{{"do", requests::resourcePath(resource.type, "get")},
                                                {"resource_id", resource.resource_id},
                                                {"offset", offset},
                                                {"limit", limit}},
                                   0);
    if (!wasSuccessful(reply)) return getError(reply);
    const auto* data = reply.if_contains("data");
    if (data == nullptr || !data->is_string()) return ErrorObject(ErrorCode::JSON_MALFORMED, messages::JSON_INCOMPLETE);
    auto decoded = decodeBase64(std::string_view(data->get_string().data(), data->get_string().size()));
    if (!decoded) return ErrorObject(ErrorCode::JSON_MALFORMED, messages::JSON_MALFORMED, decoded.error());
    out = std::move(*decoded);
    if (totalSize != nullptr) {
        const auto* total = reply.if_contains("resource_total_size");
        auto converted = total != nullptr ? json::try_value_to<std::uint64_t>(*total) : std::uint64_t{0};
        *totalSize = converted ? *converted : 0;
    }
    return {};
}

ErrorObject LinkJsonSession::deleteResource(const Resource& resource) {
    return requests::status(
        requests::call(*this, requests::RESOURCE_DELETE.at(resource.type), {{"resource_id", resource.resource_id}}));
}

std::expected<std::vector<Resource>, ErrorObject> LinkJsonSession::getResourceList(ResourceTypeEnum type) {
    return requests::call(*this, requests::RESOURCE_LIST.at(type));
}

ErrorObject LinkJsonSession::getUpdatedResourceInfo(Resource& resource) {
    auto updated =
        requests::call(*this, requests::RESOURCE_INFO.at(resource.type), {{"resource_id", resource.resource_id}});
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
    auto& d = *impl_;
    if (!isConnected()) return ErrorFactory::makeError<ErrorCode::CONNECTION_NOT_ESTABLISHED>();
    if (d.isIoThread()) return sessionmsg::blockingCallError();
    struct Outcome {
        SessionSignal signal;
        std::string data;
        std::optional<ErrorObject> error;
    };
    auto outcome = std::make_shared<Outcome>();
    // Armed before the request: the binary frame may follow the reply before this thread wakes.
    setPendingDownload(
        [outcome](std::string&& data, std::optional<ErrorObject> error) {
            outcome->data = std::move(data);
            outcome->error = std::move(error);
            outcome->signal.set();
        },
        destination);
    const auto reply = sendRequest(json::object{{"do", requests::resourcePath(resource.type, "download")},
                                                {"resource_id", resource.resource_id},
                                                {"limit", limit}},
                                   0);
    if (!wasSuccessful(reply)) {
        clearPendingDownload();
        return getError(reply);
    }
    const auto deadline = d.now() + std::chrono::milliseconds(d.downloadTimeoutMs.load());
    if (!d.waitFor(outcome->signal, deadline)) {
        // The waiting thread's own deadline; a handler that runs meanwhile has nothing to wake.
        clearPendingDownload();
        if (!outcome->signal.isSet()) return ErrorFactory::makeError<ErrorCode::OPERATION_TIMED_OUT>();
    }
    if (outcome->error) return std::move(*outcome->error);
    out = std::move(outcome->data);
    return {};
}

void LinkJsonSession::sendStop(QueueStopModeEnum mode) {
    if (!isConnected()) return;
    switch (mode) {
    case QueueStopModeEnum::QUEUE_STOP_MODE_FLUSH: impl_->transmit(R"({"do":"/stop","queue":"flush"})"); break;
    case QueueStopModeEnum::QUEUE_STOP_MODE_CONTINUE: impl_->transmit(R"({"do":"/stop","queue":"continue"})"); break;
    default: impl_->transmit(R"({"do":"/stop"})"); break;
    }
}

}  // namespace velmar
