#include "emulator/device_jobs/job_catalog.hpp"

#include "emulator/core/emulator_messages.hpp"
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

constexpr ParameterKey kCv[] = {{"start_value", K::NUMBER},         {"first_vertex", K::NUMBER},
                                {"second_vertex", K::NUMBER},       {"end_value", K::NUMBER},
                                {"scan_rate", K::NUMBER},           {"output_data_rate", K::NUMBER},
                                {"num_cycles", K::NUMBER},          {"autorange", K::BOOL},
                                {"current_range", K::NUMBER},       {"turn_limit_check", K::BOOL},
                                {"upper_turn_boundary", K::NUMBER}, {"lower_turn_boundary", K::NUMBER},
                                {"step_height", K::NUMBER},         {"ir_drop", K::NUMBER}};
constexpr ParameterKey kAcCv[] = {{"start_value", K::NUMBER},   {"first_vertex", K::NUMBER},
                                  {"second_vertex", K::NUMBER}, {"end_value", K::NUMBER},
                                  {"scan_rate", K::NUMBER},     {"output_data_rate", K::NUMBER},
                                  {"num_cycles", K::NUMBER},    {"amplitude", K::NUMBER},
                                  {"frequency", K::NUMBER},     {"current_range", K::NUMBER}};
constexpr ParameterKey kFastCycling[] = {{"first_step", K::NUMBER},
                                         {"second_step", K::NUMBER},
                                         {"end_value", K::NUMBER},
                                         {"step_time", K::NUMBER},
                                         {"output_data_rate", K::NUMBER},
                                         {"num_cycles", K::NUMBER},
                                         {"autorange", K::BOOL},
                                         {"current_range", K::NUMBER},
                                         {"turn_limit_check", K::BOOL},
                                         {"upper_turn_boundary", K::NUMBER},
                                         {"lower_turn_boundary", K::NUMBER}};
constexpr ParameterKey kRamp[] = {{"start_value", K::NUMBER},      {"end_value", K::NUMBER},
                                  {"scan_rate", K::NUMBER},        {"step_height", K::NUMBER},
                                  {"output_data_rate", K::NUMBER}, {"autorange", K::BOOL},
                                  {"current_range", K::NUMBER}};
constexpr ParameterKey kSteadyStairs[] = {{"start_value", K::NUMBER},      {"end_value", K::NUMBER},
                                          {"step_time", K::NUMBER},        {"step_height", K::NUMBER},
                                          {"hold_time", K::NUMBER},        {"stability_tolerance", K::NUMBER},
                                          {"output_data_rate", K::NUMBER}, {"autorange", K::BOOL},
                                          {"current_range", K::NUMBER},    {"ir_drop", K::NUMBER}};
constexpr ParameterKey kPoga[] = {{"bias", K::NUMBER},
                                  {"duration", K::NUMBER},
                                  {"output_data_rate", K::NUMBER},
                                  {"autorange", K::BOOL},
                                  {"current_range", K::NUMBER}};
constexpr ParameterKey kOcv[] = {{"duration", K::NUMBER}, {"output_data_rate", K::NUMBER}};
constexpr ParameterKey kNpv[] = {{"base_value", K::NUMBER},       {"start_value", K::NUMBER},
                                 {"step_value", K::NUMBER},       {"end_value", K::NUMBER},
                                 {"step_time", K::NUMBER},        {"pulse_time", K::NUMBER},
                                 {"output_data_rate", K::NUMBER}, {"current_range", K::NUMBER}};
constexpr ParameterKey kDpv[] = {
    {"start_value", K::NUMBER}, {"step_value", K::NUMBER},       {"pulse_value", K::NUMBER},
    {"end_value", K::NUMBER},   {"step_time", K::NUMBER},        {"pulse_time", K::NUMBER},
    {"invert_pulse", K::BOOL},  {"output_data_rate", K::NUMBER}, {"current_range", K::NUMBER}};
constexpr ParameterKey kSwv[] = {{"start_value", K::NUMBER},  {"step_value", K::NUMBER},
                                 {"amplitude", K::NUMBER},    {"end_value", K::NUMBER},
                                 {"period", K::NUMBER},       {"output_data_rate", K::NUMBER},
                                 {"current_range", K::NUMBER}};
constexpr ParameterKey kWave[] = {{"output_data_rate", K::NUMBER}, {"value_rate", K::NUMBER},
                                  {"repetitions", K::NUMBER},      {"current_range", K::NUMBER},
                                  {"values", K::NUMBER_ARRAY},     {"bias", K::NUMBER}};
constexpr ParameterKey kWaveFile[] = {{"output_data_rate", K::NUMBER}, {"value_rate", K::NUMBER},
                                      {"repetitions", K::NUMBER},      {"current_range", K::NUMBER},
                                      {"resource_id", K::STRING},      {"bias", K::NUMBER}};
