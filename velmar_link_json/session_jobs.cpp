// The job protocol of LinkJsonSession: the pending-job table owns every run from the start
// request to its one ending, routes live data to the run by job id, and wakes the waiters.

#include "velmar_link_json/link_json_session.hpp"

#include "json_common/enum_names.hpp"
#include "json_common/logging/error_factory.hpp"
#include "json_common/logging/error_formatters.hpp"
#include "json_common/logging/error_messages.hpp"
#include "json_common/logging/error_object_json.hpp"
#include "json_common/logging/exception_text.hpp"
#include "velmar_link_json/jobs/abstract_measurement_job.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"
#include "velmar_link_json/jobs/job_runner.hpp"
#include "velmar_link_json/jobs/measurement_job.hpp"
#include "velmar_link_json/link_json_session_impl.hpp"
#include "velmar_link_json/session_finite_numbers.hpp"
#include "velmar_link_json/session_messages.hpp"
#include "velmar_link_json/session_requests.hpp"

#include <boost/json.hpp>

#include <algorithm>
#include <iostream>

namespace velmar {

namespace json = boost::json;
using Impl = LinkJsonSession::Impl;

namespace {

/// Ids of runs failed by a malformed event that are remembered to drop their later events.
constexpr std::size_t FAILED_JOB_IDS_KEPT = 16;

bool isFinal(JobStatusEnum status) {
    return status == JobStatusEnum::FINISHED || status == JobStatusEnum::FAILED || status == JobStatusEnum::DELETED;
}

/// What a run returns: success for FINISHED, otherwise the stored error.
ErrorObject outcomeOf(const AbstractMeasurementJob& job) {
    const auto& info = job.getLastJobInfo();
    if (info.status == JobStatusEnum::FINISHED) return {};
    if (info.error) return info.error;
    return ErrorObject(ErrorCodeEnum::UNKNOWN_ERR, messages::UNKNOWN_ERROR);
}

std::string_view textOf(const json::object& object, std::string_view key) {
    const auto* value = object.if_contains(key);
    return value != nullptr && value->is_string() ? std::string_view(value->get_string()) : std::string_view();
}

ErrorObject unexpected(const std::exception& error) {
    return ErrorObject(ErrorCodeEnum::UNEXPECTED_EXCEPTION, messages::UNEXPECTED_EXCEPTION, exceptionText(error));
}

/// The start reply carries the job's id and possibly its information.
void applyStartReply(AbstractMeasurementJob& job, const json::object& reply) {
    JobInfo info = job.getLastJobInfo();
    if (const auto* jobInfo = reply.if_contains("job_info"); jobInfo != nullptr && jobInfo->is_object()) {
        try {
            info = jobInfoFromJson(jobInfo->get_object());
        } catch (const std::exception& error) {
            std::cerr << "velmar_link: job information of the start reply ignored: " << exceptionText(error) << '\n';
        }
    }
    if (const auto id = textOf(reply, "job_id"); !id.empty()) info.job_id = id;
    if (info.status == JobStatusEnum::UNKNOWN || isFinal(info.status)) info.status = JobStatusEnum::PENDING;
    job.setLastJobInfo(info);
}

/// The top-level outcome of a "JOB_DONE" without job information: status, detail and error
/// only, and only over a stored status that is not final. False when it has no final status.
bool applyTopLevelOutcome(AbstractMeasurementJob& job, const json::object& message) {
    const auto status = jobStatusFromName(textOf(message, "status"));
    if (!status || !isFinal(*status)) return false;
    if (isFinal(job.getLastJobStatus())) return true;
    JobInfo info = job.getLastJobInfo();
    info.status = *status;
    if (const auto detail = jobStatusDetailFromName(textOf(message, "status_detail"))) {
        info.status_detail = *detail;
    } else {
        info.status_detail = *status == JobStatusEnum::FINISHED ? JobStatusDetailEnum::RUN_TO_COMPLETION
                                                                : JobStatusDetailEnum::RUNTIME_ERROR;
    }
    if (const auto* error = message.if_contains("error"); error != nullptr && error->is_object()) {
        info.error = errorObjectFromJson(*error);
    }
    job.setLastJobInfo(info);
    return true;
}

/// The "JOB_DONE" frame: the job information replaces the stored one; without it only the
/// top-level outcome counts; anything that leaves no final status fails the job
/// (JSON_MALFORMED, RUNTIME_ERROR). A finished job then decodes its result.
void applyJobDone(AbstractMeasurementJob& job, const json::object& message) {
    const auto garbage = [&job](std::string_view what) {
        job.setFailed(sessionmsg::malformedError(what), JobStatusDetailEnum::RUNTIME_ERROR);
    };
    if (const auto* info = message.if_contains("job_info")) {
        if (!info->is_object()) return garbage("JOB_DONE whose 'job_info' is not an object");
        try {
            job.processJobResult(message);
        } catch (const std::exception& error) {
            return garbage(exceptionText(error));
        }
    }
    if (!isFinal(job.getLastJobStatus()) && !applyTopLevelOutcome(job, message)) {
        return garbage("JOB_DONE without a final 'status'");
    }
    if (job.getLastJobStatus() == JobStatusEnum::FINISHED) job.extractJobResult(message);
}

JobStatusDetailEnum detailOfFailedReply(const ErrorObject& error) {
    switch (error.code) {
    case ErrorCodeEnum::STOPPED_MANUALLY: return JobStatusDetailEnum::STOPPED_BY_USER;
    case ErrorCodeEnum::CONNECTION_NOT_ESTABLISHED: return JobStatusDetailEnum::NOT_CONNECTED;
    case ErrorCodeEnum::CONNECTION_BROKEN:
    case ErrorCodeEnum::CONNECTION_WAS_CLOSED: return JobStatusDetailEnum::CONNECTION_LOSS;
    default: return JobStatusDetailEnum::FAILED_TO_CREATE;
    }
}

/// "job_id" of the event, or of its "job_info".
std::optional<std::string_view> jobIdOfEvent(const json::object& event) {
    if (const auto* id = event.if_contains("job_id"); id != nullptr && id->is_string()) return std::string_view(id->get_string());
    if (const auto* info = event.if_contains("job_info"); info != nullptr && info->is_object()) {
        if (const auto* id = info->get_object().if_contains("job_id"); id != nullptr && id->is_string()) {
            return std::string_view(id->get_string());
        }
    }
    return std::nullopt;
}

bool isLiveData(EventTypeEnum type) {
    return type >= EventTypeEnum::LIVE_DATA_HEADER && type <= EventTypeEnum::LIVE_DATA_FINISHED;
}

/// The events after which events without a job id belong to this run.
bool makesRunCurrent(EventTypeEnum type, const json::object& event) {
    if (type == EventTypeEnum::LIVE_DATA_HEADER || type == EventTypeEnum::LIVE_DATA_HEADER_EIS) return true;
    return type == EventTypeEnum::JOB_STATUS_UPDATE && textOf(event, "new_status") == "RUNNING";
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// The run table

Impl::JobRunPtr Impl::findRun(const AbstractMeasurementJob& job) {
    std::lock_guard lock(tableMutex);
    for (const auto& [requestId, run] : pendingJobs) {
        if (run->job == &job) return run;
    }
    return nullptr;
}

Impl::JobRunPtr Impl::takeRun(const std::string& requestId) {
    std::lock_guard lock(tableMutex);
    auto entry = pendingJobs.find(requestId);
    if (entry == pendingJobs.end()) return nullptr;
    auto run = std::move(entry->second);
    pendingJobs.erase(entry);
    if (currentRunRequestId == requestId) currentRunRequestId.clear();
    return run;
}

template <class Apply>
bool Impl::completeRun(JobRun& run, Apply&& apply) {
    {
        std::lock_guard lock(run.mutex);
        if (run.completed) return false;
        run.completed = true;
        if (run.job != nullptr) {
            try {
                apply(*run.job);
            } catch (const std::exception& error) {
                run.job->setFailed(unexpected(error), JobStatusDetailEnum::RUNTIME_ERROR);
            }
        }
    }
    run.done.set();
    return true;
}

// Any thread, also from inside CancellationSignals::emitSignal: only records and wakes. The
// waiting thread applies the failure (settleRun), so no job is touched from here.
void Impl::cancelRun(JobRun& run, CancellationReason reason) {
    int expected = -1;
    run.cancelReason.compare_exchange_strong(expected, static_cast<int>(reason));
    run.done.set();
}

void Impl::settleRun(JobRun& run) {
    std::lock_guard lock(run.mutex);
    const int reason = run.cancelReason.load();
    if (run.completed || reason < 0) return;
    run.completed = true;
    const auto why = static_cast<CancellationReason>(reason);
    if (run.job != nullptr) run.job->setFailed(sessionmsg::cancellationError(why), sessionmsg::cancellationDetail(why));
}

void Impl::awaitRun(const JobRunPtr& run) {
    for (;;) {
        TimePoint deadline;
        {
            std::lock_guard lock(run->mutex);
            if (run->completed) return;
            deadline = run->started ? TimePoint::max() : run->startDeadline;
        }
        if (waitFor(run->done, deadline)) {
            settleRun(*run);
            return;
        }
        bool started = false;
        {
            std::lock_guard lock(run->mutex);
            if (run->completed) return;
            started = run->started;
            if (started && deadline != TimePoint::max()) continue;
        }
        // No start reply in time (the waiting thread's own deadline), or a virtual runtime
        // with nothing left to run.
        (void)takePendingRequest(run->requestId);
        (void)takeRun(run->requestId);
        completeRun(*run, [started](AbstractMeasurementJob& job) {
            job.setFailed(ErrorFactory::makeError<ErrorCodeEnum::OPERATION_TIMED_OUT>(),
                          started ? JobStatusDetailEnum::RUNTIME_ERROR : JobStatusDetailEnum::FAILED_TO_CREATE);
        });
        return;
    }
}

// I/O thread (or the caller's, for a reply synthesised at once).
void Impl::onStartReply(const JobRunPtr& run, const json::object& reply) {
    if (LinkJsonSession::wasSuccessful(reply)) {
        std::lock_guard lock(run->mutex);
        if (run->completed) return;
        try {
            applyStartReply(*run->job, reply);
        } catch (const std::exception& error) {
            std::cerr << "velmar_link: start reply not applied: " << exceptionText(error) << '\n';
        }
        run->jobId = run->job->getLastJobInfo().job_id;
        run->started = true;
        return;
    }
    // A "JOB_DONE" that came first (or a cancellation) has ended the run already.
    if (!takeRun(run->requestId)) return;
    auto error = LinkJsonSession::getError(reply);
    const auto detail = detailOfFailedReply(error);
    completeRun(*run, [&](AbstractMeasurementJob& job) { job.setFailed(std::move(error), detail); });
}

// I/O thread.
void Impl::routeEventToJob(EventTypeEnum type, const json::object& event) {
    if (type == EventTypeEnum::UNKNOWN || type == EventTypeEnum::MESSAGE_FROM_SERVER || type == EventTypeEnum::JOB_DONE) {
        return;  // not job data; the "JOB_DONE" frame ends the run
    }
    const auto jobId = jobIdOfEvent(event);
    JobRunPtr run;
    bool known = false;
    {
        std::lock_guard lock(tableMutex);
        if (jobId) {
            for (const auto& [requestId, candidate] : pendingJobs) {
                if (candidate->started && candidate->jobId == *jobId) {
                    run = candidate;
                    break;
                }
            }
            known = run != nullptr || std::find(failedJobIds.begin(), failedJobIds.end(), *jobId) != failedJobIds.end();
        } else if (auto current = pendingJobs.find(currentRunRequestId); current != pendingJobs.end()) {
            run = current->second;
        } else {
            // Before any header or RUNNING status, a single started run is the only owner there is.
            for (const auto& [requestId, candidate] : pendingJobs) {
                if (!candidate->started) continue;
                if (run) {
                    run = nullptr;
                    break;
                }
                run = candidate;
            }
        }
        if (run && makesRunCurrent(type, event)) currentRunRequestId = run->requestId;
    }
    if (!run) {
        if (isLiveData(type) && !known) {
            std::cerr << "velmar_link: " << enumName(type) << " event dropped: "
                      << (jobId ? "job " + std::string(*jobId) + " is not running on this link"
                                : std::string("no job id and no current job"))
                      << '\n';
        }
        return;
    }
    ErrorObject error;
    {
        std::lock_guard lock(run->mutex);
        if (run->completed || !run->eventHandler) return;
        try {
            error = run->eventHandler(type, event);
        } catch (const std::exception& failure) {
            error = sessionmsg::malformedError(exceptionText(failure));
        } catch (...) {
            error = sessionmsg::malformedError("unknown exception");
        }
    }
    if (error) failRunOnMalformedEvent(run, type, std::move(error));
}

// I/O thread: the run ends FAILED (RUNTIME_ERROR) with the decoder's error; the rest of its
// events are dropped.
void Impl::failRunOnMalformedEvent(const JobRunPtr& run, EventTypeEnum type, ErrorObject error) {
    (void)takeRun(run->requestId);
    {
        std::lock_guard lock(tableMutex);
        failedJobIds.push_back(run->jobId);
        if (failedJobIds.size() > FAILED_JOB_IDS_KEPT) failedJobIds.pop_front();
    }
    std::cerr << "velmar_link: malformed " << enumName(type) << " event fails job " << run->jobId << ": "
              << ErrorFormatters::defaultFormatter().getFormatted(error) << '\n';
    completeRun(*run, [&](AbstractMeasurementJob& job) { job.setFailed(std::move(error), JobStatusDetailEnum::RUNTIME_ERROR); });
}

// ---------------------------------------------------------------------------------------------
// Public job operations

ErrorObject LinkJsonSession::doJob(AbstractMeasurementJob& job) {
    auto& d = *impl_;
    if (d.isIoThread()) return sessionmsg::blockingCallError();
    if (!job.tryMarkRunning()) return ErrorObject(ErrorCodeEnum::INVALID_PARAMETER, messages::JOB_ALREADY_RUNNING);
    struct RunningMark {
        AbstractMeasurementJob& job;
        ~RunningMark() { job.clearRunning(); }
    } mark{job};

    if (!isConnected()) {
        job.setFailed(ErrorFactory::makeError<ErrorCodeEnum::CONNECTION_NOT_ESTABLISHED>(),
                      JobStatusDetailEnum::NOT_CONNECTED);
        return job.getLastJobInfo().error;
    }
    // Each run replaces the stored job information.
    JobInfo fresh;
    fresh.type = job.getName();
    fresh.job_meta = job.getMetaData();
    fresh.options = job.getJobOptions();
    job.setLastJobInfo(fresh);

    json::object request;
    try {
        request = makeJobRequestObject("/job/start", job);
    } catch (const std::exception& error) {
        job.setFailed(unexpected(error), JobStatusDetailEnum::FAILED_TO_CREATE);
        return job.getLastJobInfo().error;
    }
    if (auto path = findNonFiniteNumber(request)) {
        job.setFailed(sessionmsg::notANumberError(*path), JobStatusDetailEnum::FAILED_TO_CREATE);
        return job.getLastJobInfo().error;
    }

    auto run = std::make_shared<Impl::JobRun>();
    run->requestId = generateRequestId();
    run->job = &job;
    run->startDeadline = d.now() + getRequestTimeout();
    // Connected before the run is visible, so that no cancellation can pass it by.
    auto slot = d.jobWaits.connect(
        [&d, run](boost::asio::cancellation_type type) { d.cancelRun(*run, sessionmsg::reasonOf(type)); });
    {
        std::lock_guard lock(d.tableMutex);
        d.pendingJobs.emplace(run->requestId, run);
    }
    job.setEventHandlers(*this);
    if (!run->done.isSet()) {
        d.startRequest(
            run->requestId, request, [&d, run](json::object&& reply) { d.onStartReply(run, reply); },
            d.deadlineAfter(0));
    }
    d.awaitRun(run);
    d.jobWaits.release(slot);
    (void)d.takeRun(run->requestId);
    job.removeEventHandlers(*this);
    return outcomeOf(job);
}

ErrorObject LinkJsonSession::waitForJobToFinish(AbstractMeasurementJob& job) {
    auto& d = *impl_;
    if (d.isIoThread()) return sessionmsg::blockingCallError();
    const auto run = d.findRun(job);
    if (!run) return outcomeOf(job);
    auto slot = d.jobWaits.connect(
        [&d, run](boost::asio::cancellation_type type) { d.cancelRun(*run, sessionmsg::reasonOf(type)); });
    const bool ended = d.waitFor(run->done, Impl::TimePoint::max());
    d.jobWaits.release(slot);
    if (!ended) return ErrorFactory::makeError<ErrorCodeEnum::OPERATION_TIMED_OUT>();
    d.settleRun(*run);
    std::lock_guard lock(run->mutex);  // the ending has been applied in full
    return outcomeOf(job);
}

ErrorObject LinkJsonSession::checkJobParameters(AbstractMeasurementJob& job) {
    json::object request;
    try {
        request = makeJobRequestObject("/job/check_parameters", job);
    } catch (const std::exception& error) {
        return unexpected(error);
    }
    const auto reply = sendRequest(std::move(request));
    if (wasSuccessful(reply)) return {};
    if (textOf(reply, "status") == "FAILED" && reply.contains("error")) return getError(reply);
    return ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::REPLY_STATUS_INVALID);
}

std::expected<JobInfo, ErrorObject> LinkJsonSession::getJobInfo(const AbstractMeasurementJob& job) {
    return requests::call(*this, requests::JOB_INFO, {{"job_id", job.getLastJobInfo().job_id}});
}

std::expected<std::vector<JobInfo>, ErrorObject> LinkJsonSession::getJobInfoList(bool excludeFinished) {
    return requests::call(*this, requests::JOB_LIST, {{"exclude_finished", excludeFinished}});
}

std::expected<std::shared_ptr<DataSet>, ErrorObject> LinkJsonSession::getJobResultData(AbstractMeasurementJob& job) {
    return velmar::getJobResultData(*this, job);
}

void LinkJsonSession::setJobEventHandler(const AbstractMeasurementJob& job, JobEventHandler handler) {
    if (const auto run = impl_->findRun(job)) {
        std::lock_guard lock(run->mutex);
        run->eventHandler = std::move(handler);
    }
}

void LinkJsonSession::clearJobEventHandler(const AbstractMeasurementJob& job) {
    if (const auto run = impl_->findRun(job)) {
        JobEventHandler previous;
        std::lock_guard lock(run->mutex);
        previous = std::exchange(run->eventHandler, {});
    }
}

// ---------------------------------------------------------------------------------------------
// The low-level job table

void LinkJsonSession::addPendingJob(const std::string& requestId, ReplyHandler handler, AbstractMeasurementJob* job) {
    auto run = std::make_shared<Impl::JobRun>();
    run->requestId = requestId;
    run->job = job;
    run->handler = std::move(handler);
    std::lock_guard lock(impl_->tableMutex);
    impl_->pendingJobs.insert_or_assign(requestId, std::move(run));
}

void LinkJsonSession::updatePendingJob(const std::string& requestId, const json::object& message) {
    Impl::JobRunPtr run;
    {
        std::lock_guard lock(impl_->tableMutex);
        auto entry = impl_->pendingJobs.find(requestId);
        if (entry == impl_->pendingJobs.end()) return;
        run = entry->second;
    }
    std::lock_guard lock(run->mutex);
    if (run->job == nullptr || run->completed) return;
    JobInfo info = run->job->getLastJobInfo();
    if (const auto id = textOf(message, "job_id"); !id.empty()) info.job_id = id;
    if (const auto status = jobStatusFromName(textOf(message, "status"))) info.status = *status;
    run->job->setLastJobInfo(info);
    run->jobId = info.job_id;
    run->started = true;
}

void LinkJsonSession::resolvePendingJob(const std::string& requestId, const json::object& message) {
    auto run = impl_->takeRun(requestId);
    if (!run) return;
    if (run->handler) {
        run->handler(message);
        return;
    }
    impl_->completeRun(*run, [&](AbstractMeasurementJob& job) { applyJobDone(job, message); });
}

bool LinkJsonSession::removePendingJob(const std::string& requestId) { return impl_->takeRun(requestId) != nullptr; }

void LinkJsonSession::handleJobDone(const json::object& message) {
    const auto requestId = sessionmsg::requestIdOf(message);
    if (!requestId) {
        std::cerr << "velmar_link: JOB_DONE without 'request_id' dropped\n";
        return;
    }
    resolvePendingJob(*requestId, message);
}

}  // namespace velmar
