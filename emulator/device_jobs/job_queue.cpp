#include "emulator/device_jobs/job_queue.hpp"

#include "emulator/ac_jobs/ac_executor.hpp"
#include "emulator/ac_jobs/ac_messages.hpp"
#include "emulator/ac_jobs/ac_result.hpp"
#include "emulator/core/emulator_messages.hpp"
#include "emulator/core/request_params.hpp"
#include "emulator/device_jobs/dc_executor.hpp"
#include "emulator/device_jobs/job_catalog.hpp"
#include "emulator/device_jobs/job_messages.hpp"
#include "json_common/jobs/job_options.hpp"
#include "json_common/logging/error_object_json.hpp"

#include <boost/json.hpp>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace velmar::emulator {

namespace json = boost::json;

namespace {

/// How often a job whose start reply has not been sent is checked for a lost connection.
constexpr std::chrono::milliseconds kAnnounceCheck{1000};

}  // namespace

/// One job as the device keeps it.
struct JobQueue::Job {
    std::string id;
    std::string connectionId;
    json::value requestId;
    std::string type;
    const JobKind* kind = nullptr;
    json::object parameters;
    json::array stopConditions;
    json::object meta;
    JobOptions options;
    JobStatusEnum status = JobStatusEnum::PENDING;
    JobStatusDetailEnum detail = JobStatusDetailEnum::NOT_FINISHED;
    std::string created, started, ended;
    ErrorObject error;
    std::optional<json::object> result;
    std::string resultResourceId;
    std::unique_ptr<MeasurementExecutor> executor;
    /// Emulated seconds since the measurement started (advanced by the ticks).
    double elapsed = 0.0;
    /// The PENDING event has been sent and the queue kicked (see announce()).
    bool announced = false;
    /// What the job holds, counted against DeviceJobsOptions::endedJobsKeptBytes once ended.
    std::size_t retainedBytes = 0;

    bool isEnded() const { return status == JobStatusEnum::FINISHED || status == JobStatusEnum::FAILED; }
};

class JobQueue::RunContext final : public JobRunContext {
public:
    RunContext(JobQueue& queue, Job& job) : queue_(queue), job_(job) {}
    const std::string& jobId() const override { return job_.id; }
    json::object jobInfo() const override { return queue_.jobInfo(job_); }
    void sendEvent(json::object event) override {
        queue_.model_.sendEvent(job_.connectionId, std::move(event));
    }
    void log(std::string message) override { queue_.log(job_, std::move(message)); }

private:
    JobQueue& queue_;
    Job& job_;
};

JobQueue::JobQueue(DeviceModel& model, DeviceJobsOptions options)
    : model_(model),
      options_(std::move(options)),
      hardware_(model.identity().serialNumber, options_.cellSpec) {}

JobQueue::~JobQueue() = default;

double JobQueue::timeScale() const {
    const double scale = model_.options().timeScale;
    return scale > 0.0 && std::isfinite(scale) ? scale : 1.0;
}

std::string JobQueue::timestamp() const {
    return isoUtc(hardware_.now());
}

bool JobQueue::busy() const {
    std::lock_guard lock(mutex_);
    return running_ != nullptr || !pending_.empty() || !bypassing_.empty();
}

json::object JobQueue::jobInfo(const Job& job) const {
    json::object info;
    info.reserve(13);
    info["job_id"] = job.id;
    info["status"] = jobStatusName(job.status);
    info["status_detail"] = jobStatusDetailName(job.detail);
    info["type"] = job.type;
    info["created"] = job.created;
    info["started"] = job.started;
    info["ended"] = job.ended;
    info["error"] = errorObjectToJson(job.error);
    info["options"] = json::value_from(job.options);
    info["job_meta"] = job.meta;
    info["parameters"] = job.parameters;
    info["stop_conditions"] = job.stopConditions;
    if (!job.resultResourceId.empty()) info["result_resource_id"] = job.resultResourceId;
    return info;
}

void JobQueue::sendStatus(const Job& job) {
    model_.sendEvent(job.connectionId, json::object{{"type", "JOB_STATUS_UPDATE"},
                                                    {"new_status", jobStatusName(job.status)},
                                                    {"job_info", jobInfo(job)}});
}

