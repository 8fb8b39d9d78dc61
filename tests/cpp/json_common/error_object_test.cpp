#include "json_common/logging/error_factory.hpp"
#include "json_common/logging/error_object.hpp"
#include "json_common/logging/error_object_json.hpp"
#include "json_common/logging/velmar_link_exception.hpp"

#include <boost/json.hpp>
#include <gtest/gtest.h>

namespace json = boost::json;
using namespace velmar;

TEST(ErrorObject, DefaultIsSuccess) {
    const ErrorObject ok;
    EXPECT_FALSE(ok);
    EXPECT_TRUE(ok.isNone());
    EXPECT_EQ(ok.getMessageFormatted(), "no error occoured");
}

TEST(ErrorObject, ArgumentsBecomeTheirAlternatives) {
    const std::string text = "s";
    const ErrorObject e(ErrorCodeEnum::UNKNOWN_ERR, "{0}{1}{2}{3}{4}{5}", true, 1.5, -2, 3u, text, "lit");
    ASSERT_EQ(e.message_parameters.size(), 6u);
    EXPECT_TRUE(std::holds_alternative<bool>(e.message_parameters[0]));
    EXPECT_TRUE(std::holds_alternative<double>(e.message_parameters[1]));
    EXPECT_TRUE(std::holds_alternative<std::int64_t>(e.message_parameters[2]));
    EXPECT_TRUE(std::holds_alternative<std::uint64_t>(e.message_parameters[3]));
    EXPECT_TRUE(std::holds_alternative<std::string>(e.message_parameters[4]));
    EXPECT_TRUE(std::holds_alternative<std::string>(e.message_parameters[5]));
    EXPECT_EQ(e.getMessageFormatted(), "true1.5-23slit");
    const ErrorObject view(ErrorCodeEnum::UNKNOWN_ERR, "{0}", json::string_view("jv"));
    EXPECT_EQ(view.getMessageFormatted(), "jv");
}

TEST(ErrorFormatting, TooManyParametersAndPassthrough) {
    const ErrorObject seven(ErrorCodeEnum::UNKNOWN_ERR, "{0} and more", 1, 2, 3, 4, 5, 6, 7);
    EXPECT_EQ(seven.getMessageFormatted(), "Error: Too many parameters (7 > 6). Format string: '{0} and more'");
    const ErrorObject none(ErrorCodeEnum::JSON_MALFORMED, "json malformed: {0}");
    EXPECT_EQ(none.getMessageFormatted(), "json malformed: {0}");
    EXPECT_EQ(format_with_dynamic_params("{1}-{0}", {ErrorParameter(std::int64_t{1}), ErrorParameter(std::string("b"))}),
              "b-1");
}

TEST(ErrorObjectJson, WritesKeysInOrder) {
    const ErrorObject e(ErrorCodeEnum::QUEUE_FULL, "queue {0}", std::uint64_t{3});
    const auto text = json::serialize(json::value_from(e));
    EXPECT_EQ(text, R"({"number":262145,"code":"QUEUE_FULL","message":"queue {0}","message_parameters":[3]})");
}

TEST(ErrorObjectJson, RoundTripKeepsEveryAlternative) {
    const ErrorObject e(ErrorCodeEnum::ID_NOT_FOUND, "could not find {0} with {1} '{2}'", true, 0.25, std::int64_t{-7},
                        std::uint64_t{18446744073709551615ull}, "text");
    const auto back = json::value_to<ErrorObject>(json::value_from(e));
    EXPECT_EQ(back, e);
}

TEST(ErrorObjectJson, StrictReadingDegradesToUnknown) {
    const auto read = [](std::string_view text) { return errorObjectFromJson(json::parse(text)); };
    const auto good = read(R"({"number":262145,"code":"QUEUE_FULL","message":"full"})");
    EXPECT_EQ(good.code, ErrorCodeEnum::QUEUE_FULL);
    EXPECT_EQ(good.message, "full");
    EXPECT_TRUE(good.message_parameters.empty());
    EXPECT_EQ(read(R"({"number":262145.0,"code":"QUEUE_FULL","message":"full"})").code, ErrorCodeEnum::QUEUE_FULL);

    for (const auto* bad : {R"({"number":262145,"code":"NONE","message":"full"})",
                            R"({"number":262145,"message":"full"})", R"({"number":262145,"code":"QUEUE_FULL"})",
                            R"({"number":-1,"code":"QUEUE_FULL","message":"full"})",
                            R"({"number":262145.5,"code":"QUEUE_FULL","message":"full"})",
                            R"({"number":4096,"code":"NEWER_CODE","message":"x"})", R"("QUEUE_FULL")"}) {
        SCOPED_TRACE(bad);
        const auto e = read(bad);
        EXPECT_EQ(e.code, ErrorCodeEnum::UNKNOWN_ERR);
        EXPECT_EQ(e.getMessageFormatted(), "an unknown error occured");
    }
}

TEST(ErrorFactory, SynthesisedErrors) {
    const auto jv = ErrorFactory::makeJsonError<ErrorCodeEnum::OPERATION_TIMED_OUT>();
    EXPECT_EQ(jv.at("code").as_string(), "OPERATION_TIMED_OUT");
    EXPECT_EQ(jv.at("message").as_string(), "operation timed out");
    EXPECT_EQ(ErrorFactory::makeError<ErrorCodeEnum::STOPPED_MANUALLY>().message, "manually stopped");
    EXPECT_EQ(ErrorFactory::makeError<ErrorCodeEnum::CONNECTION_WAS_CLOSED>().message,
              "network connection closed by remote peer");
}

TEST(VelmarLinkException, WhatIsTheFormattedMessage) {
    const VelmarLinkException ex(ErrorObject(ErrorCodeEnum::CONNECTION_DNS_ERROR, "dns error: {0}", "nowhere:1994"));
    EXPECT_STREQ(ex.what(), "dns error: nowhere:1994");
    EXPECT_EQ(ex.getError().code, ErrorCodeEnum::CONNECTION_DNS_ERROR);
}

TEST(ErrorCodeEnum, NameTableIsCompleteAndOrdered) {
    const auto table = errorCodeNameTable();
    ASSERT_EQ(table.size(), 75u);
    EXPECT_EQ(table.front().second, "NONE");
    EXPECT_EQ(table.back().second, "UNKNOWN_ERR");
    EXPECT_EQ(static_cast<unsigned>(ErrorCodeEnum::UNKNOWN_ERR), 195948557u);
    EXPECT_EQ(errorCodeName(static_cast<ErrorCodeEnum>(12345)), "UNKNOWN_ERR");
}
