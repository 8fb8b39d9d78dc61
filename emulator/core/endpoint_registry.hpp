#pragma once

#include "emulator/core/connection_peer.hpp"
#include "emulator/core/connection_registry.hpp"
#include "json_common/logging/error_object.hpp"

#include <boost/json/object.hpp>

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace velmar::emulator {

/// Steps of an answer, executed in order for one connection (see DeviceModel::run).
struct TextStep {
    std::string text;
};
struct BinaryStep {
    BinaryPayload payload;
};
/// Suspends the remaining steps of this answer only; other answers go on meanwhile.
struct PauseStep {
    std::chrono::milliseconds delay{0};
};
/// Closes the connection normally after the frames queued before.
struct CloseStep {};
/// Runs code at this point (for example, closing another connection after the reply).
struct ActionStep {
    std::function<void()> action;
};
using OutStep = std::variant<TextStep, BinaryStep, PauseStep, CloseStep, ActionStep>;

/// One request as an endpoint handler sees it.
struct RequestContext {
    const boost::json::object& request;
    std::string_view path;
    /// The requesting connection (a copy of its record).
    const ConnectionRecord& connection;
};

/// What a handler returns; the device model turns it into the "REPLY" frame and the steps
/// after it.
struct EndpointResult {
    /// Falsy for "SUCCESS"; otherwise the reply is "FAILED" with this "error".
    ErrorObject error;
    /// Result keys, added to a successful reply after "status".
    boost::json::object result;
    /// One binary frame written right after the reply (downloads).
    std::optional<BinaryPayload> binaryAfterReply;
    /// Further steps after the reply (and the binary frame).
    std::vector<OutStep> afterReply;
    /// No reply frame at all ("/stop").
    bool noReply = false;

    static EndpointResult success(boost::json::object result = {});
    static EndpointResult failure(ErrorObject error);
};

/// Handles one request. Runs on the transport's I/O thread with no model lock held; the
/// model's components lock themselves.
using EndpointHandler = std::function<EndpointResult(const RequestContext&)>;

/// Who refuses non-finite numbers of a request (PARAMETER_IS_NOT_A_NUMBER): the model before
/// dispatching, or the handler itself (job requests, whose refusal also ends a job).
enum class NumberCheckEnum { BY_MODEL, BY_HANDLER };

/// The map from "do" paths to handlers. Filled while the model is set up, before the
/// transport serves requests; read-only afterwards (so lookups need no lock).
class EndpointRegistry {
public:
    /// Registers `handler` under `path`, replacing an earlier one.
    void add(std::string path, EndpointHandler handler, NumberCheckEnum numbers = NumberCheckEnum::BY_MODEL);
    /// The handler of `path`, or null.
    const EndpointHandler* find(std::string_view path) const;
    /// True when the handler of `path` checks the numbers of its request itself.
    bool checksOwnNumbers(std::string_view path) const;
    /// Every registered path, sorted.
    std::vector<std::string> paths() const;

private:
    struct Entry {
        EndpointHandler handler;
        NumberCheckEnum numbers;
    };
    std::map<std::string, Entry, std::less<>> handlers_;
};

}  // namespace velmar::emulator
