#pragma once

// The binary content of a "DATASET_AC" job result: little-endian binary64 values, column by
// column with one value per row, in the order of LiveDataHeaderEis::allColumns() (meta, each
// impedance's, each sync path's, each async path's, each potentiostat's columns); then for
// each sync path in header order and each row in order, that row's wave ("wave_size"[row]
// samples; rows that share a wave repeat it).

#include "json_common/protocol/live_data_eis.hpp"

#include <boost/json/object.hpp>

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>

namespace velmar::emulator {

/// The wave of a row on a sync path (empty for a row without wave).
using AcRowWave = std::function<std::span<const double>(std::size_t row, std::size_t path)>;

/// The content of the result of `rows` (their "paths_waves" are not used: `wave` gives them).
std::string encodeAcResult(const LiveDataHeaderEis& header, std::span<const LiveDataRowEis> rows, const AcRowWave& wave);

/// The header of the JOB_RESULT resource: {"job_data_header", "job_info", "number_of_rows"}.
boost::json::object acResultHeader(const LiveDataHeaderEis& header, boost::json::object jobInfo, std::size_t rows);

/// A synthetic result for benchmarks of large downloads, in the columns of `jobDataHeader`
/// (the "job_data_header" of an impedance result): `rows` rows, each with its own wave of
/// `samples` samples per sync path. Meta "frequency" 10^(6 - 6 r / rows), "periods" 1,
/// "time" r x 10^-3, "wave_id" r, "wave_size" `samples`; every other column c holds
/// c + r x 10^-9; sample k of path p in row r is p + r x 10^-6 + k x 10^-9. The shape is
/// read from the header first (nothing when it cannot be read), so that the caller can bound
/// the size, (rows x columns + syncPaths x rows x samples) x 8 bytes, before it is built.
struct AcSyntheticShape {
    std::size_t columns = 0;
    std::size_t syncPaths = 0;
    std::size_t metaColumns = 0;
};
std::optional<AcSyntheticShape> acSyntheticShape(const boost::json::object& jobDataHeader);
std::string acSyntheticResult(const boost::json::object& jobDataHeader, const AcSyntheticShape& shape, std::size_t rows,
                              std::size_t samples);

}  // namespace velmar::emulator
