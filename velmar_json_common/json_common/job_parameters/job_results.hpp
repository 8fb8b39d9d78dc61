#pragma once

// Result records of the single-value control and information jobs, decoded from the "result"
// object of the completion message. Member names are the JSON keys.

#include "json_common/detail/json_declare.hpp"
#include "json_common/job_parameters/potentiostat_coupling.hpp"

#include <boost/describe/class.hpp>

#include <string>
#include <variant>
#include <vector>

namespace velmar {

struct SwitchOnInfo {
    /// The bias that was actually applied.
    double applied_bias = 0.0;
    double voltage = 0.0;
    double current = 0.0;
};
BOOST_DESCRIBE_STRUCT(SwitchOnInfo, (), (applied_bias, voltage, current))

struct AdcStateInfo {
    /// Gain indexes active during measurements.
    std::vector<int> active_gain_indexes;
};
BOOST_DESCRIBE_STRUCT(AdcStateInfo, (), (active_gain_indexes))

struct PotentiostatState {
    bool switched_on = false;
    bool autocompensation_on = true;
    /// The DC value that the potentiostat outputs.
    double dc_value = 0.0;
    PotentiostatCoupling coupling = PotentiostatCoupling::POTENTIOSTATIC;
    int voltage_range_index = 0;
    int compliance_range_index = 0;
    int current_range_index = 0;
    int bandwidth_index = 0;
    double current_range_integration_time = 0.0;
    double current_range_relaxation_time = 0.0;
    std::vector<int> active_current_range_indexes;
    std::vector<int> active_bandwidth_indexes;
};
BOOST_DESCRIBE_STRUCT(PotentiostatState, (),
                      (switched_on, autocompensation_on, dc_value, coupling, voltage_range_index,
                       compliance_range_index, current_range_index, bandwidth_index, current_range_integration_time,
                       current_range_relaxation_time, active_current_range_indexes, active_bandwidth_indexes))

/// How often each filter was used: one tuple [path index, filter index, gain index, count]
/// per row.
struct FilterUsageMatrix {
    std::vector<std::vector<int>> matrix;
};
BOOST_DESCRIBE_STRUCT(FilterUsageMatrix, (), (matrix))

VELMAR_DECLARE_JSON(SwitchOnInfo);
VELMAR_DECLARE_JSON(AdcStateInfo);
VELMAR_DECLARE_JSON(PotentiostatState);
VELMAR_DECLARE_JSON(FilterUsageMatrix);

}  // namespace velmar