void JobQueue::log(const Job& job, std::string message) {
    model_.sendEvent(job.connectionId, json::object{{"type", "MESSAGE_FROM_JOB"},
                                                    {"job_id", job.id},
                                                    {"severity", "MESSAGE"},
                                                    {"date_time", timestamp()},
                                                    {"message", std::move(message)}});
}

// Reads and checks a job request. `partial` receives what could be read, so that a refusal
// can still report the type and options in its job information.
std::expected<std::shared_ptr<JobQueue::Job>, ErrorObject> JobQueue::parse(const RequestContext& context,
                                                                           CheckEnum check,
                                                                           Job& partial) const {
    partial.options = jobOptionsFromJson(json::value(context.request));
    const auto* jobValue = context.request.if_contains("job");
    if (jobValue == nullptr || !jobValue->is_object()) {
        return std::unexpected(ErrorObject(ErrorCodeEnum::PROPERTY_OBJECT_MISSING,
                                           job_messages::PROPERTY_OBJECT_MISSING, "job"));
    }
    const auto& request = jobValue->get_object();
    auto type = requireString(request, "type");
    if (!type) return std::unexpected(type.error());
    partial.type = std::string(*type);
    if (const auto* meta = request.if_contains("job_meta"); meta != nullptr && meta->is_object())
        partial.meta = meta->get_object();
    if (auto path = findNonFiniteNumber(*jobValue, "job")) return std::unexpected(notANumber(*path));
    const auto* kind = findJobKind(*type);
    if (kind == nullptr)
        return std::unexpected(
            ErrorObject(ErrorCodeEnum::TYPE_NAME_UNKNOWN, job_messages::TYPE_NAME_UNKNOWN, *type));

    auto job = std::make_shared<Job>();
    job->type = partial.type;
    job->kind = kind;
    job->options = partial.options;
    job->meta = partial.meta;
    if (const auto* parameters = request.if_contains("parameters"); parameters != nullptr) {
        if (!parameters->is_object()) {
            return std::unexpected(ErrorObject(ErrorCodeEnum::PROPERTY_OBJECT_MISSING,
                                               job_messages::PROPERTY_OBJECT_MISSING, "parameters"));
        }
        job->parameters = parameters->get_object();
    }
    if (const auto* conditions = request.if_contains("stop_conditions");
        conditions != nullptr && !conditions->is_null()) {
        if (!conditions->is_array()) {
            return std::unexpected(ErrorObject(ErrorCodeEnum::PARAMETER_FORMAT_INVALID,
                                               messages::PARAMETER_FORMAT_INVALID, "stop_conditions",
                                               "an array"));
        }
        job->stopConditions = conditions->get_array();
    }
    partial.parameters = job->parameters;
    partial.stopConditions = job->stopConditions;

    if (job->options.bypass_queue && kind->family != JobFamilyEnum::CONTROL) {
        return std::unexpected(ErrorObject(ErrorCodeEnum::QUEUE_BYPASS_NOT_ALLOWED,
                                           job_messages::QUEUE_BYPASS_NOT_ALLOWED, job->type));
    }
    if (auto error = checkParameterKeys(*kind, job->parameters)) return std::unexpected(std::move(error));
    if (auto error = hardware_.validate(job->type, job->parameters, model_.resources()))
        return std::unexpected(std::move(error));
    if (const auto* executor = executors_.find(job->type); executor != nullptr && executor->validate) {
        const ExecutorSetup setup{job->type, job->parameters, job->stopConditions, hardware_,
                                  model_.resources()};
        if (auto error = executor->validate(setup)) return std::unexpected(std::move(error));
    }
    if (auto error = checkStopConditions(*kind, job->stopConditions))
        return std::unexpected(std::move(error));
    if (check == CheckEnum::CREATE && !job->options.bypass_queue) {
        std::lock_guard lock(mutex_);
        if (pending_.size() >= options_.queueCapacity) {
            return std::unexpected(
                ErrorObject(ErrorCodeEnum::QUEUE_FULL, job_messages::QUEUE_FULL, pending_.size()));
        }
    }
    if (check == CheckEnum::CREATE && job->options.bypass_queue) {
        std::lock_guard lock(mutex_);
        const auto bypassing = static_cast<std::size_t>(std::ranges::count_if(
            jobs_, [](const auto& entry) { return entry.second->options.bypass_queue && !entry.second->isEnded(); }));
        if (bypassing >= options_.bypassCapacity) {
            return std::unexpected(
                ErrorObject(ErrorCodeEnum::QUEUE_FULL, job_messages::BYPASS_FULL, std::uint64_t{bypassing}));
        }
    }
    return job;
}

