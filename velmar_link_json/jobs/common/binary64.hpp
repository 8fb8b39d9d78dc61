#pragma once

// The flat binary tables of the datasets hold IEEE-754 binary64 values in little-endian byte
// order; these copy them bit for bit (NaN payloads, infinities and -0.0 included).

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

namespace velmar {

/// Copies `count` little-endian binary64 values from `bytes` to `out`.
inline void copyLittleEndian(double* out, const char* bytes, std::size_t count) {
    if (count == 0) return;
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(out, bytes, count * sizeof(double));
    } else {
        for (std::size_t i = 0; i < count; ++i) {
            std::uint64_t raw = 0;
            std::memcpy(&raw, bytes + i * sizeof(double), sizeof(raw));
            out[i] = std::bit_cast<double>(std::byteswap(raw));
        }
    }
}

/// Appends `count` values at `values` to `out` as little-endian binary64.
inline void appendLittleEndian(std::string& out, const double* values, std::size_t count) {
    if (count == 0) return;
    if constexpr (std::endian::native == std::endian::little) {
        out.append(reinterpret_cast<const char*>(values), count * sizeof(double));
    } else {
        for (std::size_t i = 0; i < count; ++i) {
            const auto raw = std::byteswap(std::bit_cast<std::uint64_t>(values[i]));
            out.append(reinterpret_cast<const char*>(&raw), sizeof(raw));
        }
    }
}

/// Brings values written in place as little-endian bytes into the machine's byte order.
inline void fromLittleEndianInPlace(double* values, std::size_t count) {
    if constexpr (std::endian::native != std::endian::little) {
        for (std::size_t i = 0; i < count; ++i) {
            values[i] = std::bit_cast<double>(std::byteswap(std::bit_cast<std::uint64_t>(values[i])));
        }
    }
}

}  // namespace velmar
