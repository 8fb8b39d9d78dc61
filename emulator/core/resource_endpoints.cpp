// "/<TYPE>/create", "append", "get", "info", "list", "delete", "download" for every resource type;
// VELMAR_BINARY also reads the "With Header" snapshots of the job results (see ResourceStore).
#include "emulator/core/device_model.hpp"
#include "emulator/core/request_params.hpp"
#include "json_common/base64.hpp"

#include <boost/json.hpp>

namespace velmar::emulator {

namespace json = boost::json;

namespace {

using ResourceHandler = EndpointResult (*)(DeviceModel&, ResourceTypeEnum, const RequestContext&);

EndpointResult createResource(DeviceModel& model, ResourceTypeEnum type, const RequestContext& context) {
    auto name = requireString(context.request, "name");
    if (!name) return EndpointResult::failure(name.error());
    const auto& user = context.connection.meta.user;
    auto info = model.resources().create(type, std::string(*name), user.empty() ? "anonymous" : user);
    if (!info) return EndpointResult::failure(std::move(info.error()));
    return EndpointResult::success({{"resource", resourceToJson(*info)}});
}

EndpointResult appendResource(DeviceModel& model, ResourceTypeEnum type, const RequestContext& context) {
    auto id = requireString(context.request, "resource_id");
    if (!id) return EndpointResult::failure(id.error());
    auto data = requireString(context.request, "data");
    if (!data) return EndpointResult::failure(data.error());
    if (auto error = model.resources().appendBase64(type, *id, *data)) return EndpointResult::failure(std::move(error));
    return EndpointResult::success();
}

EndpointResult getResource(DeviceModel& model, ResourceTypeEnum type, const RequestContext& context) {
    auto id = requireString(context.request, "resource_id");
    if (!id) return EndpointResult::failure(id.error());
    auto offset = optionalUnsigned(context.request, "offset", 0);
    if (!offset) return EndpointResult::failure(offset.error());
    auto limit = optionalUnsigned(context.request, "limit", 0);
    if (!limit) return EndpointResult::failure(limit.error());
    auto chunk = model.resources().get(type, *id, *offset, *limit);
    if (!chunk) return EndpointResult::failure(chunk.error());
    return EndpointResult::success({{"data", encodeBase64(chunk->bytes)}, {"resource_total_size", chunk->totalSize}});
}

EndpointResult infoResource(DeviceModel& model, ResourceTypeEnum type, const RequestContext& context) {
    auto id = requireString(context.request, "resource_id");
    if (!id) return EndpointResult::failure(id.error());
    auto info = model.resources().info(type, *id);
    if (!info) return EndpointResult::failure(info.error());
    return EndpointResult::success({{"resource", resourceToJson(*info)}});
}

EndpointResult listResources(DeviceModel& model, ResourceTypeEnum type, const RequestContext&) {
    json::array list;
    for (const auto& info : model.resources().list(type)) list.push_back(resourceToJson(info));
    return EndpointResult::success({{"resources", std::move(list)}});
}

EndpointResult deleteResource(DeviceModel& model, ResourceTypeEnum type, const RequestContext& context) {
    auto id = requireString(context.request, "resource_id");
    if (!id) return EndpointResult::failure(id.error());
    if (auto error = model.resources().remove(type, *id)) return EndpointResult::failure(std::move(error));
    return EndpointResult::success();
}

EndpointResult downloadResource(DeviceModel& model, ResourceTypeEnum type, const RequestContext& context) {
    auto id = requireString(context.request, "resource_id");
    if (!id) return EndpointResult::failure(id.error());
    auto limit = optionalUnsigned(context.request, "limit", 0);
    if (!limit) return EndpointResult::failure(limit.error());
    auto download = model.resources().download(type, *id, *limit);
    if (!download) return EndpointResult::failure(download.error());
    auto result = EndpointResult::success();
    result.binaryAfterReply = std::move(download->payload);
    return result;
}

constexpr std::pair<std::string_view, ResourceHandler> kOperations[] = {
    {"/create", createResource}, {"/append", appendResource}, {"/get", getResource},
    {"/info", infoResource},     {"/list", listResources},    {"/delete", deleteResource},
    {"/download", downloadResource},
};

}  // namespace

void registerResourceEndpoints(DeviceModel& model) {
    // The snapshots of job results name the workstation that wrote them.
    auto workstation = model.identity().toJson();
    workstation["protocol_version"] = model.options().protocolVersion;
    model.resources().setSnapshotWorkstationInfo(std::move(workstation));
    for (const auto type : kAllResourceTypes) {
        for (const auto& [suffix, handler] : kOperations) {
            std::string path = "/" + std::string(resourceTypeName(type)) + std::string(suffix);
            model.endpoints().add(std::move(path), [&model, type, handler](const RequestContext& context) {
                return handler(model, type, context);
            });
        }
    }
}

}  // namespace velmar::emulator