EndpointResult JobQueue::start(const RequestContext& context) {
    Job partial;
    auto parsed = parse(context, CheckEnum::CREATE, partial);
    const json::value* requestId = context.request.if_contains("request_id");
    if (!parsed) {
        // The refusal is the reply; the "JOB_DONE" after it ends the job for clients that
        // wait for the completion instead.
        partial.id = model_.ids().uuid();
        partial.status = JobStatusEnum::FAILED;
        partial.detail = JobStatusDetailEnum::FAILED_TO_CREATE;
        partial.error = parsed.error();
        partial.created = partial.ended = timestamp();
        json::object done{{"type", "JOB_DONE"}};
        if (requestId != nullptr) done["request_id"] = *requestId;
        done["job_id"] = partial.id;
        done["status"] = jobStatusName(partial.status);
        done["status_detail"] = jobStatusDetailName(partial.detail);
        done["job_info"] = jobInfo(partial);
        done["error"] = errorObjectToJson(partial.error);
        auto result = EndpointResult::failure(std::move(parsed.error()));
        result.afterReply.push_back(TextStep{json::serialize(done)});
        return result;
    }
    auto job = std::move(*parsed);
    job->id = model_.ids().uuid();
    job->connectionId = context.connection.id;
    if (requestId != nullptr) job->requestId = *requestId;
    job->created = timestamp();
    {
        std::lock_guard lock(mutex_);
        jobs_[job->id] = job;
        order_.push_back(job->id);
        if (!job->options.bypass_queue) pending_.push_back(job);
    }
    auto result = EndpointResult::success(json::object{{"job_id", job->id}, {"job_info", jobInfo(*job)}});
    // Status events and the run begin once the reply has been queued, so that the client
    // knows the job id before any event of the job arrives.
    result.afterReply.push_back(ActionStep{[weak = weak_from_this(), job] {
        if (auto self = weak.lock()) self->announce(job);
    }});
    // Should the reply never be sent (the connection closed instead), the job is announced
    // once its connection has gone.
    watchUnannounced(job);
    return result;
}

void JobQueue::announce(const std::shared_ptr<Job>& job) {
    std::lock_guard lock(mutex_);
    if (job->announced || job->isEnded()) return;  // stopped before its reply went out
    job->announced = true;
    sendStatus(*job);
    if (job->options.bypass_queue) {
        bypassing_.push_back(job);
        run(job);
    } else {
        startNext();
    }
}

void JobQueue::watchUnannounced(const std::shared_ptr<Job>& job) {
    model_.scheduler().schedule(kAnnounceCheck, [weak = weak_from_this(), job] {
        auto self = weak.lock();
        if (!self || job->announced || job->isEnded()) return;
        if (self->model_.connections().find(job->connectionId)) {
            self->watchUnannounced(job);
        } else {
            self->announce(job);
        }
    });
}

void JobQueue::startNext() {
    // A job whose reply has not gone out yet waits; it kicks the queue when announced.
    if (running_ || pending_.empty() || !pending_.front()->announced) return;
    running_ = pending_.front();
    pending_.pop_front();
    run(running_);
}

void JobQueue::scheduleStartNext() {
    model_.scheduler().schedule(std::chrono::milliseconds(0), [weak = weak_from_this()] {
        if (auto self = weak.lock()) {
            std::lock_guard lock(self->mutex_);
            self->startNext();
        }
    });
}

