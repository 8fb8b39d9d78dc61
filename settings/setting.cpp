#include "settings/setting.hpp"

#include <sstream>
#include <stdexcept>

namespace velmar {

namespace {
std::string checkedString(const char* value) {
    if (value == nullptr) throw std::logic_error("basic_string: construction from null is not valid");
    return value;
}
}  // namespace

Setting::Setting(std::string_view value) : type_(SettingType::STRING), value_(std::string(value)) {}
Setting::Setting(const char* value) : type_(SettingType::STRING), value_(checkedString(value)) {}
Setting::Setting(bool value) : type_(SettingType::BOOL), value_(value) {}
Setting::Setting(int value) : type_(SettingType::INT), value_(value) {}
Setting::Setting(double value) : type_(SettingType::DOUBLE), value_(value) {}

Setting& Setting::operator=(std::string_view value) {
    type_ = SettingType::STRING;
    value_ = std::string(value);
    return *this;
}
Setting& Setting::operator=(const char* value) {
    value_ = checkedString(value);
    type_ = SettingType::STRING;
    return *this;
}
Setting& Setting::operator=(bool value) {
    type_ = SettingType::BOOL;
    value_ = value;
    return *this;
}
Setting& Setting::operator=(int value) {
    type_ = SettingType::INT;
    value_ = value;
    return *this;
}
Setting& Setting::operator=(double value) {
    type_ = SettingType::DOUBLE;
    value_ = value;
    return *this;
}

ErrorObject Setting::getUpdateFailureReason() const {
    return updateFailureReason_ ? *updateFailureReason_ : ErrorObject();
}

std::string Setting::asString() const {
    switch (type_) {
        case SettingType::BOOL: return std::get<bool>(value_) ? "true" : "false";
        case SettingType::INT: return std::to_string(std::get<int>(value_));
        case SettingType::DOUBLE: {
            std::ostringstream out;
            out << std::get<double>(value_);
            return out.str();
        }
        case SettingType::STRING: return std::get<std::string>(value_);
        case SettingType::UNINITIALIZED: break;
    }
    return {};
}

}  // namespace velmar
