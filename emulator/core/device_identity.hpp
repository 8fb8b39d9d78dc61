#pragma once

#include <boost/json/fwd.hpp>

#include <string>

namespace velmar::emulator {

/// The identity that the emulated workstation reports in "/id". The mode is always
/// "EMULATION", so that scripts can tell the emulator from a real device.
struct DeviceIdentity {
    std::string serialNumber;
    std::string modelName;
    std::string firmwareVersion;
    std::string firmwareBuildId;
    std::string cpuCardUuid;
    std::string systemMac;
    std::string systemName;

    /// The fixed identity of the emulator.
    static const DeviceIdentity& defaults();

    /// The "workstation" object of "/id", keys in wire order.
    boost::json::object toJson() const;
};

}  // namespace velmar::emulator
