#pragma once

#include <string_view>

// Message formats of the measurement file and its CSV text. They are part of the contract with
// scripts and are kept letter for letter.
namespace VXml::messages {

// CSV text (reasons of a failed parse; the XML reader reports its own message).
inline constexpr std::string_view CSV_HEADER_LINE_MISSING = "header line missing";
inline constexpr std::string_view CSV_COLUMN_SIZE_MISMATCH = "column size mismatch";
inline constexpr std::string_view CSV_ROW_INVALID = "row does not match the header or holds a field that is no number";

// Files.
inline constexpr std::string_view FILE_NOT_FOUND = "file not found: {0}";
inline constexpr std::string_view FILE_OPEN_FOR_READING = "could not open the file for reading";
inline constexpr std::string_view FILE_READ_ERROR = "an error occurred while reading the file";
inline constexpr std::string_view FILE_EMPTY = "the file is empty";
inline constexpr std::string_view FILE_OPEN_FOR_WRITING = "could not open the file for writing";
inline constexpr std::string_view FILE_WRITE_ERROR = "an error occurred while writing the file";
inline constexpr std::string_view OUT_OF_MEMORY = "out of memory";
inline constexpr std::string_view NULL_SERIALIZABLE = "nothing to serialize: the serializable is a null pointer";

// The file frame.
inline constexpr std::string_view MALFORMED_XML = "malformed XML";
inline constexpr std::string_view MALFORMED_XML_WITH_REASON = "malformed XML: {0}";
inline constexpr std::string_view NO_ROOT = "document has no root element";
inline constexpr std::string_view NO_FILE_INFO = "no <{0}> element found, not a standalone {1} XML file";
inline constexpr std::string_view NO_FILE_INFO_WITHIN = "no <{0}> element within the first {1} bytes, not a standalone {2} XML file";
inline constexpr std::string_view ROOT_TYPE_MISMATCH = "root element <{0}> does not match the declared type '{1}'";
inline constexpr std::string_view NO_PAYLOAD = "no <{0}> payload element inside the file";
inline constexpr std::string_view PAYLOAD_UNREADABLE = "could not deserialize <{0}>: {1}";
inline constexpr std::string_view FILE_VERSION_UNSUPPORTED = "file version '{0}' is not supported (supported: {1})";
inline constexpr std::string_view PROTOCOL_VERSION_MISMATCH = "protocol version mismatch";
inline constexpr std::string_view TYPE_MISMATCH = "imported object type does not match the requested type";
inline constexpr std::string_view LOCAL_TIME_FAILED = "could not convert calendar time to local time";

// The measurement.
inline constexpr std::string_view HARDWARE_INFO_UNREADABLE = "<{0}> is present but could not be parsed: {1}";
inline constexpr std::string_view DATASET_UNREADABLE = "<{0}> #{1} could not be parsed: {2}";
inline constexpr std::string_view DATASET_TYPE_UNKNOWN = "<dataset type=\"{0}\"> is not a known dataset type (expected \"DC\" or \"AC\")";

// Elements and attributes.
inline constexpr std::string_view ATTRIBUTE_NOT_A_NUMBER = "<{0}> attribute '{1}' is not a number: '{2}'";
inline constexpr std::string_view ATTRIBUTE_NOT_A_BOOLEAN = "<{0}> attribute '{1}' is not a boolean: '{2}'";
inline constexpr std::string_view ATTRIBUTE_MISSING = "<{0}> is missing its required '{1}' attribute";
inline constexpr std::string_view CHILD_MISSING = "<{0}> is missing its <{1}> element";
inline constexpr std::string_view JOB_INFO_UNREADABLE = "<{0}> does not hold a job information object: {1}";

// DC datasets.
inline constexpr std::string_view DC_CHILD_MISSING = "DC <dataset> is missing its <{0}> element";
inline constexpr std::string_view DC_NO_COLUMNS = "DC <dataset> declares no <{0}> in its <{1}> element";
inline constexpr std::string_view DC_TABLE_EMPTY = "the <{0}> element of the DC dataset is empty";
inline constexpr std::string_view DC_TABLE_MISMATCH = "the DC data table does not match the declared {0} columns x {1} rows";

// Impedance datasets.
inline constexpr std::string_view AC_CHILD_MISSING = "AC <dataset> is missing its <{0}> element";
inline constexpr std::string_view AC_TABLE_MISMATCH = "the AC data table does not match the declared {0} columns x {1} rows";
inline constexpr std::string_view AC_WAVE_TABLE_COUNT = "AC <dataset> declares {0} sync paths but carries {1} wave tables";
inline constexpr std::string_view AC_WAVE_TABLE_MALFORMED =
    "the wave table of sync path {0} is malformed for file format version {1}";
inline constexpr std::string_view AC_LEGACY_WAVE_TABLE_MISMATCH =
    "the legacy wave table of sync path {0} does not match {1} rows of {2} samples";
inline constexpr std::string_view AC_TOO_MANY_WAVES = "sync path {0} carries {1} waves but the dataset has only {2}";
inline constexpr std::string_view AC_META_COLUMNS_MISSING =
    "AC <dataset> does not contain the expected meta data columns (frequency, periods, time): found {0} declared "
    "and {1} parsed";
inline constexpr std::string_view AC_COLUMN_CLASS_UNKNOWN = "<column-class> of unknown type '{0}'";
inline constexpr std::string_view AC_COLUMNS_NOT_GROUPED =
    "the <data-structure> columns do not follow the column classes of the <configuration> element";

}  // namespace VXml::messages
