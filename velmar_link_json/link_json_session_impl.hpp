#pragma once

// Private to velmar_link_json: the state of LinkJsonSession.

#include "velmar_link_json/jobs/common/cancellation_signals.hpp"
#include "velmar_link_json/link_json_session.hpp"
#include "velmar_link_json/link_ll_session.hpp"

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/json/object.hpp>
#include <boost/uuid/random_generator.hpp>

#include <atomic>
#include <cstdint>
#include <deque>
#include <map>
#include <mutex>
#include <thread>

namespace velmar {

struct LinkJsonSession::Impl {
    using Clock = SessionRuntime::Clock;
    using TimePoint = SessionRuntime::TimePoint;
    using Deadlines = std::multimap<TimePoint, std::string>;

    /// The internal form of a reply handler: it takes the message over (a parsed reply is
    /// moved, not copied, to its waiting caller).
    using Completion = std::function<void(boost::json::object&&)>;

    struct PendingRequest {
        Completion handler;
        Deadlines::iterator deadline;
        bool hasDeadline = false;
    };

    /// One run of one job, shared by the pending-job table, the I/O thread and the waiting
    /// threads. The first ending (JOB_DONE, failed start, malformed live data, start time-out,
    /// or a cancellation that a woken waiter applies) is applied to the job under `mutex`;
    /// after that nothing touches the job any more. The job's live-data decoder also runs
    /// under `mutex`, so a waiter that has settled the run knows the I/O thread has left the
    /// job. Recursive: a live-data callback may call back into the session on the I/O thread.
    struct JobRun {
        std::string requestId;
        AbstractMeasurementJob* job = nullptr;
        /// Set only by addPendingJob callers: they receive the "JOB_DONE" message themselves.
        ReplyHandler handler;
        std::recursive_mutex mutex;
        JobEventHandler eventHandler;
        /// The device's id from the start reply. I/O thread.
        std::string jobId;
        bool started = false;
        bool completed = false;
        TimePoint startDeadline = TimePoint::max();
        /// A CancellationReason once the run's wait has been cancelled (-1 before). Any thread.
        std::atomic<int> cancelReason{-1};
        /// Set when the run has ended or its wait has been cancelled.
        SessionSignal done;
    };
    using JobRunPtr = std::shared_ptr<JobRun>;

    /// Everything that lives for one connection. Members are destroyed in reverse order, so
    /// the runtime and the low-level session go before the context they were made on.
    struct Connection {
        boost::asio::io_context context{1};
        std::optional<boost::asio::executor_work_guard<boost::asio::io_context::executor_type>> guard;
        std::unique_ptr<SessionRuntime> runtime;
        /// Guards `ll` against its disposal on the I/O thread after a disconnect from a callback.
        std::mutex llMutex;
        AbstractLinkLlSession* ll = nullptr;
        std::thread thread;
        /// Set by a disconnect on the I/O thread: the thread disposes the transport (closing
        /// the socket) once the handler that asked for it has returned.
        std::atomic<bool> closeOnExit{false};
        /// Set when the session is destroyed from its own I/O thread: the thread must not
        /// touch the session once its handler returns.
        std::atomic<bool> abandoned{false};
    };

    Impl(LinkJsonSession& session, LinkLlSessionAbstractFactory* factory,
         std::unique_ptr<LinkLlSessionAbstractFactory> owned, std::shared_ptr<SessionRuntime> injected);

    // ---- runtime ----
    TimePoint now() const;
    bool isIoThread() const;
    /// Blocks until `signal` is set or `deadline` (on the session's clock) has passed.
    bool waitFor(SessionSignal& signal, TimePoint deadline);
    SessionRuntime* runtime() const;
    int resolveTimeout(int timeoutMs) const;

    // ---- connection ----
    // Owner thread.
    void teardown();
    // I/O thread.
    void disconnectOnIoThread();
    // I/O thread: the low-level session reports a status change.
    void onTransportStatus(VelmarLinkConnectionStatusEnum status);
    // Any thread: calls the status callback outside every lock.
    void notifyStatus(VelmarLinkConnectionStatusEnum status);
    /// Hands the text to the transport; false when there is none or it refuses. Any thread.
    bool transmit(std::string text);

