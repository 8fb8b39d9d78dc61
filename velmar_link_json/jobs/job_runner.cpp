#include "velmar_link_json/jobs/job_runner.hpp"

#include "velmar_link_json/jobs/common/job_info.hpp"

// Placeholder definitions until the job runner lands.
namespace velmar {

namespace {
ErrorObject notYet() { return ErrorObject(ErrorCodeEnum::UNKNOWN_ERR, "not implemented"); }
}  // namespace

ErrorObject runJob(LinkJsonSession&, AbstractMeasurementJob&) { return notYet(); }
ErrorObject waitForJob(LinkJsonSession&, AbstractMeasurementJob&) { return notYet(); }
ErrorObject checkJobParameters(LinkJsonSession&, AbstractMeasurementJob&) { return notYet(); }
std::expected<JobInfo, ErrorObject> getJobInfo(LinkJsonSession&, const AbstractMeasurementJob&) {
    return std::unexpected(notYet());
}
std::expected<std::vector<JobInfo>, ErrorObject> getJobInfoList(LinkJsonSession&, bool) {
    return std::unexpected(notYet());
}
std::expected<std::shared_ptr<DataSet>, ErrorObject> getJobResultData(LinkJsonSession&, AbstractMeasurementJob&) {
    return std::unexpected(notYet());
}

}  // namespace velmar
