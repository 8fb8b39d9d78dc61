#include "velmar_link_json/jobs/ac/eis_dataset.hpp"

#include "velmar_link_json/jobs/ac/eis_messages.hpp"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <iostream>
#include <unordered_map>
#include <unordered_set>

namespace velmar {

namespace {

constexpr double QUIET_NAN = std::numeric_limits<double>::quiet_NaN();
constexpr std::size_t NOT_FOUND = EisDataset::NOT_FOUND;

template <class Header>
const Header& emptyGroupHeader() {
    static const Header header;
    return header;
}

using TrackMap = std::map<std::string, const EisDataset::Track*, std::less<>>;

/// The tracks of one group element by dimension (the first column of a dimension wins).
TrackMap tracksByDimension(const std::vector<ColumnHeader>& columns, const EisDataset::GroupTracks& tracks) {
    TrackMap map;
    const std::size_t n = std::min(columns.size(), tracks.size());
    for (std::size_t c = 0; c < n; ++c) map.emplace(columns[c].dimension, &tracks[c]);
    return map;
}

const EisDataset::Track& trackIn(const TrackMap& tracks, std::string_view dimension) {
    const auto found = tracks.find(dimension);
    return found == tracks.end() ? EisDataset::emptyTrack() : *found->second;
}

std::vector<std::string> namesOf(const TrackMap& tracks, const std::vector<ColumnHeader>& columns) {
    std::vector<std::string> names;
    for (const auto& column : columns) {
        if (tracks.contains(column.dimension)) names.push_back(column.dimension);
    }
    return names;
}

/// One track per column of each group element, the outer list one entry per element.
template <class Header>
void shapeGroups(std::vector<EisDataset::GroupTracks>& groups, const std::vector<Header>& headers) {
    groups.resize(headers.size());
    for (std::size_t i = 0; i < headers.size(); ++i) groups[i].resize(headers[i].columns.size());
}

template <std::size_t N>
std::array<std::size_t, N> positionsOf(const std::vector<ColumnHeader>& columns,
                                       const std::array<std::string_view, N>& dimensions) {
    std::array<std::size_t, N> positions{};
    for (std::size_t d = 0; d < N; ++d) positions[d] = EisDataset::indexOfDimension(columns, dimensions[d]);
    return positions;
}

template <class Headers>
bool groupTracksHaveRows(const std::vector<EisDataset::GroupTracks>& groups, const Headers& headers,
                         std::size_t rows) {
    if (groups.size() != headers.size()) return false;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        if (groups[i].size() != headers[i].columns.size()) return false;
        for (const auto& track : groups[i]) {
            if (track.size() != rows) return false;
        }
    }
    return true;
}

void appendValues(EisDataset::GroupTracks& tracks, const std::vector<double>& values) {
    const std::size_t n = std::min(tracks.size(), values.size());
    for (std::size_t c = 0; c < n; ++c) tracks[c].push_back(values[c]);
}

void appendLists(std::vector<EisDataset::GroupTracks>& groups, const NumberLists& lists) {
    const std::size_t n = std::min(groups.size(), lists.size());
    for (std::size_t i = 0; i < n; ++i) appendValues(groups[i], lists[i]);
}

void appendTracks(EisDataset::GroupTracks& to, const EisDataset::GroupTracks& from) {
    const std::size_t n = std::min(to.size(), from.size());
    for (std::size_t c = 0; c < n; ++c) to[c].insert(to[c].end(), from[c].begin(), from[c].end());
}

/// Appends the other's tracks of each group element to the matching element here; `find`
/// gives the position of an element's counterpart in the other. The first element without
/// counterpart ends the group with "header mismatch".
template <class Headers, class Find, class Also>
void appendGroup(std::vector<EisDataset::GroupTracks>& to, const Headers& headers,
                 const std::vector<EisDataset::GroupTracks>& from, Find find, Also also) {
    for (std::size_t i = 0; i < headers.size() && i < to.size(); ++i) {
        const std::size_t j = find(headers[i]);
        if (j == NOT_FOUND || j >= from.size()) {
            std::cerr << "EisDataset: " << messages::EIS_APPEND_HEADER_MISMATCH << '\n';
            return;
        }
        appendTracks(to[i], from[j]);
        also(i, j);
    }
}

/// Bit patterns, so that equal waves are exactly equal (NaN payloads and the sign of zero
/// included).
std::uint64_t bitsOf(double value) { return std::bit_cast<std::uint64_t>(value); }

std::uint64_t mix(std::uint64_t hash, std::uint64_t value) {
    hash ^= value + 0x9E3779B97F4A7C15ULL + (hash << 6) + (hash >> 2);
    hash ^= hash >> 31;
    hash *= 0xBF58476D1CE4E5B9ULL;
    return hash;
}

/// The hash of a wave's samples (their bit patterns). Four independent lanes over interleaved
/// samples, so that the multiplications of one lane overlap those of the others: the hash then
/// runs at about the speed of memory instead of one multiplication latency per sample.
std::uint64_t hashSamples(std::uint64_t seed, const std::vector<double>& wave) {
    constexpr std::uint64_t K = 0x9FB21C651E98DF25ULL;
    std::uint64_t lanes[4] = {seed, seed ^ 0x2545F4914F6CDD1DULL, seed + K, ~seed};
    const std::size_t n = wave.size();
    std::size_t i = 0;
    for (; i + 4 <= n; i += 4) {
        for (std::size_t l = 0; l < 4; ++l) lanes[l] = std::rotl((lanes[l] ^ bitsOf(wave[i + l])) * K, 29);
    }
    std::uint64_t hash = mix(seed, n);
    for (; i < n; ++i) hash = mix(hash, bitsOf(wave[i]));
    for (const std::uint64_t lane : lanes) hash = mix(hash, lane);
    return hash;
}

bool sameBits(const std::vector<double>& a, const std::vector<double>& b) {
    return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) == 0);
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// Helper objects

