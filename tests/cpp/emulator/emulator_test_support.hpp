#pragma once

#include "emulator/core/connection_peer.hpp"
#include "emulator/core/device_model.hpp"

#include <boost/json.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace velmar::emulator::testing {

/// Records what the model sends to one connection.
class RecordingPeer final : public ConnectionPeer {
public:
    struct Frame {
        enum class Kind { TEXT, BINARY, CLOSE } kind;
        std::string bytes;
    };

    void sendText(std::string text) override { frames.push_back({Frame::Kind::TEXT, std::move(text)}); }
    void sendBinary(BinaryPayload payload) override {
        frames.push_back({Frame::Kind::BINARY, std::string(payload.owner->data(), payload.size)});
        lastPayload = std::move(payload);
    }
    void close() override { frames.push_back({Frame::Kind::CLOSE, {}}); }

    /// The text frames, parsed; non-JSON text becomes a null value.
    std::vector<boost::json::value> texts() const {
        std::vector<boost::json::value> out;
        for (const auto& frame : frames) {
            if (frame.kind != Frame::Kind::TEXT) continue;
            boost::system::error_code ec;
            auto value = boost::json::parse(frame.bytes, ec);
            out.push_back(ec ? boost::json::value() : std::move(value));
        }
        return out;
    }

    std::vector<Frame> frames;
    BinaryPayload lastPayload;
};

/// Keeps scheduled tasks until the test runs them, earliest delay first.
class ManualScheduler final : public Scheduler {
public:
    void schedule(std::chrono::milliseconds delay, std::function<void()> task) override {
        tasks.push_back({delay, std::move(task)});
    }
    /// Runs every task, including those scheduled while running.
    void runAll() {
        while (!tasks.empty()) {
            auto next = std::ranges::min_element(tasks, {}, &Task::delay);
            auto task = std::move(next->task);
            tasks.erase(next);
            task();
        }
    }
    struct Task {
        std::chrono::milliseconds delay;
        std::function<void()> task;
    };
    std::vector<Task> tasks;
};

/// A device model with connections whose frames are recorded.
struct ModelFixture : ::testing::Test {
    ManualScheduler scheduler;
    DeviceModel model{scheduler, DeviceModelOptions{.seed = 7}};

    struct Client {
        std::string id;
        std::shared_ptr<RecordingPeer> peer;
    };

    Client connect(std::string userAgent = "velmar_link_lib") {
        auto peer = std::make_shared<RecordingPeer>();
        ConnectionMeta meta;
        meta.remoteAddr = "127.0.0.1";
        meta.remotePort = 50000;
        meta.target = "/default";
        meta.userAgent = std::move(userAgent);
        auto id = model.openConnection(meta, peer);
        return {id, peer};
    }

    /// Sends `request` (with a "request_id" added) and returns the last text frame parsed.
    boost::json::object request(const Client& client, boost::json::object request) {
        request["request_id"] = "rid-" + std::to_string(++counter_);
        const auto before = client.peer->frames.size();
        model.handleText(client.id, boost::json::serialize(request));
        EXPECT_GT(client.peer->frames.size(), before) << "no frame for " << boost::json::serialize(request);
        auto texts = client.peer->texts();
        if (texts.empty() || !texts.back().is_object()) return {};
        return texts.back().as_object();
    }

    static std::string code(const boost::json::object& reply) {
        const auto* error = reply.if_contains("error");
        if (error == nullptr || !error->is_object()) return "NONE";
        return std::string(error->at("code").as_string());
    }

private:
    int counter_ = 0;
};

}  // namespace velmar::emulator::testing
