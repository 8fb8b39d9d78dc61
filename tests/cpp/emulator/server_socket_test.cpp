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

#include <future>
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
    explicit RunningServer(HandshakeConfig handshake) {
        ServerOptions options;
        options.port = 0;
        options.handshake = std::move(handshake);
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
