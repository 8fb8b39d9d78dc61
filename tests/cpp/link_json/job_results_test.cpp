#include "json_common/base64.hpp"
#include "velmar_link_json/jobs/calibration/calibration_jobs.hpp"
#include "velmar_link_json/jobs/control/control_jobs.hpp"

#include <gtest/gtest.h>

#include <boost/json.hpp>

namespace velmar {
namespace {

namespace json = boost::json;

json::object done(std::string_view result) {
    return json::parse(std::string(R"({"type":"JOB_DONE","result":)") + std::string(result) + "}").as_object();
}

TEST(ExtractJobResult, SwitchOnReadsTheThreeValues) {
    SwitchOnJob job;
    job.extractJobResult(done(R"({"applied_bias": 0.1, "voltage": 0.1, "current": 0.0})"));
    EXPECT_EQ(job.getJobResult().applied_bias, 0.1);
    EXPECT_EQ(job.getJobResult().voltage, 0.1);
    EXPECT_EQ(job.getJobResult().current, 0.0);
}

TEST(ExtractJobResult, SwitchOnIsStrict) {
    SwitchOnJob job;
    EXPECT_ANY_THROW(job.extractJobResult(done(R"({"applied_bias": 0.1, "voltage": 0.1})")));
    EXPECT_ANY_THROW(job.extractJobResult(done(R"({"applied_bias": 0.1, "voltage": "0.1", "current": 0})")));
}

TEST(ExtractJobResult, AbsentOrNonObjectResultLeavesTheValue) {
    SwitchOnJob job;
    job.extractJobResult(done(R"({"applied_bias": 1, "voltage": 2, "current": 3})"));
    job.extractJobResult(json::parse(R"({"type":"JOB_DONE"})").as_object());
    job.extractJobResult(done("[1, 2]"));
    EXPECT_EQ(job.getJobResult().voltage, 2.0);
}

TEST(ExtractJobResult, MeasureIntegralNeedsANumber) {
    MeasureIntegralJob job;
    job.extractJobResult(done(R"({"value": 3})"));
    EXPECT_EQ(job.getJobResult(), 3.0);
    job.extractJobResult(done(R"({"value": 2.5})"));
    EXPECT_EQ(job.getJobResult(), 2.5);
    EXPECT_ANY_THROW(job.extractJobResult(done(R"({"value": "2.5"})")));
    EXPECT_EQ(job.getJobResult(), 2.5);
}

TEST(ExtractJobResult, HardwarePropertyFollowsTheJsonKind) {
    GetHardwarePropertyJob job;
    job.extractJobResult(done(R"({"value": true})"));
    EXPECT_EQ(job.getJobResult(), HardwarePropertyValue(true));
    job.extractJobResult(done(R"({"value": 7})"));
    EXPECT_EQ(job.getJobResult(), HardwarePropertyValue(7));
    job.extractJobResult(done(R"({"value": 7.5})"));
    EXPECT_EQ(job.getJobResult(), HardwarePropertyValue(7.5));
    job.extractJobResult(done(R"({"value": "on"})"));
    EXPECT_EQ(job.getJobResult(), HardwarePropertyValue(std::string("on")));
    EXPECT_ANY_THROW(job.extractJobResult(done(R"({"value": [1]})")));
}

TEST(ExtractJobResult, DateTimeAndRecords) {
    GetDateTimeJob dateTime;
    dateTime.extractJobResult(done(R"({"datetime": "2026-01-02T03:04:05"})"));
    EXPECT_EQ(dateTime.getJobResult(), "2026-01-02T03:04:05");

    GetAdcStateJob adc;
    adc.extractJobResult(done(R"({"active_gain_indexes": [0, 2]})"));
    EXPECT_EQ(adc.getJobResult().active_gain_indexes, (std::vector<int>{0, 2}));

    GetPotentiostatStateJob state;
    auto value = json::value_from(PotentiostatState{});
    value.as_object()["coupling"] = "GALVANOSTATIC";
    value.as_object()["switched_on"] = true;
    state.extractJobResult(json::object{{"result", value}});
    EXPECT_TRUE(state.getJobResult().switched_on);
    EXPECT_EQ(state.getJobResult().coupling, PotentiostatCoupling::GALVANOSTATIC);
}

TEST(ExtractJobResult, HardwareInfoConvertsUrnAndUrlThroughItsPaths) {
    GetHardwareInfoJob job;
    HardwareInfo info;
    info.paths.push_back(PathInfo{"main/1/pot/u", "MAIN:1:POT:U~MUX:1:MUX_U", "simultan", "voltage", 1.0, {}, {}, {}});
    job.extractJobResult(json::object{{"result", json::value_from(info)}});
    const auto& result = job.getJobResult();
    EXPECT_TRUE(result.constainsUrn("MAIN:1:POT:U~MUX:1:MUX_U"));
    EXPECT_FALSE(result.constainsUrn("main/1/pot/u"));
    EXPECT_TRUE(result.constainsUrl("main/1/pot/u"));
    EXPECT_EQ(result.convertUrnToUrl("MAIN:1:POT:U~MUX:1:MUX_U"), "main/1/pot/u");
    EXPECT_EQ(result.convertUrlToUrn("main/1/pot/u"), "MAIN:1:POT:U~MUX:1:MUX_U");
    EXPECT_EQ(result.convertUrnToUrl("QLC:1:EXT1:POT"), "");
}

TEST(ExtractJobResult, MeshFileErrors) {
    GetMeshJsonFileJob job;
    const auto message = [&](std::string_view json) {
        try {
            job.extractJobResult(done(json));
        } catch (const std::runtime_error& error) {
            return std::string(error.what());
        }
        return std::string("no error");
    };
    EXPECT_EQ(message(R"({})"), "No valid 'file' object found");
    EXPECT_EQ(message(R"({"file": {"content": 1}})"), "No valid 'content' field found in file object");
    EXPECT_TRUE(message(R"({"file": {"content": "abc"}})").starts_with("Failed to decode file content: "));
    EXPECT_EQ(message(std::string(R"({"file": {"content": ")") + encodeBase64("{\"mesh\":1}") + "\"}}"), "no error");
    EXPECT_EQ(std::string(job.getJobResult().begin(), job.getJobResult().end()), "{\"mesh\":1}");
    EXPECT_THROW(job.extractJobResult(json::parse(R"({"type":"JOB_DONE"})").as_object()), std::runtime_error);
}

TEST(ExtractJobResult, CalibrationDataKeepsItsType) {
    GetCalibrationDataJob job;
    EXPECT_EQ(job.getCalibrationDataType(), CalibrationDataTypeEnum::UNDEFINED);
    job.extractJobResult(done(R"({"data": {"type": "float_vector", "value": [1, 2.5]}})"));
    EXPECT_EQ(job.getCalibrationDataType(), CalibrationDataTypeEnum::FLOAT_VECTOR);
    EXPECT_EQ(std::get<std::vector<double>>(job.getJobResult().value), (std::vector<double>{1.0, 2.5}));
    job.extractJobResult(done(R"({"data": {"type": "string", "value": "x"}})"));
    EXPECT_EQ(job.getCalibrationDataType(), CalibrationDataTypeEnum::STRING);
    EXPECT_ANY_THROW(job.extractJobResult(done(R"({"data": {"type": "complex", "value": 1}})")));
}

TEST(SetHardwareSettingsJob, BuiltFromUserSettingsSendsTheThreeLists) {
    UserHardwareSettings config;
    config.channels.push_back(Channel{"MAIN:1:POT:U~MUX:1:MUX_U", "voltage", "V", {}});
    config.output_potentiostats.push_back(PotentiostatConfiguration{"MAIN:1:POT", {}, {}});
    const SetHardwareSettingsJob job(config);
    const auto parameters = job.getParameterObject();
    EXPECT_EQ(parameters.at("channels").as_array().size(), 1U);
    EXPECT_EQ(parameters.at("channels").at(0).at("polynomial"), json::parse(R"({"coefficients":[0.0,1.0]})"));
    EXPECT_TRUE(parameters.at("impedance_configurations").as_array().empty());
    EXPECT_EQ(parameters.at("output_potentiostats").at(0).at("uri"), "MAIN:1:POT");
}

}  // namespace
}  // namespace velmar
