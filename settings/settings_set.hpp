#pragma once

#include "settings/setting.hpp"

#include <boost/json/fwd.hpp>

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace velmar {

/// The keyed collection of settings that travels to and from the device. A value type.
class SettingsSet {
public:
    using Map = std::unordered_map<std::string, Setting>;

    SettingsSet() = default;
    /// From (key, setting) pairs; a repeated key keeps its last value.
    explicit SettingsSet(const std::vector<std::pair<std::string, Setting>>& entries);

    /// The entry; an UNINITIALIZED setting is inserted for a missing key.
    Setting& operator[](const std::string& key) { return settings_[key]; }
    /// The entry, or a shared UNINITIALIZED setting for a missing key (no insertion).
    const Setting& operator[](const std::string& key) const;

    Map::iterator begin() { return settings_.begin(); }
    Map::iterator end() { return settings_.end(); }
    Map::const_iterator begin() const { return settings_.begin(); }
    Map::const_iterator end() const { return settings_.end(); }
    Map::const_iterator cbegin() const { return settings_.cbegin(); }
    Map::const_iterator cend() const { return settings_.cend(); }
    std::size_t size() const { return settings_.size(); }
    bool contains(const std::string& key) const { return settings_.contains(key); }

    /// True when every entry's update flag is set; an empty set yields true.
    bool allSuccessfullyUpdated() const;

private:
    Map settings_;
};

/// The "settings" object of the requests: plain JSON values, UNINITIALIZED entries left out.
boost::json::object settingsToJson(const SettingsSet& settings);

/// Builds a set from the "settings" object of "/settings/get"; members of other JSON kinds
/// are skipped.
SettingsSet settingsFromJson(const boost::json::object& object);

/// Applies the reply of "/settings/set" to the set that was sent.
void applySettingsUpdateReply(SettingsSet& settings, const boost::json::object& reply);

}  // namespace velmar
