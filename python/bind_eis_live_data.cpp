#include "py_common.hpp"

#include "bindings.hpp"
#include "json_common/protocol/impedance_headers.hpp"
#include "json_common/protocol/live_data_eis.hpp"

namespace velmar::python {

namespace {

constexpr const char* COLUMNS_DOC = R"(The column headers of the group, as a list of :class:`velmar_link.ColumnHeader`, in column order.)";

void bindGroupHeaders(py::module_& m) {
    py::class_<ImpedanceDataHeader>(m, "ImpedanceDataHeader",
                                    R"(The columns of one measured impedance: the quotient of a numerator over a denominator signal path.)")
        .def(py::init<std::string, std::string, std::vector<ColumnHeader>, std::string>(),
             R"(Creates an impedance header from the numerator and denominator path uris, its columns and its name.)",
             "numerator"_a, "denominator"_a, "columns"_a = std::vector<ColumnHeader>{}, "impedance_name"_a = "")
        .def(
            "get_numerator_path", [](const ImpedanceDataHeader& h) { return h.numerator; },
            R"(The uri of the numerator path (typically a voltage path).)")
        .def(
            "get_denominator_path", [](const ImpedanceDataHeader& h) { return h.denominator; },
            R"(The uri of the denominator path (typically a current path).)")
        .def(
            "get_impedance_name", [](const ImpedanceDataHeader& h) { return h.impedance_name; },
            R"(The configured name of the impedance; an empty string when none was configured.)")
        .def("get_uri", &ImpedanceDataHeader::getUri, R"(The numerator uri, "/" and the denominator uri.)")
        .def("get_columns", &ImpedanceDataHeader::getColumns, COLUMNS_DOC)
        .def(
            "__eq__", [](const ImpedanceDataHeader& a, const ImpedanceDataHeader& b) { return a == b; },
            R"(True when paths, name and columns are equal.)", "other"_a)
        .def(
            "__repr__",
            [](const ImpedanceDataHeader& h) {
                return "ImpedanceDataHeader(" + std::string(py::repr(py::str(h.numerator))) + ", " +
                       std::string(py::repr(py::str(h.denominator))) + ")";
            },
            R"(The header's numerator and denominator.)");

    py::class_<PathDataHeader>(m, "PathDataHeader",
                               R"(The columns of one sampled signal path, named by the path's dimension (such as "voltage").)")
        .def(py::init([](std::string name, std::string uri, std::vector<ColumnHeader> columns) {
                 return PathDataHeader(std::move(name), std::move(uri), std::move(columns));
             }),
             R"(Creates a path header from the path's dimension name, its uri and its columns.)", "name"_a, "uri"_a,
             "columns"_a = std::vector<ColumnHeader>{})
        .def("get_name", &PathDataHeader::getName,
             R"(The path's dimension name (such as "voltage" or "current"), the key of :meth:`velmar_link.EisDataset.get_paths_data`; "unnamed" when the device sent none.)")
        .def("get_uri", &PathDataHeader::getUri, R"(The uri of the signal path.)")
        .def("get_columns", &PathDataHeader::getColumns, COLUMNS_DOC)
        .def(
            "get_polynomial", [](const PathDataHeader& h) { return h.polynomial; },
            R"(The user polynomial that converts the raw path value, or None.)")
        .def(
            "__eq__", [](const PathDataHeader& a, const PathDataHeader& b) { return a == b; },
            R"(True when name, uri, columns and polynomial are equal.)", "other"_a)
        .def(
            "__repr__",
            [](const PathDataHeader& h) {
                return "PathDataHeader(" + std::string(py::repr(py::str(h.name))) + ", " +
                       std::string(py::repr(py::str(h.uri))) + ")";
            },
            R"(The header's name and uri.)");

    py::class_<PotentiostatDataHeader>(m, "PotentiostatDataHeader",
                                       R"(The columns recorded for one potentiostat at each frequency point.)")
        .def(py::init<std::string, std::vector<ColumnHeader>>(),
             R"(Creates a potentiostat header from its uri and its columns.)", "uri"_a,
             "columns"_a = std::vector<ColumnHeader>{})
        .def("get_uri", &PotentiostatDataHeader::getUri, R"(The uri of the potentiostat, such as "MAIN:1:POT".)")
        .def("get_columns", &PotentiostatDataHeader::getColumns, COLUMNS_DOC)
        .def(
            "get_polynomial", [](const PotentiostatDataHeader& h) { return h.polynomial; },
            R"(The user polynomial of the potentiostat, or None.)")
        .def(
            "get_potentiostatic_polynomial", [](const PotentiostatDataHeader& h) { return h.potentiostatic_polynomial; },
            R"(The potentiostatic user polynomial of the potentiostat, or None.)")
        .def(
            "__eq__", [](const PotentiostatDataHeader& a, const PotentiostatDataHeader& b) { return a == b; },
            R"(True when uri, columns and polynomials are equal.)", "other"_a)
        .def(
            "__repr__",
            [](const PotentiostatDataHeader& h) {
                return "PotentiostatDataHeader(" + std::string(py::repr(py::str(h.uri))) + ")";
            },
            R"(The header's uri.)");
}

void bindLiveData(py::module_& m) {
    // The DC header is bound beside the datasets, before this.
    py::class_<LiveDataHeaderEis, LiveDataHeader>(
        m, "LiveDataHeaderEis",
        R"(The header of an impedance job's live data: the meta columns and the column groups of each impedance, path and potentiostat.

:meth:`get_columns` lists every column in the order of the binary result table.)")
        .def(py::init([](std::vector<ImpedanceDataHeader> impedances, std::vector<PathDataHeader> paths,
                         std::vector<PathDataHeader> asyncPaths, std::vector<PotentiostatDataHeader> potentiostats,
                         std::vector<ColumnHeader> meta) {
                 LiveDataHeaderEis header;
                 header.measurement_type = LiveDataHeaderEis::MEASUREMENT_TYPE;
                 header.measurement_type_short = LiveDataHeaderEis::MEASUREMENT_TYPE_SHORT;
                 header.impedances = std::move(impedances);
                 header.paths = std::move(paths);
                 header.async_paths = std::move(asyncPaths);
                 header.potentiostats = std::move(potentiostats);
                 header.meta = std::move(meta);
                 header.columns = header.allColumns();
                 return header;
             }),
             R"(Creates a header from its groups; the measurement type is "Electrochemical Impedance Spectroscopy" ("EIS").)",
             "impedances"_a, "paths"_a, "async_paths"_a = std::vector<PathDataHeader>{},
             "potentiostats"_a = std::vector<PotentiostatDataHeader>{}, "meta"_a = std::vector<ColumnHeader>{})
        .def("get_paths_data_headers", &LiveDataHeaderEis::getPathsDataHeaders,
             R"(The headers of the synchronously sampled paths, a list of :class:`velmar_link.PathDataHeader` in header order.)")
        .def("get_async_paths_data_headers", &LiveDataHeaderEis::getAsyncPathsDataHeaders,
             R"(The headers of the asynchronously sampled paths, a list of :class:`velmar_link.PathDataHeader`.)")
        .def("get_potentiostats_data_headers", &LiveDataHeaderEis::getPotentiostatsDataHeaders,
             R"(The headers of the potentiostats, a list of :class:`velmar_link.PotentiostatDataHeader`.)")
        .def("get_impedances_headers", &LiveDataHeaderEis::getImpedancesHeaders,
             R"(The headers of the impedances, a list of :class:`velmar_link.ImpedanceDataHeader`.)")
        .def("get_meta_data_header", &LiveDataHeaderEis::getMetaDataHeader,
             R"(The meta columns (frequency, periods, time, wave_id, wave_size, ...), a list of :class:`velmar_link.ColumnHeader`.)")
        .def(
            "__eq__", [](const LiveDataHeaderEis& a, const LiveDataHeaderEis& b) { return a == b; },
            R"(True when names and every group are equal.)", "other"_a);

    py::class_<LiveDataRowEis>(m, "LiveDataRowEis",
                               R"(One frequency point of an impedance job's live data; each group holds one list of values per element declared by the header, in header order.)")
        .def("get_impedances", [](const LiveDataRowEis& r) { return r.impedances; },
             R"(One list of values per impedance, ordered like its columns.)")
        .def("get_paths", [](const LiveDataRowEis& r) { return r.paths; },
             R"(One list of values per synchronous path.)")
        .def("get_paths_waves", [](const LiveDataRowEis& r) { return r.paths_waves; },
             R"(One wave per sync path; an empty list for a row that refers to a wave sent with an earlier row of the same wave_id.)")
        .def("get_async_paths", [](const LiveDataRowEis& r) { return r.async_paths; },
             R"(One list of values per asynchronous path.)")
        .def("get_potentiostats", [](const LiveDataRowEis& r) { return r.potentiostats; },
             R"(One list of values per potentiostat.)")
        .def("get_meta", [](const LiveDataRowEis& r) { return r.getMeta(); },
             R"(The row's meta values as one flat list, ordered like :meth:`velmar_link.LiveDataHeaderEis.get_meta_data_header`.)");

    py::class_<LiveDataWavesEis>(m, "LiveDataWavesEis",
                                 R"(A preview fragment of the waves being recorded at the current frequency point; not needed to build the result.)")
        .def("get_waves", [](const LiveDataWavesEis& w) { return w.paths_waves; },
             R"(One fragment per sync path, a list of lists of floats.)")
        .def("get_offset", [](const LiveDataWavesEis& w) { return w.offset; },
             R"(Index of the fragment's first sample (0 if the device does not send it).)")
        .def("get_full_wave_size", [](const LiveDataWavesEis& w) { return w.full_wave_size; },
             R"(Samples of the complete wave (0 if the device does not send it).)");
}

}  // namespace

void bindEisLiveData(py::module_& m) {
    bindGroupHeaders(m);
    bindLiveData(m);
}

}  // namespace velmar::python
