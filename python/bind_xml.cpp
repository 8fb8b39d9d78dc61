#include "bindings.hpp"

#include "velmar_link_json/jobs/ac/eis_dataset.hpp"
#include "velmar_link_json/jobs/dc/dc_dataset.hpp"
#include "xml/file_info.hpp"
#include "xml/measurement.hpp"
#include "xml/xml_exporter.hpp"
#include "xml/xml_importer.hpp"

#include <filesystem>

namespace velmar::python {

/// The root element of a parsed document, xml.etree.ElementTree.Element (named so in the stubs).
class ElementTreeElement : public py::object {
public:
    explicit ElementTreeElement(py::object&& element) : py::object(std::move(element)) {}
};

}  // namespace velmar::python

namespace pybind11::detail {
template <>
struct handle_type_name<velmar::python::ElementTreeElement> {
    static constexpr auto name = const_name("xml.etree.ElementTree.Element");
};
}  // namespace pybind11::detail

namespace velmar::python {

namespace {

using VXml::ExportOptions;
using VXml::ImportedFile;
using VXml::Measurement;
using VXml::VelmarFileInfo;
using VXml::VXmlExporter;
using VXml::VXmlImporter;
using VXml::XmlFormatVersion;
using VXml::XmlSerializable;

using Imported = std::expected<ImportedFile, ErrorObject>;

constexpr const char* kImportFromMemoryDoc = R"(Import a standalone XML file held in memory.

:param data: the file's content as ``bytes``
:return: an :class:`ImportedFile` with the payload (a :class:`Measurement` or a dataset) and the
    file info, or an :class:`~velmar_link.ErrorObject` (``FILE_VERSION_NOT_SUPPORTED`` for a file
    older than :attr:`XmlFormatVersion.MINIMUM_SUPPORTED`, ``PROTOCOL_VERSION_MISMATCH`` for a newer
    one unless the mismatch is ignored, ``RESOURCE_CONTENT_INVALID`` for any content error))";

constexpr const char* kImportFromFileDoc = R"(Import a standalone XML file.

:param filename: path as ``os.PathLike``, ``str`` or ``bytes``
:return: an :class:`ImportedFile` or an :class:`~velmar_link.ErrorObject` (besides the content
    errors of :meth:`import_from_memory`: ``FILE_NOT_FOUND``, ``FILE_COULD_NOT_BE_OPENED``,
    ``FILE_COULD_NOT_BE_READ``, ``FILE_IS_EMPTY``))";

/// The typed import functions of one payload type, from memory and from a file.
template <class T>
void bindTypedImports(py::class_<VXmlImporter>& importer, const std::string& suffix, const char* what) {
    const std::string memoryDoc = std::string("Import a file held in memory whose payload is ") + what +
                                  R"(.

:param data: the file's content as ``bytes``
:return: an :class:`ImportedFile`, or an :class:`~velmar_link.ErrorObject`; a file with another
    payload gives "imported object type does not match the requested type")";
    const std::string fileDoc = std::string("Import a file whose payload is ") + what +
                                R"(.

:param filename: path as ``os.PathLike``, ``str`` or ``bytes``
:return: an :class:`ImportedFile`, or an :class:`~velmar_link.ErrorObject`; a file with another
    payload gives "imported object type does not match the requested type")";
    importer
        .def(("import_from_memory_as_" + suffix).c_str(),
             [](const VXmlImporter& self, ByteView data) -> Imported {
                 py::gil_scoped_release release;
                 return self.importFromMemoryAs<T>(data.bytes);
             },
             memoryDoc.c_str(), "data"_a)
        .def(("import_from_file_as_" + suffix).c_str(),
             [](const VXmlImporter& self, const std::filesystem::path& filename) -> Imported {
                 py::gil_scoped_release release;
                 return self.importFromFileAs<T>(filename);
             },
             fileDoc.c_str(), "filename"_a);
}

/// The standalone text of the object, or ValueError.
std::string standaloneText(const VXmlExporter& self, const XmlSerializable& object, const std::string& comment) {
    std::expected<std::string, ErrorObject> text;
    {
        py::gil_scoped_release release;
        text = self.serializeAsFileStandalone(object, comment);
    }
    if (!text) throw py::value_error("the object could not be serialized: " + text.error().getMessageFormatted());
    return std::move(*text);
}

}  // namespace

void bindXmlSerializable(py::module_& m) {
    auto xml = submodule(m, "xml");
    py::class_<XmlSerializable, std::shared_ptr<XmlSerializable>>(
        xml, "XmlSerializable", R"(Abstract base of everything that can be written as XML: measurements and datasets.)",
        py::release_gil_before_calling_cpp_dtor());
}

