#pragma once

#include <boost/describe/enum.hpp>

#include <cstdint>

namespace velmar {

/// The status of a job as the device reports it.
enum class JobStatusEnum : std::uint32_t { UNKNOWN = 0, PENDING = 1, RUNNING = 2, FINISHED = 3, FAILED = 4, DELETED = 5 };
BOOST_DESCRIBE_ENUM(JobStatusEnum, UNKNOWN, PENDING, RUNNING, FINISHED, FAILED, DELETED)

/// Why a job ended (or that it has not ended yet).
enum class JobStatusDetailEnum : std::uint32_t {
    NOT_FINISHED = 0,
    RUN_TO_COMPLETION = 1,
    NOT_CONNECTED = 2,
    FAILED_TO_CREATE = 3,
    CANCELLED_BEFORE_RUN = 4,
    STOPPED_BY_USER = 5,
    FUNCTIONAL_LIMIT_OCCURRED = 6,
    SAFETY_LIMIT_OCCURRED = 7,
    CONNECTION_LOSS = 8,
    RUNTIME_ERROR = 9,
};
BOOST_DESCRIBE_ENUM(JobStatusDetailEnum, NOT_FINISHED, RUN_TO_COMPLETION, NOT_CONNECTED, FAILED_TO_CREATE,
                    CANCELLED_BEFORE_RUN, STOPPED_BY_USER, FUNCTIONAL_LIMIT_OCCURRED, SAFETY_LIMIT_OCCURRED,
                    CONNECTION_LOSS, RUNTIME_ERROR)

/// How much drift correction an impedance measurement applies (computed by the device).
enum class DriftCorrection : std::uint32_t { FULL = 0, DC_ONLY = 1, OFF = 2 };
BOOST_DESCRIBE_ENUM(DriftCorrection, FULL, DC_ONLY, OFF)

/// What the device does with the queued jobs when it is stopped.
enum class QueueStopModeEnum : std::uint32_t { QUEUE_STOP_MODE_FLUSH = 0, QUEUE_STOP_MODE_CONTINUE = 1 };
BOOST_DESCRIBE_ENUM(QueueStopModeEnum, QUEUE_STOP_MODE_FLUSH, QUEUE_STOP_MODE_CONTINUE)

}  // namespace velmar

#include <optional>
#include <string_view>

namespace velmar {

/// Wire names of the status tables. The "to name" functions throw std::logic_error for a
/// value outside the table; the "from name" functions compare exactly.
std::string_view jobStatusName(JobStatusEnum status);
std::string_view jobStatusDetailName(JobStatusDetailEnum detail);
std::optional<JobStatusEnum> jobStatusFromName(std::string_view name);
std::optional<JobStatusDetailEnum> jobStatusDetailFromName(std::string_view name);

}  // namespace velmar
