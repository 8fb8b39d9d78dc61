#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <expected>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace velmar::emulator {

/// The options of `velmar-emulator`.
struct CommandLine {
    std::string host = "127.0.0.1";
    /// 0 picks a free port.
    std::uint16_t port = 1994;
    std::optional<std::string> user;
    std::optional<std::string> password;
    unsigned protocolVersion = 12;
    /// Exit after this long without any connection; zero = never.
    std::chrono::milliseconds idleExit{0};
    std::optional<std::uint64_t> seed;
    double timeScale = 1.0;
    /// The emulated cell behind the potentiostats (a cell spec, see parseCellSpec).
    std::string cellSpec = "resistor:R=1000";
    /// Bound of the waiting jobs of the job queue.
    std::size_t queueSize = 16;
    /// Bounds of what connections and retained state may cost (see ConnectionLimits,
    /// DeviceModelOptions and DeviceJobsOptions for their meaning).
    std::size_t maxConnections = 64;
    std::uint64_t maxMessageBytes = 64ull << 20;
    std::uint64_t maxIncomingBytes = 256ull << 20;
    std::uint64_t maxOutgoingBytes = 64ull << 20;
    std::uint64_t maxOutgoingFrames = 65536;
    std::uint64_t resourceCapacity = 1ull << 30;
    std::uint64_t resourceDescriptionBytes = 64ull << 20;
    std::size_t jobsKept = 1000;
    std::uint64_t jobsKeptBytes = 64ull << 20;
    bool help = false;
};

/// Parses the arguments after the program name; "--name value" and "--name=value" both
/// work. The error text names the offending argument.
std::expected<CommandLine, std::string> parseCommandLine(std::span<const std::string_view> arguments);

/// The text printed by --help.
std::string_view usageText();

}  // namespace velmar::emulator
