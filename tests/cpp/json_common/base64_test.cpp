#include "json_common/base64.hpp"

#include <gtest/gtest.h>

#include <string>

namespace velmar {
namespace {

TEST(Base64, KnownTextsAndRoundTripsOfEveryLength) {
    EXPECT_EQ(encodeBase64(""), "");
    EXPECT_EQ(encodeBase64("f"), "Zg==");
    EXPECT_EQ(encodeBase64("fo"), "Zm8=");
    EXPECT_EQ(encodeBase64("foo"), "Zm9v");
    EXPECT_EQ(encodeBase64("op:pw"), "b3A6cHc=");
    EXPECT_EQ(encodeBase64(std::string("\xff\xfe\x00", 3)), "//4A");

    std::string bytes;
    for (int n = 0; n < 70; ++n) {
        const std::string text = encodeBase64(bytes);
        EXPECT_EQ(text.size() % 4, 0u);
        EXPECT_EQ(decodedBase64Size(text), bytes.size());
        const auto back = decodeBase64(text);
        ASSERT_TRUE(back) << n;
        EXPECT_EQ(*back, bytes) << n;
        bytes.push_back(static_cast<char>(n * 37 + 11));
    }
}

TEST(Base64, MalformedTextsAreRefusedWithTheirMessage) {
    for (const char* text : {"A", "AB", "ABC", "ABCDE", "Zm9v="}) {
        const auto decoded = decodeBase64(text);
        ASSERT_FALSE(decoded) << text;
        EXPECT_EQ(decoded.error(), "Invalid Base64 string length.") << text;
    }
    // Characters outside the alphabet, padding inside the text or more than two "=".
    for (const char* text : {"Zm9*", "Zm 9", "Z=9v", "Zm=v", "Zm9vZ===", "====", "Zm9v\n===", "-_9v"}) {
        const auto decoded = decodeBase64(text);
        ASSERT_FALSE(decoded) << text;
        EXPECT_EQ(decoded.error(), "Invalid Base64 character.") << text;
    }
    // A malformed text never writes beyond the announced size.
    char out[8] = {'#', '#', '#', '#', '#', '#', '#', '#'};
    EXPECT_FALSE(decodeBase64Into("Zg=A", out));
    EXPECT_EQ(decodedBase64Size("="), 0u);
    EXPECT_EQ(std::string(out + decodedBase64Size("Zg=A"), 8 - decodedBase64Size("Zg=A")),
              std::string(8 - decodedBase64Size("Zg=A"), '#'));
}

}  // namespace
}  // namespace velmar
