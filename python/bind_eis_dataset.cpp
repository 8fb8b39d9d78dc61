#include "py_common.hpp"

#include <pybind11/numpy.h>

#include "bind_jobs_common.hpp"
#include "bindings.hpp"
#include "json_common/exact_json.hpp"
#include "json_common/logging/error_messages.hpp"
#include "json_common/logging/library_version.hpp"
#include "velmar_link_json/jobs/ac/ac_live_data_handler.hpp"
#include "velmar_link_json/jobs/ac/eis_dataset.hpp"
#include "velmar_link_json/jobs/measurement_jobs.hpp"

#include <complex>
#include <map>
#include <cstring>
#include <memory>
#include <string>

namespace velmar::python {

namespace {

using Eis = EisDataset;
using Track = EisDataset::Track;

constexpr const char* HELPERS_INVALIDATED =
    "\n\nThe object belongs to its dataset and keeps it alive; AFTER :meth:`velmar_link.EisDataset.append` IT IS "
    "INVALID.";
constexpr const char* VIEW_NOTE =
    "\n\nThe read-only float64 array views the dataset's memory without copy and keeps the dataset alive; "
    ":meth:`velmar_link.EisDataset.append` invalidates views taken before it.";

/// The Python object that owns `part` (a registered instance: the dataset or one of its
/// helper objects); a view based on it keeps the dataset alive.
template <class T>
py::object ownerOf(const T& part) {
    return py::cast(&part, py::return_value_policy::reference);
}

/// The helper objects of a map by pointer; bound with reference_internal, each keeps the
/// dataset alive.
template <class Map>
auto pointersOf(const Map& map) {
    std::map<typename Map::key_type, const typename Map::mapped_type*> out;
    for (const auto& [key, value] : map) out.emplace(key, &value);
    return out;
}

/// A read-only float64 view of `values`, based on `owner`.
py::array readOnlyView(const double* values, std::size_t size, const py::object& owner) {
    py::array view(py::dtype::of<double>(), {static_cast<py::ssize_t>(size)},
                   {static_cast<py::ssize_t>(sizeof(double))}, size == 0 ? nullptr : values,
                   size == 0 ? py::handle() : py::handle(owner));
    py::detail::array_proxy(view.ptr())->flags &= ~py::detail::npy_api::NPY_ARRAY_WRITEABLE_;
    return view;
}

py::array trackView(const Track& track, const py::object& owner) {
    return readOnlyView(track.data(), track.size(), owner);
}

py::array complexArray(const EisDataset::ComplexTrack& values) {
    py::array_t<std::complex<double>> array(static_cast<py::ssize_t>(values.size()));
    if (!values.empty()) std::memcpy(array.mutable_data(), values.data(), values.size() * sizeof(values[0]));
    return array;
}

/// The class constant `name` of EisDataset.
py::object constant(const char* name) { return py::type::of<Eis>().attr(name); }

using PyTrack = py::typing::List<double>;
using PyResult = py::typing::Union<std::shared_ptr<Eis>, ErrorObject>;
using PyJobInfo = py::typing::Optional<JobInfo>;

/// The track as a list, or EisDataset.EMPTY_TRACK for the shared empty track.
PyTrack trackOrEmpty(const Track& track) {
    if (&track == &Eis::emptyTrack()) return PyTrack(constant("EMPTY_TRACK"));
    return PyTrack(py::cast(track));
}

/// A wave as a list, or EisDataset.EMPTY_TRACKWAVE when it is empty.
PyTrack waveOrEmpty(const std::vector<double>& wave) {
    if (wave.empty()) return PyTrack(constant("EMPTY_TRACKWAVE"));
    return PyTrack(py::cast(wave));
}

py::int_ toPyIndex(std::size_t index) { return index == Eis::NOT_FOUND ? py::int_(-1) : py::int_(index); }

JobInfo jobInfoFrom(const PyJobInfo& jobInfo) { return jobInfo.is_none() ? JobInfo{} : jobInfo.cast<JobInfo>(); }

/// The uri of the sync path named `name`, or `name` itself (already a uri, or unknown).
std::string uriOfPath(const Eis& dataset, const std::string& name) {
    const auto& path = dataset.getPathData(name);
    return path.isValid() ? path.getHeader().getUri() : name;
}

constexpr auto REF = py::return_value_policy::reference_internal;

void bindImpedanceData(py::class_<Eis, DataSet, std::shared_ptr<Eis>>& eis) {
    using D = Eis::ImpedanceData;
    py::class_<D>(eis, "ImpedanceData",
                  (std::string("One impedance of an EisDataset: its tracks by name and the values derived from them.") +
                   HELPERS_INVALIDATED)
                      .c_str())
        .def("get_track_names", &D::getTrackNames, R"(The names (dimensions) of its tracks, in column order.)")
        .def(
            "get_track", [](const D& self, const std::string& name) { return trackOrEmpty(self.getTrack(name)); },
            R"(The values of the track of that name as a list, or EisDataset.EMPTY_TRACK if there is none.)",
            "track_name"_a)
        .def("get_calculated_complex_impedance_track", &D::getCalculatedComplexImpedanceTrack,
             R"(The impedance as a list of complex, m·cos φ + j·m·sin φ from "|impedance|" and "phase" (radians); empty if one of them is missing.)")
        .def(
            "get_calculated_spectra",
            [](const D& self) -> py::typing::Dict<double, std::complex<double>> {
                if (!self.isValid()) return py::typing::Dict<double, std::complex<double>>(constant("EMPTY_SPECTRA"));
                py::typing::Dict<double, std::complex<double>> spectra;
                for (const auto& [frequency, value] : self.getCalculatedSpectra()) spectra[py::float_(frequency)] = value;
                return spectra;
            },
            R"(A dict of frequency (float, Hz) to the complex impedance at that frequency.)")
        .def("get_numerator_dimension", &D::getNumeratorDimension,
             R"(The dimension name of the numerator path (such as "voltage"), or its uri if the path is not in the dataset.)")
        .def("get_denominator_dimension", &D::getDenominatorDimension,
             R"(The dimension name of the denominator path (such as "current"), or its uri if the path is not in the dataset.)")
        .def("get_impedance_name", &D::getImpedanceName,
             R"(The configured name, or the "numerator/denominator" signal-path quotient when none was configured.)")
        .def("get_header", &D::getHeader, R"(The :class:`velmar_link.ImpedanceDataHeader` of the impedance.)", REF)
        .def("is_valid", &D::isValid, R"(False for the sentinel EisDataset.INVALID_IMPEDANCE_DATA.)")
        .def(
            "get_track_array",
            [](const D& self, const std::string& name) { return trackView(self.getTrack(name), ownerOf(self)); },
            (std::string("The track of that name as a numpy array (empty if there is none).") + VIEW_NOTE).c_str(),
            "track_name"_a)
        .def(
            "get_complex_impedance_array",
            [](const D& self) { return complexArray(self.getCalculatedComplexImpedanceTrack()); },
            R"(The impedance as a new numpy complex128 array, computed from "|impedance|" and "phase".)");
}

void bindPathData(py::class_<Eis, DataSet, std::shared_ptr<Eis>>& eis) {
    using D = Eis::PathData;
    py::class_<D>(eis, "PathData",
                  (std::string("One synchronously sampled path of an EisDataset: its tracks, its waves and the "
                               "impedances it takes part in.") +
                   HELPERS_INVALIDATED)
                      .c_str())
        .def("get_name", &D::getName, R"(The path's dimension name, such as "voltage".)")
        .def("get_track_names", &D::getTrackNames, R"(The names (dimensions) of its tracks, in column order.)")
        .def(
            "get_track", [](const D& self, const std::string& name) { return trackOrEmpty(self.getTrack(name)); },
            R"(The values of the track of that name as a list, or EisDataset.EMPTY_TRACK if there is none.)",
            "track_name"_a)
        .def(
            "get_dc_track", [](const D& self) { return trackOrEmpty(self.getDcTrack()); },
            R"(The "dc" track as a list, or EisDataset.EMPTY_TRACK if there is none.)")
        .def("get_waves", &D::getWaves, R"(The recorded waves as a list of lists of floats, indexed by wave id.)")
        .def("get_impedances_data", py::overload_cast<>(&D::getImpedanceData, py::const_),
             R"(The :class:`velmar_link.EisDataset.ImpedanceData` of the impedances in which this path is numerator or denominator.)",
             REF)
        .def(
            "get_impedance_data", [](const D& self, const std::string& name) -> const Eis::ImpedanceData& {
                return self.getImpedanceData(name);
            },
            R"(The impedance of that name (impedance name or "numerator/denominator") in which this path takes part, or EisDataset.INVALID_IMPEDANCE_DATA.)",
            "name"_a, REF)
        .def("get_header", &D::getHeader, R"(The :class:`velmar_link.PathDataHeader` of the path.)", REF)
        .def("is_valid", &D::isValid, R"(False for the sentinel EisDataset.INVALID_PATH.)")
        .def(
            "get_track_array",
            [](const D& self, const std::string& name) { return trackView(self.getTrack(name), ownerOf(self)); },
            (std::string("The track of that name as a numpy array (empty if there is none).") + VIEW_NOTE).c_str(),
            "track_name"_a)
        .def(
            "get_wave_array",
            [](const D& self, std::size_t waveId) {
                const auto& waves = self.getWaves();
                if (waveId >= waves.size()) throw py::index_error("wave id out of range");
                return trackView(waves[waveId], ownerOf(self));
            },
            (std::string("The wave of that id as a numpy array; raises IndexError for an id out of range.") + VIEW_NOTE)
                .c_str(),
            "wave_id"_a);
}

void bindPotentiostatData(py::class_<Eis, DataSet, std::shared_ptr<Eis>>& eis) {
    using D = Eis::PotentiostatData;
    py::class_<D>(eis, "PotentiostatData",
                  (std::string("One potentiostat of an EisDataset: its tracks by name.") + HELPERS_INVALIDATED).c_str())
        .def("get_identifier", &D::getIdentifier, R"(The uri of the potentiostat, such as "MAIN:1:POT".)")
        .def(
            "get_dc_track", [](const D& self) { return trackOrEmpty(self.getDcTrack()); },
            R"(The "dc" track as a list, or EisDataset.EMPTY_TRACK if there is none.)")
        .def("get_track_names", &D::getTrackNames, R"(The names (dimensions) of its tracks, in column order.)")
        .def(
            "get_track", [](const D& self, const std::string& name) { return trackOrEmpty(self.getTrack(name)); },
            R"(The values of the track of that name as a list, or EisDataset.EMPTY_TRACK if there is none.)",
            "track_name"_a)
        .def("get_header", &D::getHeader, R"(The :class:`velmar_link.PotentiostatDataHeader` of the potentiostat.)",
             REF)
        .def("is_valid", &D::isValid, R"(False for the sentinel EisDataset.INVALID_POTENTIOSTAT.)")
        .def(
            "get_track_array",
            [](const D& self, const std::string& name) { return trackView(self.getTrack(name), ownerOf(self)); },
            (std::string("The track of that name as a numpy array (empty if there is none).") + VIEW_NOTE).c_str(),
            "track_name"_a);
}

/// The methods, in the order help() lists them (the documented order first).
py::tuple methodOrder() {
    py::list names;
    for (const char* name :
         {"get_row_count", "get_frequencies", "get_periods", "get_times", "get_meta_data_header", "get_meta_column",
          "get_wave_ids", "get_wave_sizes", "get_wave_id_for_row", "get_wave_for_row", "get_impedances_dimensions",
          "get_impedances_names", "get_impedances_data", "get_impedance_data", "get_impedance_data_by_name",
          "get_paths_dimensions", "get_paths_data", "get_path_data", "get_potentiostats_identifiers",
          "get_potentiostats_data", "get_potentiostat_data", "append", "recreate_original_job"}) {
        names.append(name);
    }
    return py::tuple(names);
}

void bindDatasetMethods(py::class_<Eis, DataSet, std::shared_ptr<Eis>>& eis) {
    eis.def(py::init<>(), R"(Creates an empty impedance dataset.)")
        .def(py::init([](LiveDataHeaderEis header, const PyJobInfo& jobInfo) {
                 return std::make_shared<Eis>(std::move(header), jobInfoFrom(jobInfo));
             }),
             R"(Creates an impedance dataset without rows, with one empty track per column of the header.)", "header"_a,
             "job_info"_a = py::none())
        .def("get_row_count", &Eis::getRowCount, R"(The number of rows (frequency points).)")
        .def(
            "get_frequencies", [](const Eis& self) { return trackOrEmpty(self.getFrequencies()); },
            R"(The "frequency" meta track (Hz) as a list.)")
        .def(
            "get_periods", [](const Eis& self) { return trackOrEmpty(self.getPeriods()); },
            R"(The "periods" meta track as a list.)")
        .def(
            "get_times", [](const Eis& self) { return trackOrEmpty(self.getTimes()); },
            R"(The "time" meta track (s from the job's start) as a list.)")
        .def("get_meta_data_header", &Eis::getMetaDataHeader,
             R"(The :class:`velmar_link.ColumnHeader` of each meta column, in column order.)")
        .def(
            "get_meta_column", [](const Eis& self, std::size_t index) { return trackOrEmpty(self.getMetaColumn(index)); },
            R"(Meta track `index` as a list, or EisDataset.EMPTY_TRACK when the index is out of range.)", "index"_a)
        .def(
            "get_wave_ids", [](const Eis& self) { return trackOrEmpty(self.getWaveIds()); },
            R"(The "wave_id" meta track: the wave of each row; -1 means the point carries no wave.)")
        .def(
            "get_wave_sizes", [](const Eis& self) { return trackOrEmpty(self.getWaveSizes()); },
            R"(The "wave_size" meta track: samples per wave of each row.)")
        .def("get_wave_id_for_row", &Eis::getWaveIdForRow,
             R"(The wave id of a row: the row index itself when the dataset has no wave-id column.)", "row"_a)
        .def(
            "get_wave_for_row",
            [](const Eis& self, std::size_t pathIndex, std::size_t row) {
                return waveOrEmpty(self.getWaveForRow(pathIndex, row));
            },
            R"(The wave of a row on the sync path of that index, or EisDataset.EMPTY_TRACKWAVE.)", "path_index"_a,
            "row"_a)
        .def(
            "get_wave_for_row",
            [](const Eis& self, const std::string& dimension, std::size_t row) {
                return waveOrEmpty(self.getWaveForRow(std::string_view(dimension), row));
            },
            R"(The wave of a row on the sync path of that dimension name, or EisDataset.EMPTY_TRACKWAVE.)",
            "dimension"_a, "row"_a)
        .def("get_impedances_dimensions", &Eis::getImpedancesDimensions,
             R"(The impedances as "numerator dimension/denominator dimension" texts, in the order of get_impedances_data.)")
        .def("get_impedances_names", &Eis::getImpedancesNames,
             R"(The names of the impedances, in the same order as get_impedances_dimensions.)")
        .def(
            "get_impedances_data",
            [](const Eis& self) {
                std::map<std::pair<std::string, std::string>, const Eis::ImpedanceData*> out;
                for (const auto& [key, data] : self.getImpedancesData()) {
                    out.emplace(std::pair(data.getNumeratorDimension(), data.getDenominatorDimension()), &data);
                }
                return out;
            },
            R"(A dict of (numerator dimension, denominator dimension) to :class:`velmar_link.EisDataset.ImpedanceData`.)",
            REF)
        .def(
            "get_impedance_data",
            [](const Eis& self, const std::string& dimension) -> const Eis::ImpedanceData& {
                const auto& byUri = self.getImpedanceData(std::string_view(dimension));
                if (byUri.isValid()) return byUri;
                return self.getImpedanceData(std::string_view(uriOfPath(self, dimension)));
            },
            R"(The first impedance whose numerator or denominator is that path (dimension name or uri), or EisDataset.INVALID_IMPEDANCE_DATA.)",
            "dimension"_a, REF)
        .def(
            "get_impedance_data",
            [](const Eis& self, const std::string& numerator, const std::string& denominator) -> const Eis::ImpedanceData& {
                const auto& byUri = self.getImpedanceData(numerator, denominator);
                if (byUri.isValid()) return byUri;
                return self.getImpedanceData(uriOfPath(self, numerator), uriOfPath(self, denominator));
            },
            R"(The impedance of that numerator and denominator path (dimension names or uris), or EisDataset.INVALID_IMPEDANCE_DATA.)",
            "numerator"_a, "denominator"_a, REF)
        .def(
            "get_impedance_data_by_name",
            [](const Eis& self, const std::string& name) -> const Eis::ImpedanceData& {
                return self.getImpedanceDataByName(name);
            },
            R"(The first impedance whose configured name is that text, or EisDataset.INVALID_IMPEDANCE_DATA.)",
            "impedance_name"_a, REF)
        .def("get_paths_dimensions", &Eis::getPathsDimensions, R"(The dimension names of the sync paths.)")
        .def(
            "get_paths_data",
            [](const Eis& self) { return pointersOf(self.getPathsData()); },
            R"(A dict of dimension name to :class:`velmar_link.EisDataset.PathData`, sorted by dimension name.)", REF)
        .def(
            "get_path_data",
            [](const Eis& self, const std::string& identifier) -> const Eis::PathData& {
                return self.getPathData(identifier);
            },
            R"(The sync path of that dimension name, or EisDataset.INVALID_PATH.)", "identifier"_a, REF)
        .def("get_potentiostats_identifiers", &Eis::getPotentiostatsIdentifiers, R"(The uris of the potentiostats.)")
        .def(
            "get_potentiostats_data",
            [](const Eis& self) { return pointersOf(self.getPotentiostatsData()); },
            R"(A dict of uri to :class:`velmar_link.EisDataset.PotentiostatData`.)", REF)
        .def(
            "get_potentiostat_data",
            [](const Eis& self, const std::string& identifier) -> const Eis::PotentiostatData& {
                return self.getPotentiostatData(identifier);
            },
            R"(The potentiostat of that uri, or EisDataset.INVALID_POTENTIOSTAT.)", "identifier"_a, REF)
        .def("append", &Eis::append, R"(Appends another impedance result behind this one; True on success.

The time track of the appended rows continues after the last time value plus time_offset seconds.
AFTER THAT OPERATION ALL HELPER OBJECTS ARE INVALID (ImpedanceData, PathData, PotentiostatData
and numpy views taken before).)",
             "to_append"_a, "time_offset"_a)
        .def(
            "recreate_original_job",
            [](const Eis& self) -> py::typing::Optional<AbstractMeasurementJob> {
                auto job = recreateOriginalAcJob(self.getJobInfo());
                if (!job) return py::none();
                return py::cast(job);
            },
            R"(The job that produced the dataset, with its parameters and metadata, or None if the job type is unknown or the parameters are missing.)");
}

void bindDatasetExtras(py::class_<Eis, DataSet, std::shared_ptr<Eis>>& eis) {
    eis.def("get_header", &Eis::getHeader, R"(The :class:`velmar_link.LiveDataHeaderEis` of the dataset.)", REF)
        .def("get_job_type", &Eis::getJobType, R"(The job type ("EIS Combined" after joining other kinds).)")
        .def("get_job_type_short", &Eis::getJobTypeShort, R"(The short job type.)")
        .def("has_consistent_shape", &Eis::hasConsistentShape, R"(True when every track has the row count.)")
        .def(
            "get_included_datasets",
            [](const Eis& self) {
                std::vector<std::pair<std::string, std::size_t>> out;
                for (const auto& info : self.getIncludedDatasets()) out.emplace_back(info.job_type, info.length);
                return out;
            },
            R"(A list of (job type, number of rows) pairs, one per job result in this dataset.)")
        .def(
            "get_meta_column_array",
            [](const std::shared_ptr<Eis>& self, std::size_t index) {
                return trackView(self->getMetaColumn(index), py::cast(self));
            },
            (std::string("Meta track `index` as a numpy array (empty when out of range).") + VIEW_NOTE).c_str(),
            "index"_a)
        .def(
            "get_frequencies_array",
            [](const std::shared_ptr<Eis>& self) { return trackView(self->getFrequencies(), py::cast(self)); },
            (std::string("The \"frequency\" meta track as a numpy array.") + VIEW_NOTE).c_str())
        .def(
            "get_times_array",
            [](const std::shared_ptr<Eis>& self) { return trackView(self->getTimes(), py::cast(self)); },
            (std::string("The \"time\" meta track as a numpy array.") + VIEW_NOTE).c_str())
        .def(
            "get_impedance_array",
            [](const Eis& self, std::size_t index) { return complexArray(self.getImpedances(index)); },
            R"(Impedance `index` (in header order) as a new numpy complex128 array; empty when out of range or without "|impedance|" or "phase".)",
            "index"_a)
        .def(
            "get_wave_for_row_array",
            [](const std::shared_ptr<Eis>& self, std::size_t pathIndex, std::size_t row) {
                const auto& wave = self->getWaveForRow(pathIndex, row);
                return readOnlyView(wave.data(), wave.size(), py::cast(self));
            },
            (std::string("The wave of a row on the sync path of that index as a numpy array (empty if none).") +
             VIEW_NOTE)
                .c_str(),
            "path_index"_a, "row"_a)
        .def(
            "to_binary",
            [](const Eis& self) -> py::typing::Union<py::typing::Tuple<LiveDataHeaderEis, std::uint64_t, py::bytes>, ErrorObject> {
                auto binary = eisDatasetToBinary(self);
                if (!binary) return py::cast(std::move(binary).error());
                return py::make_tuple(binary->header, binary->rowCount, py::bytes(binary->data));
            },
            R"(The flat binary form: a tuple (LiveDataHeaderEis, row count, bytes), or an ErrorObject if the dataset does not have the shape its header describes.)")
        .def_static(
            "from_binary",
            [](const py::bytes& payload, LiveDataHeaderEis header, std::uint64_t rowCount,
               const PyJobInfo& jobInfo) -> PyResult {
                auto info = jobInfoFrom(jobInfo);
                const std::string_view bytes(payload);
                auto dataset = [&] {
                    py::gil_scoped_release release;
                    return eisDatasetFromBinary(bytes, std::move(header), rowCount, std::move(info),
                                                static_cast<int>(ProtocolVersion::library()));
                }();
                if (!dataset) return py::cast(std::move(dataset).error());
                return py::cast(std::make_shared<Eis>(std::move(*dataset)));
            },
            R"(Builds a dataset from its flat binary form and header; row_count 0 derives it from the length. Returns the EisDataset or an ErrorObject.)",
            "payload"_a, "header"_a, "row_count"_a = 0, "job_info"_a = py::none())
        .def_static(
            "from_json_events",
            [](const std::string& text) -> PyResult {
                boost::system::error_code ec;
                const auto events = parseJsonExact(text, ec);
                if (ec || !events.is_array()) {
                    return py::cast(ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::JSON_MALFORMED,
                                                ec ? ec.message() : std::string("an array of events expected")));
                }
                auto dataset = eisDatasetFromJsonArray(events.get_array(), LiveDataHeaderEis{}, JobInfo{});
                if (!dataset) return py::cast(std::move(dataset).error());
                return py::cast(std::make_shared<Eis>(std::move(*dataset)));
            },
            R"(Builds a dataset from a JSON array of recorded live-data events (LIVE_DATA_HEADER_EIS, LIVE_DATA_ROW_EIS, LIVE_DATA_FINISHED).

Returns the EisDataset, or an ErrorObject if the text is not valid JSON or the events are malformed.)",
            "text"_a)
        .def("__copy__", [](const Eis& self) { return std::make_shared<Eis>(self); }, R"(A copy of the dataset.)")
        .def(
            "__deepcopy__", [](const Eis& self, const py::dict&) { return std::make_shared<Eis>(self); },
            R"(A copy of the dataset (the values are always copied).)", "memo"_a);
}

