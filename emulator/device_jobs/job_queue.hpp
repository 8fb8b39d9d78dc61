#pragma once

// The emulated job queue of the RQ5: "/job/start", "/job/info", "/job/list",
// "/job/check_parameters", the reaction to "/stop" and the "busy" flag of "/status".
//
// Accepted jobs wait PENDING and run one at a time (RUNNING) in arrival order; a control or
// information job with "bypass_queue" runs at once beside the queue. A job ends FINISHED
// (RUN_TO_COMPLETION) or FAILED. Every status change is sent as a JOB_STATUS_UPDATE event,
// the end as a JOB_DONE event and a top-level "JOB_DONE" frame, all to the connection that
// started the job (a job whose connection has gone still runs and ends). Durations are
// emulated: the model's time scale divides them, and all waiting is done by the model's
// scheduler, never by blocking the I/O thread. The wire behaviour is documented in
// docs/protocol.md ("Jobs").

#include "emulator/core/device_model.hpp"
#include "emulator/device_jobs/hardware_model.hpp"
#include "emulator/core/resource_store.hpp"
#include "emulator/device_jobs/measurement_executor.hpp"

#include <chrono>
#include <cstddef>
#include <deque>
#include <expected>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace velmar::emulator {

/// Set-up of the job module.
struct DeviceJobsOptions {
    /// Bound of the waiting (PENDING) jobs; one more is refused with QUEUE_FULL.
    std::size_t queueCapacity = 16;
    /// Bound of the jobs that bypass the queue and have not ended; one more is refused with
    /// QUEUE_FULL.
    std::size_t bypassCapacity = 64;
    /// The cell behind every potentiostat (see parseCellSpec).
    std::string cellSpec = "resistor:R=1000";
    /// Ended jobs kept for "/job/info" and "/job/list"; older ones are forgotten.
    std::size_t endedJobsKept = 1000;
    /// Bound of what the kept ended jobs hold (their parameters, stop conditions, metadata
    /// and results as JSON text, plus kJobOverheadBytes each); the oldest are forgotten first.
    std::size_t endedJobsKeptBytes = 64ull << 20;
};

class JobQueue;

/// Bytes counted for every job besides its JSON members (identifiers, times, status).
inline constexpr std::size_t kJobOverheadBytes = 1024;

/// Registers the job endpoints, the stop handler and the busy provider on `model`, with the
/// built-in DC executors. The returned queue is also kept alive by the registered handlers;
/// use it to register further measurement executors before serving requests.
/// Owner thread, during set-up.
std::shared_ptr<JobQueue> installDeviceJobs(DeviceModel& model, DeviceJobsOptions options = {});

/// The queue. Its members run on the I/O thread (endpoint handlers and scheduled steps);
/// busy() may be called from any thread.
class JobQueue : public std::enable_shared_from_this<JobQueue> {
public:
    JobQueue(DeviceModel& model, DeviceJobsOptions options);
    ~JobQueue();
    JobQueue(const JobQueue&) = delete;
    JobQueue& operator=(const JobQueue&) = delete;

    MeasurementExecutorRegistry& executors() { return executors_; }
    HardwareModel& hardware() { return hardware_; }
    /// True while a job runs or waits.
    bool busy() const;

    EndpointResult start(const RequestContext& context);
    EndpointResult info(const RequestContext& context);
    EndpointResult list(const RequestContext& context);
    EndpointResult checkParameters(const RequestContext& context);
    void stop(const StopRequest& request);
    /// "/emulator/make_dc_result": replaces the DC result of an ended job by one of "rows"
    /// deterministic rows (for benchmarks of large downloads).
    EndpointResult makeDcResult(const RequestContext& context);
    /// "/emulator/make_ac_result": replaces the impedance result of an ended job by a
    /// synthetic one of "points" rows with waves of "samples" samples per sync path.
    EndpointResult makeAcResult(const RequestContext& context);

private:
    struct Job;
    class RunContext;
    enum class CheckEnum { CHECK_ONLY, CREATE };

    std::expected<std::shared_ptr<Job>, ErrorObject> parse(const RequestContext& context, CheckEnum check,
                                                           Job& partial) const;
    void announce(const std::shared_ptr<Job>& job);
    void watchUnannounced(const std::shared_ptr<Job>& job);
    void startNext();
    void run(const std::shared_ptr<Job>& job);
    void tick(const std::shared_ptr<Job>& job, std::chrono::milliseconds period);
    void finish(const std::shared_ptr<Job>& job, JobStatusEnum status, JobStatusDetailEnum detail,
                ErrorObject error);
    void scheduleStartNext();
    void forgetOldJobs();
    boost::json::object jobInfo(const Job& job) const;
    /// The hooks that replace a result: the ended job `id` and its JOB_RESULT resource of that
    /// sub type (`noResult` naming the job otherwise). Called with the mutex held.
    struct ReplaceableResult;
    std::expected<ReplaceableResult, ErrorObject> replaceableResult(std::string_view id, std::string_view subType,
                                                                    std::string_view noResult);
    /// Replaces the job's result by `bytes` with `header` when the store can take `bytes` bytes
    /// in place of the old content (checked before they are built by `make`).
    std::expected<ResourceInfo, ErrorObject> replaceResult(ReplaceableResult& target, double bytes,
                                                           boost::json::object header,
                                                           const std::function<std::string()>& make);
    void sendStatus(const Job& job);
    void log(const Job& job, std::string message);
    std::string timestamp() const;
    double timeScale() const;

    DeviceModel& model_;
    const DeviceJobsOptions options_;
    HardwareModel hardware_;
    MeasurementExecutorRegistry executors_;

    mutable std::recursive_mutex mutex_;
    std::map<std::string, std::shared_ptr<Job>, std::less<>> jobs_;
    std::vector<std::string> order_;  // creation order of the jobs in jobs_
    std::size_t endedBytes_ = 0;      // retainedBytes of the ended jobs in jobs_
    std::deque<std::shared_ptr<Job>> pending_;
    std::shared_ptr<Job> running_;
    std::vector<std::shared_ptr<Job>> bypassing_;
};

}  // namespace velmar::emulator
