#pragma once

#include "json_common/logging/error_object.hpp"

#include <boost/json/object.hpp>

#include <chrono>
#include <cstdint>
#include <deque>
#include <expected>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmar::emulator {

/// How the answer to a request misbehaves (emulator-only test hooks, "/emulator/fault").
enum class FaultActionEnum {
    DELAY,         ///< the reply is sent after the delay
    DROP,          ///< no reply at all
    CLOSE,         ///< the connection is closed instead of replying
    MALFORMED,     ///< a text frame that is not JSON, then the reply
    NO_TYPE,       ///< a JSON frame without "type", then the reply
    BINARY,        ///< an unexpected binary frame, then the reply
    UNKNOWN_TYPE,  ///< a frame with "type":"WHATEVER", then the reply
};

/// "delay", "drop", "close", "malformed", "no_type", "binary", "unknown_type".
std::optional<FaultActionEnum> faultActionFromName(std::string_view name);

/// One armed fault.
struct Fault {
    FaultActionEnum action = FaultActionEnum::DELAY;
    /// Applies to every action: the misbehaviour (and the reply) comes after this pause.
    std::chrono::milliseconds delay{0};
    /// Each sent as {"type":"EVENT","event":<object>} before the pause.
    std::vector<boost::json::object> eventsBeforeReply;
};

/// Reads the body of a "/emulator/fault" request: {"endpoint","action","delay_ms","count",
/// "events_before_reply"}. The endpoint and the count (default 1) are returned beside the fault.
struct FaultRequest {
    std::string endpoint;
    Fault fault;
    std::uint64_t count = 1;
};
std::expected<FaultRequest, ErrorObject> parseFaultRequest(const boost::json::object& request);

/// Faults armed per endpoint path; each applies to the next `count` requests to that path,
/// from any connection. Several arms for one path are used one after the other.
/// Any thread.
class FaultTable {
public:
    /// Arms `fault` for `count` requests; a count of 0 disarms every fault of the endpoint.
    /// At most MAX_ARMED faults are armed at a time; one more fails with OUT_OF_MEMORY.
    ErrorObject arm(const std::string& endpoint, Fault fault, std::uint64_t count);

    static constexpr std::size_t MAX_ARMED = 1024;
    /// The fault for one request to `endpoint`, if one is armed (and uses it up).
    std::optional<Fault> take(std::string_view endpoint);
    void clear();

private:
    struct Armed {
        Fault fault;
        std::uint64_t remaining = 0;
    };
    std::mutex mutex_;
    std::map<std::string, std::deque<Armed>, std::less<>> armed_;
    std::size_t armedCount_ = 0;  // the Armed entries in armed_
};

}  // namespace velmar::emulator
