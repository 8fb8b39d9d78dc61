#pragma once

#include "json_common/jobs/job_status.hpp"
#include "json_common/logging/error_object.hpp"

#include <expected>
#include <memory>
#include <vector>

namespace velmar {

class AbstractMeasurementJob;
class DataSet;
class LinkJsonSession;
struct JobInfo;

// Job operations as free functions. The job protocol lives in LinkJsonSession; these forward
// to its members (see there for the behaviour).

ErrorObject runJob(LinkJsonSession& session, AbstractMeasurementJob& job);
ErrorObject waitForJob(LinkJsonSession& session, AbstractMeasurementJob& job);
ErrorObject checkJobParameters(LinkJsonSession& session, AbstractMeasurementJob& job);
std::expected<JobInfo, ErrorObject> getJobInfo(LinkJsonSession& session, const AbstractMeasurementJob& job);
std::expected<std::vector<JobInfo>, ErrorObject> getJobInfoList(LinkJsonSession& session, bool excludeFinished);

/// Waits for the job if needed, downloads its result resource and decodes it
/// (job_result_data.cpp; LinkJsonSession::getJobResultData calls it).
std::expected<std::shared_ptr<DataSet>, ErrorObject> getJobResultData(LinkJsonSession& session,
                                                                       AbstractMeasurementJob& job);

}  // namespace velmar
