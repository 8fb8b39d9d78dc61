#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velmar::emulator {

/// Header names of the handshake.
inline constexpr std::string_view kProtocolVersionHeader = "V-Supported-Protocol-Version";
inline constexpr std::string_view kAcceptAnyVersionHeader = "V-Accept-Any-Protocol-Version";
/// The only target that the device serves.
inline constexpr std::string_view kDeviceTarget = "/default";

/// What the server expects of a WebSocket upgrade request.
struct HandshakeConfig {
    /// User and password of HTTP Basic authentication; none = no authentication.
    std::optional<std::pair<std::string, std::string>> credentials;
    /// The device's own protocol version.
    unsigned protocolVersion = 12;
};

/// The parts of an upgrade request that decide its fate (absent headers are nullopt).
struct HandshakeRequest {
    bool isWebSocketUpgrade = false;
    std::string_view target;
    std::optional<std::string_view> authorization;
    std::optional<std::string_view> protocolVersion;
    std::optional<std::string_view> acceptAnyVersion;
};

/// The answer to an upgrade request: 101 accepts (the transport completes the WebSocket
/// handshake and adds `headers` to its response), anything else refuses with that HTTP
/// status, the headers and the text body.
struct HandshakeDecision {
    unsigned status = 101;
    std::vector<std::pair<std::string, std::string>> headers;
    std::string body;
    /// The authenticated user on acceptance (empty without authentication).
    std::string user;

    bool accepted() const { return status == 101; }
};

/// Decides in this order: not an upgrade 400; target other than "/default" 404; missing or
/// wrong credentials (when configured) 401 with `WWW-Authenticate: Basic realm="RQ5"`; a
/// missing or different "V-Supported-Protocol-Version" 426, unless
/// "V-Accept-Any-Protocol-Version" is "1". Every response carries the device's version in
/// "V-Supported-Protocol-Version".
HandshakeDecision decideHandshake(const HandshakeRequest& request, const HandshakeConfig& config);

/// The value of an Authorization header for HTTP Basic authentication.
std::string basicAuthorization(std::string_view user, std::string_view password);

}  // namespace velmar::emulator
