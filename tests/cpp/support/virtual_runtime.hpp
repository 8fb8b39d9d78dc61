#pragma once

// A session runtime on a virtual clock, and a transport that belongs to it: the session's
// protocol logic runs on the test's thread, and time passes only when a wait needs the next
// task (or the test advances it). No threads, no sleeps.

#include "velmar_link_json/link_ll_session.hpp"
#include "velmar_link_json/session_runtime.hpp"

#include <boost/json.hpp>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace velmar::testing {

/// Tasks run in the order of their due time, tasks due at the same time in the order they were
/// scheduled. isIoThread() is true while a task runs. Single-threaded.
class VirtualRuntime final : public SessionRuntime {
public:
    TimePoint now() const override { return now_; }

    void runAt(TimePoint at, std::function<void()> task) override {
        tasks_.emplace(std::pair{std::max(at, now_), next_++}, std::move(task));
    }
    void runAfter(std::chrono::milliseconds delay, std::function<void()> task) { runAt(now_ + delay, std::move(task)); }

    bool isIoThread() const override { return depth_ > 0; }

    /// Runs due tasks until the signal is set; when the next task lies beyond the deadline the
    /// clock jumps to the deadline (a wait without deadline and without tasks gives up).
    bool wait(SessionSignal& signal, TimePoint deadline) override {
        while (!signal.isSet()) {
            if (tasks_.empty() || tasks_.begin()->first.first > deadline) {
                if (deadline != TimePoint::max()) now_ = std::max(now_, deadline);
                return signal.isSet();
            }
            runNext();
        }
        return true;
    }

    /// Moves the clock forward by `span`, running every task due meanwhile.
    void advance(std::chrono::milliseconds span) {
        const auto until = now_ + span;
        while (!tasks_.empty() && tasks_.begin()->first.first <= until) runNext();
        now_ = until;
    }

    /// Runs `call` as the I/O thread would (for calls that a callback makes).
    template <class F>
    void onIoThread(F&& call) {
        ++depth_;
        call();
        --depth_;
    }

    std::size_t pending() const { return tasks_.size(); }

private:
    void runNext() {
        auto node = tasks_.extract(tasks_.begin());
        now_ = node.key().first;
        onIoThread(node.mapped());
    }

    TimePoint now_{};
    std::uint64_t next_ = 0;
    int depth_ = 0;
    std::map<std::pair<TimePoint, std::uint64_t>, std::function<void()>> tasks_;
};

/// The peer's side of a VirtualTransport: what the client sent, and a script that answers.
struct VirtualPeer {
    int connectOutcome = LinkConnectOutcome::SUCCESS;
    bool refuseSends = false;
    std::vector<boost::json::object> sent;
    /// Called with each request sent (parsed); schedules the peer's frames.
    std::function<void(const boost::json::object&)> onRequest;
    AbstractLinkLlSession::TextHandler textHandler;
    AbstractLinkLlSession::StatusHandler statusHandler;
    std::size_t maxMessageSize = 0;
    int disposed = 0;
};

class VirtualTransport final : public AbstractLinkLlSession {
public:
    explicit VirtualTransport(VirtualPeer& peer) : peer_(peer) {}
    int connect() override {
        connected_ = peer_.connectOutcome == LinkConnectOutcome::SUCCESS;
        return peer_.connectOutcome;
    }
    void startServices() override {}
    void disconnect() override {
        if (!std::exchange(connected_, false)) return;
        if (peer_.statusHandler) peer_.statusHandler(VelmarLinkConnectionStatusEnum::DISCONNECTED);
    }
    bool send(std::string text) override {
        if (peer_.refuseSends || !connected_) return false;
        auto parsed = boost::json::parse(text);
        peer_.sent.push_back(parsed.as_object());
        if (peer_.onRequest) peer_.onRequest(peer_.sent.back());
        return true;
    }
    VelmarLinkConnectionStatusEnum getConnectionStatus() const override {
        return connected_ ? VelmarLinkConnectionStatusEnum::CONNECTED : VelmarLinkConnectionStatusEnum::DISCONNECTED;
    }
    unsigned getDeviceProtocolVersion() const override { return 12; }
    void setConnectionStatusCallback(StatusHandler handler) override { peer_.statusHandler = std::move(handler); }
    void setReceiveHandler(TextHandler handler) override { peer_.textHandler = std::move(handler); }
    void setReceiveBinaryHandler(BinaryHandler) override {}
    void setConnectionTimeout(std::chrono::milliseconds) override {}
    void setMaxMessageSize(std::size_t bytes) override { peer_.maxMessageSize = bytes; }

private:
    VirtualPeer& peer_;
    bool connected_ = false;
};

class VirtualTransportFactory final : public LinkLlSessionAbstractFactory {
public:
    explicit VirtualTransportFactory(VirtualPeer& peer)
        : LinkLlSessionAbstractFactory(LinkConnectionData{"virtual", "1994", 0, {}, {}}), peer_(peer) {}
    AbstractLinkLlSession* createSession(boost::asio::io_context&) override { return new VirtualTransport(peer_); }
    void disposeSession(AbstractLinkLlSession* session) override {
        ++peer_.disposed;
        delete session;
    }

private:
    VirtualPeer& peer_;
};

}  // namespace velmar::testing
