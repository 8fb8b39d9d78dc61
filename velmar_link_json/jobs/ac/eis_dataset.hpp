#pragma once

#include "json_common/logging/error_object.hpp"
#include "json_common/protocol/column_header.hpp"
#include "json_common/protocol/impedance_headers.hpp"
#include "json_common/protocol/live_data_eis.hpp"
#include "velmar_link_json/jobs/common/dataset.hpp"

#include <boost/json/fwd.hpp>

#include <array>
#include <complex>
#include <cstddef>
#include <cstdint>
#include <expected>
#include <limits>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velmar {

/// The result of an impedance job: one row per frequency point; per row the meta columns,
/// one column group per impedance, synchronous path, asynchronous path and potentiostat, and
/// per synchronous path the time-domain wave recorded at that point (rows may share a wave
/// through the "wave_id" meta column). Column-major: one track per column.
///
/// The header is kept whole; the positions of the well-known columns are cached by dimension
/// when the dataset is built, and helper objects (impedances, paths, potentiostats, in ordered
/// maps) point into the tracks. Lookups never throw: what is not found is a sentinel or the
/// shared empty track. Helper objects are invalidated by every change of the dataset (append,
/// appendDataRow, assignment). Single-threaded.
class EisDataset : public DataSet {
public:
    /// The index returned by the lookups when nothing matches.
    static constexpr std::size_t NOT_FOUND = std::numeric_limits<std::size_t>::max();

    using Track = std::vector<double>;
    /// The column tracks of one group element (one impedance, path or potentiostat).
    using GroupTracks = std::vector<Track>;
    /// The waves of one synchronous path, indexed by wave id.
    using Waves = std::vector<std::vector<double>>;
    using ComplexTrack = std::vector<std::complex<double>>;
    /// Frequency to complex impedance.
    using Spectra = std::map<double, std::complex<double>>;
    /// (numerator uri, denominator uri).
    using ImpedanceKey = std::pair<std::string, std::string>;

    /// An impedance of the dataset: its header and its tracks by dimension.
    class ImpedanceData {
    public:
        ImpedanceData() = default;
        ImpedanceData(const ImpedanceDataHeader* header, std::map<std::string, const Track*, std::less<>> tracks,
                      const Track* frequencies, std::string numeratorName, std::string denominatorName);

        /// False for the sentinel INVALID_IMPEDANCE_DATA.
        bool isValid() const { return header_ != nullptr; }
        const ImpedanceDataHeader& getHeader() const;
        /// The track of that dimension, or the shared empty track.
        const Track& getTrack(std::string_view dimension) const;
        /// The dimensions of its tracks, in column order.
        std::vector<std::string> getTrackNames() const;
        /// m·cos φ + j·m·sin φ per row from "|impedance|" and "phase" (radians); empty when one
        /// of them is missing.
        ComplexTrack getCalculatedComplexImpedanceTrack() const;
        /// Frequency to complex impedance, from the dataset's "frequency" meta column.
        Spectra getCalculatedSpectra() const;
        /// The names of the numerator and denominator paths (their dimension names), or the
        /// uris when no path of that uri is in the dataset.
        const std::string& getNumeratorDimension() const { return numeratorName_; }
        const std::string& getDenominatorDimension() const { return denominatorName_; }
        /// The configured name, or "numerator/denominator" when none was configured.
        std::string getImpedanceName() const;

    private:
        const ImpedanceDataHeader* header_ = nullptr;
        std::map<std::string, const Track*, std::less<>> tracks_;
        const Track* frequencies_ = nullptr;
        std::string numeratorName_;
        std::string denominatorName_;
    };

    /// A synchronous path: its tracks by dimension, its waves and the impedances it takes part in.
    class PathData {
    public:
        PathData() = default;
        PathData(std::string name, const PathDataHeader* header, std::map<std::string, const Track*, std::less<>> tracks,
                 const Waves* waves);