EisDataset::ImpedanceData::ImpedanceData(const ImpedanceDataHeader* header, TrackMap tracks, const Track* frequencies,
                                         std::string numeratorName, std::string denominatorName)
    : header_(header), tracks_(std::move(tracks)), frequencies_(frequencies),
      numeratorName_(std::move(numeratorName)), denominatorName_(std::move(denominatorName)) {}

const ImpedanceDataHeader& EisDataset::ImpedanceData::getHeader() const {
    return header_ != nullptr ? *header_ : emptyGroupHeader<ImpedanceDataHeader>();
}

const EisDataset::Track& EisDataset::ImpedanceData::getTrack(std::string_view dimension) const {
    return trackIn(tracks_, dimension);
}

std::vector<std::string> EisDataset::ImpedanceData::getTrackNames() const {
    return namesOf(tracks_, getHeader().columns);
}

EisDataset::ComplexTrack EisDataset::ImpedanceData::getCalculatedComplexImpedanceTrack() const {
    const auto magnitude = tracks_.find(IMPEDANCE_DIMENSIONS[0]);
    const auto phase = tracks_.find(IMPEDANCE_DIMENSIONS[1]);
    if (magnitude == tracks_.end() || phase == tracks_.end()) return {};
    const Track& m = *magnitude->second;
    const Track& p = *phase->second;
    ComplexTrack values(m.size());
    for (std::size_t r = 0; r < m.size(); ++r) {
        const double phi = r < p.size() ? p[r] : QUIET_NAN;
        values[r] = {m[r] * std::cos(phi), m[r] * std::sin(phi)};
    }
    return values;
}

EisDataset::Spectra EisDataset::ImpedanceData::getCalculatedSpectra() const {
    Spectra spectra;
    if (frequencies_ == nullptr) return spectra;
    const auto values = getCalculatedComplexImpedanceTrack();
    const std::size_t n = std::min(values.size(), frequencies_->size());
    for (std::size_t r = 0; r < n; ++r) spectra.emplace((*frequencies_)[r], values[r]);
    return spectra;
}

std::string EisDataset::ImpedanceData::getImpedanceName() const {
    if (header_ == nullptr) return {};
    return header_->impedance_name.empty() ? header_->getUri() : header_->impedance_name;
}

EisDataset::PathData::PathData(std::string name, const PathDataHeader* header, TrackMap tracks, const Waves* waves)
    : name_(std::move(name)), header_(header), tracks_(std::move(tracks)), waves_(waves) {}

const PathDataHeader& EisDataset::PathData::getHeader() const {
    return header_ != nullptr ? *header_ : emptyGroupHeader<PathDataHeader>();
}

const EisDataset::Track& EisDataset::PathData::getDcTrack() const { return trackIn(tracks_, "dc"); }

const EisDataset::Track& EisDataset::PathData::getTrack(std::string_view dimension) const {
    return trackIn(tracks_, dimension);
}

std::vector<std::string> EisDataset::PathData::getTrackNames() const { return namesOf(tracks_, getHeader().columns); }

const EisDataset::Waves& EisDataset::PathData::getWaves() const {
    return waves_ != nullptr ? *waves_ : EisDataset::emptyWaves();
}

const EisDataset::ImpedanceData& EisDataset::PathData::getImpedanceData(std::string_view name) const {
    for (const auto* impedance : impedances_) {
        if (impedance->getImpedanceName() == name) return *impedance;
    }
    return INVALID_IMPEDANCE_DATA;
}

EisDataset::PotentiostatData::PotentiostatData(std::string name, const PotentiostatDataHeader* header, TrackMap tracks)
    : name_(std::move(name)), header_(header), tracks_(std::move(tracks)) {}

const PotentiostatDataHeader& EisDataset::PotentiostatData::getHeader() const {
    return header_ != nullptr ? *header_ : emptyGroupHeader<PotentiostatDataHeader>();
}

