#pragma once

#include "json_common/configuration/workstation_mode.hpp"
#include "velmar_link_json/binary_destination.hpp"

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>

namespace boost::asio {
class io_context;
}  // namespace boost::asio

namespace velmar {

/// Outcome of a low-level connect; LinkJsonSession turns each into an ErrorObject.
namespace LinkConnectOutcome {
inline constexpr int SUCCESS = 0;
inline constexpr int RESOLVE_FAILED = 2;
inline constexpr int TCP_CONNECT_FAILED = 3;
inline constexpr int TLS_SETUP_FAILED = 5;
inline constexpr int TLS_HANDSHAKE_FAILED = 6;
inline constexpr int WEBSOCKET_HANDSHAKE_FAILED = 7;
inline constexpr int UNAUTHORIZED = 8;
inline constexpr int PROTOCOL_VERSION_MISMATCH = 9;
}  // namespace LinkConnectOutcome

/// The connection data that a factory stores and every new low-level session is built from.
struct LinkConnectionData {
    std::string host;
    std::string port;
    unsigned flags = 0;
    std::string user;
    std::string password;
};

/// Whole text and binary WebSocket messages to and from one workstation. Knows nothing of
/// JSON. One object serves one connection; it runs on the I/O context that it was created
/// with, and all handlers are called on the thread that runs that context.
class AbstractLinkLlSession {
public:
    using StatusHandler = std::function<void(VelmarLinkConnectionStatusEnum)>;
    using TextHandler = std::function<void(const std::string&)>;
    using BinaryHandler = std::function<void(std::string&&)>;
    /// Asked on the I/O thread when a binary message begins: the destination armed for it,
    /// or null for the whole-message path.
    using DestinationProvider = std::function<std::shared_ptr<BinaryDestination>()>;
    /// Called on the I/O thread when a binary message has been written into a destination.
    using DestinationHandler = std::function<void(std::shared_ptr<BinaryDestination>)>;

    virtual ~AbstractLinkLlSession() = default;

    /// Resolves, connects, performs the TLS and WebSocket handshakes; returns a
    /// LinkConnectOutcome value. Runs the I/O context on the calling thread until the
    /// sequence has ended, so it must be called before any thread runs that context.
    /// Owner thread.
    virtual int connect() = 0;
    /// Starts reading, writing and the heart-beat once connect() succeeded and the I/O thread
    /// runs the context. Any thread.
    virtual void startServices() = 0;
    /// Closes the WebSocket (a normal close, bounded by the connection timeout) and the stream;
    /// the status becomes DISCONNECTED and the status handler is called. Must not be called on
    /// the I/O thread; blocks until the close has ended. Owner thread.
    virtual void disconnect() = 0;
    /// Queues one text message; false when the connection is not up. Any thread.
    virtual bool send(std::string text) = 0;
    /// Any thread.
    virtual VelmarLinkConnectionStatusEnum getConnectionStatus() const = 0;
    /// The protocol version that the workstation announced in its handshake reply (0 if none).
    virtual unsigned getDeviceProtocolVersion() const = 0;

    // Handlers are set before connect() and called on the I/O thread.
    virtual void setConnectionStatusCallback(StatusHandler handler) = 0;
    virtual void setReceiveHandler(TextHandler handler) = 0;
    virtual void setReceiveBinaryHandler(BinaryHandler handler) = 0;
    /// Binary messages for which `provider` returns a destination are written into it and
    /// reported to `handler` instead of the binary handler. A binary message refused for its
    /// size is reported to `handler` too, with `failure` set, in the armed destination or, when
    /// none is armed, in a new one. Transports without this keep the whole-message path.
    virtual void setBinaryDestinationHandlers(DestinationProvider provider, DestinationHandler handler) {
        (void)provider;
        (void)handler;
    }
    /// Bounds connect(): the whole sequence and each handshake. Owner thread, before connect().
    virtual void setConnectionTimeout(std::chrono::milliseconds timeout) = 0;
    /// Messages larger than `bytes` are refused. Owner thread, before connect().
    virtual void setMaxMessageSize(std::size_t bytes) { (void)bytes; }
};

/// Creates low-level sessions from stored connection data. Owner thread.
class LinkLlSessionAbstractFactory {
public:
    explicit LinkLlSessionAbstractFactory(LinkConnectionData data) : data_(std::move(data)) {}
    virtual ~LinkLlSessionAbstractFactory() = default;

    /// A new session on `context`; null when it cannot be created.
    virtual AbstractLinkLlSession* createSession(boost::asio::io_context& context) = 0;
    virtual void disposeSession(AbstractLinkLlSession* session) { delete session; }

    const LinkConnectionData& getConnectionData() const { return data_; }
    void setDestinationHost(std::string host, std::string port) {
        data_.host = std::move(host);
        data_.port = std::move(port);
    }
    void setHttpAuthenticationInfo(std::string user, std::string password) {
        data_.user = std::move(user);
        data_.password = std::move(password);
    }
    void setFlags(unsigned flags) { data_.flags = flags; }
    unsigned getFlags() const { return data_.flags; }

protected:
    LinkConnectionData data_;
};

/// The WebSocket session over a Beast stream: `boost::beast::tcp_stream` or
/// `boost::beast::ssl_stream<boost::beast::tcp_stream>`. Defined in the private
/// link_ll_session_impl.hpp and instantiated for both streams in link_ll_session.cpp.
template <class Stream>
class LinkLlSession;

/// Makes `Session<plain stream>`, or `Session<TLS stream>` exactly when USE_SSL is set.
template <template <class> class Session>
class LinkLlSessionFactory : public LinkLlSessionAbstractFactory {
public:
    using LinkLlSessionAbstractFactory::LinkLlSessionAbstractFactory;
    LinkLlSessionFactory(std::string host, std::string port, unsigned flags, std::string user, std::string password)
        : LinkLlSessionAbstractFactory(
              LinkConnectionData{std::move(host), std::move(port), flags, std::move(user), std::move(password)}) {}

    AbstractLinkLlSession* createSession(boost::asio::io_context& context) override;
};

extern template class LinkLlSessionFactory<LinkLlSession>;

/// "Basic " and the Base64 of "user:password".
std::string makeWwwAuthHeader(const std::string& user, const std::string& password);

}  // namespace velmar
