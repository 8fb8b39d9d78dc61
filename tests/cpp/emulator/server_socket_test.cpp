// The server on a real loopback socket, driven by a Beast client.
#include "emulator/server/emulator_server.hpp"
#include "json_common/base64.hpp"

#include <boost/asio/connect.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core.hpp>
#include <boost/beast/http.hpp>
#include <boost/beast/websocket.hpp>
#include <boost/json.hpp>
#include <gtest/gtest.h>

#include <array>
#include <future>
#include <optional>
#include <thread>

using namespace velmar::emulator;
namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = beast::http;
namespace websocket = beast::websocket;
using tcp = asio::ip::tcp;

namespace {

/// A server on 127.0.0.1:0 running on its own thread for the duration of a test.
class RunningServer {
public:
    explicit RunningServer(HandshakeConfig handshake, ConnectionLimits limits = {}) {
        ServerOptions options;
        options.port = 0;
        options.handshake = std::move(handshake);
        options.limits = limits;
        options.model.seed = 3;
        server_ = std::make_unique<EmulatorServer>(std::move(options));
        auto endpoint = server_->listen();
        EXPECT_TRUE(endpoint) << endpoint.error();
        port = endpoint ? endpoint->port : 0;
        thread_ = std::thread([this] { server_->run(); });
    }
    ~RunningServer() {
        server_->stop();
        thread_.join();
    }
    std::uint16_t port = 0;

private:
    std::unique_ptr<EmulatorServer> server_;
    std::thread thread_;
};

/// A blocking client; every socket operation is bounded by the stream's expiry.
struct Client {
    explicit Client(std::uint16_t port) : ws(ioc) {
        beast::get_lowest_layer(ws).expires_after(std::chrono::seconds(10));
        beast::get_lowest_layer(ws).connect(tcp::endpoint(asio::ip::make_address("127.0.0.1"), port));
    }

    /// The handshake; on refusal the HTTP response is returned in `refusal`.
    beast::error_code handshake(std::vector<std::pair<std::string, std::string>> headers, std::string target = "/default") {
        ws.set_option(websocket::stream_base::decorator([headers](websocket::request_type& request) {
            request.set(http::field::user_agent, "velmar_link_lib");
            for (const auto& [name, value] : headers) request.set(name, value);
        }));
        beast::error_code ec;
        ws.handshake(response, "127.0.0.1", target, ec);
        return ec;
    }

    /// Runs the pending asynchronous operations for at most `limit`; closes the socket (which
    /// ends them) when they are not done by then.
    void runWithin(std::chrono::milliseconds limit, const bool& done) {
        ioc.restart();
        ioc.run_for(limit);
        if (!done) {
            beast::get_lowest_layer(ws).close();
            ioc.restart();
            ioc.run_for(std::chrono::seconds(1));
        }
    }

    /// One message, or the error that ended the reading (timed_out after `limit`).
    beast::error_code readWithin(beast::flat_buffer& buffer, std::chrono::milliseconds limit = std::chrono::seconds(10)) {
        beast::error_code result = asio::error::timed_out;
        bool done = false;
        ws.async_read(buffer, [&](const beast::error_code& ec, std::size_t) {
            result = ec;
            done = true;
        });
        runWithin(limit, done);
        return result;
    }

    /// One frame of a text message, the last one when `fin`.
    beast::error_code writeWithin(std::string_view text, bool fin = true) {
        beast::error_code result = asio::error::timed_out;
        bool done = false;
        ws.text(true);
        ws.async_write_some(fin, asio::buffer(text.data(), text.size()), [&](const beast::error_code& ec, std::size_t) {
            result = ec;
            done = true;
        });
        runWithin(std::chrono::seconds(10), done);
        return result;
    }

    /// A request and its reply (an empty object when none arrives).
    boost::json::object call(const boost::json::object& request) {
        if (writeWithin(boost::json::serialize(request))) return {};
        beast::flat_buffer buffer;
        if (readWithin(buffer)) return {};
        return boost::json::parse(beast::buffers_to_string(buffer.data())).as_object();
    }

    asio::io_context ioc;
    websocket::stream<beast::tcp_stream> ws;
    websocket::response_type response;
};

const std::pair<std::string, std::string> kVersion12{"V-Supported-Protocol-Version", "12"};

}  // namespace

