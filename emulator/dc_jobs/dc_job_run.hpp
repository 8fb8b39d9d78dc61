#pragma once

#include "emulator/cell/cell_model.hpp"
#include "emulator/waveforms/dc_sampler.hpp"
#include "emulator/waveforms/dc_waveform.hpp"
#include "json_common/logging/error_object.hpp"

#include <boost/json/object.hpp>

#include <cstddef>
#include <expected>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmar::emulator {

/// How "LIVE_DATA_ROWS" events carry their rows.
enum class RowEncodingEnum {
    /// "data": [[t, u, i], ...]
    ARRAYS,
    /// "data": standard Base64 of the rows as little-endian binary64, row after row.
    BASE64,
};

/// The execution of one DC job on an emulated cell, without I/O or clocks: the caller (the
/// emulator's job queue) asks for the live-data events as its clock advances and stores the
/// result resource at the end. Columns: time (s), voltage (V), current (A) of the given
/// potentiostat. Single-threaded; the cell is owned by the run.
class DcJobRun {
public:
    /// Builds the waveform of `kind` from the job's "parameters"; the errors of
    /// makeDcWaveform. `fileValues` are the values of a wave_file job's resource.
    static std::expected<std::unique_ptr<DcJobRun>, ErrorObject> create(
        std::string_view kind, const boost::json::object& parameters, std::unique_ptr<CellModel> cell,
        CellControlEnum control, std::string potentiostat = "MAIN:1:POT",
        const std::vector<double>* fileValues = nullptr);

    /// Seconds the measurement takes.
    double duration() const { return waveform_.duration(); }
    std::size_t rowCount() const { return sampler_.rowCount(); }
    std::size_t rowsProduced() const { return time_.size(); }
    bool done() const { return stopped_ || sampler_.rowsDone() == sampler_.rowCount(); }

    /// The live-data header: "measurement_type_short", "measurement_type", derived arrays and
    /// "columns".
    boost::json::object liveDataHeader() const;
    /// The "event" object {"type": "LIVE_DATA_HEADER", "job_id", "header"}.
    boost::json::object headerEvent(std::string_view jobId) const;
    /// The rows due up to `elapsed` seconds of the job's run (at most `maxRows`) as a
    /// "LIVE_DATA_ROWS" event object; nothing when no row is due.
    std::optional<boost::json::object> rowsEventUntil(double elapsed, std::string_view jobId, RowEncodingEnum encoding,
                                                      std::size_t maxRows = 1000);
    /// Produces every remaining row at once (no events), e.g. for a job with live data off.
    void runToEnd();
    /// Ends the measurement early; the result holds the rows produced so far.
    void stop() { stopped_ = true; }
    /// The "event" object {"type": "LIVE_DATA_FINISHED", "job_id", "job_info"}.
    static boost::json::object finishedEvent(std::string_view jobId, boost::json::object jobInfo);

    /// The flat result table: every column in order as little-endian binary64.
    std::string resultPayload() const;
    /// The header of the JOB_RESULT resource (sub type "DATASET_DC"): "job_data_header",
    /// "job_info", "number_of_rows".
    boost::json::object resultHeader(boost::json::object jobInfo) const;

private:
    DcJobRun(std::string kind, DcWaveform waveform, std::unique_ptr<CellModel> cell, CellControlEnum control,
             std::string potentiostat);

    std::string kind_;
    std::string potentiostat_;
    DcWaveform waveform_;
    std::unique_ptr<CellModel> cell_;
    DcSampler sampler_;
    std::vector<double> time_, voltage_, current_;
    bool stopped_ = false;
};

/// The long and short method names of a DC job kind ("Cyclic Voltammetry", "CV", ...).
std::pair<std::string_view, std::string_view> dcMeasurementTypeNames(std::string_view kind);

}  // namespace velmar::emulator
