#pragma once

// Pieces of the impedance dataset's binary form shared by its reader and the result download.

#include <cstddef>
#include <optional>

namespace velmar {

/// The number of samples that a "wave_size" value declares: none when the value is no sample
/// count (negative, fractional, NaN, infinite or beyond 2^53).
std::optional<std::size_t> waveSampleCount(double declared);

}  // namespace velmar