void JobQueue::run(const std::shared_ptr<Job>& job) {
    job->status = JobStatusEnum::RUNNING;
    job->started = timestamp();
    sendStatus(*job);
    log(*job, "job '" + job->type + "' started");

    const bool measurement = job->kind->family == JobFamilyEnum::DC || job->kind->family == JobFamilyEnum::AC;
    if (measurement) {
        const auto* registration = executors_.find(job->type);
        if (registration == nullptr || !registration->create) {
            finish(job, JobStatusEnum::FAILED, JobStatusDetailEnum::RUNTIME_ERROR,
                   ErrorObject(ErrorCodeEnum::HARDWARE_CONFIGURATION_ISSUE, job_messages::NOT_EMULATED,
                               job->type));
            return;
        }
        auto executor = registration->create(
            ExecutorSetup{job->type, job->parameters, job->stopConditions, hardware_, model_.resources()});
        if (!executor) {
            finish(job, JobStatusEnum::FAILED, JobStatusDetailEnum::RUNTIME_ERROR,
                   std::move(executor.error()));
            return;
        }
        job->executor = std::move(*executor);
        RunContext context(*this, *job);
        job->executor->start(context);
        const auto period = job->executor->tickPeriod(timeScale());
        model_.scheduler().schedule(period, [weak = weak_from_this(), job, period] {
            if (auto self = weak.lock()) self->tick(job, period);
        });
        return;
    }

    const double seconds = std::max(0.0, hardware_.duration(job->type, job->parameters)) / timeScale();
    const auto delay = std::chrono::milliseconds(static_cast<long long>(std::llround(seconds * 1000.0)));
    model_.scheduler().schedule(delay, [weak = weak_from_this(), job] {
        auto self = weak.lock();
        if (!self) return;
        std::lock_guard lock(self->mutex_);
        if (job->status != JobStatusEnum::RUNNING) return;  // stopped meanwhile
        auto outcome = self->hardware_.execute(job->type, job->parameters, self->model_.resources());
        if (!outcome) {
            self->finish(job, JobStatusEnum::FAILED, JobStatusDetailEnum::RUNTIME_ERROR,
                         std::move(outcome.error()));
            return;
        }
        if (job->kind->singleValue) job->result = std::move(*outcome);
        self->finish(job, JobStatusEnum::FINISHED, JobStatusDetailEnum::RUN_TO_COMPLETION, {});
    });
}

// The emulated clock of a measurement advances by the tick period times the time scale per
// tick, so that its data do not depend on the load of the machine.
void JobQueue::tick(const std::shared_ptr<Job>& job, std::chrono::milliseconds period) {
    std::lock_guard lock(mutex_);
    if (job->status != JobStatusEnum::RUNNING || !job->executor) return;
    job->elapsed += std::chrono::duration<double>(period).count() * timeScale();
    RunContext context(*this, *job);
    if (auto outcome = job->executor->advance(job->elapsed, context)) {
        const bool completed = outcome->detail == JobStatusDetailEnum::RUN_TO_COMPLETION;
        finish(job, completed ? JobStatusEnum::FINISHED : JobStatusEnum::FAILED, outcome->detail,
               std::move(outcome->error));
        return;
    }
    model_.scheduler().schedule(period, [weak = weak_from_this(), job, period] {
        if (auto self = weak.lock()) self->tick(job, period);
    });
}

