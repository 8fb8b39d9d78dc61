#include "velmar_link_json/link_ll_session_impl.hpp"

#include "json_common/base64.hpp"
#include "json_common/logging/error_messages.hpp"
#include "json_common/logging/library_version.hpp"

#include <boost/asio/co_spawn.hpp>
#include <boost/asio/ip/address.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/redirect_error.hpp>
#include <boost/asio/ssl/host_name_verification.hpp>
#include <boost/asio/use_awaitable.hpp>
#include <boost/beast/http/field.hpp>
#include <boost/beast/http/status.hpp>
#include <boost/beast/websocket/ssl.hpp>
#include <openssl/ssl.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <future>
#include <iostream>
#include <limits>

namespace velmar {

namespace net = boost::asio;
namespace beast = boost::beast;
namespace websocket = boost::beast::websocket;
namespace ssl = boost::asio::ssl;
using tcp = boost::asio::ip::tcp;
using boost::system::error_code;

namespace {

/// Text buffers that grew beyond this are released after their message.
constexpr std::size_t KEEP_READ_BUFFER_CAPACITY = std::size_t{4} << 20;
/// The first read of every message; small replies arrive whole in it.
constexpr std::size_t FIRST_PART_BYTES = std::size_t{64} << 10;
/// Each further read of a message that is not written into a destination.
constexpr std::size_t REST_PART_BYTES = std::size_t{1} << 20;
constexpr auto IDLE_TIMEOUT = std::chrono::seconds(15);

unsigned parseProtocolVersion(std::string_view text) {
    unsigned version = 0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), version);
    if (ec != std::errc() || end != text.data() + text.size()) return 0;
    return version;
}

/// Stands in for the destination of a refused binary message when no download armed one.
class RefusedMessage final : public BinaryDestination {
public:
    void begin(std::uint64_t, bool) override {}
    std::span<std::byte> prepare() override { return {}; }
    void commit(std::size_t) override {}
};

bool isIpAddressText(const std::string& host) {
    error_code ec;
    net::ip::make_address(host, ec);
    return !ec;
}

}  // namespace

std::string makeWwwAuthHeader(const std::string& user, const std::string& password) {
    return "Basic " + encodeBase64(user + ":" + password);
}

template <class Stream>
LinkLlSession<Stream>::LinkLlSession(net::io_context& context, LinkConnectionData data)
    : context_(context), data_(std::move(data)) {}

template <class Stream>
LinkLlSession<Stream>::~LinkLlSession() = default;

// Owner thread: runs the context here until the connect sequence has ended. Work that the
// sequence leaves behind (the WebSocket's own timers) stays queued for the I/O thread.
template <class Stream>
int LinkLlSession<Stream>::connect() {
    int outcome = LinkConnectOutcome::WEBSOCKET_HANDSHAKE_FAILED;
    std::exception_ptr failure;
    bool finished = false;
    net::co_spawn(context_, asyncConnect(), [&](std::exception_ptr error, int result) {
        failure = error;
        outcome = result;
        finished = true;
    });
    context_.restart();
    while (!finished && context_.run_one() > 0) {
    }
    context_.restart();
    if (failure) std::rethrow_exception(failure);
    return outcome;
}

