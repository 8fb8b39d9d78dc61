"""XML measurement files from Python: saving and importing measurements and datasets, the file
info, the version range, paths of every kind, errors as values and the element tree."""

from __future__ import annotations

import os
import struct
import xml.etree.ElementTree as ElementTree

import pytest

import velmar_link
from velmar_link import ColumnHeader, DcDataset, EisDataset, ErrorCodeEnum, ErrorObject, control
from velmar_link.meas import RampJob
from velmar_link.xml import (
    ExportOptions,
    ImportedFile,
    Measurement,
    VelmarFileInfo,
    VXmlExporter,
    VXmlImporter,
    XmlFormatVersion,
    XmlSerializable,
)

from xml_support import sample_eis

SPECIALS = [0.0, -0.0, float("nan"), float("inf"), -float("inf"), 5e-324, 1.0 / 3.0, 1e308]


def bits(values):
    return struct.pack(f"<{len(values)}d", *values)


def dc_dataset(rows: int = 8) -> DcDataset:
    header = [ColumnHeader("time", "s", "MAIN:TIME"), ColumnHeader("cur;rent", "\u00b5A", "MAIN:1:CURRENT")]
    tracks = [[0.1 * r for r in range(rows)], [SPECIALS[r % len(SPECIALS)] for r in range(rows)]]
    return DcDataset(header, tracks, job_type="cv", job_type_short="CV")


def assert_same_dc(a: DcDataset, b: DcDataset) -> None:
    assert a.get_header() == b.get_header()
    assert [bits(t) for t in a.get_tracks()] == [bits(t) for t in b.get_tracks()]


def assert_same_eis(a: EisDataset, b: EisDataset) -> None:
    assert a.to_binary() == b.to_binary()


def test_measurement_from_the_emulator_survives_save_and_import(link, tmp_path):
    hardware = control.GetHardwareInfoJob()
    assert not link.do_job(hardware)
    ramp = RampJob(start_value=0.0, end_value=0.2, scan_rate=2.0, output_data_rate=100.0)
    assert not link.do_job(ramp)
    dc = link.get_job_result_data(ramp)
    assert isinstance(dc, DcDataset), dc
    eis = sample_eis()

    measurement = Measurement(hardware.get_job_result(), dc)
    measurement.append_dataset(eis)
    target = tmp_path / "not" / "yet" / "there" / "run.xml"
    error = VXmlExporter().save_as_file_standalone(measurement, target, "ramp and spectrum")
    assert isinstance(error, ErrorObject) and not error

    imported = VXmlImporter().import_from_file(target)
    assert isinstance(imported, ImportedFile), imported
    assert imported.file_info.comment == "ramp and spectrum"
    assert imported.file_info.file_version == XmlFormatVersion.CURRENT
    read = imported.object
    assert isinstance(read, Measurement)
    first, second = read.get_datasets()
    assert_same_dc(dc, first)
    assert_same_eis(eis, second)
    assert second.get_wave_for_row(0, 2) == [1.0, 2.0]
    info = read.get_hardware_info()
    assert [p.identifier for p in info.potentiostats] == [p.identifier for p in hardware.get_job_result().potentiostats]
    assert [p.urn for p in info.paths] == [p.urn for p in hardware.get_job_result().paths]


@pytest.mark.parametrize("as_path", [str, os.fsencode, lambda p: p], ids=["str", "bytes", "PathLike"])
def test_paths_may_be_text_bytes_or_path_like(tmp_path, as_path):
    target = tmp_path / "dc.xml"
    assert not VXmlExporter().save_as_file_standalone(dc_dataset(), as_path(target))
    imported = VXmlImporter().import_from_file_as_dc_dataset(as_path(target))
    assert isinstance(imported, ImportedFile), imported
    assert_same_dc(dc_dataset(), imported.object)
    info = VXmlImporter().read_file_info(as_path(target))
    assert isinstance(info, VelmarFileInfo) and info.type == "dataset"


def test_memory_imports_and_typed_forms():
    text = VXmlExporter().serialize_as_file_standalone(sample_eis(), "")
    data = text.encode()
    importer = VXmlImporter()
    assert isinstance(importer.import_from_memory(data).object, EisDataset)
    assert isinstance(importer.import_from_memory_as_eis_dataset(data), ImportedFile)
    for wrong in (importer.import_from_memory_as_dc_dataset(data), importer.import_from_memory_as_measurement(data)):
        assert isinstance(wrong, ErrorObject)
        assert wrong.get_error_code_enum() is ErrorCodeEnum.RESOURCE_CONTENT_INVALID
        assert str(wrong.get_message_formatted()) == "imported object type does not match the requested type"
    element = VXmlExporter().serialize(sample_eis())
    assert isinstance(importer.deserialize(element.encode()), EisDataset)


