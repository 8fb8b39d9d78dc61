#pragma once

// A Scheduler on a virtual clock, for driving the device model deterministically without an
// I/O context (tests, scripted runs): time passes only when advance() is called.

#include "emulator/core/connection_peer.hpp"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <utility>

namespace velmar::emulator {

/// Tasks run in the order of their due time, tasks due at the same time in the order they
/// were scheduled. Single-threaded: schedule() and advance() on one thread.
class VirtualScheduler final : public Scheduler {
public:
    void schedule(std::chrono::milliseconds delay, std::function<void()> task) override {
        tasks_.emplace(std::pair{now_ + std::max(delay, std::chrono::milliseconds(0)), next_++},
                       std::move(task));
    }

    /// Moves the clock forward by `span`, running every task that falls due meanwhile
    /// (including tasks scheduled by those tasks). Returns the number of tasks run.
    std::size_t advance(std::chrono::milliseconds span) {
        const auto until = now_ + span;
        std::size_t count = 0;
        while (!tasks_.empty() && tasks_.begin()->first.first <= until) {
            auto node = tasks_.extract(tasks_.begin());
            now_ = node.key().first;
            node.mapped()();
            ++count;
        }
        now_ = until;
        return count;
    }

    /// Runs tasks until none is left or `limit` of virtual time has passed.
    void runUntilIdle(std::chrono::milliseconds limit = std::chrono::hours(1)) {
        const auto until = now_ + limit;
        while (!tasks_.empty() && tasks_.begin()->first.first <= until)
            advance(tasks_.begin()->first.first - now_);
    }

    std::chrono::milliseconds now() const { return now_; }
    std::size_t pending() const { return tasks_.size(); }

private:
    std::chrono::milliseconds now_{0};
    std::uint64_t next_ = 0;
    std::map<std::pair<std::chrono::milliseconds, std::uint64_t>, std::function<void()>> tasks_;
};

}  // namespace velmar::emulator
