#pragma once

#include <string_view>

// Message formats of the impedance live-data and dataset errors. They are part of the contract with scripts
// and are kept letter for letter.
namespace velmar::messages {

/// {0}: what did not fit, e.g. "impedances: 2 lists for 1 declared".
inline constexpr std::string_view AC_DATA_TABLE_MISMATCH = "the AC data table does not match the declared {0}";
/// The beginning of the texts that the impedance record readers throw.
inline constexpr std::string_view AC_DATA_TABLE_MISMATCH_PREFIX = "the AC data table does not match the declared ";
/// Parameters of AC_DATA_TABLE_MISMATCH for live data that arrives before any header.
inline constexpr std::string_view AC_ROW_BEFORE_HEADER = "header: none received before this row";
inline constexpr std::string_view AC_WAVES_BEFORE_HEADER = "header: none received before this wave fragment";

// Checks of the binary writer, in the order they are made.
inline constexpr std::string_view EIS_META_COLUMN_LENGTH =
    "EIS meta column '{0}' has {1} values but the dataset has {2} rows";
inline constexpr std::string_view EIS_WAVE_SIZE_MISMATCH =
    "wave {0} of sync path {1} has {2} samples but wave_size declares {3}";
inline constexpr std::string_view EIS_WAVE_COUNT_MISMATCH =
    "sync path {0} holds {1} waves but the meta columns declare {2}";
/// A column of an impedance, path or potentiostat group that is not as long as the meta columns.
inline constexpr std::string_view EIS_GROUP_COLUMN_LENGTH =
    "EIS {0} {1} column '{2}' has {3} values but the dataset has {4} rows";

// Reading the binary form.
inline constexpr std::string_view EIS_BINARY_TOO_SHORT =
    "EIS binary data of {0} bytes is shorter than {1} rows of {2} columns";
inline constexpr std::string_view EIS_WAVE_SIZE_INVALID = "wave_size of row {0} is not a sample count: {1}";
inline constexpr std::string_view EIS_WAVE_SIZE_BEYOND_DATA =
    "wave_size of row {0} declares {1} samples for sync path {2} but only {3} values remain";

// Building from recorded events.
inline constexpr std::string_view EIS_EVENTS_NOT_ARRAY = "AC job result must be an array of events";
inline constexpr std::string_view EIS_EVENT_MEMBER_MISSING = "live data event without '{0}'";

// Joining results (standard error).
inline constexpr std::string_view EIS_APPEND_SHAPE =
    "cannot append: the data does not have the shape its header describes";
inline constexpr std::string_view EIS_APPEND_HEADER_MISMATCH = "header mismatch";

}  // namespace velmar::messages
