#pragma once

#include <string_view>

// Message formats of the impedance measurements. They are part of the emulator's wire
// contract (scripts and tests compare them) and keep their spelling.
namespace velmar::emulator::ac_messages {

inline constexpr std::string_view NO_IMPEDANCE =
    "no impedance configured: the sampling configuration has no impedance configuration";
inline constexpr std::string_view PATH_NOT_SYNCHRONOUS = "impedance '{0}' uses '{1}', which is not sampled synchronously";
inline constexpr std::string_view DENOMINATOR_SILENT = "impedance '{0}' divides by '{1}', which measures nothing";
inline constexpr std::string_view ABOVE_FILTER_RANGE = "frequency {0} Hz is above the filter range of path '{1}' ({2} Hz)";
inline constexpr std::string_view NO_AC_RESULT = "job '{0}' has no impedance result to replace";

}  // namespace velmar::emulator::ac_messages
