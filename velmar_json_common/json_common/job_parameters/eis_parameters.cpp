#include "json_common/job_parameters/eis_parameters.hpp"

#include "json_common/detail/described_json.hpp"

namespace velmar {

VELMAR_DEFINE_DESCRIBED_JSON(EisParametersGenerate)
VELMAR_DEFINE_DESCRIBED_JSON(EisParametersFrequencyTable)
VELMAR_DEFINE_DESCRIBED_JSON(EisMultisineParametersGenerate)
VELMAR_DEFINE_DESCRIBED_JSON(EisMultiSineTable)
VELMAR_DEFINE_DESCRIBED_JSON(GeisVaParametersGenerate)
VELMAR_DEFINE_DESCRIBED_JSON(GeisVaParametersFrequencyTable)

}  // namespace velmar
