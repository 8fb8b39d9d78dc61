// Request shapes of every job kind: one typed test suite over the list of kinds, so a new
// kind gets its checks by adding one line to JobKinds.

#include "json_common/detail/described_json.hpp"
#include "velmar_link_json/jobs/calibration/calibration_jobs.hpp"
#include "velmar_link_json/jobs/control/control_jobs.hpp"
#include "velmar_link_json/jobs/job_parameter_factory.hpp"
#include "velmar_link_json/jobs/measurement_jobs.hpp"

#include <gtest/gtest.h>

#include <boost/json.hpp>

#include <string>
#include <vector>

namespace velmar {
namespace {

namespace json = boost::json;

template <class Job, bool Registered>
struct Kind {
    using JobType = Job;
    static constexpr bool REGISTERED = Registered;
};

// DC kinds are checked on their MeasurementJobTemplate base, which builds the request.
template <class P, const char* Name>
using Dc = Kind<MeasurementJobTemplate<P, Name>, true>;

using JobKinds = ::testing::Types<
    Dc<CvParameters, JobNames::CV_JOB_NAME>, Dc<AcCvParameters, JobNames::AC_CV_JOB_NAME>,
    Dc<FastCyclingParameters, JobNames::FAST_CYCLING_JOB_NAME>, Dc<RampParameters, JobNames::RAMP_JOB_NAME>,
    Dc<SteadyStairsParameters, JobNames::STEADYSTAIRS_JOB_NAME>, Dc<PogaParameters, JobNames::POGA_JOB_NAME>,
    Dc<OcvParameters, JobNames::OCV_JOB_NAME>, Dc<NpvParameters, JobNames::NPV_JOB_NAME>,
    Dc<DpvParameters, JobNames::DPV_JOB_NAME>, Dc<SwvParameters, JobNames::SWV_JOB_NAME>,
    Dc<WaveParameters, JobNames::WAVE_JOB_NAME>, Dc<WaveFileParameters, JobNames::WAVE_FILE_JOB_NAME>,
    Kind<EisGenerateJob, true>, Kind<EisFrequencyTableJob, true>, Kind<EisMultisineGenerateJob, true>,
    Kind<EisMultisineTableJob, true>, Kind<GeisVaGenerateJob, true>, Kind<GeisVaFrequencyTableJob, true>,
    Kind<CalibrateJob, false>, Kind<SetCalibrationDataJob, false>, Kind<GetCalibrationDataJob, false>,
    Kind<GetMeshJsonFileJob, false>, Kind<SetMeshJsonFileJob, false>, Kind<GetFilterUsageMatrixJob, false>,
    Kind<BeepJob, true>, Kind<SleepJob, true>, Kind<SetLedColorJob, true>, Kind<SwitchOnJob, true>,
    Kind<SwitchOnQuickJob, true>, Kind<SwitchOffJob, true>, Kind<SwitchAllOffJob, false>, Kind<SetBiasJob, true>,
    Kind<SetVoltageRangeJob, true>, Kind<SetActiveGainsJob, true>, Kind<SetActiveCurrentRangesJob, true>,
    Kind<SetCableOptionsJob, true>, Kind<SetDateTimeJob, false>, Kind<GetDateTimeJob, false>,
    Kind<InitializeRtcJob, false>, Kind<GetAdcStateJob, true>, Kind<GetPotentiostatStateJob, true>,
    Kind<GetHardwareInfoJob, false>, Kind<GetHardwarePropertyJob, false>, Kind<SetHardwarePropertyJob, true>,
    Kind<GetHardwareSettingsJob, false>, Kind<SetHardwareSettingsJob, true>, Kind<MeasureIntegralJob, true>,
    Kind<SetFirmwareUpdateJob, true>, Kind<RebootJob, false>, Kind<ReenumerateHardwareJob, false>>;

template <class K>
class JobRequestShape : public ::testing::Test {};
TYPED_TEST_SUITE(JobRequestShape, JobKinds);

std::vector<std::string> keysOf(const json::object& object) {
    std::vector<std::string> keys;
    for (const auto& member : object) keys.emplace_back(member.key());
    return keys;
}

template <class P>
std::vector<std::string> describedKeys() {
    std::vector<std::string> keys;
    boost::mp11::mp_for_each<boost::describe::describe_members<P, boost::describe::mod_public>>(
        [&](auto member) { keys.emplace_back(member.name); });
    return keys;
}

TYPED_TEST(JobRequestShape, RequestCarriesTypeParametersStopConditionsAndMetaInOrder) {
    using Job = typename TypeParam::JobType;
    Job job;
    job.setMetaData({{"sample", "A1"}});
    const auto request = makeJobRequestObject("/job/start", job);

    EXPECT_EQ(keysOf(request), (std::vector<std::string>{"do", "job"}));
    EXPECT_EQ(request.at("do"), "/job/start");
    const auto& inner = request.at("job").as_object();
    EXPECT_EQ(keysOf(inner), (std::vector<std::string>{"type", "parameters", "stop_conditions", "job_meta"}));
    EXPECT_EQ(inner.at("type").as_string(), Job::NAME);
    EXPECT_TRUE(inner.at("stop_conditions").as_array().empty());
    EXPECT_EQ(inner.at("job_meta"), (json::object{{"sample", "A1"}}));

    // Parameters have exactly the record's keys, in declaration order (optionals unset).
    using P = typename Job::Parameters;
    std::vector<std::string> expected = describedKeys<P>();
    std::erase(expected, "drift_correction");
    EXPECT_EQ(keysOf(inner.at("parameters").as_object()), expected);
}

TYPED_TEST(JobRequestShape, OptionsAreTopLevelAndOnlyWhenSet) {
    using Job = typename TypeParam::JobType;
    Job job;
    job.setJobOptions(JobOptions{true, false});
    auto request = makeJobRequestObject("/job/check_parameters", job);
    EXPECT_EQ(request.at("bypass_queue"), true);
    EXPECT_FALSE(request.contains("discard_result_data"));
    EXPECT_FALSE(request.at("job").as_object().contains("bypass_queue"));

    job.setJobOptions(JobOptions{});
    request = makeJobRequestObject("/job/start", job);
    EXPECT_FALSE(request.contains("bypass_queue"));
    EXPECT_FALSE(request.contains("discard_result_data"));
}

TYPED_TEST(JobRequestShape, FactoryRebuildsRegisteredKindsAndNothingElse) {
    using Job = typename TypeParam::JobType;
    const Job job;
    const json::value parameters = job.getParameterObject();
    const auto built = JobParameterFactory::getInstance().build(Job::NAME, parameters);
    if constexpr (TypeParam::REGISTERED) {
        ASSERT_NE(built, nullptr);
        EXPECT_EQ(built->getParameterObject(), parameters.as_object());
    } else {
        EXPECT_EQ(built, nullptr);
    }
}

TYPED_TEST(JobRequestShape, FreshJobIsUnknownAndNotSuccessful) {
    using Job = typename TypeParam::JobType;
    const Job job;
    EXPECT_EQ(job.getLastJobInfo().getStatusString(), "UNKNOWN");
    EXPECT_EQ(job.getLastJobInfo().getStatusDetailString(), "NOT_FINISHED");
    EXPECT_FALSE(job.wasSuccessful());
}

TEST(JobRequest, SwitchAllOffSendsEmptyParameters) {
    const SwitchAllOffJob job;
    EXPECT_EQ(makeJobRequestObject("/job/start", job).at("job").at("parameters"), json::object());
}

TEST(JobRequest, SetLedColorSendsTheThreeIntegers) {
    const SetLedColorJob job(SetLedColorParameters{255, 128, 0});
    const auto& parameters = job.getParameterObject();
    EXPECT_EQ(parameters, (json::object{{"red", 255}, {"green", 128}, {"blue", 0}}));
    EXPECT_TRUE(parameters.at("green").is_int64());
}

TEST(JobRequest, StopConditionsKeepTheOrderOfAddition) {
    const StopConditionList conditions{
        std::make_shared<MaxLimitStopCondition>(MaxLimitStopConditionParameters{"current", 0.1}),
        std::make_shared<InRangeStopCondition>(InRangeStopConditionParameters{"voltage", 0.1, 0.5}),
        std::make_shared<MinLimitStopCondition>(MinLimitStopConditionParameters{"time", 1.0}),
    };
    const MeasurementJobTemplate<CvParameters, JobNames::CV_JOB_NAME> job({}, {}, conditions);
    const auto array = makeJobRequestObject("/job/start", job).at("job").at("stop_conditions").as_array();
    ASSERT_EQ(array.size(), 3U);
    EXPECT_EQ(array[0].at("type"), "max");
    EXPECT_EQ(array[1], json::parse(R"({"type":"in_range","parameters":{"for_dimension":"voltage","minimum":0.1,"maximum":0.5}})"));
    EXPECT_EQ(array[2].at("type"), "min");
}

TEST(JobNames, ServiceNamesCarryThePictographPrefix) {
    const std::string prefix = "\xF0\x9F\x9B\xA0\xEF\xB8\x8F/";
    for (const std::string_view name :
         {JobNames::SET_CALIBRATION_DATA_JOB_NAME, JobNames::GET_CALIBRATION_DATA_JOB_NAME,
          JobNames::GET_MESH_JSON_FILE_JOB_NAME, JobNames::SET_MESH_JSON_FILE_JOB_NAME,
          JobNames::GET_FILTER_USAGE_MATRIX_JOB_NAME}) {
        EXPECT_TRUE(name.starts_with(prefix)) << name;
        EXPECT_EQ(name.size(), prefix.size() + name.substr(prefix.size()).size());
    }
    EXPECT_EQ(std::string_view(JobNames::GET_MESH_JSON_FILE_JOB_NAME).substr(prefix.size()), "get_mesh_json_file");
    EXPECT_EQ(std::string_view(JobNames::GEIS_VA_GENERATE_JOB_NAME), "geis_va");
}

TEST(ParameterRecords, IntegerKeysRejectFractionsAndDoublesAcceptIntegers) {
    auto value = json::value_from(EisParametersGenerate{});
    value.at("frequency_range").as_object()["pre_waves"] = 1.5;
    EXPECT_ANY_THROW((void)json::value_to<EisParametersGenerate>(value));
    value.at("frequency_range").as_object()["pre_waves"] = 2;
    value.at("frequency_range").as_object()["amplitude"] = 1;
    const auto parameters = json::value_to<EisParametersGenerate>(value);
    EXPECT_EQ(parameters.frequency_range.pre_waves, 2);
    EXPECT_EQ(parameters.frequency_range.amplitude, 1.0);
}

TEST(ParameterRecords, MissingKeyOrWrongKindThrows) {
    auto value = json::value_from(BeepParameters{});
    value.as_object().erase("duration");
    EXPECT_ANY_THROW((void)json::value_to<BeepParameters>(value));
    EXPECT_ANY_THROW((void)json::value_to<SwitchOnParameters>(
        json::parse(R"({"potentiostat":"MAIN:1:POT","coupling":"SIDEWAYS","bias":0,"voltage_range_index":0,"compliance_range_index":0})")));
    EXPECT_ANY_THROW((void)json::value_to<CvParameters>(json::parse(R"({"start_value":"0"})")));
}

TEST(ParameterRecords, EisGeneratedExampleRoundTrips) {
    const auto value = json::parse(R"({"bias":0.0,"frequency_range":{"type":"generate","min_frequency":100.0,
        "max_frequency":1000000.0,"start_frequency":10000.0,"points_per_decade_upper":20,"points_per_decade_lower":5,
        "pre_duration":0.1,"pre_waves":1,"meas_duration":1.0,"meas_waves":5,"amplitude":0.01}})");
    const auto parameters = json::value_to<EisParametersGenerate>(value);
    EXPECT_FALSE(parameters.drift_correction.has_value());
    EXPECT_EQ(json::value_from(parameters), value);
}

