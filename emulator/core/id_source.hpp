#pragma once

#include <chrono>
#include <cstdint>
#include <mutex>
#include <optional>
#include <random>
#include <string>

namespace velmar::emulator {

/// Random identifiers (connections, resources, and later jobs) as version-4 UUID texts:
/// 36 lower-case characters in groups 8-4-4-4-12. With a seed the sequence is the same on
/// every run, so that scripted sessions are reproducible.
/// Any thread.
class IdSource {
public:
    /// Seeded from `seed`, or from the system's entropy source when none is given.
    explicit IdSource(std::optional<std::uint64_t> seed = std::nullopt);

    std::string uuid();

    /// A further random 64-bit value from the same sequence (for example, to seed models).
    std::uint64_t next();

private:
    std::mutex mutex_;
    std::mt19937_64 random_;
};

/// `time` as ISO 8601 UTC text with milliseconds, e.g. "2026-03-05T10:11:12.345Z".
std::string isoUtc(std::chrono::system_clock::time_point time);

/// isoUtc(now).
std::string isoUtcNow();

}  // namespace velmar::emulator
