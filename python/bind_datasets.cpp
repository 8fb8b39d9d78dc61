#include "py_common.hpp"

#include <pybind11/numpy.h>

#include "bindings.hpp"
#include "json_common/exact_json.hpp"
#include "json_common/logging/error_messages.hpp"
#include "velmar_link_json/jobs/common/dataset.hpp"
#include "velmar_link_json/jobs/dc/dc_dataset.hpp"

#include <memory>

namespace velmar::python {

namespace {

constexpr const char* INDEX_OF_DOC = R"(Index of a column, or -1 if there is none.)";

/// The -1 of Python for the native not-found index.
py::int_ toPyIndex(std::size_t index) {
    if (index == DcDataset::NOT_FOUND) return py::int_(-1);
    return py::int_(index);
}

/// A read-only float64 view of a track, without copy. The array keeps the dataset alive;
/// appending to the dataset reallocates its tracks and invalidates earlier views.
py::array trackView(const std::shared_ptr<DcDataset>& dataset, const std::vector<double>& track) {
    py::array view(py::dtype::of<double>(), {static_cast<py::ssize_t>(track.size())},
                   {static_cast<py::ssize_t>(sizeof(double))}, track.empty() ? nullptr : track.data(),
                   track.empty() ? py::handle() : py::cast(dataset));
    py::detail::array_proxy(view.ptr())->flags &= ~py::detail::npy_api::NPY_ARRAY_WRITEABLE_;
    return view;
}

/// The view of the track at a column index; IndexError out of range (every column has a track).
py::array trackViewAt(const std::shared_ptr<DcDataset>& dataset, std::size_t index) {
    if (index >= dataset->getTracks().size()) throw py::index_error("track index out of range");
    return trackView(dataset, dataset->getTracks()[index]);
}

JobInfo jobInfoFrom(const py::object& jobInfo) {
    if (jobInfo.is_none()) return {};
    return jobInfo.cast<JobInfo>();
}

void bindHeaders(py::module_& m) {
    py::class_<ColumnHeader>(m, "ColumnHeader", R"(Dimension, unit and urn of one dataset column.)")
        .def(py::init<std::string, std::string, std::string>(), R"(Creates a column header.)", "dimension"_a,
             "unit"_a, "urn"_a)
        .def("get_unit", &ColumnHeader::getUnit, R"(The unit of the column, such as "V".)")
        .def("get_dimension", &ColumnHeader::getDimension, R"(The quantity of the column, such as "voltage".)")
        .def("get_urn", &ColumnHeader::getUrn, R"(The urn of the column's source on the workstation.)")
        .def(
            "__eq__", [](const ColumnHeader& a, const ColumnHeader& b) { return a == b; },
            R"(True when dimension, unit and urn are all equal.)", "other"_a)
        .def(
            "__lt__", [](const ColumnHeader& a, const ColumnHeader& b) { return a < b; },
            R"(Orders by urn, then dimension, then unit.)", "other"_a)
        .def(
            "__hash__",
            [](const ColumnHeader& h) { return py::hash(py::make_tuple(h.dimension, h.unit, h.urn)); },
            R"(Hash of the three strings.)")
        .def(
            "__repr__",
            [](const ColumnHeader& h) {
                return "ColumnHeader(" + std::string(py::repr(py::str(h.dimension))) + ", " +
                       std::string(py::repr(py::str(h.unit))) + ", " + std::string(py::repr(py::str(h.urn))) + ")";
            },
            R"(The constructor call that rebuilds the header.)");

    py::class_<LiveDataHeader>(m, "LiveDataHeader", R"(The header of a DC job's live data.)")
        .def(py::init([](std::string type, std::string shortType, std::vector<ColumnHeader> columns) {
                 return LiveDataHeader{std::move(type), std::move(shortType), std::move(columns)};
             }),
             R"(Creates a header from the method's long and short names and the columns.)", "measurement_type"_a,
             "measurement_type_short"_a, "columns"_a)
        .def("get_columns", &LiveDataHeader::getColumns, R"(The column headers, as a list, in column order.)")
        .def("get_number_of_columns", &LiveDataHeader::getNumberOfColumns, R"(The number of columns.)")
        .def("get_type", &LiveDataHeader::getType, R"(The long name of the measurement method.)")
        .def("get_short_type", &LiveDataHeader::getShortType, R"(The short name of the measurement method.)")
        .def(
            "__eq__", [](const LiveDataHeader& a, const LiveDataHeader& b) { return a == b; },
            R"(True when names and columns are equal.)", "other"_a);
}

void bindDatasetBase(py::module_& m) {
    py::class_<DatasetInfo>(m, "DatasetInfo", R"(Summary information about a dataset.)")
        .def_readonly("job_type", &DatasetInfo::job_type, R"(dataset type identifier)")
        .def_readonly("job_type_short", &DatasetInfo::job_type_short, R"(shortened dataset type name)")
        .def_readonly("num_rows", &DatasetInfo::length, R"(number of rows in the dataset)")
        .def_readonly("first_time_value", &DatasetInfo::start_time, R"(first timestamp in the dataset)")
        .def_readonly("jobInfo", &DatasetInfo::job_info, R"(information about the job that created this dataset)");

    py::class_<AbstractDataset, std::shared_ptr<AbstractDataset>>(m, "AbstractDataset",
                                                                   R"(Interface of the result datasets.)",
                                                                   py::release_gil_before_calling_cpp_dtor())
        .def("get_job_info", &AbstractDataset::getJobInfo, R"(Get info to the job)")
        .def("get_info", &AbstractDataset::getInfo, R"(Get summary information about the dataset)");

    py::class_<DataSet, AbstractDataset, VXml::XmlSerializable, std::shared_ptr<DataSet>>(m, "DataSet",
                                                                    R"(Base class of the result datasets.)",
                                                                    py::release_gil_before_calling_cpp_dtor());
}

void bindDcDataset(py::module_& m) {
    using Dc = DcDataset;
    py::class_<Dc, DataSet, std::shared_ptr<Dc>> dc(m, "DcDataset", R"(Class which contains DC data.)",
                                                 py::release_gil_before_calling_cpp_dtor());
    dc.attr("EMPTY_TRACK") = py::list();
    dc.def(py::init([](std::vector<ColumnHeader> header, std::vector<std::vector<double>> tracks, std::string jobType,
                       std::string jobTypeShort, const py::object& jobInfo) {
               if (!tracks.empty() && tracks.size() != header.size()) {
                   throw py::value_error("tracks must hold one list per column of the header");
               }
               return std::make_shared<Dc>(std::move(jobType), std::move(jobTypeShort), std::move(header),
                                           std::move(tracks), jobInfoFrom(jobInfo));
           }),
           R"(Creates a DC dataset from column headers and, optionally, one list of values per column.

Raises ValueError when tracks is not empty and its length differs from the number of columns.)",
           "header"_a, "tracks"_a = std::vector<std::vector<double>>{}, "job_type"_a = "", "job_type_short"_a = "",
           "job_info"_a = py::none())
        .def("get_dc_dimensions", &Dc::getDcDimensions, R"(The dimension (track name) of every column, in order.)")
        .def(
            "get_dc_tracks",
            [](const Dc& self) {
                // In column order; a repeated dimension keeps its first column.
                py::dict ordered;
                const auto& header = self.getHeader();
                for (std::size_t i = 0; i < header.size(); ++i) {
                    py::str key(header[i].dimension);
                    if (!ordered.contains(key)) ordered[key] = py::cast(self.getTracks()[i]);
                }
                return ordered;
            },
            R"(A dict of dimension to the list of values of that track, in column order.)")
        .def(
            "get_dc_track",
            [](const Dc& self, const std::string& dimension) -> py::object {
                if (self.indexOfDimension(dimension) == Dc::NOT_FOUND) {
                    return py::type::of<Dc>().attr("EMPTY_TRACK");
                }
                return py::cast(self.getDcTrack(dimension));
            },
            R"(The values of the track of that dimension as a list, or DcDataset.EMPTY_TRACK if the dimension does not exist.)",
            "dimension"_a)
        .def(
            "get_dc_track_array",
            [](const std::shared_ptr<Dc>& self, const std::string& dimension) {
                return trackView(self, self->getDcTrack(dimension));
            },
            R"(A read-only numpy float64 view of the track of that dimension, without copy (empty if unknown).

The array keeps the dataset alive. append() invalidates views taken before it.)",
            "dimension"_a)
        .def(
            "get_dc_track_array",
            &trackViewAt,
            R"(A read-only numpy float64 view of the track at that column index, without copy (as track_as_numpy).

Every column has its track, also without rows (then the array is empty). Raises IndexError for an index out
of range. append() invalidates views taken before it.)",
            "index"_a)
        .def(
            "track_as_numpy",
            &trackViewAt,
            R"(A read-only numpy float64 view of the track at that column index, without copy.

Raises IndexError for an index out of range. append() invalidates views taken before it.)",
            "index"_a)
        .def("get_header", &Dc::getHeader, R"(The column headers, as a list, in column order.)")
        .def("get_tracks", &Dc::getTracks, R"(The tracks as a list of lists of floats, in column order.)")
        .def("get_row_count", &Dc::getRowCount, R"(The number of rows (the length of the first track).)")
        .def("get_job_type", &Dc::getJobType, R"(The job type ("DC Combined" after joining other kinds).)")
        .def("get_job_type_short", &Dc::getJobTypeShort, R"(The short job type ("DC" after joining other kinds).)")
        .def(
            "index_of", [](const Dc& self, const ColumnHeader& column) { return toPyIndex(self.indexOf(column)); },
            INDEX_OF_DOC, "column_header"_a)
        .def(
            "index_of_dimension",
            [](const Dc& self, const std::string& dimension) { return toPyIndex(self.indexOfDimension(dimension)); },
            INDEX_OF_DOC, "dimension_name"_a)
        .def(
            "index_of_urn", [](const Dc& self, const std::string& urn) { return toPyIndex(self.indexOfUrn(urn)); },
            INDEX_OF_DOC, "urn"_a)
        .def(
            "append",
            [](Dc& self, const Dc& other, double timeOffset) {
                self.append(other, timeOffset);
                return true;
            },
            R"(Appends another DC dataset; returns True on success.

The time track of the appended data continues after the last time value plus time_offset seconds.
Columns missing on either side are filled with NaN; numpy views taken earlier become invalid.)",
            "to_append"_a, "time_offset"_a)
        .def(
            "get_included_datasets",
            [](const Dc& self) {
                std::vector<std::pair<std::string, std::size_t>> out;
                for (const auto& info : self.getIncludedDatasets()) out.emplace_back(info.job_type, info.length);
                return out;
            },
            R"(A list of (job type, number of rows) pairs, one per job result in this dataset.)")
        .def(
            "to_binary",
            [](const Dc& self) -> py::object {
                auto binary = dcDatasetToBinary(self);
                if (!binary) return py::cast(std::move(binary).error());
                return py::bytes(*binary);
            },
            R"(The flat binary table (column-major little-endian float64) as bytes, or an ErrorObject for a ragged dataset.)")
        .def_static(
            "from_binary",
            [](const py::bytes& payload, LiveDataHeader header, const py::object& jobInfo) {
                auto info = jobInfoFrom(jobInfo);
                const std::string_view bytes(payload);
                py::gil_scoped_release release;
                return std::make_shared<Dc>(dcDatasetFromBinary(bytes, std::move(header), std::move(info)));
            },
            R"(Builds a dataset from a flat binary table and its live-data header.)", "payload"_a, "header"_a,
            "job_info"_a = py::none())
        .def_static(
            "from_json_events",
            [](const std::string& text) -> py::object {
                boost::system::error_code ec;
                const auto events = parseJsonExact(text, ec);
                if (ec) return py::cast(ErrorObject(ErrorCodeEnum::JSON_MALFORMED, messages::JSON_MALFORMED, ec.message()));
                auto dataset = dcDatasetFromJson(events);
                if (!dataset) return py::cast(std::move(dataset).error());
                return py::cast(std::make_shared<Dc>(std::move(*dataset)));
            },
            R"(Builds a dataset from a JSON array of recorded live-data events (header, rows, finished).

Returns the DcDataset, or an ErrorObject if the text is not valid JSON or the events are malformed.)",
            "text"_a)
        .def("__copy__", [](const Dc& self) { return std::make_shared<Dc>(self); }, R"(A copy of the dataset.)")
        .def(
            "__deepcopy__", [](const Dc& self, const py::dict&) { return std::make_shared<Dc>(self); },
            R"(A copy of the dataset (the values are always copied).)", "memo"_a);
}

}  // namespace

void bindDatasets(py::module_& m) {
    bindHeaders(m);
    bindDatasetBase(m);
    bindDcDataset(m);
}

}  // namespace velmar::python