const EisDataset::Track& EisDataset::PotentiostatData::getTrack(std::string_view dimension) const {
    return trackIn(tracks_, dimension);
}

const EisDataset::Track& EisDataset::PotentiostatData::getDcTrack() const { return trackIn(tracks_, "dc"); }

std::vector<std::string> EisDataset::PotentiostatData::getTrackNames() const {
    return namesOf(tracks_, getHeader().columns);
}

const EisDataset::ImpedanceData EisDataset::INVALID_IMPEDANCE_DATA{};
const EisDataset::PathData EisDataset::INVALID_PATH{};
const EisDataset::PotentiostatData EisDataset::INVALID_POTENTIOSTAT{};

const EisDataset::Track& EisDataset::emptyTrack() {
    static const Track empty;
    return empty;
}

const EisDataset::Waves& EisDataset::emptyWaves() {
    static const Waves empty;
    return empty;
}

// ---------------------------------------------------------------------------------------------
// Construction

EisDataset::EisDataset() { rebuildHelperObjects(); }

EisDataset::EisDataset(JobInfo&& jobInfo) : DataSet(std::move(jobInfo)) { rebuildHelperObjects(); }

EisDataset::EisDataset(LiveDataHeaderEis&& header, JobInfo&& jobInfo)
    : EisDataset(std::move(header), {}, {}, {}, {}, {}, {}, std::move(jobInfo)) {}

EisDataset::EisDataset(LiveDataHeaderEis&& header, std::vector<GroupTracks> impedances, std::vector<GroupTracks> paths,
                       std::vector<Waves> pathWaves, std::vector<GroupTracks> asyncPaths,
                       std::vector<GroupTracks> potentiostats, GroupTracks meta, JobInfo&& jobInfo)
    : DataSet(std::move(jobInfo)),
      header_(std::move(header)),
      meta_(std::move(meta)),
      impedances_(std::move(impedances)),
      paths_(std::move(paths)),
      pathWaves_(std::move(pathWaves)),
      asyncPaths_(std::move(asyncPaths)),
      potentiostats_(std::move(potentiostats)) {
    // One track per declared column, so that the helper objects can point at every column and
    // rows appended later never reallocate the lists of tracks.
    header_.columns = header_.allColumns();
    meta_.resize(header_.meta.size());
    shapeGroups(impedances_, header_.impedances);
    shapeGroups(paths_, header_.paths);
    shapeGroups(asyncPaths_, header_.async_paths);
    shapeGroups(potentiostats_, header_.potentiostats);
    pathWaves_.resize(header_.paths.size());
    rebuildHelperObjects();
}

EisDataset::EisDataset(const EisDataset& other)
    : DataSet(other),
      header_(other.header_),
      meta_(other.meta_),
      impedances_(other.impedances_),
      paths_(other.paths_),
      pathWaves_(other.pathWaves_),
      asyncPaths_(other.asyncPaths_),
      potentiostats_(other.potentiostats_) {
    rebuildHelperObjects();
}

// A move keeps the storage of every list, so the helper objects taken along still point at
// the right tracks; the moved-from dataset is left without helper objects.
EisDataset::EisDataset(EisDataset&& other) noexcept
    : DataSet(std::move(other)),
      header_(std::move(other.header_)),
      meta_(std::move(other.meta_)),
      impedances_(std::move(other.impedances_)),
      paths_(std::move(other.paths_)),
      pathWaves_(std::move(other.pathWaves_)),
      asyncPaths_(std::move(other.asyncPaths_)),
      potentiostats_(std::move(other.potentiostats_)),
      metaPositions_(other.metaPositions_),
      impedancePositions_(std::move(other.impedancePositions_)),
      pathPositions_(std::move(other.pathPositions_)),
      potentiostatPositions_(std::move(other.potentiostatPositions_)),
      impedanceData_(std::move(other.impedanceData_)),
      pathData_(std::move(other.pathData_)),
      potentiostatData_(std::move(other.potentiostatData_)) {
    other.impedanceData_.clear();
    other.pathData_.clear();
    other.potentiostatData_.clear();
}

EisDataset& EisDataset::operator=(const EisDataset& other) {
    if (this != &other) {
        EisDataset copy(other);
        *this = std::move(copy);
    }
    return *this;
}

EisDataset& EisDataset::operator=(EisDataset&& other) noexcept {
    if (this == &other) return *this;
    DataSet::operator=(std::move(other));
    header_ = std::move(other.header_);
    meta_ = std::move(other.meta_);
    impedances_ = std::move(other.impedances_);
    paths_ = std::move(other.paths_);
    pathWaves_ = std::move(other.pathWaves_);
    asyncPaths_ = std::move(other.asyncPaths_);
    potentiostats_ = std::move(other.potentiostats_);
    metaPositions_ = other.metaPositions_;
    impedancePositions_ = std::move(other.impedancePositions_);
    pathPositions_ = std::move(other.pathPositions_);
    potentiostatPositions_ = std::move(other.potentiostatPositions_);
    impedanceData_ = std::move(other.impedanceData_);
    pathData_ = std::move(other.pathData_);
    potentiostatData_ = std::move(other.potentiostatData_);
    other.impedanceData_.clear();
    other.pathData_.clear();
    other.potentiostatData_.clear();
    return *this;
}

