#pragma once

#include "emulator/core/device_model.hpp"
#include "emulator/server/handshake.hpp"

#include <chrono>
#include <cstdint>
#include <expected>
#include <memory>
#include <string>

namespace velmar::emulator {

/// Bounds of what connections may cost, so that no client (nor many) can make the emulator
/// grow without bound. docs/protocol.md ("The emulator program") documents them.
struct ConnectionLimits {
    /// TCP connections at a time (handshakes included); a further one is closed at once.
    std::size_t maxConnections = 64;
    /// The largest incoming message; a larger one closes the connection (close code 1009).
    std::size_t maxMessageBytes = 64ull << 20;
    /// Bytes of incoming messages not yet complete, summed over all connections; a read that
    /// would exceed it closes its connection.
    std::size_t maxIncomingBytes = 256ull << 20;
    /// Frames waiting to be written to one connection (behind the one being written): bytes
    /// and count. A client that does not read its replies is dropped (its connection closed)
    /// when either is exceeded. A single frame larger than the byte bound (a large download)
    /// is accepted when nothing else waits.
    std::size_t maxOutgoingBytes = 64ull << 20;
    std::size_t maxOutgoingFrames = 65536;
};

/// Set-up of the WebSocket server.
struct ServerOptions {
    std::string host = "127.0.0.1";
    /// 0 picks a free port.
    std::uint16_t port = 0;
    HandshakeConfig handshake;
    /// Stop after this long without any WebSocket connection; zero = never.
    std::chrono::milliseconds idleExit{0};
    DeviceModelOptions model;
    ConnectionLimits limits;
};

/// The address that the server listens on.
struct ListeningEndpoint {
    std::string address;
    std::uint16_t port = 0;
};

/// The emulator's WebSocket server: accepts many connections on one I/O thread (the thread
/// that calls run()), performs the handshake decided by decideHandshake, and connects each
/// accepted connection to the device model. Both sides of a connection use keep-alive pings:
/// a ping after 7.5 s without traffic, and the connection is dropped after 15 s without
/// any frame from the peer. What connections cost is bounded by ServerOptions::limits; when
/// accepting fails (descriptors exhausted) the server retries after 100 ms, doubling up to
/// 1 s, instead of spinning.
class EmulatorServer {
public:
    explicit EmulatorServer(ServerOptions options);
    ~EmulatorServer();
    EmulatorServer(const EmulatorServer&) = delete;
    EmulatorServer& operator=(const EmulatorServer&) = delete;

    /// The device model, e.g. to register further endpoints before run().
    DeviceModel& model();

    /// Binds and listens. Owner thread, once, before run(). The error text says what failed.
    std::expected<ListeningEndpoint, std::string> listen();

    /// Serves until stop() (or a signal, or the idle exit). Blocks the calling thread,
    /// which becomes the I/O thread.
    void run();

    /// Closes the listener and every connection (normal close), then makes run() return
    /// (at the latest one second later). Any thread.
    void stop();

    /// Makes SIGINT and SIGTERM call stop(). Owner thread, before run().
    void stopOnSignals();

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace velmar::emulator