TEST(EmulatorServer, HandshakeRefusalsCarryTheirStatusAndHeaders) {
    RunningServer server(HandshakeConfig{.credentials = std::pair<std::string, std::string>{"lab", "pw"}});
    const std::pair<std::string, std::string> auth{"Authorization", basicAuthorization("lab", "pw")};
    {
        Client client(server.port);
        EXPECT_TRUE(client.handshake({kVersion12, auth}, "/elsewhere"));
        EXPECT_EQ(client.response.result_int(), 404u);
    }
    {
        Client client(server.port);
        EXPECT_TRUE(client.handshake({kVersion12}));
        EXPECT_EQ(client.response.result_int(), 401u);
        EXPECT_EQ(client.response["WWW-Authenticate"], R"(Basic realm="RQ5")");
    }
    {
        Client client(server.port);
        EXPECT_TRUE(client.handshake({{"V-Supported-Protocol-Version", "11"}, auth}));
        EXPECT_EQ(client.response.result_int(), 426u);
        EXPECT_EQ(client.response["V-Supported-Protocol-Version"], "12");
    }
    {
        Client client(server.port);
        ASSERT_FALSE(client.handshake({{"V-Supported-Protocol-Version", "11"}, {"V-Accept-Any-Protocol-Version", "1"}, auth}));
        EXPECT_EQ(client.response["V-Supported-Protocol-Version"], "12");
    }
}

TEST(EmulatorServer, RequestsRepliesAndALargeBinaryDownload) {
    RunningServer server(HandshakeConfig{});
    Client client(server.port);
    ASSERT_FALSE(client.handshake({kVersion12}));
    beast::get_lowest_layer(client.ws).expires_never();
    client.ws.set_option(websocket::stream_base::timeout{std::chrono::seconds(10), std::chrono::seconds(15), true});
    client.ws.read_message_max(64u << 20);

    const auto call = [&](boost::json::object request) {
        client.ws.text(true);
        client.ws.write(asio::buffer(boost::json::serialize(request)));
        beast::flat_buffer buffer;
        client.ws.read(buffer);
        return boost::json::parse(beast::buffers_to_string(buffer.data())).as_object();
    };
    auto created = call({{"do", "/VELMAR_BINARY/create"}, {"name", "blob"}, {"request_id", "1"}});
    ASSERT_EQ(created.at("status"), "SUCCESS");
    const std::string id(created.at("resource").at("resource_id").as_string());
    // 3 MiB in 1 MiB chunks of Base64 text.
    std::string chunk(1u << 20, '\0');
    for (std::size_t i = 0; i < chunk.size(); ++i) chunk[i] = static_cast<char>(i % 251);
    const auto encoded = velmar::encodeBase64(chunk);
    for (int i = 0; i < 3; ++i) {
        ASSERT_EQ(call({{"do", "/VELMAR_BINARY/append"}, {"resource_id", id}, {"data", encoded}, {"request_id", "a"}})
                      .at("status"),
                  "SUCCESS");
    }
    auto reply = call({{"do", "/VELMAR_BINARY/download"}, {"resource_id", id}, {"limit", 0}, {"request_id", "d"}});
    ASSERT_EQ(reply.at("status"), "SUCCESS");
    beast::flat_buffer binary;
    client.ws.read(binary);
    EXPECT_TRUE(client.ws.got_binary());
    ASSERT_EQ(binary.size(), 3u * chunk.size());
    const auto bytes = beast::buffers_to_string(binary.data());
    EXPECT_EQ(bytes.substr(2 * chunk.size()), chunk);

    // A dropped connection ends with a normal close.
    auto own = call({{"do", "/connection/id"}, {"request_id", "c"}});
    const std::string ownId(own.at("connection").at("connection_id").as_string());
    call({{"do", "/connection/drop"}, {"connection_id", ownId}, {"request_id", "x"}});
    beast::flat_buffer rest;
    beast::error_code ec;
    client.ws.read(rest, ec);
    EXPECT_EQ(ec, websocket::error::closed);
    EXPECT_EQ(client.ws.reason().code, websocket::close_code::normal);
}

// Bounded cost per connection: each fault is played by a raw client against the real server,
// and another connection keeps being served.

TEST(EmulatorServerLimits, AClientThatDoesNotReadIsDroppedWhileOthersAreServed) {
    RunningServer server(HandshakeConfig{}, ConnectionLimits{.maxOutgoingBytes = 256u << 10});
    Client setup(server.port);
    ASSERT_FALSE(setup.handshake({kVersion12}));
    auto created = setup.call({{"do", "/VELMAR_BINARY/create"}, {"name", "blob"}, {"request_id", "1"}});
    const std::string id(created.at("resource").at("resource_id").as_string());
    const auto encoded = velmar::encodeBase64(std::string(1u << 20, 'x'));
    ASSERT_EQ(setup.call({{"do", "/VELMAR_BINARY/append"}, {"resource_id", id}, {"data", encoded}, {"request_id", "2"}})
                  .at("status"),
              "SUCCESS");

    // 64 requests for 1.4 MB replies each, none of them read: far more than the socket
    // buffers and the 256 KiB bound together hold.
    Client silent(server.port);
    ASSERT_FALSE(silent.handshake({kVersion12}));
    constexpr int kRequests = 64;
    const auto get = boost::json::serialize(
        boost::json::object{{"do", "/VELMAR_BINARY/get"}, {"resource_id", id}, {"request_id", "g"}});
    for (int i = 0; i < kRequests; ++i) {
        if (silent.writeWithin(get)) break;  // the server may already have dropped it
    }
    EXPECT_EQ(setup.call({{"do", "/id"}, {"request_id", "3"}}).at("status"), "SUCCESS");

    int replies = 0;
    beast::error_code ec;
    for (; replies <= kRequests; ++replies) {
        beast::flat_buffer buffer;
        if ((ec = silent.readWithin(buffer))) break;
    }
    EXPECT_LT(replies, kRequests);
    EXPECT_NE(ec, asio::error::timed_out);
    EXPECT_EQ(setup.call({{"do", "/id"}, {"request_id", "4"}}).at("status"), "SUCCESS");
}