EisDataset::~EisDataset() = default;

void EisDataset::rebuildHelperObjects() {
    cacheColumnPositions();
    createHelperObjects();
}

void EisDataset::cacheColumnPositions() {
    metaPositions_.frequency = findIndexOfColumInMeta("frequency");
    metaPositions_.periods = findIndexOfColumInMeta("periods");
    metaPositions_.time = findIndexOfColumInMeta("time");
    metaPositions_.waveId = findIndexOfColumInMeta("wave_id");
    metaPositions_.waveSize = findIndexOfColumInMeta("wave_size");
    impedancePositions_.clear();
    for (const auto& group : header_.impedances) impedancePositions_.push_back(positionsOf(group.columns, IMPEDANCE_DIMENSIONS));
    pathPositions_.clear();
    for (const auto& group : header_.paths) pathPositions_.push_back(positionsOf(group.columns, PATH_DIMENSIONS));
    potentiostatPositions_.clear();
    for (const auto& group : header_.potentiostats) {
        potentiostatPositions_.push_back(positionsOf(group.columns, POTENTIOSTAT_DIMENSIONS));
    }
}

void EisDataset::createHelperObjects() {
    impedanceData_.clear();
    pathData_.clear();
    potentiostatData_.clear();

    // A path's name for an impedance end: the sync path of that uri, else the async one, else
    // the uri itself.
    auto pathName = [this](const std::string& uri) -> std::string {
        for (const auto* list : {&header_.paths, &header_.async_paths}) {
            for (const auto& path : *list) {
                if (path.uri == uri) return path.name;
            }
        }
        return uri;
    };
    const Track* frequencies =
        metaPositions_.frequency < meta_.size() ? &meta_[metaPositions_.frequency] : nullptr;
    for (std::size_t i = 0; i < header_.impedances.size() && i < impedances_.size(); ++i) {
        const auto& header = header_.impedances[i];
        impedanceData_.try_emplace(header.getKey(), &header, tracksByDimension(header.columns, impedances_[i]),
                                   frequencies, pathName(header.numerator), pathName(header.denominator));
    }
    for (std::size_t p = 0; p < header_.paths.size() && p < paths_.size() && p < pathWaves_.size(); ++p) {
        const auto& header = header_.paths[p];
        const auto [entry, inserted] = pathData_.try_emplace(
            header.name, header.name, &header, tracksByDimension(header.columns, paths_[p]), &pathWaves_[p]);
        if (!inserted) continue;
        for (const auto& [key, impedance] : impedanceData_) {
            if (key.first == header.uri || key.second == header.uri) entry->second.impedances_.push_back(&impedance);
        }
    }
    for (std::size_t s = 0; s < header_.potentiostats.size() && s < potentiostats_.size(); ++s) {
        const auto& header = header_.potentiostats[s];
        potentiostatData_.try_emplace(header.uri, header.uri, &header,
                                      tracksByDimension(header.columns, potentiostats_[s]));
    }
}

// ---------------------------------------------------------------------------------------------
// Access

std::size_t EisDataset::getRowCount() const { return meta_.empty() ? 0 : meta_.front().size(); }

DatasetInfo EisDataset::getInfo() const {
    DatasetInfo info;
    info.type = "AC";
    info.job_type = getJobType();
    info.job_type_short = getJobTypeShort();
    info.length = getRowCount();
    const Track& times = getTimes();
    info.start_time = times.empty() ? QUIET_NAN : times.front();
    info.job_info = jobInfo_;
    return info;
}

const EisDataset::Track& EisDataset::getMetaColumn(std::size_t i) const {
    return i < meta_.size() ? meta_[i] : emptyTrack();
}

const EisDataset::Track& EisDataset::getPathDcValues(std::size_t p) const {
    if (p >= pathPositions_.size() || p >= paths_.size()) return emptyTrack();
    const std::size_t column = pathPositions_[p][0];
    return column < paths_[p].size() ? paths_[p][column] : emptyTrack();
}

const EisDataset::Waves& EisDataset::getPathWaves(std::size_t p) const {
    return p < pathWaves_.size() ? pathWaves_[p] : emptyWaves();
}

const EisDataset::Track& EisDataset::getWaveIds() const { return getMetaColumn(metaPositions_.waveId); }
const EisDataset::Track& EisDataset::getWaveSizes() const { return getMetaColumn(metaPositions_.waveSize); }
const EisDataset::Track& EisDataset::getFrequencies() const { return getMetaColumn(metaPositions_.frequency); }
const EisDataset::Track& EisDataset::getPeriods() const { return getMetaColumn(metaPositions_.periods); }
const EisDataset::Track& EisDataset::getTimes() const { return getMetaColumn(metaPositions_.time); }

