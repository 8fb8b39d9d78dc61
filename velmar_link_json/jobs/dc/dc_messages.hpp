#pragma once

#include <string_view>

// Message formats of the DC dataset errors. They are part of the contract with scripts and
// are kept letter for letter.
namespace velmar::messages {

inline constexpr std::string_view DC_DATASET_RAGGED =
    "DC column {0} has {1} values but column 0 has {2} - a ragged dataset cannot be written as a flat binary table";
inline constexpr std::string_view BASE64_LENGTH_INVALID = "Invalid Base64 string length.";
inline constexpr std::string_view BASE64_CHARACTER_INVALID = "Invalid Base64 character.";
inline constexpr std::string_view DC_ROWS_NOT_WHOLE =
    "a binary block of {0} bytes is not a whole number of rows of {1} columns";
inline constexpr std::string_view DC_ROWS_NOT_NUMBERS = "live data rows must be arrays of numbers";
inline constexpr std::string_view DC_EVENT_MEMBER_MISSING = "live data event without '{0}'";
inline constexpr std::string_view DC_EVENTS_NOT_ARRAY = "DC job result must be an array of events";

}  // namespace velmar::messages
