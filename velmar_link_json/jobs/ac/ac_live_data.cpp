#include "velmar_link_json/jobs/ac/ac_live_data.hpp"

#include "json_common/logging/error_messages.hpp"
#include "json_common/logging/exception_text.hpp"
#include "velmar_link_json/jobs/abstract_measurement_job.hpp"
#include "velmar_link_json/jobs/ac/ac_live_data_messages.hpp"
#include "velmar_link_json/link_json_session.hpp"

#include <boost/json.hpp>

#include <string>
#include <string_view>

namespace velmar {

namespace json = boost::json;

namespace {

ErrorObject malformed(std::string_view what) {
    return ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::JSON_MALFORMED, what);
}

ErrorObject tableMismatch(std::string_view what) {
    return ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::AC_DATA_TABLE_MISMATCH, what);
}

/// The record readers throw their mismatch texts whole; the part after the common beginning
/// becomes the parameter. Anything else is plain malformed JSON.
ErrorObject fromReaderFailure(const std::exception& failure) {
    const std::string text = exceptionText(failure);
    if (std::string_view(text).starts_with(messages::AC_DATA_TABLE_MISMATCH_PREFIX)) {
        return tableMismatch(std::string_view(text).substr(messages::AC_DATA_TABLE_MISMATCH_PREFIX.size()));
    }
    return malformed(text);
}

/// Reads a record from the event object with the record's own reader; never throws.
template <class Record>
std::expected<Record, ErrorObject> readRecord(const json::object& event) {
    try {
        // The readers take a value; the event is copied into one.
        return json::value_to<Record>(json::value(event));
    } catch (const std::exception& failure) {
        return std::unexpected(fromReaderFailure(failure));
    }
}

}  // namespace

std::expected<LiveDataHeaderEis, ErrorObject> decodeAcLiveDataHeader(const json::object& event) {
    const auto* header = event.if_contains("header");
    if (header == nullptr) return std::unexpected(malformed("live data event without 'header'"));
    if (!header->is_object()) return std::unexpected(malformed("live data 'header' is not an object"));
    try {
        return json::value_to<LiveDataHeaderEis>(*header);
    } catch (const std::exception& failure) {
        return std::unexpected(fromReaderFailure(failure));
    }
}

std::expected<LiveDataRowEis, ErrorObject> decodeAcLiveDataRow(const json::object& event,
                                                              const LiveDataHeaderEis* header) {
    if (header == nullptr) return std::unexpected(tableMismatch(messages::AC_ROW_BEFORE_HEADER));
    auto row = readRecord<LiveDataRowEis>(event);
    if (!row) return row;
    if (auto why = checkRowAgainstHeader(*row, *header); !why.empty()) return std::unexpected(tableMismatch(why));
    return row;
}

std::expected<LiveDataWavesEis, ErrorObject> decodeAcLiveDataWaves(const json::object& event,
                                                                  const LiveDataHeaderEis* header) {
    if (header == nullptr) return std::unexpected(tableMismatch(messages::AC_WAVES_BEFORE_HEADER));
    auto waves = readRecord<LiveDataWavesEis>(event);
    if (!waves) return waves;
    if (auto why = checkWavesAgainstHeader(*waves, *header); !why.empty()) return std::unexpected(tableMismatch(why));
    return waves;
}

std::expected<JobInfo, ErrorObject> decodeAcJobInfo(const json::object& event, const JobInfo& current) {
    const auto* info = event.if_contains("job_info");
    if (info == nullptr) return current;
    if (!info->is_object()) return std::unexpected(malformed("live data 'job_info' is not an object"));
    try {
        return jobInfoFromJson(info->get_object());
    } catch (const std::exception& failure) {
        return std::unexpected(malformed("live data job information unreadable: " + exceptionText(failure)));
    }
}

AcMeasurementJobFeatures::AcMeasurementJobFeatures(const AbstractMeasurementJob& job,
                                                   std::vector<AcLiveDataHandlerFunction> handlers)
    : job_(&job), handlers_(std::move(handlers)) {}

AcMeasurementJobFeatures::AcMeasurementJobFeatures(const AbstractMeasurementJob& job,
                                                   const AcMeasurementJobFeatures& other)
    : job_(&job), handlers_(other.handlers_) {}

void AcMeasurementJobFeatures::addLivedataEventHandler(AcLiveDataHandlerFunction&& handler) {
    handlers_.push_back(std::move(handler));
}

void AcMeasurementJobFeatures::setEventHandlers(LinkJsonSession& session) {
    header_.reset();
    session.setJobEventHandler(*job_, [this](EventTypeEnum type, const json::object& event) {
        return handleEvent(type, event);
    });
}

void AcMeasurementJobFeatures::removeEventHandlers(LinkJsonSession& session) { session.clearJobEventHandler(*job_); }

void AcMeasurementJobFeatures::dispatch(const AcLiveDataMessage& message) const {
    for (const auto& handler : handlers_) {
        if (handler) handler(message);
    }
}

ErrorObject AcMeasurementJobFeatures::handleEvent(EventTypeEnum type, const json::object& event) {
    switch (type) {
    case EventTypeEnum::LIVE_DATA_HEADER_EIS: return headerEventHandler(event);
    case EventTypeEnum::LIVE_DATA_ROW_EIS: return rowEisEventHandler(event);
    case EventTypeEnum::LIVE_DATA_WAVES: return wavesEventHandler(event);
    case EventTypeEnum::LIVE_DATA_FINISHED: return finishedEventHandler(event);
    default: return {};
    }
}

ErrorObject AcMeasurementJobFeatures::headerEventHandler(const json::object& event) {
    auto header = decodeAcLiveDataHeader(event);
    if (!header) return std::move(header).error();
    auto info = decodeAcJobInfo(event, job_->getLastJobInfo());
    if (!info) return std::move(info).error();
    header_ = *header;
    dispatch(AcLiveDataHeaderMessage{std::move(*header), std::move(*info)});
    return {};
}

ErrorObject AcMeasurementJobFeatures::rowEisEventHandler(const json::object& event) {
    auto row = decodeAcLiveDataRow(event, getLastHeader());
    if (!row) return std::move(row).error();
    dispatch(AcLiveDataRowMessage{std::move(*row)});
    return {};
}

ErrorObject AcMeasurementJobFeatures::wavesEventHandler(const json::object& event) {
    auto waves = decodeAcLiveDataWaves(event, getLastHeader());
    if (!waves) return std::move(waves).error();
    dispatch(AcLiveDataWavesMessage{std::move(*waves)});
    return {};
}

ErrorObject AcMeasurementJobFeatures::finishedEventHandler(const json::object& event) {
    auto info = decodeAcJobInfo(event, job_->getLastJobInfo());
    if (!info) return std::move(info).error();
    dispatch(AcLiveDataFinishedMessage{std::move(*info)});
    return {};
}

}  // namespace velmar
