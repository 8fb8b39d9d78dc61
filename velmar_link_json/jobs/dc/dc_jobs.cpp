#include "velmar_link_json/jobs/dc/dc_jobs.hpp"

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

namespace {

template <class Job>
std::shared_ptr<AbstractMeasurementJob> recreateAs(const JobInfo& info) {
    using P = typename Job::Parameters;
    using Stored = typename Job::template SerializableParameterStruct<P>;
    if (info.type != Job::NAME) return nullptr;
    const auto* stored = dynamic_cast<const Stored*>(info.parameters.get());
    if (stored == nullptr) return nullptr;
    return std::make_shared<Job>(stored->getParameters(), info.job_meta, info.stop_conditions);
}

template <class... Jobs>
std::shared_ptr<AbstractMeasurementJob> recreateAny(const JobInfo& info) {
    std::shared_ptr<AbstractMeasurementJob> job;
    ((job = job ? job : recreateAs<Jobs>(info)), ...);
    return job;
}

}  // namespace

std::shared_ptr<AbstractMeasurementJob> recreateOriginalDcJob(const DcDataset& dataset) {
    return recreateAny<CvJob, AcCvJob, FastCyclingJob, RampJob, SteadyStairsJob, PogaJob, OcvJob, NpvJob, DpvJob,
                       SwvJob, WaveJob, WaveFileJob>(dataset.getJobInfo());
}

}  // namespace velmar
