#pragma once

#include <string_view>

// Message formats of the errors that the emulator puts into its replies. They are part of
// the wire contract (scripts and tests compare them) and keep their spelling; the formats
// shared with the client library come from json_common/logging/error_messages.hpp.
namespace velmar::emulator::messages {

inline constexpr std::string_view ENDPOINT_NOT_FOUND = "endpoint '{0}' not found";
inline constexpr std::string_view PARAMETER_MISSING = "parameter '{0}' missing";
inline constexpr std::string_view PARAMETER_FORMAT_INVALID = "parameter '{0}' has an invalid format, expected {1}";
inline constexpr std::string_view PARAMETER_VALUE_TOO_HIGH = "parameter '{0}' value {1} is above the maximum {2}";
inline constexpr std::string_view PARAMETER_VALUE_TOO_LOW = "parameter '{0}' value {1} is below the minimum {2}";
inline constexpr std::string_view PARAMETER_IS_NOT_A_NUMBER = "parameter '{0}' is not a number";
inline constexpr std::string_view SETTING_READ_ONLY = "setting '{0}' is read-only";
inline constexpr std::string_view RESOURCE_TYPE_MISMATCH = "resource '{0}' is of type {1}, not {2}";
inline constexpr std::string_view RESOURCE_DATA_INVALID = "resource data is not valid Base64: {0}";
inline constexpr std::string_view RESOURCE_STORE_FULL = "resource store full: {0} bytes requested, {1} bytes free";
inline constexpr std::string_view TABLE_FULL = "{0} full: at most {1} entries";
inline constexpr std::string_view RESOURCE_DESCRIPTIONS_FULL =
    "resource descriptions full: {0} bytes requested, {1} bytes free";

}  // namespace velmar::emulator::messages
