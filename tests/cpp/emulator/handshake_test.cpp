#include "emulator/server/command_line.hpp"
#include "emulator/server/handshake.hpp"

#include <gtest/gtest.h>

#include <algorithm>

using namespace velmar::emulator;

namespace {

std::string header(const HandshakeDecision& decision, std::string_view name) {
    auto it = std::ranges::find(decision.headers, name, [](const auto& h) -> std::string_view { return h.first; });
    return it == decision.headers.end() ? std::string() : it->second;
}

HandshakeRequest upgrade(std::string_view target = "/default") {
    return HandshakeRequest{.isWebSocketUpgrade = true, .target = target, .protocolVersion = "12"};
}

}  // namespace

TEST(Handshake, RefusalsInOrderTargetThenCredentialsThenVersion) {
    HandshakeConfig config{.credentials = std::pair<std::string, std::string>{"lab", "s3cret"}, .protocolVersion = 12};
    const auto authorization = basicAuthorization("lab", "s3cret");

    auto request = upgrade("/other");
    request.protocolVersion = "11";
    EXPECT_EQ(decideHandshake(request, config).status, 404u);

    request.target = "/default";
    auto decision = decideHandshake(request, config);
    EXPECT_EQ(decision.status, 401u);
    EXPECT_EQ(header(decision, "WWW-Authenticate"), R"(Basic realm="RQ5")");

    const auto wrong = basicAuthorization("lab", "guess");
    request.authorization = wrong;
    EXPECT_EQ(decideHandshake(request, config).status, 401u);

    request.authorization = authorization;
    decision = decideHandshake(request, config);
    EXPECT_EQ(decision.status, 426u);
    EXPECT_EQ(header(decision, "V-Supported-Protocol-Version"), "12");

    request.acceptAnyVersion = "1";
    decision = decideHandshake(request, config);
    EXPECT_TRUE(decision.accepted());
    EXPECT_EQ(decision.user, "lab");
    EXPECT_EQ(header(decision, "V-Supported-Protocol-Version"), "12");
}

TEST(Handshake, VersionHeaderMustMatchExactly) {
    HandshakeConfig config{.protocolVersion = 13};
    auto request = upgrade();
    EXPECT_EQ(decideHandshake(request, config).status, 426u);
    request.protocolVersion = "13";
    EXPECT_TRUE(decideHandshake(request, config).accepted());
    request.protocolVersion = "13x";
    EXPECT_EQ(decideHandshake(request, config).status, 426u);
    request.protocolVersion.reset();
    EXPECT_EQ(decideHandshake(request, config).status, 426u);
    request.acceptAnyVersion = "0";
    EXPECT_EQ(decideHandshake(request, config).status, 426u);
    // Without configured credentials an Authorization header is ignored.
    request = upgrade();
    request.protocolVersion = "13";
    request.authorization = "Basic garbage";
    EXPECT_TRUE(decideHandshake(request, config).accepted());
    request.isWebSocketUpgrade = false;
    EXPECT_EQ(decideHandshake(request, config).status, 400u);
}

TEST(CommandLine, ParsesEveryOptionInBothForms) {
    const std::vector<std::string_view> arguments{"--host", "::1",         "--port=0",     "--user", "u",
                                                  "--password", "p",       "--protocol-version", "13",
                                                  "--idle-exit", "2.5",    "--seed=42",    "--time-scale", "10"};
    auto parsed = parseCommandLine(arguments);
    ASSERT_TRUE(parsed) << parsed.error();
    EXPECT_EQ(parsed->host, "::1");
    EXPECT_EQ(parsed->port, 0);
    EXPECT_EQ(parsed->user, "u");
    EXPECT_EQ(parsed->password, "p");
    EXPECT_EQ(parsed->protocolVersion, 13u);
    EXPECT_EQ(parsed->idleExit, std::chrono::milliseconds(2500));
    EXPECT_EQ(parsed->seed, 42u);
    EXPECT_EQ(parsed->timeScale, 10.0);

    auto defaults = parseCommandLine({});
    ASSERT_TRUE(defaults);
    EXPECT_EQ(defaults->host, "127.0.0.1");
    EXPECT_EQ(defaults->port, 1994);
}

TEST(CommandLine, RejectsBadInput) {
    const auto fails = [](std::vector<std::string_view> arguments) { return !parseCommandLine(arguments).has_value(); };
    EXPECT_TRUE(fails({"--port", "70000"}));
    EXPECT_TRUE(fails({"--port"}));
    EXPECT_TRUE(fails({"--user", "only"}));
    EXPECT_TRUE(fails({"--time-scale", "0"}));
    EXPECT_TRUE(fails({"--idle-exit", "-1"}));
    EXPECT_TRUE(fails({"--frobnicate", "1"}));
    EXPECT_EQ(parseCommandLine(std::vector<std::string_view>{"--port", "1", "--frobnicate"}).error(),
              "unknown option --frobnicate");
    EXPECT_TRUE(parseCommandLine(std::vector<std::string_view>{"--help"})->help);
    // A bound is a positive integer: no "unlimited" by zero, no fractions, no overflow.
    EXPECT_TRUE(fails({"--max-outgoing-bytes", "0"}));
    EXPECT_TRUE(fails({"--max-connections", "1.5"}));
    EXPECT_TRUE(fails({"--jobs-kept-bytes", "18446744073709551616"}));
}

TEST(CommandLine, BoundsAreReadByName) {
    auto parsed = parseCommandLine(std::vector<std::string_view>{
        "--max-connections", "3", "--max-message-bytes=1024", "--max-incoming-bytes", "2048",
        "--max-outgoing-bytes", "4096", "--max-outgoing-frames", "5", "--resource-capacity", "6",
        "--resource-description-bytes", "7", "--jobs-kept", "8", "--jobs-kept-bytes", "9"});
    ASSERT_TRUE(parsed) << parsed.error();
    EXPECT_EQ(parsed->maxConnections, 3u);
    EXPECT_EQ(parsed->maxMessageBytes, 1024u);
    EXPECT_EQ(parsed->maxIncomingBytes, 2048u);
    EXPECT_EQ(parsed->maxOutgoingBytes, 4096u);
    EXPECT_EQ(parsed->maxOutgoingFrames, 5u);
    EXPECT_EQ(parsed->resourceCapacity, 6u);
    EXPECT_EQ(parsed->resourceDescriptionBytes, 7u);
    EXPECT_EQ(parsed->jobsKept, 8u);
    EXPECT_EQ(parsed->jobsKeptBytes, 9u);
}
