#include "velmar_link_json/jobs/dc/dc_live_data.hpp"

#include "json_common/base64.hpp"
#include "json_common/logging/error_messages.hpp"
#include "json_common/logging/exception_text.hpp"
#include "velmar_link_json/jobs/abstract_measurement_job.hpp"
#include "velmar_link_json/jobs/dc/dc_messages.hpp"
#include "velmar_link_json/link_json_session.hpp"

#include <boost/json.hpp>

#include <bit>
#include <cstring>

namespace velmar {

namespace json = boost::json;

std::vector<std::vector<double>> DcLiveDataRowsMessage::toRows() const {
    std::vector<std::vector<double>> rows;
    rows.reserve(rowCount());
    for (std::size_t r = 0; r < rowCount(); ++r) {
        const auto part = row(r);
        rows.emplace_back(part.begin(), part.end());
    }
    return rows;
}

bool isEventOfType(boost::system::error_code& ec, const json::value& message, std::string_view type) {
    const auto* kind = message.find_pointer("/type", ec);
    if (kind == nullptr || !kind->is_string() || kind->get_string() != "EVENT") return false;
    const auto* eventType = message.find_pointer("/event/type", ec);
    return eventType != nullptr && eventType->is_string() && eventType->get_string() == type;
}

namespace {

std::string memberMissing(std::string_view key) { return "live data event without '" + std::string(key) + "'"; }

std::string rowsOf(std::size_t bytes, std::size_t columns) {
    return "a binary block of " + std::to_string(bytes) + " bytes is not a whole number of rows of " +
           std::to_string(columns) + " columns";
}

ErrorObject malformed(std::string_view what) {
    return ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::JSON_MALFORMED, what);
}

}  // namespace

std::expected<LiveDataHeader, std::string> decodeDcLiveDataHeader(const json::object& event) {
    const auto* header = event.if_contains("header");
    if (header == nullptr) return std::unexpected(memberMissing("header"));
    if (!header->is_object()) return std::unexpected(std::string("live data 'header' is not an object"));
    try {
        return json::value_to<LiveDataHeader>(*header);
    } catch (const std::exception& error) {
        return std::unexpected("live data header unreadable: " + exceptionText(error));
    }
}

std::expected<DcLiveDataRowsMessage, std::string> decodeDcLiveDataRows(const json::object& event,
                                                                      std::size_t columns) {
    if (columns == 0) return std::unexpected(std::string("live data rows before any header"));
    const auto* data = event.if_contains("data");
    if (data == nullptr || data->is_null()) return std::unexpected(memberMissing("data"));
    DcLiveDataRowsMessage rows;
    rows.columns = columns;
    if (const auto* text = data->if_string()) {
        const std::string_view encoded(*text);
        if (encoded.size() % 4 != 0) {
            return std::unexpected("Base64 rows of " + std::to_string(encoded.size()) +
                                   " characters are not whole 4-character groups");
        }
        const std::size_t bytes = decodedBase64Size(encoded);
        if (bytes % (columns * sizeof(double)) != 0) return std::unexpected(rowsOf(bytes, columns));
        rows.values.resize(bytes / sizeof(double));
        // Little-endian targets decode straight into the row storage.
        static_assert(std::endian::native == std::endian::little, "binary rows are little-endian");
        if (!decodeBase64Into(encoded, reinterpret_cast<char*>(rows.values.data()))) {
            return std::unexpected(std::string("live data rows are not valid Base64"));
        }
        return rows;
    }
    const auto* array = data->if_array();
    if (array == nullptr) return std::unexpected(std::string("live data 'data' is neither rows nor Base64 text"));
    rows.values.reserve(array->size() * columns);
    for (std::size_t r = 0; r < array->size(); ++r) {
        const auto* row = (*array)[r].if_array();
        if (row == nullptr || row->size() != columns) {
            return std::unexpected("live data row " + std::to_string(r) + " is not an array of " +
                                   std::to_string(columns) + " values (the header's columns)");
        }
        for (const auto& value : *row) {
            if (!value.is_number()) return std::unexpected(std::string(messages::DC_ROWS_NOT_NUMBERS));
            rows.values.push_back(value.to_number<double>());
        }
    }
    return rows;
}

