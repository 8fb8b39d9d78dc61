#pragma once

// Evaluates the stop conditions of a DC measurement on its rows, as the device does.

#include "json_common/logging/error_object.hpp"

#include <boost/json/fwd.hpp>

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace velmar::emulator {

/// Conditions (validated by checkStopConditions) over rows whose columns carry the given
/// dimensions; "charge" is derived as the running integral of "current" over "time".
/// A condition is met by a row when:
///   "min": value < minimum;  "max": value > maximum;  "min_max": value outside [minimum,
///   maximum];  "in_range": minimum <= value <= maximum;  "integrating": the integral of
///   |for_dimension| over over_dimension exceeds maximum;  "stability_tolerance": once
///   "time" >= minimum_duration, |change of the value per second| between two rows is below
///   stability_tolerance.
/// Single-threaded.
class StopConditionMonitor {
public:
    StopConditionMonitor(const boost::json::array& conditions, std::vector<std::string> columnDimensions);

    /// Feeds the next row; the STOP_CONDITION_TRIGGERED error of the first condition that the
    /// row meets, if any.
    std::optional<ErrorObject> feed(std::span<const double> row);

    bool empty() const { return conditions_.empty(); }

private:
    struct Condition {
        std::string type;
        std::string dimension;
        std::string over;
        double minimum = 0.0;
        double maximum = 0.0;
        double tolerance = 0.0;
        double minimumDuration = 0.0;
        double integral = 0.0;
    };

    /// The value of a dimension in `row`, whose running charge is `charge` (NaN when there is
    /// no such column).
    double valueOf(const std::string& dimension, std::span<const double> row, double charge) const;

    std::vector<Condition> conditions_;
    std::vector<std::string> dimensions_;
    std::vector<double> previousRow_;
    double charge_ = 0.0;
    double previousCharge_ = 0.0;
    bool first_ = true;
};

}  // namespace velmar::emulator
