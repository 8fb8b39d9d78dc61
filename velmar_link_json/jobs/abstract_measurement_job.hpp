#pragma once

#include "json_common/jobs/job_options.hpp"
#include "json_common/jobs/job_status.hpp"
#include "json_common/logging/error_object.hpp"

#include <boost/describe/class.hpp>
#include <boost/json/array.hpp>
#include <boost/json/object.hpp>

#include <atomic>
#include <map>
#include <string>
#include <string_view>

namespace velmar {

class LinkJsonSession;
struct JobInfo;

/// The interface through which the link and the Python layer handle every job. Job objects
/// belong to the caller; the session holds only non-owning pointers while a job runs.
/// The virtual slots are in this order on purpose.
class AbstractMeasurementJob {
public:
    /// The parameter structure of jobs without parameters; such a job sends "parameters": {}.
    struct Parameterless {};

    virtual ~AbstractMeasurementJob() = default;
    /// The job name ("cv", "switch_on", ...).
    virtual std::string_view getName() const = 0;
    /// Takes the "JOB_DONE" message of the job (I/O thread).
    virtual void processJobResult(const boost::json::object& message) = 0;
    /// The parameters as a JSON object.
    virtual boost::json::object getParameterObject() const = 0;
    virtual const JobInfo& getLastJobInfo() const = 0;
    virtual void setLastJobInfo(const JobInfo& info) = 0;
    virtual JobStatusEnum getLastJobStatus() const = 0;
    /// The stored error, formatted.
    virtual std::string getLastJobErrorMessage() const = 0;
    /// True exactly when the stored status is FINISHED.
    virtual bool wasSuccessful() const = 0;
    /// Registers the job's live-data decoder with the session before the job starts; the
    /// session routes to it the events of this job's run only.
    virtual void setEventHandlers(LinkJsonSession& session) = 0;
    /// Removes it after the job has ended.
    virtual void removeEventHandlers(LinkJsonSession& session) = 0;
    virtual void setMetaData(const std::map<std::string, std::string>& metaData) = 0;
    virtual const std::map<std::string, std::string>& getMetaData() const = 0;
    /// The metadata as a JSON object of string values.
    virtual boost::json::object getMetaDataObject() const = 0;
    /// The stop conditions as a JSON array of {"type", "parameters"} objects, in list order.
    virtual boost::json::array getStopConditionsArray() const = 0;
    /// Marks the stored job information FAILED with the error and detail.
    virtual void setFailed(ErrorObject&& error, JobStatusDetailEnum detail) = 0;
    virtual JobOptions getJobOptions() const = 0;
    /// 1 for DC measurements, 2 for control jobs, 3 for impedance measurements.
    virtual int getType() const = 0;
    /// Decodes the result value of a single-value job from its "JOB_DONE" message.
    virtual void extractJobResult(const boost::json::object& message) = 0;

    /// Marks the job as running on a link; false when a run (on any link) holds it already.
    /// Any thread.
    bool tryMarkRunning() noexcept { return !running_.flag.exchange(true); }
    void clearRunning() noexcept { running_.flag.store(false); }
    [[nodiscard]] bool isRunning() const noexcept { return running_.flag.load(); }

private:
    /// Not copied: a copy of a running job is a job that has not run.
    struct RunningFlag {
        std::atomic<bool> flag{false};
        RunningFlag() = default;
        RunningFlag(const RunningFlag&) noexcept {}
        RunningFlag& operator=(const RunningFlag&) noexcept { return *this; }
    };
    RunningFlag running_;
};
BOOST_DESCRIBE_STRUCT(AbstractMeasurementJob::Parameterless, (), ())

}  // namespace velmar
