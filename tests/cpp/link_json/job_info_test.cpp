#include "json_common/job_parameters/measurement_parameters.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"
#include "velmar_link_json/jobs/common/stop_conditions.hpp"
#include "velmar_link_json/jobs/measurement_job.hpp"

#include <gtest/gtest.h>

#include <boost/json.hpp>

namespace velmar {
namespace {

namespace json = boost::json;

TEST(JobInfoJson, DefaultWritesUnknownNotFinishedAndEmptyMeta) {
    const auto object = jobInfoToJson(JobInfo{});
    std::vector<std::string> keys;
    for (const auto& member : object) keys.emplace_back(member.key());
    EXPECT_EQ(keys, (std::vector<std::string>{"job_id", "status", "status_detail", "type", "created", "started",
                                              "ended", "error", "options", "job_meta"}));
    EXPECT_EQ(object.at("status"), "UNKNOWN");
    EXPECT_EQ(object.at("status_detail"), "NOT_FINISHED");
    EXPECT_EQ(object.at("job_meta"), json::object());
    EXPECT_EQ(object.at("options"), json::object());
}

TEST(JobInfoJson, ReadsEveryKeyOfTheExpectedKind) {
    const auto info = jobInfoFromJson(json::parse(R"({
        "job_id": "j-1", "status": "FAILED", "status_detail": "FUNCTIONAL_LIMIT_OCCURRED", "type": "cv",
        "created": "c", "started": "s", "ended": "e", "job_meta": {"a": "b", "n": 1},
        "error": {"number": 65537, "code": "STOP_CONDITION_TRIGGERED", "message": "stop"},
        "options": {"bypass_queue": true},
        "parameters": {"start_value":0,"first_vertex":1,"second_vertex":-1,"end_value":0,"scan_rate":0.1,
                       "output_data_rate":10,"num_cycles":2.5,"autorange":true,"current_range":0.01,
                       "turn_limit_check":false,"upper_turn_boundary":0,"lower_turn_boundary":0,"step_height":0,
                       "ir_drop":0},
        "stop_conditions": [{"type": "min_max", "parameters": {"for_dimension": "voltage", "minimum": -2.0, "maximum": 3.0}},
                            {"type": "teleport", "parameters": {}}]})"));
    EXPECT_EQ(info.job_id, "j-1");
    EXPECT_EQ(info.status, JobStatusEnum::FAILED);
    EXPECT_EQ(info.status_detail, JobStatusDetailEnum::FUNCTIONAL_LIMIT_OCCURRED);
    EXPECT_EQ(info.created + info.started + info.ended, "cse");
    EXPECT_EQ(info.job_meta, (std::map<std::string, std::string>{{"a", "b"}}));
    EXPECT_EQ(info.error.code, ErrorCodeEnum::STOP_CONDITION_TRIGGERED);
    EXPECT_TRUE(info.options.bypass_queue);
    ASSERT_NE(info.parameters, nullptr);
    EXPECT_EQ(info.parameters->getParameterObject().at("num_cycles"), 2.5);
    // The unknown condition type is dropped.
    ASSERT_EQ(info.stop_conditions.size(), 1U);
    EXPECT_EQ(info.stop_conditions[0]->getTypeName(), "min_max");
    EXPECT_EQ(info.stop_conditions[0]->getParameterObject().at("maximum"), 3.0);
}

TEST(JobInfoJson, IllTypedKeysKeepTheirDefaults) {
    const auto info = jobInfoFromJson(json::parse(R"({"job_id": 5, "status": "RUNNING!", "status_detail": 1,
        "type": ["cv"], "created": null, "job_meta": [], "error": "boom", "options": true, "stop_conditions": {}})"));
    EXPECT_EQ(info.job_id, "");
    EXPECT_EQ(info.status, JobStatusEnum::UNKNOWN);
    EXPECT_EQ(info.status_detail, JobStatusDetailEnum::NOT_FINISHED);
    EXPECT_EQ(info.type, "");
    EXPECT_TRUE(info.job_meta.empty());
    EXPECT_FALSE(info.error);
    EXPECT_EQ(info.options, JobOptions{});
    EXPECT_TRUE(info.stop_conditions.empty());
    EXPECT_EQ(jobInfoFromJson(json::value("not an object")).status, JobStatusEnum::UNKNOWN);
}

TEST(JobInfoJson, RebootHasNoParameterObject) {
    const auto info = jobInfoFromJson(json::parse(R"({"type": "reboot", "parameters": {}})"));
    EXPECT_EQ(info.parameters, nullptr);
}

TEST(JobInfoJson, ParametersThatDoNotMatchTheirRecordThrow) {
    EXPECT_ANY_THROW(jobInfoFromJson(json::parse(R"({"type": "beep", "parameters": {"frequency": "loud"}})")));
}

TEST(JobInfoJson, RoundTripKeepsTheWrittenFields) {
    JobInfo info("id", JobStatusEnum::FINISHED, JobStatusDetailEnum::RUN_TO_COMPLETION, "c", "s", "e", {{"k", "v"}},
                 ErrorObject(), "ocv", nullptr, {}, JobOptions{false, true});
    const auto back = jobInfoFromJson(jobInfoToJson(info));
    EXPECT_EQ(jobInfoToJson(back), jobInfoToJson(info));
}

class ControlJobStub : public MeasurementJob {
public:
    std::string_view getName() const override { return "stub"; }
    boost::json::object getParameterObject() const override { return {}; }
};

TEST(MeasurementJob, CompletionWithoutJobInfoLeavesTheStoredInformation) {
    ControlJobStub job;
    job.processJobResult(json::parse(R"({"job_info": {"job_id": "x", "status": "RUNNING"}})").as_object());
    job.processJobResult(json::parse(R"({"type": "JOB_DONE", "status": "FINISHED"})").as_object());
    EXPECT_EQ(job.getLastJobInfo().job_id, "x");
    EXPECT_EQ(job.getLastJobStatus(), JobStatusEnum::RUNNING);
}

TEST(MeasurementJob, SetFailedChangesStatusAndErrorOnly) {
    ControlJobStub job;
    job.processJobResult(json::parse(R"({"job_info": {"job_id": "x", "type": "stub", "created": "t"}})").as_object());
    job.setFailed(ErrorObject(ErrorCodeEnum::QUEUE_FULL, "full"), JobStatusDetailEnum::FAILED_TO_CREATE);
    const auto& info = job.getLastJobInfo();
    EXPECT_EQ(info.status, JobStatusEnum::FAILED);
    EXPECT_EQ(info.status_detail, JobStatusDetailEnum::FAILED_TO_CREATE);
    EXPECT_EQ(info.job_id, "x");
    EXPECT_EQ(info.created, "t");
    EXPECT_EQ(job.getLastJobErrorMessage(), "full");
    EXPECT_FALSE(job.wasSuccessful());
    EXPECT_EQ(job.getType(), 2);
}

TEST(MeasurementJob, WasSuccessfulOnlyForFinishedWhateverTheDetail) {
    ControlJobStub job;
    job.processJobResult(json::parse(R"({"job_info": {"status": "FINISHED", "status_detail": "RUNTIME_ERROR"}})").as_object());
    EXPECT_TRUE(job.wasSuccessful());
}

}  // namespace
}  // namespace velmar
