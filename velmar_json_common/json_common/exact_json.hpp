#pragma once

#include <boost/json/value.hpp>
#include <boost/system/error_code.hpp>

#include <string>
#include <string_view>

namespace velmar {

/// Parses one JSON document. Unlike the JSON library's own parser, every floating-point
/// number is converted from its own text with std::from_chars, so each double arrives
/// bit for bit as the writer printed it. Every place that reads JSON text uses this.
/// On failure `ec` is set and a null value returned.
boost::json::value parseJsonExact(std::string_view text, boost::system::error_code& ec);

/// Same; throws boost::system::system_error on failure.
boost::json::value parseJsonExact(std::string_view text);

}  // namespace velmar
