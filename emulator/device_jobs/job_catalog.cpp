#include "emulator/device_jobs/job_catalog.hpp"

#include "emulator/core/emulator_messages.hpp"
#include "emulator/device_jobs/device_limits.hpp"
#include "emulator/device_jobs/job_messages.hpp"
#include "json_common/job_parameters/calibration_parameters.hpp"
#include "json_common/job_parameters/eis_parameters.hpp"

#include <boost/json.hpp>

#include <array>
#include <cmath>
#include <exception>
#include <stdexcept>

namespace velmar::emulator {

namespace json = boost::json;

namespace {

using K = KeyKindEnum;

/// The hammer-and-wrench prefix of the calibration service kinds (U+1F6E0 U+FE0F, "/").
#define VELMAR_SERVICE_PREFIX "\xF0\x9F\x9B\xA0\xEF\xB8\x8F/"

// Ranges: set-points within +-kSetPoint, times from kMinStepTime up to a week, rates and
// counts as device_limits.hpp gives them. Derived quantities (rows, duration, steps of the
// set-point curve) are checked by the waveform before it is built.
constexpr double kSet = limits::kSetPoint;
constexpr double kWeek = limits::kMaxJobSeconds;
constexpr ParameterKey kStart{"start_value", K::NUMBER, -kSet, kSet};
constexpr ParameterKey kEnd{"end_value", K::NUMBER, -kSet, kSet};
constexpr ParameterKey kScanRate{"scan_rate", K::NUMBER, limits::kMinScanRate, limits::kMaxScanRate};
constexpr ParameterKey kOutputRate{"output_data_rate", K::NUMBER, limits::kMinOutputDataRate,
                                   limits::kMaxOutputDataRate};
constexpr ParameterKey kCycles{"num_cycles", K::NUMBER, 0.0, limits::kMaxCycles};
constexpr ParameterKey kAutorange{"autorange", K::BOOL};
constexpr ParameterKey kCurrentRange{"current_range", K::NUMBER, 0.0, limits::kCurrentRange};
constexpr ParameterKey kTurnCheck{"turn_limit_check", K::BOOL};
constexpr ParameterKey kUpperTurn{"upper_turn_boundary", K::NUMBER, -kSet, kSet};
constexpr ParameterKey kLowerTurn{"lower_turn_boundary", K::NUMBER, -kSet, kSet};
constexpr ParameterKey kStepHeight{"step_height", K::NUMBER, 0.0, 2.0 * kSet};
constexpr ParameterKey kIrDrop{"ir_drop", K::NUMBER, 0.0, limits::kIrDrop};
constexpr ParameterKey kStepTime{"step_time", K::NUMBER, limits::kMinStepTime, kWeek};
constexpr ParameterKey kStepValue{"step_value", K::NUMBER, limits::kMinStep, 2.0 * kSet};
constexpr ParameterKey kPulseTime{"pulse_time", K::NUMBER, limits::kMinStepTime, kWeek};
constexpr ParameterKey kBias{"bias", K::NUMBER, -kSet, kSet};
constexpr ParameterKey kJobDuration{"duration", K::NUMBER, limits::kMinStepTime, kWeek};
constexpr ParameterKey kValueRate{"value_rate", K::NUMBER, 1e-3, limits::kMaxValueRate};
constexpr ParameterKey kRepetitions{"repetitions", K::NUMBER, 0.0, limits::kMaxRepetitions};
constexpr ParameterKey kFirstVertex{"first_vertex", K::NUMBER, -kSet, kSet};
constexpr ParameterKey kSecondVertex{"second_vertex", K::NUMBER, -kSet, kSet};

constexpr ParameterKey kCv[] = {kStart,
                                kFirstVertex,
                                kSecondVertex,
                                kEnd,
                                kScanRate,
                                kOutputRate,
                                kCycles,
                                kAutorange,
                                kCurrentRange,
                                kTurnCheck,
                                kUpperTurn,
                                kLowerTurn,
                                kStepHeight,
                                kIrDrop};
constexpr ParameterKey kAcCv[] = {kStart,
                                  kFirstVertex,
                                  kSecondVertex,
                                  kEnd,
                                  kScanRate,
                                  kOutputRate,
                                  kCycles,
                                  {"amplitude", K::NUMBER, -kSet, kSet},
                                  {"frequency", K::NUMBER, 1e-3, limits::kMaxSineFrequency},
                                  kCurrentRange};
constexpr ParameterKey kFastCycling[] = {{"first_step", K::NUMBER, -kSet, kSet},
                                         {"second_step", K::NUMBER, -kSet, kSet},
                                         kEnd,
                                         kStepTime,
                                         kOutputRate,
                                         kCycles,
                                         kAutorange,
                                         kCurrentRange,
                                         kTurnCheck,
                                         kUpperTurn,
                                         kLowerTurn};
constexpr ParameterKey kRamp[] = {kStart, kEnd, kScanRate, kStepHeight, kOutputRate, kAutorange, kCurrentRange};
constexpr ParameterKey kSteadyStairs[] = {kStart,
                                          kEnd,
                                          kStepTime,
                                          {"step_height", K::NUMBER, limits::kMinStep, 2.0 * kSet},
                                          {"hold_time", K::NUMBER, 0.0, kWeek},
                                          {"stability_tolerance", K::NUMBER, 0.0, kSet},
                                          kOutputRate,
                                          kAutorange,
                                          kCurrentRange,
                                          kIrDrop};
constexpr ParameterKey kPoga[] = {kBias, kJobDuration, kOutputRate, kAutorange, kCurrentRange};
constexpr ParameterKey kOcv[] = {kJobDuration, kOutputRate};
constexpr ParameterKey kNpv[] = {{"base_value", K::NUMBER, -kSet, kSet},
                                 kStart,
                                 kStepValue,
                                 kEnd,
                                 kStepTime,
                                 kPulseTime,
                                 kOutputRate,
                                 kCurrentRange};
constexpr ParameterKey kDpv[] = {kStart,
                                 kStepValue,
                                 {"pulse_value", K::NUMBER, -kSet, kSet},
                                 kEnd,
                                 kStepTime,
                                 kPulseTime,
                                 {"invert_pulse", K::BOOL},
                                 kOutputRate,
                                 kCurrentRange};
constexpr ParameterKey kSwv[] = {kStart,
                                 kStepValue,
                                 {"amplitude", K::NUMBER, -kSet, kSet},
                                 kEnd,
                                 {"period", K::NUMBER, 2.0 * limits::kMinStepTime, kWeek},
                                 kOutputRate,
                                 kCurrentRange};
constexpr ParameterKey kWave[] = {kOutputRate,   kValueRate,
                                  kRepetitions,  kCurrentRange,
                                  {"values", K::NUMBER_ARRAY, -kSet, kSet}, kBias};
constexpr ParameterKey kWaveFile[] = {kOutputRate,   kValueRate, kRepetitions,
                                      kCurrentRange, {"resource_id", K::STRING}, kBias};
constexpr ParameterKey kDrift{"drift_correction", K::OBJECT, -kNoLimit, kNoLimit, false};
constexpr ParameterKey kImpedance[] = {kBias, {"frequency_range", K::OBJECT}, kDrift};
constexpr ParameterKey kMultisine[] = {kBias, {"frequency_range", K::OBJECT}, kDrift,
                                       {"multisine_wave_in_result", K::BOOL, -kNoLimit, kNoLimit, false}};
constexpr ParameterKey kGeisVa[] = {kBias,
                                    {"frequency_range", K::OBJECT},
                                    kDrift,
                                    {"minimum_current_amplitude", K::NUMBER, 0.0, limits::kCurrentRange, false},
                                    {"maximum_current_amplitude", K::NUMBER, 0.0, limits::kCurrentRange, false}};
// The members of "frequency_range" and of its table entries (present-or-not is the record's
// check).
constexpr double kFMin = limits::kMinFrequency;
constexpr double kFMax = limits::kMaxFrequency;
constexpr double kWaves = limits::kMaxWaves;
constexpr ParameterKey kGenerateRange[] = {
    {"min_frequency", K::NUMBER, kFMin, kFMax, false},
    {"max_frequency", K::NUMBER, kFMin, kFMax, false},
    {"start_frequency", K::NUMBER, kFMin, kFMax, false},
    {"points_per_decade_upper", K::INTEGER, 1.0, limits::kMaxPointsPerDecade, false},
    {"points_per_decade_lower", K::INTEGER, 1.0, limits::kMaxPointsPerDecade, false},
    {"pre_duration", K::NUMBER, 0.0, kWeek, false},
    {"pre_waves", K::INTEGER, 0.0, kWaves, false},
    {"meas_duration", K::NUMBER, 0.0, kWeek, false},
    {"meas_waves", K::INTEGER, 0.0, kWaves, false},
    {"amplitude", K::NUMBER, 0.0, kSet, false},
    {"multisine_pre_waves", K::INTEGER, 0.0, kWaves, false},
    {"multisine_meas_waves", K::INTEGER, 0.0, kWaves, false},
    {"multisine_decades", K::INTEGER, 1.0, 12.0, false},
    {"multisine_starting_harmonic", K::INTEGER, 1.0, 1e6, false},
    {"fundamental_frequency", K::NUMBER, kFMin, kFMax, false},
};
constexpr ParameterKey kTableEntry[] = {
    {"frequency", K::NUMBER, kFMin, kFMax, false},   {"amplitude", K::NUMBER, 0.0, kSet, false},
    {"pre_duration", K::NUMBER, 0.0, kWeek, false},  {"pre_waves", K::INTEGER, 0.0, kWaves, false},
    {"meas_duration", K::NUMBER, 0.0, kWeek, false}, {"meas_waves", K::INTEGER, 0.0, kWaves, false},
    {"harmonic", K::INTEGER, 1.0, 1e6, false},
};
constexpr ParameterKey kCalibrate[] = {{"calibration_type", K::STRING},
                                       {"calibration_path", K::STRING, -kNoLimit, kNoLimit, false},
                                       {"indexes", K::INTEGER_ARRAY, 0.0, 1000.0, false},
                                       {"paths", K::ARRAY, -kNoLimit, kNoLimit, false}};
constexpr ParameterKey kCalibrationData[] = {{"calibration_type", K::STRING},
                                             {"calibration_path", K::STRING},
                                             {"indexes", K::INTEGER_ARRAY, 0.0, 1000.0}};
constexpr ParameterKey kSetCalibrationData[] = {{"calibration_type", K::STRING},
                                                {"calibration_path", K::STRING},
                                                {"indexes", K::INTEGER_ARRAY, 0.0, 1000.0},
                                                {"data", K::OBJECT}};
constexpr ParameterKey kSetMesh[] = {{"name", K::STRING}, {"content", K::STRING}};
constexpr ParameterKey kFilterMatrix[] = {{"uri", K::STRING}};
constexpr ParameterKey kBeep[] = {{"frequency", K::NUMBER, 20.0, 20000.0}, {"duration", K::NUMBER, 0.0, 10.0}};
constexpr ParameterKey kSleep[] = {{"duration", K::NUMBER, 0.0, 86400.0}};
constexpr ParameterKey kLed[] = {
    {"red", K::INTEGER, 0.0, 255.0}, {"green", K::INTEGER, 0.0, 255.0}, {"blue", K::INTEGER, 0.0, 255.0}};
constexpr ParameterKey kSwitchOn[] = {{"potentiostat", K::STRING},
                                      {"coupling", K::STRING},
                                      {"bias", K::NUMBER, -kSet, kSet},
                                      {"voltage_range_index", K::INTEGER, 0.0, 2.0},
                                      {"compliance_range_index", K::INTEGER, 0.0, 1.0}};
constexpr ParameterKey kPotentiostat[] = {{"potentiostat", K::STRING}};
constexpr ParameterKey kSetBias[] = {{"potentiostat", K::STRING}, {"bias", K::NUMBER, -kSet, kSet}};
constexpr ParameterKey kVoltageRange[] = {{"potentiostat", K::STRING}, {"index", K::INTEGER, 0.0, 2.0}};
constexpr ParameterKey kActiveGains[] = {{"adc", K::STRING}, {"indexes", K::INTEGER_ARRAY, 0.0, 3.0}};
constexpr ParameterKey kCurrentRanges[] = {{"potentiostat", K::STRING}, {"indexes", K::INTEGER_ARRAY, 0.0, 8.0}};
constexpr ParameterKey kCable[] = {{"potentiostat", K::STRING}, {"additional_ce_capacitance", K::NUMBER, 0.0, 1e-6}};
constexpr ParameterKey kDateTime[] = {{"datetime", K::STRING}};
constexpr ParameterKey kAdc[] = {{"adc", K::STRING}};
constexpr ParameterKey kGetProperty[] = {{"uri", K::STRING}, {"key", K::STRING}};
constexpr ParameterKey kSetProperty[] = {{"uri", K::STRING}, {"key", K::STRING}, {"value", K::SCALAR}};
constexpr ParameterKey kIntegral[] = {{"channel", K::STRING}, {"duration", K::NUMBER, 0.001, 3600.0}};
constexpr ParameterKey kFirmware[] = {{"resource_id", K::STRING}};
constexpr ParameterKey kHardwareSettings[] = {
    {"output_potentiostats", K::ARRAY}, {"channels", K::ARRAY}, {"impedance_configurations", K::ARRAY}};

/// Converts to the client's record; a missing key becomes PARAMETER_MISSING, any other
/// refusal PARAMETER_FORMAT_INVALID.
template <class Record>
ErrorObject recordCheck(const json::object& parameters) {
    try {
        (void)json::value_to<Record>(json::value(parameters));
        return {};
    } catch (const std::out_of_range& error) {
        std::string_view what = error.what();
        constexpr std::string_view prefix = "key not found: ";
        if (what.starts_with(prefix)) what.remove_prefix(prefix.size());
        return ErrorObject(ErrorCodeEnum::PARAMETER_MISSING, messages::PARAMETER_MISSING, what);
    } catch (const std::exception& error) {
        return ErrorObject(ErrorCodeEnum::PARAMETER_FORMAT_INVALID, messages::PARAMETER_FORMAT_INVALID,
                           "parameters", error.what());
    }
}

using F = JobFamilyEnum;

ErrorObject checkKeys(std::span<const ParameterKey> keys, const json::object& parameters);

/// The spectrum of an impedance kind: the members of "frequency_range" and of each entry of
/// its table within their ranges, at most kMaxSpectrumPoints entries (PARAMETER_VALUE_TOO_HIGH
/// on "points").
ErrorObject checkSpectrum(const json::object& parameters) {
    const auto* range = parameters.if_contains("frequency_range");
    if (range == nullptr || !range->is_object()) return {};
    if (auto error = checkKeys(kGenerateRange, range->get_object())) return error;
    for (const auto* name : {"spectrum", "harmonics"}) {
        const auto* table = range->get_object().if_contains(name);
        if (table == nullptr || !table->is_array()) continue;
        const auto points = table->get_array().size();
        if (static_cast<double>(points) > limits::kMaxSpectrumPoints) {
            return ErrorObject(ErrorCodeEnum::PARAMETER_VALUE_TOO_HIGH, messages::PARAMETER_VALUE_TOO_HIGH, "points",
                               std::uint64_t{points}, limits::kMaxSpectrumPoints);
        }
        for (const auto& entry : table->get_array()) {
            if (const auto* object = entry.if_object()) {
                if (auto error = checkKeys(kTableEntry, *object)) return error;
            }
        }
    }
    return {};
}

/// The optional members of the impedance records, which take the records' defaults when
/// absent.
constexpr std::string_view kOptionalImpedanceKeys[] = {"multisine_wave_in_result", "minimum_current_amplitude",
                                                       "maximum_current_amplitude"};

template <class Record>
json::object withDefaults(const json::object& parameters) {
    json::object completed = parameters;
    const auto defaults = json::value_from(Record{});
    for (const auto key : kOptionalImpedanceKeys) {
        if (const auto* value = defaults.as_object().if_contains(key); value != nullptr && !completed.contains(key))
            completed[key] = *value;
    }
    return completed;
}

/// The record check of an impedance kind, then its spectrum's ranges.
template <class Record>
ErrorObject impedanceCheck(const json::object& parameters) {
    if (auto error = recordCheck<Record>(withDefaults<Record>(parameters))) return error;
    return checkSpectrum(parameters);
}

// clang-format off
const JobKind kKinds[] = {
    {"cv", F::DC, false, kCv, nullptr},
    {"ac_cv", F::DC, false, kAcCv, nullptr},
    {"fast_cycling", F::DC, false, kFastCycling, nullptr},
    {"ramp", F::DC, false, kRamp, nullptr},
    {"steady_stairs", F::DC, false, kSteadyStairs, nullptr},
    {"poga", F::DC, false, kPoga, nullptr},
    {"ocv", F::DC, false, kOcv, nullptr},
    {"npv", F::DC, false, kNpv, nullptr},
    {"dpv", F::DC, false, kDpv, nullptr},
    {"swv", F::DC, false, kSwv, nullptr},
    {"wave", F::DC, false, kWave, nullptr},
    {"wave_file", F::DC, false, kWaveFile, nullptr},
    {"eis", F::AC, false, kImpedance, &impedanceCheck<EisParametersGenerate>},
    {"eis_table", F::AC, false, kImpedance, &impedanceCheck<EisParametersFrequencyTable>},
    {"eis_multisine", F::AC, false, kMultisine, &impedanceCheck<EisMultisineParametersGenerate>},
    {"eis_multisine_table", F::AC, false, kMultisine, &impedanceCheck<EisMultiSineTable>},
    {"geis_va", F::AC, false, kGeisVa, &impedanceCheck<GeisVaParametersGenerate>},
    {"geis_va_table", F::AC, false, kGeisVa, &impedanceCheck<GeisVaParametersFrequencyTable>},
    {"calibrate", F::CALIBRATION, false, kCalibrate, nullptr},
    {VELMAR_SERVICE_PREFIX "set_calibration_data", F::CALIBRATION, false, kSetCalibrationData,
     &recordCheck<SetCalibrationDataParameters>},
    {VELMAR_SERVICE_PREFIX "get_calibration_data", F::CONTROL, true, kCalibrationData,
     &recordCheck<GetCalibrationDataParameters>},
    {VELMAR_SERVICE_PREFIX "get_mesh_json_file", F::CONTROL, true, {}, nullptr},
    {VELMAR_SERVICE_PREFIX "set_mesh_json_file", F::CONTROL, false, kSetMesh,
     &recordCheck<SetMeshJsonFileParameters>},
    {VELMAR_SERVICE_PREFIX "get_filter_usage_matrix", F::CONTROL, true, kFilterMatrix,
     &recordCheck<GetFilterUsageMatrixParameters>},
    {"beep", F::CONTROL, false, kBeep, nullptr},
    {"sleep", F::CONTROL, false, kSleep, nullptr},
    {"set_led_color", F::CONTROL, false, kLed, nullptr},
    {"switch_on", F::CONTROL, true, kSwitchOn, nullptr},
    {"switch_on_quick", F::CONTROL, false, kSwitchOn, nullptr},
    {"switch_off", F::CONTROL, false, kPotentiostat, nullptr},
    {"switch_all_off", F::CONTROL, false, {}, nullptr},
    {"set_bias", F::CONTROL, false, kSetBias, nullptr},
    {"set_voltage_range", F::CONTROL, false, kVoltageRange, nullptr},
    {"set_active_gains", F::CONTROL, false, kActiveGains, nullptr},
    {"set_active_current_ranges", F::CONTROL, false, kCurrentRanges, nullptr},
    {"set_cable_options", F::CONTROL, false, kCable, nullptr},
    {"set_date_time", F::CONTROL, false, kDateTime, nullptr},
    {"get_date_time", F::CONTROL, true, {}, nullptr},
    {"initialize_rtc", F::CONTROL, false, {}, nullptr},
    {"get_adc_state", F::CONTROL, true, kAdc, nullptr},
    {"get_potentiostat_state", F::CONTROL, true, kPotentiostat, nullptr},
    {"get_hardware_info", F::CONTROL, true, {}, nullptr},
    {"get_hardware_property", F::CONTROL, true, kGetProperty, nullptr},
    {"set_hardware_property", F::CONTROL, false, kSetProperty, nullptr},
    {"get_hardware_settings", F::CONTROL, true, {}, nullptr},
    {"set_hardware_settings", F::CONTROL, false, kHardwareSettings, nullptr},
    {"measure_integral", F::CONTROL, true, kIntegral, nullptr},
    {"set_firmware_update", F::CONTROL, false, kFirmware, nullptr},
    {"reboot", F::CONTROL, false, {}, nullptr},
    {"reenumerate_hardware", F::CONTROL, false, {}, nullptr},
};
// clang-format on

#undef VELMAR_SERVICE_PREFIX

bool isInteger(const json::value& value) {
    if (value.is_int64() || value.is_uint64()) return true;
    if (!value.is_double()) return false;
    const double d = value.get_double();
    return std::isfinite(d) && std::trunc(d) == d && std::fabs(d) < 9.0e15;
}

std::string_view expectedText(KeyKindEnum kind) {
    switch (kind) {
        case K::NUMBER:
            return "a number";
        case K::INTEGER:
            return "an integer";
        case K::BOOL:
            return "a boolean";
        case K::STRING:
            return "a string";
        case K::SCALAR:
            return "a boolean, number or string";
        case K::NUMBER_ARRAY:
            return "an array of numbers";
        case K::INTEGER_ARRAY:
            return "an array of integers";
        case K::ARRAY:
            return "an array";
        case K::OBJECT:
            return "an object";
    }
    return "a value";
}

bool hasKind(const json::value& value, KeyKindEnum kind) {
    switch (kind) {
        case K::NUMBER:
            return value.is_number();
        case K::INTEGER:
            return isInteger(value);
        case K::BOOL:
            return value.is_bool();
        case K::STRING:
            return value.is_string();
        case K::SCALAR:
            return value.is_bool() || value.is_number() || value.is_string();
        case K::NUMBER_ARRAY:
        case K::INTEGER_ARRAY: {
            const auto* array = value.if_array();
            if (array == nullptr) return false;
            for (const auto& element : *array) {
                if (kind == K::NUMBER_ARRAY ? !element.is_number() : !isInteger(element)) return false;
            }
            return true;
        }
        case K::ARRAY:
            return value.is_array();
        case K::OBJECT:
            return value.is_object();
    }
    return false;
}

ErrorObject misconfigured(std::string_view type, std::string_view why) {
    return ErrorObject(ErrorCodeEnum::STOP_CONDITION_MISCONFIGURED,
                       job_messages::STOP_CONDITION_MISCONFIGURED, type, why);
}

struct StopConditionKind {
    std::string_view type;
    std::array<std::string_view, 3> numberKeys;  // empty entries unused
    bool ordered;                                // "minimum" <= "maximum" required
    bool hasOverDimension;
};

// clang-format off
constexpr StopConditionKind kStopConditionKinds[] = {
    {"min", {"minimum", "", ""}, false, false},
    {"max", {"maximum", "", ""}, false, false},
    {"min_max", {"minimum", "maximum", ""}, true, false},
    {"in_range", {"minimum", "maximum", ""}, true, false},
    {"integrating", {"maximum", "", ""}, false, true},
    {"stability_tolerance", {"stability_tolerance", "minimum_duration", ""}, false, false},
};
// clang-format on

bool knownDimension(const json::value* value) {
    if (value == nullptr || !value->is_string()) return false;
    const std::string_view name = value->get_string();
    return name == "time" || name == "voltage" || name == "current" || name == "charge";
}

/// The range check of one number; `value` is finite (non-finite numbers are refused before).
ErrorObject checkKeyRange(const ParameterKey& key, const json::value& value) {
    if (key.low == -kNoLimit && key.high == kNoLimit) return {};
    return checkRange(key.name, value.to_number<double>(), key.low, key.high);
}

ErrorObject checkKeys(std::span<const ParameterKey> keys, const json::object& parameters) {
    for (const auto& key : keys) {
        const auto* value = parameters.if_contains(key.name);
        if (value == nullptr) {
            if (!key.required) continue;
            return ErrorObject(ErrorCodeEnum::PARAMETER_MISSING, messages::PARAMETER_MISSING, key.name);
        }
        if (!hasKind(*value, key.kind)) {
            return ErrorObject(ErrorCodeEnum::PARAMETER_FORMAT_INVALID, messages::PARAMETER_FORMAT_INVALID,
                               key.name, expectedText(key.kind));
        }
        if (key.kind == K::NUMBER || key.kind == K::INTEGER) {
            if (auto error = checkKeyRange(key, *value)) return error;
        } else if (key.kind == K::NUMBER_ARRAY || key.kind == K::INTEGER_ARRAY) {
            for (const auto& element : value->get_array()) {
                if (auto error = checkKeyRange(key, element)) return error;
            }
        }
    }
    return {};
}

}  // namespace

const JobKind* findJobKind(std::string_view type) {
    for (const auto& kind : kKinds) {
        if (kind.type == type) return &kind;
    }
    return nullptr;
}

std::span<const JobKind> allJobKinds() {
    return kKinds;
}

json::object withImpedanceDefaults(std::string_view type, const json::object& parameters) {
    if (type == "eis_multisine") return withDefaults<EisMultisineParametersGenerate>(parameters);
    if (type == "eis_multisine_table") return withDefaults<EisMultiSineTable>(parameters);
    if (type == "geis_va") return withDefaults<GeisVaParametersGenerate>(parameters);
    if (type == "geis_va_table") return withDefaults<GeisVaParametersFrequencyTable>(parameters);
    return parameters;
}

double numberOf(const json::object& parameters, std::string_view key) {
    const auto* value = parameters.if_contains(key);
    return value != nullptr && value->is_number() ? value->to_number<double>() : 0.0;
}

ErrorObject checkRange(std::string_view key, double value, double low, double high) {
    if (!std::isfinite(value))
        return ErrorObject(ErrorCodeEnum::PARAMETER_IS_NOT_A_NUMBER, messages::PARAMETER_IS_NOT_A_NUMBER, key);
    if (value > high)
        return ErrorObject(ErrorCodeEnum::PARAMETER_VALUE_TOO_HIGH, messages::PARAMETER_VALUE_TOO_HIGH, key,
                           value, high);
    if (value < low)
        return ErrorObject(ErrorCodeEnum::PARAMETER_VALUE_TOO_LOW, messages::PARAMETER_VALUE_TOO_LOW, key,
                           value, low);
    return {};
}

ErrorObject checkParameterKeys(const JobKind& kind, const json::object& parameters) {
    if (auto error = checkKeys(kind.keys, parameters)) return error;
    if (kind.recordCheck != nullptr) return kind.recordCheck(parameters);
    return {};
}

ErrorObject checkStopConditions(const JobKind& kind, const json::array& conditions) {
    if (conditions.empty()) return {};
    if (kind.family != JobFamilyEnum::DC) {
        return ErrorObject(ErrorCodeEnum::STOP_CONDITION_MISCONFIGURED,
                           job_messages::STOP_CONDITION_NOT_ALLOWED, kind.type);
    }
    for (const auto& element : conditions) {
        const auto* condition = element.if_object();
        const auto* type = condition != nullptr ? condition->if_contains("type") : nullptr;
        if (type == nullptr || !type->is_string())
            return misconfigured("?", "an element lacks a string 'type'");
        const std::string_view name = type->get_string();
        const auto* parametersValue = condition->if_contains("parameters");
        if (parametersValue == nullptr || !parametersValue->is_object())
            return misconfigured(name, "'parameters' is not an object");
        const auto& parameters = parametersValue->get_object();

        const StopConditionKind* stopKind = nullptr;
        for (const auto& candidate : kStopConditionKinds) {
            if (candidate.type == name) stopKind = &candidate;
        }
        if (stopKind == nullptr) return misconfigured(name, "unknown type");
        if (!knownDimension(parameters.if_contains("for_dimension")))
            return misconfigured(name, "unknown 'for_dimension'");
        if (stopKind->hasOverDimension && !knownDimension(parameters.if_contains("over_dimension"))) {
            return misconfigured(name, "unknown 'over_dimension'");
        }
        for (const auto key : stopKind->numberKeys) {
            if (key.empty()) continue;
            const auto* value = parameters.if_contains(key);
            if (value == nullptr || !value->is_number())
                return misconfigured(name, "a numeric key is missing");
        }
        if (stopKind->ordered && numberOf(parameters, "minimum") > numberOf(parameters, "maximum")) {
            return misconfigured(name, "minimum above maximum");
        }
        if (name == "stability_tolerance" && numberOf(parameters, "stability_tolerance") <= 0.0) {
            return misconfigured(name, "'stability_tolerance' must be positive");
        }
    }
    return {};
}

}  // namespace velmar::emulator
