#include "velmar_link_json/jobs/job_runner.hpp"

#include "velmar_link_json/jobs/common/job_info.hpp"
#include "velmar_link_json/link_json_session.hpp"

namespace velmar {

ErrorObject runJob(LinkJsonSession& session, AbstractMeasurementJob& job) { return session.doJob(job); }

ErrorObject waitForJob(LinkJsonSession& session, AbstractMeasurementJob& job) {
    return session.waitForJobToFinish(job);
}

ErrorObject checkJobParameters(LinkJsonSession& session, AbstractMeasurementJob& job) {
    return session.checkJobParameters(job);
}

std::expected<JobInfo, ErrorObject> getJobInfo(LinkJsonSession& session, const AbstractMeasurementJob& job) {
    return session.getJobInfo(job);
}

std::expected<std::vector<JobInfo>, ErrorObject> getJobInfoList(LinkJsonSession& session, bool excludeFinished) {
    return session.getJobInfoList(excludeFinished);
}

}  // namespace velmar
