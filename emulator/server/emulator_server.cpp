// The only translation unit of the emulator that uses Asio and Beast.
#include "emulator/server/emulator_server.hpp"

#include "emulator/core/connection_registry.hpp"

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/signal_set.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/beast/core.hpp>
#include <boost/beast/http.hpp>
#include <boost/beast/websocket.hpp>

#include <csignal>
#include <deque>
#include <iostream>
#include <vector>

namespace velmar::emulator {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = beast::http;
namespace websocket = beast::websocket;
using tcp = asio::ip::tcp;
using boost::system::error_code;

namespace {

/// Incoming messages are read in parts of at most this size, each reserved from the shared
/// budget of incoming bytes first.
constexpr std::size_t kReadChunk = 256u << 10;
/// Retry delays of a failing accept (descriptors exhausted): doubling up to the maximum.
constexpr auto kAcceptRetryFirst = std::chrono::milliseconds(100);
constexpr auto kAcceptRetryMax = std::chrono::milliseconds(1000);
/// The upgrade request must arrive within this time; also bounds the closing handshake.
constexpr auto kHandshakeTimeout = std::chrono::seconds(30);
/// Beast pings after half of this without traffic and drops the connection after all of it.
constexpr auto kIdleTimeout = std::chrono::seconds(15);
/// How long stop() waits for connections to finish their closing handshake.
constexpr auto kShutdownGrace = std::chrono::seconds(1);

class AsioScheduler final : public Scheduler {
public:
    explicit AsioScheduler(asio::io_context& ioc) : ioc_(ioc) {}

    void schedule(std::chrono::milliseconds delay, std::function<void()> task) override {
        auto timer = std::make_shared<asio::steady_timer>(ioc_, delay);
        timer->async_wait([timer, task = std::move(task)](const error_code& ec) {
            if (!ec) task();
        });
    }

private:
    asio::io_context& ioc_;
};

/// One line on standard error, like the model's reports of frame problems.
void logServer(std::string_view text) { std::cerr << "velmar-emulator: " << text << std::endl; }

std::optional<std::string_view> headerValue(const http::request<http::string_body>& request, std::string_view name) {
    auto it = request.find(beast::string_view(name.data(), name.size()));
    if (it == request.end()) return std::nullopt;
    return std::string_view(it->value().data(), it->value().size());
}

}  // namespace

class WsConnection;

/// The server's state, shared by the listener and its connections. I/O thread only, except
/// for construction and listen().
struct ServerCore {
    explicit ServerCore(ServerOptions serverOptions)
        : options(std::move(serverOptions)),
          scheduler(ioc),
          model(scheduler, modelOptions(options)),
          acceptor(ioc),
          signals(ioc),
          idleTimer(ioc),
          graceTimer(ioc),
          acceptRetryTimer(ioc) {}

    static DeviceModelOptions modelOptions(const ServerOptions& options) {
        auto out = options.model;
        out.protocolVersion = options.handshake.protocolVersion;
        if (options.handshake.credentials && out.userName.empty()) out.userName = options.handshake.credentials->first;
        return out;
    }

    void accept();
    void retryAccept(const error_code& ec);
    std::size_t liveConnections();
    void shutdown();
    void armIdleExit();
    // I/O thread: bookkeeping of open WebSocket connections for the idle exit and shutdown.
    void webSocketOpened();
    void connectionEnded();

    ServerOptions options;
    /// Bytes of incomplete incoming messages held by all connections. Declared before the
    /// context: connections still owned by its handlers give their share back when it goes.
    IncomingBudget incoming{options.limits.maxIncomingBytes};
    asio::io_context ioc{1};
    AsioScheduler scheduler;
    DeviceModel model;
    tcp::acceptor acceptor;
    asio::signal_set signals;
    asio::steady_timer idleTimer;
    asio::steady_timer graceTimer;
    asio::steady_timer acceptRetryTimer;
    std::chrono::milliseconds acceptRetryDelay{0};  // zero while accepting works
    std::vector<std::weak_ptr<WsConnection>> live;  // every TCP connection not yet ended
    std::size_t openWebSockets = 0;
    bool stopping = false;
};

/// One TCP connection: the HTTP upgrade, then the WebSocket read loop and a write queue.
/// Everything runs on the I/O thread; the ConnectionPeer members post to it.
class WsConnection final : public ConnectionPeer, public std::enable_shared_from_this<WsConnection> {
public:
    WsConnection(tcp::socket socket, ServerCore& server)
        : ws_(std::move(socket)), server_(server), incoming_(server.incoming) {}

