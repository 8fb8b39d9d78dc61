"""
Submodule with xml utilities.
"""
from __future__ import annotations
import os
import typing
import typing_extensions
import velmar_link._velmar_link
import xml.etree.ElementTree
__all__: list[str] = ['ExportOptions', 'ImportedFile', 'Measurement', 'VXmlExporter', 'VXmlImporter', 'VelmarFileInfo', 'XmlFormatVersion', 'XmlSerializable']
class XmlSerializable:
    """
    Abstract base of everything that can be written as XML: measurements and datasets.
    """
class XmlFormatVersion:
    """
    The XML file format version range this library supports.
    """
    CURRENT: typing.ClassVar[int] = 4
    MINIMUM_SUPPORTED: typing.ClassVar[int] = 3
    @staticmethod
    def is_supported(raw_version: typing.SupportsInt | typing.SupportsIndex) -> bool:
        """
        True if the raw `file-version` value of a file lies within the supported range.
        """
    @staticmethod
    def supported_range() -> str:
        """
        The supported range as a string "minimum..maximum", for messages.
        """
class VelmarFileInfo(XmlSerializable):
    """
    The file's "velmar-fileinfo" block: what the file holds and who wrote it.
    """
    INVALID_FILE_VERSION: typing.ClassVar[int] = 4294967295
    XML_ELEMENT_NAME: typing.ClassVar[str] = 'velmar-fileinfo'
    def __init__(self) -> None:
        """
        An empty file info with an invalid file version.
        """
    @property
    def comment(self) -> str:
        """
        the user comment given when the file was written
        """
    @property
    def creation_timestamp(self) -> str:
        """
        local time of writing, "YYYY-MM-DDTHH:MM:SS"
        """
    @property
    def file_version(self) -> int:
        """
        file format version of the file (INVALID_FILE_VERSION when it is no number)
        """
    @property
    def generator(self) -> str:
        """
        name of the application that wrote the file
        """
    @property
    def generator_version(self) -> str:
        """
        version of that application
        """
    @property
    def type(self) -> str:
        """
        name of the payload element
        """
class ImportedFile:
    """
    The result of an import: the payload and the file info.
    """
    @property
    def file_info(self) -> VelmarFileInfo:
        """
        The VelmarFileInfo block of the file the payload came from.
        """
    @property
    def object(self) -> XmlSerializable:
        """
        The imported payload: a Measurement, DcDataset or EisDataset.
        """
class Measurement(XmlSerializable):
    """
    A measurement: the device tree (optional) and any number of datasets, in order.
    """
    @typing.overload
    def __init__(self) -> None:
        """
        An empty measurement.
        """
    @typing.overload
    def __init__(self, hardware_info: velmar_link._velmar_link.HardwareInfo) -> None:
        """
        A measurement with the device tree and no datasets.
        """
    @typing.overload
    def __init__(self, dataset: velmar_link._velmar_link.DataSet) -> None:
        """
        A measurement with one dataset (EisDataset or DcDataset).
        """
    @typing.overload
    def __init__(self, hardware_info: velmar_link._velmar_link.HardwareInfo, dataset: velmar_link._velmar_link.DataSet) -> None:
        """
        A measurement with the device tree and one dataset.
        """
    def append_dataset(self, dataset: velmar_link._velmar_link.DataSet) -> None:
        """
        Append a dataset (EisDataset or DcDataset); the dataset is shared, not copied.
        """
    def get_datasets(self) -> list[velmar_link._velmar_link.DataSet]:
        """
        The datasets, in order, as a list.
        """
    def get_hardware_info(self) -> velmar_link._velmar_link.HardwareInfo | None:
        """
        The device tree, or None when there is none.
        """
    def set_hardware_info(self, hardware_info: velmar_link._velmar_link.HardwareInfo | None) -> None:
        """
        Set the device tree, or remove it with None.
        """
