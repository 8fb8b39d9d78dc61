#include "velmar_link_json/jobs/job_runner.hpp"

#include "json_common/logging/error_factory.hpp"
#include "json_common/logging/error_messages.hpp"
#include "velmar_link_json/jobs/abstract_measurement_job.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"
#include "velmar_link_json/jobs/measurement_job.hpp"
#include "velmar_link_json/link_json_session.hpp"

#include <boost/json.hpp>

#include <chrono>
#include <condition_variable>
#include <exception>
#include <iostream>
#include <future>
#include <map>
#include <mutex>

namespace velmar {

namespace json = boost::json;

namespace {

/// One run of one job. The session calls the reply, completion and cancellation handlers on
/// its I/O thread (cancellation also on the thread that cancels); every access to the job
/// from them happens under `mutex`, and only until the caller has detached. The first
/// completion wins; the caller wakes up only after it has been applied, so it never reads the
/// job while the job is being completed.
class JobRun {
public:
    explicit JobRun(AbstractMeasurementJob& job) : job_(&job), finished_(done_.get_future().share()) {}

    /// Applies `update` to the job unless the run has been detached.
    template <class F>
    void withJob(F&& update) {
        std::lock_guard lock(mutex_);
        if (job_ != nullptr && !completed_) update(*job_);
    }

    /// Applies the final `update` once and wakes the waiting callers.
    template <class F>
    void complete(F&& update) {
        std::lock_guard lock(mutex_);
        if (job_ == nullptr || completed_) return;
        update(*job_);
        completed_ = true;
        done_.set_value();
    }

    /// After this no handler touches the job any more.
    void detach() {
        std::lock_guard lock(mutex_);
        job_ = nullptr;
    }

    const std::shared_future<void>& finished() const { return finished_; }

private:
    std::mutex mutex_;
    AbstractMeasurementJob* job_;
    bool completed_ = false;
    std::promise<void> done_;
    std::shared_future<void> finished_;
};

// The runs in progress, so that waitForJob can follow a run started on another thread.
std::mutex activeRunsMutex;
std::map<const AbstractMeasurementJob*, std::shared_ptr<JobRun>> activeRuns;

ErrorObject unexpected(const std::exception& error) {
    return ErrorObject(ErrorCodeEnum::UNEXPECTED_EXCEPTION, messages::UNEXPECTED_EXCEPTION, error.what());
}

bool isTerminal(JobStatusEnum status) {
    return status == JobStatusEnum::FINISHED || status == JobStatusEnum::FAILED || status == JobStatusEnum::DELETED;
}

/// The value a finished run returns: success for FINISHED, otherwise the stored error.
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

/// The start reply carries the job's id (and possibly its information).
void applyStartReply(AbstractMeasurementJob& job, const json::object& reply) {
    JobInfo info = job.getLastJobInfo();
    if (const auto* jobInfo = reply.if_contains("job_info"); jobInfo != nullptr && jobInfo->is_object()) {
        try {
            info = jobInfoFromJson(jobInfo->get_object());
        } catch (const std::exception& error) {
            std::cerr << "velmar_link jobs: job information of the start reply ignored: " << error.what() << '\n';
        }
    }
    if (const auto id = textOf(reply, "job_id"); !id.empty()) info.job_id = id;
    if (info.status == JobStatusEnum::UNKNOWN) info.status = JobStatusEnum::PENDING;
    job.setLastJobInfo(info);
}

/// The "JOB_DONE" message: the job information, the outcome at the top level when the job
/// information does not give one (the session's synthesised completions), then the result.
void applyJobDone(AbstractMeasurementJob& job, const json::object& message) {
    try {
        job.processJobResult(message);
        JobInfo info = job.getLastJobInfo();
        if (!isTerminal(info.status)) {
            if (const auto status = jobStatusFromName(textOf(message, "status"))) info.status = *status;
            if (const auto detail = jobStatusDetailFromName(textOf(message, "status_detail"))) {
                info.status_detail = *detail;
            }
            if (const auto* error = message.if_contains("error"); error != nullptr && error->is_object()) {
                info.error = errorObjectFromJson(*error);
            }
            if (info.job_id.empty()) info.job_id = textOf(message, "job_id");
            job.setLastJobInfo(info);
        }
        if (job.getLastJobStatus() == JobStatusEnum::FINISHED) job.extractJobResult(message);
    } catch (const std::exception& error) {
        job.setFailed(unexpected(error), JobStatusDetailEnum::RUNTIME_ERROR);
    }
}

JobStatusDetailEnum detailOfFailedReply(const ErrorObject& error) {
    switch (error.code) {
        case ErrorCodeEnum::STOPPED_MANUALLY: return JobStatusDetailEnum::STOPPED_BY_USER;
        case ErrorCodeEnum::CONNECTION_BROKEN:
        case ErrorCodeEnum::CONNECTION_WAS_CLOSED: return JobStatusDetailEnum::CONNECTION_LOSS;
        default: return JobStatusDetailEnum::FAILED_TO_CREATE;
    }
}

class ActiveRunRegistration {
public:
    ActiveRunRegistration(const AbstractMeasurementJob& job, std::shared_ptr<JobRun> run) : job_(&job) {
        std::lock_guard lock(activeRunsMutex);
        activeRuns[job_] = std::move(run);
    }
    ~ActiveRunRegistration() {
        std::lock_guard lock(activeRunsMutex);
        activeRuns.erase(job_);
    }
    ActiveRunRegistration(const ActiveRunRegistration&) = delete;
    ActiveRunRegistration& operator=(const ActiveRunRegistration&) = delete;

private:
    const AbstractMeasurementJob* job_;
};

std::shared_ptr<JobRun> findActiveRun(const AbstractMeasurementJob& job) {
    std::lock_guard lock(activeRunsMutex);
    const auto found = activeRuns.find(&job);
    return found == activeRuns.end() ? nullptr : found->second;
}

/// Checks a typed reply: success and an object or array under `key`.
template <class Result, class Convert>
std::expected<Result, ErrorObject> readReply(const json::object& reply, std::string_view key, Convert&& convert) {
    if (!LinkJsonSession::wasSuccessful(reply)) return std::unexpected(LinkJsonSession::getError(reply));
    const auto* value = reply.if_contains(key);
    if (value == nullptr) return std::unexpected(ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::JSON_INCOMPLETE));
    try {
        return convert(*value);
    } catch (const std::exception& error) {
        return std::unexpected(ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::JSON_MALFORMED, error.what()));
    }
}

}  // namespace

