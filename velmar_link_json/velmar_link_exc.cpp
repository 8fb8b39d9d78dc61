#include "velmar_link_json/velmar_link_exc.hpp"

#include "json_common/logging/error_messages.hpp"
#include "velmar_link_json/jobs/abstract_measurement_job.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"

namespace velmar {

VelmarLinkExc::VelmarLinkExc(std::string host, std::string port, unsigned flags, std::string user,
                             std::string password)
    : link_(std::move(host), std::move(port), flags, std::move(user), std::move(password)) {}

WorkstationInfo VelmarLinkExc::id(std::chrono::milliseconds timeout) { return unwrapOrThrow(link_.id(timeout)); }

WorkstationInfo VelmarLinkExc::id(const std::string& host, const std::string& port,
                                  std::chrono::milliseconds timeout) {
    return unwrapOrThrow(VelmarLink::id(host, port, timeout));
}

ErrorObject VelmarLinkExc::raiseUnlessSuppressed(ErrorObject error) const {
    if (error && !isDoJobExceptionSuppressed(error.code)) throw VelmarLinkException(std::move(error));
    return error;
}

void VelmarLinkExc::raiseIfJobFailed(const AbstractMeasurementJob& job, bool afterRun) {
    const auto status = job.getLastJobStatus();
    if (job.wasSuccessful() || status == JobStatusEnum::PENDING || status == JobStatusEnum::RUNNING) return;
    // Before the run a job that never ran is left to the download, which names what is missing.
    if (!afterRun && status == JobStatusEnum::UNKNOWN) return;
    ErrorObject error = job.getLastJobInfo().error;
    if (!error) {
        error = ErrorObject(ErrorCodeEnum::UNEXPECTED_EXCEPTION, messages::UNEXPECTED_EXCEPTION,
                            std::string("job did not finish successfully (status ") +
                                std::string(jobStatusName(status)) + ")");
    }
    throw VelmarLinkException(std::move(error));
}

void VelmarLinkExc::suppressDoJobException(ErrorCodeEnum code) {
    std::lock_guard lock(suppressedMutex_);
    suppressed_.insert(code);
}

void VelmarLinkExc::enableDoJobException(ErrorCodeEnum code) {
    std::lock_guard lock(suppressedMutex_);
    suppressed_.erase(code);
}

bool VelmarLinkExc::isDoJobExceptionSuppressed(ErrorCodeEnum code) const {
    std::lock_guard lock(suppressedMutex_);
    return suppressed_.contains(code);
}

}  // namespace velmar
