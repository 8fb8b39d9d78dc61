#include "json_common/job_parameters/potentiostat_coupling.hpp"

#include <boost/json.hpp>

#include <array>
#include <stdexcept>
#include <string>

namespace velmar {

namespace {
constexpr std::array<std::string_view, 3> kCouplingNames{"POTENTIOSTATIC", "GALVANOSTATIC", "FRA_PROBE"};

// Indexed by the value of CalibrationTypesEnum.
constexpr std::array<std::string_view, 22> kCalibrationTypeNames{
    "dump",         "load",         "dc",          "main_shunts_dc",  "external_potentiostat_dc", "filter",
    "gain",         "mux_filter",   "mux_gain",    "mux4_filter",     "mux4_gain",                "mux4_dc_gain",
    "voltage_range", "shunt_open",  "shunt_load",  "shunt_short",     "shunt_reference",          "main_voltage_range",
    "main_shunt_open", "main_shunt_load", "main_shunt_short", "reference_adc"};
}  // namespace

std::string_view potentiostatCouplingName(PotentiostatCoupling coupling) {
    const auto index = static_cast<std::size_t>(coupling);
    return index < kCouplingNames.size() ? kCouplingNames[index] : kCouplingNames[0];
}

std::optional<PotentiostatCoupling> potentiostatCouplingFromName(std::string_view name) {
    for (std::size_t i = 0; i < kCouplingNames.size(); ++i) {
        if (kCouplingNames[i] == name) return static_cast<PotentiostatCoupling>(i);
    }
    return std::nullopt;
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
    const auto index = static_cast<std::size_t>(type);
    return index < kCalibrationTypeNames.size() ? kCalibrationTypeNames[index] : std::string_view("dc");
}

}  // namespace velmar