ErrorObject runJob(LinkJsonSession& session, AbstractMeasurementJob& job) {
    if (!session.isConnected()) {
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

    auto request = makeJobRequestObject("/job/start", job);
    const std::string requestId = session.generateRequestId();
    request["request_id"] = requestId;

    auto run = std::make_shared<JobRun>(job);
    ActiveRunRegistration registration(job, run);
    job.setEventHandlers(session);

    session.addPendingJob(
        requestId,
        [run](const json::object& message) {
            run->complete([&](AbstractMeasurementJob& target) { applyJobDone(target, message); });
        },
        &job);

    auto cancellation = std::make_shared<std::function<void(CancellationReason)>>([run](CancellationReason reason) {
        run->complete([reason](AbstractMeasurementJob& target) {
            if (reason == CancellationReason::CONNECTION_LOSS) {
                target.setFailed(ErrorFactory::makeError<ErrorCodeEnum::CONNECTION_WAS_CLOSED>(),
                                 JobStatusDetailEnum::CONNECTION_LOSS);
            } else {
                target.setFailed(ErrorFactory::makeError<ErrorCodeEnum::STOPPED_MANUALLY>(),
                                 JobStatusDetailEnum::STOPPED_BY_USER);
            }
        });
    });
    session.addPendingOperation(cancellation);

    auto* sessionPtr = &session;
    session.sendRawRequest(
        requestId, json::serialize(request),
        [run, sessionPtr, requestId](const json::object& reply) {
            if (LinkJsonSession::wasSuccessful(reply)) {
                // Both updates under the run's lock, so that a concurrent cancellation does not
                // complete the job halfway through.
                run->withJob([&](AbstractMeasurementJob& target) {
                    applyStartReply(target, reply);
                    sessionPtr->updatePendingJob(requestId, reply);
                });
                return;
            }
            // A "JOB_DONE" that already arrived has completed the job and is used instead.
            if (!sessionPtr->removePendingJob(requestId)) return;
            auto error = LinkJsonSession::getError(reply);
            const auto detail = detailOfFailedReply(error);
            run->complete([&](AbstractMeasurementJob& target) { target.setFailed(std::move(error), detail); });
        },
        0);

    run->finished().wait();
    session.removePendingOperation(cancellation);
    (void)session.removePendingJob(requestId);
    run->detach();
    job.removeEventHandlers(session);
    return outcomeOf(job);
}

ErrorObject waitForJob(LinkJsonSession& session, AbstractMeasurementJob& job) {
    if (const auto run = findActiveRun(job)) {
        run->finished().wait();
        return outcomeOf(job);
    }
    const auto& info = job.getLastJobInfo();
    if (isTerminal(info.status) || info.job_id.empty()) return outcomeOf(job);

    // A job that is no longer followed by a run of this process (its run was cancelled while
    // the device went on): follow it through "/job/info" until it ends or the wait is
    // cancelled.
    struct Cancelled {
        std::mutex mutex;
        std::condition_variable changed;
        std::optional<CancellationReason> reason;
    };
    auto cancelled = std::make_shared<Cancelled>();
    auto operation = std::make_shared<std::function<void(CancellationReason)>>([cancelled](CancellationReason reason) {
        std::lock_guard lock(cancelled->mutex);
        cancelled->reason = reason;
        cancelled->changed.notify_all();
    });
    session.addPendingOperation(operation);
    ErrorObject result;
    for (;;) {
        auto current = getJobInfo(session, job);
        if (!current) {
            result = current.error();
            break;
        }
        job.setLastJobInfo(*current);
        if (isTerminal(current->status)) {
            result = outcomeOf(job);
            break;
        }
        std::unique_lock lock(cancelled->mutex);
        if (cancelled->changed.wait_for(lock, std::chrono::milliseconds(200), [&] { return cancelled->reason.has_value(); })) {
            result = *cancelled->reason == CancellationReason::CONNECTION_LOSS
                         ? ErrorFactory::makeError<ErrorCodeEnum::CONNECTION_WAS_CLOSED>()
                         : ErrorFactory::makeError<ErrorCodeEnum::STOPPED_MANUALLY>();
            break;
        }
    }
    session.removePendingOperation(operation);
    return result;
}

ErrorObject checkJobParameters(LinkJsonSession& session, AbstractMeasurementJob& job) {
    const auto reply = session.sendRequest(makeJobRequestObject("/job/check_parameters", job));
    if (LinkJsonSession::wasSuccessful(reply)) return {};
    if (textOf(reply, "status") == "FAILED" && reply.contains("error")) return LinkJsonSession::getError(reply);
    return ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::REPLY_STATUS_INVALID);
}

