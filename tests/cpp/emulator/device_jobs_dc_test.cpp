// DC measurements through the job queue: live data on the virtual clock, stop conditions, the
// result resource, and the executor registry.

#include "device_jobs_bench.hpp"
#include "emulator/device_jobs/stop_condition_monitor.hpp"

#include <algorithm>
#include <cstring>

namespace velmar::emulator::testing {
namespace {

namespace json = boost::json;

// 0 V to 0.5 V at 0.5 V/s with 20 rows/s: 1 s, 21 rows.
const json::object kRamp{{"start_value", 0.0},   {"end_value", 0.5},         {"scan_rate", 0.5},
                         {"step_height", 0.0},   {"output_data_rate", 20.0}, {"autorange", true},
                         {"current_range", 0.01}};

std::vector<json::array> rowsOf(const JobBench& bench) {
    std::vector<json::array> rows;
    for (const auto& event : bench.events("LIVE_DATA_ROWS")) {
        for (const auto& row : event.at("data").as_array()) rows.push_back(row.as_array());
    }
    return rows;
}

TEST(DeviceJobsDc, LiveDataFollowsTheClockAndTheResultPrecedesJobDone) {
    JobBench bench;
    const auto jobId = bench.start("ramp", kRamp, {}).at("job_id");
    bench.clock.advance(1ms);
    ASSERT_EQ(bench.events("LIVE_DATA_HEADER").size(), 1u);
    const auto header = bench.events("LIVE_DATA_HEADER").front();
    EXPECT_EQ(header.at("job_info").at("status"), "RUNNING");
    EXPECT_EQ(header.at("header").at("columns").at("units"), (json::array{"s", "V", "A"}));

    bench.clock.advance(500ms);
    const auto early = rowsOf(bench).size();
    EXPECT_GT(early, 5u);
    EXPECT_LT(early, 21u) << "rows arrive as emulated time passes";
    EXPECT_GE(bench.events("LIVE_DATA_ROWS").size(), 2u) << "several blocks per second";
    bench.clock.runUntilIdle();

    const auto rows = rowsOf(bench);
    ASSERT_EQ(rows.size(), 21u);
    EXPECT_DOUBLE_EQ(rows[10].at(1).as_double(), 0.25);
    EXPECT_NEAR(rows[10].at(2).as_double(), 0.25e-3, 1e-12);

    const auto done = bench.doneOf(jobId);
    ASSERT_EQ(done.at("status"), "FINISHED");
    const auto resourceId = done.at("job_info").at("result_resource_id").as_string();
    auto resource = bench.model.resources().info(ResourceTypeEnum::JOB_RESULT, resourceId);
    ASSERT_TRUE(resource);
    EXPECT_EQ(resource->subType, "DATASET_DC");
    EXPECT_EQ(resource->jobId, jobId.as_string());
    EXPECT_EQ(resource->header.at("number_of_rows"), 21);
    EXPECT_EQ(resource->header.at("job_info").at("status"), "FINISHED");
    ASSERT_EQ(resource->size, 21u * 3u * 8u);
    const auto content =
        bench.model.resources().download(ResourceTypeEnum::JOB_RESULT, resourceId, 0).value();
    double lastVoltage = 0.0;
    std::memcpy(&lastVoltage, content.payload.owner->data() + (2 * 21 - 1) * 8, 8);
    EXPECT_DOUBLE_EQ(lastVoltage, 0.5);

    // LIVE_DATA_FINISHED, with the final information, comes before the job's end is announced.
    const auto finished = bench.events("LIVE_DATA_FINISHED");
    ASSERT_EQ(finished.size(), 1u);
    EXPECT_EQ(finished[0].at("job_info").at("result_resource_id"), resourceId);
}

TEST(DeviceJobsDc, StopKeepsThePartialResult) {
    JobBench bench;
    const auto jobId = bench.start("ramp", kRamp).at("job_id");
    bench.clock.advance(300ms);
    bench.model.handleText(bench.client.id, R"({"do":"/stop","queue":"flush"})");
    const auto done = bench.doneOf(jobId);
    EXPECT_EQ(done.at("status_detail"), "STOPPED_BY_USER");
    const auto rows = rowsOf(bench).size();
    EXPECT_LT(rows, 21u);
    const auto resource = bench.model.resources().info(
        ResourceTypeEnum::JOB_RESULT, done.at("job_info").at("result_resource_id").as_string());
    ASSERT_TRUE(resource);
    EXPECT_EQ(resource->header.at("number_of_rows"), rows);
    bench.clock.runUntilIdle();
    EXPECT_EQ(rowsOf(bench).size(), rows) << "no rows after the stop";
}

TEST(DeviceJobsDc, StopConditionEndsTheJobWithTheTriggeringRow) {
    JobBench bench;
    const json::array conditions{
        {{"type", "max"}, {"parameters", {{"for_dimension", "voltage"}, {"maximum", 0.2}}}}};
    const auto jobId = bench.start("ramp", kRamp, {{"discard_result_data", true}}, conditions).at("job_id");
    bench.clock.runUntilIdle();
    const auto done = bench.doneOf(jobId);
    EXPECT_EQ(done.at("status"), "FAILED");
    EXPECT_EQ(done.at("status_detail"), "FUNCTIONAL_LIMIT_OCCURRED");
    EXPECT_EQ(JobBench::code(done), "STOP_CONDITION_TRIGGERED");
    const auto rows = rowsOf(bench);
    ASSERT_FALSE(rows.empty());
    EXPECT_NEAR(rows.back().at(1).as_double(), 0.225, 1e-12);  // first row above 0.2 V
    EXPECT_FALSE(done.at("job_info").as_object().contains("result_resource_id"));
    EXPECT_TRUE(bench.model.resources().list(ResourceTypeEnum::JOB_RESULT).empty());
}

TEST(DeviceJobsDc, WaveFileReadsItsResource) {
    JobBench bench;
    const auto wave = bench.model.resources().create(ResourceTypeEnum::WAVE, "steps", "test").value();
    const double values[] = {0.1, 0.2, 0.3};
    ASSERT_FALSE(bench.model.resources().appendBytes(
        ResourceTypeEnum::WAVE, wave.resourceId,
        std::string_view(reinterpret_cast<const char*>(values), sizeof(values))));
    const json::object parameters{
        {"output_data_rate", 10.0},       {"value_rate", 10.0}, {"repetitions", 1.0}, {"current_range", 0.01},
        {"resource_id", wave.resourceId}, {"bias", 0.0}};
    const auto jobId = bench.start("wave_file", parameters).at("job_id");
    bench.clock.runUntilIdle();
    EXPECT_EQ(bench.doneOf(jobId).at("status"), "FINISHED");
    const auto rows = rowsOf(bench);
    ASSERT_GE(rows.size(), 3u);
    EXPECT_DOUBLE_EQ(rows.front().at(1).as_double(), 0.1);
    double highest = 0.0;
    for (const auto& row : rows) highest = std::max(highest, row.at(1).as_double());
    EXPECT_DOUBLE_EQ(highest, 0.3);
}

TEST(DeviceJobsDc, KindsWithoutExecutorFailAtRunTimeAndRegistrationsReplace) {
    JobBench bench;
    const json::object& eis = kEisGenerate;
    bench.queue->executors().add("eis", {.validate = nullptr, .create = nullptr});
    const auto unemulated = bench.start("eis", eis).at("job_id");
    bench.clock.runUntilIdle();
    EXPECT_EQ(bench.doneOf(unemulated).at("status_detail"), "RUNTIME_ERROR");

    bench.queue->executors().add("eis", {.validate =
                                             [](const ExecutorSetup&) {
                                                 return ErrorObject(
                                                     ErrorCodeEnum::PARAMETER_CONSTRAINT_VIOLATED,
                                                     "refused by the test");
                                             },
                                         .create = nullptr});
    EXPECT_EQ(JobBench::code(bench.check("eis", eis)), "PARAMETER_CONSTRAINT_VIOLATED");
}

TEST(StopConditionMonitor, ChargeIntegralAndStability) {
    const auto conditions = json::parse(R"([
        {"type":"integrating","parameters":{"for_dimension":"current","over_dimension":"time","maximum":0.0025}},
        {"type":"min_max","parameters":{"for_dimension":"charge","minimum":-1.0,"maximum":0.004}}])")
                                .as_array();
    StopConditionMonitor monitor(conditions, {"time", "voltage", "current"});
    // 1 mA constant: the integral passes 2.5 mC between t = 2 and t = 3.
    for (int t = 0; t <= 2; ++t) EXPECT_FALSE(monitor.feed(std::vector<double>{double(t), 1.0, 1e-3})) << t;
    const auto met = monitor.feed(std::vector<double>{3.0, 1.0, 1e-3});
    ASSERT_TRUE(met);
    EXPECT_EQ(met->code, ErrorCodeEnum::STOP_CONDITION_TRIGGERED);
    EXPECT_EQ(std::get<std::string>(met->message_parameters.at(0)), "integrating");

    StopConditionMonitor stability(json::parse(R"([{"type":"stability_tolerance","parameters":
        {"for_dimension":"voltage","stability_tolerance":0.01,"minimum_duration":2.0}}])")
                                       .as_array(),
                                   {"time", "voltage", "current"});
    EXPECT_FALSE(stability.feed(std::vector<double>{0.0, 1.0, 0.0}));
    EXPECT_FALSE(stability.feed(std::vector<double>{1.0, 1.0, 0.0})) << "before the minimum duration";
    EXPECT_FALSE(stability.feed(std::vector<double>{2.0, 1.5, 0.0})) << "still changing";
    EXPECT_TRUE(stability.feed(std::vector<double>{3.0, 1.505, 0.0}));
}

}  // namespace
}  // namespace velmar::emulator::testing
