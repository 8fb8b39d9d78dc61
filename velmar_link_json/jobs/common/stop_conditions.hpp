#pragma once

// Stop conditions travel with a DC measurement job; the device evaluates them and ends the job
// when one is met. The client builds, serialises, stores and rebuilds them.

#include "json_common/job_parameters/stop_condition_parameters.hpp"

#include <boost/json/object.hpp>

#include <memory>
#include <string_view>
#include <vector>

namespace velmar {

class AbstractStopCondition {
public:
    virtual ~AbstractStopCondition() = default;
    /// The "type" of the condition's JSON element.
    virtual std::string_view getTypeName() const = 0;
    /// The "parameters" of the condition's JSON element.
    virtual boost::json::object getParameterObject() const = 0;
    /// {"type": ..., "parameters": {...}}.
    boost::json::object toJson() const;
};

/// The type names of the six kinds.
struct StopConditionTypes {
    static constexpr char in_range[] = "in_range";
    static constexpr char integrating[] = "integrating";
    static constexpr char max[] = "max";
    static constexpr char min[] = "min";
    static constexpr char min_max[] = "min_max";
    static constexpr char stability_tolerance[] = "stability_tolerance";
};

/// One kind of stop condition: its parameter record and its type name.
template <class ParameterStruct, const char* TypeName>
class StopCondition : public AbstractStopCondition {
public:
    using Parameters = ParameterStruct;
    static constexpr std::string_view TYPE_NAME{TypeName};

    explicit StopCondition(ParameterStruct parameters = {}) : parameters_(std::move(parameters)) {}
    std::string_view getTypeName() const override { return TypeName; }
    boost::json::object getParameterObject() const override;
    const ParameterStruct& getParameters() const { return parameters_; }

private:
    ParameterStruct parameters_;
};

using MinLimitStopCondition = StopCondition<MinLimitStopConditionParameters, StopConditionTypes::min>;
using MaxLimitStopCondition = StopCondition<MaxLimitStopConditionParameters, StopConditionTypes::max>;
using MinMaxLimitStopCondition = StopCondition<MinMaxLimitStopConditionParameters, StopConditionTypes::min_max>;
using IntegratingLimitStopCondition =
    StopCondition<IntegratingLimitStopConditionParameters, StopConditionTypes::integrating>;
using StabilityToleranceLimitStopCondition =
    StopCondition<StabilityToleranceLimitStopConditionParameters, StopConditionTypes::stability_tolerance>;
using InRangeStopCondition = StopCondition<InRangeStopConditionParameters, StopConditionTypes::in_range>;

extern template class StopCondition<MinLimitStopConditionParameters, StopConditionTypes::min>;
extern template class StopCondition<MaxLimitStopConditionParameters, StopConditionTypes::max>;
extern template class StopCondition<MinMaxLimitStopConditionParameters, StopConditionTypes::min_max>;
extern template class StopCondition<IntegratingLimitStopConditionParameters, StopConditionTypes::integrating>;
extern template class StopCondition<StabilityToleranceLimitStopConditionParameters,
                                    StopConditionTypes::stability_tolerance>;
extern template class StopCondition<InRangeStopConditionParameters, StopConditionTypes::in_range>;

/// The conditions of a DC job, in the order in which they are sent.
using StopConditionList = std::vector<std::shared_ptr<AbstractStopCondition>>;

}  // namespace velmar
