#pragma once

#include "json_common/job_parameters/measurement_parameters.hpp"

#include <boost/json/fwd.hpp>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace velmar {

/// Rebuilds parameter objects by job name from the device's job information. Process-wide,
/// filled on first use.
class JobParameterFactory {
public:
    using Builder = std::function<std::shared_ptr<MeasurementParameters>(const boost::json::value&)>;

    static JobParameterFactory& getInstance();

    void registerBuilder(std::string name, Builder builder);
    /// The parameter object, or null when no builder is registered for the name. A value that
    /// does not match the record throws the JSON library's error.
    std::shared_ptr<MeasurementParameters> build(std::string_view name, const boost::json::value& value) const;
    bool contains(std::string_view name) const;

private:
    JobParameterFactory() = default;
    std::map<std::string, Builder, std::less<>> builders_;
};

/// Registers the builder of every job kind that has one; defined beside the job classes.
void registerJobParameterBuilders(JobParameterFactory& factory);

}  // namespace velmar
