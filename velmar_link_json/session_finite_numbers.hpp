#pragma once

#include <boost/json/fwd.hpp>

#include <optional>
#include <string>

namespace velmar {

/// The path of the first NaN or infinity in `value` (keys and array indices joined by "/",
/// e.g. "job/parameters/scan_rate"), or nothing when every number is finite. Only finite
/// numbers go on the wire: JSON has no form for the others.
[[nodiscard]] std::optional<std::string> findNonFiniteNumber(const boost::json::value& value);
[[nodiscard]] std::optional<std::string> findNonFiniteNumber(const boost::json::object& object);

}  // namespace velmar