template <class Stream>
net::awaitable<int> LinkLlSession<Stream>::asyncConnect() {
    // The deadline covers the whole sequence; its handler may run after this frame is gone,
    // so what it touches lives in shared state.
    struct Deadline {
        explicit Deadline(const net::any_io_executor& executor) : timer(executor), resolver(executor) {}
        net::steady_timer timer;
        tcp::resolver resolver;
        bool finished = false;
        bool expired = false;
    };
    auto executor = co_await net::this_coro::executor;
    auto deadline = std::make_shared<Deadline>(executor);
    deadline->timer.expires_after(connectionTimeout_);
    deadline->timer.async_wait([this, deadline](error_code ec) {
        if (ec || deadline->finished) return;
        deadline->expired = true;
        deadline->resolver.cancel();
        if (ws_) beast::get_lowest_layer(*ws_).cancel();
    });
    struct Finish {
        std::shared_ptr<Deadline> deadline;
        ~Finish() {
            deadline->finished = true;
            deadline->timer.cancel();
        }
    } finish{deadline};

    error_code ec;
    auto endpoints =
        co_await deadline->resolver.async_resolve(data_.host, data_.port, net::redirect_error(net::use_awaitable, ec));
    if (ec || endpoints.empty()) co_return LinkConnectOutcome::RESOLVE_FAILED;

    if (!setupTlsStuff()) co_return LinkConnectOutcome::TLS_SETUP_FAILED;
    if constexpr (IS_TLS) {
        ws_.emplace(context_, *sslContext_);
    } else {
        ws_.emplace(context_);
    }
    auto& lowest = beast::get_lowest_layer(*ws_);
    lowest.expires_after(connectionTimeout_);
    co_await lowest.async_connect(endpoints, net::redirect_error(net::use_awaitable, ec));
    if (ec || deadline->expired) co_return LinkConnectOutcome::TCP_CONNECT_FAILED;
    lowest.socket().set_option(tcp::no_delay(true), ec);

    if constexpr (IS_TLS) {
        ec = co_await asyncTlsHandshake();
        if (ec || deadline->expired) co_return LinkConnectOutcome::TLS_HANDSHAKE_FAILED;
    }

    // From here the WebSocket stream keeps its own time-outs.
    lowest.expires_never();
    configureWebsocket();
    websocket::response_type response;
    co_await ws_->async_handshake(response, data_.host + ":" + data_.port, "/default",
                                  net::redirect_error(net::use_awaitable, ec));
    if (ec || deadline->expired) {
        switch (response.result()) {
        case beast::http::status::unauthorized: co_return LinkConnectOutcome::UNAUTHORIZED;
        case beast::http::status::upgrade_required: co_return LinkConnectOutcome::PROTOCOL_VERSION_MISMATCH;
        default: co_return LinkConnectOutcome::WEBSOCKET_HANDSHAKE_FAILED;
        }
    }
    const auto announced = response.find("V-Supported-Protocol-Version");
    if (announced != response.end()) {
        const auto value = announced->value();
        deviceProtocolVersion_ = parseProtocolVersion(std::string_view(value.data(), value.size()));
    }
    const bool ignoreMismatch = (data_.flags & VelmarLinkConnectionFlags::IGNORE_PROTOCOL_MISMATCH) != 0;
    if (deviceProtocolVersion_ != ProtocolVersion::library() && !ignoreMismatch) {
        co_await ws_->async_close(websocket::close_code::protocol_error, net::redirect_error(net::use_awaitable, ec));
        co_return LinkConnectOutcome::PROTOCOL_VERSION_MISMATCH;
    }
    updateConnectionStatus(VelmarLinkConnectionStatusEnum::CONNECTED);
    co_return LinkConnectOutcome::SUCCESS;
}

template <class Stream>
bool LinkLlSession<Stream>::setupTlsStuff() {
    if constexpr (IS_TLS) {
        error_code ec;
        sslContext_ = std::make_unique<ssl::context>(ssl::context::tls_client);
        if ((data_.flags & VelmarLinkConnectionFlags::SKIP_SSL_CERT_VALIDATION) != 0) {
            sslContext_->set_verify_mode(ssl::verify_none, ec);
            return !ec;
        }
        sslContext_->set_verify_mode(ssl::verify_peer, ec);
        if (ec) return false;
        if ((data_.flags & VelmarLinkConnectionFlags::SSL_DO_NOT_USE_SYSTEM_CAS) == 0) {
            sslContext_->set_default_verify_paths(ec);
        }
        return !ec;
    } else {
        return true;
    }
}

