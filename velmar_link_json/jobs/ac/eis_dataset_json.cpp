// The impedance dataset from a job result given as an array of recorded live-data events.

#include "json_common/logging/error_messages.hpp"
#include "json_common/logging/velmar_link_exception.hpp"
#include "velmar_link_json/jobs/ac/eis_dataset.hpp"
#include "velmar_link_json/jobs/ac/eis_messages.hpp"
#include "velmar_link_json/jobs/common/recorded_events.hpp"

#include <boost/json.hpp>

#include <stdexcept>

namespace velmar {

namespace json = boost::json;

namespace {

ErrorObject malformed(std::string text) {
    return ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::JSON_MALFORMED, std::move(text));
}

}  // namespace

std::expected<EisDataset, ErrorObject> eisDatasetFromJsonArray(const json::array& events, LiveDataHeaderEis&& header,
                                                               JobInfo&& jobInfo) {
    EisDataset dataset(std::move(header), JobInfo(jobInfo));
    bool finished = false;
    for (const auto& element : events) {
        const std::string_view type = recordedEventType(element);
        boost::system::error_code ec;
        if (type == "LIVE_DATA_HEADER_EIS") {
            const auto* value = element.find_pointer("/event/header", ec);
            if (value == nullptr) {
                return std::unexpected(
                    ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::EIS_EVENT_MEMBER_MISSING, "/event/header"));
            }
            try {
                auto parsed = json::value_to<LiveDataHeaderEis>(*value);
                dataset = EisDataset(std::move(parsed), JobInfo(jobInfo));
            } catch (const std::invalid_argument& error) {
                return std::unexpected(malformed(error.what()));
            }
        } else if (type == "LIVE_DATA_ROW_EIS") {
            // The group lists are at the top level of the event.
            const auto* value = element.find_pointer("/event", ec);
            LiveDataRowEis row;
            try {
                row = json::value_to<LiveDataRowEis>(*value);
            } catch (const std::invalid_argument& error) {
                return std::unexpected(malformed(error.what()));
            }
            if (const auto why = checkRowAgainstHeader(row, dataset.getHeader()); !why.empty()) {
                return std::unexpected(ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::AC_DATA_TABLE_MISMATCH, why));
            }
            dataset.appendDataRow(row);
        } else if (type == "LIVE_DATA_FINISHED") {
            if (const auto* info = element.find_pointer("/event/job_info", ec); info != nullptr && info->is_object()) {
                jobInfo = jobInfoFromJson(*info);
                finished = true;
            }
        }
    }
    if (!finished) return dataset;
    // The job information arrives last; the dataset is rebuilt around the collected data.
    LiveDataHeaderEis kept = dataset.getHeader();
    return EisDataset(std::move(kept), std::move(dataset.impedancesForWriting()), std::move(dataset.pathsForWriting()),
                      std::move(dataset.pathsWavesForWriting()), std::move(dataset.asyncPathsForWriting()),
                      std::move(dataset.potentiostatsForWriting()), std::move(dataset.metaForWriting()),
                      std::move(jobInfo));
}

EisDataset tag_invoke(const json::value_to_tag<EisDataset>&, const json::value& jv) {
    const auto* events = jv.if_array();
    if (events == nullptr) throw VelmarLinkException(malformed(std::string(messages::EIS_EVENTS_NOT_ARRAY)));
    auto dataset = eisDatasetFromJsonArray(*events, LiveDataHeaderEis{}, JobInfo{});
    if (!dataset) throw VelmarLinkException(std::move(dataset).error());
    return std::move(*dataset);
}

}  // namespace velmar
