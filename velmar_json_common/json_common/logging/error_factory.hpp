#pragma once

#include "json_common/logging/error_code_enum.hpp"
#include "json_common/logging/error_messages.hpp"
#include "json_common/logging/error_object.hpp"
#include "json_common/logging/error_object_json.hpp"

#include <boost/json/value.hpp>

namespace velmar::ErrorFactory {

template <ErrorCodeEnum Code>
constexpr std::string_view fixedMessage() {
    if constexpr (Code == ErrorCodeEnum::CONNECTION_NOT_ESTABLISHED) return messages::CONNECTION_NOT_ESTABLISHED;
    else if constexpr (Code == ErrorCodeEnum::CONNECTION_BROKEN) return messages::CONNECTION_BROKEN;
    else if constexpr (Code == ErrorCodeEnum::CONNECTION_WAS_CLOSED) return messages::CONNECTION_WAS_CLOSED;
    else if constexpr (Code == ErrorCodeEnum::OPERATION_TIMED_OUT) return messages::OPERATION_TIMED_OUT;
    else if constexpr (Code == ErrorCodeEnum::STOPPED_MANUALLY) return messages::STOPPED_MANUALLY;
    else static_assert(Code == ErrorCodeEnum::CONNECTION_NOT_ESTABLISHED, "no fixed message for this code");
}

/// The error of a code known at compile time, with its fixed message and no parameters.
template <ErrorCodeEnum Code>
ErrorObject makeError() {
    return ErrorObject(Code, fixedMessage<Code>());
}

/// The JSON form of makeError<Code>(), for replies that the library synthesises itself.
template <ErrorCodeEnum Code>
boost::json::value makeJsonError() {
    return errorObjectToJson(makeError<Code>());
}

}  // namespace velmar::ErrorFactory
