// The flat binary form of the impedance dataset: every column (meta, impedances, sync paths,
// async paths, potentiostats) with the row count of values, then per sync path the wave of
// each row, "wave_size"[row] samples long.

#include "velmar_link_json/jobs/ac/eis_binary_layout.hpp"
#include "velmar_link_json/jobs/ac/eis_dataset.hpp"
#include "velmar_link_json/jobs/ac/eis_messages.hpp"
#include "velmar_link_json/jobs/common/binary64.hpp"
#include "velmar_link_json/jobs/dc/dc_dataset.hpp"

#include <algorithm>
#include <cmath>

namespace velmar {

namespace {

using Track = EisDataset::Track;

ErrorObject invalid(std::string_view format, auto&&... args) {
    return ErrorObject(ErrorCodeEnum::RESOURCE_CONTENT_INVALID, format, std::forward<decltype(args)>(args)...);
}

/// Takes the next `count` columns of `columns` as one group element's tracks.
EisDataset::GroupTracks takeColumns(std::vector<Track>& columns, std::size_t& next, std::size_t count) {
    EisDataset::GroupTracks tracks;
    tracks.reserve(count);
    for (std::size_t c = 0; c < count; ++c) tracks.push_back(std::move(columns[next++]));
    return tracks;
}

template <class Headers>
std::vector<EisDataset::GroupTracks> takeGroups(std::vector<Track>& columns, std::size_t& next, const Headers& headers) {
    std::vector<EisDataset::GroupTracks> groups;
    groups.reserve(headers.size());
    for (const auto& header : headers) groups.push_back(takeColumns(columns, next, header.columns.size()));
    return groups;
}

/// The write check of the group columns: each as long as the meta columns.
template <class Headers>
ErrorObject checkGroupLengths(std::string_view kind, const Headers& headers,
                              const std::vector<EisDataset::GroupTracks>& groups, std::size_t rows) {
    for (std::size_t i = 0; i < headers.size(); ++i) {
        for (std::size_t c = 0; c < headers[i].columns.size(); ++c) {
            const std::size_t n = i < groups.size() && c < groups[i].size() ? groups[i][c].size() : 0;
            if (n != rows) {
                return invalid(messages::EIS_GROUP_COLUMN_LENGTH, kind, i, headers[i].columns[c].dimension, n, rows);
            }
        }
    }
    return {};
}

void appendGroups(std::string& out, const std::vector<EisDataset::GroupTracks>& groups) {
    for (const auto& group : groups) {
        for (const auto& track : group) appendLittleEndian(out, track.data(), track.size());
    }
}

}  // namespace

std::optional<std::size_t> waveSampleCount(double declared) {
    // Integral, not negative, and exactly representable as a count.
    if (!(declared >= 0.0) || declared > 0x1p53 || std::floor(declared) != declared) return std::nullopt;
    return static_cast<std::size_t>(declared);
}

EisDataset eisDatasetFromColumns(LiveDataHeaderEis&& header, std::vector<Track>&& columns,
                                 std::vector<EisDataset::Waves>&& rowWaves, JobInfo&& jobInfo) {
    columns.resize(header.totalColumnCount());
    rowWaves.resize(header.paths.size());
    std::size_t next = 0;
    EisDataset::GroupTracks meta = takeColumns(columns, next, header.meta.size());
    auto impedances = takeGroups(columns, next, header.impedances);
    auto paths = takeGroups(columns, next, header.paths);
    auto asyncPaths = takeGroups(columns, next, header.async_paths);
    auto potentiostats = takeGroups(columns, next, header.potentiostats);

    // Wave r of each path belongs to row r; a row whose wave is empty in every path has none.
    bool anyWave = false;
    for (const auto& waves : rowWaves) {
        anyWave = anyWave || std::any_of(waves.begin(), waves.end(), [](const Track& w) { return !w.empty(); });
    }
    if (anyWave) {
        const std::size_t rows = meta.empty() ? 0 : meta.front().size();
        std::size_t idColumn = EisDataset::indexOfDimension(header.meta, "wave_id");
        if (idColumn == EisDataset::NOT_FOUND) {
            header.meta.emplace_back("wave_id", "", "");
            meta.emplace_back(rows, -1.0);
            idColumn = meta.size() - 1;
        }
        Track& ids = meta[idColumn];
        ids.resize(rows, -1.0);
        for (std::size_t r = 0; r < rows; ++r) {
            const bool hasWave = std::any_of(rowWaves.begin(), rowWaves.end(), [r](const EisDataset::Waves& waves) {
                return r < waves.size() && !waves[r].empty();
            });
            if (hasWave) {
                ids[r] = static_cast<double>(r);
            } else if (!(ids[r] < 0.0)) {
                ids[r] = -1.0;
            }
        }
    }
    EisDataset dataset(std::move(header), std::move(impedances), std::move(paths), std::move(rowWaves),
                       std::move(asyncPaths), std::move(potentiostats), std::move(meta), std::move(jobInfo));
    dataset.dedupWaves();
    return dataset;
}

std::expected<EisDataset, ErrorObject> eisDatasetFromBinary(std::string_view data, LiveDataHeaderEis&& header,
                                                            std::uint64_t rowCount, JobInfo&& jobInfo,
                                                            int protocolVersion) {
    // Every protocol version so far writes the same layout.
    (void)protocolVersion;
    const std::size_t columnCount = header.totalColumnCount();
    const std::size_t values = data.size() / sizeof(double);
    if (rowCount == 0 && columnCount != 0) rowCount = values / columnCount;
    if (columnCount == 0) rowCount = 0;
    // Checked against the data before anything is sized from it.
    if (columnCount != 0 && rowCount > values / columnCount) {
        return std::unexpected(invalid(messages::EIS_BINARY_TOO_SHORT, static_cast<std::uint64_t>(data.size()),
                                       rowCount, columnCount));
    }
    const auto rows = static_cast<std::size_t>(rowCount);
    std::vector<Track> columns(columnCount);
    const char* next = data.data();
    for (auto& column : columns) {
        sizeTrackForBulkWrite(column, rows);
        copyLittleEndian(column.data(), next, rows);
        next += rows * sizeof(double);
    }

    const std::size_t paths = header.paths.size();
    std::vector<EisDataset::Waves> rowWaves(paths);
    std::size_t remaining = values - rows * columnCount;
    const std::size_t sizeColumn = EisDataset::indexOfDimension(header.meta, "wave_size");
    auto readWave = [&](Track& wave, std::size_t samples) {
        sizeTrackForBulkWrite(wave, samples);
        copyLittleEndian(wave.data(), next, samples);
        next += samples * sizeof(double);
        remaining -= samples;
    };
    if (paths != 0 && rows != 0 && sizeColumn != EisDataset::NOT_FOUND) {
        const Track& sizes = columns[sizeColumn];
        for (std::size_t p = 0; p < paths; ++p) {
            rowWaves[p].resize(rows);
            for (std::size_t r = 0; r < rows; ++r) {
                const auto samples = waveSampleCount(sizes[r]);
                if (!samples) return std::unexpected(invalid(messages::EIS_WAVE_SIZE_INVALID, r, sizes[r]));
                if (*samples > remaining) {
                    return std::unexpected(invalid(messages::EIS_WAVE_SIZE_BEYOND_DATA, r, *samples, p, remaining));
                }
                readWave(rowWaves[p][r], *samples);
            }
        }
    } else if (paths != 0 && rows != 0 && remaining / paths >= rows) {
        // Without "wave_size" every wave has the same length.
        const std::size_t samples = remaining / paths / rows;
        for (std::size_t p = 0; p < paths; ++p) {
            rowWaves[p].resize(rows);
            for (std::size_t r = 0; r < rows; ++r) readWave(rowWaves[p][r], samples);
        }
    }
    return eisDatasetFromColumns(std::move(header), std::move(columns), std::move(rowWaves), std::move(jobInfo));
}

std::expected<EisBinaryForm, ErrorObject> eisDatasetToBinary(const EisDataset& dataset) {
    const std::size_t rows = dataset.getRowCount();
    const auto& metaHeader = dataset.getMetaDataHeader();
    const auto& meta = dataset.getMetaTracks();
    for (std::size_t c = 0; c < metaHeader.size(); ++c) {
        const std::size_t n = c < meta.size() ? meta[c].size() : 0;
        if (n != rows) return std::unexpected(invalid(messages::EIS_META_COLUMN_LENGTH, metaHeader[c].dimension, n, rows));
    }

    const auto& pathWaves = dataset.getPathsWaves();
    const std::size_t paths = dataset.getPathsDataHeaders().size();
    const bool anyWaves = std::any_of(pathWaves.begin(), pathWaves.end(), [](const auto& w) { return !w.empty(); });
    const bool hasIds = dataset.findIndexOfColumInMeta("wave_id") != EisDataset::NOT_FOUND;
    const bool hasSizes = dataset.findIndexOfColumInMeta("wave_size") != EisDataset::NOT_FOUND;
    const Track& sizes = dataset.getWaveSizes();
    // The declared size of a row's wave: "wave_size", or without it the first path's wave.
    auto declaredSize = [&](std::size_t r) {
        return hasSizes ? sizes[r] : static_cast<double>(dataset.getWaveForRow(std::size_t{0}, r).size());
    };
    for (std::size_t p = 0; p < paths; ++p) {
        for (std::size_t r = 0; r < rows; ++r) {
            const std::size_t n = dataset.getWaveForRow(p, r).size();
            const double declared = declaredSize(r);
            if (static_cast<double>(n) != declared) {
                return std::unexpected(
                    invalid(messages::EIS_WAVE_SIZE_MISMATCH, dataset.getWaveIdForRow(r), p, n, declared));
            }
        }
    }
    std::size_t declaredWaves = 0;
    if (hasIds) {
        for (std::size_t r = 0; r < rows; ++r) {
            const std::int64_t id = dataset.getWaveIdForRow(r);
            if (id >= 0) declaredWaves = std::max(declaredWaves, static_cast<std::size_t>(id) + 1);
        }
    } else if (anyWaves) {
        declaredWaves = rows;
    }
    for (std::size_t p = 0; p < paths; ++p) {
        const std::size_t n = dataset.getPathWaves(p).size();
        if (n != declaredWaves) return std::unexpected(invalid(messages::EIS_WAVE_COUNT_MISMATCH, p, n, declaredWaves));
    }
    if (auto failure = checkGroupLengths("impedance", dataset.getImpedancesHeaders(), dataset.getImpedances(), rows)) {
        return std::unexpected(std::move(failure));
    }
    if (auto failure = checkGroupLengths("sync path", dataset.getPathsDataHeaders(), dataset.getPaths(), rows)) {
        return std::unexpected(std::move(failure));
    }
    if (auto failure = checkGroupLengths("async path", dataset.getAsyncPathsDataHeaders(), dataset.getAsyncPaths(), rows)) {
        return std::unexpected(std::move(failure));
    }
    if (auto failure =
            checkGroupLengths("potentiostat", dataset.getPotentiostatsDataHeaders(), dataset.getPotentiostats(), rows)) {
        return std::unexpected(std::move(failure));
    }

    EisBinaryForm form;
    form.header = dataset.getHeader();
    form.rowCount = rows;
    // The bookkeeping columns that a reader needs to find the waves again.
    std::vector<Track> added;
    if (anyWaves && !hasIds) {
        form.header.meta.emplace_back("wave_id", "", "");
        auto& ids = added.emplace_back(rows);
        for (std::size_t r = 0; r < rows; ++r) ids[r] = static_cast<double>(dataset.getWaveIdForRow(r));
    }
    if (anyWaves && !hasSizes) {
        form.header.meta.emplace_back("wave_size", "", "");
        auto& waveSizes = added.emplace_back(rows);
        for (std::size_t r = 0; r < rows; ++r) waveSizes[r] = declaredSize(r);
    }
    form.header.columns = form.header.allColumns();

    std::size_t samples = 0;
    for (std::size_t r = 0; r < rows && paths != 0; ++r) samples += dataset.getWaveForRow(std::size_t{0}, r).size();
    form.data.reserve((form.header.totalColumnCount() * rows + paths * samples) * sizeof(double));
    for (const auto& track : meta) appendLittleEndian(form.data, track.data(), track.size());
    for (const auto& track : added) appendLittleEndian(form.data, track.data(), track.size());
    appendGroups(form.data, dataset.getImpedances());
    appendGroups(form.data, dataset.getPaths());
    appendGroups(form.data, dataset.getAsyncPaths());
    appendGroups(form.data, dataset.getPotentiostats());
    for (std::size_t p = 0; p < paths; ++p) {
        for (std::size_t r = 0; r < rows; ++r) {
            const auto& wave = dataset.getWaveForRow(p, r);
            appendLittleEndian(form.data, wave.data(), wave.size());
        }
    }
    return form;
}

}  // namespace velmar
