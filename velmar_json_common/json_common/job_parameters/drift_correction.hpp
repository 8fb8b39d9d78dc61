#pragma once

#include "json_common/jobs/job_status.hpp"

#include <boost/json/fwd.hpp>

#include <optional>
#include <string_view>

namespace velmar {

/// "DC_ONLY" for DC_ONLY, "OFF" for OFF, "FULL" for every other value.
std::string_view driftCorrectionName(DriftCorrection value);

/// Exact, case-sensitive match of "FULL", "DC_ONLY" or "OFF"; anything else is empty.
std::optional<DriftCorrection> driftCorrectionFromName(std::string_view name);

/// Reads "drift_correction"; an absent key, a non-string or an unknown text give an empty
/// optional, never an error.
std::optional<DriftCorrection> readOptionalDriftCorrection(const boost::json::object& object);

/// Does nothing for an empty optional; otherwise inserts or replaces "drift_correction".
void writeOptionalDriftCorrection(boost::json::object& object, const std::optional<DriftCorrection>& value);

}  // namespace velmar
