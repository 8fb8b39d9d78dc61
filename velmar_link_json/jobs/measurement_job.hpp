#pragma once

#include "velmar_link_json/jobs/abstract_measurement_job.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"
#include "velmar_link_json/jobs/common/stop_conditions.hpp"

#include <map>
#include <string>
#include <string_view>

namespace velmar {

/// Builds a job request: {"do": doPath, "job": {"type", "parameters", "stop_conditions",
/// "job_meta"}} with the set options merged into the top level.
boost::json::object makeJobRequestObject(std::string_view doPath, std::string_view type,
                                         boost::json::object parameters, boost::json::array stopConditions,
                                         boost::json::object jobMeta, const JobOptions& options);

/// The request of `job` for "/job/start" or "/job/check_parameters".
boost::json::object makeJobRequestObject(std::string_view doPath, const AbstractMeasurementJob& job);

/// The state shared by every job: the last job information, the stop conditions, the
/// metadata and the options. Used from the caller's thread and, while the job runs, from the
/// session's I/O thread; the session orders the two (the caller reads only after the
/// completion has been processed).
class MeasurementJob : public AbstractMeasurementJob {
public:
    explicit MeasurementJob(std::map<std::string, std::string> metaData = {}, StopConditionList stopConditions = {},
                            JobOptions options = {});

    /// Replaces the stored job information by the message's "job_info" object, if any.
    void processJobResult(const boost::json::object& message) override;
    const JobInfo& getLastJobInfo() const override { return lastJobInfo_; }
    void setLastJobInfo(const JobInfo& info) override { lastJobInfo_ = info; }
    JobStatusEnum getLastJobStatus() const override { return lastJobInfo_.status; }
    std::string getLastJobErrorMessage() const override;
    bool wasSuccessful() const override { return lastJobInfo_.status == JobStatusEnum::FINISHED; }
    void setEventHandlers(LinkJsonSession&) override {}
    void removeEventHandlers(LinkJsonSession&) override {}
    void setMetaData(const std::map<std::string, std::string>& metaData) override { metaData_ = metaData; }
    const std::map<std::string, std::string>& getMetaData() const override { return metaData_; }
    boost::json::object getMetaDataObject() const override;
    boost::json::array getStopConditionsArray() const override;
    void setFailed(ErrorObject&& error, JobStatusDetailEnum detail) override;
    JobOptions getJobOptions() const override { return options_; }
    /// 2: a control job without measurement data.
    int getType() const override { return 2; }
    void extractJobResult(const boost::json::object&) override {}

    const StopConditionList& getStopConditions() const { return stopConditions_; }
    void setStopConditions(const StopConditionList& stopConditions) { stopConditions_ = stopConditions; }
    void clearStopConditions() { stopConditions_.clear(); }
    /// Read when the job starts; set it before handing the job to the link.
    void setJobOptions(const JobOptions& options) { options_ = options; }

protected:
    JobInfo lastJobInfo_;
    StopConditionList stopConditions_;
    std::map<std::string, std::string> metaData_;
    JobOptions options_;
};

}  // namespace velmar
