#pragma once

// Measurement executors: how the job queue runs a measurement kind.
//
// A measurement kind (a DC or impedance method) is run by an executor object that the queue
// steps with its timers; the queue owns the job's life (status, events of the lifecycle,
// "JOB_DONE", stop requests) and the executor owns the measurement (live data, the result).
// Kinds are registered by job type in a MeasurementExecutorRegistry, which installDeviceJobs
// fills with the built-in executors (the DC kinds, dc_executor.hpp) and returns, so that more
// kinds can be added or a built-in one replaced:
//
//     auto jobs = installDeviceJobs(model, options);
//     jobs->executors().add("eis", {.validate = checkEis, .create = makeEisExecutor});
//
// Registration happens while the model is set up, before requests are served.
//
// The queue calls, on the I/O thread, for one job:
//   1. validate(setup) when the job is created or checked ("/job/start",
//      "/job/check_parameters"): a failure refuses the job (FAILED_TO_CREATE);
//   2. create(setup) when the job leaves the queue and starts RUNNING: a failure ends the job
//      FAILED with detail RUNTIME_ERROR;
//   3. start(context) once, right after create: typically sends the live-data header;
//   4. advance(elapsed, context) on every tick, with the emulated seconds since start
//      (real time multiplied by the time scale); it sends the rows that are due and returns
//      an outcome once the measurement has ended (completed, or a stop condition met);
//   5. stop() instead, when the user stops the running job; no advance follows;
//   6. resultData(finalJobInfo) after the end, unless "discard_result_data" was set: the
//      content and header of the JOB_RESULT resource, created before "JOB_DONE";
//   7. finish(finalJobInfo, context) last: typically sends "LIVE_DATA_FINISHED".
// Executors never block and never call back into the queue.

#include "json_common/jobs/job_status.hpp"
#include "json_common/logging/error_object.hpp"

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>

#include <chrono>
#include <expected>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace velmar::emulator {

class HardwareModel;
class ResourceStore;

/// What an executor may use while one of its members is called. Not to be kept.
class JobRunContext {
public:
    virtual ~JobRunContext() = default;
    virtual const std::string& jobId() const = 0;
    /// The job information as the device reports it now.
    virtual boost::json::object jobInfo() const = 0;
    /// Sends {"type":"EVENT","event":event} to the connection that started the job (if it
    /// is still open).
    virtual void sendEvent(boost::json::object event) = 0;
    /// Sends a "MESSAGE_FROM_JOB" log event with severity "MESSAGE".
    virtual void log(std::string message) = 0;
};

/// The job as an executor factory sees it; references valid during the call only.
struct ExecutorSetup {
    std::string_view type;
    const boost::json::object& parameters;
    const boost::json::array& stopConditions;
    const HardwareModel& hardware;
    const ResourceStore& resources;
};

/// How a measurement ended by itself.
struct ExecutorOutcome {
    JobStatusDetailEnum detail = JobStatusDetailEnum::RUN_TO_COMPLETION;
    /// Success for RUN_TO_COMPLETION; e.g. STOP_CONDITION_TRIGGERED for FUNCTIONAL_LIMIT_OCCURRED.
    ErrorObject error;
};

/// The JOB_RESULT resource of a measurement.
struct JobResultData {
    /// For example "DATASET_DC".
    std::string subType;
    boost::json::object header;
    std::string bytes;
};

/// One running measurement. Single-threaded (the I/O thread).
class MeasurementExecutor {
public:
    virtual ~MeasurementExecutor() = default;
    virtual void start(JobRunContext& context) = 0;
    /// Emulated seconds since start, non-decreasing. An outcome ends the job.
    virtual std::optional<ExecutorOutcome> advance(double elapsed, JobRunContext& context) = 0;
    virtual void stop() = 0;
    /// Nothing when the kind produces no result resource.
    virtual std::optional<JobResultData> resultData(const boost::json::object& finalJobInfo) const = 0;
    virtual void finish(const boost::json::object& finalJobInfo, JobRunContext& context) = 0;
    /// Real time between two advance calls. The default gives about four blocks per second
    /// of emulated time: 250 ms / time scale, at least 20 ms.
    virtual std::chrono::milliseconds tickPeriod(double timeScale) const;
};

/// The registration of one measurement kind.
struct ExecutorRegistration {
    /// Creation-time check of the parameters beyond the key table (ranges, resources).
    std::function<ErrorObject(const ExecutorSetup&)> validate;
    std::function<std::expected<std::unique_ptr<MeasurementExecutor>, ErrorObject>(const ExecutorSetup&)>
        create;
};

/// Executors by job type. Filled during set-up, read-only afterwards.
class MeasurementExecutorRegistry {
public:
    /// Registers (or replaces) the executor of `type`.
    void add(std::string type, ExecutorRegistration registration);
    /// The registration of `type`, or null: the kind is then accepted but ends FAILED with
    /// RUNTIME_ERROR when it runs (no emulated measurement).
    const ExecutorRegistration* find(std::string_view type) const;

private:
    std::map<std::string, ExecutorRegistration, std::less<>> registrations_;
};

}  // namespace velmar::emulator
