#include "json_common/jobs/job_options.hpp"

#include <boost/json.hpp>

namespace velmar {

namespace json = boost::json;

namespace {
bool readFlag(const json::object& object, std::string_view key) {
    const auto* value = object.if_contains(key);
    return value != nullptr && value->is_bool() && value->get_bool();
}
}  // namespace

JobOptions jobOptionsFromJson(const json::value& jv) {
    const auto* object = jv.if_object();
    if (object == nullptr) return {};
    return JobOptions{readFlag(*object, "bypass_queue"), readFlag(*object, "discard_result_data")};
}

void mergeJobOptions(json::object& request, const JobOptions& options) {
    if (options.bypass_queue) request["bypass_queue"] = true;
    if (options.discard_result_data) request["discard_result_data"] = true;
}

void tag_invoke(const json::value_from_tag&, json::value& jv, const JobOptions& options) {
    json::object object;
    mergeJobOptions(object, options);
    jv = std::move(object);
}

JobOptions tag_invoke(const json::value_to_tag<JobOptions>&, const json::value& jv) { return jobOptionsFromJson(jv); }

}  // namespace velmar