    // ---- requests ----
    /// The one path of every request: refuses non-finite numbers, sets "request_id", enters
    /// the handler (with a deadline for the I/O thread's sweep, or none when a waiting thread
    /// enforces it), sends.
    void startRequest(const std::string& requestId, boost::json::object& request, Completion handler,
                      std::optional<TimePoint> deadline);
    /// Enters a pending request under one lock, with its deadline if any.
    void enterRequest(const std::string& requestId, Completion handler, std::optional<TimePoint> deadline);
    /// Removes a pending request; its handler (if the entry was there).
    Completion takePendingRequest(const std::string& requestId);
    void resolveRequest(const std::string& requestId, boost::json::object&& message);
    TimePoint deadlineAfter(int timeoutMs) const;
    // I/O thread (runtime task): arm the sweep at the earliest deadline / fail the expired.
    void rearmSweep();
    void sweepExpired();

    // ---- jobs ----
    JobRunPtr findRun(const AbstractMeasurementJob& job);
    JobRunPtr takeRun(const std::string& requestId);
    /// Applies `apply` to the job of `run` unless it has ended; then marks it ended and wakes
    /// its waiters. False when the run had ended already. Any thread.
    template <class Apply>
    bool completeRun(JobRun& run, Apply&& apply);
    /// Records the cancellation and wakes the waiters; touches no job. Any thread.
    void cancelRun(JobRun& run, CancellationReason reason);
    /// A waiter that woke applies a recorded cancellation (unless the run ended otherwise).
    void settleRun(JobRun& run);
    /// Waits for `run` to end; the waiting thread enforces the start reply's deadline.
    void awaitRun(const JobRunPtr& run);
    // I/O thread.
    void onStartReply(const JobRunPtr& run, const boost::json::object& reply);
    void routeEventToJob(EventTypeEnum type, const boost::json::object& event);
    void failRunOnMalformedEvent(const JobRunPtr& run, EventTypeEnum type, ErrorObject error);

    LinkJsonSession& self;
    std::unique_ptr<LinkLlSessionAbstractFactory> ownedFactory;
    LinkLlSessionAbstractFactory* factory;
    /// The runtime given at construction (tests); null: each connection brings its own.
    std::shared_ptr<SessionRuntime> injectedRuntime;
    /// The context that factories build on when an injected runtime drives the session.
    boost::asio::io_context idleContext{1};

    // Owner thread writes; other threads read it only while connected.
    std::unique_ptr<Connection> connection;
    std::atomic<std::thread::id> ioThread{};
    std::atomic<VelmarLinkConnectionStatusEnum> status{VelmarLinkConnectionStatusEnum::DISCONNECTED};
    std::atomic<unsigned> deviceProtocolVersion{0};
    std::atomic<std::int64_t> requestTimeoutMs{DEFAULT_REQUEST_TIMEOUT.count()};
    std::atomic<std::int64_t> connectionTimeoutMs{DEFAULT_CONNECTION_TIMEOUT.count()};
    std::atomic<std::int64_t> downloadTimeoutMs{DEFAULT_DOWNLOAD_TIMEOUT.count()};
    std::atomic<std::size_t> maxMessageSize{DEFAULT_MAX_MESSAGE_SIZE};

    std::mutex statusMutex;
    std::shared_ptr<StatusCallback> statusCallback;

    std::mutex idMutex;
    boost::uuids::random_generator ids;

    // The table mutex guards the pending requests, their deadlines, the pending jobs, the
    // routing state and the pending operations.
    std::mutex tableMutex;
    std::map<std::string, PendingRequest, std::less<>> pendingRequests;
    Deadlines deadlines;
    TimePoint sweepArmedAt = TimePoint::max();
    std::map<std::string, JobRunPtr, std::less<>> pendingJobs;
    /// The run whose live-data header or RUNNING status came last: events without a job id
    /// go there.
    std::string currentRunRequestId;
    /// Ids of runs failed by a malformed event; their remaining events are dropped quietly.
    std::deque<std::string> failedJobIds;
    std::vector<PendingOperation> pendingOperations;

    /// Waits on jobs (doJob, waitForJobToFinish) are cancelled through these.
    CancellationSignals jobWaits;

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