std::expected<JobInfo, ErrorObject> getJobInfo(LinkJsonSession& session, const AbstractMeasurementJob& job) {
    json::object request;
    request["do"] = "/job/info";
    request["job_id"] = job.getLastJobInfo().job_id;
    return readReply<JobInfo>(session.sendRequest(std::move(request)), "job_info",
                              [](const json::value& value) -> std::expected<JobInfo, ErrorObject> {
                                  if (!value.is_object()) {
                                      return std::unexpected(
                                          ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::JSON_INCOMPLETE));
                                  }
                                  return jobInfoFromJson(value.get_object());
                              });
}

std::expected<std::vector<JobInfo>, ErrorObject> getJobInfoList(LinkJsonSession& session, bool excludeFinished) {
    json::object request;
    request["do"] = "/job/list";
    request["exclude_finished"] = excludeFinished;
    return readReply<std::vector<JobInfo>>(
        session.sendRequest(std::move(request)), "jobs",
        [](const json::value& value) -> std::expected<std::vector<JobInfo>, ErrorObject> {
            const auto* jobs = value.if_array();
            if (jobs == nullptr) {
                return std::unexpected(ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::JSON_INCOMPLETE));
            }
            std::vector<JobInfo> infos;
            infos.reserve(jobs->size());
            for (const auto& element : *jobs) {
                const auto* object = element.if_object();
                if (object == nullptr) {
                    return std::unexpected(ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::JSON_INCOMPLETE));
                }
                infos.push_back(jobInfoFromJson(*object));
            }
            return infos;
        });
}

}  // namespace velmar
