#include "json_common/job_parameters/drift_correction.hpp"

#include "json_common/enum_names.hpp"

#include <boost/json.hpp>

namespace velmar {

std::string_view driftCorrectionName(DriftCorrection value) {
    const auto name = enumName(value);
    return name.empty() ? enumName(DriftCorrection::FULL) : name;
}

std::optional<DriftCorrection> driftCorrectionFromName(std::string_view name) {
    return enumFromName<DriftCorrection>(name);
}

std::optional<DriftCorrection> readOptionalDriftCorrection(const boost::json::object& object) {
    const auto* value = object.if_contains("drift_correction");
    if (value == nullptr || !value->is_string()) return std::nullopt;
    return driftCorrectionFromName(value->get_string());
}

void writeOptionalDriftCorrection(boost::json::object& object, const std::optional<DriftCorrection>& value) {
    if (value) object["drift_correction"] = driftCorrectionName(*value);
}

}  // namespace velmar
