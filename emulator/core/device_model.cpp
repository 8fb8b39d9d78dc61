#include "emulator/core/device_model.hpp"

#include "emulator/core/emulator_messages.hpp"
#include "emulator/core/request_params.hpp"
#include "json_common/exact_json.hpp"
#include "json_common/logging/error_messages.hpp"
#include "json_common/logging/error_object_json.hpp"

#include <boost/json.hpp>

#include <iostream>
#include <new>

namespace velmar::emulator {

namespace json = boost::json;

namespace {

/// Three days before start: a plausible date of the last DC calibration.
std::string calibrationDate() {
    return isoUtc(std::chrono::system_clock::now() - std::chrono::hours(72));
}

void logFrameProblem(std::string_view connectionId, std::string_view problem) {
    std::cerr << "velmar-emulator: connection " << connectionId << ": " << problem << '\n';
}

/// Bytes of the unexpected binary frame of the "binary" fault.
std::shared_ptr<const std::string> strayBinaryBytes() {
    static const auto bytes = std::make_shared<const std::string>("\x00\x01\x02\x03stray binary frame", 22);
    return bytes;
}

}  // namespace

json::object makeReply(const json::value* requestId, const ErrorObject& error, const json::object& result) {
    json::object reply;
    reply.reserve(4 + result.size());
    reply.emplace("type", "REPLY");
    if (requestId != nullptr) reply.emplace("request_id", *requestId);
    reply.emplace("status", error ? "FAILED" : "SUCCESS");
    if (error) {
        reply.emplace("error", errorObjectToJson(error));
    } else {
        for (const auto& [key, value] : result) reply.emplace(key, value);
    }
    return reply;
}

json::object makeEventFrame(json::object event) {
    return json::object{{"type", "EVENT"}, {"event", std::move(event)}};
}

DeviceModel::DeviceModel(Scheduler& scheduler, DeviceModelOptions options)
    : scheduler_(scheduler),
      options_(std::move(options)),
      identity_(DeviceIdentity::defaults()),
      started_(std::chrono::steady_clock::now()),
      lastDcCalibration_(calibrationDate()),
      ids_(options_.seed),
      settings_(SettingsTable::defaultDefinitions(identity_.serialNumber, identity_.firmwareVersion,
                                                  options_.userName.empty() ? "admin" : options_.userName)),
      resources_(ids_, options_.resourceCapacity, options_.resourceDescriptionCapacity) {
    registerDeviceEndpoints(*this);
    registerResourceEndpoints(*this);
    registerEmulatorEndpoints(*this);
}

DeviceModel::~DeviceModel() = default;

std::string DeviceModel::openConnection(ConnectionMeta meta, std::weak_ptr<ConnectionPeer> peer) {
    auto id = ids_.uuid();
    connections_.add(ConnectionRecord{.id = id, .connectedSince = isoUtcNow(), .meta = std::move(meta), .peer = std::move(peer)});
    return id;
}

void DeviceModel::closeConnection(std::string_view connectionId) { connections_.remove(connectionId); }

void DeviceModel::sendFailure(const std::shared_ptr<ConnectionPeer>& peer, const json::value* requestId,
                              const ErrorObject& error) {
    if (peer) peer->sendText(json::serialize(makeReply(requestId, error, {})));
}

void DeviceModel::handleText(std::string_view connectionId, std::string_view text) {
    const auto record = connections_.find(connectionId);
    if (!record) return;
    const auto peer = record->peer.lock();

    boost::system::error_code ec;
    const json::value parsed = parseJsonExact(text, ec);
    if (ec) {
        logFrameProblem(connectionId, "issue parsing incoming json " + ec.message());
        sendFailure(peer, nullptr, ErrorObject(ErrorCodeEnum::JSON_MALFORMED, velmar::messages::JSON_MALFORMED, ec.message()));
        return;
    }
    const auto* request = parsed.if_object();
    if (request == nullptr) {
        logFrameProblem(connectionId, "request is not a json object");
        sendFailure(peer, nullptr, ErrorObject(ErrorCodeEnum::JSON_OBJECT_EXPECTED, velmar::messages::JSON_OBJECT_EXPECTED));
        return;
    }
    const json::value* requestId = request->if_contains("request_id");
    const auto* path = request->contains("do") ? request->at("do").if_string() : nullptr;
    if (path == nullptr) {
        logFrameProblem(connectionId, "request without a string 'do'");
        sendFailure(peer, requestId, ErrorObject(ErrorCodeEnum::PARAMETER_MISSING, messages::PARAMETER_MISSING, "do"));
        return;
    }

    const auto fault = faults_.take(*path);
    EndpointResult result;
    const auto* handler = endpoints_.find(*path);
    std::optional<std::string> nonFinite;
    if (handler != nullptr && !endpoints_.checksOwnNumbers(*path)) nonFinite = findNonFiniteNumber(parsed, "");
    if (nonFinite) {
        // The path without its leading "/": "settings/display_brightness".
        result = EndpointResult::failure(notANumber(std::string_view(*nonFinite).substr(1)));
    } else if (handler != nullptr) {
        try {
            result = (*handler)(RequestContext{.request = *request, .path = *path, .connection = *record});
        } catch (const std::bad_alloc&) {
            // A huge append or download must not take the whole emulator down.
            result = EndpointResult::failure(ErrorObject(ErrorCodeEnum::OUT_OF_MEMORY, velmar::messages::OUT_OF_MEMORY));
        }
    } else {
        result = EndpointResult::failure(
            ErrorObject(ErrorCodeEnum::ENDPOINT_NOT_FOUND, messages::ENDPOINT_NOT_FOUND, std::string_view(*path)));
    }

    std::vector<OutStep> steps;
    const auto appendAfterReply = [&] {
        for (auto& step : result.afterReply) steps.push_back(std::move(step));
    };
    if (fault) {
        for (auto& event : fault->eventsBeforeReply) {
            steps.push_back(TextStep{json::serialize(makeEventFrame(std::move(event)))});
        }
        if (fault->delay.count() > 0) steps.push_back(PauseStep{fault->delay});
        json::object stray;
        switch (fault->action) {
        case FaultActionEnum::CLOSE:
            steps.push_back(CloseStep{});
            run(record->peer, std::move(steps));
            return;
        case FaultActionEnum::DROP:
            appendAfterReply();
            run(record->peer, std::move(steps));
            return;
        case FaultActionEnum::MALFORMED:
            steps.push_back(TextStep{R"({"type":"REPLY","status": this is not json)"});
            break;
        case FaultActionEnum::NO_TYPE:
            if (requestId != nullptr) stray.emplace("request_id", *requestId);
            stray.emplace("status", "SUCCESS");
            steps.push_back(TextStep{json::serialize(stray)});
            break;
        case FaultActionEnum::UNKNOWN_TYPE:
            stray.emplace("type", "WHATEVER");
            if (requestId != nullptr) stray.emplace("request_id", *requestId);
            steps.push_back(TextStep{json::serialize(stray)});
            break;
        case FaultActionEnum::BINARY: {
            auto bytes = strayBinaryBytes();
            steps.push_back(BinaryStep{BinaryPayload{bytes, bytes->size()}});
            break;
        }
        case FaultActionEnum::DELAY: break;
        }
    }
    if (!result.noReply) {
        steps.push_back(TextStep{json::serialize(makeReply(requestId, result.error, result.result))});
        if (result.binaryAfterReply && !result.error) steps.push_back(BinaryStep{std::move(*result.binaryAfterReply)});
    }
    appendAfterReply();
    run(record->peer, std::move(steps));
}

void DeviceModel::handleBinary(std::string_view connectionId, std::size_t size) {
    logFrameProblem(connectionId, "unexpected binary frame of " + std::to_string(size) + " bytes dropped");
}

void DeviceModel::run(std::weak_ptr<ConnectionPeer> peer, std::vector<OutStep> steps) {
    if (steps.empty()) return;
    runFrom(std::move(peer), std::make_shared<std::vector<OutStep>>(std::move(steps)), 0);
}

void DeviceModel::runFrom(std::weak_ptr<ConnectionPeer> weakPeer, std::shared_ptr<std::vector<OutStep>> steps,
                          std::size_t index) {
    const auto peer = weakPeer.lock();
    for (; index < steps->size(); ++index) {
        auto& step = (*steps)[index];
        if (auto* text = std::get_if<TextStep>(&step)) {
            if (peer) peer->sendText(std::move(text->text));
        } else if (auto* binary = std::get_if<BinaryStep>(&step)) {
            if (peer) peer->sendBinary(std::move(binary->payload));
        } else if (auto* pause = std::get_if<PauseStep>(&step)) {
            if (pausedAnswers_.fetch_add(1) >= MAX_PAUSED_ANSWERS) {
                --pausedAnswers_;
                logFrameProblem("(any)", "too many delayed answers; the rest of this one is dropped");
                return;
            }
            scheduler_.schedule(pause->delay, [this, weakPeer, steps, next = index + 1] {
                --pausedAnswers_;
                runFrom(weakPeer, steps, next);
            });
            return;
        } else if (std::holds_alternative<CloseStep>(step)) {
            if (peer) peer->close();
        } else if (auto* action = std::get_if<ActionStep>(&step)) {
            if (action->action) action->action();
        }
    }
}

void DeviceModel::sendFrame(std::string_view connectionId, const json::object& frame) {
    if (auto peer = connections_.peer(connectionId)) peer->sendText(json::serialize(frame));
}

void DeviceModel::sendEvent(std::string_view connectionId, json::object event) {
    if (auto peer = connections_.peer(connectionId)) peer->sendText(json::serialize(makeEventFrame(std::move(event))));
}

void DeviceModel::broadcastEvent(const json::object& event) {
    const auto text = json::serialize(makeEventFrame(event));
    for (const auto& record : connections_.list()) {
        if (auto peer = record.peer.lock()) peer->sendText(text);
    }
}

std::chrono::seconds DeviceModel::uptime() const {
    return std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - started_);
}

void DeviceModel::setBusyProvider(std::function<bool()> provider) {
    std::lock_guard lock(hooksMutex_);
    busyProvider_ = std::move(provider);
}

bool DeviceModel::busy() const {
    std::function<bool()> provider;
    {
        std::lock_guard lock(hooksMutex_);
        provider = busyProvider_;
    }
    return provider ? provider() : false;
}

void DeviceModel::setStopHandler(std::function<void(const StopRequest&)> handler) {
    std::lock_guard lock(hooksMutex_);
    stopHandler_ = std::move(handler);
}

std::vector<StopRequest> DeviceModel::stopRequests() const {
    std::lock_guard lock(hooksMutex_);
    return stopRequests_;
}

void DeviceModel::receiveStop(StopRequest request) {
    std::function<void(const StopRequest&)> handler;
    {
        std::lock_guard lock(hooksMutex_);
        if (stopRequests_.size() == kStopRequestsKept) stopRequests_.erase(stopRequests_.begin());
        stopRequests_.push_back(request);
        handler = stopHandler_;
    }
    if (handler) handler(request);
}

}  // namespace velmar::emulator