std::int64_t EisDataset::getWaveIdForRow(std::size_t row) const {
    const Track& ids = getWaveIds();
    if (metaPositions_.waveId == NOT_FOUND || row >= ids.size()) return static_cast<std::int64_t>(row);
    const double id = ids[row];
    // Not a usable id (NaN, infinite, beyond any list): no wave.
    if (!std::isfinite(id) || std::fabs(id) > 0x1p62) return -1;
    return static_cast<std::int64_t>(std::llround(id));
}

const std::vector<double>& EisDataset::getWaveForRow(std::size_t p, std::size_t row) const {
    if (p >= pathWaves_.size()) return emptyTrack();
    const std::int64_t id = getWaveIdForRow(row);
    if (id < 0 || static_cast<std::uint64_t>(id) >= pathWaves_[p].size()) return emptyTrack();
    return pathWaves_[p][static_cast<std::size_t>(id)];
}

const std::vector<double>& EisDataset::getWaveForRow(std::string_view pathName, std::size_t row) const {
    const std::size_t p = indexOfPathDimension(pathName);
    return p == NOT_FOUND ? emptyTrack() : getWaveForRow(p, row);
}

EisDataset::ComplexTrack EisDataset::getImpedances(std::size_t i) const {
    if (i >= impedancePositions_.size() || i >= impedances_.size()) return {};
    const auto& positions = impedancePositions_[i];
    const auto& tracks = impedances_[i];
    if (positions[0] >= tracks.size() || positions[1] >= tracks.size()) return {};
    const Track& m = tracks[positions[0]];
    const Track& p = tracks[positions[1]];
    ComplexTrack values(m.size());
    for (std::size_t r = 0; r < m.size(); ++r) {
        const double phi = r < p.size() ? p[r] : QUIET_NAN;
        values[r] = {m[r] * std::cos(phi), m[r] * std::sin(phi)};
    }
    return values;
}

const EisDataset::ImpedanceData& EisDataset::getImpedanceData(const std::string& numerator,
                                                              const std::string& denominator) const {
    const auto found = impedanceData_.find(ImpedanceKey{numerator, denominator});
    return found == impedanceData_.end() ? INVALID_IMPEDANCE_DATA : found->second;
}

const EisDataset::ImpedanceData& EisDataset::getImpedanceData(std::string_view uri) const {
    for (const auto& [key, impedance] : impedanceData_) {
        if (key.first == uri || key.second == uri) return impedance;
    }
    return INVALID_IMPEDANCE_DATA;
}

const EisDataset::ImpedanceData& EisDataset::getImpedanceDataByName(std::string_view name) const {
    for (const auto& [key, impedance] : impedanceData_) {
        if (impedance.getHeader().impedance_name == name) return impedance;
    }
    return INVALID_IMPEDANCE_DATA;
}

const EisDataset::ImpedanceData& EisDataset::getImpedanceData() const {
    return impedanceData_.empty() ? INVALID_IMPEDANCE_DATA : impedanceData_.begin()->second;
}

const EisDataset::PathData& EisDataset::getPathData(std::string_view name) const {
    const auto found = pathData_.find(name);
    return found == pathData_.end() ? INVALID_PATH : found->second;
}

const EisDataset::PotentiostatData& EisDataset::getPotentiostatData(std::string_view identifier) const {
    const auto found = potentiostatData_.find(identifier);
    return found == potentiostatData_.end() ? INVALID_POTENTIOSTAT : found->second;
}

const EisDataset::PotentiostatData& EisDataset::getPotentiostatData() const {
    return potentiostatData_.empty() ? INVALID_POTENTIOSTAT : potentiostatData_.begin()->second;
}

std::vector<std::string> EisDataset::getImpedancesNames() const {
    std::vector<std::string> names;
    for (const auto& [key, impedance] : impedanceData_) names.push_back(impedance.getImpedanceName());
    return names;
}

std::vector<std::string> EisDataset::getImpedancesDimensions() const {
    std::vector<std::string> names;
    for (const auto& [key, impedance] : impedanceData_) {
        names.push_back(impedance.getNumeratorDimension() + "/" + impedance.getDenominatorDimension());
    }
    return names;
}

std::vector<std::string> EisDataset::getPathsDimensions() const {
    std::vector<std::string> names;
    for (const auto& path : header_.paths) names.push_back(path.name);
    return names;
}

std::vector<std::string> EisDataset::getPotentiostatsIdentifiers() const {
    std::vector<std::string> names;
    for (const auto& potentiostat : header_.potentiostats) names.push_back(potentiostat.uri);
    return names;
}

