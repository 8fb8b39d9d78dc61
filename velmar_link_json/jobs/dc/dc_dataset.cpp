#include "velmar_link_json/jobs/dc/dc_dataset.hpp"

#include "json_common/base64.hpp"
#include "json_common/logging/error_messages.hpp"
#include "json_common/logging/velmar_link_exception.hpp"
#include "velmar_link_json/jobs/common/binary64.hpp"
#include "velmar_link_json/jobs/common/recorded_events.hpp"
#include "velmar_link_json/jobs/dc/dc_messages.hpp"

#include <boost/json.hpp>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>

#if defined(__linux__)
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace velmar {

namespace json = boost::json;

namespace {

constexpr double QUIET_NAN = std::numeric_limits<double>::quiet_NaN();

}  // namespace

void sizeTrackForBulkWrite(std::vector<double>& track, std::size_t rows) {
    track.reserve(rows);
#if defined(__linux__) && defined(MADV_HUGEPAGE)
    constexpr std::size_t HUGE_PAGE = std::size_t{2} << 20;
    const std::size_t bytes = rows * sizeof(double);
    if (bytes >= 4 * HUGE_PAGE) {
        const auto begin = reinterpret_cast<std::uintptr_t>(track.data());
        const auto first = (begin + HUGE_PAGE - 1) & ~(HUGE_PAGE - 1);
        const auto last = (begin + bytes) & ~(HUGE_PAGE - 1);
        if (last > first) (void)madvise(reinterpret_cast<void*>(first), last - first, MADV_HUGEPAGE);
    }
#endif
    track.resize(rows);
}

DcDataset::DcDataset(LiveDataHeader&& header, JobInfo&& jobInfo)
    : DataSet(std::move(jobInfo)),
      jobType_(std::move(header.measurement_type)),
      jobTypeShort_(std::move(header.measurement_type_short)),
      header_(std::move(header.columns)),
      tracks_(header_.size()) {}

DcDataset::DcDataset(std::string jobType, std::string jobTypeShort, std::vector<ColumnHeader> header,
                     std::vector<std::vector<double>> tracks, JobInfo&& jobInfo)
    : DataSet(std::move(jobInfo)),
      jobType_(std::move(jobType)),
      jobTypeShort_(std::move(jobTypeShort)),
      header_(std::move(header)),
      tracks_(std::move(tracks)) {
    if (tracks_.size() > header_.size()) tracks_.resize(header_.size());
    const std::size_t rows = tracks_.empty() ? 0 : tracks_.front().size();
    while (tracks_.size() < header_.size()) tracks_.emplace_back(rows, QUIET_NAN);
}

std::size_t DcDataset::indexOf(const ColumnHeader& column) const {
    for (std::size_t i = 0; i < header_.size(); ++i) {
        const auto& h = header_[i];
        if (h.unit == column.unit && h.dimension == column.dimension && h.urn == column.urn) return i;
    }
    return NOT_FOUND;
}

std::size_t DcDataset::indexOfDimension(std::string_view dimension) const {
    for (std::size_t i = 0; i < header_.size(); ++i) {
        if (header_[i].dimension == dimension) return i;
    }
    return NOT_FOUND;
}

std::size_t DcDataset::indexOfUrn(std::string_view urn) const {
    for (std::size_t i = 0; i < header_.size(); ++i) {
        if (header_[i].urn == urn) return i;
    }
    return NOT_FOUND;
}

const std::vector<double>& DcDataset::emptyTrack() {
    static const std::vector<double> empty;
    return empty;
}

const std::vector<double>& DcDataset::getDcTrack(std::string_view dimension) const {
    const std::size_t index = indexOfDimension(dimension);
    if (index == NOT_FOUND || index >= tracks_.size()) return emptyTrack();
    return tracks_[index];
}

std::vector<std::string> DcDataset::getDcDimensions() const {
    std::vector<std::string> dimensions;
    dimensions.reserve(header_.size());
    for (const auto& column : header_) dimensions.push_back(column.dimension);
    return dimensions;
}

void DcDataset::appendDataRow(const std::vector<double>& row) { appendDataRow(row.data(), row.size()); }

void DcDataset::appendDataRow(const double* values, std::size_t count) {
    const std::size_t n = std::min(count, tracks_.size());
    for (std::size_t i = 0; i < n; ++i) tracks_[i].push_back(values[i]);
}

DcDataset::ColumnMatch DcDataset::fillVectors(const DcDataset& other) const {
    ColumnMatch match;
    std::vector<bool> otherMatched(other.header_.size(), false);
    for (std::size_t i = 0; i < header_.size(); ++i) {
        const std::size_t j = other.indexOf(header_[i]);
        if (j == NOT_FOUND || otherMatched[j]) {
            match.onlyHere.push_back(i);
        } else {
            otherMatched[j] = true;
            match.common.emplace_back(i, j);
        }
    }
    for (std::size_t j = 0; j < other.header_.size(); ++j) {
        if (!otherMatched[j]) match.onlyOther.push_back(j);
    }
    return match;
}

void DcDataset::append(const DcDataset& source, double gapSeconds) {
    if (&source == this) {
        const DcDataset copy(*this);
        append(copy, gapSeconds);
        return;
    }
    const std::size_t rowsBefore = getRowCount();
    if (rowsBefore == 0) {
        *this = source;
        return;
    }
    mergeIncludedDatasets(source);
    if (jobType_ != source.jobType_) jobType_ = "DC Combined";
    if (jobTypeShort_ != source.jobTypeShort_) jobTypeShort_ = "DC";

    const ColumnMatch match = fillVectors(source);
    const std::size_t otherRows = source.getRowCount();
    for (const auto& [here, there] : match.common) {
        const auto& from = source.tracks_[there];
        tracks_[here].insert(tracks_[here].end(), from.begin(), from.end());
    }
    for (const std::size_t here : match.onlyHere) tracks_[here].insert(tracks_[here].end(), otherRows, QUIET_NAN);
    for (const std::size_t there : match.onlyOther) {
        const auto& from = source.tracks_[there];
        std::vector<double> track;
        track.reserve(rowsBefore + from.size());
        track.assign(rowsBefore, QUIET_NAN);
        track.insert(track.end(), from.begin(), from.end());
        header_.push_back(source.header_[there]);
        tracks_.push_back(std::move(track));
    }

    auto& time = tracks_.front();
    const double shift = time[rowsBefore - 1] + gapSeconds;
    for (std::size_t row = rowsBefore; row < time.size(); ++row) time[row] += shift;
}

DatasetInfo DcDataset::getInfo() const {
    DatasetInfo info;
    info.type = "DC";
    info.job_type = jobType_;
    info.job_type_short = jobTypeShort_;
    info.length = getRowCount();
    info.start_time = info.length == 0 ? QUIET_NAN : tracks_.front().front();
    info.job_info = jobInfo_;
    return info;
}

std::expected<std::string, ErrorObject> dcDatasetToBinary(const DcDataset& dataset) {
    const auto& tracks = dataset.getTracks();
    const std::size_t rows = dataset.getRowCount();
    for (std::size_t i = 1; i < tracks.size(); ++i) {
        if (tracks[i].size() != rows) {
            return std::unexpected(ErrorObject(ErrorCodeEnum::RESOURCE_CONTENT_INVALID, messages::DC_DATASET_RAGGED, i,
                                               tracks[i].size(), rows));
        }
    }
    std::string out;
    out.reserve(tracks.size() * rows * sizeof(double));
    for (const auto& track : tracks) appendLittleEndian(out, track.data(), track.size());
    return out;
}

DcDataset dcDatasetFromBinary(std::string_view payload, LiveDataHeader&& header, JobInfo&& jobInfo) {
    DcDataset dataset(std::move(header), std::move(jobInfo));
    auto& tracks = dataset.tracksForWriting();
    const std::size_t columns = tracks.size();
    if (columns == 0) return dataset;
    const std::size_t rows = payload.size() / (columns * sizeof(double));
    for (std::size_t c = 0; c < columns; ++c) {
        sizeTrackForBulkWrite(tracks[c], rows);
        copyLittleEndian(tracks[c].data(), payload.data() + c * rows * sizeof(double), rows);
    }
    return dataset;
}

DcDataset dcDatasetFromBinary(std::string&& payload, LiveDataHeader&& header, JobInfo&& jobInfo) {
    const std::string owned(std::move(payload));
    return dcDatasetFromBinary(std::string_view(owned), std::move(header), std::move(jobInfo));
}

namespace {

/// Appends the rows of one "LIVE_DATA_ROWS" data member.
ErrorObject appendRows(DcDataset& dataset, const json::value& data) {
    if (const auto* text = data.if_string()) {
        const std::size_t columns = dataset.getHeader().size();
        const std::string_view encoded(*text);
        if (encoded.size() % 4 != 0) {
            return ErrorObject(ErrorCodeEnum::RESOURCE_CONTENT_INVALID, messages::BASE64_LENGTH_INVALID);
        }
        std::string bytes(decodedBase64Size(encoded), '\0');
        if (!decodeBase64Into(encoded, bytes.data())) {
            return ErrorObject(ErrorCodeEnum::RESOURCE_CONTENT_INVALID, messages::BASE64_CHARACTER_INVALID);
        }
        if (columns == 0) return {};
        const std::size_t rowBytes = columns * sizeof(double);
        if (bytes.size() % rowBytes != 0) {
            return ErrorObject(ErrorCodeEnum::RESOURCE_CONTENT_INVALID, messages::DC_ROWS_NOT_WHOLE, bytes.size(),
                               columns);
        }
        const std::size_t rows = bytes.size() / rowBytes;
        // Whole rows of every column: each track grows by `rows` values (geometric growth
        // keeps many small blocks linear), read with the row stride.
        auto& tracks = dataset.tracksForWriting();
        for (std::size_t c = 0; c < columns; ++c) {
            auto& track = tracks[c];
            const std::size_t old = track.size();
            track.resize(old + rows);
            for (std::size_t r = 0; r < rows; ++r) {
                copyLittleEndian(track.data() + old + r, bytes.data() + r * rowBytes + c * sizeof(double), 1);
            }
        }
        return {};
    }
    const auto* rows = data.if_array();
    if (rows == nullptr) return ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::DC_ROWS_NOT_NUMBERS);
    std::vector<double> row;
    for (const auto& element : *rows) {
        const auto* values = element.if_array();
        if (values == nullptr) return ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::DC_ROWS_NOT_NUMBERS);
        row.clear();
        row.reserve(values->size());
        for (const auto& value : *values) {
            if (!value.is_number()) return ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::DC_ROWS_NOT_NUMBERS);
            row.push_back(value.to_number<double>());
        }
        dataset.appendDataRow(row);
    }
    return {};
}

}  // namespace

