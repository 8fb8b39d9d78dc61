#include "velmar_link_json/jobs/common/stop_condition_factory.hpp"
#include "velmar_link_json/jobs/job_parameter_factory.hpp"

namespace velmar {

void registerJobParameterBuilders(JobParameterFactory&) {}

void registerStopConditionBuilders(StopConditionFactory&) {}

}  // namespace velmar