// ---------------------------------------------------------------------------------------------
// Column positions

std::size_t EisDataset::indexOf(const std::vector<ColumnHeader>& headers, const ColumnHeader& column) {
    for (std::size_t i = 0; i < headers.size(); ++i) {
        const auto& h = headers[i];
        if (h.unit == column.unit && h.dimension == column.dimension && h.urn == column.urn) return i;
    }
    return NOT_FOUND;
}

std::size_t EisDataset::indexOfDimension(const std::vector<ColumnHeader>& headers, std::string_view dimension) {
    for (std::size_t i = 0; i < headers.size(); ++i) {
        if (headers[i].dimension == dimension) return i;
    }
    return NOT_FOUND;
}

std::size_t EisDataset::indexOfColumnHeaderInHeaderVector(const std::vector<ColumnHeader>& headers,
                                                          const ColumnHeader& column) {
    return indexOf(headers, column);
}

std::size_t EisDataset::indexOfDataHeaderWithUriInHeaderVector(const PathDataHeader& path,
                                                               const std::vector<PathDataHeader>& headers) {
    for (std::size_t i = 0; i < headers.size(); ++i) {
        if (headers[i].uri == path.uri) return i;
    }
    return NOT_FOUND;
}

std::size_t EisDataset::indexOfImpedance(const ImpedanceDataHeader& impedance) const {
    for (std::size_t i = 0; i < header_.impedances.size(); ++i) {
        const auto& h = header_.impedances[i];
        if (h.numerator == impedance.numerator && h.denominator == impedance.denominator) return i;
    }
    return NOT_FOUND;
}

std::size_t EisDataset::indexOfPathDimension(std::string_view name) const {
    for (std::size_t i = 0; i < header_.paths.size(); ++i) {
        if (header_.paths[i].name == name) return i;
    }
    return NOT_FOUND;
}

std::size_t EisDataset::indexOfAsyncPathDimension(std::string_view name) const {
    for (std::size_t i = 0; i < header_.async_paths.size(); ++i) {
        if (header_.async_paths[i].name == name) return i;
    }
    return NOT_FOUND;
}

std::size_t EisDataset::findIndexOfColumInMeta(std::string_view dimension) const {
    return indexOfDimension(header_.meta, dimension);
}

std::size_t EisDataset::findIndexOfColumInImpedance(std::size_t impedance, std::string_view dimension) const {
    if (impedance >= header_.impedances.size()) return NOT_FOUND;
    return indexOfDimension(header_.impedances[impedance].columns, dimension);
}

std::size_t EisDataset::findIndexOfColumInPath(std::size_t path, std::string_view dimension) const {
    if (path >= header_.paths.size()) return NOT_FOUND;
    return indexOfDimension(header_.paths[path].columns, dimension);
}

std::size_t EisDataset::findIndexOfColumInPotentiostat(std::size_t potentiostat, std::string_view dimension) const {
    if (potentiostat >= header_.potentiostats.size()) return NOT_FOUND;
    return indexOfDimension(header_.potentiostats[potentiostat].columns, dimension);
}

// ---------------------------------------------------------------------------------------------
// Changes

bool EisDataset::hasConsistentShape() const {
    const std::size_t rows = getRowCount();
    if (meta_.size() != header_.meta.size()) return false;
    for (const auto& track : meta_) {
        if (track.size() != rows) return false;
    }
    return groupTracksHaveRows(impedances_, header_.impedances, rows) &&
           groupTracksHaveRows(paths_, header_.paths, rows) &&
           groupTracksHaveRows(asyncPaths_, header_.async_paths, rows) &&
           groupTracksHaveRows(potentiostats_, header_.potentiostats, rows);
}

void EisDataset::appendDataRow(const LiveDataRowEis& row) {
    // The lists of tracks keep their size, so the helper objects stay valid.
    appendValues(meta_, row.getMeta());
    appendLists(impedances_, row.impedances);
    appendLists(paths_, row.paths);
    appendLists(asyncPaths_, row.async_paths);
    appendLists(potentiostats_, row.potentiostats);
    const std::size_t n = std::min(pathWaves_.size(), row.paths_waves.size());
    for (std::size_t p = 0; p < n; ++p) {
        if (!row.paths_waves[p].empty()) pathWaves_[p].push_back(row.paths_waves[p]);
    }
}

std::size_t EisDataset::maxWaveCount() const {
    std::size_t count = 0;
    for (const auto& waves : pathWaves_) count = std::max(count, waves.size());
    return count;
}

std::size_t EisDataset::ensureWaveIdColumn() {
    if (metaPositions_.waveId != NOT_FOUND) return metaPositions_.waveId;
    const std::size_t rows = getRowCount();
    const std::size_t waves = maxWaveCount();
    Track ids(rows);
    for (std::size_t r = 0; r < rows; ++r) ids[r] = r < waves ? static_cast<double>(r) : -1.0;
    header_.meta.emplace_back("wave_id", "", "");
    header_.columns = header_.allColumns();
    meta_.push_back(std::move(ids));
    rebuildHelperObjects();
    return metaPositions_.waveId;
}

