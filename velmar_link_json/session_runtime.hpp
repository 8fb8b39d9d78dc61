#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>

namespace velmar {

/// A one-shot flag that threads wait on. Set once; never reset. Any thread.
class SessionSignal {
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    void set() {
        {
            std::lock_guard lock(mutex_);
            set_ = true;
        }
        changed_.notify_all();
    }

    [[nodiscard]] bool isSet() const {
        std::lock_guard lock(mutex_);
        return set_;
    }

    /// Blocks until set or until `deadline` on the steady clock (TimePoint::max(): no
    /// deadline). True when set.
    bool waitUntil(TimePoint deadline) {
        std::unique_lock lock(mutex_);
        if (deadline == TimePoint::max()) {
            changed_.wait(lock, [this] { return set_; });
            return true;
        }
        return changed_.wait_until(lock, deadline, [this] { return set_; });
    }

private:
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    bool set_ = false;
};

/// The clock and executor that drive the session's protocol logic (time-outs, dispatch, job
/// lifecycle). The connected session plugs in the steady clock and its Asio I/O context;
/// tests plug in a virtual clock whose tasks run when a wait needs them, without threads.
class SessionRuntime {
public:
    using Clock = std::chrono::steady_clock;
    using TimePoint = Clock::time_point;

    virtual ~SessionRuntime() = default;

    [[nodiscard]] virtual TimePoint now() const = 0;
    /// Runs `task` on the I/O thread at `at` or later. Any thread.
    virtual void runAt(TimePoint at, std::function<void()> task) = 0;
    /// True on the thread that runs the session's frames, timers and handlers.
    [[nodiscard]] virtual bool isIoThread() const = 0;
    /// Blocks the calling thread until `signal` is set or `deadline` has passed (or, on a
    /// virtual clock, nothing is left to run that could set it). True when set.
    virtual bool wait(SessionSignal& signal, TimePoint deadline) = 0;
};

}  // namespace velmar