        bool isValid() const { return header_ != nullptr; }
        const std::string& getName() const { return name_; }
        const PathDataHeader& getHeader() const;
        /// The "dc" track, or the shared empty track.
        const Track& getDcTrack() const;
        const Track& getTrack(std::string_view dimension) const;
        std::vector<std::string> getTrackNames() const;
        /// Indexed by wave id; an empty list for the sentinel.
        const Waves& getWaves() const;
        /// The impedance of that name (impedance name or "numerator/denominator") in which this
        /// path takes part, or INVALID_IMPEDANCE_DATA.
        const ImpedanceData& getImpedanceData(std::string_view name) const;
        /// The impedances in which this path is numerator or denominator.
        const std::vector<const ImpedanceData*>& getImpedanceData() const { return impedances_; }

    private:
        friend class EisDataset;
        std::string name_;
        const PathDataHeader* header_ = nullptr;
        std::map<std::string, const Track*, std::less<>> tracks_;
        const Waves* waves_ = nullptr;
        std::vector<const ImpedanceData*> impedances_;
    };

    /// A potentiostat: its tracks by dimension.
    class PotentiostatData {
    public:
        PotentiostatData() = default;
        PotentiostatData(std::string name, const PotentiostatDataHeader* header,
                         std::map<std::string, const Track*, std::less<>> tracks);

        bool isValid() const { return header_ != nullptr; }
        /// The potentiostat's uri.
        const std::string& getIdentifier() const { return name_; }
        const PotentiostatDataHeader& getHeader() const;
        const Track& getTrack(std::string_view dimension) const;
        /// The "dc" track, or the shared empty track.
        const Track& getDcTrack() const;
        std::vector<std::string> getTrackNames() const;

    private:
        std::string name_;
        const PotentiostatDataHeader* header_ = nullptr;
        std::map<std::string, const Track*, std::less<>> tracks_;
    };

    /// The sentinels returned by lookups that find nothing (compare by address).
    static const ImpedanceData INVALID_IMPEDANCE_DATA;
    static const PathData INVALID_PATH;
    static const PotentiostatData INVALID_POTENTIOSTAT;
    /// The shared empty track and wave list.
    static const Track& emptyTrack();
    static const Waves& emptyWaves();

    EisDataset();
    explicit EisDataset(JobInfo&& jobInfo);
    /// An empty dataset with the columns of a live-data header (one empty track per column).
    EisDataset(LiveDataHeaderEis&& header, JobInfo&& jobInfo);
    /// Takes every group whole (one GroupTracks per group element, in header order; one
    /// Waves per sync path), caches the column positions and builds the helper objects.
    EisDataset(LiveDataHeaderEis&& header, std::vector<GroupTracks> impedances, std::vector<GroupTracks> paths,
               std::vector<Waves> pathWaves, std::vector<GroupTracks> asyncPaths,
               std::vector<GroupTracks> potentiostats, GroupTracks meta, JobInfo&& jobInfo);

    /// Copies and moves rebuild the helper objects (they point into the tracks).
    EisDataset(const EisDataset& other);
    EisDataset(EisDataset&& other) noexcept;
    EisDataset& operator=(const EisDataset& other);
    EisDataset& operator=(EisDataset&& other) noexcept;
    ~EisDataset() override;

    DatasetType getDatasetType() const override { return DatasetType::AC; }
    /// Type "AC", job types, row count, first "time" value (NaN without rows), job info.
    DatasetInfo getInfo() const override;

    /// The `dataset` element (type "AC"): `configuration` with one column class per group,
    /// `data-structure`, `sections`, the table in `csv` and one wave table per sync path.
    /// Defined by velmar_xml.
    void acceptSerializer(VXml::XmlSerializer& serializer) const override;
    /// Reads a `dataset` element of type "AC"; the wave tables in the layout of
    /// `context.file_version`. Fails with RESOURCE_CONTENT_INVALID and the reason.
    static std::expected<EisDataset, ErrorObject> buildFromXmlElement(const tinyxml2::XMLElement* element,
                                                                      VXml::DeserializationContext& context);

