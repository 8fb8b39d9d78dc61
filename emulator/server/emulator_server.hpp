#pragma once

#include "emulator/core/device_model.hpp"
#include "emulator/server/handshake.hpp"

#include <chrono>
#include <cstdint>
#include <expected>
#include <memory>
#include <string>

namespace velmar::emulator {

/// Set-up of the WebSocket server.
struct ServerOptions {
    std::string host = "127.0.0.1";
    /// 0 picks a free port.
    std::uint16_t port = 0;
    HandshakeConfig handshake;
    /// Stop after this long without any WebSocket connection; zero = never.
    std::chrono::milliseconds idleExit{0};
    DeviceModelOptions model;
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
/// any frame from the peer.
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