void JobQueue::finish(const std::shared_ptr<Job>& job, JobStatusEnum status, JobStatusDetailEnum detail,
                      ErrorObject error) {
    if (job->isEnded()) return;
    job->status = status;
    job->detail = detail;
    job->error = std::move(error);
    job->ended = timestamp();
    if (job->executor) {
        // The result resource exists before anything announces the end.
        if (!job->options.discard_result_data) {
            if (auto data = job->executor->resultData(jobInfo(*job))) {
                auto stored =
                    model_.resources().createJobResult("job " + job->id, std::move(data->subType), job->id,
                                                       std::move(data->header), std::move(data->bytes));
                if (stored) {
                    job->resultResourceId = stored->resourceId;
                } else {
                    log(*job, "job result not stored: " + stored.error().message);
                }
            }
        }
        RunContext context(*this, *job);
        job->executor->finish(jobInfo(*job), context);
        job->executor.reset();
    }
    sendStatus(*job);
    log(*job, "job '" + job->type + "' ended " + std::string(jobStatusName(status)) + " (" +
                  std::string(jobStatusDetailName(detail)) + ")");
    const auto info = jobInfo(*job);
    model_.sendEvent(job->connectionId, json::object{{"type", "JOB_DONE"}, {"job_info", info}});

    json::object done{{"type", "JOB_DONE"}};
    if (!job->requestId.is_null()) done["request_id"] = job->requestId;
    done["job_id"] = job->id;
    done["status"] = jobStatusName(status);
    done["status_detail"] = jobStatusDetailName(detail);
    done["job_info"] = info;
    if (job->result) done["result"] = *job->result;
    if (job->error) done["error"] = errorObjectToJson(job->error);
    model_.sendFrame(job->connectionId, done);

    job->retainedBytes = kJobOverheadBytes + json::serialize(job->parameters).size() +
                         json::serialize(job->stopConditions).size() + json::serialize(job->meta).size() +
                         (job->result ? json::serialize(*job->result).size() : 0);
    endedBytes_ += job->retainedBytes;
    std::erase(bypassing_, job);
    std::erase(pending_, job);
    if (running_ == job) {
        running_.reset();
        scheduleStartNext();
    }
    forgetOldJobs();
}

void JobQueue::forgetOldJobs() {
    std::size_t ended = 0;
    for (const auto& [id, job] : jobs_) ended += job->isEnded() ? 1 : 0;
    const auto overBound = [&] { return ended > options_.endedJobsKept || endedBytes_ > options_.endedJobsKeptBytes; };
    for (auto it = order_.begin(); it != order_.end() && overBound();) {
        const auto found = jobs_.find(*it);
        if (found != jobs_.end() && found->second->isEnded()) {
            endedBytes_ -= found->second->retainedBytes;
            jobs_.erase(found);
            it = order_.erase(it);
            --ended;
        } else {
            ++it;
        }
    }
}

void JobQueue::stop(const StopRequest& request) {
    std::lock_guard lock(mutex_);
    std::vector<std::shared_ptr<Job>> runningJobs = bypassing_;
    if (running_) runningJobs.insert(runningJobs.begin(), running_);
    for (const auto& job : runningJobs) {
        if (job->executor) job->executor->stop();
        finish(job, JobStatusEnum::FAILED, JobStatusDetailEnum::STOPPED_BY_USER,
               ErrorObject(ErrorCodeEnum::STOPPED_MANUALLY, job_messages::STOPPED_MANUALLY));
    }
    if (request.queue != StopQueueModeEnum::CONTINUE) {
        const auto flushed = std::vector<std::shared_ptr<Job>>(pending_.begin(), pending_.end());
        for (const auto& job : flushed) {
            finish(job, JobStatusEnum::FAILED, JobStatusDetailEnum::CANCELLED_BEFORE_RUN,
                   ErrorObject(ErrorCodeEnum::STOPPED_MANUALLY_BEFORE_RUN,
                               job_messages::STOPPED_MANUALLY_BEFORE_RUN));
        }
    }
}

EndpointResult JobQueue::info(const RequestContext& context) {
    auto id = requireString(context.request, "job_id");
    if (!id) return EndpointResult::failure(id.error());
    std::lock_guard lock(mutex_);
    const auto found = jobs_.find(*id);
    if (found == jobs_.end()) {
        return EndpointResult::failure(
            ErrorObject(ErrorCodeEnum::ID_NOT_FOUND, job_messages::ID_NOT_FOUND, "job", "job_id", *id));
    }
    return EndpointResult::success(json::object{{"job_info", jobInfo(*found->second)}});
}

struct JobQueue::ReplaceableResult {
    Job* job;
    ResourceInfo old;
};