    const LiveDataHeaderEis& getHeader() const { return header_; }
    const std::string& getJobType() const { return header_.measurement_type; }
    const std::string& getJobTypeShort() const { return header_.measurement_type_short; }
    const std::vector<ColumnHeader>& getMetaDataHeader() const { return header_.meta; }
    const std::vector<ImpedanceDataHeader>& getImpedancesHeaders() const { return header_.impedances; }
    const std::vector<PathDataHeader>& getPathsDataHeaders() const { return header_.paths; }
    const std::vector<PathDataHeader>& getAsyncPathsDataHeaders() const { return header_.async_paths; }
    const std::vector<PotentiostatDataHeader>& getPotentiostatsDataHeaders() const { return header_.potentiostats; }

    /// The length of the first meta column (0 without meta columns).
    std::size_t getRowCount() const;

    // Raw groups, in header order.
    const GroupTracks& getMetaTracks() const { return meta_; }
    const std::vector<GroupTracks>& getImpedances() const { return impedances_; }
    const std::vector<GroupTracks>& getPaths() const { return paths_; }
    const std::vector<Waves>& getPathsWaves() const { return pathWaves_; }
    const std::vector<GroupTracks>& getAsyncPaths() const { return asyncPaths_; }
    const std::vector<GroupTracks>& getPotentiostats() const { return potentiostats_; }

    /// Meta track i, or the empty track.
    const Track& getMetaColumn(std::size_t i) const;
    /// The "dc" track of sync path p, or the empty track.
    const Track& getPathDcValues(std::size_t p) const;
    /// The waves of sync path p, or an empty list.
    const Waves& getPathWaves(std::size_t p) const;
    const Track& getWaveIds() const;
    const Track& getWaveSizes() const;
    const Track& getFrequencies() const;
    const Track& getPeriods() const;
    const Track& getTimes() const;
    /// The row itself without a "wave_id" column or beyond it; else "wave_id"[row] rounded
    /// half away from zero.
    std::int64_t getWaveIdForRow(std::size_t row) const;
    /// Wave getWaveIdForRow(row) of sync path p; empty when p or the id is out of range or
    /// negative.
    const std::vector<double>& getWaveForRow(std::size_t p, std::size_t row) const;
    /// Same for the sync path of that name.
    const std::vector<double>& getWaveForRow(std::string_view pathName, std::size_t row) const;
    /// Impedance i as complex values; empty when i is out of range or "|impedance|" or
    /// "phase" is missing.
    ComplexTrack getImpedances(std::size_t i) const;

    const std::map<ImpedanceKey, ImpedanceData>& getImpedancesData() const { return impedanceData_; }
    const ImpedanceData& getImpedanceData(const std::string& numerator, const std::string& denominator) const;
    /// The first entry in key order whose numerator or denominator equals the text.
    const ImpedanceData& getImpedanceData(std::string_view uri) const;
    const ImpedanceData& getImpedanceDataByName(std::string_view name) const;
    const ImpedanceData& getImpedanceData() const;
    /// Sync paths by name.
    const std::map<std::string, PathData, std::less<>>& getPathsData() const { return pathData_; }
    const PathData& getPathData(std::string_view name) const;
    /// Potentiostats by uri.
    const std::map<std::string, PotentiostatData, std::less<>>& getPotentiostatsData() const {
        return potentiostatData_;
    }
    const PotentiostatData& getPotentiostatData(std::string_view identifier) const;
    const PotentiostatData& getPotentiostatData() const;

    /// Names for the language binding: getImpedancesNames() and getImpedancesDimensions() in
    /// the order of getImpedancesData() (the latter as "numerator dimension/denominator
    /// dimension"), getPathsDimensions() the sync path names, getPotentiostatsIdentifiers()
    /// the potentiostat uris.
    std::vector<std::string> getImpedancesNames() const;
    std::vector<std::string> getImpedancesDimensions() const;
    std::vector<std::string> getPathsDimensions() const;
    std::vector<std::string> getPotentiostatsIdentifiers() const;

