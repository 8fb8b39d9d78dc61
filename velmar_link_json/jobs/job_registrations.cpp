#include "velmar_link_json/jobs/calibration/calibration_jobs.hpp"
#include "velmar_link_json/jobs/control/control_jobs.hpp"
#include "velmar_link_json/jobs/job_parameter_factory.hpp"
#include "velmar_link_json/jobs/measurement_job_template_impl.hpp"
#include "velmar_link_json/jobs/measurement_jobs.hpp"

namespace velmar {

/// Registers the builder of one job kind: JSON to the kind's parameter structure, wrapped as
/// the template's SerializableParameterStruct.
template <class ParameterStruct, const char* JobName>
void registerBuilderInFactory(JobParameterFactory& factory) {
    using Serializable = typename MeasurementJobTemplate<ParameterStruct, JobName>::template SerializableParameterStruct<
        ParameterStruct>;
    factory.registerBuilder(JobName, [](const boost::json::value& value) -> std::shared_ptr<MeasurementParameters> {
        return std::make_shared<Serializable>(boost::json::value_to<ParameterStruct>(value));
    });
}

// Kinds without a builder (their job information carries no parameter object): calibrate and
// the service jobs, switch_all_off, set_date_time, get_date_time, initialize_rtc,
// get_hardware_info, get_hardware_property, get_hardware_settings, reboot,
// reenumerate_hardware.
void registerJobParameterBuilders(JobParameterFactory& factory) {
    registerBuilderInFactory<CvParameters, JobNames::CV_JOB_NAME>(factory);
    registerBuilderInFactory<AcCvParameters, JobNames::AC_CV_JOB_NAME>(factory);
    registerBuilderInFactory<FastCyclingParameters, JobNames::FAST_CYCLING_JOB_NAME>(factory);
    registerBuilderInFactory<RampParameters, JobNames::RAMP_JOB_NAME>(factory);
    registerBuilderInFactory<SteadyStairsParameters, JobNames::STEADYSTAIRS_JOB_NAME>(factory);
    registerBuilderInFactory<PogaParameters, JobNames::POGA_JOB_NAME>(factory);
    registerBuilderInFactory<OcvParameters, JobNames::OCV_JOB_NAME>(factory);
    registerBuilderInFactory<NpvParameters, JobNames::NPV_JOB_NAME>(factory);
    registerBuilderInFactory<DpvParameters, JobNames::DPV_JOB_NAME>(factory);
    registerBuilderInFactory<SwvParameters, JobNames::SWV_JOB_NAME>(factory);
    registerBuilderInFactory<WaveParameters, JobNames::WAVE_JOB_NAME>(factory);
    registerBuilderInFactory<WaveFileParameters, JobNames::WAVE_FILE_JOB_NAME>(factory);

    registerBuilderInFactory<EisParametersGenerate, JobNames::EIS_GENERATE_JOB_NAME>(factory);
    registerBuilderInFactory<EisParametersFrequencyTable, JobNames::EIS_TABLE_JOB_NAME>(factory);
    registerBuilderInFactory<EisMultisineParametersGenerate, JobNames::EIS_MULTISINE_GENERATE_JOB_NAME>(factory);
    registerBuilderInFactory<EisMultiSineTable, JobNames::EIS_MULTISINE_TABLE_JOB_NAME>(factory);
    registerBuilderInFactory<GeisVaParametersGenerate, JobNames::GEIS_VA_GENERATE_JOB_NAME>(factory);
    registerBuilderInFactory<GeisVaParametersFrequencyTable, JobNames::GEIS_VA_TABLE_JOB_NAME>(factory);

    registerBuilderInFactory<BeepParameters, JobNames::BEEP_JOB_NAME>(factory);
    registerBuilderInFactory<SleepParameters, JobNames::SLEEP_JOB_NAME>(factory);
    registerBuilderInFactory<SetLedColorParameters, JobNames::SET_LED_COLOR_JOB_NAME>(factory);
    registerBuilderInFactory<SwitchOnParameters, JobNames::SWITCH_ON_JOB_NAME>(factory);
    registerBuilderInFactory<SwitchOnQuickParameters, JobNames::SWITCH_ON_QUICK_JOB_NAME>(factory);
    registerBuilderInFactory<SwitchOffParameters, JobNames::SWITCH_OFF_JOB_NAME>(factory);
    registerBuilderInFactory<SetBiasParameters, JobNames::SET_BIAS_JOB_NAME>(factory);
    registerBuilderInFactory<SetVoltageRangeParameters, JobNames::SET_VOLTAGE_RANGE_JOB_NAME>(factory);
    registerBuilderInFactory<SetActiveGainsParameters, JobNames::SET_ACTIVE_GAINS_JOB_NAME>(factory);
    registerBuilderInFactory<SetActiveCurrentRangesParameters, JobNames::SET_ACTIVE_CURRENT_RANGES_JOB_NAME>(factory);
    registerBuilderInFactory<SetCableOptionsParameters, JobNames::SET_CABLE_OPTIONS_JOB_NAME>(factory);
    registerBuilderInFactory<GetAdcStateParameters, JobNames::GET_ADC_STATE_JOB_NAME>(factory);
    registerBuilderInFactory<GetPotentiostatStateParameters, JobNames::GET_POTENTIOSTAT_STATE_JOB_NAME>(factory);
    registerBuilderInFactory<SetHardwarePropertyParameters, JobNames::SET_HARDWARE_PROPERTY_JOB_NAME>(factory);
    registerBuilderInFactory<SetHardwareSettingsParameters, JobNames::SET_HARDWARE_SETTINGS_JOB_NAME>(factory);
    registerBuilderInFactory<MeasureIntegralParameters, JobNames::MEASURE_INTEGRAL_JOB_NAME>(factory);
    registerBuilderInFactory<SetFirmwareUpdateParameters, JobNames::SET_FIRMWARE_UPDATE_JOB_NAME>(factory);
}

}  // namespace velmar
