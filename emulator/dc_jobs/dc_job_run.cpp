#include "emulator/dc_jobs/dc_job_run.hpp"

#include "json_common/protocol/live_data_header.hpp"

#include <boost/json.hpp>

#include <array>
#include <bit>
#include <cstring>

namespace velmar::emulator {

namespace json = boost::json;

std::pair<std::string_view, std::string_view> dcMeasurementTypeNames(std::string_view kind) {
    // clang-format off
    static constexpr std::array<std::array<std::string_view, 3>, 12> names{{
        {"cv", "Cyclic Voltammetry", "CV"},
        {"ac_cv", "AC Cyclic Voltammetry", "ACCV"},
        {"fast_cycling", "Fast Cycling", "FC"},
        {"ramp", "Linear Sweep", "RAMP"},
        {"steady_stairs", "Steady Stairs", "SS"},
        {"poga", "Constant Bias", "POGA"},
        {"ocv", "Open Circuit Voltage", "OCV"},
        {"npv", "Normal Pulse Voltammetry", "NPV"},
        {"dpv", "Differential Pulse Voltammetry", "DPV"},
        {"swv", "Square Wave Voltammetry", "SWV"},
        {"wave", "Arbitrary Wave", "WAVE"},
        {"wave_file", "Arbitrary Wave From File", "WAVE_FILE"},
    }};
    // clang-format on
    for (const auto& entry : names) {
        if (entry[0] == kind) return {entry[1], entry[2]};
    }
    return {kind, kind};
}

std::expected<std::unique_ptr<DcJobRun>, ErrorObject> DcJobRun::create(std::string_view kind,
                                                                       const json::object& parameters,
                                                                       std::unique_ptr<CellModel> cell,
                                                                       CellControlEnum control, std::string potentiostat,
                                                                       const std::vector<double>* fileValues) {
    auto waveform = makeDcWaveform(kind, parameters, fileValues);
    if (!waveform) return std::unexpected(std::move(waveform).error());
    return std::unique_ptr<DcJobRun>(
        new DcJobRun(std::string(kind), std::move(*waveform), std::move(cell), control, std::move(potentiostat)));
}

DcJobRun::DcJobRun(std::string kind, DcWaveform waveform, std::unique_ptr<CellModel> cell, CellControlEnum control,
                   std::string potentiostat)
    : kind_(std::move(kind)),
      potentiostat_(std::move(potentiostat)),
      waveform_(std::move(waveform)),
      cell_(std::move(cell)),
      sampler_(waveform_, *cell_, control) {}

json::object DcJobRun::liveDataHeader() const {
    const auto [longName, shortName] = dcMeasurementTypeNames(kind_);
    LiveDataHeader header{std::string(longName),
                          std::string(shortName),
                          {{"time", "s", potentiostat_ + ":TIME"},
                           {"voltage", "V", potentiostat_ + ":VOLTAGE"},
                           {"current", "A", potentiostat_ + ":CURRENT"}}};
    return json::value_from(header).as_object();
}

json::object DcJobRun::headerEvent(std::string_view jobId) const {
    return json::object{{"type", "LIVE_DATA_HEADER"}, {"job_id", jobId}, {"header", liveDataHeader()}};
}

std::optional<json::object> DcJobRun::rowsEventUntil(double elapsed, std::string_view jobId, RowEncodingEnum encoding,
                                                     std::size_t maxRows) {
    const std::size_t first = time_.size();
    DcSampler::Row row;
    while (!done() && time_.size() - first < maxRows) {
        const double due = static_cast<double>(sampler_.rowsDone()) / waveform_.outputDataRate();
        if (due > elapsed) break;
        sampler_.next(row);
        time_.push_back(row[0]);
        voltage_.push_back(row[1]);
        current_.push_back(row[2]);
    }
    const std::size_t count = time_.size() - first;
    if (count == 0) return std::nullopt;
    json::object event{{"type", "LIVE_DATA_ROWS"}, {"job_id", jobId}};
    if (encoding == RowEncodingEnum::BASE64) {
        std::vector<double> block;
        block.reserve(count * 3);
        for (std::size_t i = first; i < time_.size(); ++i) {
            block.insert(block.end(), {time_[i], voltage_[i], current_[i]});
        }
        event["data"] = encodeLiveDataRowsBase64(block.data(), count, 3);
    } else {
        json::array rows;
        rows.reserve(count);
        for (std::size_t i = first; i < time_.size(); ++i) rows.push_back(json::array{time_[i], voltage_[i], current_[i]});
        event["data"] = std::move(rows);
    }
    return event;
}

void DcJobRun::runToEnd() {
    DcSampler::Row row;
    while (!done() && sampler_.next(row)) {
        time_.push_back(row[0]);
        voltage_.push_back(row[1]);
        current_.push_back(row[2]);
    }
}

json::object DcJobRun::finishedEvent(std::string_view jobId, json::object jobInfo) {
    return json::object{{"type", "LIVE_DATA_FINISHED"}, {"job_id", jobId}, {"job_info", std::move(jobInfo)}};
}

std::string DcJobRun::resultPayload() const {
    static_assert(std::endian::native == std::endian::little, "the result table is little-endian");
    const std::size_t rows = time_.size();
    std::string bytes(3 * rows * sizeof(double), '\0');
    std::size_t offset = 0;
    for (const auto* column : {&time_, &voltage_, &current_}) {
        if (rows != 0) std::memcpy(bytes.data() + offset, column->data(), rows * sizeof(double));
        offset += rows * sizeof(double);
    }
    return bytes;
}

json::object DcJobRun::resultHeader(json::object jobInfo) const {
    return json::object{{"job_data_header", liveDataHeader()},
                        {"job_info", std::move(jobInfo)},
                        {"number_of_rows", time_.size()}};
}

}  // namespace velmar::emulator