    // Column positions by dimension in each group (NOT_FOUND when absent).
    static std::size_t indexOf(const std::vector<ColumnHeader>& headers, const ColumnHeader& column);
    static std::size_t indexOfDimension(const std::vector<ColumnHeader>& headers, std::string_view dimension);
    static std::size_t indexOfColumnHeaderInHeaderVector(const std::vector<ColumnHeader>& headers,
                                                         const ColumnHeader& column);
    /// The position of the path of that uri in the list.
    static std::size_t indexOfDataHeaderWithUriInHeaderVector(const PathDataHeader& path,
                                                              const std::vector<PathDataHeader>& headers);
    /// The position of the impedance with that (numerator, denominator) in this header.
    std::size_t indexOfImpedance(const ImpedanceDataHeader& impedance) const;
    std::size_t indexOfPathDimension(std::string_view name) const;
    std::size_t indexOfAsyncPathDimension(std::string_view name) const;
    std::size_t findIndexOfColumInMeta(std::string_view dimension) const;
    std::size_t findIndexOfColumInImpedance(std::size_t impedance, std::string_view dimension) const;
    std::size_t findIndexOfColumInPath(std::size_t path, std::string_view dimension) const;
    std::size_t findIndexOfColumInPotentiostat(std::size_t potentiostat, std::string_view dimension) const;

    /// True when every track of every group has the row count.
    bool hasConsistentShape() const;
    /// Appends one row of every group and the row's waves (a path's wave is added when the
    /// row carries one; "wave_id" of the row then refers to it).
    void appendDataRow(const LiveDataRowEis& row);
    /// Joins another result behind this one (see the dataset's documentation); true on success.
    bool append(const EisDataset& other, double gapSeconds);
    /// Merges identical waves of each path (exact equality of all samples, found by hashing)
    /// and renumbers "wave_id" to point at the kept waves.
    void dedupWaves();

    /// Mutable access for decoders that fill the groups in place; call rebuildHelperObjects()
    /// afterwards.
    GroupTracks& metaForWriting() { return meta_; }
    std::vector<GroupTracks>& impedancesForWriting() { return impedances_; }
    std::vector<GroupTracks>& pathsForWriting() { return paths_; }
    std::vector<Waves>& pathsWavesForWriting() { return pathWaves_; }
    std::vector<GroupTracks>& asyncPathsForWriting() { return asyncPaths_; }
    std::vector<GroupTracks>& potentiostatsForWriting() { return potentiostats_; }
    /// Recomputes the cached column positions and rebuilds the helper objects.
    void rebuildHelperObjects();

    /// The dimensions whose positions are cached in each impedance, sync path and
    /// potentiostat group, in the order of the cached positions.
    static constexpr std::array<std::string_view, 6> IMPEDANCE_DIMENSIONS{
        "|impedance|", "phase", "impedance error", "phase error", "impedance drift", "phase drift"};
    static constexpr std::array<std::string_view, 5> PATH_DIMENSIONS{"dc", "gain", "filter", "thd", "drift"};
    static constexpr std::array<std::string_view, 4> POTENTIOSTAT_DIMENSIONS{"dc", "shunt", "bandwith", "filter"};

private:
    void cacheColumnPositions();
    void createHelperObjects();
    /// Adds a "wave_id" meta column when there is none, holding the ids that rows have without
    /// it (row r refers to wave r, rows beyond the waves to none, -1). Returns its position.
    std::size_t ensureWaveIdColumn();
    /// The number of waves of the sync path holding the most.
    std::size_t maxWaveCount() const;
    /// Appends the other's "wave_id" values (or the ids its rows have without the column),
    /// those that refer to a wave increased by `waveOffset`.
    static void appendShiftedWaveIds(Track& ids, const EisDataset& source, std::size_t waveOffset);

