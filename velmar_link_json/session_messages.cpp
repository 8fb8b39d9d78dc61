#include "velmar_link_json/session_messages.hpp"

#include "json_common/logging/error_factory.hpp"
#include "json_common/logging/error_messages.hpp"
#include "json_common/logging/error_object_json.hpp"
#include "velmar_link_json/jobs/abstract_measurement_job.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"

#include <boost/json.hpp>

namespace velmar::sessionmsg {

namespace json = boost::json;

json::object failureReply(const std::string& requestId, const ErrorObject& error) {
    return json::object{
        {"type", "REPLY"}, {"request_id", requestId}, {"status", "FAILED"}, {"error", errorObjectToJson(error)}};
}

ErrorObject cancellationError(CancellationReason reason) {
    return reason == CancellationReason::CONNECTION_LOSS ? ErrorFactory::makeError<ErrorCodeEnum::CONNECTION_WAS_CLOSED>()
                                                         : ErrorFactory::makeError<ErrorCodeEnum::STOPPED_MANUALLY>();
}

JobStatusDetailEnum cancellationDetail(CancellationReason reason) {
    return reason == CancellationReason::CONNECTION_LOSS ? JobStatusDetailEnum::CONNECTION_LOSS
                                                         : JobStatusDetailEnum::STOPPED_BY_USER;
}

json::object jobCancellationMessage(const std::string& requestId, const AbstractMeasurementJob* job,
                                    CancellationReason reason) {
    const ErrorObject error = cancellationError(reason);
    const auto detail = cancellationDetail(reason);
    JobInfo info = job != nullptr ? job->getLastJobInfo() : JobInfo{};
    info.setFailed(ErrorObject(error), detail, JobStatusEnum::FAILED);
    return json::object{
        {"type", "JOB_DONE"},
        {"request_id", requestId},
        {"error", errorObjectToJson(error)},
        {"job_id", job != nullptr ? std::string(job->getLastJobInfo().job_id) : std::string("void")},
        {"status", "FAILED"},
        {"status_detail", jobStatusDetailName(detail)},
        {"job_info", jobInfoToJson(info)},
    };
}

boost::asio::cancellation_type cancellationTypeOf(CancellationReason reason) {
    return reason == CancellationReason::CONNECTION_LOSS ? boost::asio::cancellation_type::terminal
                                                         : boost::asio::cancellation_type::total;
}

CancellationReason reasonOf(boost::asio::cancellation_type type) {
    return type == boost::asio::cancellation_type::terminal ? CancellationReason::CONNECTION_LOSS
                                                            : CancellationReason::MANUAL_STOP;
}

ErrorObject blockingCallError() {
    return ErrorObject(ErrorCodeEnum::UNEXPECTED_EXCEPTION, messages::UNEXPECTED_EXCEPTION,
                       messages::BLOCKING_CALL_FROM_CALLBACK);
}

ErrorObject notANumberError(const std::string& path) {
    return ErrorObject(ErrorCodeEnum::PARAMETER_IS_NOT_A_NUMBER, messages::PARAMETER_NOT_A_NUMBER, path);
}

ErrorObject malformedError(std::string_view what) {
    return ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::JSON_MALFORMED, what);
}

std::optional<std::string> requestIdOf(const json::object& message) {
    const auto* value = message.if_contains("request_id");
    if (value == nullptr || !value->is_string()) return std::nullopt;
    const auto& text = value->get_string();
    return std::string(text.data(), text.size());
}

}  // namespace velmar::sessionmsg