std::expected<JobQueue::ReplaceableResult, ErrorObject> JobQueue::replaceableResult(std::string_view id,
                                                                                    std::string_view subType,
                                                                                    std::string_view noResult) {
    const auto found = jobs_.find(std::string(id));
    if (found == jobs_.end()) {
        return std::unexpected(ErrorObject(ErrorCodeEnum::ID_NOT_FOUND, job_messages::ID_NOT_FOUND, "job", "job_id", id));
    }
    Job& job = *found->second;
    const auto missing = ErrorObject(ErrorCodeEnum::ID_NOT_FOUND, noResult, job.id);
    if (!job.isEnded() || job.resultResourceId.empty()) return std::unexpected(missing);
    auto old = model_.resources().info(ResourceTypeEnum::JOB_RESULT, job.resultResourceId);
    if (!old || old->subType != subType) return std::unexpected(missing);
    return ReplaceableResult{&job, std::move(*old)};
}

std::expected<ResourceInfo, ErrorObject> JobQueue::replaceResult(ReplaceableResult& target, double bytes,
                                                                 json::object header,
                                                                 const std::function<std::string()>& make) {
    auto& store = model_.resources();
    const auto available = store.capacityBytes() - store.usedBytes() + target.old.size;
    if (bytes > double(available)) {
        return std::unexpected(ErrorObject(ErrorCodeEnum::OUT_OF_MEMORY, messages::RESOURCE_STORE_FULL, bytes, available));
    }
    Job& job = *target.job;
    auto content = make();
    (void)store.remove(ResourceTypeEnum::JOB_RESULT, job.resultResourceId);
    auto stored = store.createJobResult("job " + job.id, target.old.subType, job.id, std::move(header), std::move(content));
    if (!stored) {
        job.resultResourceId.clear();
        return std::unexpected(stored.error());
    }
    job.resultResourceId = stored->resourceId;
    return stored;
}

// I/O thread. The new result keeps the old one's header (columns, job information) with the
// new "number_of_rows"; column 0 holds r x 1e-3, column c > 0 holds c + r x 1e-9 in row r.
EndpointResult JobQueue::makeDcResult(const RequestContext& context) {
    constexpr std::uint64_t MAX_ROWS = 40'000'000;
    auto id = requireString(context.request, "job_id");
    if (!id) return EndpointResult::failure(id.error());
    auto rows = optionalUnsigned(context.request, "rows", 0, MAX_ROWS);
    if (!rows) return EndpointResult::failure(rows.error());
    std::lock_guard lock(mutex_);
    auto target = replaceableResult(*id, "DATASET_DC", job_messages::NO_DC_RESULT);
    if (!target) return EndpointResult::failure(target.error());
    std::size_t columns = 0;
    boost::system::error_code ec;
    const json::value oldHeader(target->old.header);
    if (const auto* dimensions = oldHeader.find_pointer("/job_data_header/dimensions", ec);
        dimensions != nullptr && dimensions->is_array()) {
        columns = dimensions->get_array().size();
    }
    const auto count = static_cast<std::size_t>(*rows);
    auto header = target->old.header;
    header["number_of_rows"] = *rows;
    auto stored = replaceResult(*target, double(columns) * double(count) * sizeof(double), std::move(header), [&] {
        std::string bytes(columns * count * sizeof(double), '\0');
        for (std::size_t c = 0; c < columns; ++c) {
            auto* out = bytes.data() + c * count * sizeof(double);
            for (std::size_t r = 0; r < count; ++r) {
                const auto row = static_cast<double>(r);
                const double value = c == 0 ? row * 1e-3 : static_cast<double>(c) + row * 1e-9;
                std::memcpy(out + r * sizeof(double), &value, sizeof(double));
            }
        }
        return bytes;
    });
    if (!stored) return EndpointResult::failure(stored.error());
    return EndpointResult::success(
        json::object{{"resource_id", stored->resourceId}, {"number_of_rows", *rows}, {"columns", columns}});
}

