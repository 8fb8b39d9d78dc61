#pragma once

#include <boost/asio/cancellation_signal.hpp>

#include <list>
#include <mutex>

namespace velmar {

/// A registry of one-handler cancellation signals for the waits of the session's coroutines.
/// Signals are never removed, only reused once their handler has gone. Any thread.
class CancellationSignals {
public:
    /// The slot of the first signal without a connected handler, or of a new one.
    boost::asio::cancellation_slot slot();

    /// Emits `type` on every signal that has a handler, in list order, under the mutex; a
    /// handler must therefore not call back into this registry.
    void emitSignal(boost::asio::cancellation_type type);

    /// The number of signals created so far.
    std::size_t size() const;

private:
    mutable std::mutex mutex_;
    // A list: slots refer to their signal, so signals must not move.
    std::list<boost::asio::cancellation_signal> signals_;
};

}  // namespace velmar
