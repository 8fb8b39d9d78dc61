#include "velmar_link_json/jobs/ac/eis_result_destination.hpp"

#include "json_common/logging/error_messages.hpp"
#include "velmar_link_json/jobs/ac/eis_binary_layout.hpp"
#include "velmar_link_json/jobs/ac/eis_messages.hpp"
#include "velmar_link_json/jobs/common/binary64.hpp"
#include "velmar_link_json/jobs/dc/dc_dataset.hpp"

#include <algorithm>
#include <limits>

namespace velmar {

EisResultDestination::EisResultDestination(const LiveDataHeaderEis& header, std::optional<std::uint64_t> announcedRows)
    : columns_(header.totalColumnCount()),
      paths_(header.paths.size()),
      waveSizeColumn_(EisDataset::indexOfDimension(header.meta, "wave_size")),
      announcedRows_(announcedRows) {
    if (announcedRows_ == std::uint64_t{0}) announcedRows_.reset();
}

std::optional<std::uint64_t> EisResultDestination::announcedBytes() const {
    if (!announcedRows_) return std::nullopt;
    const std::uint64_t rowBytes = static_cast<std::uint64_t>(columns_) * sizeof(double);
    if (rowBytes != 0 && *announcedRows_ > std::numeric_limits<std::uint64_t>::max() / rowBytes) return std::nullopt;
    return *announcedRows_ * rowBytes;
}

void EisResultDestination::begin(std::uint64_t size, bool exact) {
    phase_ = Phase::SKIP;
    size_ = size;
    consumed_ = 0;
    rows_ = track_ = path_ = row_ = offset_ = uniformWave_ = 0;
    tracks_.clear();
    waves_.clear();
    error_.reset();
    std::string().swap(buffer_);
    bufferUsed_ = 0;
    if (!exact) {
        // The wave section follows the columns, so no length is known in advance; the
        // transport bounds the message.
        phase_ = Phase::BUFFERING;
        return;
    }
    if (columns_ == 0) {
        phase_ = Phase::DONE;
        return;
    }
    const std::uint64_t values = size / sizeof(double);
    if (announcedRows_) {
        const auto expected = announcedBytes();
        // Too short for the announced rows: nothing is kept, takeDataset reports it.
        if (!expected || size < *expected) return;
        rows_ = static_cast<std::size_t>(*announcedRows_);
    } else {
        rows_ = static_cast<std::size_t>(values / columns_);
    }
    if (rows_ == 0) {
        phase_ = Phase::DONE;
        return;
    }
    tracks_.resize(columns_);
    for (auto& track : tracks_) sizeTrackForBulkWrite(track, rows_);
    phase_ = Phase::COLUMNS;
}

void EisResultDestination::startWaves() {
    for (auto& track : tracks_) fromLittleEndianInPlace(track.data(), track.size());
    const std::uint64_t remaining = (size_ - consumed_) / sizeof(double);
    phase_ = Phase::DONE;
    if (paths_ == 0) return;
    if (waveSizeColumn_ == EisDataset::NOT_FOUND) {
        // Without "wave_size" every wave has the same length; too few values: no waves.
        if (remaining / paths_ < rows_) return;
        uniformWave_ = static_cast<std::size_t>(remaining / paths_ / rows_);
    }
    waves_.assign(paths_, EisDataset::Waves(rows_));
    path_ = row_ = 0;
    nextWave();
}

void EisResultDestination::nextWave() {
    for (; path_ < paths_; ++path_, row_ = 0) {
        for (; row_ < rows_; ++row_) {
            std::size_t samples = uniformWave_;
            if (waveSizeColumn_ != EisDataset::NOT_FOUND) {
                const double declared = tracks_[waveSizeColumn_][row_];
                const auto count = waveSampleCount(declared);
                if (!count) {
                    error_ = ErrorObject(ErrorCodeEnum::RESOURCE_CONTENT_INVALID, messages::EIS_WAVE_SIZE_INVALID, row_,
                                         declared);
                    phase_ = Phase::SKIP;
                    return;
                }
                samples = *count;
            }
            const std::uint64_t remaining = (size_ - consumed_) / sizeof(double);
            if (samples > remaining) {
                error_ = ErrorObject(ErrorCodeEnum::RESOURCE_CONTENT_INVALID, messages::EIS_WAVE_SIZE_BEYOND_DATA, row_,
                                     samples, path_, remaining);
                phase_ = Phase::SKIP;
                return;
            }
            if (samples == 0) continue;
            sizeTrackForBulkWrite(waves_[path_][row_], samples);
            offset_ = 0;
            phase_ = Phase::WAVES;
            return;
        }
    }
    phase_ = Phase::DONE;
}

std::span<std::byte> EisResultDestination::prepare() {
    switch (phase_) {
    case Phase::COLUMNS: {
        auto* base = reinterpret_cast<std::byte*>(tracks_[track_].data());
        return {base + offset_, rows_ * sizeof(double) - offset_};
    }
    case Phase::WAVES: {
        auto& wave = waves_[path_][row_];
        return {reinterpret_cast<std::byte*>(wave.data()) + offset_, wave.size() * sizeof(double) - offset_};
    }
    case Phase::BUFFERING:
        if (buffer_.size() - bufferUsed_ < GROWTH_STEP) buffer_.resize(bufferUsed_ + GROWTH_STEP);
        return {reinterpret_cast<std::byte*>(buffer_.data()) + bufferUsed_, buffer_.size() - bufferUsed_};
    case Phase::SKIP:
    case Phase::DONE:
        break;
    }
    return {};
}

void EisResultDestination::commit(std::size_t count) {
    switch (phase_) {
    case Phase::COLUMNS:
        offset_ += count;
        consumed_ += count;
        if (offset_ == rows_ * sizeof(double)) {
            offset_ = 0;
            if (++track_ == columns_) startWaves();
        }
        break;
    case Phase::WAVES: {
        offset_ += count;
        consumed_ += count;
        auto& wave = waves_[path_][row_];
        if (offset_ == wave.size() * sizeof(double)) {
            fromLittleEndianInPlace(wave.data(), wave.size());
            ++row_;
            nextWave();
        }
        break;
    }
    case Phase::BUFFERING:
        bufferUsed_ += count;
        break;
    case Phase::SKIP:
    case Phase::DONE:
        break;
    }
}

std::size_t EisResultDestination::allocatedBytes() const {
    // A string's inline capacity is no allocation.
    std::size_t bytes = buffer_.capacity() > std::string().capacity() ? buffer_.capacity() : 0;
    for (const auto& track : tracks_) bytes += track.capacity() * sizeof(double);
    for (const auto& waves : waves_) {
        bytes += waves.capacity() * sizeof(EisDataset::Track);
        for (const auto& wave : waves) bytes += wave.capacity() * sizeof(double);
    }
    return bytes;
}

std::expected<EisDataset, ErrorObject> EisResultDestination::takeDataset(LiveDataHeaderEis&& header,
                                                                         JobInfo&& jobInfo, int protocolVersion) {
    if (failure) return std::unexpected(*failure);
    if (announcedRows_) {
        const auto expected = announcedBytes();
        if (!expected || received < *expected) {
            return std::unexpected(ErrorObject(ErrorCodeEnum::RESOURCE_CONTENT_INVALID,
                                               messages::RESULT_FRAME_SIZE_MISMATCH, received, *announcedRows_,
                                               static_cast<std::uint64_t>(columns_),
                                               expected ? std::to_string(*expected) : std::string("too many")));
        }
    }
    if (error_) return std::unexpected(*error_);
    if (phase_ == Phase::BUFFERING) {
        buffer_.resize(bufferUsed_);
        const std::string owned(std::move(buffer_));
        return eisDatasetFromBinary(owned, std::move(header), announcedRows_.value_or(0), std::move(jobInfo),
                                    protocolVersion);
    }
    if (phase_ == Phase::COLUMNS || phase_ == Phase::WAVES) {
        // The message ended before its stated length.
        return std::unexpected(ErrorObject(ErrorCodeEnum::RESOURCE_CONTENT_INVALID, messages::RESULT_FRAME_SIZE_MISMATCH,
                                           received, static_cast<std::uint64_t>(rows_),
                                           static_cast<std::uint64_t>(columns_), std::to_string(size_)));
    }
    return eisDatasetFromColumns(std::move(header), std::move(tracks_), std::move(waves_), std::move(jobInfo));
}

}  // namespace velmar
