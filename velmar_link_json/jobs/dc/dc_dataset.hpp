#pragma once

#include "json_common/logging/error_object.hpp"
#include "json_common/protocol/column_header.hpp"
#include "json_common/protocol/live_data_header.hpp"
#include "velmar_link_json/jobs/common/dataset.hpp"

#include <boost/json/fwd.hpp>

#include <cstddef>
#include <cstdint>
#include <expected>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace velmar {

/// The result of a DC job: a table of doubles stored column-major, one track per column,
/// with a header that says what each column holds. Track 0 is the time column by convention.
/// Invariant: header and tracks have the same count, whatever the source of the dataset (no
/// constructor or decoder leaves a column without its track, also without rows), and every
/// track has the row count as length; only appendDataRow with a short row can leave the
/// tracks ragged.
/// Single-threaded; lookups never throw.
class DcDataset : public DataSet {
public:
    /// The index returned by the lookups when nothing matches.
    static constexpr std::size_t NOT_FOUND = std::numeric_limits<std::size_t>::max();

    DcDataset() = default;
    /// An empty dataset with the columns and job types of a live-data header.
    DcDataset(LiveDataHeader&& header, JobInfo&& jobInfo);
    /// A dataset with given columns and tracks: one track per column. Missing tracks are added
    /// filled with quiet NaN to the length of track 0, tracks beyond the columns are dropped.
    DcDataset(std::string jobType, std::string jobTypeShort, std::vector<ColumnHeader> header,
              std::vector<std::vector<double>> tracks, JobInfo&& jobInfo);

    DcDataset(const DcDataset&) = default;
    DcDataset(DcDataset&&) noexcept = default;
    DcDataset& operator=(const DcDataset&) = default;
    DcDataset& operator=(DcDataset&&) noexcept = default;

    DatasetType getDatasetType() const override { return DatasetType::DC; }

    /// 0 without tracks, else the length of track 0.
    std::size_t getRowCount() const { return tracks_.empty() ? 0 : tracks_.front().size(); }
    const std::vector<ColumnHeader>& getHeader() const { return header_; }
    const std::vector<std::vector<double>>& getTracks() const { return tracks_; }
    const std::string& getJobType() const { return jobType_; }
    const std::string& getJobTypeShort() const { return jobTypeShort_; }

    /// First column whose unit, dimension and urn equal the argument's; NOT_FOUND otherwise.
    std::size_t indexOf(const ColumnHeader& column) const;
    /// First column of that dimension; NOT_FOUND otherwise.
    std::size_t indexOfDimension(std::string_view dimension) const;
    /// First column of that urn; NOT_FOUND otherwise.
    std::size_t indexOfUrn(std::string_view urn) const;

    /// The track of the dimension, or a shared empty track when there is none.
    const std::vector<double>& getDcTrack(std::string_view dimension) const;
    /// The shared empty track returned for unknown dimensions.
    static const std::vector<double>& emptyTrack();
    /// The dimensions in column order.
    std::vector<std::string> getDcDimensions() const;
    /// A copy of the tracks in column order.
    std::vector<std::vector<double>> getDcTracks() const { return tracks_; }

    /// Appends value i of the row to track i, for min(row size, column count) values: extra
    /// values are dropped; a short row leaves the later tracks short.
    void appendDataRow(const std::vector<double>& row);
    /// Same for a row of `count` values at `values`.
    void appendDataRow(const double* values, std::size_t count);

    /// Joins the other result behind this one. An empty dataset (no rows) becomes a copy of
    /// the other. Otherwise the included-dataset lists are merged; differing job types give
    /// "DC Combined" / "DC"; columns missing on either side are filled with quiet NaN so that
    /// all tracks keep a common length, columns only in the other are added behind the
    /// existing ones; appended time values (track 0) are shifted by t_last + gapSeconds.
    /// Appending a dataset to itself is allowed.
    void append(const DcDataset& other, double gapSeconds);

    /// Type "DC", job types, row count, first value of track 0 (NaN without rows), job info.
    DatasetInfo getInfo() const override;

    /// The `dataset` element (type "DC"): the columns in `data-structure`, the `sections` and
    /// the table in `csv`. Defined by velmar_xml.
    void acceptSerializer(VXml::XmlSerializer& serializer) const override;
    /// Reads a `dataset` element of type "DC". Fails with RESOURCE_CONTENT_INVALID naming the
    /// missing element, attribute or the table that does not match its declaration.
    static std::expected<DcDataset, ErrorObject> buildFromXmlElement(const tinyxml2::XMLElement* element,
                                                                     VXml::DeserializationContext& context);

    /// Mutable access for decoders that fill the tracks in place: one track per column stays,
    /// sizes must stay equal. Tracks moved out must be handed back through the constructor.
    std::vector<std::vector<double>>& tracksForWriting() { return tracks_; }

private:
    struct ColumnMatch {
        /// Pairs (index here, index in other) of the columns present in both.
        std::vector<std::pair<std::size_t, std::size_t>> common;
        std::vector<std::size_t> onlyHere;
        std::vector<std::size_t> onlyOther;
    };
    /// Sorts the columns of both datasets into present-in-both, only-here and only-other.
    ColumnMatch fillVectors(const DcDataset& other) const;

    std::string jobType_;
    std::string jobTypeShort_;
    std::vector<ColumnHeader> header_;
    std::vector<std::vector<double>> tracks_;
};

/// The flat binary table: every track in column order as little-endian IEEE-754 binary64,
/// no header. Refuses a ragged dataset (RESOURCE_CONTENT_INVALID, naming the first short
/// column); a dataset without tracks gives an empty string.
std::expected<std::string, ErrorObject> dcDatasetToBinary(const DcDataset& dataset);

/// The inverse of dcDatasetToBinary: with C the header's column count, the row count is the
/// payload length / (C x 8) rounded down; track i takes the i-th block of row-count values.
/// Trailing bytes that do not fill a row are ignored. Each track is sized once and filled by
/// a single copy.
DcDataset dcDatasetFromBinary(std::string_view payload, LiveDataHeader&& header, JobInfo&& jobInfo);
/// Same, taking over the downloaded frame; its memory is released before returning.
DcDataset dcDatasetFromBinary(std::string&& payload, LiveDataHeader&& header, JobInfo&& jobInfo);

/// Sizes a track for `rows` values that are about to be written in bulk. Large tracks ask the
/// kernel for huge pages first: the page faults of first touch otherwise cost several times
/// the copy itself.
void sizeTrackForBulkWrite(std::vector<double>& track, std::size_t rows);

/// Builds a dataset from an array of recorded live-data events: the "LIVE_DATA_HEADER" event
/// gives the header at "/event/header", each "LIVE_DATA_ROWS" event rows at "/event/data"
/// (an array of number arrays, or Base64 text of binary rows, see live_data_header.hpp), the
/// "LIVE_DATA_FINISHED" event the job information at "/event/job_info". Other elements are
/// skipped. Fails with JSON_MALFORMED for malformed events or rows, RESOURCE_CONTENT_INVALID
/// for Base64 rows ("Invalid Base64 string length." for a text of invalid length, or a block
/// that is not a whole number of rows).
std::expected<DcDataset, ErrorObject> dcDatasetFromJson(const boost::json::value& events);

/// value_to<DcDataset>: dcDatasetFromJson, throwing VelmarLinkException on failure.
DcDataset tag_invoke(const boost::json::value_to_tag<DcDataset>&, const boost::json::value& jv);

}  // namespace velmar
