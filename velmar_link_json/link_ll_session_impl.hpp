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
    /// into the armed destination for a binary message.
    void receiveService();
    /// The rest of a message that goes to readBuffer_.
    void readRestOfMessage();
    /// The rest of a binary message that goes to destination_.
    void readIntoDestination();
    /// Appends received bytes to destination_: ranges first, then its overflow.
    void storeInDestination(const char* bytes, std::size_t count);
    /// Reads on while the buffered message has more parts, then hands it over. I/O thread.
    void continueBufferedMessage();
    /// The message in readBuffer_ has ended: hand it on and read the next one.
    void finishBufferedMessage();
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

    // I/O thread only.
    std::string readBuffer_;
    /// Beast keeps a reference to the dynamic buffer while a read is in progress.
    std::optional<boost::asio::dynamic_string_buffer<char, std::char_traits<char>, std::allocator<char>>>
        readDynamicBuffer_;
    /// The destination of the binary message being read, and the write position in it.
    std::shared_ptr<BinaryDestination> destination_;
    std::size_t destinationRange_ = 0;
    std::size_t destinationOffset_ = 0;
    /// Receives the bytes beyond a destination's ranges.
    std::unique_ptr<char[]> scratch_;
    std::deque<std::string> sendQueue_;
    bool writing_ = false;
    bool closing_ = false;
};

}  // namespace velmar
