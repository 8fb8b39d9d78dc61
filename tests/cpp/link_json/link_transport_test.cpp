// Transport and session against an in-process scripted WebSocket peer on 127.0.0.1:0.

#include "support/scripted_peer.hpp"

#include "velmar_link_json/jobs/dc/dc_result_destination.hpp"
#include "velmar_link_json/link_json_session.hpp"
#include "velmar_link_json/link_ll_session.hpp"
#include "velmar_link_json/velmar_link.hpp"

#include <gtest/gtest.h>

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/io_context.hpp>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include <dirent.h>

#include <future>

namespace velmar {
namespace {

namespace json = boost::json;
using testing::PeerAction;
using testing::ScriptedPeer;
using namespace std::chrono_literals;
using Flags = unsigned;

PeerAction statusReply(const json::object& request) {
    return PeerAction::reply(request, {{"workstation_status", json::object{{"busy", false}, {"uptime", 7}}}});
}

std::string closedPort() {
    boost::asio::io_context context;
    boost::asio::ip::tcp::acceptor probe(context, {boost::asio::ip::make_address("127.0.0.1"), 0});
    return std::to_string(probe.local_endpoint().port());
}

int countEntries(const char* directory) {
    int count = 0;
    if (DIR* dir = opendir(directory)) {
        while (readdir(dir) != nullptr) ++count;
        closedir(dir);
    }
    return count;
}

TEST(LinkTransport, ConnectOutcomesOfUnreachablePeers) {
    LinkJsonSession closed("127.0.0.1", closedPort());
    const auto refused = closed.connect();
    EXPECT_EQ(refused.code, ErrorCodeEnum::CONNECTION_FAILED);
    EXPECT_EQ(refused.message, "failed to connect");

    LinkJsonSession unknown("no-such-workstation.invalid", "1994");
    const auto dns = unknown.connect();
    EXPECT_EQ(dns.code, ErrorCodeEnum::CONNECTION_DNS_ERROR);
    EXPECT_EQ(dns.message, "dns error: {0}");
    EXPECT_EQ(dns.getMessageFormatted(), "dns error: no-such-workstation.invalid:1994");
}

TEST(LinkTransport, HandshakeRequestCarriesTheProtocolHeaders) {
    ScriptedPeer peer(statusReply);
    {
        LinkJsonSession session("127.0.0.1", peer.port());
        ASSERT_FALSE(session.connect());
        EXPECT_EQ(session.getDeviceProtocolVersion(), 12u);
        auto headers = peer.lastHeaders();
        EXPECT_EQ(headers["User-Agent"], "velmar_link_lib");
        EXPECT_EQ(headers["V-Supported-Protocol-Version"], "12");
        EXPECT_FALSE(headers.contains("Authorization"));
        EXPECT_FALSE(headers.contains("V-Accept-Any-Protocol-Version"));
        EXPECT_EQ(session.connect().code, ErrorCodeEnum::ALREADY_CONNECTED);
        auto status = session.getWorkstationStatus();
        ASSERT_TRUE(status) << status.error().getMessageFormatted();
        EXPECT_EQ(status->uptime, 7u);
    }
    LinkJsonSession withUser("127.0.0.1", peer.port(), VelmarLinkConnectionFlags::IGNORE_PROTOCOL_MISMATCH, "op",
                             "pw");
    ASSERT_FALSE(withUser.connect());
    auto headers = peer.lastHeaders();
    EXPECT_EQ(headers["Authorization"], "Basic b3A6cHc=");
    EXPECT_EQ(headers["V-Accept-Any-Protocol-Version"], "1");
}

TEST(LinkTransport, RefusalsAndVersionMismatch) {
    // Refusals end the connect at once, not at the handshake time-out.
    const auto started = std::chrono::steady_clock::now();
    ScriptedPeer unauthorized(statusReply, {401, "12"});
    EXPECT_EQ(LinkJsonSession("127.0.0.1", unauthorized.port()).connect().code, ErrorCodeEnum::UNAUTHORIZED);
    ScriptedPeer upgradeRequired(statusReply, {426, "12"});
    EXPECT_EQ(LinkJsonSession("127.0.0.1", upgradeRequired.port()).connect().code,
              ErrorCodeEnum::PROTOCOL_VERSION_MISMATCH);
    ScriptedPeer forbidden(statusReply, {403, "12"});
    EXPECT_EQ(LinkJsonSession("127.0.0.1", forbidden.port()).connect().code,
              ErrorCodeEnum::FAILED_TO_ESTABLISH_WEBSOCKET_CONNECTION);

    ScriptedPeer newer(statusReply, {101, "13"});
    LinkJsonSession strict("127.0.0.1", newer.port());
    EXPECT_EQ(strict.connect().code, ErrorCodeEnum::PROTOCOL_VERSION_MISMATCH);
    EXPECT_FALSE(strict.isConnected());
    EXPECT_LT(std::chrono::steady_clock::now() - started, 1s);
    LinkJsonSession tolerant("127.0.0.1", newer.port(), VelmarLinkConnectionFlags::IGNORE_PROTOCOL_MISMATCH);
    ASSERT_FALSE(tolerant.connect());
    EXPECT_EQ(tolerant.getDeviceProtocolVersion(), 13u);
    EXPECT_TRUE(tolerant.getWorkstationStatus());
}

TEST(LinkTransport, SilentPeerTimesOutWithDefaultAndChangedTimeout) {
    ScriptedPeer peer([](const json::object&) { return PeerAction::silence(); });
    LinkJsonSession session("127.0.0.1", peer.port());
    ASSERT_FALSE(session.connect());
    auto started = std::chrono::steady_clock::now();
    EXPECT_EQ(session.getWorkstationStatus().error().code, ErrorCodeEnum::OPERATION_TIMED_OUT);
    auto elapsed = std::chrono::steady_clock::now() - started;
    EXPECT_GE(elapsed, 950ms);
    EXPECT_LT(elapsed, 1500ms);
    session.setRequestTimeout(150ms);
    started = std::chrono::steady_clock::now();
    EXPECT_EQ(session.getWorkstationStatus().error().code, ErrorCodeEnum::OPERATION_TIMED_OUT);
    EXPECT_LT(std::chrono::steady_clock::now() - started, 600ms);
    EXPECT_TRUE(session.isConnected());
}

TEST(LinkTransport, PeerClosingMidRequestIsConnectionWasClosed) {
    ScriptedPeer peer([](const json::object&) { return PeerAction::hangUp(); });
    LinkJsonSession session("127.0.0.1", peer.port());
    std::promise<void> lost;
    session.setConnectionStatusCallback([&](VelmarLinkConnectionStatusEnum s) {
        if (s == VelmarLinkConnectionStatusEnum::DISCONNECTED) lost.set_value();
    });
    ASSERT_FALSE(session.connect());
    const auto error = session.getWorkstationStatus().error();
    EXPECT_EQ(error.code, ErrorCodeEnum::CONNECTION_WAS_CLOSED);
    EXPECT_EQ(lost.get_future().wait_for(2s), std::future_status::ready);
    EXPECT_FALSE(session.isConnected());
    session.setConnectionStatusCallback({});
}

TEST(LinkTransport, CancelFromAnotherThreadStopsTheWaitAndKeepsTheConnection) {
    ScriptedPeer peer([](const json::object& request) {
        if (request.at("do") == "/status") return PeerAction::silence();
        return PeerAction::reply(request, {{"workstation", json::object{{"serial_number", "S1"}}}});
    });
    LinkJsonSession session("127.0.0.1", peer.port());
    ASSERT_FALSE(session.connect());
    session.setRequestTimeout(10s);
    std::thread canceller([&] {
        std::this_thread::sleep_for(100ms);
        session.cancelPendingOperations();
    });
    const auto started = std::chrono::steady_clock::now();
    EXPECT_EQ(session.getWorkstationStatus().error().code, ErrorCodeEnum::STOPPED_MANUALLY);
    EXPECT_LT(std::chrono::steady_clock::now() - started, 2s);
    canceller.join();
    EXPECT_TRUE(session.isConnected());
    auto info = session.getWorkstationInfo();
    ASSERT_TRUE(info);
    EXPECT_EQ(info->serial_number, "S1");
}

TEST(LinkTransport, LargeBinaryDownloadArrivesIntact) {
    std::string content(64u << 20, '\0');
    for (std::size_t i = 0; i < content.size(); i += 4096) content[i] = static_cast<char>(i / 4096);
    ScriptedPeer peer([&](const json::object& request) {
        auto action = PeerAction::reply(request);
        action.binaries.push_back(content);
        return action;
    });
    VelmarLink link("127.0.0.1", peer.port());
    ASSERT_FALSE(link.connect());
    Resource resource;
    resource.resource_id = "r1";
    resource.type = ResourceTypeEnum::JOB_RESULT;
    std::string received;
    ASSERT_FALSE(link.retrieveFullResource(resource, received));
    EXPECT_TRUE(received == content);
}

TEST(LinkTransport, ConnectDisconnectCyclesLeakNoThreadsOrDescriptors) {
    ScriptedPeer peer(statusReply);
    LinkJsonSession session("127.0.0.1", peer.port());
    ASSERT_FALSE(session.connect());
    session.disconnect();
    const int tasks = countEntries("/proc/self/task");
    const int fds = countEntries("/proc/self/fd");
    for (int i = 0; i < 1000; ++i) {
        ASSERT_FALSE(session.connect()) << "cycle " << i;
        if (i % 100 == 0) {
            ASSERT_TRUE(session.getWorkstationStatus());
        }
        session.disconnect();
    }
    // The in-process peer closes its side of each connection asynchronously, so the counts may
    // need a moment to settle; a leak of any size over 1,000 cycles never does.
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(3);
    while ((countEntries("/proc/self/task") > tasks || countEntries("/proc/self/fd") > fds) &&
           std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    EXPECT_LE(countEntries("/proc/self/task"), tasks);
    EXPECT_LE(countEntries("/proc/self/fd"), fds);
    EXPECT_EQ(peer.connections(), 1001);
}

}  // namespace
}  // namespace velmar

namespace velmar {
namespace {

/// A low-level session of the real transport, run on its own I/O thread, that records what
/// it delivers: text messages, and binary messages through the destination handler.
class RecordingTransport {
public:
    RecordingTransport(const std::string& port, std::size_t maxMessageSize) {
        LinkLlSessionFactory<LinkLlSession> factory("127.0.0.1", port, 0, "", "");
        ll_.reset(factory.createSession(context_));
        ll_->setMaxMessageSize(maxMessageSize);
        ll_->setReceiveHandler([this](const std::string& text) {
            std::lock_guard lock(mutex_);
            texts_.push_back(text);
            changed_.notify_all();
        });
        ll_->setReceiveBinaryHandler([this](std::string&& data) {
            std::lock_guard lock(mutex_);
            wholeBinaries_.push_back(std::move(data));
            changed_.notify_all();
        });
        ll_->setBinaryDestinationHandlers(
            [this] {
                std::lock_guard lock(mutex_);
                return std::exchange(armed_, nullptr);
            },
            [this](std::shared_ptr<BinaryDestination> destination) {
                std::lock_guard lock(mutex_);
                delivered_.push_back(std::move(destination));
                changed_.notify_all();
            });
        EXPECT_EQ(ll_->connect(), LinkConnectOutcome::SUCCESS);
        ll_->startServices();
        thread_ = std::thread([this] { context_.run(); });
    }

