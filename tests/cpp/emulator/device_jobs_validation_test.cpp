// Creation-time validation of jobs: the error codes a device answers, via "/job/check_parameters"
// and "/job/start".

#include "device_jobs_bench.hpp"

namespace velmar::emulator::testing {
namespace {

namespace json = boost::json;

struct Refusal {
    const char* what;
    const char* type;
    json::object parameters;
    const char* code;
    json::array stopConditions = {};
};

const json::object kRamp{{"start_value", 0.0},   {"end_value", 0.5},         {"scan_rate", 0.1},
                         {"step_height", 0.0},   {"output_data_rate", 10.0}, {"autorange", true},
                         {"current_range", 0.01}};

json::object with(json::object base, std::string_view key, json::value value) {
    base[key] = std::move(value);
    return base;
}

json::object without(json::object base, std::string_view key) {
    base.erase(key);
    return base;
}

json::array condition(std::string_view type, json::object parameters) {
    return json::array{json::object{{"type", type}, {"parameters", std::move(parameters)}}};
}

TEST(DeviceJobsValidation, RefusalsCarryTheDeviceCodes) {
    const Refusal refusals[] = {
        {"unknown type", "teleport", {}, "TYPE_NAME_UNKNOWN"},
        {"missing key", "ramp", without(kRamp, "scan_rate"), "PARAMETER_MISSING"},
        {"wrong kind", "ramp", with(kRamp, "autorange", "yes"), "PARAMETER_FORMAT_INVALID"},
        {"integer expected",
         "set_led_color",
         {{"red", 1.5}, {"green", 0}, {"blue", 0}},
         "PARAMETER_FORMAT_INVALID"},
        {"LED above 255",
         "set_led_color",
         {{"red", 256}, {"green", 0}, {"blue", 0}},
         "PARAMETER_VALUE_TOO_HIGH"},
        {"LED below 0", "set_led_color", {{"red", 0}, {"green", -1}, {"blue", 0}}, "PARAMETER_VALUE_TOO_LOW"},
        {"scan rate", "ramp", with(kRamp, "scan_rate", 5000.0), "PARAMETER_VALUE_TOO_HIGH"},
        {"output data rate", "ramp", with(kRamp, "output_data_rate", 1e6), "PARAMETER_VALUE_TOO_HIGH"},
        {"output data rate zero",
         "ocv",
         {{"duration", 1.0}, {"output_data_rate", 0.0}},
         "PARAMETER_VALUE_TOO_LOW"},
        {"voltage range index",
         "set_voltage_range",
         {{"potentiostat", "MAIN:1:POT"}, {"index", 3}},
         "PARAMETER_VALUE_TOO_HIGH"},
        {"switch-on range index", "switch_on", with(kSwitchOnMain, "voltage_range_index", 7),
         "PARAMETER_VALUE_TOO_HIGH"},
        {"bias beyond range", "switch_on", with(kSwitchOnMain, "bias", 3.0), "PARAMETER_VALUE_TOO_HIGH"},
        {"coupling name", "switch_on", with(kSwitchOnMain, "coupling", "SIDEWAYS"),
         "PARAMETER_FORMAT_INVALID"},
        {"unknown potentiostat",
         "switch_off",
         {{"potentiostat", "QLC:2:EXT1:POT"}},
         "PARAMETER_SYMBOLIC_PATH_INVALID"},
        {"unknown adc", "get_adc_state", {{"adc", "MUX:9:MUX_U"}}, "PARAMETER_SYMBOLIC_PATH_INVALID"},
        {"unknown channel",
         "measure_integral",
         {{"channel", "MAIN:1:POT:X"}, {"duration", 1.0}},
         "PARAMETER_SYMBOLIC_PATH_INVALID"},
        {"sleep below zero", "sleep", {{"duration", -1.0}}, "PARAMETER_VALUE_TOO_LOW"},
        {"date text", "set_date_time", {{"datetime", "yesterday"}}, "PARAMETER_FORMAT_INVALID"},
        {"firmware resource", "set_firmware_update", {{"resource_id", "no-such-id"}}, "ID_NOT_FOUND"},
        {"calibration type", "calibrate", {{"calibration_type", "gain"}}, "CALIBRATION_TYPE_UNKNOWN"},
        {"wave resource",
         "wave_file",
         {{"output_data_rate", 10.0},
          {"value_rate", 10.0},
          {"repetitions", 1.0},
          {"current_range", 0.01},
          {"resource_id", "nope"},
          {"bias", 0.0}},
         "ID_NOT_FOUND"},
        {"unknown stop condition", "ramp", kRamp, "STOP_CONDITION_MISCONFIGURED",
         condition("sideways", {{"for_dimension", "voltage"}})},
        {"minimum above maximum", "ramp", kRamp, "STOP_CONDITION_MISCONFIGURED",
         condition("min_max", {{"for_dimension", "voltage"}, {"minimum", 3.0}, {"maximum", -2.0}})},
        {"unknown dimension", "ramp", kRamp, "STOP_CONDITION_MISCONFIGURED",
         condition("max", {{"for_dimension", "temperature"}, {"maximum", 1.0}})},
        {"incomplete condition", "ramp", kRamp, "STOP_CONDITION_MISCONFIGURED",
         condition("min", {{"for_dimension", "current"}})},
        {"condition on control job",
         "beep",
         {{"frequency", 440.0}, {"duration", 0.1}},
         "STOP_CONDITION_MISCONFIGURED",
         condition("max", {{"for_dimension", "time"}, {"maximum", 1.0}})},
    };
    JobBench bench;
    for (const auto& refusal : refusals) {
        SCOPED_TRACE(refusal.what);
        EXPECT_EQ(JobBench::code(bench.check(refusal.type, refusal.parameters, refusal.stopConditions)),
                  refusal.code);
    }
}

TEST(DeviceJobsValidation, AcceptedShapes) {
    JobBench bench;
    EXPECT_EQ(
        bench
            .check("ramp", kRamp,
                   condition("min_max", {{"for_dimension", "charge"}, {"minimum", -1.0}, {"maximum", 1.0}}))
            .at("status"),
        "SUCCESS");
    EXPECT_EQ(bench.check("set_date_time", {{"datetime", "2031-02-03T04:05:06.789+01:00"}}).at("status"),
              "SUCCESS");
    EXPECT_EQ(bench.check("switch_all_off").at("status"), "SUCCESS");
    EXPECT_EQ(bench.check("set_led_color", {{"red", 255}, {"green", 128}, {"blue", 0}}).at("status"),
              "SUCCESS");
    // Impedance kinds are checked against their full parameter record.
    const json::object& eis = kEisGenerate;
    EXPECT_EQ(bench.check("eis", eis).at("status"), "SUCCESS");
    EXPECT_EQ(JobBench::code(bench.check("eis", {{"bias", 0.0}})), "PARAMETER_MISSING");
}

TEST(DeviceJobsValidation, MissingKeyNamesTheKey) {
    JobBench bench;
    const auto reply = bench.check("set_led_color", {{"red", 1}, {"green", 0}});
    EXPECT_EQ(reply.at("error").at("message"), "parameter '{0}' missing");
    EXPECT_EQ(reply.at("error").at("message_parameters"), json::array{"blue"});
}

TEST(DeviceJobsValidation, RefusedStartIsAReplyAndAJobDone) {
    JobBench bench;
    const auto reply =
        bench.start("set_led_color", {{"red", 300}, {"green", 0}, {"blue", 0}}, {{"bypass_queue", true}});
    EXPECT_EQ(reply.at("status"), "FAILED");
    EXPECT_EQ(JobBench::code(reply), "PARAMETER_VALUE_TOO_HIGH");
    const auto done = bench.done();
    ASSERT_EQ(done.size(), 1u);
    EXPECT_EQ(done[0].at("request_id"), reply.at("request_id"));
    EXPECT_EQ(done[0].at("status"), "FAILED");
    EXPECT_EQ(done[0].at("status_detail"), "FAILED_TO_CREATE");
    EXPECT_EQ(done[0].at("job_info").at("type"), "set_led_color");
    EXPECT_EQ(done[0].at("job_info").at("options").at("bypass_queue"), true);
    EXPECT_EQ(JobBench::code(done[0]), "PARAMETER_VALUE_TOO_HIGH");
    EXPECT_EQ(done[0].at("job_id").as_string().size(), 36u);
    // A refused job is not kept.
    EXPECT_EQ(JobBench::code(bench.send({{"do", "/job/info"}, {"job_id", done[0].at("job_id")}})),
              "ID_NOT_FOUND");
    EXPECT_TRUE(bench.events("JOB_STATUS_UPDATE").empty());

    const auto noJob = bench.send({{"do", "/job/start"}});
    EXPECT_EQ(JobBench::code(noJob), "PROPERTY_OBJECT_MISSING");
    EXPECT_EQ(bench.done().size(), 2u);
}

}  // namespace
}  // namespace velmar::emulator::testing
