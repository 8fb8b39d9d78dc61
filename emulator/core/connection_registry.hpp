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

}  // namespace velmar::emulator
