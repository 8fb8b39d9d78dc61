#pragma once

#include <boost/asio/cancellation_signal.hpp>

#include <functional>
#include <list>
#include <mutex>

namespace velmar {

/// A registry of one-handler cancellation signals for the waits on jobs: each waiting thread
/// connects a handler, and a cancellation emits on every connected signal. Signals are never
/// removed, only reused once their handler has gone. Any thread.
class CancellationSignals {
public:
    using Handler = std::function<void(boost::asio::cancellation_type)>;

    /// The slot of the first signal without a connected handler, or of a new one.
    boost::asio::cancellation_slot slot();

    /// Connects `handler` to a free signal under the mutex (so that two threads never share
    /// one) and returns its slot, to be given back with release().
    boost::asio::cancellation_slot connect(Handler handler);
    /// Disconnects the slot's handler under the mutex; it is not called afterwards.
    void release(boost::asio::cancellation_slot& slot);

    /// Emits `type` on every signal that has a handler, in list order, under the mutex; a
    /// handler must therefore not call back into this registry.
    void emitSignal(boost::asio::cancellation_type type);

    /// The number of signals created so far.
    std::size_t size() const;

private:
    boost::asio::cancellation_slot freeSlot();

    mutable std::mutex mutex_;
    // A list: slots refer to their signal, so signals must not move.
    std::list<boost::asio::cancellation_signal> signals_;
};

}  // namespace velmar