    void start() {
        beast::get_lowest_layer(ws_).expires_after(kHandshakeTimeout);
        parser_.header_limit(16 * 1024);
        parser_.body_limit(16 * 1024);
        http::async_read(ws_.next_layer(), buffer_, parser_,
                         [self = shared_from_this()](const error_code& ec, std::size_t) { self->onRequest(ec); });
    }

    /// Shutdown: a graceful close for WebSocket connections, an abort for the others.
    void shutdown() {
        if (accepted_) {
            close();
        } else {
            error_code ignored;
            beast::get_lowest_layer(ws_).socket().close(ignored);
        }
    }

    void sendText(std::string text) override {
        const auto size = text.size();
        enqueue(Outgoing{false, std::make_shared<const std::string>(std::move(text)), size});
    }

    void sendBinary(BinaryPayload payload) override {
        enqueue(Outgoing{true, std::move(payload.owner), payload.size});
    }

    void close() override {
        asio::post(ws_.get_executor(), [self = shared_from_this()] {
            self->closeRequested_ = true;
            self->writeNext();
        });
    }

private:
    struct Outgoing {
        bool binary = false;
        std::shared_ptr<const std::string> owner;
        std::size_t size = 0;  // the bytes to write: a prefix of a binary owner, a whole text
    };

    void enqueue(Outgoing frame) {
        asio::post(ws_.get_executor(), [self = shared_from_this(), frame = std::move(frame)]() mutable {
            if (self->ended_ || self->closeRequested_) return;
            const auto& limits = self->server_.options.limits;
            // Frames wait behind the one being written; a client that does not read lets them
            // pile up. A single large frame may wait alone (a download).
            const bool tooManyBytes = self->waitingBytes_ > 0 && self->waitingBytes_ + frame.size > limits.maxOutgoingBytes;
            if (tooManyBytes || self->queue_.size() >= limits.maxOutgoingFrames) {
                logServer("connection " + self->id_ + ": dropped, it does not read its replies (" +
                          std::to_string(self->queue_.size()) + " frames, " + std::to_string(self->waitingBytes_) +
                          " bytes waiting)");
                return self->end();
            }
            self->waitingBytes_ += frame.size;
            self->queue_.push_back(std::move(frame));
            self->writeNext();
        });
    }

    void onRequest(const error_code& ec) {
        if (ec) return end();
        const auto& request = parser_.get();
        const auto decision = decideHandshake(
            HandshakeRequest{.isWebSocketUpgrade = websocket::is_upgrade(request),
                             .target = std::string_view(request.target().data(), request.target().size()),
                             .authorization = headerValue(request, "Authorization"),
                             .protocolVersion = headerValue(request, kProtocolVersionHeader),
                             .acceptAnyVersion = headerValue(request, kAcceptAnyVersionHeader)},
            server_.options.handshake);
        if (!decision.accepted()) return refuse(decision);

        meta_.target = std::string(request.target());
        meta_.userAgent = std::string(headerValue(request, "User-Agent").value_or(""));
        meta_.user = decision.user;
        error_code endpointError;
        const auto remote = beast::get_lowest_layer(ws_).socket().remote_endpoint(endpointError);
        if (!endpointError) {
            meta_.remoteAddr = remote.address().to_string();
            meta_.remotePort = remote.port();
        }

        beast::get_lowest_layer(ws_).expires_never();
        ws_.set_option(websocket::stream_base::timeout{kHandshakeTimeout, kIdleTimeout, true});
        ws_.set_option(websocket::stream_base::decorator([headers = decision.headers](websocket::response_type& response) {
            response.set(http::field::server, "velmar-emulator");
            for (const auto& [name, value] : headers) response.set(name, value);
        }));
        ws_.read_message_max(server_.options.limits.maxMessageBytes);
        // A binary download is one WebSocket frame, however large.
        ws_.auto_fragment(false);
        ws_.async_accept(request, [self = shared_from_this()](const error_code& acceptError) { self->onAccept(acceptError); });
    }

    void refuse(const HandshakeDecision& decision) {
        auto response = std::make_shared<http::response<http::string_body>>(
            static_cast<http::status>(decision.status), parser_.get().version());
        response->set(http::field::server, "velmar-emulator");
        response->set(http::field::content_type, "text/plain");
        for (const auto& [name, value] : decision.headers) response->set(name, value);
        response->body() = decision.body;
        response->keep_alive(false);
        response->prepare_payload();
        http::async_write(ws_.next_layer(), *response, [self = shared_from_this(), response](const error_code&, std::size_t) {
            error_code ignored;
            beast::get_lowest_layer(self->ws_).socket().shutdown(tcp::socket::shutdown_send, ignored);
            self->end();
        });
    }

