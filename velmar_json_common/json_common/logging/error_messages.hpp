#pragma once

#include <string_view>

// Message formats of the errors that the library builds itself. They are part of the
// contract with scripts and are kept letter for letter, established misspellings included.
namespace velmar::messages {

inline constexpr std::string_view NO_ERROR = "no error occoured";
inline constexpr std::string_view UNKNOWN_ERROR = "an unknown error occured";
inline constexpr std::string_view CONNECTION_NOT_ESTABLISHED = "no network connection has been established yet";
inline constexpr std::string_view CONNECTION_BROKEN = "network connection lost";
inline constexpr std::string_view CONNECTION_WAS_CLOSED = "network connection closed by remote peer";
inline constexpr std::string_view OPERATION_TIMED_OUT = "operation timed out";
inline constexpr std::string_view STOPPED_MANUALLY = "manually stopped";
inline constexpr std::string_view ALREADY_CONNECTED = "already connected";
inline constexpr std::string_view CONNECTION_FAILED = "failed to connect";
inline constexpr std::string_view CONNECTION_DNS_ERROR = "dns error: {0}";
inline constexpr std::string_view TLS_SETUP_FAILED = "TLS setup failed";
inline constexpr std::string_view TLS_HANDSHAKE_FAILED = "TLS handshake failed";
inline constexpr std::string_view WEBSOCKET_FAILED = "failed to establish a websocket connection";
inline constexpr std::string_view UNAUTHORIZED = "unauthorized";
inline constexpr std::string_view PROTOCOL_VERSION_MISMATCH = "protocol version mismatch";
inline constexpr std::string_view JSON_MALFORMED = "json malformed: {0}";
inline constexpr std::string_view JSON_INCOMPLETE = "incomplete json object received";
inline constexpr std::string_view RESULT_HEADER_NOT_OBJECT = "result data header is not an object";
inline constexpr std::string_view RESULT_HEADER_UNPARSABLE = "result data header cannot be parsed";
inline constexpr std::string_view DATASET_TYPE_MISMATCH = "unknown or mismatching dataset type";
inline constexpr std::string_view JSON_OBJECT_EXPECTED = "json object expected";
inline constexpr std::string_view PROPERTY_OBJECT_MISSING = "property '{0}' missing or not an object";
inline constexpr std::string_view ID_NOT_FOUND = "could not find {0} with {1} '{2}'";
inline constexpr std::string_view RESULT_DATA_DISCARDED =
    "job result data is not available because 'discard_result_data' was set";
inline constexpr std::string_view OUT_OF_MEMORY = "out of memory";
inline constexpr std::string_view UNEXPECTED_EXCEPTION = "an unexpected exception occured: {0}";
inline constexpr std::string_view CONNECTION_OBJECT_FAILED = "Unable to create connection object";
inline constexpr std::string_view REPLY_STATUS_INVALID = "reply status invalid";
inline constexpr std::string_view EVENT_HANDLER_ALREADY_SET = "event handler already set";
inline constexpr std::string_view DATASET_CAST_FAILED = "dataset type cast failed";
inline constexpr std::string_view PARAMETER_NOT_A_NUMBER = "parameter '{0}' is not a number";
inline constexpr std::string_view JOB_ALREADY_RUNNING = "job is already running";
/// The parameter of UNEXPECTED_EXCEPTION for a blocking call made on the link's I/O thread.
inline constexpr std::string_view BLOCKING_CALL_FROM_CALLBACK = "blocking call from a callback of the same link";
inline constexpr std::string_view TOO_MANY_PARAMETERS = "Error: Too many parameters ({} > {}). Format string: '{}'";

// Result downloads and incoming messages checked against what the headers state.
inline constexpr std::string_view RESULT_FRAME_SIZE_MISMATCH =
    "job result of {0} bytes received, but its header announces {1} rows of {2} columns ({3} bytes)";
inline constexpr std::string_view MESSAGE_TOO_LARGE = "message of {0} bytes exceeds the limit of {1} bytes";

}  // namespace velmar::messages
