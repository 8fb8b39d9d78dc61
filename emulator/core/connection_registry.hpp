#pragma once

#include "emulator/core/connection_peer.hpp"

#include <boost/json/object.hpp>

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmar::emulator {

/// What the transport knows about a connection when its handshake is accepted.
struct ConnectionMeta {
    std::string remoteAddr;
    std::uint16_t remotePort = 0;
    std::string target;
    std::string userAgent;
    /// The user name of the accepted HTTP authentication, empty without.
    std::string user;
    bool usingTls = false;
};

/// One accepted WebSocket connection.
struct ConnectionRecord {
    std::string id;
    std::string connectedSince;
    ConnectionMeta meta;
    std::weak_ptr<ConnectionPeer> peer;
};

/// {"connection_id","connected_since","remote_addr","remote_port","target","user_agent","using_tls"}.
boost::json::object connectionToJson(const ConnectionRecord& record);

/// The accepted connections, in the order of their acceptance.
/// Any thread: every member takes the registry's mutex; peers are returned, not called.
class ConnectionRegistry {
public:
    void add(ConnectionRecord record);
    void remove(std::string_view id);
    std::optional<ConnectionRecord> find(std::string_view id) const;
    std::vector<ConnectionRecord> list() const;
    /// The live peer of a connection; null when unknown or already gone.
    std::shared_ptr<ConnectionPeer> peer(std::string_view id) const;
    std::size_t size() const;

private:
    mutable std::mutex mutex_;
    std::vector<ConnectionRecord> records_;
};

/// The bytes of unfinished incoming messages that all connections hold together, bounded by
/// one limit. Each connection owns a Share. Before it reads the next part of a message it asks
/// whether the part fits beside everything held (its own bytes included); after the read it
/// records what it holds now; a finished message or an ended connection holds nothing.
/// Whether a part fits depends only on the bytes held at that moment, never on which
/// connection asks. Not synchronised: the server's I/O thread only.
class IncomingBudget {
public:
    /// One connection's part of the budget; it gives its bytes back when destroyed.
    class Share {
    public:
        explicit Share(IncomingBudget& budget) : budget_(&budget) {}
        ~Share() { hold(0); }
        Share(const Share&) = delete;
        Share& operator=(const Share&) = delete;

        /// True when a further part of `bytes` fits beside all that is held.
        [[nodiscard]] bool admits(std::size_t bytes) const { return budget_->admits(bytes); }
        /// This connection now holds `bytes` (the unfinished message read so far).
        void hold(std::size_t bytes);
        [[nodiscard]] std::size_t held() const { return held_; }

    private:
        IncomingBudget* budget_;
        std::size_t held_ = 0;
    };

    explicit IncomingBudget(std::size_t limit) : limit_(limit) {}

    [[nodiscard]] bool admits(std::size_t bytes) const { return bytes <= limit_ && held_ <= limit_ - bytes; }
    /// The bytes held by all shares.
    [[nodiscard]] std::size_t held() const { return held_; }
    [[nodiscard]] std::size_t limit() const { return limit_; }

private:
    std::size_t limit_;
    std::size_t held_ = 0;
};

}  // namespace velmar::emulator
