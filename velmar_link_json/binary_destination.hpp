#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace velmar {

/// Where the transport writes the next binary message instead of building a string: the
/// message's bytes fill `ranges` in order; bytes beyond them go to `overflow`. The owner
/// derives from it to keep the storage of the ranges alive for as long as the transport may
/// still write (the transport holds a shared pointer until the message has ended).
///
/// Threads: the owner sets the ranges before arming the download; from then on only the I/O
/// thread writes, and the owner reads the results after the download handler has run.
struct BinaryDestination {
    virtual ~BinaryDestination() = default;

    std::vector<std::span<std::byte>> ranges;
    /// The bytes beyond the ranges.
    std::string overflow;
    /// The length of the whole message.
    std::uint64_t received = 0;
    /// Set when a whole binary message has been written here.
    bool filled = false;
};

}  // namespace velmar
