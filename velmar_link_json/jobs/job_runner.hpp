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

// Job operations on a connected session; the facade forwards to these. Each blocks the
// calling (owner) thread; cancelPendingOperations() from any thread ends the wait with
// STOPPED_MANUALLY. The job must outlive the call.

/// Sends "/job/start", waits for the "JOB_DONE" and returns the job's error (falsy on success).
/// Without a connection the job is failed at once with CONNECTION_NOT_ESTABLISHED / NOT_CONNECTED.
ErrorObject runJob(LinkJsonSession& session, AbstractMeasurementJob& job);

/// Waits until a job started earlier has ended (polls nothing: it follows the job's events).
ErrorObject waitForJob(LinkJsonSession& session, AbstractMeasurementJob& job);

/// "/job/check_parameters" with the job's request object.
ErrorObject checkJobParameters(LinkJsonSession& session, AbstractMeasurementJob& job);

/// "/job/info" for the job's id.
std::expected<JobInfo, ErrorObject> getJobInfo(LinkJsonSession& session, const AbstractMeasurementJob& job);

/// "/job/list".
std::expected<std::vector<JobInfo>, ErrorObject> getJobInfoList(LinkJsonSession& session, bool excludeFinished);

/// Waits for the job if needed, downloads its result resource and decodes it.
std::expected<std::shared_ptr<DataSet>, ErrorObject> getJobResultData(LinkJsonSession& session,
                                                                       AbstractMeasurementJob& job);

}  // namespace velmar
