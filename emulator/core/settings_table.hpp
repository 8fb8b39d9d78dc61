#pragma once

#include <boost/json/object.hpp>

#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace velmar::emulator {

/// The value of one device setting; the alternative is the setting's kind and never changes.
using SettingValue = std::variant<bool, std::int64_t, double, std::string>;

/// One row of the settings table.
struct SettingDefinition {
    std::string key;
    SettingValue value;
    bool readOnly = false;
    /// Inclusive bounds, for integer and double settings only.
    std::optional<double> minimum;
    std::optional<double> maximum;
};

/// The device's flat table of named settings ("/settings/get", "/settings/set").
/// Any thread: every member takes the table's own mutex.
class SettingsTable {
public:
    /// The table of a freshly installed device (see defaultDefinitions).
    SettingsTable();
    explicit SettingsTable(std::vector<SettingDefinition> definitions);

    /// Every setting in table order, each as a plain JSON value of its kind.
    boost::json::object toJson() const;

    /// Applies each member of `changes` on its own and returns, per key, {"status":"SUCCESS"}
    /// or {"status":"FAILED","error":<error object>}. Failures: unknown key ID_NOT_FOUND,
    /// value of another JSON kind PARAMETER_FORMAT_INVALID (an integer is accepted for a
    /// double setting), read-only SETTINGS_NOT_APPLIED, out of bounds
    /// PARAMETER_VALUE_TOO_HIGH / PARAMETER_VALUE_TOO_LOW. Accepted values replace the old.
    boost::json::object apply(const boost::json::object& changes);

    std::optional<SettingValue> value(std::string_view key) const;

    /// A realistic table: network, user, display, fan curve, system and measurement options,
    /// the serial number and firmware version read-only.
    static std::vector<SettingDefinition> defaultDefinitions(std::string_view serialNumber,
                                                             std::string_view firmwareVersion,
                                                             std::string_view userName);

private:
    mutable std::mutex mutex_;
    std::vector<SettingDefinition> settings_;
};

}  // namespace velmar::emulator