std::expected<JobInfo, std::string> decodeDcLiveDataFinished(const json::object& event, const JobInfo& current) {
    const auto* info = event.if_contains("job_info");
    if (info == nullptr) return current;
    if (!info->is_object()) return std::unexpected(std::string("live data 'job_info' is not an object"));
    try {
        return jobInfoFromJson(info->get_object());
    } catch (const std::exception& error) {
        return std::unexpected("live data job information unreadable: " + exceptionText(error));
    }
}

DcMeasurementJobFeatures::DcMeasurementJobFeatures(const AbstractMeasurementJob& job,
                                                   std::vector<DcLiveDataHandlerFunction> handlers)
    : job_(&job), handlers_(std::move(handlers)) {}

DcMeasurementJobFeatures::DcMeasurementJobFeatures(const AbstractMeasurementJob& job,
                                                   const DcMeasurementJobFeatures& other)
    : job_(&job), handlers_(other.handlers_) {}

void DcMeasurementJobFeatures::addLivedataEventHandler(DcLiveDataHandlerFunction&& handler) {
    handlers_.push_back(std::move(handler));
}

void DcMeasurementJobFeatures::setEventHandlers(LinkJsonSession& session) {
    columns_ = 0;
    session.setJobEventHandler(*job_, [this](EventTypeEnum type, const json::object& event) {
        return handleEvent(type, event);
    });
}

void DcMeasurementJobFeatures::removeEventHandlers(LinkJsonSession& session) { session.clearJobEventHandler(*job_); }

void DcMeasurementJobFeatures::dispatch(const DcLiveDataMessage& message) const {
    for (const auto& handler : handlers_) {
        if (handler) handler(message);
    }
}

ErrorObject DcMeasurementJobFeatures::handleEvent(EventTypeEnum type, const json::object& event) {
    switch (type) {
    case EventTypeEnum::LIVE_DATA_HEADER: return headerEventHandler(event);
    case EventTypeEnum::LIVE_DATA_ROWS: return rowEventHandler(event);
    case EventTypeEnum::LIVE_DATA_FINISHED: return finishedEventHandler(event);
    default: return {};
    }
}

ErrorObject DcMeasurementJobFeatures::headerEventHandler(const json::object& event) {
    auto header = decodeDcLiveDataHeader(event);
    if (!header) return malformed(header.error());
    DcLiveDataHeaderMessage message{std::move(*header), job_->getLastJobInfo()};
    columns_ = message.header.columns.size();
    dispatch(message);
    return {};
}

ErrorObject DcMeasurementJobFeatures::rowEventHandler(const json::object& event) {
    auto rows = decodeDcLiveDataRows(event, columns_);
    if (!rows) return malformed(rows.error());
    const DcLiveDataMessage message{std::move(*rows)};
    dispatch(message);
    return {};
}

ErrorObject DcMeasurementJobFeatures::finishedEventHandler(const json::object& event) {
    auto info = decodeDcLiveDataFinished(event, job_->getLastJobInfo());
    if (!info) return malformed(info.error());
    dispatch(DcLiveDataFinishedMessage{std::move(*info)});
    return {};
}

void DcLiveDataHandler::operator()(const DcLiveDataMessage& message) {
    if (const auto* header = std::get_if<DcLiveDataHeaderMessage>(&message)) {
        LiveDataHeader copy = header->header;
        JobInfo info = header->jobInfo;
        dataset_ = DcDataset(std::move(copy), std::move(info));
        finished_ = false;
    } else if (const auto* rows = std::get_if<DcLiveDataRowsMessage>(&message)) {
        for (std::size_t r = 0; r < rows->rowCount(); ++r) {
            const auto row = rows->row(r);
            dataset_.appendDataRow(row.data(), row.size());
        }
    } else if (const auto* finished = std::get_if<DcLiveDataFinishedMessage>(&message)) {
        JobInfo info = finished->jobInfo;
        dataset_ = DcDataset(dataset_.getJobType(), dataset_.getJobTypeShort(), dataset_.getHeader(),
                             std::move(dataset_.tracksForWriting()), std::move(info));
        finished_ = true;
    }
}

}  // namespace velmar
