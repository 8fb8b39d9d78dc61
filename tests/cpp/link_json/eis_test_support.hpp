#pragma once

// Impedance headers, rows and datasets shared by the impedance dataset tests.

#include "json_common/protocol/live_data_eis.hpp"
#include "velmar_link_json/jobs/ac/eis_dataset.hpp"

#include <bit>
#include <cstdint>
#include <string>
#include <vector>

namespace velmar::testing {

inline const std::string VOLTAGE_URI = "MAIN:1:VOLTAGE";
inline const std::string CURRENT_URI = "MAIN:1:CURRENT";
inline const std::string POT_URI = "MAIN:1:POT";

inline std::vector<ColumnHeader> columnsOf(std::vector<std::string> dimensions) {
    std::vector<ColumnHeader> columns;
    for (auto& dimension : dimensions) columns.emplace_back(std::move(dimension), "", "");
    return columns;
}

/// Meta columns frequency, periods, time (plus wave_id, wave_size when asked); one impedance
/// voltage/current; sync paths "voltage" (dc, gain) and "current" (dc); async path
/// "temperature" (dc); potentiostat MAIN:1:POT (dc, shunt).
inline LiveDataHeaderEis eisHeader(bool waveColumns = true) {
    LiveDataHeaderEis header;
    header.measurement_type = LiveDataHeaderEis::MEASUREMENT_TYPE;
    header.measurement_type_short = LiveDataHeaderEis::MEASUREMENT_TYPE_SHORT;
    header.meta = columnsOf({"frequency", "periods", "time"});
    if (waveColumns) {
        header.meta.emplace_back("wave_id", "", "");
        header.meta.emplace_back("wave_size", "", "");
    }
    header.impedances = {ImpedanceDataHeader(VOLTAGE_URI, CURRENT_URI, columnsOf({"|impedance|", "phase"}), "")};
    header.paths = {PathDataHeader("voltage", VOLTAGE_URI, columnsOf({"dc", "gain"})),
                    PathDataHeader("current", CURRENT_URI, columnsOf({"dc"}))};
    header.async_paths = {PathDataHeader("temperature", "MAIN:TEMP", columnsOf({"dc"}))};
    header.potentiostats = {PotentiostatDataHeader(POT_URI, columnsOf({"dc", "shunt"}))};
    header.columns = header.allColumns();
    return header;
}

/// One frequency point of eisHeader(): values derived from `k`; `wave` (when not empty) is the
/// row's own wave in both sync paths (the current path's negated).
inline LiveDataRowEis eisRow(double k, double waveId, std::vector<double> wave, bool waveColumns = true) {
    LiveDataRowEis row;
    row.meta = {{1000.0 / (k + 1.0), 3.0, 10.0 * k}};
    if (waveColumns) {
        row.meta.front().push_back(waveId);
        row.meta.front().push_back(static_cast<double>(wave.size()));
    }
    row.impedances = {{100.0 + k, -0.1 * k}};
    row.paths = {{0.5 + k, 1.0}, {0.001 * k}};
    row.async_paths = {{25.0 + k}};
    row.potentiostats = {{0.2, 1000.0}};
    if (!wave.empty()) {
        std::vector<double> negated;
        for (const double sample : wave) negated.push_back(-sample);
        row.paths_waves = {std::move(wave), std::move(negated)};
    }
    return row;
}

inline EisDataset eisDatasetOf(const std::vector<LiveDataRowEis>& rows, bool waveColumns = true,
                               std::string jobId = "job-1") {
    JobInfo info;
    info.job_id = std::move(jobId);
    EisDataset dataset(eisHeader(waveColumns), std::move(info));
    for (const auto& row : rows) dataset.appendDataRow(row);
    return dataset;
}

inline std::uint64_t bitsOf(double value) { return std::bit_cast<std::uint64_t>(value); }

inline std::vector<std::uint64_t> bitsOf(const std::vector<double>& values) {
    std::vector<std::uint64_t> bits;
    for (const double value : values) bits.push_back(bitsOf(value));
    return bits;
}

}  // namespace velmar::testing
