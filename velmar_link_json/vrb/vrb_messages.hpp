#pragma once

#include <string_view>

// Message formats of the binary snapshot import and of reading its files. They are part of
// the contract with scripts and are kept letter for letter.
namespace velmar::messages {

inline constexpr std::string_view VRB_SEPARATOR_MISSING =
    "missing metadata/payload separator (0x00): not a valid 'With Header' (.vrb) file";
inline constexpr std::string_view VRB_SEPARATOR_NOT_IN_WINDOW =
    "no metadata/payload separator (0x00) within the first {0} bytes: not a valid 'With Header' (.vrb) file";
inline constexpr std::string_view VRB_PAYLOAD_SIZE_MISMATCH = "payload size {0} does not match the declared size {1}";
inline constexpr std::string_view VRB_WORKSTATION_INFO_MISSING =
    "missing workstation_info: cannot verify the protocol version";
inline constexpr std::string_view VRB_PROTOCOL_VERSION_MISSING =
    "missing workstation_info.protocol_version: cannot verify the protocol version";
inline constexpr std::string_view VRB_HEADER_NOT_OBJECT = "resource metadata 'header' is missing or not an object";
inline constexpr std::string_view VRB_JOB_DATA_HEADER_NOT_OBJECT = "'job_data_header' is missing or not an object";
inline constexpr std::string_view VRB_SUB_TYPE_NOT_STRING = "'sub_type' is missing or not a string";
inline constexpr std::string_view VRB_SUB_TYPE_UNSUPPORTED = "unsupported dataset sub_type '{0}'";
inline constexpr std::string_view VRB_TYPE_MISMATCH = "imported dataset type does not match the requested type";

// Reading a file.
inline constexpr std::string_view VRB_FILE_NOT_FOUND = "file '{0}' does not exist";
inline constexpr std::string_view VRB_FILE_OPEN_FAILED = "could not open the file for reading";
inline constexpr std::string_view VRB_FILE_READ_FAILED = "an error occurred while reading the file";
inline constexpr std::string_view VRB_FILE_IS_EMPTY = "file '{0}' is empty";

}  // namespace velmar::messages
