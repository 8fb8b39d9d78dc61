#pragma once

#include <boost/describe/enum.hpp>

#include <cstdint>

namespace velmar {

/// Whether the device can be used normally or is in recovery mode. EMULATION is
/// deliberately 1000.
enum class WorkstationModeEnum : std::uint32_t { NORMAL = 0, RECOVERY = 1, FAILSAFE = 2, EMULATION = 1000 };
BOOST_DESCRIBE_ENUM(WorkstationModeEnum, NORMAL, RECOVERY, FAILSAFE, EMULATION)

/// The state of a link's connection.
enum class VelmarLinkConnectionStatusEnum : std::uint32_t { DISCONNECTED = 0, CONNECTED = 1 };
BOOST_DESCRIBE_ENUM(VelmarLinkConnectionStatusEnum, DISCONNECTED, CONNECTED)

/// Bits of the connection flags.
namespace VelmarLinkConnectionFlags {
inline constexpr unsigned NONE = 0;
inline constexpr unsigned USE_SSL = 1;
inline constexpr unsigned SKIP_SSL_CERT_VALIDATION = 2;
inline constexpr unsigned SKIP_SSL_HOSTNAME_MATCHING = 4;
inline constexpr unsigned SSL_DO_NOT_USE_SYSTEM_CAS = 8;
inline constexpr unsigned IGNORE_PROTOCOL_MISMATCH = 16;
inline constexpr unsigned SSL_VERIFY_CUSTOM_HOSTNAME = 32;
}  // namespace VelmarLinkConnectionFlags

}  // namespace velmar
