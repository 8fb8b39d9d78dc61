#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>

namespace velmar::emulator {

/// One outgoing binary frame: the first `size` bytes of `*owner`. The bytes are shared with
/// their owner (a resource's content), never copied; the owner stays alive until the frame
/// has been written.
struct BinaryPayload {
    std::shared_ptr<const std::string> owner;
    std::size_t size = 0;
};

/// The transport side of one accepted connection, as the device model sees it.
/// Any thread. Implementations hand the work to their own I/O context and never call back
/// into the device model from inside these functions, so the model may call them while
/// holding its own locks.
class ConnectionPeer {
public:
    virtual ~ConnectionPeer() = default;

    /// Queues one text frame; frames are written in the order queued.
    virtual void sendText(std::string text) = 0;
    /// Queues one binary frame (a single WebSocket frame, not fragmented).
    virtual void sendBinary(BinaryPayload payload) = 0;
    /// Closes with a normal WebSocket close once the frames queued before are written.
    virtual void close() = 0;
};

/// Runs work later on the transport's I/O thread.
/// Any thread. The task runs without any lock of the device model held; tasks still queued
/// when the transport shuts down are destroyed without running.
class Scheduler {
public:
    virtual ~Scheduler() = default;
    virtual void schedule(std::chrono::milliseconds delay, std::function<void()> task) = 0;
};

}  // namespace velmar::emulator
