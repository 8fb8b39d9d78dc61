// Device limits: one small request must not make the emulator compute or allocate without
// bound. Each refusal carries the device's code and names the parameter (or the derived
// quantity "steps", "duration", "points"); nothing is built for a refused job.

#include "device_jobs_bench.hpp"
#include "emulator/device_jobs/device_limits.hpp"

#include <cstdint>
#include <limits>

namespace velmar::emulator::testing {
namespace {

namespace json = boost::json;


json::object with(json::object base, std::initializer_list<std::pair<std::string_view, json::value>> changes) {
    for (const auto& [key, value] : changes) base[key] = value;
    return base;
}

const json::object kCv{{"start_value", 0.0},      {"first_vertex", 0.5},    {"second_vertex", -0.5},
                       {"end_value", 0.0},        {"scan_rate", 0.1},       {"output_data_rate", 10.0},
                       {"num_cycles", 1.0},       {"autorange", true},      {"current_range", 0.01},
                       {"turn_limit_check", false}, {"upper_turn_boundary", 0.0}, {"lower_turn_boundary", 0.0},
                       {"step_height", 0.0},      {"ir_drop", 0.0}};
const json::object kFastCycling{{"first_step", 0.5},      {"second_step", -0.5},        {"end_value", 0.0},
                                {"step_time", 0.1},       {"output_data_rate", 10.0},   {"num_cycles", 1.0},
                                {"autorange", true},      {"current_range", 0.01},      {"turn_limit_check", false},
                                {"upper_turn_boundary", 0.0}, {"lower_turn_boundary", 0.0}};
const json::object kRamp{{"start_value", 0.0}, {"end_value", 0.5},         {"scan_rate", 0.1}, {"step_height", 0.0},
                         {"output_data_rate", 10.0}, {"autorange", true}, {"current_range", 0.01}};
const json::object kStairs{{"start_value", 0.0}, {"end_value", 0.5},         {"step_time", 0.1},
                           {"step_height", 0.1}, {"hold_time", 0.0},         {"stability_tolerance", 0.01},
                           {"output_data_rate", 10.0}, {"autorange", true}, {"current_range", 0.01},
                           {"ir_drop", 0.0}};
const json::object kNpv{{"base_value", 0.0}, {"start_value", 0.0}, {"step_value", 0.1},       {"end_value", 0.5},
                        {"step_time", 0.2},  {"pulse_time", 0.1},  {"output_data_rate", 10.0}, {"current_range", 0.01}};
const json::object kSwv{{"start_value", 0.0}, {"step_value", 0.1}, {"amplitude", 0.02}, {"end_value", 0.5},
                        {"period", 0.2}, {"output_data_rate", 10.0}, {"current_range", 0.01}};
const json::object kAcCv{{"start_value", 0.0}, {"first_vertex", 0.5}, {"second_vertex", -0.5},
                         {"end_value", 0.0},   {"scan_rate", 0.1},    {"output_data_rate", 10.0},
                         {"num_cycles", 1.0},  {"amplitude", 0.01},   {"frequency", 10.0},
                         {"current_range", 0.01}};
const json::object kOcv{{"duration", 1.0}, {"output_data_rate", 10.0}};
const json::object kWave{{"output_data_rate", 10.0}, {"value_rate", 10.0}, {"repetitions", 1.0},
                         {"current_range", 0.01},    {"values", json::array{0.1, 0.2}}, {"bias", 0.0}};
const json::object& kEis = kEisGenerate;

constexpr std::uint64_t kU64Max = std::numeric_limits<std::uint64_t>::max();

json::object eisTable(std::size_t points) {
    json::array spectrum;
    for (std::size_t i = 0; i < points; ++i) {
        spectrum.push_back({{"frequency", 100.0},   {"amplitude", 0.01}, {"pre_duration", 0.1},
                            {"pre_waves", 1},       {"meas_duration", 1.0}, {"meas_waves", 5}});
    }
    return {{"bias", 0.0}, {"frequency_range", {{"type", "table"}, {"spectrum", std::move(spectrum)}}}};
}


TEST(DeviceJobsLimits, HugeCountsAreRefusedBeforeAnythingIsBuilt) {
    const RefusalCase cases[] = {
        {"cycles 5e6", "cv", with(kCv, {{"num_cycles", 5e6}}), "PARAMETER_VALUE_TOO_HIGH", "num_cycles"},
        {"cycles 1e12", "cv", with(kCv, {{"num_cycles", 1e12}}), "PARAMETER_VALUE_TOO_HIGH", "num_cycles"},
        {"cycles 1e300", "ac_cv", with(kAcCv, {{"num_cycles", 1e300}}), "PARAMETER_VALUE_TOO_HIGH", "num_cycles"},
        {"cycles 2^64-1", "fast_cycling", with(kFastCycling, {{"num_cycles", kU64Max}}), "PARAMETER_VALUE_TOO_HIGH",
         "num_cycles"},
        {"negative cycles", "cv", with(kCv, {{"num_cycles", -1}}), "PARAMETER_VALUE_TOO_LOW", "num_cycles"},
        {"repetitions 1e300", "wave", with(kWave, {{"repetitions", 1e300}}), "PARAMETER_VALUE_TOO_HIGH",
         "repetitions"},
        {"points per decade", "eis",
         with(kEis, {{"frequency_range", with(kEis.at("frequency_range").as_object(),
                                              {{"points_per_decade_upper", 1000000}})}}),
         "PARAMETER_VALUE_TOO_HIGH", "points_per_decade_upper"},
        {"spectrum table", "eis_table", eisTable(10001), "PARAMETER_VALUE_TOO_HIGH", "points"},
        {"LED 2^64-1", "set_led_color", {{"red", kU64Max}, {"green", 0}, {"blue", 0}}, "PARAMETER_VALUE_TOO_HIGH",
         "red"},
        {"current range index 2^64-1", "set_active_current_ranges",
         {{"potentiostat", "MAIN:1:POT"}, {"indexes", json::array{0, kU64Max}}}, "PARAMETER_VALUE_TOO_HIGH",
         "indexes"},
        {"beep frequency", "beep", {{"frequency", 1e300}, {"duration", 0.1}}, "PARAMETER_VALUE_TOO_HIGH",
         "frequency"},
    };
    JobBench bench;
    expectRefusals(bench, cases);
}

TEST(DeviceJobsLimits, TinyStepsAndLongRunsAreRefusedByWhatTheyWouldCost) {
    const RefusalCase cases[] = {
        {"staircase step 1e-12", "ramp", with(kRamp, {{"step_height", 1e-12}}), "PARAMETER_VALUE_TOO_LOW",
         "step_height"},
        {"staircase step 1e-300", "cv", with(kCv, {{"step_height", 1e-300}}), "PARAMETER_VALUE_TOO_LOW",
         "step_height"},
        {"pulse step", "npv", with(kNpv, {{"step_value", 1e-300}}), "PARAMETER_VALUE_TOO_LOW", "step_value"},
        {"square-wave step", "swv", with(kSwv, {{"step_value", 0.0}}), "PARAMETER_VALUE_TOO_LOW", "step_value"},
        {"million-cycle staircase", "cv",
         with(kCv, {{"num_cycles", 100000}, {"step_height", 1e-4}, {"scan_rate", 1000.0}}),
         "PARAMETER_VALUE_TOO_HIGH", "steps"},
        {"20 V in 1 uV stairs", "steady_stairs",
         with(kStairs, {{"start_value", -10.0}, {"end_value", 10.0}, {"step_height", 1e-6}}),
         "PARAMETER_VALUE_TOO_HIGH", "steps"},
        {"slowest sweep over 20 V", "ramp",
         with(kRamp, {{"start_value", -10.0}, {"end_value", 10.0}, {"scan_rate", 1e-6}}),
         "PARAMETER_VALUE_TOO_HIGH", "duration"},
        {"a week at 10 kHz", "ocv", with(kOcv, {{"duration", 604800.0}, {"output_data_rate", 10000.0}}),
         "PARAMETER_VALUE_TOO_HIGH", "points"},
        {"one row too many", "ocv", with(kOcv, {{"duration", 1000.0}, {"output_data_rate", 10000.0}}),
         "PARAMETER_VALUE_TOO_HIGH", "points"},
        {"long fast sine", "ac_cv",
         with(kAcCv, {{"frequency", 10000.0}, {"num_cycles", 100}, {"output_data_rate", 1.0}}),
         "PARAMETER_VALUE_TOO_HIGH", "steps"},
        {"wave repeated too often", "wave",
         with(kWave, {{"repetitions", 100000}, {"values", json::array(200, json::value(0.1))},
                      {"value_rate", 100000.0}}),
         "PARAMETER_VALUE_TOO_HIGH", "steps"},
        {"output data rate", "poga",
         {{"bias", 0.0}, {"duration", 1.0}, {"output_data_rate", 1e6}, {"autorange", true},
          {"current_range", 0.01}},
         "PARAMETER_VALUE_TOO_HIGH", "output_data_rate"},
        {"set-point beyond the device", "ramp", with(kRamp, {{"end_value", 1e300}}), "PARAMETER_VALUE_TOO_HIGH",
         "end_value"},
    };
    JobBench bench;
    expectRefusals(bench, cases);
}

TEST(DeviceJobsLimits, TheLimitsThemselvesAreAccepted) {
    const std::pair<const char*, json::object> accepted[] = {
        {"cv", with(kCv, {{"num_cycles", 100000}, {"scan_rate", 1000.0}})},
        {"ocv", with(kOcv, {{"duration", 999.9999}, {"output_data_rate", 10000.0}})},
        {"ramp", with(kRamp, {{"step_height", 1e-6}, {"end_value", 0.1}, {"scan_rate", 1.0}})},
        {"fast_cycling", with(kFastCycling, {{"num_cycles", 100000}, {"step_time", 1e-3}})},
        {"wave", with(kWave, {{"repetitions", 100000}, {"values", json::array(100, json::value(0.1))},
                              {"value_rate", 100000.0}})},
        {"eis_table", eisTable(10000)},
    };
    JobBench bench;
    for (const auto& [type, parameters] : accepted) {
        SCOPED_TRACE(type);
        EXPECT_EQ(bench.check(type, parameters).at("status"), "SUCCESS");
    }
}

// Texts that no double holds (1e999) arrive as non-finite numbers; the refusal names the JSON
// path of the value.
TEST(DeviceJobsLimits, NonFiniteNumbersAreNotANumberWithTheirPath) {
    JobBench bench;
    const auto send = [&](std::string text) {
        bench.model.handleText(bench.client.id, text);
        return bench.client.peer->texts().back().as_object();
    };
    auto reply = send(R"({"do":"/job/check_parameters","request_id":"a","job":{"type":"ramp","parameters":)"
                      R"({"start_value":0,"end_value":0.5,"scan_rate":1e999,"step_height":0,"output_data_rate":10,)"
                      R"("autorange":true,"current_range":0.01}}})");
    EXPECT_EQ(JobBench::code(reply), "PARAMETER_IS_NOT_A_NUMBER");
    EXPECT_EQ(reply.at("error").at("message"), "parameter '{0}' is not a number");
    EXPECT_EQ(reply.at("error").at("message_parameters"), json::array{"job/parameters/scan_rate"});

    // A refused start still ends its job with a JOB_DONE.
    const auto before = bench.done().size();
    json::object start{{"do", "/job/start"}, {"request_id", "s"}, {"job", JobBench::job("ramp", kRamp)}};
    start.at("job").as_object()["stop_conditions"] = json::array{
        json::object{{"type", "max"}, {"parameters", {{"for_dimension", "current"}, {"maximum", "@"}}}}};
    auto text = json::serialize(start);
    text.replace(text.find("\"@\""), 3, "-1e999");
    reply = send(text);
    for (const auto& frame : bench.client.peer->texts()) {
        if (frame.at("type") == "REPLY" && frame.at("request_id") == "s") reply = frame.as_object();
    }
    EXPECT_EQ(JobBench::code(reply), "PARAMETER_IS_NOT_A_NUMBER");
    EXPECT_EQ(reply.at("error").at("message_parameters"), json::array{"job/stop_conditions/0/parameters/maximum"});
    ASSERT_EQ(bench.done().size(), before + 1);
    EXPECT_EQ(bench.done().back().at("status_detail"), "FAILED_TO_CREATE");

    // Any other request too.
    reply = send(R"({"do":"/settings/set","request_id":"b","settings":{"fan_curve_temperature_low":-1e999}})");
    EXPECT_EQ(JobBench::code(reply), "PARAMETER_IS_NOT_A_NUMBER");
    EXPECT_EQ(reply.at("error").at("message_parameters"), json::array{"settings/fan_curve_temperature_low"});
    reply = send(R"({"do":"/WAVE/get","request_id":"c","resource_id":"x","offset":[1,2,1e400]})");
    EXPECT_EQ(reply.at("error").at("message_parameters"), json::array{"offset/2"});
}

}  // namespace
}  // namespace velmar::emulator::testing
