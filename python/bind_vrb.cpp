#include "py_common.hpp"

#include "bindings.hpp"
#include "velmar_link_json/resource_bytes.hpp"
#include "velmar_link_json/vrb/vrb_importer.hpp"

#include <filesystem>

namespace velmar::python {

namespace {

constexpr const char* CLASS_DOC = R"(Imports the binary dataset snapshot files (extension .vrb) that the device's resource browser offers as "With Header" download.

A snapshot is the job result's resource description as JSON text, one zero byte and the
dataset's binary form; the workstation's emulator offers it as the ``VELMAR_BINARY`` resource
with the job result's id. A DC result gives a :class:`velmar_link.DcDataset`, an impedance
result an :class:`velmar_link.EisDataset`. Files written by an older protocol version are
read with the layout of their version; files of a newer one are rejected with
``PROTOCOL_VERSION_MISMATCH`` unless the mismatch is ignored. All failures are returned as
:class:`velmar_link.ErrorObject`; no method raises.)";

constexpr const char* MEMORY_DOC = R"(Import a snapshot held in memory.

:param data: the file's bytes (``bytes``, ``bytearray``, ``memoryview`` or any object with the buffer protocol).
:returns: a :class:`velmar_link.DcDataset` or :class:`velmar_link.EisDataset`, or an :class:`velmar_link.ErrorObject`.)";

constexpr const char* FILE_DOC = R"(Import a snapshot file.

The description is read first, then the payload straight into the dataset's tracks.

:param filename: the file, as ``str``, ``bytes`` or ``os.PathLike``.
:returns: a :class:`velmar_link.DcDataset` or :class:`velmar_link.EisDataset`, or an :class:`velmar_link.ErrorObject`
    (``FILE_NOT_FOUND``, ``FILE_IS_EMPTY``, ``FILE_COULD_NOT_BE_OPENED``, ``FILE_COULD_NOT_BE_READ`` among others).)";

constexpr const char* MEMORY_DC_DOC = R"(Import a snapshot held in memory that must hold a DC dataset.

:param data: the file's bytes (any object with the buffer protocol).
:returns: a :class:`velmar_link.DcDataset`, or an :class:`velmar_link.ErrorObject`, also when the snapshot holds an impedance dataset.)";

constexpr const char* MEMORY_EIS_DOC = R"(Import a snapshot held in memory that must hold an impedance dataset.

:param data: the file's bytes (any object with the buffer protocol).
:returns: an :class:`velmar_link.EisDataset`, or an :class:`velmar_link.ErrorObject`, also when the snapshot holds a DC dataset.)";

constexpr const char* FILE_DC_DOC = R"(Import a snapshot file that must hold a DC dataset.

:param filename: the file, as ``str``, ``bytes`` or ``os.PathLike``.
:returns: a :class:`velmar_link.DcDataset`, or an :class:`velmar_link.ErrorObject`, also when the file holds an impedance dataset.)";

constexpr const char* FILE_EIS_DOC = R"(Import a snapshot file that must hold an impedance dataset.

:param filename: the file, as ``str``, ``bytes`` or ``os.PathLike``.
:returns: an :class:`velmar_link.EisDataset`, or an :class:`velmar_link.ErrorObject`, also when the file holds a DC dataset.)";

}  // namespace

void bindVrb(py::module_& m) {
    using Release = py::call_guard<py::gil_scoped_release>;
    py::class_<VrbImporter>(m, "VrbImporter", CLASS_DOC)
        .def(py::init<bool>(), R"(Create an importer.

:param ignore_protocol_version_mismatch: import files of a newer protocol version instead of rejecting them.)",
             "ignore_protocol_version_mismatch"_a = false)
        .def(
            "import_from_memory",
            [](const VrbImporter& self, const ByteView& data) { return self.importFromMemory(data.bytes); },
            MEMORY_DOC, "data"_a, Release())
        .def("import_from_file", &VrbImporter::importFromFile, FILE_DOC, "filename"_a, Release())
        .def(
            "import_from_memory_as_dc_dataset",
            [](const VrbImporter& self, const ByteView& data) { return self.importFromMemoryAsDcDataset(data.bytes); },
            MEMORY_DC_DOC, "data"_a, Release())
        .def("import_from_file_as_dc_dataset", &VrbImporter::importFromFileAsDcDataset, FILE_DC_DOC, "filename"_a,
             Release())
        .def(
            "import_from_memory_as_eis_dataset",
            [](const VrbImporter& self, const ByteView& data) { return self.importFromMemoryAsEisDataset(data.bytes); },
            MEMORY_EIS_DOC, "data"_a, Release())
        .def("import_from_file_as_eis_dataset", &VrbImporter::importFromFileAsEisDataset, FILE_EIS_DOC,
             "filename"_a, Release())
        .def("set_ignore_protocol_version_mismatch", &VrbImporter::setIgnoreProtocolVersionMismatch,
             R"(Set whether files of a newer protocol version are imported instead of rejected.

:param ignore: ``True`` to import them.)",
             "ignore"_a)
        .def("get_ignore_protocol_version_mismatch", &VrbImporter::getIgnoreProtocolVersionMismatch,
             R"(Whether files of a newer protocol version are imported instead of rejected.)");
}

}  // namespace velmar::python
