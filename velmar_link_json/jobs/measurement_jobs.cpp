#include "velmar_link_json/jobs/measurement_jobs.hpp"

#include "velmar_link_json/jobs/measurement_job_template_impl.hpp"
#include "velmar_link_json/jobs/recreate_job.hpp"

namespace velmar {

template class MeasurementJobTemplate<CvParameters, JobNames::CV_JOB_NAME>;
template class MeasurementJobTemplate<AcCvParameters, JobNames::AC_CV_JOB_NAME>;
template class MeasurementJobTemplate<FastCyclingParameters, JobNames::FAST_CYCLING_JOB_NAME>;
template class MeasurementJobTemplate<RampParameters, JobNames::RAMP_JOB_NAME>;
template class MeasurementJobTemplate<SteadyStairsParameters, JobNames::STEADYSTAIRS_JOB_NAME>;
template class MeasurementJobTemplate<PogaParameters, JobNames::POGA_JOB_NAME>;
template class MeasurementJobTemplate<OcvParameters, JobNames::OCV_JOB_NAME>;
template class MeasurementJobTemplate<NpvParameters, JobNames::NPV_JOB_NAME>;
template class MeasurementJobTemplate<DpvParameters, JobNames::DPV_JOB_NAME>;
template class MeasurementJobTemplate<SwvParameters, JobNames::SWV_JOB_NAME>;
template class MeasurementJobTemplate<WaveParameters, JobNames::WAVE_JOB_NAME>;
template class MeasurementJobTemplate<WaveFileParameters, JobNames::WAVE_FILE_JOB_NAME>;

template class MeasurementJobTemplate<EisParametersGenerate, JobNames::EIS_GENERATE_JOB_NAME>;
template class MeasurementJobTemplate<EisParametersFrequencyTable, JobNames::EIS_TABLE_JOB_NAME>;
template class MeasurementJobTemplate<EisMultisineParametersGenerate, JobNames::EIS_MULTISINE_GENERATE_JOB_NAME>;
template class MeasurementJobTemplate<EisMultiSineTable, JobNames::EIS_MULTISINE_TABLE_JOB_NAME>;
template class MeasurementJobTemplate<GeisVaParametersGenerate, JobNames::GEIS_VA_GENERATE_JOB_NAME>;
template class MeasurementJobTemplate<GeisVaParametersFrequencyTable, JobNames::GEIS_VA_TABLE_JOB_NAME>;
template class AcMeasurementJob<EisParametersGenerate, JobNames::EIS_GENERATE_JOB_NAME>;
template class AcMeasurementJob<EisParametersFrequencyTable, JobNames::EIS_TABLE_JOB_NAME>;
template class AcMeasurementJob<EisMultisineParametersGenerate, JobNames::EIS_MULTISINE_GENERATE_JOB_NAME>;
template class AcMeasurementJob<EisMultiSineTable, JobNames::EIS_MULTISINE_TABLE_JOB_NAME>;
template class AcMeasurementJob<GeisVaParametersGenerate, JobNames::GEIS_VA_GENERATE_JOB_NAME>;
template class AcMeasurementJob<GeisVaParametersFrequencyTable, JobNames::GEIS_VA_TABLE_JOB_NAME>;

}  // namespace velmar

namespace velmar {

std::shared_ptr<AbstractMeasurementJob> recreateOriginalAcJob(const JobInfo& info) {
    return detail::recreateAny<EisGenerateJob, EisFrequencyTableJob, EisMultisineGenerateJob, EisMultisineTableJob,
                               GeisVaGenerateJob, GeisVaFrequencyTableJob>(info);
}

}  // namespace velmar
