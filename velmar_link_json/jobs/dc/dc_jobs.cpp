#include "velmar_link_json/jobs/dc/dc_jobs.hpp"

#include "velmar_link_json/jobs/recreate_job.hpp"

namespace velmar {

template class DcMeasurementJob<CvParameters, JobNames::CV_JOB_NAME>;
template class DcMeasurementJob<AcCvParameters, JobNames::AC_CV_JOB_NAME>;
template class DcMeasurementJob<FastCyclingParameters, JobNames::FAST_CYCLING_JOB_NAME>;
template class DcMeasurementJob<RampParameters, JobNames::RAMP_JOB_NAME>;
template class DcMeasurementJob<SteadyStairsParameters, JobNames::STEADYSTAIRS_JOB_NAME>;
template class DcMeasurementJob<PogaParameters, JobNames::POGA_JOB_NAME>;
template class DcMeasurementJob<OcvParameters, JobNames::OCV_JOB_NAME>;
template class DcMeasurementJob<NpvParameters, JobNames::NPV_JOB_NAME>;
template class DcMeasurementJob<DpvParameters, JobNames::DPV_JOB_NAME>;
template class DcMeasurementJob<SwvParameters, JobNames::SWV_JOB_NAME>;
template class DcMeasurementJob<WaveParameters, JobNames::WAVE_JOB_NAME>;
template class DcMeasurementJob<WaveFileParameters, JobNames::WAVE_FILE_JOB_NAME>;

}  // namespace velmar

namespace velmar {

std::shared_ptr<AbstractMeasurementJob> recreateOriginalDcJob(const DcDataset& dataset) {
    return detail::recreateAny<CvJob, AcCvJob, FastCyclingJob, RampJob, SteadyStairsJob, PogaJob, OcvJob, NpvJob, DpvJob,
                       SwvJob, WaveJob, WaveFileJob>(dataset.getJobInfo());
}

}  // namespace velmar
