#include "emulator/core/id_source.hpp"

#include <fmt/chrono.h>
#include <fmt/format.h>

namespace velmar::emulator {

IdSource::IdSource(std::optional<std::uint64_t> seed)
    : random_(seed ? *seed : (std::uint64_t{std::random_device{}()} << 32) ^ std::random_device{}()) {}

std::uint64_t IdSource::next() {
    std::lock_guard lock(mutex_);
    return random_();
}

std::string IdSource::uuid() {
    std::uint64_t high = 0;
    std::uint64_t low = 0;
    {
        std::lock_guard lock(mutex_);
        high = random_();
        low = random_();
    }
    // Version 4 in the high nibble of the third group, variant 10xx in the fourth.
    high = (high & 0xFFFFFFFFFFFF0FFFull) | 0x0000000000004000ull;
    low = (low & 0x3FFFFFFFFFFFFFFFull) | 0x8000000000000000ull;
    return fmt::format("{:08x}-{:04x}-{:04x}-{:04x}-{:012x}", high >> 32, (high >> 16) & 0xFFFF, high & 0xFFFF,
                       low >> 48, low & 0xFFFFFFFFFFFFull);
}

std::string isoUtc(std::chrono::system_clock::time_point time) {
    const auto millis = std::chrono::floor<std::chrono::milliseconds>(time);
    const auto seconds = std::chrono::floor<std::chrono::seconds>(millis);
    // Broken down with gmtime explicitly: the formatting of time points themselves differs
    // between versions of the formatting library (local time in some).
    const std::tm utc = fmt::gmtime(std::chrono::system_clock::to_time_t(seconds));
    return fmt::format("{:%Y-%m-%dT%H:%M:%S}.{:03d}Z", utc, (millis - seconds).count());
}

std::string isoUtcNow() { return isoUtc(std::chrono::system_clock::now()); }

}  // namespace velmar::emulator