template <class Job>
void addCollector(py::module_& meas, const char* name) {
    auto cls = py::reinterpret_borrow<JobClass<Job>>(meas.attr(name));
    cls.def(
        "add_live_data_collector",
        [](Job& job) {
            auto collector = std::make_shared<AcLiveDataHandler>();
            job.addLivedataEventHandler([collector](const AcLiveDataMessage& message) { (*collector)(message); });
            return collector;
        },
        R"(Collect this job's live data natively into an EisDataset; returns the AcLiveDataCollector.

No Python code runs per event; read the dataset once the job has ended.)");
}

void bindCollector(py::module_& m) {
    py::class_<AcLiveDataHandler, std::shared_ptr<AcLiveDataHandler>>(
        m, "AcLiveDataCollector",
        R"(Collects an impedance job's live data into an EisDataset without calling Python: the header starts the dataset, each row adds a frequency point with its waves.)",
        py::release_gil_before_calling_cpp_dtor())
        .def(
            "get_dataset",
            [](const AcLiveDataHandler& self) { return std::make_shared<EisDataset>(self.getDataset()); },
            R"(A copy of the dataset collected so far; call it after the job has ended.)")
        .def("is_finished", &AcLiveDataHandler::isFinished, R"(True once the live data of the job has ended.)")
        .def("get_wave_fragment_count", &AcLiveDataHandler::getWaveFragmentCount,
             R"(The number of wave preview fragments received since the header.)");
    auto meas = submodule(m, "meas");
    addCollector<EisGenerateJob>(meas, "EisGenerateJob");
    addCollector<EisFrequencyTableJob>(meas, "EisFrequencyTableJob");
    addCollector<EisMultisineGenerateJob>(meas, "EisMultisineGenerateJob");
    addCollector<EisMultisineTableJob>(meas, "EisMultisineTableJob");
    addCollector<GeisVaGenerateJob>(meas, "GeisVaGenerateJob");
    addCollector<GeisVaFrequencyTableJob>(meas, "GeisVaFrequencyTableJob");
}

}  // namespace