void bindXml(py::module_& m) {
    auto xml = submodule(m, "xml");

    py::class_<XmlFormatVersion>(xml, "XmlFormatVersion",
                                 R"(The XML file format version range this library supports.)")
        .def_readonly_static("CURRENT", &XmlFormatVersion::CURRENT, R"(The file format version this library writes.)")
        .def_readonly_static("MINIMUM_SUPPORTED", &XmlFormatVersion::MINIMUM_SUPPORTED,
                             R"(The oldest file format version this library can read.)")
        .def_static("is_supported", &XmlFormatVersion::is_supported,
                    R"(True if the raw `file-version` value of a file lies within the supported range.)",
                    "raw_version"_a)
        .def_static("supported_range", &XmlFormatVersion::supported_range,
                    R"(The supported range as a string "minimum..maximum", for messages.)");

    py::class_<VelmarFileInfo, XmlSerializable, std::shared_ptr<VelmarFileInfo>>(
        xml, "VelmarFileInfo", R"(The file's "velmar-fileinfo" block: what the file holds and who wrote it.)")
        .def(py::init<>(), R"(An empty file info with an invalid file version.)")
        .def_readonly_static("XML_ELEMENT_NAME", &VelmarFileInfo::XML_ELEMENT_NAME,
                             R"(The name of the file info element, "velmar-fileinfo".)")
        .def_readonly_static("INVALID_FILE_VERSION", &VelmarFileInfo::INVALID_FILE_VERSION,
                             R"(The file version of a file info that was not read.)")
        .def_readonly("type", &VelmarFileInfo::type, R"(name of the payload element)")
        .def_readonly("file_version", &VelmarFileInfo::file_version,
                      R"(file format version of the file (INVALID_FILE_VERSION when it is no number))")
        .def_readonly("creation_timestamp", &VelmarFileInfo::creation_timestamp,
                      R"(local time of writing, "YYYY-MM-DDTHH:MM:SS")")
        .def_readonly("generator", &VelmarFileInfo::generator, R"(name of the application that wrote the file)")
        .def_readonly("generator_version", &VelmarFileInfo::generator_version, R"(version of that application)")
        .def_readonly("comment", &VelmarFileInfo::comment, R"(the user comment given when the file was written)");

    py::class_<ImportedFile>(xml, "ImportedFile", R"(The result of an import: the payload and the file info.)")
        .def_property_readonly(
            "object", [](const ImportedFile& self) { return self.object; },
            R"(The imported payload: a Measurement, DcDataset or EisDataset.)")
        .def_readonly("file_info", &ImportedFile::file_info,
                      R"(The VelmarFileInfo block of the file the payload came from.)");

    py::class_<Measurement, XmlSerializable, std::shared_ptr<Measurement>>(
        xml, "Measurement", R"(A measurement: the device tree (optional) and any number of datasets, in order.)")
        .def(py::init<>(), R"(An empty measurement.)")
        .def(py::init<HardwareInfo>(), R"(A measurement with the device tree and no datasets.)", "hardware_info"_a)
        .def(py::init<std::shared_ptr<DataSet>>(), R"(A measurement with one dataset (EisDataset or DcDataset).)",
             "dataset"_a)
        .def(py::init<HardwareInfo, std::shared_ptr<DataSet>>(), R"(A measurement with the device tree and one dataset.)",
             "hardware_info"_a, "dataset"_a)
        .def("append_dataset", &Measurement::appendDataset,
             R"(Append a dataset (EisDataset or DcDataset); the dataset is shared, not copied.)", "dataset"_a)
        .def("get_datasets", &Measurement::getDatasets, R"(The datasets, in order, as a list.)")
        .def("set_hardware_info", &Measurement::setHardwareInfo,
             R"(Set the device tree, or remove it with None.)", "hardware_info"_a)
        .def("get_hardware_info", &Measurement::getHardwareInfo, R"(The device tree, or None when there is none.)");

    py::class_<ExportOptions>(xml, "ExportOptions",
                              R"(What goes into the file-info block, plus the output formatting.)")
        .def(py::init<>(), R"(The defaults: generator "lib_velmar_link", version "0.1", indented XML.)")
        .def(py::init([](std::string generator, std::string generatorVersion, bool compactXml) {
                 return ExportOptions{std::move(generator), std::move(generatorVersion), compactXml};
             }),
             R"(Options with the given values.)", "generator"_a, "generator_version"_a, "compact_xml"_a = false)
        .def_readwrite("generator", &ExportOptions::generator, R"(name of the producing application)")
        .def_readwrite("generator_version", &ExportOptions::generator_version, R"(its version)")
        .def_readwrite("compact_xml", &ExportOptions::compact_xml, R"(omit indentation and line breaks)");

    py::class_<VXmlImporter> importer(xml, "VXmlImporter", R"(Reads XML measurement files and XML elements.

All failures are returned as ErrorObject; nothing is raised.)");
    importer
        .def(py::init<bool>(), R"(An importer; files of a newer version are read when the mismatch is ignored.)",
             "ignore_protocol_version_mismatch"_a = false)
        .def("set_ignore_protocol_version_mismatch", &VXmlImporter::setIgnoreProtocolVersionMismatch,
             R"(Read files of a newer file version with the current layout instead of refusing them.)", "ignore"_a)
        .def("get_ignore_protocol_version_mismatch", &VXmlImporter::getIgnoreProtocolVersionMismatch,
             R"(True if files of a newer file version are read.)")
        .def(
            "import_from_memory",
            [](const VXmlImporter& self, ByteView data) -> Imported {
                py::gil_scoped_release release;
                return self.importFromMemory(data.bytes);
            },
            kImportFromMemoryDoc, "data"_a)
        .def(
            "import_from_file",
            [](const VXmlImporter& self, const std::filesystem::path& filename) -> Imported {
                py::gil_scoped_release release;
                return self.importFromFile(filename);
            },
            kImportFromFileDoc, "filename"_a)
        .def(
            "read_file_info",
            [](const VXmlImporter& self, const std::filesystem::path& filename) {
                py::gil_scoped_release release;
                return self.readFileInfo(filename);
            },
            R"(Read only the file-info block from the first 65536 bytes of the file (fast for files of
several gigabytes). Unsupported versions are not rejected: check the result with
XmlFormatVersion.is_supported.

:return: a VelmarFileInfo, or an ErrorObject)",
            "filename"_a)
        .def(
            "deserialize",
            [](const VXmlImporter& self, ByteView data) {
                py::gil_scoped_release release;
                return self.deserialize(data.bytes);
            },
            R"(Read a plain element without file-info block, assuming the current version.

:param data: the element's text as ``bytes``
:return: a Measurement, DcDataset or EisDataset, or an ErrorObject)",
            "data"_a);
    bindTypedImports<Measurement>(importer, "measurement", "a Measurement");
    bindTypedImports<DcDataset>(importer, "dc_dataset", "a DcDataset");
    bindTypedImports<EisDataset>(importer, "eis_dataset", "an EisDataset");

    py::class_<VXmlExporter>(xml, "VXmlExporter", R"(Writes XML measurement files and XML elements.

It always writes XmlFormatVersion.CURRENT. There is deliberately no way to write an older
version. The options belong to the instance; there is no process-wide state.)")
        .def(py::init<>(), R"(An exporter with the default options.)")
        .def(py::init<ExportOptions>(), R"(An exporter with the given options.)", "options"_a)
        .def(py::init([](std::string generator, std::string generatorVersion, bool compactXml) {
                 return VXmlExporter(ExportOptions{std::move(generator), std::move(generatorVersion), compactXml});
             }),
             R"(An exporter with the given generator, generator version and formatting.)", "generator"_a,
             "generator_version"_a, "compact_xml"_a = false)
        .def("get_options", &VXmlExporter::getOptions, R"(A copy of the options.)")
        .def("set_options", &VXmlExporter::setOptions, R"(Replace the options.)", "options"_a)
        .def("get_generator", &VXmlExporter::getGenerator, R"(The name of the producing application.)")
        .def("set_generator", &VXmlExporter::setGenerator, R"(Set the name of the producing application.)",
             "generator"_a)
        .def("get_generator_version", &VXmlExporter::getGeneratorVersion, R"(The version of the producing application.)")
        .def("set_generator_version", &VXmlExporter::setGeneratorVersion,
             R"(Set the version of the producing application.)", "generator_version"_a)
        .def("get_file_version", &VXmlExporter::getFileVersion, R"(The file version written: always CURRENT.)")
        .def("produces_compact_xml", &VXmlExporter::producesCompactXml,
             R"(True if indentation and line breaks are omitted.)")
        .def("set_compact_xml", &VXmlExporter::setCompactXml, R"(Omit indentation and line breaks, or not.)",
             "compact_xml"_a)
        .def(
            "serialize",
            [](const VXmlExporter& self, const XmlSerializable& serializable) {
                py::gil_scoped_release release;
                return self.serialize(serializable);
            },
            R"(The element's XML text without file-info block (str), or an ErrorObject.)", "serializable"_a)
        .def(
            "serialize_as_file_standalone",
            [](const VXmlExporter& self, const XmlSerializable& serializable, const std::string& comment) {
                py::gil_scoped_release release;
                return self.serializeAsFileStandalone(serializable, comment);
            },
            R"(The complete file text (str), or an ErrorObject.)", "serializable"_a, "user_comment"_a = "")
        .def(
            "save_as_file_standalone",
            [](const VXmlExporter& self, const XmlSerializable& serializable, const std::filesystem::path& filename,
               const std::string& comment) {
                py::gil_scoped_release release;
                return self.saveAsFileStandalone(serializable, filename, comment);
            },
            R"(Save the complete file, creating missing parent directories.

The file is written to a temporary file in the same directory and renamed over the target, so
an existing file is never left half written.

:param filename: path as ``os.PathLike``, ``str`` or ``bytes``
:return: an ErrorObject, falsy on success)",
            "serializable"_a, "filename"_a, "user_comment"_a = "")
        .def(
            "get_xml_element_tree",
            [](const VXmlExporter& self, const XmlSerializable& serializable, const std::string& comment) {
                const std::string text = standaloneText(self, serializable, comment);
                return ElementTreeElement(py::module_::import("xml.etree.ElementTree").attr("fromstring")(py::bytes(text)));
            },
            R"(The complete file parsed by xml.etree.ElementTree.fromstring: the root element.

Raises ValueError if the object could not be serialized.)",
            "serializable"_a, "user_comment"_a = "");
}

}  // namespace velmar::python
