#include "velmar_link_json/jobs/job_parameter_factory.hpp"

#include <boost/json/value.hpp>

namespace velmar {

JobParameterFactory& JobParameterFactory::getInstance() {
    static JobParameterFactory& instance = [] () -> JobParameterFactory& {
        static JobParameterFactory factory;
        registerJobParameterBuilders(factory);
        return factory;
    }();
    return instance;
}

void JobParameterFactory::registerBuilder(std::string name, Builder builder) {
    builders_[std::move(name)] = std::move(builder);
}

std::shared_ptr<MeasurementParameters> JobParameterFactory::build(std::string_view name,
                                                                  const boost::json::value& value) const {
    const auto found = builders_.find(name);
    if (found == builders_.end()) return nullptr;
    return found->second(value);
}

bool JobParameterFactory::contains(std::string_view name) const { return builders_.find(name) != builders_.end(); }

}  // namespace velmar
