#pragma once

#include "json_common/logging/error_object.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <string_view>

namespace velmar {

/// Where the transport writes the next binary message instead of building a string. The
/// destination decides how much storage to provide, from what is known of the message when
/// it begins and as its bytes arrive; the transport never writes more than it was given and
/// drops (while counting) whatever the destination does not take. The transport holds a
/// shared pointer until the message has ended, so the storage lives as long as it may write.
///
/// Threads: the owner builds it before arming the download; from then on only the I/O thread
/// calls and writes it, and the owner reads the results after the download handler has run.
class BinaryDestination {
public:
    virtual ~BinaryDestination() = default;

    /// A binary message begins. With `exact`, `size` is its whole length as its frame header
    /// states it (the transport has checked it against the link's message limit); without,
    /// the message is fragmented and `size` is only the part known so far. Called once per
    /// message, before any storage is asked for.
    virtual void begin(std::uint64_t size, bool exact) = 0;
    /// Storage for the next bytes of the message; it may be shorter than the rest of the
    /// message. Empty when the destination takes no more: the rest is read and dropped.
    virtual std::span<std::byte> prepare() = 0;
    /// `count` bytes were written at the start of the span that prepare() returned last.
    virtual void commit(std::size_t count) = 0;

    /// Hands `count` bytes of the message over through prepare() and commit(), as far as the
    /// destination takes them.
    void store(const char* bytes, std::size_t count) {
        while (count > 0) {
            const auto storage = prepare();
            if (storage.empty()) return;
            const std::size_t n = std::min(count, storage.size());
            std::memcpy(storage.data(), bytes, n);
            commit(n);
            bytes += n;
            count -= n;
        }
    }
    /// A whole message that arrived without the destination (a transport that delivers
    /// messages whole) is stored as the transport would have stored it.
    void storeWhole(std::string_view message) {
        received = 0;
        failure.reset();
        begin(message.size(), true);
        store(message.data(), message.size());
        received = message.size();
        filled = true;
    }

    /// The length of the whole message: every byte read, taken or dropped.
    std::uint64_t received = 0;
    /// Set when the message has ended.
    bool filled = false;
    /// Set by the transport when it refused the message (larger than the link's limit); the
    /// destination then holds nothing of it.
    std::optional<ErrorObject> failure;
};

}  // namespace velmar
