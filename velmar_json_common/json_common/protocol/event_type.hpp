#pragma once

#include <boost/describe/enum.hpp>

#include <cstdint>

namespace velmar {

/// The type of an "EVENT" frame, numbered in wire-table order.
enum class EventTypeEnum : std::uint32_t {
    UNKNOWN = 0,
    JOB_STATUS_UPDATE = 1,
    MESSAGE_FROM_JOB = 2,
    MESSAGE_FROM_SERVER = 3,
    JOB_DONE = 4,
    LIVE_DATA_HEADER = 5,
    LIVE_DATA_HEADER_EIS = 6,
    LIVE_DATA_ROWS = 7,
    LIVE_DATA_ROW_EIS = 8,
    LIVE_DATA_WAVES = 9,
    LIVE_DATA_FINISHED = 10,
};
BOOST_DESCRIBE_ENUM(EventTypeEnum, UNKNOWN, JOB_STATUS_UPDATE, MESSAGE_FROM_JOB, MESSAGE_FROM_SERVER, JOB_DONE,
                    LIVE_DATA_HEADER, LIVE_DATA_HEADER_EIS, LIVE_DATA_ROWS, LIVE_DATA_ROW_EIS, LIVE_DATA_WAVES,
                    LIVE_DATA_FINISHED)

/// The severity of a log message event.
enum class LogSeverityEnum : std::uint32_t { DEBUG = 0, MESSAGE = 1, WARNING = 2, CRITICAL_ERROR = 3 };
BOOST_DESCRIBE_ENUM(LogSeverityEnum, DEBUG, MESSAGE, WARNING, CRITICAL_ERROR)

/// The kind of a result dataset.
enum class DatasetType : std::uint32_t { DC = 0, AC = 1 };
BOOST_DESCRIBE_ENUM(DatasetType, DC, AC)

}  // namespace velmar
