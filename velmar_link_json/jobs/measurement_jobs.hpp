#pragma once

// The measurement job kinds: DC aliases over DcMeasurementJob (defined in jobs/dc/) and the
// impedance jobs. A new kind adds a record, a name, a registration and one line here and in
// measurement_jobs.cpp.

#include "json_common/job_parameters/dc_parameters.hpp"
#include "json_common/job_parameters/eis_parameters.hpp"
#include "velmar_link_json/jobs/ac/ac_measurement_job.hpp"
#include "velmar_link_json/jobs/dc_measurement_job_fwd.hpp"
#include "velmar_link_json/jobs/job_names.hpp"

#include <memory>

namespace velmar {

using CvJob = DcMeasurementJob<CvParameters, JobNames::CV_JOB_NAME>;
using AcCvJob = DcMeasurementJob<AcCvParameters, JobNames::AC_CV_JOB_NAME>;
using FastCyclingJob = DcMeasurementJob<FastCyclingParameters, JobNames::FAST_CYCLING_JOB_NAME>;
using RampJob = DcMeasurementJob<RampParameters, JobNames::RAMP_JOB_NAME>;
using SteadyStairsJob = DcMeasurementJob<SteadyStairsParameters, JobNames::STEADYSTAIRS_JOB_NAME>;
using PogaJob = DcMeasurementJob<PogaParameters, JobNames::POGA_JOB_NAME>;
using OcvJob = DcMeasurementJob<OcvParameters, JobNames::OCV_JOB_NAME>;
using NpvJob = DcMeasurementJob<NpvParameters, JobNames::NPV_JOB_NAME>;
using DpvJob = DcMeasurementJob<DpvParameters, JobNames::DPV_JOB_NAME>;
using SwvJob = DcMeasurementJob<SwvParameters, JobNames::SWV_JOB_NAME>;
using WaveJob = DcMeasurementJob<WaveParameters, JobNames::WAVE_JOB_NAME>;
using WaveFileJob = DcMeasurementJob<WaveFileParameters, JobNames::WAVE_FILE_JOB_NAME>;

using EisGenerateJob = AcMeasurementJob<EisParametersGenerate, JobNames::EIS_GENERATE_JOB_NAME>;
using EisFrequencyTableJob = AcMeasurementJob<EisParametersFrequencyTable, JobNames::EIS_TABLE_JOB_NAME>;
using EisMultisineGenerateJob =
    AcMeasurementJob<EisMultisineParametersGenerate, JobNames::EIS_MULTISINE_GENERATE_JOB_NAME>;
using EisMultisineTableJob = AcMeasurementJob<EisMultiSineTable, JobNames::EIS_MULTISINE_TABLE_JOB_NAME>;
using GeisVaGenerateJob = AcMeasurementJob<GeisVaParametersGenerate, JobNames::GEIS_VA_GENERATE_JOB_NAME>;
using GeisVaFrequencyTableJob =
    AcMeasurementJob<GeisVaParametersFrequencyTable, JobNames::GEIS_VA_TABLE_JOB_NAME>;

// The bases of the DC kinds are instantiated here, so that jobs/dc/ only adds its own layer.
extern template class MeasurementJobTemplate<CvParameters, JobNames::CV_JOB_NAME>;
extern template class MeasurementJobTemplate<AcCvParameters, JobNames::AC_CV_JOB_NAME>;
extern template class MeasurementJobTemplate<FastCyclingParameters, JobNames::FAST_CYCLING_JOB_NAME>;
extern template class MeasurementJobTemplate<RampParameters, JobNames::RAMP_JOB_NAME>;
extern template class MeasurementJobTemplate<SteadyStairsParameters, JobNames::STEADYSTAIRS_JOB_NAME>;
extern template class MeasurementJobTemplate<PogaParameters, JobNames::POGA_JOB_NAME>;
extern template class MeasurementJobTemplate<OcvParameters, JobNames::OCV_JOB_NAME>;
extern template class MeasurementJobTemplate<NpvParameters, JobNames::NPV_JOB_NAME>;
extern template class MeasurementJobTemplate<DpvParameters, JobNames::DPV_JOB_NAME>;
extern template class MeasurementJobTemplate<SwvParameters, JobNames::SWV_JOB_NAME>;
extern template class MeasurementJobTemplate<WaveParameters, JobNames::WAVE_JOB_NAME>;
extern template class MeasurementJobTemplate<WaveFileParameters, JobNames::WAVE_FILE_JOB_NAME>;

extern template class MeasurementJobTemplate<EisParametersGenerate, JobNames::EIS_GENERATE_JOB_NAME>;
extern template class MeasurementJobTemplate<EisParametersFrequencyTable, JobNames::EIS_TABLE_JOB_NAME>;
extern template class MeasurementJobTemplate<EisMultisineParametersGenerate,
                                             JobNames::EIS_MULTISINE_GENERATE_JOB_NAME>;
extern template class MeasurementJobTemplate<EisMultiSineTable, JobNames::EIS_MULTISINE_TABLE_JOB_NAME>;
extern template class MeasurementJobTemplate<GeisVaParametersGenerate, JobNames::GEIS_VA_GENERATE_JOB_NAME>;
extern template class MeasurementJobTemplate<GeisVaParametersFrequencyTable, JobNames::GEIS_VA_TABLE_JOB_NAME>;
extern template class AcMeasurementJob<EisParametersGenerate, JobNames::EIS_GENERATE_JOB_NAME>;
extern template class AcMeasurementJob<EisParametersFrequencyTable, JobNames::EIS_TABLE_JOB_NAME>;
extern template class AcMeasurementJob<EisMultisineParametersGenerate, JobNames::EIS_MULTISINE_GENERATE_JOB_NAME>;
extern template class AcMeasurementJob<EisMultiSineTable, JobNames::EIS_MULTISINE_TABLE_JOB_NAME>;
extern template class AcMeasurementJob<GeisVaParametersGenerate, JobNames::GEIS_VA_GENERATE_JOB_NAME>;
extern template class AcMeasurementJob<GeisVaParametersFrequencyTable, JobNames::GEIS_VA_TABLE_JOB_NAME>;

}  // namespace velmar

namespace velmar {

struct JobInfo;

/// The impedance job described by `info` (kind, parameters, metadata), e.g. the job info of
/// an impedance result; null when the kind is not an impedance kind or the parameters are
/// missing.
std::shared_ptr<AbstractMeasurementJob> recreateOriginalAcJob(const JobInfo& info);

}  // namespace velmar