void EisDataset::dedupWaves() {
    const std::size_t waveCount = maxWaveCount();
    if (waveCount == 0) return;
    const std::size_t rows = getRowCount();

    // The wave of one id is the tuple of that id's wave in every sync path (ids are shared by
    // all paths); a path without that id contributes an empty wave.
    auto waveOf = [this](std::size_t p, std::size_t id) -> const Track& {
        return id < pathWaves_[p].size() ? pathWaves_[p][id] : emptyTrack();
    };
    // Two hashes: a signature of the lengths and a few evenly spaced samples, cheap whatever the
    // waves' length, and the hash of every sample. Waves whose signatures differ differ; only
    // waves that share a signature with a kept wave are hashed whole (each wave at most once),
    // and only waves with equal hashes are compared sample by sample.
    auto signatureOf = [&](std::size_t id) {
        constexpr std::size_t PROBES = 16;
        std::uint64_t hash = 0x84222325CBF29CE4ULL;
        for (std::size_t p = 0; p < pathWaves_.size(); ++p) {
            const Track& wave = waveOf(p, id);
            hash = mix(hash, wave.size());
            if (wave.empty()) continue;
            for (std::size_t k = 0; k < PROBES; ++k) hash = mix(hash, bitsOf(wave[k * (wave.size() - 1) / (PROBES - 1)]));
        }
        return hash;
    };
    auto hashOf = [&](std::size_t id) {
        std::uint64_t hash = 0x84222325CBF29CE4ULL;
        for (std::size_t p = 0; p < pathWaves_.size(); ++p) hash = hashSamples(hash, waveOf(p, id));
        return hash;
    };
    auto equal = [&](std::size_t a, std::size_t b) {
        for (std::size_t p = 0; p < pathWaves_.size(); ++p) {
            if (!sameBits(waveOf(p, a), waveOf(p, b))) return false;
        }
        return true;
    };

    // Kept waves are numbered in the order in which rows first refer to them; waves that no
    // row refers to are dropped.
    constexpr std::size_t UNSEEN = NOT_FOUND;
    std::vector<std::size_t> newId(waveCount, UNSEEN);
    std::vector<std::size_t> kept;
    // Kept waves (their index in `kept`) by signature and, once their signature is shared, by hash.
    std::unordered_multimap<std::uint64_t, std::size_t> bySignature;
    std::unordered_multimap<std::uint64_t, std::size_t> byHash;
    std::unordered_set<std::uint64_t> sharedSignatures;
    bySignature.reserve(std::min(waveCount, rows));
    std::vector<double> rowIds(rows);
    bool identity = true;
    for (std::size_t r = 0; r < rows; ++r) {
        const std::int64_t id = getWaveIdForRow(r);
        if (id < 0 || static_cast<std::uint64_t>(id) >= waveCount) {
            // No wave: a negative id stays, one beyond the waves becomes -1.
            rowIds[r] = id < 0 && metaPositions_.waveId != NOT_FOUND ? meta_[metaPositions_.waveId][r] : -1.0;
            if (id >= 0 && metaPositions_.waveId != NOT_FOUND) identity = false;
            continue;
        }
        const auto old = static_cast<std::size_t>(id);
        if (newId[old] == UNSEEN) {
            const std::uint64_t signature = signatureOf(old);
            const bool shared = sharedSignatures.contains(signature) || bySignature.contains(signature);
            std::uint64_t hash = 0;
            if (shared) {
                if (sharedSignatures.insert(signature).second) {
                    // The first wave to share this signature: hash the kept ones that have it.
                    const auto [first, last] = bySignature.equal_range(signature);
                    for (auto it = first; it != last; ++it) byHash.emplace(hashOf(kept[it->second]), it->second);
                }
                hash = hashOf(old);
                const auto [first, last] = byHash.equal_range(hash);
                for (auto it = first; it != last; ++it) {
                    if (equal(kept[it->second], old)) {
                        newId[old] = it->second;
                        break;
                    }
                }
            }
            if (newId[old] == UNSEEN) {
                newId[old] = kept.size();
                bySignature.emplace(signature, kept.size());
                if (shared) byHash.emplace(hash, kept.size());
                kept.push_back(old);
            }
        }
        rowIds[r] = static_cast<double>(newId[old]);
        identity = identity && newId[old] == old;
    }
    identity = identity && kept.size() == waveCount;
    for (const auto& waves : pathWaves_) identity = identity && waves.size() == waveCount;
    if (identity) return;

    for (auto& waves : pathWaves_) {
        Waves compact;
        compact.reserve(kept.size());
        for (const std::size_t old : kept) compact.push_back(old < waves.size() ? std::move(waves[old]) : Track{});
        waves = std::move(compact);
    }
    const std::size_t column = ensureWaveIdColumn();
    meta_[column] = std::move(rowIds);
    rebuildHelperObjects();
}

