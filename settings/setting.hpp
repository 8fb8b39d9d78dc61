#pragma once

#include "json_common/logging/error_object.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace velmar {

enum class SettingType : unsigned { UNINITIALIZED = 0, BOOL = 1, INT = 2, DOUBLE = 3, STRING = 4 };

/// One typed device setting with the outcome of its last update request.
class Setting {
public:
    using Value = std::variant<bool, int, double, std::string>;

    Setting() = default;
    Setting(std::string_view value);
    Setting(const char* value);
    Setting(bool value);
    Setting(int value);
    Setting(double value);

    // Assignment replaces value and type together; the update outcome stays.
    Setting& operator=(std::string_view value);
    Setting& operator=(const char* value);
    Setting& operator=(bool value);
    Setting& operator=(int value);
    Setting& operator=(double value);

    SettingType getType() const { return type_; }
    const Value& getValue() const { return value_; }

    // Each throws std::bad_variant_access when the setting holds another kind.
    const std::string& getStringValue() const { return std::get<std::string>(value_); }
    bool getBoolValue() const { return std::get<bool>(value_); }
    int getIntValue() const { return std::get<int>(value_); }
    double getDoubleValue() const { return std::get<double>(value_); }

    bool successfullyUpdated() const { return successfullyUpdated_; }
    void setSuccessfullyUpdated(bool updated) { successfullyUpdated_ = updated; }

    /// The stored reason, or the success value when there is none.
    ErrorObject getUpdateFailureReason() const;
    void setUpdateFailureReason(ErrorObject&& reason) { updateFailureReason_ = std::move(reason); }

    /// BOOL "true"/"false", INT decimal, DOUBLE as a default stream writes it, STRING as is.
    std::string asString() const;

private:
    SettingType type_ = SettingType::UNINITIALIZED;
    Value value_ = false;
    bool successfullyUpdated_ = false;
    std::optional<ErrorObject> updateFailureReason_;
};

}  // namespace velmar
