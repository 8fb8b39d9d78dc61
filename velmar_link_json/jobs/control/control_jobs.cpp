#include "velmar_link_json/jobs/control/control_jobs.hpp"

#include "json_common/detail/described_json.hpp"
#include "velmar_link_json/jobs/measurement_job_template_impl.hpp"

namespace velmar {

template class MeasurementJobTemplate<BeepParameters, JobNames::BEEP_JOB_NAME>;
template class MeasurementJobTemplate<SleepParameters, JobNames::SLEEP_JOB_NAME>;
template class MeasurementJobTemplate<SetLedColorParameters, JobNames::SET_LED_COLOR_JOB_NAME>;
template class MeasurementJobTemplate<SwitchOnQuickParameters, JobNames::SWITCH_ON_QUICK_JOB_NAME>;
template class MeasurementJobTemplate<SwitchOffParameters, JobNames::SWITCH_OFF_JOB_NAME>;
template class MeasurementJobTemplate<Parameterless, JobNames::SWITCH_ALL_OFF_JOB_NAME>;
template class MeasurementJobTemplate<SetBiasParameters, JobNames::SET_BIAS_JOB_NAME>;
template class MeasurementJobTemplate<SetVoltageRangeParameters, JobNames::SET_VOLTAGE_RANGE_JOB_NAME>;
template class MeasurementJobTemplate<SetActiveGainsParameters, JobNames::SET_ACTIVE_GAINS_JOB_NAME>;
template class MeasurementJobTemplate<SetActiveCurrentRangesParameters, JobNames::SET_ACTIVE_CURRENT_RANGES_JOB_NAME>;
template class MeasurementJobTemplate<SetCableOptionsParameters, JobNames::SET_CABLE_OPTIONS_JOB_NAME>;
template class MeasurementJobTemplate<SetDateTimeParameters, JobNames::SET_DATETIME_NAME>;
template class MeasurementJobTemplate<Parameterless, JobNames::INITIALIZE_RTC_JOB_NAME>;
template class MeasurementJobTemplate<SetHardwarePropertyParameters, JobNames::SET_HARDWARE_PROPERTY_JOB_NAME>;
template class MeasurementJobTemplate<SetFirmwareUpdateParameters, JobNames::SET_FIRMWARE_UPDATE_JOB_NAME>;
template class MeasurementJobTemplate<Parameterless, JobNames::REBOOT_JOB_NAME>;
template class MeasurementJobTemplate<Parameterless, JobNames::REENUMERATE_HARDWARE_JOB_NAME>;
template class MeasurementJobTemplate<SetHardwareSettingsParameters, JobNames::SET_HARDWARE_SETTINGS_JOB_NAME>;
template class MeasurementJobTemplate<SwitchOnParameters, JobNames::SWITCH_ON_JOB_NAME>;
template class MeasurementJobTemplate<GetAdcStateParameters, JobNames::GET_ADC_STATE_JOB_NAME>;
template class MeasurementJobTemplate<GetPotentiostatStateParameters, JobNames::GET_POTENTIOSTAT_STATE_JOB_NAME>;
template class MeasurementJobTemplate<Parameterless, JobNames::GET_HARDWARE_INFO_JOB_NAME>;
template class MeasurementJobTemplate<Parameterless, JobNames::GET_HARDWARE_SETTINGS_JOB_NAME>;
template class MeasurementJobTemplate<Parameterless, JobNames::GET_DATETIME_NAME>;
template class MeasurementJobTemplate<GetHardwarePropertyParameters, JobNames::GET_HARDWARE_PROPERTY_JOB_NAME>;
template class MeasurementJobTemplate<MeasureIntegralParameters, JobNames::MEASURE_INTEGRAL_JOB_NAME>;

SetHardwareSettingsJob::SetHardwareSettingsJob(const UserHardwareSettings& config)
    : MeasurementJobTemplate(
          SetHardwareSettingsParameters{config.output_potentiostats, config.channels, config.impedance_configurations}) {}

namespace {
// Decodes the whole "result" object as the record R.
template <class R>
void extractRecord(const boost::json::object& message, R& out) {
    if (const auto* result = detail::findResultValue(message)) out = boost::json::value_to<R>(*result);
}
}  // namespace

void SwitchOnJob::extractJobResult(const boost::json::object& message) { extractRecord(message, result_); }
void GetAdcStateJob::extractJobResult(const boost::json::object& message) { extractRecord(message, result_); }
void GetPotentiostatStateJob::extractJobResult(const boost::json::object& message) {
    extractRecord(message, result_);
}
void GetHardwareInfoJob::extractJobResult(const boost::json::object& message) { extractRecord(message, result_); }
void GetHardwareSettingsJob::extractJobResult(const boost::json::object& message) {
    extractRecord(message, result_);
}

void GetDateTimeJob::extractJobResult(const boost::json::object& message) {
    if (const auto* result = detail::findResultObject(message)) result_ = std::string(result->at("datetime").as_string());
}

void GetHardwarePropertyJob::extractJobResult(const boost::json::object& message) {
    if (const auto* result = detail::findResultObject(message)) {
        result_ = detail::variantFromJson<HardwarePropertyValue>(result->at("value"));
    }
}

void MeasureIntegralJob::extractJobResult(const boost::json::object& message) {
    if (const auto* result = detail::findResultObject(message)) {
        const auto& value = result->at("value");
        if (!value.is_number()) throw std::invalid_argument("'value' of the integral is not a number");
        result_ = value.to_number<double>();
    }
}

}  // namespace velmar
