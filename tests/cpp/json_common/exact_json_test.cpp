#include "json_common/base64.hpp"
#include "json_common/exact_json.hpp"

#include <boost/json.hpp>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstring>
#include <random>

namespace json = boost::json;

TEST(ExactJson, MillionRandomDoublesArriveBitForBit) {
    std::mt19937_64 random(1994);
    std::uniform_int_distribution<std::uint64_t> bits;
    constexpr int kValues = 1'000'000;
    std::vector<double> values;
    values.reserve(kValues);
    while (values.size() < kValues) {
        const double d = std::bit_cast<double>(bits(random));
        if (std::isfinite(d)) values.push_back(d);
    }
    // The writer prints the shortest text that round-trips, often 17 digits.
    const auto text = json::serialize(json::value_from(values));
    const auto parsed = velmar::parseJsonExact(text);
    const auto& array = parsed.as_array();
    ASSERT_EQ(array.size(), values.size());
    std::size_t mismatches = 0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double back = array[i].is_double() ? array[i].get_double() : array[i].to_number<double>();
        if (std::bit_cast<std::uint64_t>(back) != std::bit_cast<std::uint64_t>(values[i])) ++mismatches;
    }
    EXPECT_EQ(mismatches, 0u);
}

TEST(ExactJson, ParsesDocumentsLikeTheLibraryParser) {
    const std::string text =
        R"({"a":[1,-2,18446744073709551615,0.1,1e308,-0.0,true,false,null],"b":{"c":"\u00e9x"}})";
    EXPECT_EQ(velmar::parseJsonExact(text), json::parse(text));
    const auto v = velmar::parseJsonExact(R"([1e999, 2.2250738585072014e-308, 0.30000000000000004])");
    EXPECT_TRUE(std::isinf(v.at(0).as_double()));
    EXPECT_EQ(v.at(2).as_double(), 0.1 + 0.2);
}

TEST(ExactJson, ErrorsAreReported) {
    boost::system::error_code ec;
    velmar::parseJsonExact("{\"a\":", ec);
    EXPECT_TRUE(ec);
    ec.clear();
    velmar::parseJsonExact("{} trailing", ec);
    EXPECT_TRUE(ec);
    EXPECT_THROW(velmar::parseJsonExact("nope"), boost::system::system_error);
}

TEST(Base64, RoundTripAndRefusals) {
    for (const std::string& bytes : std::vector<std::string>{"", "a", "ab", "abc", "abcd", std::string("\0\xff\x10", 3)}) {
        const auto text = velmar::encodeBase64(bytes);
        EXPECT_EQ(velmar::decodedBase64Size(text), bytes.size());
        EXPECT_EQ(velmar::decodeBase64(text).value(), bytes);
    }
    EXPECT_EQ(velmar::encodeBase64("hello"), "aGVsbG8=");
    EXPECT_EQ(velmar::decodeBase64("abc").error(), "Invalid Base64 string length.");
    EXPECT_FALSE(velmar::decodeBase64("a$==").has_value());
}
