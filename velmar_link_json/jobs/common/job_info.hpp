#pragma once

#include "json_common/jobs/job_options.hpp"
#include "json_common/jobs/job_status.hpp"
#include "json_common/logging/error_object.hpp"

#include <boost/json/fwd.hpp>

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace velmar {

class AbstractStopCondition;
class MeasurementParameters;

/// The device's account of one job.
struct JobInfo {
    std::string job_id;
    JobStatusEnum status = JobStatusEnum::UNKNOWN;
    JobStatusDetailEnum status_detail = JobStatusDetailEnum::NOT_FINISHED;
    std::string created;
    std::string started;
    std::string ended;
    std::map<std::string, std::string> job_meta;
    ErrorObject error;
    std::vector<std::shared_ptr<AbstractStopCondition>> stop_conditions;
    std::string type;
    std::shared_ptr<MeasurementParameters> parameters;
    JobOptions options;

    JobInfo() = default;
    JobInfo(std::string_view jobId, JobStatusEnum jobStatus, JobStatusDetailEnum detail, std::string_view createdAt,
            std::string_view startedAt, std::string_view endedAt, std::map<std::string, std::string> meta,
            ErrorObject&& jobError, std::string_view jobType, std::shared_ptr<MeasurementParameters>&& jobParameters,
            std::vector<std::shared_ptr<AbstractStopCondition>>&& stopConditions, JobOptions jobOptions);

    std::string_view getStatusString() const { return jobStatusName(status); }
    std::string_view getStatusDetailString() const { return jobStatusDetailName(status_detail); }
    const std::shared_ptr<MeasurementParameters>& getParameterObject() const { return parameters; }
    /// Moves the error in and sets both status fields; identifier, times and type stay.
    void setFailed(ErrorObject&& failure, JobStatusDetailEnum detail, JobStatusEnum newStatus);
};

/// Writes "job_id", "status", "status_detail", "type", "created", "started", "ended",
/// "error", "options", "job_meta" in this order; parameters and stop conditions are not written.
boost::json::object jobInfoToJson(const JobInfo& info);

/// Reads every key that is present and of the expected kind; the others keep their defaults.
/// Parameters are rebuilt by the JobParameterFactory under "type" and stop conditions by the
/// StopConditionFactory; a parameter object that does not match its record throws the JSON
/// library's error.
JobInfo jobInfoFromJson(const boost::json::object& object);
JobInfo jobInfoFromJson(const boost::json::value& value);

}  // namespace velmar