template <class Stream>
net::awaitable<error_code> LinkLlSession<Stream>::asyncTlsHandshake() {
    error_code ec;
    if constexpr (IS_TLS) {
        auto* ssl = static_cast<SSL*>(getSsl());
        if (!isIpAddressText(data_.host)) SSL_set_tlsext_host_name(ssl, data_.host.c_str());
        const unsigned skip =
            VelmarLinkConnectionFlags::SKIP_SSL_CERT_VALIDATION | VelmarLinkConnectionFlags::SKIP_SSL_HOSTNAME_MATCHING;
        if ((data_.flags & skip) == 0) ws_->next_layer().set_verify_callback(ssl::host_name_verification(data_.host));
        co_await ws_->next_layer().async_handshake(ssl::stream_base::client,
                                                   net::redirect_error(net::use_awaitable, ec));
    }
    co_return ec;
}

template <class Stream>
void* LinkLlSession<Stream>::getSsl() {
    if constexpr (IS_TLS) {
        return ws_->next_layer().native_handle();
    } else {
        return nullptr;
    }
}

template <class Stream>
void LinkLlSession<Stream>::configureWebsocket() {
    // Heart-beat: Beast pings an idle connection after half the idle time-out and ends it
    // when nothing at all has arrived within the idle time-out.
    websocket::stream_base::timeout timeouts{};
    timeouts.handshake_timeout = connectionTimeout_;
    timeouts.idle_timeout = IDLE_TIMEOUT;
    timeouts.keep_alive_pings = true;
    ws_->set_option(timeouts);
    ws_->set_option(websocket::stream_base::decorator([data = data_](websocket::request_type& request) {
        request.set(beast::http::field::user_agent, "velmar_link_lib");
        request.set("V-Supported-Protocol-Version", LibraryVersion::getProtocolVersionString());
        if (!data.user.empty()) {
            request.set(beast::http::field::authorization, makeWwwAuthHeader(data.user, data.password));
        }
        if ((data.flags & VelmarLinkConnectionFlags::IGNORE_PROTOCOL_MISMATCH) != 0) {
            request.set("V-Accept-Any-Protocol-Version", "1");
        }
    }));
    // The limit is enforced by the reads themselves: Beast would end the connection.
    ws_->read_message_max(0);
    ws_->auto_fragment(false);
    ws_->text(true);
}

template <class Stream>
void LinkLlSession<Stream>::startServices() {
    net::post(context_, [this] {
        if (status_.load() != VelmarLinkConnectionStatusEnum::CONNECTED) return;
        receiveService();
    });
}

// I/O thread. The first part of every message (at most FIRST_PART_BYTES) lands in
// readBuffer_. A text message, or a binary one without an armed destination, continues there
// and is handed on whole (a binary one by moving the string). A binary message with a
// destination continues straight into the storage that the destination provides, so large
// results are written once, into their final storage. A message longer than the limit is
// read on in bounded parts and dropped; only its length is kept.
template <class Stream>
void LinkLlSession<Stream>::receiveService() {
    readDynamicBuffer_.emplace(readBuffer_, std::numeric_limits<std::size_t>::max());
    ws_->async_read_some(*readDynamicBuffer_, FIRST_PART_BYTES, [this](error_code ec, std::size_t) {
        if (ec) {
            fail();
            return;
        }
        beginMessage();
    });
}

template <class Stream>
std::optional<std::uint64_t> LinkLlSession<Stream>::statedMessageSize() const {
    if (ws_->is_message_done()) return messageBytes_;
    // Without compression Beast hints the exact rest of the message while it reads its final
    // frame, and at least the initial size otherwise.
    constexpr auto UNKNOWN = std::numeric_limits<std::size_t>::max();
    if (ws_->read_size_hint(UNKNOWN) == UNKNOWN) return std::nullopt;
    return messageBytes_ + ws_->read_size_hint(1);
}

