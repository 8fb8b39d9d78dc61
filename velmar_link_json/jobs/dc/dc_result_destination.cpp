#include "velmar_link_json/jobs/dc/dc_result_destination.hpp"

#include "json_common/logging/error_messages.hpp"

#include <algorithm>
#include <bit>
#include <limits>

namespace velmar {

DcResultDestination::DcResultDestination(std::size_t columns, std::optional<std::uint64_t> announcedRows)
    : columns_(columns), announcedRows_(announcedRows) {}

std::optional<std::uint64_t> DcResultDestination::announcedBytes() const {
    if (!announcedRows_) return std::nullopt;
    const std::uint64_t rowBytes = static_cast<std::uint64_t>(columns_) * sizeof(double);
    if (rowBytes != 0 && *announcedRows_ > std::numeric_limits<std::uint64_t>::max() / rowBytes) return std::nullopt;
    return *announcedRows_ * rowBytes;
}

void DcResultDestination::begin(std::uint64_t size, bool exact) {
    tracks_.clear();
    rows_ = track_ = trackOffset_ = 0;
    direct_ = buffering_ = false;
    std::string().swap(buffer_);
    bufferUsed_ = 0;
    if (columns_ == 0) return;
    const auto expected = announcedBytes();
    if (announcedRows_ && (!expected || (exact ? size != *expected : size > *expected))) return;
    if (!exact) {
        buffering_ = true;
        return;
    }
    // The stated length is checked by the transport against the link's limit; the tracks
    // take whole rows, trailing bytes are dropped.
    rows_ = static_cast<std::size_t>(size / (columns_ * sizeof(double)));
    if (rows_ == 0) return;
    tracks_.resize(columns_);
    for (auto& track : tracks_) sizeTrackForBulkWrite(track, rows_);
    direct_ = true;
}

std::span<std::byte> DcResultDestination::prepare() {
    if (direct_) {
        if (track_ == columns_) return {};
        auto* base = reinterpret_cast<std::byte*>(tracks_[track_].data());
        return {base + trackOffset_, rows_ * sizeof(double) - trackOffset_};
    }
    if (!buffering_) return {};
    std::size_t wanted = GROWTH_STEP;
    if (const auto expected = announcedBytes()) {
        // Beyond the announced length nothing is kept: the count alone shows the mismatch.
        if (bufferUsed_ >= *expected) return {};
        wanted = static_cast<std::size_t>(std::min<std::uint64_t>(wanted, *expected - bufferUsed_));
    }
    if (buffer_.size() - bufferUsed_ < wanted) buffer_.resize(bufferUsed_ + wanted);
    return {reinterpret_cast<std::byte*>(buffer_.data()) + bufferUsed_, buffer_.size() - bufferUsed_};
}

void DcResultDestination::commit(std::size_t count) {
    if (direct_) {
        trackOffset_ += count;
        if (trackOffset_ == rows_ * sizeof(double)) {
            ++track_;
            trackOffset_ = 0;
        }
    } else if (buffering_) {
        bufferUsed_ += count;
    }
}

std::size_t DcResultDestination::allocatedBytes() const {
    // A string's inline capacity is no allocation.
    std::size_t bytes = buffer_.capacity() > std::string().capacity() ? buffer_.capacity() : 0;
    for (const auto& track : tracks_) bytes += track.capacity() * sizeof(double);
    return bytes;
}

std::expected<DcDataset, ErrorObject> DcResultDestination::takeDataset(LiveDataHeader&& header, JobInfo&& jobInfo) {
    if (failure) return std::unexpected(*failure);
    if (announcedRows_) {
        const auto expected = announcedBytes();
        if (!expected || received != *expected) {
            return std::unexpected(ErrorObject(ErrorCodeEnum::RESOURCE_CONTENT_INVALID,
                                               messages::RESULT_FRAME_SIZE_MISMATCH, received, *announcedRows_,
                                               static_cast<std::uint64_t>(columns_),
                                               expected ? std::to_string(*expected) : std::string("too many")));
        }
    }
    if (buffering_) {
        buffer_.resize(bufferUsed_);
        return dcDatasetFromBinary(std::move(buffer_), std::move(header), std::move(jobInfo));
    }
    if (!direct_) {
        // Not one whole row (or no column): the tracks stay empty.
        return DcDataset(std::move(header), std::move(jobInfo));
    }
    if (track_ != columns_) {
        const auto stated = static_cast<std::uint64_t>(rows_) * columns_ * sizeof(double);
        return std::unexpected(ErrorObject(ErrorCodeEnum::RESOURCE_CONTENT_INVALID,
                                           messages::RESULT_FRAME_SIZE_MISMATCH, received,
                                           static_cast<std::uint64_t>(rows_), static_cast<std::uint64_t>(columns_),
                                           std::to_string(stated)));
    }
    if constexpr (std::endian::native != std::endian::little) {
        for (auto& track : tracks_) {
            for (auto& value : track) value = std::bit_cast<double>(std::byteswap(std::bit_cast<std::uint64_t>(value)));
        }
    }
    return DcDataset(std::move(header.measurement_type), std::move(header.measurement_type_short),
                     std::move(header.columns), std::move(tracks_), std::move(jobInfo));
}

}  // namespace velmar
