// The emulator's parameter tables against the client's parameter records (their Boost.Describe
// descriptions) and against the hardware table: a key that one side renames or forgets fails
// here, not in a laboratory.

#include "emulator/device_jobs/hardware_model.hpp"
#include "emulator/device_jobs/job_catalog.hpp"
#include "json_common/job_parameters/calibration_parameters.hpp"
#include "json_common/job_parameters/control_parameters.hpp"
#include "json_common/job_parameters/dc_parameters.hpp"
#include "json_common/job_parameters/eis_parameters.hpp"
#include "velmar_link_json/jobs/job_names.hpp"

#include <boost/describe/members.hpp>
#include <boost/mp11/algorithm.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace velmar::emulator::testing {
namespace {

struct RecordKeys {
    std::string_view type;
    std::set<std::string, std::less<>> members;
};

template <class Record>
RecordKeys keysOf(std::string_view type) {
    RecordKeys out{type, {}};
    boost::mp11::mp_for_each<boost::describe::describe_members<Record, boost::describe::mod_public>>(
        [&](auto member) { out.members.insert(member.name); });
    return out;
}

/// Every kind with a parameter record, under the client's job-name constant.
std::vector<RecordKeys> recordKinds() {
    using N = JobNames;
    return {
        keysOf<CvParameters>(N::CV_JOB_NAME),
        keysOf<AcCvParameters>(N::AC_CV_JOB_NAME),
        keysOf<FastCyclingParameters>(N::FAST_CYCLING_JOB_NAME),
        keysOf<RampParameters>(N::RAMP_JOB_NAME),
        keysOf<SteadyStairsParameters>(N::STEADYSTAIRS_JOB_NAME),
        keysOf<PogaParameters>(N::POGA_JOB_NAME),
        keysOf<OcvParameters>(N::OCV_JOB_NAME),
        keysOf<NpvParameters>(N::NPV_JOB_NAME),
        keysOf<DpvParameters>(N::DPV_JOB_NAME),
        keysOf<SwvParameters>(N::SWV_JOB_NAME),
        keysOf<WaveParameters>(N::WAVE_JOB_NAME),
        keysOf<WaveFileParameters>(N::WAVE_FILE_JOB_NAME),
        keysOf<EisParametersGenerate>(N::EIS_GENERATE_JOB_NAME),
        keysOf<EisParametersFrequencyTable>(N::EIS_TABLE_JOB_NAME),
        keysOf<EisMultisineParametersGenerate>(N::EIS_MULTISINE_GENERATE_JOB_NAME),
        keysOf<EisMultiSineTable>(N::EIS_MULTISINE_TABLE_JOB_NAME),
        keysOf<GeisVaParametersGenerate>(N::GEIS_VA_GENERATE_JOB_NAME),
        keysOf<GeisVaParametersFrequencyTable>(N::GEIS_VA_TABLE_JOB_NAME),
        keysOf<CalibrateParametersString>(N::CALIBRATE_JOB_NAME),
        keysOf<SetCalibrationDataParameters>(N::SET_CALIBRATION_DATA_JOB_NAME),
        keysOf<GetCalibrationDataParameters>(N::GET_CALIBRATION_DATA_JOB_NAME),
        keysOf<SetMeshJsonFileParameters>(N::SET_MESH_JSON_FILE_JOB_NAME),
        keysOf<GetFilterUsageMatrixParameters>(N::GET_FILTER_USAGE_MATRIX_JOB_NAME),
        keysOf<BeepParameters>(N::BEEP_JOB_NAME),
        keysOf<SleepParameters>(N::SLEEP_JOB_NAME),
        keysOf<SetLedColorParameters>(N::SET_LED_COLOR_JOB_NAME),
        keysOf<SwitchOnParameters>(N::SWITCH_ON_JOB_NAME),
        keysOf<SwitchOnQuickParameters>(N::SWITCH_ON_QUICK_JOB_NAME),
        keysOf<SwitchOffParameters>(N::SWITCH_OFF_JOB_NAME),
        keysOf<SetBiasParameters>(N::SET_BIAS_JOB_NAME),
        keysOf<SetVoltageRangeParameters>(N::SET_VOLTAGE_RANGE_JOB_NAME),
        keysOf<SetActiveGainsParameters>(N::SET_ACTIVE_GAINS_JOB_NAME),
        keysOf<SetActiveCurrentRangesParameters>(N::SET_ACTIVE_CURRENT_RANGES_JOB_NAME),
        keysOf<SetCableOptionsParameters>(N::SET_CABLE_OPTIONS_JOB_NAME),
        keysOf<SetDateTimeParameters>(N::SET_DATETIME_NAME),
        keysOf<GetAdcStateParameters>(N::GET_ADC_STATE_JOB_NAME),
        keysOf<GetPotentiostatStateParameters>(N::GET_POTENTIOSTAT_STATE_JOB_NAME),
        keysOf<GetHardwarePropertyParameters>(N::GET_HARDWARE_PROPERTY_JOB_NAME),
        keysOf<SetHardwarePropertyParameters>(N::SET_HARDWARE_PROPERTY_JOB_NAME),
        keysOf<MeasureIntegralParameters>(N::MEASURE_INTEGRAL_JOB_NAME),
        keysOf<SetFirmwareUpdateParameters>(N::SET_FIRMWARE_UPDATE_JOB_NAME),
        keysOf<SetHardwareSettingsParameters>(N::SET_HARDWARE_SETTINGS_JOB_NAME),
    };
}

/// The kinds that send "parameters": {}.
const std::set<std::string_view> kWithoutParameters{
    JobNames::SWITCH_ALL_OFF_JOB_NAME,   JobNames::GET_DATETIME_NAME,
    JobNames::INITIALIZE_RTC_JOB_NAME,   JobNames::GET_HARDWARE_INFO_JOB_NAME,
    JobNames::GET_HARDWARE_SETTINGS_JOB_NAME, JobNames::REBOOT_JOB_NAME,
    JobNames::REENUMERATE_HARDWARE_JOB_NAME,  JobNames::GET_MESH_JSON_FILE_JOB_NAME,
};

TEST(JobCatalogRecords, EveryKeyTableMatchesTheRecordOfItsKind) {
    for (const auto& record : recordKinds()) {
        SCOPED_TRACE(std::string(record.type));
        const auto* kind = findJobKind(record.type);
        ASSERT_NE(kind, nullptr) << "the emulator does not know the kind";
        std::set<std::string, std::less<>> table;
        for (const auto& key : kind->keys) {
            table.emplace(key.name);
            EXPECT_TRUE(record.members.contains(key.name)) << "the emulator reads '" << key.name
                                                           << "', which the record does not have";
        }
        for (const auto& member : record.members) {
            EXPECT_TRUE(table.contains(member)) << "the record's member '" << member
                                                << "' is unknown to the emulator's table";
        }
    }
}

TEST(JobCatalogRecords, EveryCatalogueKindIsCoveredAndControlKindsHaveAHardwareEntry) {
    const auto records = recordKinds();
    for (const auto& kind : allJobKinds()) {
        SCOPED_TRACE(std::string(kind.type));
        const bool hasRecord =
            std::ranges::any_of(records, [&](const RecordKeys& r) { return r.type == kind.type; });
        if (!hasRecord) {
            EXPECT_TRUE(kWithoutParameters.contains(kind.type)) << "a kind without a record to check against";
            EXPECT_TRUE(kind.keys.empty());
        }
        const bool runsOnHardware = kind.family == JobFamilyEnum::CONTROL || kind.family == JobFamilyEnum::CALIBRATION;
        EXPECT_EQ(findHardwareJob(kind.type) != nullptr, runsOnHardware);
    }
    for (const auto type : hardwareJobTypes()) EXPECT_NE(findJobKind(type), nullptr) << type;
}

}  // namespace
}  // namespace velmar::emulator::testing
