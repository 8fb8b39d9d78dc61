#include "bindings.hpp"

#include "json_common/job_parameters/job_results.hpp"
#include "json_common/logging/error_formatters.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"
#include "velmar_link_json/jobs/measurement_job.hpp"

namespace velmar::python {

namespace {

MeasurementJob& asMeasurementJob(AbstractMeasurementJob& job) {
    auto* measurement = dynamic_cast<MeasurementJob*>(&job);
    if (measurement == nullptr) throw py::type_error("the job does not support job options");
    return *measurement;
}

}  // namespace

void bindJobsCommon(py::module_& m) {
    py::class_<JobOptions>(m, "JobOptions", R"(Options which apply to the execution of a job, not to its measurement parameters.

Only options which are set are transmitted to the RQ5, an absent option means False.)")
        .def(py::init([](bool bypassQueue, bool discardResultData) { return JobOptions{bypassQueue, discardResultData}; }),
             R"(Create job options.

:param bypass_queue: the job is not appended to the job queue but executed right away
:param discard_result_data: the RQ5 does not store the result data of the job)",
             "bypass_queue"_a = false, "discard_result_data"_a = false)
        .def_readwrite("bypass_queue", &JobOptions::bypass_queue,
                       "If True the job is not appended to the job queue but executed right away.")
        .def_readwrite("discard_result_data", &JobOptions::discard_result_data,
                       "If True the RQ5 does not store the result data of the job.")
        .def("__eq__", [](const JobOptions& a, const JobOptions& b) { return a == b; }, "Compare both options.",
             "other"_a)
        .def("__repr__", [](const JobOptions& options) {
            return std::string("JobOptions(bypass_queue=") + (options.bypass_queue ? "True" : "False") +
                   ", discard_result_data=" + (options.discard_result_data ? "True" : "False") + ")";
        });

    py::class_<JobInfo>(m, "JobInfo", "Class which contains information about the job.")
        .def("get_job_id", [](const JobInfo& info) { return info.job_id; }, "The device's identifier of the job.")
        .def("get_status", [](const JobInfo& info) { return info.status; },
             "The status as :class:`velmar_link.JobStatusEnum`.")
        .def("get_status_string", [](const JobInfo& info) { return std::string(info.getStatusString()); },
             "The status as text, for example \"FINISHED\".")
        .def("get_status_detail", [](const JobInfo& info) { return info.status_detail; },
             "The status detail as :class:`velmar_link.JobStatusDetailEnum`.")
        .def("get_status_detail_string", [](const JobInfo& info) { return std::string(info.getStatusDetailString()); },
             "The status detail as text, for example \"RUN_TO_COMPLETION\".")
        .def("get_error", [](const JobInfo& info) { return info.error; },
             "The error of the job as :class:`velmar_link.ErrorObject` (falsy if there is none).")
        .def("get_error_message",
             [](const JobInfo& info) { return info.error ? info.error.getMessageFormatted() : std::string(); },
             "The formatted error message, or an empty string if there is no error.")
        .def("get_creation_date", [](const JobInfo& info) { return info.created; },
             "When the job was created, as the device wrote it.")
        .def("get_start_date", [](const JobInfo& info) { return info.started; },
             "When the job was started, as the device wrote it.")
        .def("get_end_date", [](const JobInfo& info) { return info.ended; },
             "When the job ended, as the device wrote it.")
        .def("get_user_metadata", [](const JobInfo& info) { return info.job_meta; },
             "The user metadata that travelled with the job, as a dict.")
        .def("get_job_options", [](const JobInfo& info) { return info.options; },
             "The :class:`velmar_link.JobOptions` of the job. Options which were not transmitted read as False.")
        .def("get_type", [](const JobInfo& info) { return info.type; }, "The job name, for example \"cv\".")
        .def("__repr__", [](const JobInfo& info) {
            return "JobInfo(job_id='" + info.job_id + "', type='" + info.type + "', status=" +
                   std::string(info.getStatusString()) + ")";
        });

    py::class_<SwitchOnInfo>(m, "SwitchOnInfo", "The values reported by the RQ5 after switching a potentiostat on.")
        .def_readonly("applied_bias", &SwitchOnInfo::applied_bias, "bias that was actually applied")
        .def_readonly("voltage", &SwitchOnInfo::voltage, "output voltage")
        .def_readonly("current", &SwitchOnInfo::current, "output current");

    py::class_<AbstractMeasurementJob, std::shared_ptr<AbstractMeasurementJob>>(
        m, "AbstractMeasurementJob", "Abstract base class from which all jobs are derived.",
        py::release_gil_before_calling_cpp_dtor())
        .def("was_successful", &AbstractMeasurementJob::wasSuccessful,
             "True if the last run of the job has finished successfully.")
        .def("get_last_job_error_message",
             [](const AbstractMeasurementJob& job) {
                 const auto& error = job.getLastJobInfo().error;
                 return error ? ErrorFormatters::defaultFormatter().getFormatted(error) : std::string();
             },
             "The formatted error of the last run, or an empty string if there is none.")
        .def("get_last_job_status", &AbstractMeasurementJob::getLastJobStatus,
             "The :class:`velmar_link.JobStatusEnum` of the last run.")
        .def("get_last_job_info", [](const AbstractMeasurementJob& job) { return job.getLastJobInfo(); },
             "The :class:`velmar_link.JobInfo` of the last run.")
        .def("get_job_options", &AbstractMeasurementJob::getJobOptions,
             "The :class:`velmar_link.JobOptions` of the job.")
        .def("set_job_options",
             [](AbstractMeasurementJob& job, const JobOptions& options) { asMeasurementJob(job).setJobOptions(options); },
             R"(Set the options of the job.

Must be called before the job is handed to :meth:`velmar_link.VelmarLink.do_job` or
:meth:`velmar_link.VelmarLink.check_job_parameters`, because the options are read when the job starts.

:param job_options: the :class:`velmar_link.JobOptions` to use)",
             "job_options"_a)
        .def("get_name", [](const AbstractMeasurementJob& job) { return std::string(job.getName()); },
             "The job name sent as \"type\", for example \"cv\".")
        .def("get_meta_data", [](const AbstractMeasurementJob& job) { return job.getMetaData(); },
             "The user metadata of the job as a dict.")
        .def("set_meta_data", &AbstractMeasurementJob::setMetaData,
             "Replace the user metadata of the job.\n\n:param meta_data: dict of str to str", "meta_data"_a);
}

}  // namespace velmar::python
