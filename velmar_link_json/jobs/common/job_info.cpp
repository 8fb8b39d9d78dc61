#include "velmar_link_json/jobs/common/job_info.hpp"

#include "json_common/logging/error_object_json.hpp"
#include "velmar_link_json/jobs/common/stop_condition_factory.hpp"
#include "velmar_link_json/jobs/job_parameter_factory.hpp"

#include <boost/json.hpp>

namespace velmar {

namespace json = boost::json;

JobInfo::JobInfo(std::string_view jobId, JobStatusEnum jobStatus, JobStatusDetailEnum detail,
                 std::string_view createdAt, std::string_view startedAt, std::string_view endedAt,
                 std::map<std::string, std::string> meta, ErrorObject&& jobError, std::string_view jobType,
                 std::shared_ptr<MeasurementParameters>&& jobParameters,
                 std::vector<std::shared_ptr<AbstractStopCondition>>&& stopConditions, JobOptions jobOptions)
    : job_id(jobId),
      status(jobStatus),
      status_detail(detail),
      created(createdAt),
      started(startedAt),
      ended(endedAt),
      job_meta(std::move(meta)),
      error(std::move(jobError)),
      stop_conditions(std::move(stopConditions)),
      type(jobType),
      parameters(std::move(jobParameters)),
      options(jobOptions) {}

void JobInfo::setFailed(ErrorObject&& failure, JobStatusDetailEnum detail, JobStatusEnum newStatus) {
    error = std::move(failure);
    status_detail = detail;
    status = newStatus;
}

json::object jobInfoToJson(const JobInfo& info) {
    json::object object;
    object.reserve(10);
    object["job_id"] = info.job_id;
    object["status"] = info.getStatusString();
    object["status_detail"] = info.getStatusDetailString();
    object["type"] = info.type;
    object["created"] = info.created;
    object["started"] = info.started;
    object["ended"] = info.ended;
    object["error"] = errorObjectToJson(info.error);
    object["options"] = json::value_from(info.options);
    json::object meta;
    for (const auto& [key, value] : info.job_meta) meta[key] = value;
    object["job_meta"] = std::move(meta);
    return object;
}

namespace {
void readText(const json::object& object, std::string_view key, std::string& out) {
    if (const auto* value = object.if_contains(key); value != nullptr && value->is_string()) {
        out = std::string(value->get_string());
    }
}
}  // namespace

JobInfo jobInfoFromJson(const json::object& object) {
    JobInfo info;
    readText(object, "job_id", info.job_id);
    if (const auto* status = object.if_contains("status"); status != nullptr && status->is_string()) {
        if (const auto value = jobStatusFromName(std::string_view(status->get_string()))) info.status = *value;
    }
    if (const auto* detail = object.if_contains("status_detail"); detail != nullptr && detail->is_string()) {
        if (const auto value = jobStatusDetailFromName(std::string_view(detail->get_string()))) {
            info.status_detail = *value;
        }
    }
    if (const auto* meta = object.if_contains("job_meta"); meta != nullptr && meta->is_object()) {
        for (const auto& member : meta->get_object()) {
            if (member.value().is_string()) info.job_meta[std::string(member.key())] = std::string(member.value().get_string());
        }
    }
    if (const auto* error = object.if_contains("error"); error != nullptr && error->is_object()) {
        info.error = errorObjectFromJson(*error);
    }
    readText(object, "created", info.created);
    readText(object, "type", info.type);
    readText(object, "started", info.started);
    readText(object, "ended", info.ended);
    if (const auto* parameters = object.if_contains("parameters"); parameters != nullptr && parameters->is_object()) {
        info.parameters = JobParameterFactory::getInstance().build(info.type, *parameters);
    }
    if (const auto* conditions = object.if_contains("stop_conditions");
        conditions != nullptr && conditions->is_array()) {
        for (const auto& element : conditions->get_array()) {
            const auto* condition = element.if_object();
            if (condition == nullptr) continue;
            const auto* type = condition->if_contains("type");
            const auto* parameters = condition->if_contains("parameters");
            if (type == nullptr || !type->is_string() || parameters == nullptr) continue;
            // An unknown condition type is dropped.
            if (auto built = StopConditionFactory::getInstance().build(std::string_view(type->get_string()), *parameters)) {
                info.stop_conditions.push_back(std::move(built));
            }
        }
    }
    if (const auto* options = object.if_contains("options"); options != nullptr && options->is_object()) {
        info.options = jobOptionsFromJson(*options);
    }
    return info;
}

JobInfo jobInfoFromJson(const json::value& value) {
    if (const auto* object = value.if_object()) return jobInfoFromJson(*object);
    return {};
}

}  // namespace velmar