constexpr ParameterKey kImpedance[] = {{"bias", K::NUMBER}, {"frequency_range", K::OBJECT}};
constexpr ParameterKey kCalibrate[] = {{"calibration_type", K::STRING}};
constexpr ParameterKey kBeep[] = {{"frequency", K::NUMBER}, {"duration", K::NUMBER}};
constexpr ParameterKey kSleep[] = {{"duration", K::NUMBER}};
constexpr ParameterKey kLed[] = {{"red", K::INTEGER}, {"green", K::INTEGER}, {"blue", K::INTEGER}};
constexpr ParameterKey kSwitchOn[] = {{"potentiostat", K::STRING},
                                      {"coupling", K::STRING},
                                      {"bias", K::NUMBER},
                                      {"voltage_range_index", K::INTEGER},
                                      {"compliance_range_index", K::INTEGER}};
constexpr ParameterKey kPotentiostat[] = {{"potentiostat", K::STRING}};
constexpr ParameterKey kSetBias[] = {{"potentiostat", K::STRING}, {"bias", K::NUMBER}};
constexpr ParameterKey kVoltageRange[] = {{"potentiostat", K::STRING}, {"index", K::INTEGER}};
constexpr ParameterKey kActiveGains[] = {{"adc", K::STRING}, {"indexes", K::INTEGER_ARRAY}};
constexpr ParameterKey kCurrentRanges[] = {{"potentiostat", K::STRING}, {"indexes", K::INTEGER_ARRAY}};
constexpr ParameterKey kCable[] = {{"potentiostat", K::STRING}, {"additional_ce_capacitance", K::NUMBER}};
constexpr ParameterKey kDateTime[] = {{"datetime", K::STRING}};
constexpr ParameterKey kAdc[] = {{"adc", K::STRING}};
constexpr ParameterKey kGetProperty[] = {{"uri", K::STRING}, {"key", K::STRING}};
constexpr ParameterKey kSetProperty[] = {{"uri", K::STRING}, {"key", K::STRING}, {"value", K::SCALAR}};
constexpr ParameterKey kIntegral[] = {{"channel", K::STRING}, {"duration", K::NUMBER}};
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
    {"eis", F::AC, false, kImpedance, &recordCheck<EisParametersGenerate>},
    {"eis_table", F::AC, false, kImpedance, &recordCheck<EisParametersFrequencyTable>},
    {"eis_multisine", F::AC, false, kImpedance, &recordCheck<EisMultisineParametersGenerate>},
    {"eis_multisine_table", F::AC, false, kImpedance, &recordCheck<EisMultiSineTable>},
    {"geis_va", F::AC, false, kImpedance, &recordCheck<GeisVaParametersGenerate>},
    {"geis_va_table", F::AC, false, kImpedance, &recordCheck<GeisVaParametersFrequencyTable>},
    {"calibrate", F::CALIBRATION, false, kCalibrate, nullptr},
    {VELMAR_SERVICE_PREFIX "set_calibration_data", F::CALIBRATION, false, {},
     &recordCheck<SetCalibrationDataParameters>},
    {VELMAR_SERVICE_PREFIX "get_calibration_data", F::CONTROL, true, {},
     &recordCheck<GetCalibrationDataParameters>},
    {VELMAR_SERVICE_PREFIX "get_mesh_json_file", F::CONTROL, true, {}, nullptr},
    {VELMAR_SERVICE_PREFIX "set_mesh_json_file", F::CONTROL, false, {},
     &recordCheck<SetMeshJsonFileParameters>},
    {VELMAR_SERVICE_PREFIX "get_filter_usage_matrix", F::CONTROL, true, {},
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

double numberOf(const json::object& parameters, std::string_view key) {
    const auto* value = parameters.if_contains(key);
    return value != nullptr && value->is_number() ? value->to_number<double>() : 0.0;
}

ErrorObject checkRange(std::string_view key, double value, double low, double high) {
    if (value > high)
        return ErrorObject(ErrorCodeEnum::PARAMETER_VALUE_TOO_HIGH, messages::PARAMETER_VALUE_TOO_HIGH, key,
                           value, high);
    if (value < low)
        return ErrorObject(ErrorCodeEnum::PARAMETER_VALUE_TOO_LOW, messages::PARAMETER_VALUE_TOO_LOW, key,
                           value, low);
    return {};
}

ErrorObject checkParameterKeys(const JobKind& kind, const json::object& parameters) {
    for (const auto& key : kind.keys) {
        const auto* value = parameters.if_contains(key.name);
        if (value == nullptr)
            return ErrorObject(ErrorCodeEnum::PARAMETER_MISSING, messages::PARAMETER_MISSING, key.name);
        if (!hasKind(*value, key.kind)) {
            return ErrorObject(ErrorCodeEnum::PARAMETER_FORMAT_INVALID, messages::PARAMETER_FORMAT_INVALID,
                               key.name, expectedText(key.kind));
        }
    }
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