    ~RecordingTransport() {
        ll_->disconnect();
        work_.reset();
        context_.stop();
        thread_.join();
    }

    AbstractLinkLlSession& ll() { return *ll_; }
    void arm(std::shared_ptr<BinaryDestination> destination) {
        std::lock_guard lock(mutex_);
        armed_ = std::move(destination);
    }
    /// Sends a request and waits (bounded) until `texts` text and `binaries` binary messages
    /// have arrived in all.
    void request(const std::string& name, std::size_t texts, std::size_t binaries) {
        ASSERT_TRUE(ll_->send(json::serialize(json::object{{"do", name}, {"request_id", name}})));
        std::unique_lock lock(mutex_);
        ASSERT_TRUE(changed_.wait_for(lock, 10s, [&] {
            return texts_.size() >= texts && delivered_.size() + wholeBinaries_.size() >= binaries;
        })) << name;
    }
    std::vector<std::string> texts() {
        std::lock_guard lock(mutex_);
        return texts_;
    }
    std::vector<std::shared_ptr<BinaryDestination>> delivered() {
        std::lock_guard lock(mutex_);
        return delivered_;
    }
    std::vector<std::string> wholeBinaries() {
        std::lock_guard lock(mutex_);
        return wholeBinaries_;
    }

private:
    boost::asio::io_context context_;
    boost::asio::executor_work_guard<boost::asio::io_context::executor_type> work_{context_.get_executor()};
    std::unique_ptr<AbstractLinkLlSession> ll_;
    std::thread thread_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<std::string> texts_;
    std::vector<std::string> wholeBinaries_;
    std::vector<std::shared_ptr<BinaryDestination>> delivered_;
    std::shared_ptr<BinaryDestination> armed_;
};

constexpr std::size_t LIMIT = std::size_t{1} << 20;

/// "text:N" answers with a text message of N bytes, "binary:N" with a binary one, each
/// followed by the text "after"; "fragmented:..." sends the same in frames of a few KiB.
PeerAction sizedMessages(const json::object& request) {
    std::string name(request.at("do").as_string());
    PeerAction action;
    if (name.starts_with("fragmented:")) {
        action.fragment = true;
        name.erase(0, 11);
    }
    const auto colon = name.find(':');
    const std::size_t size = std::stoull(name.substr(colon + 1));
    if (name.starts_with("text")) {
        action.texts.push_back("\"" + std::string(size - 2, 'x') + "\"");
    } else {
        action.binaries.push_back(std::string(size, '\x01'));
    }
    action.texts.push_back("after");
    return action;
}

TEST(LinkTransportLimit, TooLargeTextIsDroppedAndTheConnectionStays) {
    ScriptedPeer peer(sizedMessages);
    RecordingTransport transport(peer.port(), LIMIT);
    ::testing::internal::CaptureStderr();
    transport.request("text:" + std::to_string(LIMIT + 1), 1, 0);
    transport.request("fragmented:text:" + std::to_string(3 * LIMIT), 2, 0);
    const std::string errors = ::testing::internal::GetCapturedStderr();
    EXPECT_EQ(transport.texts(), (std::vector<std::string>{"after", "after"}));
    EXPECT_NE(errors.find("text message of " + std::to_string(LIMIT + 1) + " bytes exceeds the limit of " +
                          std::to_string(LIMIT) + " bytes"),
              std::string::npos)
        << errors;
    EXPECT_NE(errors.find("text message of " + std::to_string(3 * LIMIT) + " bytes"), std::string::npos) << errors;
    // At the limit a message is still delivered.
    transport.request("text:" + std::to_string(LIMIT), 4, 0);
    EXPECT_EQ(transport.texts()[2].size(), LIMIT);
    EXPECT_EQ(transport.ll().getConnectionStatus(), VelmarLinkConnectionStatusEnum::CONNECTED);
}

TEST(LinkTransportLimit, TooLargeBinaryFailsTheArmedDestinationAndTheConnectionStays) {
    ScriptedPeer peer(sizedMessages);
    RecordingTransport transport(peer.port(), LIMIT);
    ::testing::internal::CaptureStderr();
    std::size_t n = 0;
    for (const std::string prefix : {"", "fragmented:"}) {
        auto destination = std::make_shared<DcResultDestination>(3, std::nullopt);
        transport.arm(destination);
        ++n;
        transport.request(prefix + "binary:" + std::to_string(LIMIT + 8), n, n);
        const auto delivered = transport.delivered();
        ASSERT_EQ(delivered.back(), destination);
        ASSERT_TRUE(destination->failure);
        EXPECT_EQ(destination->failure->code, ErrorCodeEnum::RESOURCE_CONTENT_INVALID);
        EXPECT_EQ(destination->failure->getMessageFormatted(), "message of " + std::to_string(LIMIT + 8) +
                                                                   " bytes exceeds the limit of " +
                                                                   std::to_string(LIMIT) + " bytes");
        EXPECT_EQ(destination->received, LIMIT + 8);
        // Never more than the limit and one step of storage.
        EXPECT_LE(destination->allocatedBytes(), LIMIT + DcResultDestination::GROWTH_STEP);
        EXPECT_FALSE(destination->takeDataset(LiveDataHeader{}, JobInfo{}));
    }
    // Without an armed destination the refusal is still reported to the destination handler.
    ++n;
    transport.request("binary:" + std::to_string(2 * LIMIT), n, n);
    ASSERT_TRUE(transport.delivered().back()->failure);
    EXPECT_TRUE(transport.wholeBinaries().empty());
    const std::string errors = ::testing::internal::GetCapturedStderr();
    EXPECT_NE(errors.find("binary message of " + std::to_string(2 * LIMIT) + " bytes exceeds the limit"),
              std::string::npos)
        << errors;

    // The link goes on: a binary message at the limit arrives whole, into a destination too.
    ++n;
    transport.request("binary:" + std::to_string(LIMIT), n, n);
    ASSERT_EQ(transport.wholeBinaries().size(), 1u);
    EXPECT_EQ(transport.wholeBinaries()[0].size(), LIMIT);
    auto destination = std::make_shared<DcResultDestination>(2, std::nullopt);
    transport.arm(destination);
    ++n;
    transport.request("binary:" + std::to_string(LIMIT), n, n);
    EXPECT_FALSE(destination->failure);
    auto dataset = destination->takeDataset(
        LiveDataHeader{"m", "m", {ColumnHeader{"t", "s", "u:t"}, ColumnHeader{"v", "V", "u:v"}}}, JobInfo{});
    ASSERT_TRUE(dataset);
    EXPECT_EQ(dataset->getRowCount(), LIMIT / 16);
    EXPECT_EQ(transport.ll().getConnectionStatus(), VelmarLinkConnectionStatusEnum::CONNECTED);
}

}  // namespace
}  // namespace velmar