TEST(EmulatorServerLimits, AMessageAboveTheLimitClosesOnlyItsConnection) {
    RunningServer server(HandshakeConfig{}, ConnectionLimits{.maxMessageBytes = 1u << 20});
    Client big(server.port), other(server.port);
    ASSERT_FALSE(big.handshake({kVersion12}));
    ASSERT_FALSE(other.handshake({kVersion12}));
    const std::string padding(2u << 20, 'p');
    (void)big.writeWithin(R"({"do":"/id","request_id":"b","pad":")" + padding + "\"}");
    beast::flat_buffer buffer;
    EXPECT_TRUE(big.readWithin(buffer));
    EXPECT_NE(big.readWithin(buffer), asio::error::timed_out);
    EXPECT_EQ(other.call({{"do", "/id"}, {"request_id", "o"}}).at("status"), "SUCCESS");
}

TEST(EmulatorServerLimits, PartialMessagesShareOneBudget) {
    RunningServer server(HandshakeConfig{}, ConnectionLimits{.maxMessageBytes = 4u << 20, .maxIncomingBytes = 2u << 20});
    Client first(server.port), second(server.port);
    ASSERT_FALSE(first.handshake({kVersion12}));
    ASSERT_FALSE(second.handshake({kVersion12}));
    // Either unfinished 900 KiB request fits the 2 MiB budget beside a part of 256 KiB; both
    // together leave no room for the next part. Whichever connection the server reads last
    // finds no room and is closed; the other one keeps its message and is served.
    const std::string head = R"({"do":"/id","request_id":"r","pad":")";
    ASSERT_FALSE(first.writeWithin(head + std::string(900u << 10, 'a'), false));
    ASSERT_FALSE(second.writeWithin(head + std::string(900u << 10, 'b'), false));

    std::array<Client*, 2> clients{&first, &second};
    std::array<beast::flat_buffer, 2> buffers;
    std::array<std::optional<beast::error_code>, 2> outcomes;
    for (std::size_t i = 0; i < clients.size(); ++i) {
        clients[i]->ioc.restart();
        clients[i]->ws.async_read(buffers[i], [&outcomes, i](const beast::error_code& ec, std::size_t) { outcomes[i] = ec; });
    }
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!outcomes[0] && !outcomes[1] && std::chrono::steady_clock::now() < deadline) {
        for (auto* client : clients) client->ioc.run_for(std::chrono::milliseconds(10));
    }
    ASSERT_NE(outcomes[0].has_value(), outcomes[1].has_value()) << "exactly one connection is closed";
    const std::size_t dropped = outcomes[0] ? 0 : 1;
    EXPECT_TRUE(*outcomes[dropped]);

    // The survivor's read is still pending; the end of its message brings the reply.
    auto& survivor = *clients[1 - dropped];
    auto& reply = outcomes[1 - dropped];
    survivor.ws.async_write_some(true, asio::buffer(std::string_view("\"}")),
                                 [](const beast::error_code&, std::size_t) {});
    while (!reply && std::chrono::steady_clock::now() < deadline) survivor.ioc.run_for(std::chrono::milliseconds(10));
    ASSERT_TRUE(reply);
    ASSERT_FALSE(*reply);
    EXPECT_EQ(boost::json::parse(beast::buffers_to_string(buffers[1 - dropped].data())).at("status"), "SUCCESS");

    // The closed connection gave its bytes back: a new one may hold as much again.
    Client later(server.port);
    ASSERT_FALSE(later.handshake({kVersion12}));
    ASSERT_FALSE(later.writeWithin(head + std::string(900u << 10, 'c'), false));
    ASSERT_FALSE(later.writeWithin("\"}", true));
    beast::flat_buffer buffer;
    ASSERT_FALSE(later.readWithin(buffer));
    EXPECT_EQ(boost::json::parse(beast::buffers_to_string(buffer.data())).at("status"), "SUCCESS");
}

TEST(EmulatorServerLimits, ConnectionsBeyondTheBoundAreClosedAtOnce) {
    RunningServer server(HandshakeConfig{}, ConnectionLimits{.maxConnections = 2});
    Client one(server.port), two(server.port);
    ASSERT_FALSE(one.handshake({kVersion12}));
    ASSERT_FALSE(two.handshake({kVersion12}));
    Client three(server.port);
    EXPECT_TRUE(three.handshake({kVersion12}));
    EXPECT_EQ(one.call({{"do", "/id"}, {"request_id", "1"}}).at("status"), "SUCCESS");
}
