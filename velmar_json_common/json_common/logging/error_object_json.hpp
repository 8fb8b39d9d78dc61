#pragma once

#include "json_common/logging/error_object.hpp"

#include <boost/json/fwd.hpp>

namespace velmar {

/// Writes "number", "code", "message", "message_parameters" in this order.
void tag_invoke(const boost::json::value_from_tag&, boost::json::value& jv, const ErrorObject& error);

/// Strict reading: the object converts completely or becomes UNKNOWN_ERR
/// "an unknown error occured". Never throws.
ErrorObject tag_invoke(const boost::json::value_to_tag<ErrorObject>&, const boost::json::value& jv);

/// Same as value_to<ErrorObject>.
ErrorObject errorObjectFromJson(const boost::json::value& jv);
boost::json::value errorObjectToJson(const ErrorObject& error);

}  // namespace velmar
