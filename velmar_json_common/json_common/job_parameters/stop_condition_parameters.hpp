#pragma once

// Parameter records of the stop conditions. "for_dimension" names a dimension of the measured
// columns such as "time", "voltage" or "current".

#include "json_common/detail/json_declare.hpp"

#include <boost/describe/class.hpp>

#include <string>

namespace velmar {

struct MinLimitStopConditionParameters {
    std::string for_dimension = "voltage";
    double minimum = 0.0;
};
BOOST_DESCRIBE_STRUCT(MinLimitStopConditionParameters, (), (for_dimension, minimum))

struct MaxLimitStopConditionParameters {
    std::string for_dimension = "voltage";
    double maximum = 0.0;
};
BOOST_DESCRIBE_STRUCT(MaxLimitStopConditionParameters, (), (for_dimension, maximum))

struct MinMaxLimitStopConditionParameters {
    std::string for_dimension = "voltage";
    double minimum = 0.0;
    double maximum = 0.0;
};
BOOST_DESCRIBE_STRUCT(MinMaxLimitStopConditionParameters, (), (for_dimension, minimum, maximum))

/// The integral of the absolute value of one dimension over another.
struct IntegratingLimitStopConditionParameters {
    std::string for_dimension = "current";
    std::string over_dimension = "time";
    double maximum = 0.0;
};
BOOST_DESCRIBE_STRUCT(IntegratingLimitStopConditionParameters, (), (for_dimension, over_dimension, maximum))

/// Change per second below the absolute tolerance, evaluated after the minimum duration.
struct StabilityToleranceLimitStopConditionParameters {
    std::string for_dimension = "voltage";
    double stability_tolerance = 0.0;
    double minimum_duration = 0.0;
};
BOOST_DESCRIBE_STRUCT(StabilityToleranceLimitStopConditionParameters, (),
                      (for_dimension, stability_tolerance, minimum_duration))

/// Bounds included.
struct InRangeStopConditionParameters {
    std::string for_dimension = "voltage";
    double minimum = 0.0;
    double maximum = 0.0;
};
BOOST_DESCRIBE_STRUCT(InRangeStopConditionParameters, (), (for_dimension, minimum, maximum))

VELMAR_DECLARE_JSON(MinLimitStopConditionParameters);
VELMAR_DECLARE_JSON(MaxLimitStopConditionParameters);
VELMAR_DECLARE_JSON(MinMaxLimitStopConditionParameters);
VELMAR_DECLARE_JSON(IntegratingLimitStopConditionParameters);
VELMAR_DECLARE_JSON(StabilityToleranceLimitStopConditionParameters);
VELMAR_DECLARE_JSON(InRangeStopConditionParameters);

}  // namespace velmar
