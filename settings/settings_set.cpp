#include "settings/settings_set.hpp"

#include "json_common/logging/error_messages.hpp"
#include "json_common/logging/error_object_json.hpp"

#include <boost/json.hpp>

namespace velmar {

namespace json = boost::json;

SettingsSet::SettingsSet(const std::vector<std::pair<std::string, Setting>>& entries) {
    for (const auto& [key, setting] : entries) settings_[key] = setting;
}

const Setting& SettingsSet::operator[](const std::string& key) const {
    static const Setting empty;
    const auto found = settings_.find(key);
    return found == settings_.end() ? empty : found->second;
}

bool SettingsSet::allSuccessfullyUpdated() const {
    for (const auto& [key, setting] : settings_) {
        if (!setting.successfullyUpdated()) return false;
    }
    return true;
}

json::object settingsToJson(const SettingsSet& settings) {
    json::object object;
    for (const auto& [key, setting] : settings) {
        switch (setting.getType()) {
            case SettingType::BOOL: object[key] = setting.getBoolValue(); break;
            case SettingType::INT: object[key] = setting.getIntValue(); break;
            case SettingType::DOUBLE: object[key] = setting.getDoubleValue(); break;
            case SettingType::STRING: object[key] = setting.getStringValue(); break;
            case SettingType::UNINITIALIZED: break;
        }
    }
    return object;
}

SettingsSet settingsFromJson(const json::object& object) {
    SettingsSet settings;
    for (const auto& member : object) {
        const std::string key(member.key());
        const auto& value = member.value();
        if (const auto* b = value.if_bool()) {
            settings[key] = *b;
        } else if (const auto* i = value.if_int64()) {
            settings[key] = static_cast<int>(*i);
        } else if (const auto* d = value.if_double()) {
            settings[key] = *d;
        } else if (const auto* s = value.if_string()) {
            settings[key] = std::string_view(*s);
        }
    }
    return settings;
}

namespace {
ErrorObject errorFrom(const json::object& object) {
    if (const auto* error = object.if_contains("error"); error != nullptr && error->is_object()) {
        return errorObjectFromJson(*error);
    }
    return ErrorObject(ErrorCodeEnum::UNKNOWN_ERR, messages::UNKNOWN_ERROR);
}
}  // namespace

void applySettingsUpdateReply(SettingsSet& settings, const json::object& reply) {
    const auto* outcomes = reply.if_contains("settings");
    if (outcomes == nullptr || !outcomes->is_object()) {
        const auto reason = errorFrom(reply);
        for (auto& [key, setting] : settings) {
            setting.setSuccessfullyUpdated(false);
            setting.setUpdateFailureReason(ErrorObject(reason));
        }
        return;
    }
    for (auto& [key, setting] : settings) {
        const auto* outcome = outcomes->get_object().if_contains(key);
        if (outcome == nullptr || !outcome->is_object()) continue;
        const auto& entry = outcome->get_object();
        const auto* status = entry.if_contains("status");
        if (status == nullptr || !status->is_string()) continue;
        const bool success = status->get_string() == "SUCCESS";
        setting.setSuccessfullyUpdated(success);
        if (!success) setting.setUpdateFailureReason(errorFrom(entry));
    }
}

}  // namespace velmar
