#pragma once

#include <algorithm>
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

/// Decides whether the I/O thread polls for a short window, instead of sleeping at once, while
/// a blocking caller waits for its reply. Polling pays when the peer answers on another core
/// within the window: the reply is then read without waking a sleeping thread, and waking a
/// thread on an idle core (on a virtual machine above all) costs more than the whole rest of a
/// local round trip. It does not pay when the peer needs this thread's core, or answers later
/// than the window: every miss costs credit, and without credit the thread sleeps at once and
/// tries again only after a number of waits. I/O thread only.
class ReplyPollPolicy {
public:
    /// The longest poll before sleeping.
    static constexpr std::chrono::microseconds WINDOW{200};
    static constexpr int MAX_CREDIT = 8;
    /// Credit that one miss costs: two misses in a row stop polling.
    static constexpr int MISS_COST = 4;
    /// Waits without polling before polling is tried again.
    static constexpr int PAUSE_WAITS = 256;

    /// Asked when the thread would sleep while a reply is awaited: poll first?
    [[nodiscard]] bool shouldPoll() {
        if (credit_ > 0) return true;
        if (--pause_ > 0) return false;
        credit_ = MISS_COST;  // one more try; a miss ends it
        return true;
    }

    /// The outcome of a poll: the awaited reply arrived within the window or not.
    void record(bool caught) {
        if (caught) {
            credit_ = std::min(credit_ + 1, MAX_CREDIT);
            return;
        }
        credit_ -= MISS_COST;
        if (credit_ <= 0) {
            credit_ = 0;
            pause_ = PAUSE_WAITS;
        }
    }

private:
    int credit_ = MAX_CREDIT;
    int pause_ = 0;
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
