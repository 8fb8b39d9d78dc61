#pragma once

// Private to velmar_link_json: the messages that the session builds itself, in the
// workstation's own shapes.

#include "json_common/logging/error_object.hpp"
#include "velmar_link_json/link_json_session.hpp"

#include <boost/asio/cancellation_type.hpp>
#include <boost/json/object.hpp>

#include <optional>
#include <string>

namespace velmar::sessionmsg {

/// {"type":"REPLY","request_id":...,"status":"FAILED","error":...}
boost::json::object failureReply(const std::string& requestId, const ErrorObject& error);
/// CONNECTION_WAS_CLOSED for a connection loss, STOPPED_MANUALLY for a manual stop.
ErrorObject cancellationError(CancellationReason reason);
JobStatusDetailEnum cancellationDetail(CancellationReason reason);
/// The "JOB_DONE" of a job entry that the cancellation ends (job may be null).
boost::json::object jobCancellationMessage(const std::string& requestId, const AbstractMeasurementJob* job,
                                           CancellationReason reason);
/// How a reason travels through CancellationSignals, and back.
boost::asio::cancellation_type cancellationTypeOf(CancellationReason reason);
CancellationReason reasonOf(boost::asio::cancellation_type type);

/// UNEXPECTED_EXCEPTION "blocking call from a callback of the same link".
ErrorObject blockingCallError();
/// PARAMETER_IS_NOT_A_NUMBER naming the value's path.
ErrorObject notANumberError(const std::string& path);
/// JSON_MALFORMED "json malformed: {0}".
ErrorObject malformedError(std::string_view what);

/// "request_id" when it is a string.
std::optional<std::string> requestIdOf(const boost::json::object& message);

}  // namespace velmar::sessionmsg
