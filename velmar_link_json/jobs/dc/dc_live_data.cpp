#include "velmar_link_json/jobs/dc/dc_live_data.hpp"

#include "json_common/base64.hpp"
#include "velmar_link_json/jobs/abstract_measurement_job.hpp"
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
    headerCallback_ = std::make_shared<Callback>([this](const json::object& event) { headerEventHandler(event); });
    rowsCallback_ = std::make_shared<Callback>([this](const json::object& event) { rowEventHandler(event); });
    finishedCallback_ = std::make_shared<Callback>([this](const json::object& event) { finishedEventHandler(event); });
    session.setEventHandler(EventTypeEnum::LIVE_DATA_HEADER, headerCallback_);
    session.setEventHandler(EventTypeEnum::LIVE_DATA_ROWS, rowsCallback_);
    session.setEventHandler(EventTypeEnum::LIVE_DATA_FINISHED, finishedCallback_);
}

void DcMeasurementJobFeatures::removeEventHandlers(LinkJsonSession& session) {
    if (headerCallback_) session.clearEventHandler(EventTypeEnum::LIVE_DATA_HEADER, headerCallback_);
    if (rowsCallback_) session.clearEventHandler(EventTypeEnum::LIVE_DATA_ROWS, rowsCallback_);
    if (finishedCallback_) session.clearEventHandler(EventTypeEnum::LIVE_DATA_FINISHED, finishedCallback_);
    headerCallback_.reset();
    rowsCallback_.reset();
    finishedCallback_.reset();
}

void DcMeasurementJobFeatures::dispatch(const DcLiveDataMessage& message) const {
    for (const auto& handler : handlers_) {
        if (handler) handler(message);
    }
}

void DcMeasurementJobFeatures::headerEventHandler(const json::object& event) {
    DcLiveDataHeaderMessage message{json::value_to<LiveDataHeader>(event.at("header")), job_->getLastJobInfo()};
    columns_ = message.header.columns.size();
    dispatch(message);
}

void DcMeasurementJobFeatures::rowEventHandler(const json::object& event) {
    const json::value& data = event.at("data");
    DcLiveDataMessage message{std::in_place_type<DcLiveDataRowsMessage>};
    auto& rows = std::get<DcLiveDataRowsMessage>(message);
    if (const auto* text = data.if_string()) {
        const std::string_view encoded(*text);
        if (encoded.size() % 4 != 0) throw boost::system::system_error(make_error_code(json::error::not_string));
        const std::size_t bytes = decodedBase64Size(encoded);
        rows.columns = columns_;
        if (columns_ == 0 || bytes % (columns_ * sizeof(double)) != 0) {
            throw boost::system::system_error(make_error_code(json::error::size_mismatch));
        }
        rows.values.resize(bytes / sizeof(double));
        // Little-endian targets decode straight into the row storage.
        static_assert(std::endian::native == std::endian::little, "binary rows are little-endian");
        if (!decodeBase64Into(encoded, reinterpret_cast<char*>(rows.values.data()))) {
            throw boost::system::system_error(make_error_code(json::error::not_string));
        }
    } else {
        const auto& array = data.as_array();
        if (!array.empty()) rows.columns = array.front().as_array().size();
        rows.values.reserve(array.size() * rows.columns);
        for (const auto& element : array) {
            const auto& row = element.as_array();
            if (row.size() != rows.columns) throw boost::system::system_error(make_error_code(json::error::size_mismatch));
            for (const auto& value : row) rows.values.push_back(value.to_number<double>());
        }
    }
    dispatch(message);
}

void DcMeasurementJobFeatures::finishedEventHandler(const json::object& event) {
    DcLiveDataFinishedMessage message;
    if (const auto* info = event.if_contains("job_info")) {
        message.jobInfo = jobInfoFromJson(*info);
    } else {
        message.jobInfo = job_->getLastJobInfo();
    }
    dispatch(message);
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
