#include "emulator/core/settings_table.hpp"

#include "emulator/core/device_identity.hpp"
#include "emulator/core/emulator_messages.hpp"
#include "json_common/logging/error_messages.hpp"
#include "json_common/logging/error_object.hpp"
#include "json_common/logging/error_object_json.hpp"

#include <boost/json.hpp>

#include <algorithm>
#include <expected>

namespace velmar::emulator {

namespace json = boost::json;

namespace {

json::value toJson(const SettingValue& value) {
    return std::visit([](const auto& v) { return json::value(v); }, value);
}

/// The JSON kind a setting of this value accepts, in words, for PARAMETER_FORMAT_INVALID.
std::string_view kindName(const SettingValue& value) {
    switch (value.index()) {
    case 0: return "a boolean";
    case 1: return "an integer";
    case 2: return "a number";
    default: return "a string";
    }
}

template <class T>
ErrorObject checkBounds(const SettingDefinition& setting, T value) {
    if (setting.minimum && static_cast<double>(value) < *setting.minimum) {
        return ErrorObject(ErrorCodeEnum::PARAMETER_VALUE_TOO_LOW, messages::PARAMETER_VALUE_TOO_LOW, setting.key, value,
                           static_cast<T>(*setting.minimum));
    }
    if (setting.maximum && static_cast<double>(value) > *setting.maximum) {
        return ErrorObject(ErrorCodeEnum::PARAMETER_VALUE_TOO_HIGH, messages::PARAMETER_VALUE_TOO_HIGH, setting.key,
                           value, static_cast<T>(*setting.maximum));
    }
    return {};
}

/// The new value of `setting` read from `input`, or why it is refused.
std::expected<SettingValue, ErrorObject> convert(const SettingDefinition& setting, const json::value& input) {
    const auto formatInvalid = [&] {
        return std::unexpected(ErrorObject(ErrorCodeEnum::PARAMETER_FORMAT_INVALID, messages::PARAMETER_FORMAT_INVALID,
                                           setting.key, kindName(setting.value)));
    };
    switch (setting.value.index()) {
    case 0:
        if (const auto* b = input.if_bool()) return SettingValue(*b);
        return formatInvalid();
    case 1: {
        std::int64_t v = 0;
        if (const auto* i = input.if_int64()) {
            v = *i;
        } else if (const auto* u = input.if_uint64()) {
            if (*u > static_cast<std::uint64_t>(INT64_MAX)) {
                return std::unexpected(ErrorObject(ErrorCodeEnum::PARAMETER_VALUE_TOO_HIGH,
                                                   messages::PARAMETER_VALUE_TOO_HIGH, setting.key, *u,
                                                   static_cast<std::int64_t>(setting.maximum.value_or(INT64_MAX))));
            }
            v = static_cast<std::int64_t>(*u);
        } else {
            return formatInvalid();
        }
        if (auto error = checkBounds(setting, v)) return std::unexpected(std::move(error));
        return SettingValue(v);
    }
    case 2: {
        if (!input.is_number()) return formatInvalid();
        const double v = input.to_number<double>();
        if (auto error = checkBounds(setting, v)) return std::unexpected(std::move(error));
        return SettingValue(v);
    }
    default:
        if (const auto* s = input.if_string()) return SettingValue(std::string(*s));
        return formatInvalid();
    }
}

json::object failed(const ErrorObject& error) {
    return json::object{{"status", "FAILED"}, {"error", errorObjectToJson(error)}};
}

}  // namespace

SettingsTable::SettingsTable()
    : SettingsTable(defaultDefinitions(DeviceIdentity::defaults().serialNumber,
                                       DeviceIdentity::defaults().firmwareVersion, "admin")) {}

SettingsTable::SettingsTable(std::vector<SettingDefinition> definitions) : settings_(std::move(definitions)) {}

json::object SettingsTable::toJson() const {
    std::lock_guard lock(mutex_);
    json::object out;
    out.reserve(settings_.size());
    for (const auto& setting : settings_) out.emplace(setting.key, emulator::toJson(setting.value));
    return out;
}

json::object SettingsTable::apply(const json::object& changes) {
    std::lock_guard lock(mutex_);
    json::object outcome;
    for (const auto& [key, input] : changes) {
        auto it = std::ranges::find(settings_, std::string_view(key), &SettingDefinition::key);
        if (it == settings_.end()) {
            outcome.emplace(key, failed(ErrorObject(ErrorCodeEnum::ID_NOT_FOUND, velmar::messages::ID_NOT_FOUND,
                                                    "setting", "key", std::string_view(key))));
            continue;
        }
        // The kind is checked before the read-only flag, so that a malformed request is
        // reported as such whatever the setting.
        auto converted = convert(*it, input);
        if (!converted) {
            outcome.emplace(key, failed(converted.error()));
        } else if (it->readOnly) {
            outcome.emplace(key, failed(ErrorObject(ErrorCodeEnum::SETTINGS_NOT_APPLIED, messages::SETTING_READ_ONLY,
                                                    std::string_view(key))));
        } else {
            it->value = std::move(*converted);
            outcome.emplace(key, json::object{{"status", "SUCCESS"}});
        }
    }
    return outcome;
}

std::optional<SettingValue> SettingsTable::value(std::string_view key) const {
    std::lock_guard lock(mutex_);
    auto it = std::ranges::find(settings_, key, &SettingDefinition::key);
    if (it == settings_.end()) return std::nullopt;
    return it->value;
}

std::vector<SettingDefinition> SettingsTable::defaultDefinitions(std::string_view serialNumber,
                                                                 std::string_view firmwareVersion,
                                                                 std::string_view userName) {
    using I = std::int64_t;
    // clang-format off
    return {
        {"network_hostname",            std::string("rq5-emulator"),   false, {},     {}},
        {"network_dhcp",                true,                          false, {},     {}},
        {"network_ip_address",          std::string("192.168.10.94"),  false, {},     {}},
        {"network_netmask",             std::string("255.255.255.0"),  false, {},     {}},
        {"network_gateway",             std::string("192.168.10.1"),   false, {},     {}},
        {"network_port",                I{1994},                       false, 1,      65535},
        {"network_tls_enabled",         false,                         false, {},     {}},
        {"network_tls_port",            I{1995},                       false, 1,      65535},
        {"user_name",                   std::string(userName),         false, {},     {}},
        {"user_authentication_enabled", false,                         false, {},     {}},
        {"display_brightness",          I{80},                         false, 0,      100},
        {"display_standby_timeout",     I{600},                        false, 0,      86400},
        {"fan_curve_temperature_low",   35.0,                          false, 20.0,   60.0},
        {"fan_curve_temperature_high",  55.0,                          false, 30.0,   85.0},
        {"fan_minimum_speed",           I{20},                         false, 0,      100},
        {"system_name",                 std::string("RQ5 emulator"),   false, {},     {}},
        {"system_timezone",             std::string("UTC"),            false, {},     {}},
        {"system_sound_enabled",        true,                          false, {},     {}},
        {"measurement_line_frequency",  50.0,                          false, 45.0,   65.0},
        {"calibration_interval_days",   I{365},                        false, 1,      3650},
        {"system_serial_number",        std::string(serialNumber),     true,  {},     {}},
        {"system_firmware_version",     std::string(firmwareVersion),  true,  {},     {}},
    };
    // clang-format on
}

}  // namespace velmar::emulator
