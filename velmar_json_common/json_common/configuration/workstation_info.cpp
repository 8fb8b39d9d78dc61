#include "json_common/configuration/workstation_info.hpp"

#include "json_common/enum_names.hpp"

#include <boost/json.hpp>

#include <stdexcept>

namespace velmar {

namespace json = boost::json;

std::string_view workstationModeName(WorkstationModeEnum mode) {
    const auto name = enumName(mode);
    return name.empty() ? enumName(WorkstationModeEnum::NORMAL) : name;
}

std::optional<WorkstationModeEnum> workstationModeFromName(std::string_view name) {
    return enumFromName<WorkstationModeEnum>(name);
}

namespace {

// Field readers: true when the key is present and read; a key of the wrong kind throws.
const json::object& requireObject(const json::value& jv, const char* what) {
    const auto* object = jv.if_object();
    if (object == nullptr) throw std::invalid_argument(std::string("'") + what + "' is not an object");
    return *object;
}

bool readString(const json::object& object, std::string_view key, std::string& out) {
    const auto* value = object.if_contains(key);
    if (value == nullptr) return false;
    const auto* text = value->if_string();
    if (text == nullptr) throw std::invalid_argument("'" + std::string(key) + "' is not a string");
    out.assign(text->data(), text->size());
    return true;
}

bool readBool(const json::object& object, std::string_view key, bool& out) {
    const auto* value = object.if_contains(key);
    if (value == nullptr) return false;
    if (!value->is_bool()) throw std::invalid_argument("'" + std::string(key) + "' is not a boolean");
    out = value->get_bool();
    return true;
}

bool readUnsigned(const json::object& object, std::string_view key, std::uint64_t& out) {
    const auto* value = object.if_contains(key);
    if (value == nullptr) return false;
    auto converted = json::try_value_to<std::uint64_t>(*value);
    if (!converted) throw std::invalid_argument("'" + std::string(key) + "' is not an unsigned number");
    out = *converted;
    return true;
}

void readMode(const json::object& object, WorkstationModeEnum& out) {
    std::string name;
    if (!readString(object, "mode", name)) return;
    const auto mode = workstationModeFromName(name);
    if (!mode) throw std::invalid_argument("unknown workstation mode '" + name + "'");
    out = *mode;
}

}  // namespace

void tag_invoke(const json::value_from_tag&, json::value& jv, const WorkstationInfo& info) {
    jv = json::object{
        {"serial_number", info.serial_number},
        {"model_name", info.model_name},
        {"firmware_version", info.firmware_version},
        {"firmware_build_id", info.firmware_build_id},
        {"cpu_card_uuid", info.cpu_card_uuid},
        {"system_mac", info.system_mac},
        {"system_name", info.system_name},
        {"mode", workstationModeName(info.mode)},
    };
}

WorkstationInfo tag_invoke(const json::value_to_tag<WorkstationInfo>&, const json::value& jv) {
    const auto& object = requireObject(jv, "workstation");
    WorkstationInfo info;
    readString(object, "serial_number", info.serial_number);
    readString(object, "model_name", info.model_name);
    readString(object, "firmware_version", info.firmware_version);
    readString(object, "firmware_build_id", info.firmware_build_id);
    readString(object, "cpu_card_uuid", info.cpu_card_uuid);
    readString(object, "system_mac", info.system_mac);
    readString(object, "system_name", info.system_name);
    readMode(object, info.mode);
    return info;
}

void tag_invoke(const json::value_from_tag&, json::value& jv, const WorkstationStatus& status) {
    jv = json::object{
        {"busy", status.busy},
        {"uptime", status.uptime},
        {"last_dc_calibration", status.last_dc_calibration},
        {"mode", workstationModeName(status.mode)},
    };
}

WorkstationStatus tag_invoke(const json::value_to_tag<WorkstationStatus>&, const json::value& jv) {
    const auto& object = requireObject(jv, "workstation_status");
    WorkstationStatus status;
    readBool(object, "busy", status.busy);
    readUnsigned(object, "uptime", status.uptime);
    readString(object, "last_dc_calibration", status.last_dc_calibration);
    readMode(object, status.mode);
    return status;
}

void tag_invoke(const json::value_from_tag&, json::value& jv, const WebsocketConnectionInfo& info) {
    jv = json::object{
        {"connection_id", info.connection_id}, {"connected_since", info.connected_since},
        {"remote_addr", info.remote_addr},     {"remote_port", info.remote_port},
        {"target", info.target},               {"user_agent", info.user_agent},
        {"using_tls", info.using_tls},
    };
}

WebsocketConnectionInfo tag_invoke(const json::value_to_tag<WebsocketConnectionInfo>&, const json::value& jv) {
    const auto& object = requireObject(jv, "connection");
    WebsocketConnectionInfo info;
    readString(object, "connection_id", info.connection_id);
    readString(object, "connected_since", info.connected_since);
    readString(object, "remote_addr", info.remote_addr);
    std::uint64_t port = 0;
    if (readUnsigned(object, "remote_port", port)) {
        if (port > 65535) throw std::invalid_argument("'remote_port' out of range");
        info.remote_port = static_cast<std::uint32_t>(port);
    }
    readString(object, "target", info.target);
    readString(object, "user_agent", info.user_agent);
    readBool(object, "using_tls", info.using_tls);
    return info;
}

}  // namespace velmar
