#pragma once

#include "json_common/protocol/live_data_header.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"
#include "velmar_link_json/jobs/dc/dc_dataset.hpp"

#include <boost/json/fwd.hpp>
#include <boost/system/error_code.hpp>

#include <cstddef>
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

/// The live-data machinery shared by all DC job kinds: the caller's handlers and the three
/// event callbacks registered with the session while the job runs.
/// The callbacks run on the session's I/O thread and call the handlers in the order added;
/// handlers are added on the owner thread before the job starts. The owning job must outlive
/// its run (the session holds callbacks bound to this object).
class DcMeasurementJobFeatures {
public:
    explicit DcMeasurementJobFeatures(const AbstractMeasurementJob& job,
                                      std::vector<DcLiveDataHandlerFunction> handlers = {});
    /// Copies the handlers for another job (the callbacks are not copied).
    DcMeasurementJobFeatures(const AbstractMeasurementJob& job, const DcMeasurementJobFeatures& other);

    void addLivedataEventHandler(DcLiveDataHandlerFunction&& handler);
    const std::vector<DcLiveDataHandlerFunction>& getLivedataEventHandlers() const { return handlers_; }

    /// Registers header, rows and finished callbacks for "LIVE_DATA_HEADER", "LIVE_DATA_ROWS"
    /// and "LIVE_DATA_FINISHED".
    void setEventHandlers(LinkJsonSession& session);
    /// Unregisters the callbacks registered by this object (others are left alone).
    void removeEventHandlers(LinkJsonSession& session);

    /// Reads "header" as a LiveDataHeader and calls every handler with the header message.
    /// Throws the JSON library's error when "header" is missing or malformed.
    void headerEventHandler(const boost::json::object& event);
    /// Reads "data" (which must be present): an array of number arrays, or Base64 text of
    /// binary rows (see live_data_header.hpp) split by the header's column count. Throws the
    /// JSON library's error on a missing key or a malformed value.
    void rowEventHandler(const boost::json::object& event);
    /// Reads "job_info" when present and calls every handler with the finished message.
    void finishedEventHandler(const boost::json::object& event);

private:
    void dispatch(const DcLiveDataMessage& message) const;

    const AbstractMeasurementJob* job_;
    std::vector<DcLiveDataHandlerFunction> handlers_;
    /// Columns of the last header, for Base64 rows.
    std::size_t columns_ = 0;
    using Callback = std::function<void(const boost::json::object&)>;
    std::shared_ptr<Callback> headerCallback_;
    std::shared_ptr<Callback> rowsCallback_;
    std::shared_ptr<Callback> finishedCallback_;
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
