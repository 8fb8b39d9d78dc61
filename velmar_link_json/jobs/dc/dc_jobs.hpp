#pragma once

// The DC job kinds with their complete definition. The template is instantiated once, in
// dc_jobs.cpp; a new DC kind adds one line there and one here.

#include "velmar_link_json/jobs/dc/dc_dataset.hpp"
#include "velmar_link_json/jobs/dc/dc_measurement_job.hpp"
#include "velmar_link_json/jobs/measurement_jobs.hpp"

#include <memory>

namespace velmar {

extern template class DcMeasurementJob<CvParameters, JobNames::CV_JOB_NAME>;
extern template class DcMeasurementJob<AcCvParameters, JobNames::AC_CV_JOB_NAME>;
extern template class DcMeasurementJob<FastCyclingParameters, JobNames::FAST_CYCLING_JOB_NAME>;
extern template class DcMeasurementJob<RampParameters, JobNames::RAMP_JOB_NAME>;
extern template class DcMeasurementJob<SteadyStairsParameters, JobNames::STEADYSTAIRS_JOB_NAME>;
extern template class DcMeasurementJob<PogaParameters, JobNames::POGA_JOB_NAME>;
extern template class DcMeasurementJob<OcvParameters, JobNames::OCV_JOB_NAME>;
extern template class DcMeasurementJob<NpvParameters, JobNames::NPV_JOB_NAME>;
extern template class DcMeasurementJob<DpvParameters, JobNames::DPV_JOB_NAME>;
extern template class DcMeasurementJob<SwvParameters, JobNames::SWV_JOB_NAME>;
extern template class DcMeasurementJob<WaveParameters, JobNames::WAVE_JOB_NAME>;
extern template class DcMeasurementJob<WaveFileParameters, JobNames::WAVE_FILE_JOB_NAME>;

}  // namespace velmar

namespace velmar {

/// The DC job that produced `dataset`, rebuilt from its job information (kind, parameters,
/// metadata, stop conditions); null when the kind is not a DC kind or the parameters are
/// missing.
std::shared_ptr<AbstractMeasurementJob> recreateOriginalDcJob(const DcDataset& dataset);

}  // namespace velmar