    void onAccept(const error_code& ec) {
        if (ec) return end();
        accepted_ = true;
        id_ = server_.model.openConnection(meta_, weak_from_this());
        server_.webSocketOpened();
        readNext();
    }

    // Messages are read in parts; before each part the budget of incoming bytes that all
    // connections share must have room for it, so that partial messages cannot add up
    // without bound.
    void readNext() {
        const auto chunk = std::min(kReadChunk, server_.options.limits.maxMessageBytes + 1);
        if (!incoming_.admits(chunk)) {
            logServer("connection " + id_ + ": closed, incoming messages of all connections exceed " +
                      std::to_string(server_.options.limits.maxIncomingBytes) + " bytes");
            return end();
        }
        ws_.async_read_some(buffer_, chunk,
                            [self = shared_from_this()](const error_code& ec, std::size_t) { self->onRead(ec); });
    }

    void onRead(const error_code& ec) {
        if (ec) {
            if (ec == websocket::error::message_too_big)
                logServer("connection " + id_ + ": closed, message larger than " +
                          std::to_string(server_.options.limits.maxMessageBytes) + " bytes");
            return end();
        }
        if (!ws_.is_message_done()) {
            incoming_.hold(buffer_.size());
            return readNext();
        }
        incoming_.hold(0);
        const auto data = buffer_.cdata();
        if (ws_.got_text()) {
            server_.model.handleText(id_, std::string_view(static_cast<const char*>(data.data()), data.size()));
        } else {
            server_.model.handleBinary(id_, data.size());
        }
        buffer_.consume(buffer_.size());
        // Give back the memory of a large message instead of keeping it per connection.
        if (buffer_.capacity() > (1u << 20)) buffer_.shrink_to_fit();
        readNext();
    }

    void writeNext() {
        if (writing_ || ended_ || !accepted_) return;
        if (queue_.empty()) {
            if (closeRequested_ && !closing_) {
                closing_ = true;
                ws_.async_close(websocket::close_code::normal, [self = shared_from_this()](const error_code&) {});
            }
            return;
        }
        writing_ = true;
        const auto& front = queue_.front();
        waitingBytes_ -= front.size;
        ws_.binary(front.binary);
        ws_.async_write(asio::buffer(front.owner->data(), front.size), [self = shared_from_this()](const error_code& ec, std::size_t) {
            self->writing_ = false;
            if (ec) return self->end();
            self->queue_.pop_front();
            self->writeNext();
        });
    }

    /// The connection is over: forget it in the model and the server. Idempotent.
    void end() {
        if (ended_) return;
        ended_ = true;
        queue_.clear();
        waitingBytes_ = 0;
        incoming_.hold(0);
        error_code ignored;
        beast::get_lowest_layer(ws_).socket().close(ignored);
        if (accepted_) server_.model.closeConnection(id_);
        if (accepted_) server_.openWebSockets--;
        server_.connectionEnded();
    }