void EisDataset::appendShiftedWaveIds(Track& ids, const EisDataset& source, std::size_t waveOffset) {
    const std::size_t column = source.metaPositions_.waveId;
    const std::size_t sourceWaves = source.maxWaveCount();
    for (std::size_t r = 0; r < source.getRowCount(); ++r) {
        const std::int64_t id = source.getWaveIdForRow(r);
        if (column != NOT_FOUND) {
            // Negative ids (rows without a wave) and values that are no id stay as they are.
            ids.push_back(id >= 0 ? static_cast<double>(id) + static_cast<double>(waveOffset) : source.meta_[column][r]);
        } else {
            ids.push_back(static_cast<std::size_t>(id) < sourceWaves ? static_cast<double>(id + static_cast<std::int64_t>(waveOffset)) : -1.0);
        }
    }
}

bool EisDataset::append(const EisDataset& source, double gapSeconds) {
    if (&source == this) {
        const EisDataset copy(*this);
        return append(copy, gapSeconds);
    }
    const std::size_t rowsBefore = getRowCount();
    const bool sameGroups = header_.paths == source.header_.paths &&
                            header_.async_paths == source.header_.async_paths &&
                            header_.potentiostats == source.header_.potentiostats &&
                            header_.impedances == source.header_.impedances;
    if (rowsBefore == 0) {
        *this = source;
        return true;
    }
    if (!sameGroups) {
        rebuildHelperObjects();
        return false;
    }
    if (!hasConsistentShape() || !source.hasConsistentShape()) {
        std::cerr << "EisDataset: " << messages::EIS_APPEND_SHAPE << '\n';
        rebuildHelperObjects();
        return false;
    }

    mergeIncludedDatasets(source);
    if (getJobType() != source.getJobType()) header_.measurement_type = "EIS Combined";
    if (getJobTypeShort() != source.getJobTypeShort()) header_.measurement_type_short = "DC";

    const bool anyWaves = maxWaveCount() > 0 || source.maxWaveCount() > 0;
    // Appended waves follow the first sync path's waves; rows keep pointing at their own
    // wave through "wave_id", which is needed for that once either side has waves.
    if (anyWaves) ensureWaveIdColumn();
    const std::size_t waveOffset = pathWaves_.empty() ? 0 : pathWaves_.front().size();

    appendGroup(impedances_, header_.impedances, source.impedances_,
                [&source](const ImpedanceDataHeader& h) { return source.indexOfImpedance(h); },
                [](std::size_t, std::size_t) {});
    appendGroup(paths_, header_.paths, source.paths_,
                [&source](const PathDataHeader& h) { return indexOfDataHeaderWithUriInHeaderVector(h, source.header_.paths); },
                [this, &source](std::size_t i, std::size_t j) {
                    const Waves& from = source.pathWaves_[j];
                    pathWaves_[i].insert(pathWaves_[i].end(), from.begin(), from.end());
                });
    appendGroup(asyncPaths_, header_.async_paths, source.asyncPaths_,
                [&source](const PathDataHeader& h) {
                    return indexOfDataHeaderWithUriInHeaderVector(h, source.header_.async_paths);
                },
                [](std::size_t, std::size_t) {});
    appendGroup(potentiostats_, header_.potentiostats, source.potentiostats_,
                [&source](const PotentiostatDataHeader& h) {
                    for (std::size_t j = 0; j < source.header_.potentiostats.size(); ++j) {
                        if (source.header_.potentiostats[j].uri == h.uri) return j;
                    }
                    return NOT_FOUND;
                },
                [](std::size_t, std::size_t) {});

    // Meta columns by dimension; a column that the other lacks is filled with NaN.
    const std::size_t otherRows = source.getRowCount();
    const std::size_t timeColumn = metaPositions_.time;
    const double timeShift =
        timeColumn != NOT_FOUND && timeColumn != 0 ? meta_[timeColumn][rowsBefore - 1] + gapSeconds : 0.0;
    for (std::size_t c = 0; c < meta_.size(); ++c) {
        Track& track = meta_[c];
        if (c == metaPositions_.waveId) {
            appendShiftedWaveIds(track, source, waveOffset);
            continue;
        }
        const std::size_t there = source.findIndexOfColumInMeta(header_.meta[c].dimension);
        if (there == NOT_FOUND) {
            track.insert(track.end(), otherRows, QUIET_NAN);
            continue;
        }
        const Track& from = source.meta_[there];
        track.insert(track.end(), from.begin(), from.end());
        if (c == timeColumn && timeColumn != 0) {
            for (std::size_t r = rowsBefore; r < track.size(); ++r) track[r] += timeShift;
        }
    }
    rebuildHelperObjects();
    return true;
}

}  // namespace velmar
