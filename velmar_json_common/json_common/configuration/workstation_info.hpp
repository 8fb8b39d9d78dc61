#pragma once

#include "json_common/configuration/workstation_mode.hpp"

#include <boost/json/fwd.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velmar {

/// The workstation's identity, the reply of "/id".
struct WorkstationInfo {
    std::string serial_number;
    std::string model_name;
    std::string firmware_version;
    std::string firmware_build_id;
    std::string cpu_card_uuid;
    std::string system_mac;
    std::string system_name;
    WorkstationModeEnum mode = WorkstationModeEnum::NORMAL;
    /// The protocol version that the workstation announced in the handshake (0 if unknown).
    /// Not part of the JSON form; the link fills it in.
    unsigned protocol_version = 0;
};

/// The reply of "/status".
struct WorkstationStatus {
    bool busy = false;
    std::uint64_t uptime = 0;
    std::string last_dc_calibration;
    WorkstationModeEnum mode = WorkstationModeEnum::NORMAL;
};

/// One WebSocket connection to the workstation.
struct WebsocketConnectionInfo {
    std::string connection_id;
    std::string connected_since;
    std::string remote_addr;
    std::uint32_t remote_port = 0;
    std::string target;
    std::string user_agent;
    bool using_tls = false;
};

/// "NORMAL", "RECOVERY", "FAILSAFE", "EMULATION".
std::string_view workstationModeName(WorkstationModeEnum mode);
/// Exact comparison; nullopt for any other text.
std::optional<WorkstationModeEnum> workstationModeFromName(std::string_view name);

// JSON forms. Readers take every key that is present; a missing key keeps its default, a key
// of the wrong JSON kind (or an unknown mode name) throws std::invalid_argument.
void tag_invoke(const boost::json::value_from_tag&, boost::json::value& jv, const WorkstationInfo& info);
WorkstationInfo tag_invoke(const boost::json::value_to_tag<WorkstationInfo>&, const boost::json::value& jv);
void tag_invoke(const boost::json::value_from_tag&, boost::json::value& jv, const WorkstationStatus& status);
WorkstationStatus tag_invoke(const boost::json::value_to_tag<WorkstationStatus>&, const boost::json::value& jv);
void tag_invoke(const boost::json::value_from_tag&, boost::json::value& jv, const WebsocketConnectionInfo& info);
WebsocketConnectionInfo tag_invoke(const boost::json::value_to_tag<WebsocketConnectionInfo>&,
                                   const boost::json::value& jv);

}  // namespace velmar
