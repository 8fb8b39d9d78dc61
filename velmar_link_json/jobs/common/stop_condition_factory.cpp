#include "velmar_link_json/jobs/common/stop_condition_factory.hpp"

#include <boost/json/value.hpp>

namespace velmar {

StopConditionFactory& StopConditionFactory::getInstance() {
    static StopConditionFactory& instance = []() -> StopConditionFactory& {
        static StopConditionFactory factory;
        registerStopConditionBuilders(factory);
        return factory;
    }();
    return instance;
}

void StopConditionFactory::registerBuilder(std::string name, Builder builder) {
    builders_[std::move(name)] = std::move(builder);
}

std::shared_ptr<AbstractStopCondition> StopConditionFactory::build(std::string_view name,
                                                                   const boost::json::value& parameters) const {
    const auto found = builders_.find(name);
    if (found == builders_.end()) return nullptr;
    return found->second(parameters);
}

}  // namespace velmar
