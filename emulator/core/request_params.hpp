#pragma once

#include "json_common/logging/error_object.hpp"

#include <boost/json/object.hpp>

#include <cstdint>
#include <expected>
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

}  // namespace velmar::emulator