class ExportOptions:
    """
    What goes into the file-info block, plus the output formatting.
    """
    @typing.overload
    def __init__(self) -> None:
        """
        The defaults: generator "lib_velmar_link", version "0.1", indented XML.
        """
    @typing.overload
    def __init__(self, generator: str, generator_version: str, compact_xml: bool = False) -> None:
        """
        Options with the given values.
        """
    @property
    def compact_xml(self) -> bool:
        """
        omit indentation and line breaks
        """
    @compact_xml.setter
    def compact_xml(self, arg0: bool) -> None:
        ...
    @property
    def generator(self) -> str:
        """
        name of the producing application
        """
    @generator.setter
    def generator(self, arg0: str) -> None:
        ...
    @property
    def generator_version(self) -> str:
        """
        its version
        """
    @generator_version.setter
    def generator_version(self, arg0: str) -> None:
        ...
class VXmlImporter:
    """
    Reads XML measurement files and XML elements.
    
    All failures are returned as ErrorObject; nothing is raised.
    """
    def __init__(self, ignore_protocol_version_mismatch: bool = False) -> None:
        """
        An importer; files of a newer version are read when the mismatch is ignored.
        """
    def deserialize(self, data: typing_extensions.Buffer) -> XmlSerializable | velmar_link._velmar_link.ErrorObject:
        """
        Read a plain element without file-info block, assuming the current version.
        
        :param data: the element's text as ``bytes``
        :return: a Measurement, DcDataset or EisDataset, or an ErrorObject
        """
    def get_ignore_protocol_version_mismatch(self) -> bool:
        """
        True if files of a newer file version are read.
        """
    def import_from_file(self, filename: os.PathLike | str | bytes) -> ImportedFile | velmar_link._velmar_link.ErrorObject:
        """
        Import a standalone XML file.
        
        :param filename: path as ``os.PathLike``, ``str`` or ``bytes``
        :return: an :class:`ImportedFile` or an :class:`~velmar_link.ErrorObject` (besides the content
            errors of :meth:`import_from_memory`: ``FILE_NOT_FOUND``, ``FILE_COULD_NOT_BE_OPENED``,
            ``FILE_COULD_NOT_BE_READ``, ``FILE_IS_EMPTY``)
        """
    def import_from_file_as_dc_dataset(self, filename: os.PathLike | str | bytes) -> ImportedFile | velmar_link._velmar_link.ErrorObject:
        """
        Import a file whose payload is a DcDataset.
        
        :param filename: path as ``os.PathLike``, ``str`` or ``bytes``
        :return: an :class:`ImportedFile`, or an :class:`~velmar_link.ErrorObject`; a file with another
            payload gives "imported object type does not match the requested type"
        """
    def import_from_file_as_eis_dataset(self, filename: os.PathLike | str | bytes) -> ImportedFile | velmar_link._velmar_link.ErrorObject:
        """
        Import a file whose payload is an EisDataset.
        
        :param filename: path as ``os.PathLike``, ``str`` or ``bytes``
        :return: an :class:`ImportedFile`, or an :class:`~velmar_link.ErrorObject`; a file with another
            payload gives "imported object type does not match the requested type"
        """
    def import_from_file_as_measurement(self, filename: os.PathLike | str | bytes) -> ImportedFile | velmar_link._velmar_link.ErrorObject:
        """
        Import a file whose payload is a Measurement.
        
        :param filename: path as ``os.PathLike``, ``str`` or ``bytes``
        :return: an :class:`ImportedFile`, or an :class:`~velmar_link.ErrorObject`; a file with another
            payload gives "imported object type does not match the requested type"
        """
    def import_from_memory(self, data: typing_extensions.Buffer) -> ImportedFile | velmar_link._velmar_link.ErrorObject:
        """
        Import a standalone XML file held in memory.
        
        :param data: the file's content as ``bytes``
        :return: an :class:`ImportedFile` with the payload (a :class:`Measurement` or a dataset) and the
            file info, or an :class:`~velmar_link.ErrorObject` (``FILE_VERSION_NOT_SUPPORTED`` for a file
            older than :attr:`XmlFormatVersion.MINIMUM_SUPPORTED`, ``PROTOCOL_VERSION_MISMATCH`` for a newer
            one unless the mismatch is ignored, ``RESOURCE_CONTENT_INVALID`` for any content error)
        """
    def import_from_memory_as_dc_dataset(self, data: typing_extensions.Buffer) -> ImportedFile | velmar_link._velmar_link.ErrorObject:
        """
        Import a file held in memory whose payload is a DcDataset.
        
        :param data: the file's content as ``bytes``
        :return: an :class:`ImportedFile`, or an :class:`~velmar_link.ErrorObject`; a file with another
            payload gives "imported object type does not match the requested type"
        """
    def import_from_memory_as_eis_dataset(self, data: typing_extensions.Buffer) -> ImportedFile | velmar_link._velmar_link.ErrorObject:
        """
        Import a file held in memory whose payload is an EisDataset.
        
        :param data: the file's content as ``bytes``
        :return: an :class:`ImportedFile`, or an :class:`~velmar_link.ErrorObject`; a file with another
            payload gives "imported object type does not match the requested type"
        """
    def import_from_memory_as_measurement(self, data: typing_extensions.Buffer) -> ImportedFile | velmar_link._velmar_link.ErrorObject:
        """
        Import a file held in memory whose payload is a Measurement.
        
        :param data: the file's content as ``bytes``
        :return: an :class:`ImportedFile`, or an :class:`~velmar_link.ErrorObject`; a file with another
            payload gives "imported object type does not match the requested type"
        """
    def read_file_info(self, filename: os.PathLike | str | bytes) -> VelmarFileInfo | velmar_link._velmar_link.ErrorObject:
        """
        Read only the file-info block from the first 65536 bytes of the file (fast for files of
        several gigabytes). Unsupported versions are not rejected: check the result with
        XmlFormatVersion.is_supported.
        
        :return: a VelmarFileInfo, or an ErrorObject
        """
    def set_ignore_protocol_version_mismatch(self, ignore: bool) -> None:
        """
        Read files of a newer file version with the current layout instead of refusing them.
        """
