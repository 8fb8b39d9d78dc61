#pragma once

// Control jobs (no result of their own) and information jobs (one result value each).

#include "json_common/configuration/hardware_info.hpp"
#include "json_common/configuration/hardware_settings.hpp"
#include "json_common/job_parameters/control_parameters.hpp"
#include "json_common/job_parameters/job_results.hpp"
#include "velmar_link_json/jobs/job_names.hpp"
#include "velmar_link_json/jobs/measurement_job_template.hpp"

#include <string>

namespace velmar {

using Parameterless = AbstractMeasurementJob::Parameterless;

using BeepJob = MeasurementJobTemplate<BeepParameters, JobNames::BEEP_JOB_NAME>;
using SleepJob = MeasurementJobTemplate<SleepParameters, JobNames::SLEEP_JOB_NAME>;
using SetLedColorJob = MeasurementJobTemplate<SetLedColorParameters, JobNames::SET_LED_COLOR_JOB_NAME>;
using SwitchOnQuickJob = MeasurementJobTemplate<SwitchOnQuickParameters, JobNames::SWITCH_ON_QUICK_JOB_NAME>;
using SwitchOffJob = MeasurementJobTemplate<SwitchOffParameters, JobNames::SWITCH_OFF_JOB_NAME>;
using SwitchAllOffJob = MeasurementJobTemplate<Parameterless, JobNames::SWITCH_ALL_OFF_JOB_NAME>;
using SetBiasJob = MeasurementJobTemplate<SetBiasParameters, JobNames::SET_BIAS_JOB_NAME>;
using SetVoltageRangeJob = MeasurementJobTemplate<SetVoltageRangeParameters, JobNames::SET_VOLTAGE_RANGE_JOB_NAME>;
using SetActiveGainsJob = MeasurementJobTemplate<SetActiveGainsParameters, JobNames::SET_ACTIVE_GAINS_JOB_NAME>;
using SetActiveCurrentRangesJob =
    MeasurementJobTemplate<SetActiveCurrentRangesParameters, JobNames::SET_ACTIVE_CURRENT_RANGES_JOB_NAME>;
using SetCableOptionsJob = MeasurementJobTemplate<SetCableOptionsParameters, JobNames::SET_CABLE_OPTIONS_JOB_NAME>;
using SetDateTimeJob = MeasurementJobTemplate<SetDateTimeParameters, JobNames::SET_DATETIME_NAME>;
using InitializeRtcJob = MeasurementJobTemplate<Parameterless, JobNames::INITIALIZE_RTC_JOB_NAME>;
using SetHardwarePropertyJob =
    MeasurementJobTemplate<SetHardwarePropertyParameters, JobNames::SET_HARDWARE_PROPERTY_JOB_NAME>;
using SetFirmwareUpdateJob =
    MeasurementJobTemplate<SetFirmwareUpdateParameters, JobNames::SET_FIRMWARE_UPDATE_JOB_NAME>;
using RebootJob = MeasurementJobTemplate<Parameterless, JobNames::REBOOT_JOB_NAME>;
using ReenumerateHardwareJob = MeasurementJobTemplate<Parameterless, JobNames::REENUMERATE_HARDWARE_JOB_NAME>;

/// Sets the sampling configuration; also built from a UserHardwareSettings.
class SetHardwareSettingsJob
    : public MeasurementJobTemplate<SetHardwareSettingsParameters, JobNames::SET_HARDWARE_SETTINGS_JOB_NAME> {
public:
    using MeasurementJobTemplate::MeasurementJobTemplate;
    explicit SetHardwareSettingsJob(const UserHardwareSettings& config);
};

// Single-value jobs. extractJobResult leaves the value unchanged when the completion message
// has no "result" object and throws (JSON library error or std::invalid_argument) when the
// result does not match its record.

class SwitchOnJob : public SingleValueMeasurementJobTemplate<SwitchOnInfo, SwitchOnParameters,
                                                             JobNames::SWITCH_ON_JOB_NAME> {
public:
    using SingleValueMeasurementJobTemplate::SingleValueMeasurementJobTemplate;
    /// "applied_bias", "voltage" and "current" must each be present and numeric.
    void extractJobResult(const boost::json::object& message) override;
};

class GetAdcStateJob : public SingleValueMeasurementJobTemplate<AdcStateInfo, GetAdcStateParameters,
                                                                JobNames::GET_ADC_STATE_JOB_NAME> {
public:
    using SingleValueMeasurementJobTemplate::SingleValueMeasurementJobTemplate;
    void extractJobResult(const boost::json::object& message) override;
};

class GetPotentiostatStateJob
    : public SingleValueMeasurementJobTemplate<PotentiostatState, GetPotentiostatStateParameters,
                                               JobNames::GET_POTENTIOSTAT_STATE_JOB_NAME> {
public:
    using SingleValueMeasurementJobTemplate::SingleValueMeasurementJobTemplate;
    void extractJobResult(const boost::json::object& message) override;
};

class GetHardwareInfoJob
    : public SingleValueMeasurementJobTemplate<HardwareInfo, Parameterless, JobNames::GET_HARDWARE_INFO_JOB_NAME> {
public:
    using SingleValueMeasurementJobTemplate::SingleValueMeasurementJobTemplate;
    void extractJobResult(const boost::json::object& message) override;
};

class GetHardwareSettingsJob : public SingleValueMeasurementJobTemplate<HardwareSettings, Parameterless,
                                                                        JobNames::GET_HARDWARE_SETTINGS_JOB_NAME> {
public:
    using SingleValueMeasurementJobTemplate::SingleValueMeasurementJobTemplate;
    void extractJobResult(const boost::json::object& message) override;
};

class GetDateTimeJob
    : public SingleValueMeasurementJobTemplate<std::string, Parameterless, JobNames::GET_DATETIME_NAME> {
public:
    using SingleValueMeasurementJobTemplate::SingleValueMeasurementJobTemplate;
    /// "datetime" must be a text.
    void extractJobResult(const boost::json::object& message) override;
};

class GetHardwarePropertyJob
    : public SingleValueMeasurementJobTemplate<HardwarePropertyValue, GetHardwarePropertyParameters,
                                               JobNames::GET_HARDWARE_PROPERTY_JOB_NAME> {
public:
    using SingleValueMeasurementJobTemplate::SingleValueMeasurementJobTemplate;
    /// "value" becomes the alternative of its JSON kind: boolean, integer, double or text.
    void extractJobResult(const boost::json::object& message) override;
};

class MeasureIntegralJob : public SingleValueMeasurementJobTemplate<double, MeasureIntegralParameters,
                                                                    JobNames::MEASURE_INTEGRAL_JOB_NAME> {
public:
    using SingleValueMeasurementJobTemplate::SingleValueMeasurementJobTemplate;
    /// "value" must be a number (integer or double).
    void extractJobResult(const boost::json::object& message) override;
};

extern template class MeasurementJobTemplate<BeepParameters, JobNames::BEEP_JOB_NAME>;
extern template class MeasurementJobTemplate<SleepParameters, JobNames::SLEEP_JOB_NAME>;
extern template class MeasurementJobTemplate<SetLedColorParameters, JobNames::SET_LED_COLOR_JOB_NAME>;
extern template class MeasurementJobTemplate<SwitchOnQuickParameters, JobNames::SWITCH_ON_QUICK_JOB_NAME>;
extern template class MeasurementJobTemplate<SwitchOffParameters, JobNames::SWITCH_OFF_JOB_NAME>;
extern template class MeasurementJobTemplate<Parameterless, JobNames::SWITCH_ALL_OFF_JOB_NAME>;
extern template class MeasurementJobTemplate<SetBiasParameters, JobNames::SET_BIAS_JOB_NAME>;
extern template class MeasurementJobTemplate<SetVoltageRangeParameters, JobNames::SET_VOLTAGE_RANGE_JOB_NAME>;
extern template class MeasurementJobTemplate<SetActiveGainsParameters, JobNames::SET_ACTIVE_GAINS_JOB_NAME>;
extern template class MeasurementJobTemplate<SetActiveCurrentRangesParameters,
                                             JobNames::SET_ACTIVE_CURRENT_RANGES_JOB_NAME>;
extern template class MeasurementJobTemplate<SetCableOptionsParameters, JobNames::SET_CABLE_OPTIONS_JOB_NAME>;
extern template class MeasurementJobTemplate<SetDateTimeParameters, JobNames::SET_DATETIME_NAME>;
extern template class MeasurementJobTemplate<Parameterless, JobNames::INITIALIZE_RTC_JOB_NAME>;
extern template class MeasurementJobTemplate<SetHardwarePropertyParameters, JobNames::SET_HARDWARE_PROPERTY_JOB_NAME>;
extern template class MeasurementJobTemplate<SetFirmwareUpdateParameters, JobNames::SET_FIRMWARE_UPDATE_JOB_NAME>;
extern template class MeasurementJobTemplate<Parameterless, JobNames::REBOOT_JOB_NAME>;
extern template class MeasurementJobTemplate<Parameterless, JobNames::REENUMERATE_HARDWARE_JOB_NAME>;
extern template class MeasurementJobTemplate<SetHardwareSettingsParameters, JobNames::SET_HARDWARE_SETTINGS_JOB_NAME>;
extern template class MeasurementJobTemplate<SwitchOnParameters, JobNames::SWITCH_ON_JOB_NAME>;
extern template class MeasurementJobTemplate<GetAdcStateParameters, JobNames::GET_ADC_STATE_JOB_NAME>;
extern template class MeasurementJobTemplate<GetPotentiostatStateParameters,
                                             JobNames::GET_POTENTIOSTAT_STATE_JOB_NAME>;
extern template class MeasurementJobTemplate<Parameterless, JobNames::GET_HARDWARE_INFO_JOB_NAME>;
extern template class MeasurementJobTemplate<Parameterless, JobNames::GET_HARDWARE_SETTINGS_JOB_NAME>;
extern template class MeasurementJobTemplate<Parameterless, JobNames::GET_DATETIME_NAME>;
extern template class MeasurementJobTemplate<GetHardwarePropertyParameters, JobNames::GET_HARDWARE_PROPERTY_JOB_NAME>;
extern template class MeasurementJobTemplate<MeasureIntegralParameters, JobNames::MEASURE_INTEGRAL_JOB_NAME>;

}  // namespace velmar
