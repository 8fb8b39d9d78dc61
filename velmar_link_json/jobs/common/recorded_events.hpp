#pragma once

// Job results given as arrays of recorded live-data events, each {"event": {"type", ...}}.

#include <boost/json/fwd.hpp>

#include <string_view>

namespace velmar {

/// The text at "/event/type" of a recorded event; empty when there is none.
std::string_view recordedEventType(const boost::json::value& element);

}  // namespace velmar