class VXmlExporter:
    """
    Writes XML measurement files and XML elements.
    
    It always writes XmlFormatVersion.CURRENT. There is deliberately no way to write an older
    version. The options belong to the instance; there is no process-wide state.
    """
    @typing.overload
    def __init__(self) -> None:
        """
        An exporter with the default options.
        """
    @typing.overload
    def __init__(self, options: ExportOptions) -> None:
        """
        An exporter with the given options.
        """
    @typing.overload
    def __init__(self, generator: str, generator_version: str, compact_xml: bool = False) -> None:
        """
        An exporter with the given generator, generator version and formatting.
        """
    def get_file_version(self) -> int:
        """
        The file version written: always CURRENT.
        """
    def get_generator(self) -> str:
        """
        The name of the producing application.
        """
    def get_generator_version(self) -> str:
        """
        The version of the producing application.
        """
    def get_options(self) -> ExportOptions:
        """
        A copy of the options.
        """
    def get_xml_element_tree(self, serializable: XmlSerializable, user_comment: str = '') -> xml.etree.ElementTree.Element:
        """
        The complete file parsed by xml.etree.ElementTree.fromstring: the root element.
        
        Raises ValueError if the object could not be serialized.
        """
    def produces_compact_xml(self) -> bool:
        """
        True if indentation and line breaks are omitted.
        """
    def save_as_file_standalone(self, serializable: XmlSerializable, filename: os.PathLike | str | bytes, user_comment: str = '') -> velmar_link._velmar_link.ErrorObject:
        """
        Save the complete file, creating missing parent directories.
        
        The file is written to a temporary file in the same directory and renamed over the target, so
        an existing file is never left half written.
        
        :param filename: path as ``os.PathLike``, ``str`` or ``bytes``
        :return: an ErrorObject, falsy on success
        """
    def serialize(self, serializable: XmlSerializable) -> str | velmar_link._velmar_link.ErrorObject:
        """
        The element's XML text without file-info block (str), or an ErrorObject.
        """
    def serialize_as_file_standalone(self, serializable: XmlSerializable, user_comment: str = '') -> str | velmar_link._velmar_link.ErrorObject:
        """
        The complete file text (str), or an ErrorObject.
        """
    def set_compact_xml(self, compact_xml: bool) -> None:
        """
        Omit indentation and line breaks, or not.
        """
    def set_generator(self, generator: str) -> None:
        """
        Set the name of the producing application.
        """
    def set_generator_version(self, generator_version: str) -> None:
        """
        Set the version of the producing application.
        """
    def set_options(self, options: ExportOptions) -> None:
        """
        Replace the options.
        """