void bindEisDataset(py::module_& m) {
    py::class_<Eis, DataSet, std::shared_ptr<Eis>> eis(m, "EisDataset", R"(Class which contains EIS data.

Lookups never raise: what is not found is one of the class constants EMPTY_TRACK,
EMPTY_COMPLEX_TRACK, EMPTY_SPECTRA, EMPTY_TRACKWAVE, INVALID_PATH, INVALID_IMPEDANCE_DATA and
INVALID_POTENTIOSTAT; compare with ``is``. The ``*_array`` methods return numpy views without copy.)",
                                                       py::release_gil_before_calling_cpp_dtor());
    bindImpedanceData(eis);
    bindPathData(eis);
    bindPotentiostatData(eis);
    eis.attr("EMPTY_TRACK") = py::list();
    eis.attr("EMPTY_COMPLEX_TRACK") = py::list();
    eis.attr("EMPTY_SPECTRA") = py::dict();
    eis.attr("EMPTY_TRACKWAVE") = py::list();
    eis.attr("INVALID_IMPEDANCE_DATA") = py::cast(&Eis::INVALID_IMPEDANCE_DATA, py::return_value_policy::reference);
    eis.attr("INVALID_PATH") = py::cast(&Eis::INVALID_PATH, py::return_value_policy::reference);
    eis.attr("INVALID_POTENTIOSTAT") = py::cast(&Eis::INVALID_POTENTIOSTAT, py::return_value_policy::reference);
    bindDatasetMethods(eis);
    bindDatasetExtras(eis);
    eis.attr("_fields") = methodOrder();
    // The nested helper classes are also offered at the top level of the module.
    m.attr("ImpedanceData") = eis.attr("ImpedanceData");
    m.attr("PathData") = eis.attr("PathData");
    m.attr("PotentiostatData") = eis.attr("PotentiostatData");
    bindCollector(m);
}

}  // namespace velmar::python
