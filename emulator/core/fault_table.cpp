#include "emulator/core/fault_table.hpp"

#include "emulator/core/emulator_messages.hpp"
#include "emulator/core/request_params.hpp"

#include <boost/json.hpp>

#include <array>
#include <utility>

namespace velmar::emulator {

namespace {

constexpr std::array<std::pair<std::string_view, FaultActionEnum>, 7> kActionNames{{
    {"delay", FaultActionEnum::DELAY},
    {"drop", FaultActionEnum::DROP},
    {"close", FaultActionEnum::CLOSE},
    {"malformed", FaultActionEnum::MALFORMED},
    {"no_type", FaultActionEnum::NO_TYPE},
    {"binary", FaultActionEnum::BINARY},
    {"unknown_type", FaultActionEnum::UNKNOWN_TYPE},
}};

/// One day: a bound that keeps a mistyped delay from parking a reply for ever.
constexpr std::uint64_t kMaxDelayMs = 86'400'000;

}  // namespace

std::optional<FaultActionEnum> faultActionFromName(std::string_view name) {
    for (const auto& [text, action] : kActionNames) {
        if (text == name) return action;
    }
    return std::nullopt;
}

std::expected<FaultRequest, ErrorObject> parseFaultRequest(const boost::json::object& request) {
    FaultRequest out;
    auto endpoint = requireString(request, "endpoint");
    if (!endpoint) return std::unexpected(endpoint.error());
    out.endpoint = std::string(*endpoint);
    auto actionName = requireString(request, "action");
    if (!actionName) return std::unexpected(actionName.error());
    auto action = faultActionFromName(*actionName);
    if (!action) {
        return std::unexpected(ErrorObject(ErrorCodeEnum::PARAMETER_FORMAT_INVALID, messages::PARAMETER_FORMAT_INVALID,
                                           "action",
                                           "one of delay, drop, close, malformed, no_type, binary, unknown_type"));
    }
    out.fault.action = *action;
    auto delay = optionalUnsigned(request, "delay_ms", 0, kMaxDelayMs);
    if (!delay) return std::unexpected(delay.error());
    out.fault.delay = std::chrono::milliseconds(*delay);
    auto count = optionalUnsigned(request, "count", 1);
    if (!count) return std::unexpected(count.error());
    out.count = *count;
    if (const auto* events = request.if_contains("events_before_reply"); events != nullptr && !events->is_null()) {
        const auto* array = events->if_array();
        if (array == nullptr) {
            return std::unexpected(ErrorObject(ErrorCodeEnum::PARAMETER_FORMAT_INVALID,
                                               messages::PARAMETER_FORMAT_INVALID, "events_before_reply",
                                               "an array of objects"));
        }
        for (const auto& event : *array) {
            const auto* object = event.if_object();
            if (object == nullptr) {
                return std::unexpected(ErrorObject(ErrorCodeEnum::PARAMETER_FORMAT_INVALID,
                                                   messages::PARAMETER_FORMAT_INVALID, "events_before_reply",
                                                   "an array of objects"));
            }
            out.fault.eventsBeforeReply.push_back(*object);
        }
    }
    return out;
}

ErrorObject FaultTable::arm(const std::string& endpoint, Fault fault, std::uint64_t count) {
    std::lock_guard lock(mutex_);
    if (count == 0) {
        if (auto it = armed_.find(endpoint); it != armed_.end()) {
            armedCount_ -= it->second.size();
            armed_.erase(it);
        }
        return {};
    }
    if (armedCount_ >= MAX_ARMED) {
        return ErrorObject(ErrorCodeEnum::OUT_OF_MEMORY, messages::TABLE_FULL, "armed faults", std::uint64_t{MAX_ARMED});
    }
    armed_[endpoint].push_back(Armed{std::move(fault), count});
    ++armedCount_;
    return {};
}

std::optional<Fault> FaultTable::take(std::string_view endpoint) {
    std::lock_guard lock(mutex_);
    auto it = armed_.find(endpoint);
    if (it == armed_.end()) return std::nullopt;
    auto& queue = it->second;
    Fault fault = queue.front().fault;
    if (--queue.front().remaining == 0) {
        queue.pop_front();
        --armedCount_;
    }
    if (queue.empty()) armed_.erase(it);
    return fault;
}

void FaultTable::clear() {
    std::lock_guard lock(mutex_);
    armed_.clear();
    armedCount_ = 0;
}

}  // namespace velmar::emulator
