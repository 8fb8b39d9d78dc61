#include "emulator/device_jobs/stop_condition_monitor.hpp"

#include "emulator/device_jobs/job_catalog.hpp"
#include "emulator/device_jobs/job_messages.hpp"

#include <boost/json.hpp>

#include <cmath>
#include <limits>

namespace velmar::emulator {

namespace json = boost::json;

StopConditionMonitor::StopConditionMonitor(const json::array& conditions,
                                           std::vector<std::string> columnDimensions)
    : dimensions_(std::move(columnDimensions)) {
    for (const auto& element : conditions) {
        const auto* object = element.if_object();
        if (object == nullptr) continue;
        const auto* type = object->if_contains("type");
        const auto* parameters = object->if_contains("parameters");
        if (type == nullptr || !type->is_string() || parameters == nullptr || !parameters->is_object())
            continue;
        const auto& p = parameters->get_object();
        Condition condition;
        condition.type = std::string(type->get_string());
        if (const auto* d = p.if_contains("for_dimension"); d != nullptr && d->is_string())
            condition.dimension = std::string(d->get_string());
        if (const auto* d = p.if_contains("over_dimension"); d != nullptr && d->is_string())
            condition.over = std::string(d->get_string());
        condition.minimum = numberOf(p, "minimum");
        condition.maximum = numberOf(p, "maximum");
        condition.tolerance = numberOf(p, "stability_tolerance");
        condition.minimumDuration = numberOf(p, "minimum_duration");
        conditions_.push_back(std::move(condition));
    }
}

double StopConditionMonitor::valueOf(const std::string& dimension, std::span<const double> row,
                                     double charge) const {
    if (dimension == "charge") return charge;
    for (std::size_t i = 0; i < dimensions_.size() && i < row.size(); ++i) {
        if (dimensions_[i] == dimension) return row[i];
    }
    return std::numeric_limits<double>::quiet_NaN();
}

std::optional<ErrorObject> StopConditionMonitor::feed(std::span<const double> row) {
    const double time = valueOf("time", row, 0.0);
    if (!first_) {
        const double previousTime = valueOf("time", previousRow_, 0.0);
        const double current = valueOf("current", row, 0.0);
        const double previousCurrent = valueOf("current", previousRow_, 0.0);
        if (std::isfinite(current) && std::isfinite(previousCurrent)) {
            charge_ += 0.5 * (current + previousCurrent) * (time - previousTime);
        }
    }
    std::optional<ErrorObject> met;
    for (auto& c : conditions_) {
        const double value = valueOf(c.dimension, row, charge_);
        if (std::isnan(value)) continue;
        bool triggered = false;
        if (c.type == "min") {
            triggered = value < c.minimum;
        } else if (c.type == "max") {
            triggered = value > c.maximum;
        } else if (c.type == "min_max") {
            triggered = value < c.minimum || value > c.maximum;
        } else if (c.type == "in_range") {
            triggered = value >= c.minimum && value <= c.maximum;
        } else if (c.type == "integrating" && !first_) {
            const double previous = valueOf(c.dimension, previousRow_, previousCharge_);
            const double over =
                valueOf(c.over, row, charge_) - valueOf(c.over, previousRow_, previousCharge_);
            if (std::isfinite(previous) && std::isfinite(over))
                c.integral += 0.5 * (std::fabs(value) + std::fabs(previous)) * std::fabs(over);
            triggered = c.integral > c.maximum;
        } else if (c.type == "stability_tolerance" && !first_ && time >= c.minimumDuration) {
            const double dt = time - valueOf("time", previousRow_, 0.0);
            const double previous = valueOf(c.dimension, previousRow_, previousCharge_);
            triggered = dt > 0.0 && std::fabs(value - previous) / dt < c.tolerance;
        }
        if (triggered && !met) {
            met = ErrorObject(ErrorCodeEnum::STOP_CONDITION_TRIGGERED, job_messages::STOP_CONDITION_TRIGGERED,
                              c.type, c.dimension, time);
        }
    }
    previousRow_.assign(row.begin(), row.end());
    previousCharge_ = charge_;
    first_ = false;
    return met;
}

}  // namespace velmar::emulator
