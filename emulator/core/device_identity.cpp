#include "emulator/core/device_identity.hpp"

#include <boost/json.hpp>

namespace velmar::emulator {

const DeviceIdentity& DeviceIdentity::defaults() {
    static const DeviceIdentity identity{
        .serialNumber = "RQ5-EMU-000001",
        .modelName = "RQ5",
        .firmwareVersion = "26.40.0",
        .firmwareBuildId = "23251aaf",
        .cpuCardUuid = "5e1f0c2a-9b7d-4e63-a8d1-2c4f6b9e0d17",
        .systemMac = "02:52:51:35:00:01",
        .systemName = "RQ5 emulator",
    };
    return identity;
}

boost::json::object DeviceIdentity::toJson() const {
    return boost::json::object{
        {"serial_number", serialNumber},     {"model_name", modelName},       {"firmware_version", firmwareVersion},
        {"firmware_build_id", firmwareBuildId}, {"cpu_card_uuid", cpuCardUuid}, {"system_mac", systemMac},
        {"system_name", systemName},         {"mode", "EMULATION"},
    };
}

}  // namespace velmar::emulator
