#pragma once

#include "velmar_link_json/jobs/measurement_job_template.hpp"

namespace velmar {

/// Impedance measurements (and the calibration jobs that share their template). Impedance
/// jobs take no stop conditions.
template <class ParameterStruct, const char* JobName>
class AcMeasurementJob : public MeasurementJobTemplate<ParameterStruct, JobName> {
public:
    explicit AcMeasurementJob(ParameterStruct parameters = {}, std::map<std::string, std::string> metaData = {},
                              JobOptions options = {})
        : MeasurementJobTemplate<ParameterStruct, JobName>(std::move(parameters), std::move(metaData), {}, options) {}

    /// 3: an impedance measurement.
    int getType() const override { return 3; }
};

}  // namespace velmar