    LiveDataHeaderEis header_;
    GroupTracks meta_;
    std::vector<GroupTracks> impedances_;
    std::vector<GroupTracks> paths_;
    std::vector<Waves> pathWaves_;
    std::vector<GroupTracks> asyncPaths_;
    std::vector<GroupTracks> potentiostats_;

    /// Cached positions of the well-known meta columns.
    struct MetaPositions {
        std::size_t frequency = NOT_FOUND;
        std::size_t periods = NOT_FOUND;
        std::size_t time = NOT_FOUND;
        std::size_t waveId = NOT_FOUND;
        std::size_t waveSize = NOT_FOUND;
    } metaPositions_;
    /// Cached positions of IMPEDANCE_DIMENSIONS, PATH_DIMENSIONS and POTENTIOSTAT_DIMENSIONS
    /// per group element.
    std::vector<std::array<std::size_t, IMPEDANCE_DIMENSIONS.size()>> impedancePositions_;
    std::vector<std::array<std::size_t, PATH_DIMENSIONS.size()>> pathPositions_;
    std::vector<std::array<std::size_t, POTENTIOSTAT_DIMENSIONS.size()>> potentiostatPositions_;

    std::map<ImpedanceKey, ImpedanceData> impedanceData_;
    std::map<std::string, PathData, std::less<>> pathData_;
    std::map<std::string, PotentiostatData, std::less<>> potentiostatData_;
};

/// The header to store beside the binary table, and the table itself.
struct EisBinaryForm {
    /// The dataset's header; carries "wave_id" and "wave_size" meta columns when waves exist.
    LiveDataHeaderEis header;
    std::uint64_t rowCount = 0;
    /// Machine byte order (little-endian) binary64: all meta columns, each impedance's,
    /// each sync path's, each async path's, each potentiostat's columns, then the waves of
    /// each sync path, row by row.
    std::string data;
};

/// The flat binary form; fails (RESOURCE_CONTENT_INVALID) with the write-check messages.
std::expected<EisBinaryForm, ErrorObject> eisDatasetToBinary(const EisDataset& dataset);

/// Rebuilds a dataset from its binary form. `rowCount` 0 with at least 8 bytes: derived
/// from the length. `protocolVersion`: the writer's protocol version.
std::expected<EisDataset, ErrorObject> eisDatasetFromBinary(std::string_view data, LiveDataHeaderEis&& header,
                                                            std::uint64_t rowCount, JobInfo&& jobInfo,
                                                            int protocolVersion);

/// Builds a dataset from its columns in the order of the binary table (header.allColumns())
/// and the waves read per row (one list per sync path, wave r belonging to row r; empty for
/// a row without wave). Rows with a wave get "wave_id" r (the column is added when missing),
/// rows without keep a negative id or get -1; then identical waves are merged (dedupWaves).
/// Missing columns are added empty, surplus ones dropped.
EisDataset eisDatasetFromColumns(LiveDataHeaderEis&& header, std::vector<EisDataset::Track>&& columns,
                                 std::vector<EisDataset::Waves>&& rowWaves, JobInfo&& jobInfo);

/// From an array of recorded events ("LIVE_DATA_HEADER_EIS", "LIVE_DATA_ROW_EIS",
/// "LIVE_DATA_FINISHED"); `header` and `jobInfo` are used when the array carries none.
std::expected<EisDataset, ErrorObject> eisDatasetFromJsonArray(const boost::json::array& events,
                                                               LiveDataHeaderEis&& header, JobInfo&& jobInfo);

/// value_to<EisDataset>: eisDatasetFromJsonArray, throwing VelmarLinkException on failure.
EisDataset tag_invoke(const boost::json::value_to_tag<EisDataset>&, const boost::json::value& jv);

}  // namespace velmar
