#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <utility>

namespace velmar {

// The one list of error codes. The order of this list is the order of the name table
// used for the JSON conversion; values are grouped by area, each area counting up from
// its own base. UNKNOWN_ERR is deliberately the eye-catcher 0xBADF00D.
#define VELMAR_ERROR_CODES(X)                                  \
    X(NONE, 0)                                                 \
    X(CONNECTION_NOT_ESTABLISHED, 0x1000)                      \
    X(ALREADY_CONNECTED, 0x1001)                               \
    X(CONNECTION_FAILED, 0x1002)                               \
    X(CONNECTION_BROKEN, 0x1003)                               \
    X(CONNECTION_WAS_CLOSED, 0x1004)                           \
    X(FAILED_TO_WRITE_TO_SOCKET, 0x1005)                       \
    X(FAILED_TO_READ_FROM_SOCKET, 0x1006)                      \
    X(OPERATION_TIMED_OUT, 0x1007)                             \
    X(CONNECTION_DNS_ERROR, 0x1008)                            \
    X(CONNECTION_HTTP_ERROR, 0x1009)                           \
    X(UNAUTHORIZED, 0x100A)                                    \
    X(FAILED_TO_ESTABLISH_WEBSOCKET_CONNECTION, 0x100B)        \
    X(PROTOCOL_VERSION_MISMATCH, 0x100C)                       \
    X(JSON_MALFORMED, 0x2000)                                  \
    X(JSON_OBJECT_EXPECTED, 0x2001)                            \
    X(ENDPOINT_NOT_FOUND, 0x2002)                              \
    X(TYPE_NAME_UNKNOWN, 0x2003)                               \
    X(PARAMETER_MISSING, 0x4000)                               \
    X(PARAMETER_FORMAT_INVALID, 0x4001)                        \
    X(PARAMETER_FORMAT_INVALID_HINT, 0x4002)                   \
    X(PARAMETER_IS_NOT_A_NUMBER, 0x4003)                       \
    X(PARAMETER_VALUE_TOO_HIGH, 0x4004)                        \
    X(PARAMETER_VALUE_TOO_LOW, 0x4005)                         \
    X(PARAMETER_RELATIVE_CONSTRAINT_VIOLATED, 0x4006)          \
    X(PARAMETER_CONSTRAINT_VIOLATED, 0x4007)                   \
    X(RAMP_ODR_CONSTRAINT_VIOLATED, 0x4008)                    \
    X(PARAMETER_COMBINATION_INVALID, 0x4009)                   \
    X(PARAMETER_VALUES_TOO_CLOSE, 0x400A)                      \
    X(PARAMETER_STRING_LENGTH_INVALID, 0x400B)                 \
    X(PARAMETER_VECTOR_SIZE_INVALID, 0x400C)                   \
    X(PARAMETER_SYMBOLIC_PATH_INVALID, 0x400D)                 \
    X(PROPERTY_OBJECT_MISSING, 0x400E)                         \
    X(INVALID_PARAMETER, 0x400F)                               \
    X(ID_NOT_FOUND, 0x4010)                                    \
    X(SETTINGS_NOT_APPLIED, 0x8000)                            \
    X(SETTING_OK_BUT_NOT_COMMITTED, 0x8001)                    \
    X(TLS_NOT_SUPPORTED_BY_LIBRARY, 0x8002)                    \
    X(TLS_SETUP_FAILED, 0x8003)                                \
    X(TLS_HANDSHAKE_FAILED, 0x8004)                            \
    X(TLS_CERTIFICATE_INVALID, 0x8005)                         \
    X(TLS_PRIVATE_KEY_INVALID, 0x8006)                         \
    X(TLS_KEY_CERTIFICATE_MISMATCH, 0x8007)                    \
    X(TLS_CERTIFICATE_EXPIRED, 0x8008)                         \
    X(STOP_CONDITION_MISCONFIGURED, 0x10000)                   \
    X(STOP_CONDITION_TRIGGERED, 0x10001)                       \
    X(STOPPED_MANUALLY_BEFORE_RUN, 0x10002)                    \
    X(STOPPED_MANUALLY, 0x10003)                               \
    X(RESOURCE_CREATION_FAILED, 0x20000)                       \
    X(RESOURCE_TYPE_MISMATCH, 0x20001)                         \
    X(RESOURCE_CONTENT_INVALID, 0x20002)                       \
    X(RESOURCE_NOT_WRITABLE, 0x20003)                          \
    X(QUEUE_BYPASS_NOT_ALLOWED, 0x40000)                       \
    X(QUEUE_FULL, 0x40001)                                     \
    X(RESULT_DATA_DISCARDED, 0x40002)                          \
    X(FILE_NOT_FOUND, 0x80000)                                 \
    X(FILE_COULD_NOT_BE_OPENED, 0x80001)                       \
    X(FILE_COULD_NOT_BE_CLOSED, 0x80002)                       \
    X(FILE_COULD_NOT_BE_READ, 0x80003)                         \
    X(FILE_COULD_NOT_BE_WRITTEN, 0x80004)                      \
    X(FILE_IS_EMPTY, 0x80005)                                  \
    X(FILE_VERSION_NOT_SUPPORTED, 0x80006)                     \
    X(POT_STATUS_MISMATCH, 0x100000)                           \
    X(PSEUDO_GAL_NEEDS_GAL, 0x100001)                          \
    X(POTENTIOSTAT_COUPLING_MISMATCH, 0x100002)                \
    X(HARDWARE_CONFIGURATION_ISSUE, 0x100003)                  \
    X(POTENTIOSTAT_SWITCH_ON_ISSUE, 0x100004)                  \
    X(CALIBRATION_TYPE_UNKNOWN, 0x200000)                      \
    X(CALIBRATION_GAIN_CALIB_ERROR, 0x200001)                  \
    X(CALIBRATION_NO_SETTINGS, 0x200002)                       \
    X(CALIBRATION_ERROR, 0x200003)                             \
    X(PREMATURELY_STOPPED, 0x200004)                           \
    X(OUT_OF_MEMORY, 0x400000)                                 \
    X(UNEXPECTED_EXCEPTION, 0x800000)                          \
    X(UNKNOWN_ERR, 0xBADF00D)

enum class ErrorCodeEnum : std::uint32_t {
#define VELMAR_ERROR_CODE_ENUMERATOR(name, value) name = value,
    VELMAR_ERROR_CODES(VELMAR_ERROR_CODE_ENUMERATOR)
#undef VELMAR_ERROR_CODE_ENUMERATOR
};

/// The name table: every code with its name, in declaration order.
std::span<const std::pair<ErrorCodeEnum, std::string_view>> errorCodeNameTable();

/// The name of a code; "UNKNOWN_ERR" for a value that is not in the table.
std::string_view errorCodeName(ErrorCodeEnum code);

/// The code of a name; UNKNOWN_ERR for a name that is not in the table.
ErrorCodeEnum errorCodeFromName(std::string_view name);

}  // namespace velmar
