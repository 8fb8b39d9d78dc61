// Emulator-only test hooks: "/emulator/fault" and "/emulator/event". A real workstation
// answers these paths with ENDPOINT_NOT_FOUND. They pass on what they are given, numbers
// included, so that tests can script any frame.
#include "emulator/core/device_model.hpp"
#include "emulator/core/request_params.hpp"

#include <boost/json.hpp>

namespace velmar::emulator {

namespace json = boost::json;

namespace {
constexpr std::uint64_t kMaxEventDelayMs = 86'400'000;
}

void registerEmulatorEndpoints(DeviceModel& model) {
    model.endpoints().add("/emulator/fault", [&model](const RequestContext& context) {
        auto request = parseFaultRequest(context.request);
        if (!request) return EndpointResult::failure(request.error());
        if (auto error = model.faults().arm(request->endpoint, std::move(request->fault), request->count))
            return EndpointResult::failure(std::move(error));
        return EndpointResult::success();
    }, NumberCheckEnum::BY_HANDLER);

    model.endpoints().add("/emulator/event", [](const RequestContext& context) {
        auto event = requireObject(context.request, "event");
        if (!event) return EndpointResult::failure(event.error());
        auto delay = optionalUnsigned(context.request, "delay_ms", 0, kMaxEventDelayMs);
        if (!delay) return EndpointResult::failure(delay.error());
        auto result = EndpointResult::success();
        if (*delay > 0) result.afterReply.push_back(PauseStep{std::chrono::milliseconds(*delay)});
        result.afterReply.push_back(TextStep{json::serialize(makeEventFrame(**event))});
        return result;
    }, NumberCheckEnum::BY_HANDLER);
}

}  // namespace velmar::emulator
