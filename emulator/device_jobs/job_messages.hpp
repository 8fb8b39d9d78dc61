#pragma once

#include <string_view>

// Message formats of the emulated job queue and hardware. They are part of the emulator's
// wire contract (scripts and tests compare them) and keep their spelling. Parameter errors
// reuse the emulator-wide formats of emulator/core/emulator_messages.hpp.
namespace velmar::emulator::job_messages {

inline constexpr std::string_view TYPE_NAME_UNKNOWN = "job type '{0}' unknown";
inline constexpr std::string_view PATH_INVALID = "symbolic path '{0}' of parameter '{1}' is invalid";
inline constexpr std::string_view POT_MUST_BE_OFF =
    "potentiostat '{0}' must be switched off to change its voltage range";
inline constexpr std::string_view STOP_CONDITION_MISCONFIGURED = "stop condition {0} misconfigured: {1}";
inline constexpr std::string_view STOP_CONDITION_NOT_ALLOWED = "job type '{0}' takes no stop conditions";
inline constexpr std::string_view STOP_CONDITION_TRIGGERED = "stop condition {0} triggered on '{1}' at {2}";
inline constexpr std::string_view QUEUE_FULL = "job queue full ({0} jobs waiting)";
inline constexpr std::string_view BYPASS_FULL = "too many jobs beside the queue ({0} running)";
inline constexpr std::string_view QUEUE_BYPASS_NOT_ALLOWED = "job type '{0}' cannot bypass the queue";
inline constexpr std::string_view STOPPED_MANUALLY_BEFORE_RUN = "manually stopped before run";
inline constexpr std::string_view STOPPED_MANUALLY = "manually stopped";
inline constexpr std::string_view ID_NOT_FOUND = "could not find {0} with {1} '{2}'";
inline constexpr std::string_view PROPERTY_OBJECT_MISSING = "property '{0}' missing or not an object";
inline constexpr std::string_view CALIBRATION_TYPE_UNKNOWN = "calibration type '{0}' unknown";
inline constexpr std::string_view DATETIME_INVALID =
    "parameter '{0}' is not an ISO 8601 date and time: '{1}'";
inline constexpr std::string_view NOT_EMULATED = "job type '{0}' has no emulated measurement";
inline constexpr std::string_view NO_DC_RESULT = "job '{0}' has no DC result to replace";
inline constexpr std::string_view RESULT_NOT_STORED = "job result could not be stored: {0}";
inline constexpr std::string_view WAVE_RESOURCE_INVALID =
    "wave resource '{0}' does not hold little-endian binary64 values";

}  // namespace velmar::emulator::job_messages
