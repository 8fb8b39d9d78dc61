#include "json_common/job_parameters/drift_correction.hpp"

#include <boost/json.hpp>

namespace velmar {

std::string_view driftCorrectionName(DriftCorrection value) {
    switch (value) {
        case DriftCorrection::DC_ONLY: return "DC_ONLY";
        case DriftCorrection::OFF: return "OFF";
        default: return "FULL";
    }
}

std::optional<DriftCorrection> driftCorrectionFromName(std::string_view name) {
    if (name == "FULL") return DriftCorrection::FULL;
    if (name == "DC_ONLY") return DriftCorrection::DC_ONLY;
    if (name == "OFF") return DriftCorrection::OFF;
    return std::nullopt;
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
