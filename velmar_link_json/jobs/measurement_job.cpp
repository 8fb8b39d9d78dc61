#include "velmar_link_json/jobs/measurement_job.hpp"

#include "json_common/logging/error_formatters.hpp"

#include <boost/json.hpp>

namespace velmar {

boost::json::object makeJobRequestObject(std::string_view doPath, std::string_view type,
                                         boost::json::object parameters, boost::json::array stopConditions,
                                         boost::json::object jobMeta, const JobOptions& options) {
    boost::json::object job;
    job.reserve(4);
    job["type"] = type;
    job["parameters"] = std::move(parameters);
    job["stop_conditions"] = std::move(stopConditions);
    job["job_meta"] = std::move(jobMeta);
    boost::json::object request;
    request["do"] = doPath;
    request["job"] = std::move(job);
    mergeJobOptions(request, options);
    return request;
}

boost::json::object makeJobRequestObject(std::string_view doPath, const AbstractMeasurementJob& job) {
    return makeJobRequestObject(doPath, job.getName(), job.getParameterObject(), job.getStopConditionsArray(),
                                job.getMetaDataObject(), job.getJobOptions());
}

MeasurementJob::MeasurementJob(std::map<std::string, std::string> metaData, StopConditionList stopConditions,
                               JobOptions options)
    : stopConditions_(std::move(stopConditions)), metaData_(std::move(metaData)), options_(options) {}

void MeasurementJob::processJobResult(const boost::json::object& message) {
    if (const auto* info = message.if_contains("job_info"); info != nullptr && info->is_object()) {
        lastJobInfo_ = jobInfoFromJson(info->get_object());
    }
}

std::string MeasurementJob::getLastJobErrorMessage() const {
    return ErrorFormatters::defaultFormatter().getFormatted(lastJobInfo_.error);
}

boost::json::object MeasurementJob::getMetaDataObject() const {
    boost::json::object meta;
    for (const auto& [key, value] : metaData_) meta[key] = value;
    return meta;
}

boost::json::array MeasurementJob::getStopConditionsArray() const {
    boost::json::array array;
    array.reserve(stopConditions_.size());
    for (const auto& condition : stopConditions_) {
        if (condition) array.push_back(condition->toJson());
    }
    return array;
}

void MeasurementJob::setFailed(ErrorObject&& error, JobStatusDetailEnum detail) {
    lastJobInfo_.setFailed(std::move(error), detail, JobStatusEnum::FAILED);
}

}  // namespace velmar
