#pragma once

#include <boost/json/fwd.hpp>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace velmar {

class AbstractStopCondition;

/// Rebuilds stop conditions by type name. Process-wide, filled on first use.
class StopConditionFactory {
public:
    using Builder = std::function<std::shared_ptr<AbstractStopCondition>(const boost::json::value&)>;

    static StopConditionFactory& getInstance();

    void registerBuilder(std::string name, Builder builder);
    /// The condition, or null for an unknown type name. Parameters that lack a key of
    /// the kind throw the JSON library's error.
    std::shared_ptr<AbstractStopCondition> build(std::string_view name, const boost::json::value& parameters) const;

private:
    StopConditionFactory() = default;
    std::map<std::string, Builder, std::less<>> builders_;
};

/// Registers the six stop-condition kinds; defined beside the stop-condition classes.
void registerStopConditionBuilders(StopConditionFactory& factory);

}  // namespace velmar
