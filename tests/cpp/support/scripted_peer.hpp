#pragma once

// An in-process WebSocket workstation on 127.0.0.1:0 for transport and session tests. The
// handshake answer is configurable (accept, or refuse with an HTTP status) and every text
// request is answered by a script function that returns what to do.

#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core/buffers_to_string.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/http.hpp>
#include <boost/beast/websocket.hpp>
#include <boost/json.hpp>

#include <sys/socket.h>

#include <atomic>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace velmar::testing {

/// What the peer does with one request. Frames are sent in order, then the connection is
/// closed when `close` is set.
struct PeerAction {
    std::vector<std::string> texts;
    std::vector<std::string> binaries;
    bool close = false;
    /// Messages go out in frames of a few KiB instead of one frame each.
    bool fragment = false;

    static PeerAction reply(const boost::json::object& request, boost::json::object body = {}) {
        body["type"] = "REPLY";
        body["request_id"] = request.at("request_id");
        body["status"] = "SUCCESS";
        return PeerAction{{boost::json::serialize(body)}, {}, false, false};
    }
    static PeerAction silence() { return {}; }
    static PeerAction hangUp() { return PeerAction{{}, {}, true, false}; }
};

class ScriptedPeer {
public:
    using Script = std::function<PeerAction(const boost::json::object& request)>;

    /// `status`: 101 accepts the WebSocket handshake; anything else refuses it with that status.
    struct Handshake {
        unsigned status = 101;
        std::string protocolVersion = "12";
    };

    explicit ScriptedPeer(Script script) : ScriptedPeer(std::move(script), Handshake{101, "12"}) {}

    ScriptedPeer(Script script, Handshake handshake)
        : script_(std::move(script)), handshake_(std::move(handshake)) {
        acceptor_.open(boost::asio::ip::tcp::v4());
        acceptor_.set_option(boost::asio::socket_base::reuse_address(true));
        acceptor_.bind({boost::asio::ip::make_address("127.0.0.1"), 0});
        acceptor_.listen();
        port_ = acceptor_.local_endpoint().port();
        thread_ = std::thread([this] { serve(); });
    }

    ~ScriptedPeer() {
        stopping_ = true;
        {
            std::lock_guard lock(mutex_);
            if (activeSocket_ >= 0) ::shutdown(activeSocket_, SHUT_RDWR);
        }
        // Wakes the blocking accept.
        boost::asio::io_context wake;
        boost::asio::ip::tcp::socket poke(wake);
        boost::system::error_code ignored;
        poke.connect({boost::asio::ip::make_address("127.0.0.1"), port_}, ignored);
        thread_.join();
    }

    std::string port() const { return std::to_string(port_); }
    int connections() const { return connections_.load(); }
    int requests() const { return requests_.load(); }

    /// Headers of the last handshake request.
    std::map<std::string, std::string> lastHeaders() {
        std::lock_guard lock(mutex_);
        return lastHeaders_;
    }

private:
    void serve() {
        namespace beast = boost::beast;
        namespace http = boost::beast::http;
        namespace websocket = boost::beast::websocket;
        while (!stopping_) {
            boost::system::error_code ec;
            boost::asio::ip::tcp::socket socket(context_);
            acceptor_.accept(socket, ec);
            if (ec || stopping_) continue;
            ++connections_;
            {
                std::lock_guard lock(mutex_);
                activeSocket_ = socket.native_handle();
            }
            beast::flat_buffer buffer;
            http::request<http::string_body> request;
            http::read(socket, buffer, request, ec);
            if (!ec) {
                std::map<std::string, std::string> headers;
                for (const auto& field : request) headers[std::string(field.name_string())] = std::string(field.value());
                std::lock_guard lock(mutex_);
                lastHeaders_ = std::move(headers);
            }
            if (!ec && handshake_.status != 101) {
                http::response<http::string_body> refusal{static_cast<http::status>(handshake_.status), 11};
                refusal.set(http::field::connection, "close");
                refusal.prepare_payload();
                http::write(socket, refusal, ec);
            } else if (!ec) {
                websocket::stream<boost::asio::ip::tcp::socket&> ws(socket);
                ws.set_option(websocket::stream_base::decorator([this](websocket::response_type& response) {
                    response.set("V-Supported-Protocol-Version", handshake_.protocolVersion);
                }));
                ws.read_message_max(std::size_t{1} << 30);
                ws.accept(request, ec);
                while (!ec && !stopping_) {
                    beast::flat_buffer message;
                    ws.read(message, ec);
                    if (ec) break;
                    ++requests_;
                    auto parsed = boost::json::parse(beast::buffers_to_string(message.data()));
                    PeerAction action = script_(parsed.as_object());
                    ws.auto_fragment(action.fragment);
                    for (const auto& text : action.texts) {
                        ws.text(true);
                        ws.write(boost::asio::buffer(text), ec);
                    }
                    for (const auto& data : action.binaries) {
                        ws.binary(true);
                        ws.write(boost::asio::buffer(data), ec);
                    }
                    if (action.close) {
                        ws.close(websocket::close_code::normal, ec);
                        break;
                    }
                }
            }
            std::lock_guard lock(mutex_);
            activeSocket_ = -1;
            socket.shutdown(boost::asio::ip::tcp::socket::shutdown_both, ec);
            socket.close(ec);
        }
    }

    Script script_;
    Handshake handshake_;
    boost::asio::io_context context_;
    boost::asio::ip::tcp::acceptor acceptor_{context_};
    unsigned short port_ = 0;
    std::atomic<bool> stopping_{false};
    std::atomic<int> connections_{0};
    std::atomic<int> requests_{0};
    std::mutex mutex_;
    int activeSocket_ = -1;
    std::map<std::string, std::string> lastHeaders_;
    std::thread thread_;
};

}  // namespace velmar::testing