    websocket::stream<beast::tcp_stream> ws_;
    ServerCore& server_;
    beast::flat_buffer buffer_;
    http::request_parser<http::string_body> parser_;
    ConnectionMeta meta_;
    std::string id_;
    std::deque<Outgoing> queue_;
    /// Bytes of the frames in queue_ that are not being written yet.
    std::size_t waitingBytes_ = 0;
    /// This connection's part of ServerCore::incoming.
    IncomingBudget::Share incoming_;
    bool accepted_ = false;
    bool writing_ = false;
    bool closeRequested_ = false;
    bool closing_ = false;
    bool ended_ = false;
};

void ServerCore::accept() {
    acceptor.async_accept([this](const error_code& ec, tcp::socket socket) {
        if (stopping || !acceptor.is_open()) return;
        if (ec) return retryAccept(ec);
        if (acceptRetryDelay.count() > 0) {
            logServer("accepting connections again");
            acceptRetryDelay = std::chrono::milliseconds(0);
        }
        if (liveConnections() >= options.limits.maxConnections) {
            // Refused before anything is read or allocated for it.
            error_code ignored;
            socket.close(ignored);
        } else {
            auto connection = std::make_shared<WsConnection>(std::move(socket), *this);
            live.push_back(connection);
            connection->start();
        }
        accept();
    });
}

// Accepting fails while no descriptor is free (EMFILE, ENFILE) or memory is short; trying
// again at once would spin. The delay doubles up to kAcceptRetryMax and is reset by the next
// accepted connection.
void ServerCore::retryAccept(const error_code& ec) {
    if (acceptRetryDelay.count() == 0) {
        logServer("cannot accept connections: " + ec.message() + "; retrying");
        acceptRetryDelay = kAcceptRetryFirst;
    } else {
        acceptRetryDelay = std::min(acceptRetryDelay * 2, std::chrono::milliseconds(kAcceptRetryMax));
    }
    acceptRetryTimer.expires_after(acceptRetryDelay);
    acceptRetryTimer.async_wait([this](const error_code& waitError) {
        if (!waitError && !stopping) accept();
    });
}

std::size_t ServerCore::liveConnections() {
    std::erase_if(live, [](const auto& weak) { return weak.expired(); });
    return live.size();
}

void ServerCore::webSocketOpened() {
    ++openWebSockets;
    idleTimer.cancel();
}

void ServerCore::connectionEnded() {
    if (stopping) {
        std::erase_if(live, [](const auto& weak) { return weak.expired(); });
        // The ending connection still holds itself alive here; it is the last when one is left.
        if (live.size() <= 1) ioc.stop();
        return;
    }
    if (openWebSockets == 0) armIdleExit();
}

void ServerCore::armIdleExit() {
    if (options.idleExit.count() <= 0 || stopping) return;
    idleTimer.expires_after(options.idleExit);
    idleTimer.async_wait([this](const error_code& ec) {
        if (!ec && openWebSockets == 0) shutdown();
    });
}

void ServerCore::shutdown() {
    if (stopping) return;
    stopping = true;
    error_code ignored;
    acceptor.close(ignored);
    signals.cancel(ignored);
    idleTimer.cancel();
    acceptRetryTimer.cancel();
    std::erase_if(live, [](const auto& weak) { return weak.expired(); });
    if (live.empty()) {
        ioc.stop();
        return;
    }
    for (const auto& weak : live) {
        if (auto connection = weak.lock()) connection->shutdown();
    }
    graceTimer.expires_after(kShutdownGrace);
    graceTimer.async_wait([this](const error_code&) { ioc.stop(); });
}

struct EmulatorServer::Impl : ServerCore {
    using ServerCore::ServerCore;
};

EmulatorServer::EmulatorServer(ServerOptions options) : impl_(std::make_unique<Impl>(std::move(options))) {}

EmulatorServer::~EmulatorServer() = default;

DeviceModel& EmulatorServer::model() { return impl_->model; }

std::expected<ListeningEndpoint, std::string> EmulatorServer::listen() {
    auto& impl = *impl_;
    error_code ec;
    tcp::resolver resolver(impl.ioc);
    const auto results = resolver.resolve(impl.options.host, std::to_string(impl.options.port),
                                          tcp::resolver::passive | tcp::resolver::numeric_service, ec);
    if (ec || results.empty()) return std::unexpected("cannot resolve " + impl.options.host + ": " + ec.message());
    const tcp::endpoint endpoint = results.begin()->endpoint();
    if (impl.acceptor.open(endpoint.protocol(), ec); ec) return std::unexpected("cannot open socket: " + ec.message());
    if (impl.acceptor.set_option(asio::socket_base::reuse_address(true), ec); ec) {
        return std::unexpected("cannot set socket option: " + ec.message());
    }
    if (impl.acceptor.bind(endpoint, ec); ec) {
        return std::unexpected("cannot bind " + endpoint.address().to_string() + ":" + std::to_string(endpoint.port()) +
                               ": " + ec.message());
    }
    if (impl.acceptor.listen(asio::socket_base::max_listen_connections, ec); ec) {
        return std::unexpected("cannot listen: " + ec.message());
    }
    const auto bound = impl.acceptor.local_endpoint(ec);
    if (ec) return std::unexpected("cannot read the bound address: " + ec.message());
    impl.accept();
    impl.armIdleExit();
    return ListeningEndpoint{bound.address().to_string(), bound.port()};
}

void EmulatorServer::run() { impl_->ioc.run(); }

void EmulatorServer::stop() {
    asio::post(impl_->ioc, [impl = impl_.get()] { impl->shutdown(); });
}

void EmulatorServer::stopOnSignals() {
    auto& impl = *impl_;
    impl.signals.add(SIGINT);
    impl.signals.add(SIGTERM);
    impl.signals.async_wait([&impl](const error_code& ec, int) {
        if (!ec) impl.shutdown();
    });
}

}  // namespace velmar::emulator
