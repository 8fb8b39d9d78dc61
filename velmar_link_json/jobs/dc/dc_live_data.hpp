#pragma once

#include "json_common/logging/error_object.hpp"
#include "json_common/protocol/event_type.hpp"
#include "json_common/protocol/live_data_header.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"
#include "velmar_link_json/jobs/dc/dc_dataset.hpp"

#include <boost/json/fwd.hpp>
#include <boost/system/error_code.hpp>

#include <cstddef>
#include <expected>
#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <variant>
#include <vector>

namespace velmar {

class AbstractMeasurementJob;
class LinkJsonSession;

/// The live-data header of a DC job, with the job's information at the time it arrived.
struct DcLiveDataHeaderMessage {
    LiveDataHeader header;
    JobInfo jobInfo;
};

/// A block of rows exactly as received, stored flat (row-major) to keep ingestion cheap.
struct DcLiveDataRowsMessage {
    /// Values per row (the header's column count; for array rows the length of the rows).
    std::size_t columns = 0;
    /// rowCount() x columns values, one row after the other.
    std::vector<double> values;

    std::size_t rowCount() const { return columns == 0 ? 0 : values.size() / columns; }
    std::span<const double> row(std::size_t index) const { return {values.data() + index * columns, columns}; }
    /// The rows as a list of lists.
    std::vector<std::vector<double>> toRows() const;
};

/// The end of the live data, with the final job information.
struct DcLiveDataFinishedMessage {
    JobInfo jobInfo;
};

/// What a DC live-data handler receives: one of the three live-data events of the job.
using DcLiveDataMessage = std::variant<DcLiveDataHeaderMessage, DcLiveDataRowsMessage, DcLiveDataFinishedMessage>;
using DcLiveDataHandlerFunction = std::function<void(const DcLiveDataMessage&)>;

/// True exactly when the message's "/type" is "EVENT" and its "/event/type" is a text equal to
/// `type`; a missing member, a member of another kind or a pointer error gives false.
bool isEventOfType(boost::system::error_code& ec, const boost::json::value& message, std::string_view type);

/// Decoders of the three DC live-data events. None throws: an event that cannot be read gives
/// a text saying what is wrong with it.
std::expected<LiveDataHeader, std::string> decodeDcLiveDataHeader(const boost::json::object& event);
/// `columns`: the column count of the last header (0: no header yet, which is an error). Rows
/// are arrays of exactly `columns` numbers, or Base64 text of whole binary rows.
std::expected<DcLiveDataRowsMessage, std::string> decodeDcLiveDataRows(const boost::json::object& event,
                                                                      std::size_t columns);
/// "job_info" when present (it must be an object), otherwise `current`.
std::expected<JobInfo, std::string> decodeDcLiveDataFinished(const boost::json::object& event, const JobInfo& current);

/// The live-data machinery shared by all DC job kinds: the caller's handlers and the decoder
/// that the session calls with the events of this job's run (routed by job id).
/// Events are decoded and handlers called on the session's I/O thread, in the order added;
/// handlers are added on the owner thread before the job starts. The owning job must outlive
/// its run.
class DcMeasurementJobFeatures {
public:
    explicit DcMeasurementJobFeatures(const AbstractMeasurementJob& job,
                                      std::vector<DcLiveDataHandlerFunction> handlers = {});
    /// Copies the handlers for another job (the registration is not copied).
    DcMeasurementJobFeatures(const AbstractMeasurementJob& job, const DcMeasurementJobFeatures& other);

    void addLivedataEventHandler(DcLiveDataHandlerFunction&& handler);
    const std::vector<DcLiveDataHandlerFunction>& getLivedataEventHandlers() const { return handlers_; }

    /// Registers handleEvent as the decoder of the job's run with the session.
    void setEventHandlers(LinkJsonSession& session);
    void removeEventHandlers(LinkJsonSession& session);

    /// One event of the job: "LIVE_DATA_HEADER", "LIVE_DATA_ROWS" and "LIVE_DATA_FINISHED" are
    /// decoded and passed to every handler; other types are ignored. An event that cannot be
    /// read reaches no handler and gives JSON_MALFORMED "json malformed: {0}" saying why.
    ErrorObject handleEvent(EventTypeEnum type, const boost::json::object& event);
    ErrorObject headerEventHandler(const boost::json::object& event);
    ErrorObject rowEventHandler(const boost::json::object& event);
    ErrorObject finishedEventHandler(const boost::json::object& event);

private:
    void dispatch(const DcLiveDataMessage& message) const;

    const AbstractMeasurementJob* job_;
    std::vector<DcLiveDataHandlerFunction> handlers_;
    /// Columns of the last header of the current run (0: none yet).
    std::size_t columns_ = 0;
};

/// Collects a job's live data into a DcDataset. Single-threaded use: call it from the
/// handler only, read the dataset after the job has ended.
class DcLiveDataHandler {
public:
    void operator()(const DcLiveDataMessage& message);
    /// A handler function that feeds this collector (which must outlive the job's run).
    DcLiveDataHandlerFunction asFunction() {
        return [this](const DcLiveDataMessage& message) { (*this)(message); };
    }
    const DcDataset& getDataset() const { return dataset_; }
    DcDataset takeDataset() { return std::move(dataset_); }
    bool isFinished() const { return finished_; }

private:
    DcDataset dataset_;
    bool finished_ = false;
};

}  // namespace velmar
