#include "emulator/device_jobs/dc_executor.hpp"

#include "emulator/core/emulator_messages.hpp"
#include "emulator/core/resource_store.hpp"
#include "emulator/dc_jobs/dc_job_run.hpp"
#include "emulator/device_jobs/device_limits.hpp"
#include "emulator/device_jobs/hardware_model.hpp"
#include "emulator/device_jobs/job_catalog.hpp"
#include "emulator/device_jobs/job_messages.hpp"
#include "emulator/device_jobs/stop_condition_monitor.hpp"

#include <boost/json.hpp>

#include <algorithm>
#include <bit>
#include <cstring>

namespace velmar::emulator {

namespace json = boost::json;

namespace {

constexpr std::string_view kDcKinds[] = {"cv",   "ac_cv",    "fast_cycling", "ramp", "steady_stairs",
                                         "poga", "ocv",      "npv",          "dpv",  "swv",
                                         "wave", "wave_file"};

/// At most this many rows per "LIVE_DATA_ROWS" event.
constexpr std::size_t kMaxRowsPerEvent = 2000;

/// The values of a WAVE resource: its content as little-endian binary64.
std::expected<std::vector<double>, ErrorObject> waveValues(const ResourceStore& resources,
                                                           std::string_view id) {
    auto download = resources.download(ResourceTypeEnum::WAVE, id, 0);
    if (!download) return std::unexpected(download.error());
    const auto size = download->payload.size;
    if (size == 0 || size % sizeof(double) != 0) {
        return std::unexpected(
            ErrorObject(ErrorCodeEnum::RESOURCE_CONTENT_INVALID, job_messages::WAVE_RESOURCE_INVALID, id));
    }
    // Checked before the values are copied: a resource may be far larger than a wave.
    if (const auto count = static_cast<double>(size / sizeof(double)); count > limits::kMaxWaveValues) {
        return std::unexpected(ErrorObject(ErrorCodeEnum::PARAMETER_VALUE_TOO_HIGH, messages::PARAMETER_VALUE_TOO_HIGH,
                                           "values", count, limits::kMaxWaveValues));
    }
    static_assert(std::endian::native == std::endian::little, "wave resources are little-endian");
    std::vector<double> values(size / sizeof(double));
    std::memcpy(values.data(), download->payload.owner->data(), size);
    return values;
}

ErrorObject validateDc(const ExecutorSetup& setup) {
    const auto& p = setup.parameters;
    // The key ranges have been checked by the catalogue; the waveform checks what follows
    // from them (steps, duration, rows) before anything is built.
    std::vector<double> fileValues;
    if (setup.type == "wave_file") {
        auto values = waveValues(setup.resources, p.at("resource_id").get_string());
        if (!values) return values.error();
        fileValues = std::move(*values);
    }
    auto waveform = makeDcWaveform(setup.type, p, setup.type == "wave_file" ? &fileValues : nullptr);
    return waveform ? ErrorObject{} : waveform.error();
}

class DcExecutor final : public MeasurementExecutor {
public:
    DcExecutor(std::unique_ptr<DcJobRun> run, const json::array& stopConditions)
        : run_(std::move(run)), monitor_(stopConditions, {"time", "voltage", "current"}) {}

    void start(JobRunContext& context) override {
        auto event = run_->headerEvent(context.jobId());
        event["job_info"] = context.jobInfo();
        context.sendEvent(std::move(event));
    }

    std::optional<ExecutorOutcome> advance(double elapsed, JobRunContext& context) override {
        json::array block;
        std::optional<ExecutorOutcome> outcome;
        const auto flush = [&] {
            if (block.empty()) return;
            context.sendEvent(json::object{
                {"type", "LIVE_DATA_ROWS"}, {"job_id", context.jobId()}, {"data", std::move(block)}});
            block = json::array();
        };
        // One row at a time, so that the row meeting a stop condition is the last one.
        while (!outcome) {
            auto event = run_->rowsEventUntil(elapsed, context.jobId(), RowEncodingEnum::ARRAYS, 1);
            if (!event) break;
            auto& row = event->at("data").as_array().at(0).as_array();
            const double values[3] = {row.at(0).to_number<double>(), row.at(1).to_number<double>(),
                                      row.at(2).to_number<double>()};
            block.push_back(std::move(row));
            if (auto met = monitor_.feed(values)) {
                run_->stop();
                outcome = ExecutorOutcome{JobStatusDetailEnum::FUNCTIONAL_LIMIT_OCCURRED, std::move(*met)};
            }
            if (block.size() >= kMaxRowsPerEvent) flush();
        }
        flush();
        if (!outcome && run_->done()) outcome = ExecutorOutcome{};
        return outcome;
    }

    void stop() override { run_->stop(); }

    std::optional<JobResultData> resultData(const json::object& finalJobInfo) const override {
        return JobResultData{"DATASET_DC", run_->resultHeader(finalJobInfo), run_->resultPayload()};
    }

    void finish(const json::object& finalJobInfo, JobRunContext& context) override {
        context.sendEvent(DcJobRun::finishedEvent(context.jobId(), finalJobInfo));
    }

private:
    std::unique_ptr<DcJobRun> run_;
    StopConditionMonitor monitor_;
};

std::expected<std::unique_ptr<MeasurementExecutor>, ErrorObject> createDc(const ExecutorSetup& setup) {
    std::vector<double> fileValues;
    if (setup.type == "wave_file") {
        auto values = waveValues(setup.resources, setup.parameters.at("resource_id").get_string());
        if (!values) return std::unexpected(values.error());
        fileValues = std::move(*values);
    }
    const auto potentiostat = setup.hardware.outputPotentiostat();
    const auto control =
        setup.hardware.potentiostatState(potentiostat).coupling == PotentiostatCoupling::GALVANOSTATIC
            ? CellControlEnum::GALVANOSTATIC
            : CellControlEnum::POTENTIOSTATIC;
    auto run = DcJobRun::create(setup.type, setup.parameters, setup.hardware.makeCell(potentiostat), control,
                                potentiostat, setup.type == "wave_file" ? &fileValues : nullptr);
    if (!run) return std::unexpected(run.error());
    return std::make_unique<DcExecutor>(std::move(*run), setup.stopConditions);
}

}  // namespace

void registerDcExecutors(MeasurementExecutorRegistry& registry) {
    for (const auto kind : kDcKinds)
        registry.add(std::string(kind), ExecutorRegistration{&validateDc, &createDc});
}

}  // namespace velmar::emulator
