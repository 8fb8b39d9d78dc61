// The wire form of every shared record against golden frames written by hand in
// tests/data/golden: each record is built here and serialised, then compared with its frame as
// parsed JSON (kinds included: 1 and 1.0 differ) and, where the order of the keys is fixed, key
// by key; each frame is also read back and written again. A mistake shared by the client and
// the emulator cannot pass these, because the frames come from neither.

#include "json_common/configuration/workstation_info.hpp"
#include "json_common/jobs/job_options.hpp"
#include "json_common/logging/error_object_json.hpp"
#include "json_common/protocol/column_header.hpp"
#include "json_common/protocol/live_data_header.hpp"
#include "json_common/resources/resource.hpp"
#include "settings/settings_set.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"
#include "velmar_link_json/jobs/common/stop_condition_factory.hpp"
#include "velmar_link_json/jobs/common/stop_conditions.hpp"
#include "velmar_link_json/jobs/control/control_jobs.hpp"
#include "velmar_link_json/jobs/measurement_job_template_impl.hpp"
#include "velmar_link_json/jobs/measurement_jobs.hpp"

#include <gtest/gtest.h>

#include <boost/json.hpp>

#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace velmar {
namespace {

namespace json = boost::json;

json::value golden(const std::string& name) {
    std::ifstream file(std::string(VELMAR_GOLDEN_DIR) + "/" + name);
    EXPECT_TRUE(file) << "golden frame " << name << " missing";
    std::stringstream text;
    text << file.rdbuf();
    return json::parse(text.str());
}

/// Every object below `value` lists its keys in the order of the same object in `expected`.
::testing::AssertionResult sameKeyOrder(const json::value& value, const json::value& expected,
                                        const std::string& path = "") {
    if (value.is_object() && expected.is_object()) {
        std::vector<std::string> got, want;
        for (const auto& member : value.get_object()) got.emplace_back(member.key());
        for (const auto& member : expected.get_object()) want.emplace_back(member.key());
        if (got != want) {
            std::string text = "key order at '" + path + "':";
            for (const auto& key : got) text += " " + key;
            text += " instead of";
            for (const auto& key : want) text += " " + key;
            return ::testing::AssertionFailure() << text;
        }
        for (const auto& member : value.get_object()) {
            auto nested = sameKeyOrder(member.value(), expected.get_object().at(member.key()),
                                       path + "/" + std::string(member.key()));
            if (!nested) return nested;
        }
    } else if (value.is_array() && expected.is_array() && value.get_array().size() == expected.get_array().size()) {
        for (std::size_t i = 0; i < value.get_array().size(); ++i) {
            auto nested = sameKeyOrder(value.get_array()[i], expected.get_array()[i], path + "/" + std::to_string(i));
            if (!nested) return nested;
        }
    }
    return ::testing::AssertionSuccess();
}

#define EXPECT_WIRE_FORM(written, frame, ordered)                                           \
    do {                                                                                    \
        const json::value wireValue = (written);                                            \
        EXPECT_EQ(wireValue, (frame)) << "written: " << json::serialize(wireValue);        \
        if (ordered) {                                                                      \
            EXPECT_TRUE(sameKeyOrder(wireValue, (frame)));                                  \
        }                                                                                   \
    } while (false)

TEST(GoldenFrames, ErrorObject) {
    const auto frames = golden("error_object.json").as_object();
    EXPECT_WIRE_FORM(json::value_from(ErrorObject()), frames.at("no_error"), true);
    EXPECT_WIRE_FORM(json::value_from(ErrorObject::withParameters(ErrorCodeEnum::QUEUE_FULL,
                                                                  "job queue full ({0} jobs waiting)",
                                                                  {ErrorParameter(std::int64_t{16})})),
                     frames.at("queue_full"), true);
    EXPECT_WIRE_FORM(json::value_from(ErrorObject::withParameters(
                         ErrorCodeEnum::PARAMETER_IS_NOT_A_NUMBER, "{0} {1} {2} {3}",
                         {ErrorParameter(true), ErrorParameter(2.5), ErrorParameter(std::int64_t{-3}),
                          ErrorParameter(std::string("job/parameters/scan_rate"))})),
                     frames.at("every_parameter_kind"), true);
    for (const auto& frame : frames) {
        EXPECT_WIRE_FORM(json::value_from(errorObjectFromJson(frame.value())), frame.value(), true);
    }
}

TEST(GoldenFrames, JobOptions) {
    const auto frames = golden("job_options.json").as_object();
    EXPECT_WIRE_FORM(json::value_from(JobOptions{}), frames.at("none"), true);
    EXPECT_WIRE_FORM(json::value_from(JobOptions{true, false}), frames.at("bypass_queue"), true);
    EXPECT_WIRE_FORM(json::value_from(JobOptions{false, true}), frames.at("discard_result_data"), true);
    EXPECT_WIRE_FORM(json::value_from(JobOptions{true, true}), frames.at("both"), true);
    for (const auto& frame : frames) {
        EXPECT_WIRE_FORM(json::value_from(json::value_to<JobOptions>(frame.value())), frame.value(), true);
    }
}

TEST(GoldenFrames, JobInfo) {
    const auto frames = golden("job_info.json").as_object();
    EXPECT_WIRE_FORM(jobInfoToJson(JobInfo()), frames.at("default"), true);
    const JobInfo finished("5b0e4a52-7a43-4d0c-9a8e-1c2b3d4e5f60", JobStatusEnum::FINISHED,
                           JobStatusDetailEnum::RUN_TO_COMPLETION, "2026-03-05T10:11:12.345Z",
                           "2026-03-05T10:11:12.400Z", "2026-03-05T10:11:13.500Z", {{"sample", "A7"}, {"operator", "lab"}},
                           ErrorObject(), "ramp", nullptr, {}, JobOptions{false, true});
    EXPECT_WIRE_FORM(jobInfoToJson(finished), frames.at("finished"), true);
    for (const auto& frame : frames) {
        EXPECT_WIRE_FORM(jobInfoToJson(jobInfoFromJson(frame.value())), frame.value(), true);
    }
}

TEST(GoldenFrames, StopConditions) {
    const auto frame = golden("stop_conditions.json");
    MeasurementJobTemplate<RampParameters, JobNames::RAMP_JOB_NAME> job;
    job.setStopConditions({
        std::make_shared<MinLimitStopCondition>(MinLimitStopConditionParameters{"voltage", -1.5}),
        std::make_shared<MaxLimitStopCondition>(MaxLimitStopConditionParameters{"current", 0.002}),
        std::make_shared<MinMaxLimitStopCondition>(MinMaxLimitStopConditionParameters{"voltage", -2.0, 3.0}),
        std::make_shared<IntegratingLimitStopCondition>(
            IntegratingLimitStopConditionParameters{"current", "time", 0.5}),
        std::make_shared<StabilityToleranceLimitStopCondition>(
            StabilityToleranceLimitStopConditionParameters{"current", 1e-6, 10.0}),
        std::make_shared<InRangeStopCondition>(InRangeStopConditionParameters{"voltage", 0.1, 0.2}),
    });
    EXPECT_WIRE_FORM(job.getStopConditionsArray(), frame, true);

    json::array again;
    for (const auto& element : frame.as_array()) {
        const auto condition = StopConditionFactory::getInstance().build(element.at("type").as_string(),
                                                                         element.at("parameters"));
        ASSERT_NE(condition, nullptr) << json::serialize(element);
        again.push_back(condition->toJson());
    }
    EXPECT_WIRE_FORM(again, frame, true);
}

const std::vector<ColumnHeader> DC_COLUMNS{{"time", "s", "MAIN:1:POT:TIME"},
                                           {"voltage", "V", "MAIN:1:POT:VOLTAGE"},
                                           {"current", "A", "MAIN:1:POT:CURRENT"}};

TEST(GoldenFrames, ColumnHeader) {
    const auto frame = golden("column_header.json");
    EXPECT_WIRE_FORM(columnHeadersToJson(DC_COLUMNS), frame, true);
    const auto read = columnHeadersFromJson(frame);
    ASSERT_TRUE(read.has_value());
    EXPECT_EQ(*read, DC_COLUMNS);
}

TEST(GoldenFrames, LiveDataHeader) {
    const auto frame = golden("live_data_header.json");
    const LiveDataHeader header{"Cyclic Voltammetry", "cv", DC_COLUMNS};
    EXPECT_WIRE_FORM(json::value_from(header), frame, true);
    const auto read = json::value_to<LiveDataHeader>(frame);
    EXPECT_EQ(read.measurement_type, "Cyclic Voltammetry");
    EXPECT_EQ(read.measurement_type_short, "cv");
    EXPECT_EQ(read.columns, DC_COLUMNS);
}

TEST(GoldenFrames, Resource) {
    const auto frame = golden("resource.json");
    Resource resource;
    resource.resource_id = "9f1c2d3e-4b5a-4697-8a1b-2c3d4e5f6a7b";
    resource.name = "job 5b0e4a52-7a43-4d0c-9a8e-1c2b3d4e5f60";
    resource.type = ResourceTypeEnum::JOB_RESULT;
    resource.sub_type = "DATASET_DC";
    resource.size = 264;
    resource.created = "2026-03-05T10:11:13.500Z";
    resource.created_by = "emulator";
    resource.updated = "2026-03-05T10:11:13.500Z";
    resource.job_id = "5b0e4a52-7a43-4d0c-9a8e-1c2b3d4e5f60";
    resource.header = json::object{{"number_of_rows", 11}};
    EXPECT_WIRE_FORM(json::value_from(resource), frame, false);
    EXPECT_WIRE_FORM(json::value_from(json::value_to<Resource>(frame)), frame, false);
}

TEST(GoldenFrames, WorkstationInfo) {
    const auto frame = golden("workstation_info.json");
    WorkstationInfo info;
    info.serial_number = "RQ5-EMU-000001";
    info.model_name = "RQ5";
    info.firmware_version = "26.40.0";
    info.firmware_build_id = "23251aaf";
    info.cpu_card_uuid = "5e1f0c2a-9b7d-4e63-a8d1-2c4f6b9e0d17";
    info.system_mac = "02:52:51:35:00:01";
    info.system_name = "RQ5 emulator";
    info.mode = WorkstationModeEnum::EMULATION;
    EXPECT_WIRE_FORM(json::value_from(info), frame, true);
    EXPECT_WIRE_FORM(json::value_from(json::value_to<WorkstationInfo>(frame)), frame, true);
}

TEST(GoldenFrames, WorkstationStatus) {
    const auto frame = golden("workstation_status.json");
    WorkstationStatus status;
    status.busy = true;
    status.uptime = 3600;
    status.last_dc_calibration = "2026-03-01T08:00:00.000Z";
    status.mode = WorkstationModeEnum::EMULATION;
    EXPECT_WIRE_FORM(json::value_from(status), frame, false);
    EXPECT_WIRE_FORM(json::value_from(json::value_to<WorkstationStatus>(frame)), frame, false);
}

TEST(GoldenFrames, ConnectionInfo) {
    const auto frame = golden("connection_info.json");
    WebsocketConnectionInfo info;
    info.connection_id = "3a4b5c6d-7e8f-4a1b-9c2d-3e4f5a6b7c8d";
    info.connected_since = "2026-03-05T10:11:12.345Z";
    info.remote_addr = "127.0.0.1";
    info.remote_port = 50412;
    info.target = "/default";
    info.user_agent = "velmar_link_lib";
    info.using_tls = false;
    EXPECT_WIRE_FORM(json::value_from(info), frame, false);
    EXPECT_WIRE_FORM(json::value_from(json::value_to<WebsocketConnectionInfo>(frame)), frame, false);
}

TEST(GoldenFrames, Settings) {
    const auto frame = golden("settings.json");
    const SettingsSet settings({{"network_dhcp", Setting(true)},
                                {"network_port", Setting(1994)},
                                {"fan_curve_temperature_low", Setting(25.5)},
                                {"system_name", Setting(std::string_view("lab bench 3"))},
                                {"left_out", Setting()}});
    EXPECT_WIRE_FORM(settingsToJson(settings), frame, false);
    EXPECT_WIRE_FORM(settingsToJson(settingsFromJson(frame.as_object())), frame, false);
}

// Job requests: the parameter record is read from the frame, the job built from it (with the
// frame's stop conditions, metadata and options) and its request written again.
template <class Job>
json::object requestFromFrame(const json::object& frame) {
    const auto& job = frame.at("job").as_object();
    std::map<std::string, std::string> meta;
    for (const auto& member : job.at("job_meta").as_object()) {
        meta.emplace(member.key(), member.value().as_string());
    }
    StopConditionList conditions;
    for (const auto& element : job.at("stop_conditions").as_array()) {
        conditions.push_back(StopConditionFactory::getInstance().build(element.at("type").as_string(),
                                                                       element.at("parameters")));
    }
    const Job built(json::value_to<typename Job::Parameters>(job.at("parameters")), std::move(meta),
                    std::move(conditions), jobOptionsFromJson(frame));
    return makeJobRequestObject(frame.at("do").as_string(), built);
}

template <class P, const char* Name>
using Template = MeasurementJobTemplate<P, Name>;
using Parameterless = AbstractMeasurementJob::Parameterless;

const std::map<std::string, std::function<json::object(const json::object&)>, std::less<>> REQUEST_BUILDERS{
    {"cv", requestFromFrame<Template<CvParameters, JobNames::CV_JOB_NAME>>},
    {"fast_cycling", requestFromFrame<Template<FastCyclingParameters, JobNames::FAST_CYCLING_JOB_NAME>>},
    {"ramp", requestFromFrame<Template<RampParameters, JobNames::RAMP_JOB_NAME>>},
    {"steady_stairs", requestFromFrame<Template<SteadyStairsParameters, JobNames::STEADYSTAIRS_JOB_NAME>>},
    {"poga", requestFromFrame<Template<PogaParameters, JobNames::POGA_JOB_NAME>>},
    {"ocv", requestFromFrame<Template<OcvParameters, JobNames::OCV_JOB_NAME>>},
    {"npv", requestFromFrame<Template<NpvParameters, JobNames::NPV_JOB_NAME>>},
    {"dpv", requestFromFrame<Template<DpvParameters, JobNames::DPV_JOB_NAME>>},
    {"swv", requestFromFrame<Template<SwvParameters, JobNames::SWV_JOB_NAME>>},
    {"wave", requestFromFrame<Template<WaveParameters, JobNames::WAVE_JOB_NAME>>},
    {"wave_file", requestFromFrame<Template<WaveFileParameters, JobNames::WAVE_FILE_JOB_NAME>>},
    {"beep", requestFromFrame<Template<BeepParameters, JobNames::BEEP_JOB_NAME>>},
    {"sleep", requestFromFrame<Template<SleepParameters, JobNames::SLEEP_JOB_NAME>>},
    {"set_led_color", requestFromFrame<Template<SetLedColorParameters, JobNames::SET_LED_COLOR_JOB_NAME>>},
    {"switch_on", requestFromFrame<Template<SwitchOnParameters, JobNames::SWITCH_ON_JOB_NAME>>},
    {"switch_on_quick", requestFromFrame<Template<SwitchOnQuickParameters, JobNames::SWITCH_ON_QUICK_JOB_NAME>>},
    {"switch_off", requestFromFrame<Template<SwitchOffParameters, JobNames::SWITCH_OFF_JOB_NAME>>},
    {"switch_all_off", requestFromFrame<Template<Parameterless, JobNames::SWITCH_ALL_OFF_JOB_NAME>>},
    {"set_bias", requestFromFrame<Template<SetBiasParameters, JobNames::SET_BIAS_JOB_NAME>>},
    {"set_voltage_range", requestFromFrame<Template<SetVoltageRangeParameters, JobNames::SET_VOLTAGE_RANGE_JOB_NAME>>},
    {"set_active_gains", requestFromFrame<Template<SetActiveGainsParameters, JobNames::SET_ACTIVE_GAINS_JOB_NAME>>},
    {"set_active_current_ranges",
     requestFromFrame<Template<SetActiveCurrentRangesParameters, JobNames::SET_ACTIVE_CURRENT_RANGES_JOB_NAME>>},
    {"set_cable_options", requestFromFrame<Template<SetCableOptionsParameters, JobNames::SET_CABLE_OPTIONS_JOB_NAME>>},
    {"set_date_time", requestFromFrame<Template<SetDateTimeParameters, JobNames::SET_DATETIME_NAME>>},
    {"get_date_time", requestFromFrame<Template<Parameterless, JobNames::GET_DATETIME_NAME>>},
    {"get_adc_state", requestFromFrame<Template<GetAdcStateParameters, JobNames::GET_ADC_STATE_JOB_NAME>>},
    {"get_potentiostat_state",
     requestFromFrame<Template<GetPotentiostatStateParameters, JobNames::GET_POTENTIOSTAT_STATE_JOB_NAME>>},
    {"get_hardware_property",
     requestFromFrame<Template<GetHardwarePropertyParameters, JobNames::GET_HARDWARE_PROPERTY_JOB_NAME>>},
    {"set_hardware_property",
     requestFromFrame<Template<SetHardwarePropertyParameters, JobNames::SET_HARDWARE_PROPERTY_JOB_NAME>>},
    {"measure_integral", requestFromFrame<Template<MeasureIntegralParameters, JobNames::MEASURE_INTEGRAL_JOB_NAME>>},
    {"set_firmware_update",
     requestFromFrame<Template<SetFirmwareUpdateParameters, JobNames::SET_FIRMWARE_UPDATE_JOB_NAME>>},
    {"reboot", requestFromFrame<Template<Parameterless, JobNames::REBOOT_JOB_NAME>>},
};

TEST(GoldenFrames, JobRequestOfEveryKind) {
    const auto frames = golden("job_requests.json").as_object();
    for (const auto& [kind, build] : REQUEST_BUILDERS) {
        SCOPED_TRACE(kind);
        ASSERT_TRUE(frames.contains(kind)) << "no golden frame for " << kind;
        const auto& frame = frames.at(kind);
        EXPECT_EQ(frame.at("job").at("type").as_string(), kind);
        EXPECT_WIRE_FORM(build(frame.as_object()), frame, true);
    }
    EXPECT_EQ(frames.size(), REQUEST_BUILDERS.size()) << "a golden job request without a builder";
}

TEST(GoldenFrames, JobRequestFromItsParts) {
    // The same ramp request through the overload that takes the parts.
    const auto frame = golden("job_requests.json").at("ramp").as_object();
    const auto& job = frame.at("job").as_object();
    EXPECT_WIRE_FORM(makeJobRequestObject("/job/start", "ramp", job.at("parameters").as_object(),
                                          job.at("stop_conditions").as_array(), job.at("job_meta").as_object(),
                                          JobOptions{false, true}),
                     frame, true);
}

}  // namespace
}  // namespace velmar
