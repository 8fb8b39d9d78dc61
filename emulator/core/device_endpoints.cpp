// "/id", "/status", "/connection/*", "/settings/*" and "/stop".
#include "emulator/core/device_model.hpp"
#include "emulator/core/request_params.hpp"
#include "json_common/logging/error_messages.hpp"

#include <boost/json.hpp>

namespace velmar::emulator {

namespace json = boost::json;

void registerDeviceEndpoints(DeviceModel& model) {
    auto& endpoints = model.endpoints();

    endpoints.add("/id", [&model](const RequestContext&) {
        return EndpointResult::success({{"workstation", model.identity().toJson()}});
    });

    endpoints.add("/status", [&model](const RequestContext&) {
        return EndpointResult::success({{"workstation_status",
                                         json::object{{"busy", model.busy()},
                                                      {"uptime", model.uptime().count()},
                                                      {"last_dc_calibration", model.lastDcCalibration()},
                                                      {"mode", "EMULATION"}}}});
    });

    endpoints.add("/connection/list", [&model](const RequestContext&) {
        json::array list;
        for (const auto& record : model.connections().list()) list.push_back(connectionToJson(record));
        return EndpointResult::success({{"connections", std::move(list)}});
    });

    endpoints.add("/connection/id", [](const RequestContext& context) {
        return EndpointResult::success({{"connection", connectionToJson(context.connection)}});
    });

    endpoints.add("/connection/drop", [&model](const RequestContext& context) {
        auto id = requireString(context.request, "connection_id");
        if (!id) return EndpointResult::failure(id.error());
        if (!model.connections().find(*id)) {
            return EndpointResult::failure(
                ErrorObject(ErrorCodeEnum::ID_NOT_FOUND, velmar::messages::ID_NOT_FOUND, "connection", "connection_id", *id));
        }
        // Closed after the reply is queued, so that a connection dropping itself still
        // receives its reply before the close frame.
        auto result = EndpointResult::success();
        result.afterReply.push_back(ActionStep{[&model, target = std::string(*id)] {
            if (auto peer = model.connections().peer(target)) peer->close();
        }});
        return result;
    });

    endpoints.add("/settings/get", [&model](const RequestContext&) {
        return EndpointResult::success({{"settings", model.settings().toJson()}});
    });

    endpoints.add("/settings/set", [&model](const RequestContext& context) {
        auto changes = requireObject(context.request, "settings");
        if (!changes) return EndpointResult::failure(changes.error());
        return EndpointResult::success({{"settings", model.settings().apply(**changes)}});
    });

    // No reply: the request is recorded and handed to the job queue's stop handler.
    endpoints.add("/stop", [&model](const RequestContext& context) {
        StopRequest stop{.connectionId = context.connection.id};
        if (const auto* queue = context.request.if_contains("queue"); queue != nullptr && queue->is_string()) {
            if (queue->get_string() == "flush") stop.queue = StopQueueModeEnum::FLUSH;
            if (queue->get_string() == "continue") stop.queue = StopQueueModeEnum::CONTINUE;
        }
        model.receiveStop(std::move(stop));
        EndpointResult result;
        result.noReply = true;
        return result;
    });
}

}  // namespace velmar::emulator