template <class Stream>
void LinkLlSession<Stream>::beginMessage() {
    messageBytes_ = readBuffer_.size();
    messageLimit_ = maxMessageSize_.load();
    refused_ = false;
    binaryMessage_ = ws_->got_binary();
    const auto stated = statedMessageSize();
    if (messageBytes_ > messageLimit_ || (stated && *stated > messageLimit_)) {
        refuseMessage();
        return;
    }
    if (binaryMessage_ && destinationProvider_) {
        if (auto destination = destinationProvider_()) {
            destination_ = std::move(destination);
            destination_->received = 0;
            destination_->filled = false;
            destination_->failure.reset();
            destination_->begin(stated.value_or(messageBytes_), stated.has_value());
            destination_->store(readBuffer_.data(), readBuffer_.size());
            readBuffer_.clear();
            readIntoDestination();
            return;
        }
    }
    continueBufferedMessage();
}

template <class Stream>
void LinkLlSession<Stream>::readRestOfMessage() {
    ws_->async_read_some(*readDynamicBuffer_, REST_PART_BYTES, [this](error_code ec, std::size_t count) {
        if (ec) {
            fail();
            return;
        }
        messageBytes_ += count;
        continueBufferedMessage();
    });
}

template <class Stream>
void LinkLlSession<Stream>::continueBufferedMessage() {
    if (messageBytes_ > messageLimit_) {
        refuseMessage();
    } else if (ws_->is_message_done()) {
        finishBufferedMessage();
    } else {
        readRestOfMessage();
    }
}

template <class Stream>
void LinkLlSession<Stream>::finishBufferedMessage() {
    if (binaryMessage_) {
        std::string message;
        message.swap(readBuffer_);
        if (binaryHandler_) binaryHandler_(std::move(message));
    } else {
        if (textHandler_) textHandler_(readBuffer_);
        if (readBuffer_.capacity() > KEEP_READ_BUFFER_CAPACITY) {
            std::string().swap(readBuffer_);
        } else {
            readBuffer_.clear();
        }
    }
    receiveService();
}

template <class Stream>
void LinkLlSession<Stream>::readIntoDestination() {
    if (messageBytes_ > messageLimit_) {
        refuseMessage();
        return;
    }
    if (ws_->is_message_done()) {
        finishDestination();
        return;
    }
    const auto storage = destination_->prepare();
    if (storage.empty()) {
        dropRestOfMessage();
        return;
    }
    // Straight into the destination's storage: the bytes are already where they belong.
    ws_->async_read_some(net::buffer(storage.data(), storage.size()), [this](error_code ec, std::size_t count) {
        if (ec) {
            destination_.reset();
            fail();
            return;
        }
        messageBytes_ += count;
        destination_->commit(count);
        readIntoDestination();
    });
}

template <class Stream>
void LinkLlSession<Stream>::finishDestination() {
    auto destination = std::move(destination_);
    destination->received = messageBytes_;
    destination->filled = true;
    if (destinationHandler_) destinationHandler_(std::move(destination));
    receiveService();
}

template <class Stream>
void LinkLlSession<Stream>::refuseMessage() {
    refused_ = true;
    // What was kept of the message goes at once; a destination's storage with its owner.
    if (readBuffer_.capacity() > KEEP_READ_BUFFER_CAPACITY) {
        std::string().swap(readBuffer_);
    } else {
        readBuffer_.clear();
    }
    dropRestOfMessage();
}

template <class Stream>
void LinkLlSession<Stream>::dropRestOfMessage() {
    if (ws_->is_message_done()) {
        finishDroppedMessage();
        return;
    }
    if (!scratch_) scratch_ = std::make_unique<char[]>(REST_PART_BYTES);
    ws_->async_read_some(net::buffer(scratch_.get(), REST_PART_BYTES), [this](error_code ec, std::size_t count) {
        if (ec) {
            destination_.reset();
            fail();
            return;
        }
        messageBytes_ += count;
        dropRestOfMessage();
    });
}

