#include "velmar_link_json/jobs/common/stop_conditions.hpp"

#include "velmar_link_json/jobs/common/stop_condition_factory.hpp"

#include <boost/json.hpp>

namespace velmar {

boost::json::object AbstractStopCondition::toJson() const {
    boost::json::object element;
    element["type"] = getTypeName();
    element["parameters"] = getParameterObject();
    return element;
}

template <class ParameterStruct, const char* TypeName>
boost::json::object StopCondition<ParameterStruct, TypeName>::getParameterObject() const {
    return boost::json::value_from(parameters_).as_object();
}

template class StopCondition<MinLimitStopConditionParameters, StopConditionTypes::min>;
template class StopCondition<MaxLimitStopConditionParameters, StopConditionTypes::max>;
template class StopCondition<MinMaxLimitStopConditionParameters, StopConditionTypes::min_max>;
template class StopCondition<IntegratingLimitStopConditionParameters, StopConditionTypes::integrating>;
template class StopCondition<StabilityToleranceLimitStopConditionParameters, StopConditionTypes::stability_tolerance>;
template class StopCondition<InRangeStopConditionParameters, StopConditionTypes::in_range>;

namespace {
template <class Condition>
void registerBuilderInFactory(StopConditionFactory& factory) {
    factory.registerBuilder(std::string(Condition::TYPE_NAME), [](const boost::json::value& parameters) {
        return std::make_shared<Condition>(boost::json::value_to<typename Condition::Parameters>(parameters));
    });
}
}  // namespace

void registerStopConditionBuilders(StopConditionFactory& factory) {
    registerBuilderInFactory<MinLimitStopCondition>(factory);
    registerBuilderInFactory<MaxLimitStopCondition>(factory);
    registerBuilderInFactory<MinMaxLimitStopCondition>(factory);
    registerBuilderInFactory<IntegratingLimitStopCondition>(factory);
    registerBuilderInFactory<StabilityToleranceLimitStopCondition>(factory);
    registerBuilderInFactory<InRangeStopCondition>(factory);
}

}  // namespace velmar
