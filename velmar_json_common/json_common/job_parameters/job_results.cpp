#include "json_common/job_parameters/job_results.hpp"

#include "json_common/detail/described_json.hpp"

namespace velmar {

VELMAR_DEFINE_DESCRIBED_JSON(SwitchOnInfo)
VELMAR_DEFINE_DESCRIBED_JSON(AdcStateInfo)
VELMAR_DEFINE_DESCRIBED_JSON(PotentiostatState)
VELMAR_DEFINE_DESCRIBED_JSON(FilterUsageMatrix)

}  // namespace velmar
