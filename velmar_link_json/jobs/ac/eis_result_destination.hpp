#pragma once

#include "json_common/logging/error_object.hpp"
#include "json_common/protocol/live_data_eis.hpp"
#include "velmar_link_json/binary_destination.hpp"
#include "velmar_link_json/jobs/ac/eis_dataset.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"

#include <cstddef>
#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <vector>

namespace velmar {

/// The destination of an impedance job result download (the binary form of EisDataset: every
/// column with R values, then per sync path the wave of each row). When the frame header
/// states the message's length, the columns are written straight into tracks sized from that
/// length and each wave straight into its own vector, sized from the "wave_size" value just
/// received and checked against the bytes that remain; nothing is sized from the resource
/// header's claim alone. A fragmented message is collected in bounded steps and decoded when
/// it has ended. Used on the I/O thread while the download runs, then by its owner (see
/// BinaryDestination).
class EisResultDestination final : public BinaryDestination {
public:
    /// Bytes added at a time to the buffer of a fragmented message.
    static constexpr std::size_t GROWTH_STEP = std::size_t{1} << 20;

    /// `header`: the result's live-data header (its column count, sync paths and "wave_size"
    /// column are taken); `announcedRows`: its "number_of_rows", if given (0 counts as not
    /// given: the row count then follows from the length).
    EisResultDestination(const LiveDataHeaderEis& header, std::optional<std::uint64_t> announcedRows);

    void begin(std::uint64_t size, bool exact) override;
    std::span<std::byte> prepare() override;
    void commit(std::size_t count) override;

    /// Storage held for the message: tracks, waves and buffer.
    std::size_t allocatedBytes() const;

    /// The dataset once the message has ended, its identical waves merged. Fails with
    /// RESOURCE_CONTENT_INVALID when announced rows do not fit the message (shorter than rows
    /// x columns x 8 bytes), when a "wave_size" value is no sample count or claims more than
    /// remains, or when the message ended early; a refused message gives its failure.
    std::expected<EisDataset, ErrorObject> takeDataset(LiveDataHeaderEis&& header, JobInfo&& jobInfo,
                                                       int protocolVersion);

private:
    enum class Phase { SKIP, COLUMNS, WAVES, DONE, BUFFERING };

    /// The length that the announced rows give, when rows are announced and it can be represented.
    std::optional<std::uint64_t> announcedBytes() const;
    /// After the columns: decides the wave section and moves to its first wave.
    void startWaves();
    /// Moves to the next wave that has samples, or to DONE.
    void nextWave();

    std::size_t columns_;
    std::size_t paths_;
    std::size_t waveSizeColumn_;
    std::optional<std::uint64_t> announcedRows_;

    Phase phase_ = Phase::SKIP;
    std::uint64_t size_ = 0;
    std::uint64_t consumed_ = 0;
    std::size_t rows_ = 0;
    std::vector<EisDataset::Track> tracks_;
    std::vector<EisDataset::Waves> waves_;
    /// Samples of every wave when there is no "wave_size" column.
    std::size_t uniformWave_ = 0;
    std::size_t track_ = 0;
    std::size_t path_ = 0;
    std::size_t row_ = 0;
    /// Bytes written into the current track or wave.
    std::size_t offset_ = 0;
    std::optional<ErrorObject> error_;
    /// A fragmented message: its bytes in order; `bufferUsed_` of them are written.
    std::string buffer_;
    std::size_t bufferUsed_ = 0;
};

}  // namespace velmar
