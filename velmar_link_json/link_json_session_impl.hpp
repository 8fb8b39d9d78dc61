#pragma once

// Private to velmar_link_json: the state of LinkJsonSession.

#include "velmar_link_json/link_json_session.hpp"
#include "velmar_link_json/link_ll_session.hpp"

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/json/object.hpp>

#include <array>
#include <atomic>
#include <cstdint>
#include <map>
#include <mutex>
#include <thread>

namespace velmar {

/// Version-4 UUIDs from a ChaCha20 key stream, seeded once from the system's random device.
/// Not thread-safe; the session guards it.
class ChaChaUuidGenerator {
public:
    ChaChaUuidGenerator();
    /// 36 characters, lower-case hexadecimal digits in groups 8-4-4-4-12.
    std::string next();

private:
    void refill();

    std::array<std::uint32_t, 16> state_{};
    std::array<std::uint32_t, 16> block_{};
    std::size_t used_ = 16;
};

struct LinkJsonSession::Impl {
    using Clock = std::chrono::steady_clock;
    using Deadlines = std::multimap<Clock::time_point, std::string>;

    struct PendingRequest {
        ReplyHandler handler;
        Deadlines::iterator deadline;
        bool hasDeadline = false;
    };

    struct PendingJob {
        ReplyHandler handler;
        AbstractMeasurementJob* job = nullptr;
    };

    /// Everything that lives for one connection. Members are destroyed in reverse order, so
    /// the timers and the low-level session go before the context they were made on.
    struct Connection {
        boost::asio::io_context context{1};
        std::optional<boost::asio::executor_work_guard<boost::asio::io_context::executor_type>> guard;
        boost::asio::steady_timer sweepTimer{context};
        boost::asio::steady_timer downloadTimer{context};
        AbstractLinkLlSession* ll = nullptr;
        std::thread thread;
    };

    Impl(LinkJsonSession& session, LinkLlSessionAbstractFactory* factory,
         std::unique_ptr<LinkLlSessionAbstractFactory> owned);

    // Owner thread.
    void teardown();
    // I/O thread: the low-level session reports a status change.
    void onTransportStatus(VelmarLinkConnectionStatusEnum status);
    // Any thread: calls the status callback outside every lock.
    void notifyStatus(VelmarLinkConnectionStatusEnum status);
    // I/O thread: arm the sweep timer at the earliest deadline.
    void rearmSweep();
    // I/O thread: fail every request whose deadline has passed.
    void sweepExpired();
    int resolveTimeout(int timeoutMs) const;

    template <class T>
    std::expected<T, ErrorObject> requestRecord(boost::json::object request, std::string_view key, int timeoutMs);
    template <class T>
    std::expected<std::vector<T>, ErrorObject> requestList(boost::json::object request, std::string_view key);
    ErrorObject requestStatus(boost::json::object request);

    LinkJsonSession& self;
    std::unique_ptr<LinkLlSessionAbstractFactory> ownedFactory;
    LinkLlSessionAbstractFactory* factory;

    // Owner thread writes; other threads read it only while connected.
    std::unique_ptr<Connection> connection;
    std::atomic<VelmarLinkConnectionStatusEnum> status{VelmarLinkConnectionStatusEnum::DISCONNECTED};
    std::atomic<unsigned> deviceProtocolVersion{0};
    std::atomic<std::int64_t> requestTimeoutMs{DEFAULT_REQUEST_TIMEOUT.count()};
    std::atomic<std::int64_t> connectionTimeoutMs{DEFAULT_CONNECTION_TIMEOUT.count()};
    std::atomic<std::int64_t> downloadTimeoutMs{DEFAULT_DOWNLOAD_TIMEOUT.count()};

    std::mutex statusMutex;
    std::shared_ptr<StatusCallback> statusCallback;

    std::mutex idMutex;
    ChaChaUuidGenerator ids;

    // The table mutex guards the pending requests, their deadlines, the pending jobs and the
    // pending operations.
    std::mutex tableMutex;
    std::map<std::string, PendingRequest, std::less<>> pendingRequests;
    Deadlines deadlines;
    Clock::time_point sweepArmedAt = Clock::time_point::max();
    std::map<std::string, PendingJob, std::less<>> pendingJobs;
    std::vector<PendingOperation> pendingOperations;

    std::mutex eventMutex;
    std::map<EventTypeEnum, std::shared_ptr<EventHandler>> eventHandlers;
    std::map<EventTypeEnum, std::shared_ptr<VelmarLinkEventHandler>> applicationEventHandlers;

    // The download mutex guards the single pending download.
    std::mutex downloadMutex;
    std::shared_ptr<DownloadHandler> pendingDownload;
    /// Armed with pendingDownload, and cleared with it.
    std::shared_ptr<BinaryDestination> pendingDestination;
    std::uint64_t downloadGeneration = 0;
};

}  // namespace velmar
