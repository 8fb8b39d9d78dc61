// Transport and session against an in-process scripted WebSocket peer on 127.0.0.1:0.

#include "support/scripted_peer.hpp"

#include "velmar_link_json/link_json_session.hpp"
#include "velmar_link_json/velmar_link.hpp"

#include <gtest/gtest.h>

#include <chrono>
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
