#include "emulator/server/command_line.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace velmar::emulator {

namespace {

template <class T>
std::optional<T> parseNumber(std::string_view text) {
    T value{};
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (ec != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

}  // namespace

std::string_view usageText() {
    return R"(usage: velmar-emulator [options]

Emulates an RQ5 workstation: a WebSocket server speaking the workstation's JSON protocol.

options:
  --host H               address to listen on (default 127.0.0.1)
  --port P               port to listen on, 0 picks a free one (default 1994)
  --user U               require HTTP Basic authentication with this user ...
  --password W           ... and this password (both or neither)
  --protocol-version N   protocol version the device speaks (default 12)
  --idle-exit SECONDS    exit after this long without any connection (default: never)
  --seed N               seed of identifiers and emulated data (default: random)
  --time-scale X         factor on emulated measurement durations, > 0 (default 1)
  --cell SPEC            emulated cell, e.g. resistor:R=1000, rc:R=1000,C=1e-6,
                         randles:Rs=10,Rct=100,Cdl=1e-5,sigma=50, cpe:Q=1e-5,n=0.8 or
                         redox:E0=0.2 (default resistor:R=1000)
  --queue-size N         jobs that may wait in the job queue, >= 1 (default 16)
  --max-connections N    TCP connections at a time (default 64)
  --max-message-bytes N  largest incoming message (default 67108864, 64 MiB)
  --max-incoming-bytes N incomplete incoming messages of all connections together
                         (default 268435456, 256 MiB)
  --max-outgoing-bytes N frames waiting for one connection; a client that does not read
                         is dropped beyond it (default 67108864, 64 MiB)
  --max-outgoing-frames N  the same in frames (default 65536)
  --resource-capacity N  bytes of resource content (default 1073741824, 1 GiB)
  --resource-description-bytes N  bytes of resource names and headers (default 67108864)
  --jobs-kept N          ended jobs kept for /job/info and /job/list (default 1000)
  --jobs-kept-bytes N    bytes those jobs may hold (default 67108864)
  --help                 print this text and exit

After listening, one line "listening on ADDRESS:PORT" is printed. SIGINT and SIGTERM
stop the emulator.
)";
}

std::expected<CommandLine, std::string> parseCommandLine(std::span<const std::string_view> arguments) {
    CommandLine out;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        std::string_view name = arguments[i];
        std::optional<std::string_view> inlineValue;
        if (const auto equals = name.find('='); name.starts_with("--") && equals != std::string_view::npos) {
            inlineValue = name.substr(equals + 1);
            name = name.substr(0, equals);
        }
        if (name == "--help" || name == "-h") {
            out.help = true;
            continue;
        }
        static constexpr std::string_view kValueOptions[] = {"--host",     "--port",      "--user",      "--password",
                                                             "--protocol-version", "--idle-exit", "--seed", "--time-scale",
                                                             "--cell", "--queue-size", "--max-connections",
                                                             "--max-message-bytes", "--max-incoming-bytes",
                                                             "--max-outgoing-bytes", "--max-outgoing-frames",
                                                             "--resource-capacity", "--resource-description-bytes",
                                                             "--jobs-kept", "--jobs-kept-bytes"};
        if (std::ranges::find(kValueOptions, name) == std::end(kValueOptions)) {
            return std::unexpected("unknown option " + std::string(name));
        }
        std::string_view value;
        if (inlineValue) {
            value = *inlineValue;
        } else if (i + 1 < arguments.size()) {
            value = arguments[++i];
        } else {
            return std::unexpected("missing value for " + std::string(name));
        }
        const auto invalid = [&] { return std::unexpected("invalid value for " + std::string(name) + ": '" + std::string(value) + "'"); };
        if (name == "--host") {
            if (value.empty()) return invalid();
            out.host = std::string(value);
        } else if (name == "--port") {
            auto port = parseNumber<std::uint16_t>(value);
            if (!port) return invalid();
            out.port = *port;
        } else if (name == "--user") {
            out.user = std::string(value);
        } else if (name == "--password") {
            out.password = std::string(value);
        } else if (name == "--protocol-version") {
            auto version = parseNumber<unsigned>(value);
            if (!version) return invalid();
            out.protocolVersion = *version;
        } else if (name == "--idle-exit") {
            auto seconds = parseNumber<double>(value);
            if (!seconds || !std::isfinite(*seconds) || *seconds < 0 || *seconds > 1e9) return invalid();
            out.idleExit = std::chrono::milliseconds(static_cast<std::int64_t>(std::llround(*seconds * 1000.0)));
        } else if (name == "--seed") {
            auto seed = parseNumber<std::uint64_t>(value);
            if (!seed) return invalid();
            out.seed = *seed;
        } else if (name == "--time-scale") {
            auto scale = parseNumber<double>(value);
            if (!scale || !std::isfinite(*scale) || *scale <= 0) return invalid();
            out.timeScale = *scale;
        } else if (name == "--cell") {
            out.cellSpec = std::string(value);
        } else if (name == "--queue-size") {
            auto size = parseNumber<std::size_t>(value);
            if (!size || *size == 0 || *size > 100000) return invalid();
            out.queueSize = *size;
        } else {
            // The bounds: positive integers, at most 2^48 (no bound is meant to be unlimited).
            struct Bound {
                std::string_view name;
                std::uint64_t* target;
            };
            std::uint64_t connections = 0, jobs = 0;
            const Bound bounds[] = {{"--max-connections", &connections},
                                    {"--max-message-bytes", &out.maxMessageBytes},
                                    {"--max-incoming-bytes", &out.maxIncomingBytes},
                                    {"--max-outgoing-bytes", &out.maxOutgoingBytes},
                                    {"--max-outgoing-frames", &out.maxOutgoingFrames},
                                    {"--resource-capacity", &out.resourceCapacity},
                                    {"--resource-description-bytes", &out.resourceDescriptionBytes},
                                    {"--jobs-kept", &jobs},
                                    {"--jobs-kept-bytes", &out.jobsKeptBytes}};
            const auto* bound = std::ranges::find(bounds, name, &Bound::name);
            auto number = parseNumber<std::uint64_t>(value);
            if (!number || *number == 0 || *number > (1ull << 48)) return invalid();
            *bound->target = *number;
            if (bound->target == &connections) out.maxConnections = static_cast<std::size_t>(connections);
            if (bound->target == &jobs) out.jobsKept = static_cast<std::size_t>(jobs);
        }
    }
    if (out.user.has_value() != out.password.has_value()) return std::unexpected(std::string("--user and --password go together"));
    return out;
}

}  // namespace velmar::emulator
