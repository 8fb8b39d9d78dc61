#pragma once

#include "json_common/logging/error_object.hpp"

#include <boost/json/object.hpp>

#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>

namespace velmar::emulator {

// Non-throwing readers of request members. Each failure is the error that the reply
// carries: a missing member gives PARAMETER_MISSING, a member of the wrong JSON kind
// PARAMETER_FORMAT_INVALID, a number out of range PARAMETER_VALUE_TOO_LOW / _TOO_HIGH.

std::expected<std::string_view, ErrorObject> requireString(const boost::json::object& request, std::string_view key);

std::expected<const boost::json::object*, ErrorObject> requireObject(const boost::json::object& request,
                                                                     std::string_view key);

/// A non-negative integer no larger than `max`; `fallback` when the member is absent.
std::expected<std::uint64_t, ErrorObject> optionalUnsigned(const boost::json::object& request, std::string_view key,
                                                           std::uint64_t fallback,
                                                           std::uint64_t max = UINT64_MAX);

/// The path of the first number in `value` that is not finite (NaN, an infinity, or a text
/// such as 1e999 that no double holds), written as `prefix` followed by "/key" for object
/// members and "/index" for array elements ("job/parameters/scan_rate"); nothing when every
/// number is finite. The parser bounds the nesting depth, so the recursion is bounded too.
std::optional<std::string> findNonFiniteNumber(const boost::json::value& value, std::string_view prefix);

/// PARAMETER_IS_NOT_A_NUMBER, "parameter '{0}' is not a number" with `path`.
ErrorObject notANumber(std::string_view path);

}  // namespace velmar::emulator
