#include "emulator/server/handshake.hpp"

#include "json_common/base64.hpp"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace velmar::emulator {

namespace {

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, [](char x, char y) {
        return std::tolower(static_cast<unsigned char>(x)) == std::tolower(static_cast<unsigned char>(y));
    });
}

std::string_view trim(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
    return text;
}

/// The user of a valid "Basic <base64(user:password)>" value matching the credentials.
std::optional<std::string> authenticate(std::string_view header, const std::pair<std::string, std::string>& credentials) {
    header = trim(header);
    const auto space = header.find(' ');
    if (space == std::string_view::npos || !equalsIgnoringCase(header.substr(0, space), "Basic")) return std::nullopt;
    auto decoded = decodeBase64(trim(header.substr(space + 1)));
    if (!decoded || *decoded != credentials.first + ":" + credentials.second) return std::nullopt;
    return credentials.first;
}

std::optional<unsigned> parseVersion(std::string_view text) {
    text = trim(text);
    unsigned value = 0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (ec != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

}  // namespace

HandshakeDecision decideHandshake(const HandshakeRequest& request, const HandshakeConfig& config) {
    HandshakeDecision decision;
    decision.headers.emplace_back(kProtocolVersionHeader, std::to_string(config.protocolVersion));
    const auto refuse = [&](unsigned status, std::string body) {
        decision.status = status;
        decision.body = std::move(body);
        return decision;
    };
    if (!request.isWebSocketUpgrade) return refuse(400, "WebSocket upgrade expected\n");
    if (request.target != kDeviceTarget) return refuse(404, "not found\n");
    if (config.credentials) {
        auto user = request.authorization ? authenticate(*request.authorization, *config.credentials) : std::nullopt;
        if (!user) {
            decision.headers.emplace_back("WWW-Authenticate", R"(Basic realm="RQ5")");
            return refuse(401, "unauthorized\n");
        }
        decision.user = std::move(*user);
    }
    const bool acceptAny = request.acceptAnyVersion && trim(*request.acceptAnyVersion) == "1";
    const auto version = request.protocolVersion ? parseVersion(*request.protocolVersion) : std::nullopt;
    if (!acceptAny && version != config.protocolVersion) return refuse(426, "protocol version mismatch\n");
    return decision;
}

std::string basicAuthorization(std::string_view user, std::string_view password) {
    std::string plain(user);
    plain += ':';
    plain += password;
    return "Basic " + encodeBase64(plain);
}

}  // namespace velmar::emulator
