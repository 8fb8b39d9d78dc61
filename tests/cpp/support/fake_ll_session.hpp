#pragma once

// A transport without sockets for LinkJsonSession tests: connect() reports a chosen outcome,
// sent texts are recorded, and frames are injected on the session's I/O thread.

#include "velmar_link_json/link_ll_session.hpp"

#include <boost/asio/io_context.hpp>
#include <boost/asio/post.hpp>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <vector>

namespace velmar::testing {

/// Shared between the test, the factory and the sessions it made. Any thread.
struct FakeTransportState {
    int connectOutcome = LinkConnectOutcome::SUCCESS;
    bool refuseSends = false;

    std::mutex mutex;
    std::condition_variable changed;
    std::vector<std::string> sent;
    boost::asio::io_context* context = nullptr;
    AbstractLinkLlSession::TextHandler textHandler;
    AbstractLinkLlSession::BinaryHandler binaryHandler;
    AbstractLinkLlSession::StatusHandler statusHandler;
    int created = 0;
    int disposed = 0;

    /// Waits until `count` texts have been sent; returns the last one ("" on time-out).
    std::string waitForSent(std::size_t count, std::chrono::milliseconds timeout = std::chrono::seconds(5)) {
        std::unique_lock lock(mutex);
        if (!changed.wait_for(lock, timeout, [&] { return sent.size() >= count; })) return {};
        return sent[count - 1];
    }

    /// Delivers a text frame on the I/O thread, as the real transport does.
    void injectText(std::string text) {
        std::lock_guard lock(mutex);
        boost::asio::post(*context, [handler = textHandler, text = std::move(text)] { handler(text); });
    }

    void injectBinary(std::string data) {
        std::lock_guard lock(mutex);
        boost::asio::post(*context, [handler = binaryHandler, data = std::move(data)]() mutable {
            handler(std::move(data));
        });
    }

    /// The peer goes away: the status handler hears DISCONNECTED on the I/O thread.
    void injectLoss() {
        std::lock_guard lock(mutex);
        boost::asio::post(*context,
                          [handler = statusHandler] { handler(VelmarLinkConnectionStatusEnum::DISCONNECTED); });
    }
};

class FakeLlSession final : public AbstractLinkLlSession {
public:
    explicit FakeLlSession(FakeTransportState& state) : state_(state) {}

    int connect() override {
        if (state_.connectOutcome == LinkConnectOutcome::SUCCESS) connected_ = true;
        return state_.connectOutcome;
    }
    void startServices() override {}
    void disconnect() override {
        if (!connected_) return;
        connected_ = false;
        std::lock_guard lock(state_.mutex);
        boost::asio::post(*state_.context, [handler = state_.statusHandler] {
            handler(VelmarLinkConnectionStatusEnum::DISCONNECTED);
        });
    }
    bool send(std::string text) override {
        if (state_.refuseSends || !connected_) return false;
        {
            std::lock_guard lock(state_.mutex);
            state_.sent.push_back(std::move(text));
        }
        state_.changed.notify_all();
        return true;
    }
    VelmarLinkConnectionStatusEnum getConnectionStatus() const override {
        return connected_ ? VelmarLinkConnectionStatusEnum::CONNECTED : VelmarLinkConnectionStatusEnum::DISCONNECTED;
    }
    unsigned getDeviceProtocolVersion() const override { return 12; }
    void setConnectionStatusCallback(StatusHandler handler) override {
        std::lock_guard lock(state_.mutex);
        state_.statusHandler = std::move(handler);
    }
    void setReceiveHandler(TextHandler handler) override {
        std::lock_guard lock(state_.mutex);
        state_.textHandler = std::move(handler);
    }
    void setReceiveBinaryHandler(BinaryHandler handler) override {
        std::lock_guard lock(state_.mutex);
        state_.binaryHandler = std::move(handler);
    }
    void setConnectionTimeout(std::chrono::milliseconds) override {}

private:
    FakeTransportState& state_;
    std::atomic<bool> connected_{false};
};

class FakeLlSessionFactory final : public LinkLlSessionAbstractFactory {
public:
    explicit FakeLlSessionFactory(FakeTransportState& state)
        : LinkLlSessionAbstractFactory(LinkConnectionData{"fake", "1994", 0, {}, {}}), state_(state) {}

    AbstractLinkLlSession* createSession(boost::asio::io_context& context) override {
        std::lock_guard lock(state_.mutex);
        state_.context = &context;
        ++state_.created;
        return new FakeLlSession(state_);
    }
    void disposeSession(AbstractLinkLlSession* session) override {
        {
            std::lock_guard lock(state_.mutex);
            ++state_.disposed;
        }
        delete session;
    }

private:
    FakeTransportState& state_;
};

}  // namespace velmar::testing