TEST(DriftCorrection, ReadingIsExactAndLenient) {
    EXPECT_EQ(readOptionalDriftCorrection({{"drift_correction", "DC_ONLY"}}), DriftCorrection::DC_ONLY);
    EXPECT_EQ(readOptionalDriftCorrection({{"drift_correction", "OFF"}}), DriftCorrection::OFF);
    EXPECT_FALSE(readOptionalDriftCorrection({{"drift_correction", "full"}}).has_value());
    EXPECT_FALSE(readOptionalDriftCorrection({{"drift_correction", 1}}).has_value());
    EXPECT_FALSE(readOptionalDriftCorrection({}).has_value());

    // Within a record the same rule applies: an unknown text counts as absent.
    auto value = json::value_from(EisParametersGenerate{});
    value.as_object()["drift_correction"] = "full";
    EXPECT_FALSE(json::value_to<EisParametersGenerate>(value).drift_correction.has_value());
}

TEST(DriftCorrection, WritingReplacesOrOmits) {
    json::object object{{"drift_correction", "OFF"}};
    writeOptionalDriftCorrection(object, std::nullopt);
    EXPECT_EQ(object.at("drift_correction"), "OFF");
    writeOptionalDriftCorrection(object, DriftCorrection::DC_ONLY);
    EXPECT_EQ(object.at("drift_correction"), "DC_ONLY");
    writeOptionalDriftCorrection(object, static_cast<DriftCorrection>(7));
    EXPECT_EQ(object.at("drift_correction"), "FULL");

    EisParametersGenerate parameters;
    parameters.drift_correction = DriftCorrection::OFF;
    EXPECT_EQ(json::value_from(parameters).at("drift_correction"), "OFF");
}

TEST(CalibrationTypes, WireTextsAndFallback) {
    EXPECT_EQ(calibrationTypesEnumToString(CalibrationTypesEnum::DUMP), "dump");
    EXPECT_EQ(calibrationTypesEnumToString(CalibrationTypesEnum::REFERENCE_ADC), "reference_adc");
    EXPECT_EQ(calibrationTypesEnumToString(static_cast<CalibrationTypesEnum>(22)), "dc");
    const CalibrateJob job(CalibrateParameters{CalibrationTypesEnum::MUX4_GAIN, "MUX4:1", {1}, {}});
    EXPECT_EQ(job.getParameterObject().at("calibration_type"), "mux4_gain");
}

}  // namespace
}  // namespace velmar
