#include "json_common/job_parameters/potentiostat_coupling.hpp"

#include "json_common/enum_names.hpp"

#include <boost/json.hpp>

#include <map>
#include <stdexcept>
#include <string>

namespace velmar {

namespace {

/// The lower-case names of a described enumeration, built once from its description.
template <class Enum>
std::string_view lowerCaseName(Enum value, Enum fallback) {
    static const auto names = [] {
        std::map<Enum, std::string> table;
        boost::mp11::mp_for_each<boost::describe::describe_enumerators<Enum>>([&](auto descriptor) {
            std::string name(descriptor.name);
            for (auto& c : name) {
                if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
            }
            table.emplace(descriptor.value, std::move(name));
        });
        return table;
    }();
    const auto found = names.find(value);
    return found != names.end() ? found->second : names.at(fallback);
}

}  // namespace

std::string_view potentiostatCouplingName(PotentiostatCoupling coupling) {
    const auto name = enumName(coupling);
    return name.empty() ? enumName(PotentiostatCoupling::POTENTIOSTATIC) : name;
}

std::optional<PotentiostatCoupling> potentiostatCouplingFromName(std::string_view name) {
    return enumFromName<PotentiostatCoupling>(name);
}

void tag_invoke(const boost::json::value_from_tag&, boost::json::value& jv, PotentiostatCoupling coupling) {
    jv = potentiostatCouplingName(coupling);
}

PotentiostatCoupling tag_invoke(const boost::json::value_to_tag<PotentiostatCoupling>&, const boost::json::value& jv) {
    const auto name = std::string_view(jv.as_string());
    if (const auto coupling = potentiostatCouplingFromName(name)) return *coupling;
    throw std::invalid_argument("unknown potentiostat coupling '" + std::string(name) + "'");
}

std::string_view calibrationTypesEnumToString(CalibrationTypesEnum type) {
    return lowerCaseName(type, CalibrationTypesEnum::DC);
}

std::string_view calibrationDataTypeName(CalibrationDataTypeEnum type) {
    return lowerCaseName(type, CalibrationDataTypeEnum::UNDEFINED);
}

}  // namespace velmar