def test_errors_are_values_not_exceptions(tmp_path):
    importer = VXmlImporter()
    missing = importer.import_from_file(tmp_path / "missing.xml")
    assert missing.get_error_code_enum() is ErrorCodeEnum.FILE_NOT_FOUND
    garbage = importer.import_from_memory(b"<velmar-measurement/>")
    assert garbage.get_message_formatted() == "no <velmar-fileinfo> element found, not a standalone Velmar XML file"
    assert importer.import_from_file_as_measurement(tmp_path).get_error_code_enum() is \
        ErrorCodeEnum.FILE_COULD_NOT_BE_OPENED
    assert importer.read_file_info(tmp_path / "missing.xml").get_error_code_enum() is ErrorCodeEnum.FILE_NOT_FOUND


def test_version_range_and_newer_files(tmp_path):
    assert (XmlFormatVersion.MINIMUM_SUPPORTED, XmlFormatVersion.CURRENT) == (3, 4)
    assert XmlFormatVersion.supported_range() == "3..4"
    assert XmlFormatVersion.is_supported(4) and not XmlFormatVersion.is_supported(2)
    text = VXmlExporter().serialize_as_file_standalone(dc_dataset(), "")
    newer = text.replace("<file-version>4</file-version>", "<file-version>9</file-version>")
    path = tmp_path / "newer.xml"
    path.write_text(newer, encoding="utf-8")
    info = VXmlImporter().read_file_info(path)
    assert info.file_version == 9 and not XmlFormatVersion.is_supported(info.file_version)
    refused = VXmlImporter().import_from_file(path)
    assert refused.get_error_code_enum() is ErrorCodeEnum.PROTOCOL_VERSION_MISMATCH
    importer = VXmlImporter(ignore_protocol_version_mismatch=True)
    assert importer.get_ignore_protocol_version_mismatch()
    assert isinstance(importer.import_from_file(path), ImportedFile)
    older = VXmlImporter().import_from_memory(text.replace("<file-version>4<", "<file-version>1<").encode())
    assert older.get_error_code_enum() is ErrorCodeEnum.FILE_VERSION_NOT_SUPPORTED
    assert VelmarFileInfo.XML_ELEMENT_NAME == "velmar-fileinfo"
    assert VelmarFileInfo().file_version == VelmarFileInfo.INVALID_FILE_VERSION


def test_exporter_options_belong_to_the_instance():
    first = VXmlExporter(ExportOptions("lab", "2.0", True))
    second = VXmlExporter()
    assert (second.get_generator(), second.get_generator_version(), second.produces_compact_xml()) == \
        ("lib_velmar_link", "0.1", False)
    assert first.get_options().generator == "lab" and first.get_file_version() == XmlFormatVersion.CURRENT
    second.set_generator("other")
    second.set_generator_version("3")
    second.set_compact_xml(True)
    assert first.get_generator() == "lab"
    keyword = VXmlExporter(generator="kw", generator_version="1", compact_xml=False)
    text = keyword.serialize_as_file_standalone(Measurement(), "note")
    assert "<generator>kw</generator>" in text and "\n    <velmar-fileinfo>" in text
    second.set_options(ExportOptions())
    assert second.get_generator() == "lib_velmar_link"


def test_element_tree_of_a_file_and_value_error_for_what_cannot_be_written():
    root = VXmlExporter().get_xml_element_tree(Measurement(dc_dataset()), "tree")
    assert isinstance(root, ElementTree.Element)
    assert root.tag == "velmar-measurement"
    assert [child.tag for child in root] == ["velmar-fileinfo", "velmar-measurement"]
    assert root.find("velmar-fileinfo/comment").text == "tree"
    assert [c.get("name") for c in root.find("velmar-measurement/dataset/data-structure")] == ["time", "cur;rent"]
    assert root.find("velmar-measurement/hardware-info") is None
    ragged = DcDataset([ColumnHeader("a", "", ""), ColumnHeader("b", "", "")], [[1.0, 2.0], [1.0]])
    with pytest.raises(ValueError):
        VXmlExporter().get_xml_element_tree(ragged, "")
    assert isinstance(VXmlExporter().serialize(ragged), ErrorObject)


def test_measurement_surface():
    dc, eis = dc_dataset(), sample_eis()
    for value in (dc, eis, Measurement()):
        assert isinstance(value, XmlSerializable)
    measurement = Measurement(dc)
    measurement.append_dataset(eis)
    # The datasets are shared, not copied.
    assert all(a is b for a, b in zip(measurement.get_datasets(), [dc, eis], strict=True))
    assert measurement.get_hardware_info() is None
    measurement.set_hardware_info(None)
    assert velmar_link.xml.Measurement is Measurement
    for name in ("XmlFormatVersion", "XmlSerializable", "VelmarFileInfo", "ImportedFile", "Measurement",
                 "ExportOptions", "VXmlImporter", "VXmlExporter"):
        cls = getattr(velmar_link.xml, name)
        assert cls.__doc__, name
        for attribute, member in vars(cls).items():
            if callable(member) and not attribute.startswith("_"):
                assert member.__doc__, f"{name}.{attribute}"
