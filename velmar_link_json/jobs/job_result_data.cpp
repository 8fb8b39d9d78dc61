#include "velmar_link_json/jobs/job_runner.hpp"

#include "json_common/logging/error_messages.hpp"
#include "json_common/protocol/live_data_eis.hpp"
#include "json_common/protocol/live_data_header.hpp"
#include "velmar_link_json/jobs/abstract_measurement_job.hpp"
#include "velmar_link_json/jobs/ac/eis_dataset.hpp"
#include "velmar_link_json/jobs/ac/eis_result_destination.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"
#include "velmar_link_json/jobs/dc/dc_dataset.hpp"
#include "velmar_link_json/jobs/dc/dc_result_destination.hpp"
#include "velmar_link_json/binary_destination.hpp"
#include "velmar_link_json/link_json_session.hpp"

#include <boost/json.hpp>

#include <optional>

namespace velmar {

namespace json = boost::json;

namespace {

bool isRunning(JobStatusEnum status) { return status == JobStatusEnum::PENDING || status == JobStatusEnum::RUNNING; }

/// Downloads the resource into the destination; a transport that delivers frames whole hands
/// the frame over afterwards.
ErrorObject downloadInto(LinkJsonSession& session, const Resource& resource,
                         const std::shared_ptr<BinaryDestination>& destination) {
    std::string payload;
    if (auto failure = session.retrieveFullResource(resource, destination, payload, 0)) return failure;
    if (destination->failure) return *destination->failure;
    if (!destination->filled) {
        const std::string frame(std::move(payload));
        destination->storeWhole(frame);
    }
    return {};
}

}  // namespace

std::expected<std::shared_ptr<DataSet>, ErrorObject> getJobResultData(LinkJsonSession& session,
                                                                       AbstractMeasurementJob& job) {
    if (job.getJobOptions().discard_result_data) {
        return std::unexpected(ErrorObject(ErrorCodeEnum::RESULT_DATA_DISCARDED, messages::RESULT_DATA_DISCARDED));
    }
    if (isRunning(job.getLastJobStatus())) {
        // The result resource is complete only when the job has ended; a failed job may still
        // have left partial data, so its error does not stop the download.
        const auto waited = waitForJob(session, job);
        if (waited.code == ErrorCodeEnum::STOPPED_MANUALLY || waited.code == ErrorCodeEnum::CONNECTION_WAS_CLOSED ||
            waited.code == ErrorCodeEnum::CONNECTION_BROKEN || waited.code == ErrorCodeEnum::CONNECTION_NOT_ESTABLISHED) {
            return std::unexpected(waited);
        }
    }
    const std::string& jobId = job.getLastJobInfo().job_id;
    auto resources = session.getResourceList(ResourceTypeEnum::JOB_RESULT);
    if (!resources) return std::unexpected(std::move(resources).error());
    const Resource* resource = nullptr;
    for (const auto& candidate : *resources) {
        if (candidate.job_id == jobId) {
            resource = &candidate;
            break;
        }
    }
    if (resource == nullptr) {
        return std::unexpected(ErrorObject(ErrorCodeEnum::ID_NOT_FOUND, messages::ID_NOT_FOUND, "job result", "job_id", jobId));
    }
    const bool isDc = resource->sub_type == "DATASET_DC";
    if (!isDc && resource->sub_type != "DATASET_AC") {
        return std::unexpected(ErrorObject(ErrorCodeEnum::RESOURCE_TYPE_MISMATCH, messages::DATASET_TYPE_MISMATCH));
    }
    const auto* dataHeader = resource->header.if_contains("job_data_header");
    if (dataHeader == nullptr || !dataHeader->is_object()) {
        return std::unexpected(ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::RESULT_HEADER_NOT_OBJECT));
    }
    std::optional<LiveDataHeader> dcHeader;
    std::optional<LiveDataHeaderEis> eisHeader;
    if (isDc) {
        auto header = liveDataHeaderFromJson(*dataHeader);
        if (!header) {
            return std::unexpected(ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::RESULT_HEADER_UNPARSABLE));
        }
        dcHeader = std::move(*header);
    } else {
        try {
            eisHeader = json::value_to<LiveDataHeaderEis>(*dataHeader);
        } catch (const std::exception&) {
            return std::unexpected(ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::RESULT_HEADER_UNPARSABLE));
        }
    }
    JobInfo info = job.getLastJobInfo();
    if (const auto* jobInfo = resource->header.if_contains("job_info"); jobInfo != nullptr && jobInfo->is_object()) {
        try {
            info = jobInfoFromJson(*jobInfo);
        } catch (const std::exception&) {
            return std::unexpected(ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::RESULT_HEADER_UNPARSABLE));
        }
    }

    // The frame is written straight into the tracks (and the waves), which are sized from the
    // frame's stated length, never from the announced row count alone; the destination owns
    // them until the transport has finished writing.
    std::optional<std::uint64_t> announcedRows;
    if (const auto* rows = resource->header.if_contains("number_of_rows")) {
        auto converted = json::try_value_to<std::uint64_t>(*rows);
        if (!converted) {
            return std::unexpected(ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::RESULT_HEADER_UNPARSABLE));
        }
        announcedRows = *converted;
    }
    if (isDc) {
        auto destination = std::make_shared<DcResultDestination>(dcHeader->columns.size(), announcedRows);
        if (auto failure = downloadInto(session, *resource, destination)) return std::unexpected(std::move(failure));
        auto dataset = destination->takeDataset(std::move(*dcHeader), std::move(info));
        if (!dataset) return std::unexpected(std::move(dataset).error());
        return std::make_shared<DcDataset>(std::move(*dataset));
    }
    auto destination = std::make_shared<EisResultDestination>(*eisHeader, announcedRows);
    if (auto failure = downloadInto(session, *resource, destination)) return std::unexpected(std::move(failure));
    auto dataset = destination->takeDataset(std::move(*eisHeader), std::move(info),
                                            static_cast<int>(session.getDeviceProtocolVersion()));
    if (!dataset) return std::unexpected(std::move(dataset).error());
    return std::make_shared<EisDataset>(std::move(*dataset));
}

}  // namespace velmar