// I/O thread. The new result keeps the old one's header with the new "number_of_rows"; its
// content is acSyntheticResult's.
EndpointResult JobQueue::makeAcResult(const RequestContext& context) {
    constexpr std::uint64_t MAX_POINTS = 10'000'000;
    constexpr std::uint64_t MAX_SAMPLES = 100'000'000;
    auto id = requireString(context.request, "job_id");
    if (!id) return EndpointResult::failure(id.error());
    auto points = optionalUnsigned(context.request, "points", 0, MAX_POINTS);
    if (!points) return EndpointResult::failure(points.error());
    auto samples = optionalUnsigned(context.request, "samples", 0, MAX_SAMPLES);
    if (!samples) return EndpointResult::failure(samples.error());
    std::lock_guard lock(mutex_);
    auto target = replaceableResult(*id, "DATASET_AC", ac_messages::NO_AC_RESULT);
    if (!target) return EndpointResult::failure(target.error());
    const auto* jobDataHeader = target->old.header.if_contains("job_data_header");
    const auto shape = jobDataHeader != nullptr && jobDataHeader->is_object()
                           ? acSyntheticShape(jobDataHeader->get_object())
                           : std::nullopt;
    if (!shape) return EndpointResult::failure(ErrorObject(ErrorCodeEnum::ID_NOT_FOUND, ac_messages::NO_AC_RESULT,
                                                           target->job->id));
    // In doubles, which cannot overflow here.
    const double needed = (double(*points) * double(shape->columns) +
                           double(shape->syncPaths) * double(*points) * double(*samples)) *
                          sizeof(double);
    auto header = target->old.header;
    header["number_of_rows"] = *points;
    auto stored = replaceResult(*target, needed, std::move(header), [&] {
        return acSyntheticResult(jobDataHeader->get_object(), *shape, *points, *samples);
    });
    if (!stored) return EndpointResult::failure(stored.error());
    return EndpointResult::success(json::object{{"resource_id", stored->resourceId},
                                                {"number_of_rows", *points},
                                                {"columns", shape->columns},
                                                {"sync_paths", shape->syncPaths},
                                                {"size", stored->size}});
}

EndpointResult JobQueue::list(const RequestContext& context) {
    bool excludeFinished = false;
    if (const auto* exclude = context.request.if_contains("exclude_finished");
        exclude != nullptr && !exclude->is_null()) {
        if (!exclude->is_bool()) {
            return EndpointResult::failure(ErrorObject(ErrorCodeEnum::PARAMETER_FORMAT_INVALID,
                                                       messages::PARAMETER_FORMAT_INVALID, "exclude_finished",
                                                       "a boolean"));
        }
        excludeFinished = exclude->get_bool();
    }
    std::lock_guard lock(mutex_);
    json::array jobs;
    for (const auto& id : order_) {
        const auto& job = *jobs_.at(id);
        if (!excludeFinished || !job.isEnded()) jobs.push_back(jobInfo(job));
    }
    return EndpointResult::success(json::object{{"jobs", std::move(jobs)}});
}

EndpointResult JobQueue::checkParameters(const RequestContext& context) {
    Job partial;
    auto parsed = parse(context, CheckEnum::CHECK_ONLY, partial);
    if (!parsed) return EndpointResult::failure(std::move(parsed.error()));
    return EndpointResult::success();
}

std::shared_ptr<JobQueue> installDeviceJobs(DeviceModel& model, DeviceJobsOptions options) {
    auto queue = std::make_shared<JobQueue>(model, std::move(options));
    registerDcExecutors(queue->executors());
    registerAcExecutors(queue->executors());
    auto& endpoints = model.endpoints();
    endpoints.add("/job/start", [queue](const RequestContext& c) { return queue->start(c); },
                  NumberCheckEnum::BY_HANDLER);
    endpoints.add("/job/info", [queue](const RequestContext& c) { return queue->info(c); });
    endpoints.add("/job/list", [queue](const RequestContext& c) { return queue->list(c); });
    endpoints.add("/job/check_parameters",
                  [queue](const RequestContext& c) { return queue->checkParameters(c); },
                  NumberCheckEnum::BY_HANDLER);
    endpoints.add("/emulator/make_dc_result", [queue](const RequestContext& c) { return queue->makeDcResult(c); });
    endpoints.add("/emulator/make_ac_result", [queue](const RequestContext& c) { return queue->makeAcResult(c); });
    std::weak_ptr<JobQueue> weak = queue;
    model.setStopHandler([weak](const StopRequest& request) {
        if (auto self = weak.lock()) self->stop(request);
    });
    model.setBusyProvider([weak] {
        auto self = weak.lock();
        return self && self->busy();
    });
    return queue;
}

}  // namespace velmar::emulator
