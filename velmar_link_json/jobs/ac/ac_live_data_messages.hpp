#pragma once

#include <string_view>

// Message formats of the impedance live-data errors. They are part of the contract with
// scripts and are kept letter for letter.
namespace velmar::messages {

/// {0}: what did not fit, e.g. "impedances: 2 lists for 1 declared".
inline constexpr std::string_view AC_DATA_TABLE_MISMATCH = "the AC data table does not match the declared {0}";
/// The beginning of the texts that the impedance record readers throw.
inline constexpr std::string_view AC_DATA_TABLE_MISMATCH_PREFIX = "the AC data table does not match the declared ";
/// Parameters of AC_DATA_TABLE_MISMATCH for live data that arrives before any header.
inline constexpr std::string_view AC_ROW_BEFORE_HEADER = "header: none received before this row";
inline constexpr std::string_view AC_WAVES_BEFORE_HEADER = "header: none received before this wave fragment";

}  // namespace velmar::messages