std::expected<DcDataset, ErrorObject> dcDatasetFromJson(const json::value& events) {
    const auto* array = events.if_array();
    if (array == nullptr) {
        return std::unexpected(ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::JSON_MALFORMED,
                                           messages::DC_EVENTS_NOT_ARRAY));
    }
    DcDataset dataset;
    JobInfo jobInfo;
    bool haveJobInfo = false;
    for (const auto& element : *array) {
        const std::string_view type = recordedEventType(element);
        boost::system::error_code ec;
        if (type == "LIVE_DATA_HEADER") {
            const auto* header = element.find_pointer("/event/header", ec);
            if (header == nullptr) {
                return std::unexpected(ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::DC_EVENT_MEMBER_MISSING,
                                                   "/event/header"));
            }
            auto parsed = liveDataHeaderFromJson(*header);
            if (!parsed) return std::unexpected(std::move(parsed).error());
            JobInfo keep = dataset.getJobInfo();
            dataset = DcDataset(std::move(*parsed), std::move(keep));
        } else if (type == "LIVE_DATA_ROWS") {
            const auto* data = element.find_pointer("/event/data", ec);
            if (data == nullptr) {
                return std::unexpected(ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::DC_EVENT_MEMBER_MISSING, "/event/data"));
            }
            if (auto failure = appendRows(dataset, *data)) return std::unexpected(std::move(failure));
        } else if (type == "LIVE_DATA_FINISHED") {
            if (const auto* info = element.find_pointer("/event/job_info", ec)) {
                jobInfo = jobInfoFromJson(*info);
                haveJobInfo = true;
            }
        }
    }
    if (haveJobInfo) {
        // The job information arrives last; rebuild around the collected tracks.
        DcDataset finished(dataset.getJobType(), dataset.getJobTypeShort(), dataset.getHeader(),
                           std::move(dataset.tracksForWriting()), std::move(jobInfo));
        return finished;
    }
    return dataset;
}

DcDataset tag_invoke(const json::value_to_tag<DcDataset>&, const json::value& jv) {
    auto dataset = dcDatasetFromJson(jv);
    if (!dataset) throw VelmarLinkException(std::move(dataset).error());
    return std::move(*dataset);
}

}  // namespace velmar
