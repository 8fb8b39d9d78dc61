#include "settings/settings_set.hpp"

#include <boost/json.hpp>
#include <gtest/gtest.h>

namespace json = boost::json;
using namespace velmar;

TEST(Setting, KindsAndAssignment) {
    Setting s("name");
    EXPECT_EQ(s.getType(), SettingType::STRING);
    s = 5;
    EXPECT_EQ(s.getType(), SettingType::INT);
    EXPECT_THROW((void)s.getStringValue(), std::bad_variant_access);
    EXPECT_EQ(Setting(0.5).asString(), "0.5");
    EXPECT_EQ(Setting(1000000.0).asString(), "1e+06");
    EXPECT_EQ(Setting(true).asString(), "true");
    EXPECT_EQ(Setting().getType(), SettingType::UNINITIALIZED);
    EXPECT_EQ(Setting().getUpdateFailureReason().getMessageFormatted(), "no error occoured");
    EXPECT_THROW(Setting(static_cast<const char*>(nullptr)), std::logic_error);
}

TEST(SettingsSet, SubscriptsAndEmptySet) {
    SettingsSet set;
    EXPECT_TRUE(set.allSuccessfullyUpdated());
    const SettingsSet& constant = set;
    EXPECT_EQ(constant["missing"].getType(), SettingType::UNINITIALIZED);
    EXPECT_EQ(set.size(), 0u);
    set["missing"];
    EXPECT_EQ(set.size(), 1u);
    EXPECT_TRUE(settingsToJson(set).empty());
}

TEST(SettingsSet, JsonBothWays) {
    const auto set = settingsFromJson(
        json::parse(R"({"b":true,"i":-3,"d":2.5,"s":"x","n":null,"a":[1]})").as_object());
    EXPECT_EQ(set.size(), 4u);
    EXPECT_EQ(set["i"].getIntValue(), -3);
    EXPECT_EQ(json::value(settingsToJson(set)), json::parse(R"({"b":true,"i":-3,"d":2.5,"s":"x"})"));
}

TEST(SettingsSet, ApplyUpdateReply) {
    SettingsSet set;
    set["ok"] = 1;
    set["bad"] = 2;
    set["plain"] = 3;
    set["absent"] = 4;
    set["absent"].setSuccessfullyUpdated(true);
    applySettingsUpdateReply(set, json::parse(R"({"status":"SUCCESS","settings":{
        "ok":{"status":"SUCCESS"},
        "bad":{"status":"FAILED","error":{"number":32768,"code":"SETTINGS_NOT_APPLIED","message":"no"}},
        "plain":{"status":"FAILED"}}})").as_object());
    EXPECT_TRUE(set["ok"].successfullyUpdated());
    EXPECT_FALSE(set["bad"].successfullyUpdated());
    EXPECT_EQ(set["bad"].getUpdateFailureReason().code, ErrorCodeEnum::SETTINGS_NOT_APPLIED);
    EXPECT_EQ(set["plain"].getUpdateFailureReason().code, ErrorCodeEnum::UNKNOWN_ERR);
    EXPECT_TRUE(set["absent"].successfullyUpdated());
    EXPECT_FALSE(set.allSuccessfullyUpdated());

    applySettingsUpdateReply(set, json::parse(R"({"status":"FAILED"})").as_object());
    for (const auto& [key, setting] : set) {
        EXPECT_FALSE(setting.successfullyUpdated());
        EXPECT_EQ(setting.getUpdateFailureReason().getMessageFormatted(), "an unknown error occured");
    }
}
