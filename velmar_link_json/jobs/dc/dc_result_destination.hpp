#pragma once

#include "json_common/logging/error_object.hpp"
#include "json_common/protocol/live_data_header.hpp"
#include "velmar_link_json/binary_destination.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"
#include "velmar_link_json/jobs/dc/dc_dataset.hpp"

#include <cstddef>
#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <vector>

namespace velmar {

/// The destination of a DC job result download (column-major little-endian binary64, one
/// block of R values per column). Nothing is allocated from the resource header's claim: when
/// the frame header states the message's length, the tracks are sized from that length (and
/// only if it matches the announced row count); a fragmented message is collected in bounded
/// steps as its bytes arrive. Used on the I/O thread while the download runs, then by its
/// owner (see BinaryDestination).
class DcResultDestination final : public BinaryDestination {
public:
    /// Bytes added at a time to the buffer of a fragmented message.
    static constexpr std::size_t GROWTH_STEP = std::size_t{1} << 20;

    /// `columns`: the header's column count; `announcedRows`: its "number_of_rows", if given.
    DcResultDestination(std::size_t columns, std::optional<std::uint64_t> announcedRows);

    void begin(std::uint64_t size, bool exact) override;
    std::span<std::byte> prepare() override;
    void commit(std::size_t count) override;

    /// Storage held for the message: the tracks' capacity and the buffer's.
    std::size_t allocatedBytes() const;

    /// The dataset once the message has ended. With announced rows, a message of another
    /// length than rows x columns x 8 bytes fails with RESOURCE_CONTENT_INVALID; without, the
    /// row count follows from the length (trailing bytes that do not fill a row are ignored).
    /// A refused message gives its failure.
    std::expected<DcDataset, ErrorObject> takeDataset(LiveDataHeader&& header, JobInfo&& jobInfo);

private:
    /// The length that the announced rows give; none without announced rows or when it
    /// cannot be represented.
    std::optional<std::uint64_t> announcedBytes() const;

    std::size_t columns_;
    std::optional<std::uint64_t> announcedRows_;
    /// Tracks sized from the stated length, written one after the other.
    std::vector<std::vector<double>> tracks_;
    std::size_t rows_ = 0;
    std::size_t track_ = 0;
    std::size_t trackOffset_ = 0;
    bool direct_ = false;
    /// A fragmented message: its bytes in order; `bufferUsed_` of them are written.
    std::string buffer_;
    std::size_t bufferUsed_ = 0;
    bool buffering_ = false;
};

}  // namespace velmar
