#pragma once

// Private to velmar_link_json: the Beast WebSocket session behind AbstractLinkLlSession.

#include "velmar_link_json/link_ll_session.hpp"

#include <boost/asio/awaitable.hpp>
#include <boost/asio/buffer.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/ssl/context.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/ssl/ssl_stream.hpp>
#include <boost/beast/websocket/stream.hpp>

#include <atomic>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>

namespace velmar {

using PlainLlStream = boost::beast::tcp_stream;
using TlsLlStream = boost::beast::ssl_stream<boost::beast::tcp_stream>;

template <class Stream>
class LinkLlSession final : public AbstractLinkLlSession {
public:
    /// The session works on `context`, which must outlive it.
    LinkLlSession(boost::asio::io_context& context, LinkConnectionData data);
    ~LinkLlSession() override;

    int connect() override;
    void startServices() override;
    void disconnect() override;
    bool send(std::string text) override;
    VelmarLinkConnectionStatusEnum getConnectionStatus() const override { return status_.load(); }
    unsigned getDeviceProtocolVersion() const override { return deviceProtocolVersion_; }
    void setConnectionStatusCallback(StatusHandler handler) override { statusHandler_ = std::move(handler); }
    void setReceiveHandler(TextHandler handler) override { textHandler_ = std::move(handler); }
    void setReceiveBinaryHandler(BinaryHandler handler) override { binaryHandler_ = std::move(handler); }
    void setBinaryDestinationHandlers(DestinationProvider provider, DestinationHandler handler) override {
        destinationProvider_ = std::move(provider);
        destinationHandler_ = std::move(handler);
    }
    void setConnectionTimeout(std::chrono::milliseconds timeout) override { connectionTimeout_ = timeout; }
    /// Messages (text or binary) longer than `bytes` are read on in bounded parts, dropped and
    /// reported instead of being delivered; the connection stays up. Any thread; it applies
    /// from the next message on.
    void setMaxMessageSize(std::size_t bytes) override { maxMessageSize_.store(bytes); }

    /// The limit on incoming messages until setMaxMessageSize changes it.
    static constexpr std::size_t DEFAULT_MAX_MESSAGE_SIZE = std::size_t{256} << 20;

private:
    static constexpr bool IS_TLS = std::is_same_v<Stream, TlsLlStream>;

    // I/O thread (during connect(): the owner thread, which then runs the context).
    boost::asio::awaitable<int> asyncConnect();
    /// Builds the TLS context and its verification mode; false on failure. No-op for plain TCP.
    bool setupTlsStuff();
    /// The TLS client handshake; no-op for plain TCP.
    boost::asio::awaitable<boost::system::error_code> asyncTlsHandshake();
    /// The OpenSSL handle of the stream; null for plain TCP.
    void* getSsl();
    /// WebSocket options: the handshake request, message size, time-outs and keep-alive pings.
    void configureWebsocket();
    /// Reads one message after the other and hands each to the text or binary handler: the
    /// first part of each message goes to readBuffer_, then the rest follows it there, or
    /// into the armed destination for a binary message, or is dropped when the message is
    /// longer than the limit.
    void receiveService();
    /// The first part of a message has arrived in readBuffer_.
    void beginMessage();
    /// The rest of a message that goes to readBuffer_.
    void readRestOfMessage();
    /// Reads on while the buffered message has more parts, then hands it over. I/O thread.
    void continueBufferedMessage();
    /// The message in readBuffer_ has ended: hand it on and read the next one.
    void finishBufferedMessage();
    /// The rest of a binary message that goes to destination_.
    void readIntoDestination();
    /// The message is longer than the limit: the rest is read in bounded parts and dropped.
    void refuseMessage();
    /// Reads and drops the rest of the current message, then calls finishDroppedMessage.
    void dropRestOfMessage();
    /// The dropped message has ended: a refused one is reported, then the next one is read.
    void finishDroppedMessage();
    /// The destination has ended: it goes to the destination handler; the next message is read.
    void finishDestination();
    /// The whole length of the current message if its frame header states it.
    std::optional<std::uint64_t> statedMessageSize() const;
    /// Writes the queued text messages one at a time, in order.
    void sendService();
    /// A read or write failure: the connection ends and the status handler hears of it.
    void fail();
    void updateConnectionStatus(VelmarLinkConnectionStatusEnum status);

    boost::asio::io_context& context_;
    LinkConnectionData data_;
    std::chrono::milliseconds connectionTimeout_{1500};
    std::unique_ptr<boost::asio::ssl::context> sslContext_;
    std::optional<boost::beast::websocket::stream<Stream>> ws_;
    std::atomic<VelmarLinkConnectionStatusEnum> status_{VelmarLinkConnectionStatusEnum::DISCONNECTED};
    unsigned deviceProtocolVersion_ = 0;

    StatusHandler statusHandler_;
    TextHandler textHandler_;
    BinaryHandler binaryHandler_;
    DestinationProvider destinationProvider_;
    DestinationHandler destinationHandler_;

    std::atomic<std::size_t> maxMessageSize_{DEFAULT_MAX_MESSAGE_SIZE};

    // I/O thread only.
    std::string readBuffer_;
    /// Beast keeps a reference to the dynamic buffer while a read is in progress.
    std::optional<boost::asio::dynamic_string_buffer<char, std::char_traits<char>, std::allocator<char>>>
        readDynamicBuffer_;
    /// The length of the current message read so far, and its limit fixed when it began.
    std::uint64_t messageBytes_ = 0;
    std::size_t messageLimit_ = 0;
    /// The current message is being dropped; `refused_`: because it exceeds the limit.
    bool refused_ = false;
    bool binaryMessage_ = false;
    /// The destination of the binary message being read.
    std::shared_ptr<BinaryDestination> destination_;
    /// Receives the bytes that are dropped.
    std::unique_ptr<char[]> scratch_;
    std::deque<std::string> sendQueue_;
    bool writing_ = false;
    bool closing_ = false;
};

}  // namespace velmar
