// The emulated RQ5 hardware through its control and information jobs.

#include "device_jobs_bench.hpp"

#include <cmath>

namespace velmar::emulator::testing {
namespace {

namespace json = boost::json;

/// Starts a job, runs the clock until it has ended and returns its "JOB_DONE" frame.
json::object runJob(JobBench& bench, std::string_view type, json::object parameters = {}) {
    const auto reply = bench.start(type, std::move(parameters));
    EXPECT_EQ(reply.at("status"), "SUCCESS") << json::serialize(reply);
    if (!reply.contains("job_id")) return {};
    bench.clock.runUntilIdle();
    return bench.doneOf(reply.at("job_id"));
}

json::object stateOf(JobBench& bench, std::string_view potentiostat = "MAIN:1:POT") {
    return runJob(bench, "get_potentiostat_state", {{"potentiostat", potentiostat}}).at("result").as_object();
}

TEST(DeviceJobsHardware, SwitchingChangesThePotentiostatState) {
    JobBench bench;
    const auto on = runJob(bench, "switch_on", kSwitchOnMain);
    EXPECT_EQ(on.at("result").at("applied_bias"), 0.5);
    EXPECT_NEAR(on.at("result").at("current").as_double(), 0.5e-3, 1e-12);  // 1 kOhm cell
    auto state = stateOf(bench);
    EXPECT_EQ(state.at("switched_on"), true);
    EXPECT_EQ(state.at("dc_value"), 0.5);
    EXPECT_EQ(state.at("coupling"), "POTENTIOSTATIC");
    EXPECT_EQ(stateOf(bench, "QLC:1:EXT2:POT").at("switched_on"), false);

    // The voltage range can only change while the potentiostat is off; the refusal happens
    // when the job runs, since the queue may switch the potentiostat before it.
    const auto refused = runJob(bench, "set_voltage_range", {{"potentiostat", "MAIN:1:POT"}, {"index", 2}});
    EXPECT_EQ(refused.at("status"), "FAILED");
    EXPECT_EQ(refused.at("status_detail"), "RUNTIME_ERROR");
    EXPECT_EQ(JobBench::code(refused), "POT_STATUS_MISMATCH");

    EXPECT_EQ(runJob(bench, "switch_off", {{"potentiostat", "MAIN:1:POT"}}).at("status"), "FINISHED");
    EXPECT_EQ(runJob(bench, "set_voltage_range", {{"potentiostat", "MAIN:1:POT"}, {"index", 2}}).at("status"),
              "FINISHED");
    state = stateOf(bench);
    EXPECT_EQ(state.at("switched_on"), false);
    EXPECT_EQ(state.at("voltage_range_index"), 2);

    runJob(bench, "switch_on_quick",
           {{"potentiostat", "QLC:1:EXT1:POT"},
            {"coupling", "GALVANOSTATIC"},
            {"bias", 0.001},
            {"voltage_range_index", 0},
            {"compliance_range_index", 0}});
    EXPECT_EQ(stateOf(bench, "QLC:1:EXT1:POT").at("coupling"), "GALVANOSTATIC");
    runJob(bench, "switch_all_off");
    EXPECT_EQ(stateOf(bench, "QLC:1:EXT1:POT").at("switched_on"), false);
}

TEST(DeviceJobsHardware, HardwareSettingsSplitSyncAndAsyncChannels) {
    JobBench bench;
    const auto initial = runJob(bench, "get_hardware_settings").at("result");
    EXPECT_EQ(initial.at("sync_channels").as_array().size(), 2u);
    EXPECT_EQ(initial.at("output_potentiostats").at(0).at("uri"), "MAIN:1:POT");
    EXPECT_EQ(initial.at("impedance_configurations").as_array().size(), 1u);

    const auto channel = [](std::string_view uri, std::string_view dimension) {
        return json::object{{"uri", uri},
                            {"dimension", dimension},
                            {"unit", "V"},
                            {"polynomial", {{"coefficients", json::array{0.0, 1.0}}}}};
    };
    const json::object settings{
        {"output_potentiostats",
         json::array{{{"uri", "QLC:1:EXT1:POT"},
                      {"potentiostatic_polynomial", {{"coefficients", json::array{0.0, 1.0}}}},
                      {"galvanostatic_polynomial", {{"coefficients", json::array{0.0, 1.0}}}}}}},
        {"channels", json::array{channel("QLC:1:EXT1:POT:U~MUX:1:MUX_U", "voltage"),
                                 channel("MUX4:1:CH2~MUX4:1:ADC2", "voltage-MUX4-1-CH2"),
                                 channel("MAIN:1:POT:U~HP:1:ADC_U", "voltage"),
                                 channel("MAIN:1:AUX1~ACQ:1:ADC1", "aux")}},
        {"impedance_configurations", json::array{{{"numerator", "MUX4:1:CH2~MUX4:1:ADC2"},
                                                  {"denominator", "QLC:1:EXT1:POT:U~MUX:1:MUX_U"},
                                                  {"impedance_name", "x"}}}}};
    EXPECT_EQ(runJob(bench, "set_hardware_settings", settings).at("status"), "FINISHED");
    const auto adopted = runJob(bench, "get_hardware_settings").at("result");
    const auto uris = [](const json::value& channels) {
        std::vector<std::string> out;
        for (const auto& c : channels.as_array()) out.emplace_back(c.at("uri").as_string());
        return out;
    };
    EXPECT_EQ(uris(adopted.at("sync_channels")),
              (std::vector<std::string>{"QLC:1:EXT1:POT:U~MUX:1:MUX_U", "MUX4:1:CH2~MUX4:1:ADC2"}));
    EXPECT_EQ(uris(adopted.at("async_channels")),
              (std::vector<std::string>{"MAIN:1:POT:U~HP:1:ADC_U", "MAIN:1:AUX1~ACQ:1:ADC1"}));
    EXPECT_EQ(adopted.at("output_potentiostats").at(0).at("uri"), "QLC:1:EXT1:POT");

    auto bad = settings;
    bad["channels"].as_array().push_back(channel("MUX4:2:CH1~MUX4:2:ADC1", "voltage"));
    EXPECT_EQ(JobBench::code(bench.check("set_hardware_settings", bad)), "PARAMETER_SYMBOLIC_PATH_INVALID");
}

TEST(DeviceJobsHardware, HardwareInfoDescribesTheRq5) {
    JobBench bench;
    const auto info = runJob(bench, "get_hardware_info").at("result");
    std::vector<std::string> potentiostats;
    for (const auto& pot : info.at("potentiostats").as_array())
        potentiostats.emplace_back(pot.at("identifier").as_string());
    EXPECT_EQ(potentiostats, (std::vector<std::string>{"MAIN:1:POT", "QLC:1:EXT1:POT", "QLC:1:EXT2:POT"}));
    bool sawMux4 = false;
    for (const auto& path : info.at("paths").as_array()) {
        const std::string urn(path.at("urn").as_string());
        EXPECT_EQ(path.at("url").as_string(), urlOfUrn(urn));
        sawMux4 = sawMux4 || urn == "MUX4:1:CH4~MUX4:1:ADC4";
    }
    EXPECT_TRUE(sawMux4);
    EXPECT_EQ(urlOfUrn("MAIN:1:POT:U~MUX:1:MUX_U"), "main/1/pot/u~mux/1/mux_u");
    EXPECT_EQ(info.at("cards").as_array().size(), 3u);
}

TEST(DeviceJobsHardware, PropertiesKeepTheirJsonKind) {
    JobBench bench;
    for (const json::value& value :
         {json::value(true), json::value(7), json::value(2.5), json::value("text")}) {
        runJob(bench, "set_hardware_property", {{"uri", "MAIN:1:POT"}, {"key", "k"}, {"value", value}});
        const auto read = runJob(bench, "get_hardware_property", {{"uri", "MAIN:1:POT"}, {"key", "k"}});
        EXPECT_EQ(read.at("result").at("value"), value);
        EXPECT_EQ(read.at("result").at("value").kind(), value.kind());
    }
    EXPECT_EQ(
        JobBench::code(runJob(bench, "get_hardware_property", {{"uri", "MAIN:1:POT"}, {"key", "nothing"}})),
        "ID_NOT_FOUND");
}

TEST(DeviceJobsHardware, MeasureIntegralIntegratesTheCellCurrentOverItsDuration) {
    JobBench bench({}, 4.0);
    runJob(bench, "switch_on", kSwitchOnMain);
    const auto jobId =
        bench.start("measure_integral", {{"channel", "MAIN:1:POT:I~MUX:1:MUX_I"}, {"duration", 2.0}})
            .at("job_id");
    bench.clock.advance(400ms);
    EXPECT_TRUE(bench.doneOf(jobId).empty()) << "2 s at time scale 4 take 500 ms";
    bench.clock.advance(200ms);
    EXPECT_NEAR(bench.doneOf(jobId).at("result").at("value").as_double(), 0.5 / 1000.0 * 2.0, 1e-9);
}

TEST(DeviceJobsHardware, DateTimeMovesTheEmulatedClock) {
    JobBench bench;
    runJob(bench, "set_date_time", {{"datetime", "2031-02-03T04:05:06Z"}});
    const auto read = runJob(bench, "get_date_time").at("result").at("datetime").as_string();
    EXPECT_TRUE(std::string_view(read).starts_with("2031-02-03T04:05:")) << read;
    runJob(bench, "initialize_rtc");
    EXPECT_FALSE(std::string_view(runJob(bench, "get_date_time").at("result").at("datetime").as_string())
                     .starts_with("2031"));

    EXPECT_TRUE(parseIsoDateTime("2031-02-03 04:05:06.5-02:30"));
    EXPECT_EQ(parseIsoDateTime("2031-02-03T04:05:06+01:00"), parseIsoDateTime("2031-02-03T03:05:06Z"));
    EXPECT_FALSE(parseIsoDateTime("2031-02-30T04:05:06Z"));
    EXPECT_FALSE(parseIsoDateTime("2031-02-03T04:05:06ZZ"));
}

TEST(DeviceJobsHardware, FirmwareUpdateNeedsItsResource) {
    JobBench bench;
    const auto resource = bench.model.resources().create(ResourceTypeEnum::FIRMWARE_UPDATE, "fw", "test").value();
    EXPECT_EQ(runJob(bench, "set_firmware_update", {{"resource_id", resource.resourceId}}).at("status"),
              "FINISHED");
    const auto wave = bench.model.resources().create(ResourceTypeEnum::WAVE, "w", "test").value();
    EXPECT_EQ(JobBench::code(bench.check("set_firmware_update", {{"resource_id", wave.resourceId}})),
              "RESOURCE_TYPE_MISMATCH");
}

}  // namespace
}  // namespace velmar::emulator::testing
