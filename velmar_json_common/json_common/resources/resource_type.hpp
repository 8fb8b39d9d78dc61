#pragma once

#include <boost/describe/enum.hpp>

#include <cstdint>

namespace velmar {

/// The kind of a device resource; its name is the first element of the resource endpoints.
enum class ResourceTypeEnum : std::uint32_t {
    UNDEFINED = 0,
    FIRMWARE_UPDATE = 1,
    WAVE = 2,
    CALIB_MESH = 3,
    VELMAR_BINARY = 4,
    DEBUG_INFO = 5,
    JOB_RESULT = 6,
};
BOOST_DESCRIBE_ENUM(ResourceTypeEnum, UNDEFINED, FIRMWARE_UPDATE, WAVE, CALIB_MESH, VELMAR_BINARY, DEBUG_INFO, JOB_RESULT)

}  // namespace velmar