template <class Stream>
void LinkLlSession<Stream>::finishDroppedMessage() {
    if (!refused_) {
        // The destination took what it wanted of the message; the rest was not for it.
        finishDestination();
        return;
    }
    std::cerr << (binaryMessage_ ? "binary" : "text") << " message of " << messageBytes_
              << " bytes exceeds the limit of " << messageLimit_ << " bytes; dropped\n";
    if (binaryMessage_) {
        // The download waiting for it fails; the destination holds nothing of the message.
        auto destination = std::move(destination_);
        if (!destination && destinationProvider_) destination = destinationProvider_();
        if (!destination) destination = std::make_shared<RefusedMessage>();
        destination->failure = ErrorObject(ErrorCodeEnum::RESOURCE_CONTENT_INVALID, messages::MESSAGE_TOO_LARGE,
                                           messageBytes_, static_cast<std::uint64_t>(messageLimit_));
        destination_ = std::move(destination);
        finishDestination();
        return;
    }
    receiveService();
}

// Any thread: the text moves to the I/O thread, which queues and writes it.
template <class Stream>
bool LinkLlSession<Stream>::send(std::string text) {
    if (status_.load() != VelmarLinkConnectionStatusEnum::CONNECTED) return false;
    net::post(context_, [this, text = std::move(text)]() mutable {
        if (closing_ || status_.load() != VelmarLinkConnectionStatusEnum::CONNECTED) return;
        sendQueue_.push_back(std::move(text));
        if (!writing_) sendService();
    });
    return true;
}

template <class Stream>
void LinkLlSession<Stream>::sendService() {
    writing_ = true;
    ws_->async_write(net::buffer(sendQueue_.front()), [this](error_code ec, std::size_t) {
        if (ec) {
            writing_ = false;
            sendQueue_.clear();
            fail();
            return;
        }
        sendQueue_.pop_front();
        if (!sendQueue_.empty() && !closing_) {
            sendService();
        } else {
            writing_ = false;
        }
    });
}

// I/O thread. Idempotent: the first call closes the socket and reports DISCONNECTED; the
// operations still pending then end with errors that land here again.
template <class Stream>
void LinkLlSession<Stream>::fail() {
    if (status_.load() == VelmarLinkConnectionStatusEnum::DISCONNECTED) return;
    closing_ = true;
    sendQueue_.clear();
    error_code ignored;
    beast::get_lowest_layer(*ws_).socket().close(ignored);
    updateConnectionStatus(VelmarLinkConnectionStatusEnum::DISCONNECTED);
}

template <class Stream>
void LinkLlSession<Stream>::disconnect() {
    if (status_.load() == VelmarLinkConnectionStatusEnum::DISCONNECTED) return;
    auto closed = std::make_shared<std::promise<void>>();
    auto done = closed->get_future();
    net::post(context_, [this, closed] {
        if (closing_ || status_.load() == VelmarLinkConnectionStatusEnum::DISCONNECTED) {
            fail();
            closed->set_value();
            return;
        }
        closing_ = true;
        ws_->async_close(websocket::close_code::normal, [this, closed](error_code) {
            fail();
            closed->set_value();
        });
    });
    // The close handshake is bounded by the WebSocket handshake time-out; the margin covers a
    // slow callback that occupies the I/O thread.
    if (done.wait_for(connectionTimeout_ + std::chrono::seconds(1)) != std::future_status::ready) {
        net::post(context_, [this] { fail(); });
    }
}

template <class Stream>
void LinkLlSession<Stream>::updateConnectionStatus(VelmarLinkConnectionStatusEnum status) {
    const auto previous = status_.exchange(status);
    if (previous != status && statusHandler_) statusHandler_(status);
}

template class LinkLlSession<PlainLlStream>;
template class LinkLlSession<TlsLlStream>;

template <template <class> class Session>
AbstractLinkLlSession* LinkLlSessionFactory<Session>::createSession(net::io_context& context) {
    if ((data_.flags & VelmarLinkConnectionFlags::USE_SSL) != 0) return new Session<TlsLlStream>(context, data_);
    return new Session<PlainLlStream>(context, data_);
}

template class LinkLlSessionFactory<LinkLlSession>;

}  // namespace velmar
