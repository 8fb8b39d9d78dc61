#include "bindings.hpp"

#include "json_common/protocol/live_data_eis.hpp"
#include "velmar_link_json/events/velmar_link_event_handler.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"

namespace velmar::python {

namespace {

using Handler = VelmarLinkEventHandler;
using Rows = std::vector<std::vector<double>>;

constexpr const char* kFactoryNote =
    "\n\nThe callback runs on the connection's thread with the interpreter lock held; an exception it raises is "
    "reported as unraisable. Pass the returned handler to :meth:`velmar_link.VelmarLink.set_event_handler`.";

std::string factoryDoc(const char* summary) { return std::string(summary) + kFactoryNote; }

}  // namespace

void bindEvents(py::module_& m) {
    // The live-data classes that the callbacks receive are bound before (bindDatasets,
    // bindEisLiveData).
    py::class_<Handler, std::shared_ptr<Handler>>(
        m, "VelmarLinkEventHandler",
        "Delivers events of one type to a Python callable. Made only by the static make_* methods.")
        .def("get_type", &Handler::getType, "Get the event for which this handler was created.")
        .def_static(
            "make_live_data_header_event_handler",
            [](const py::typing::Callable<void(const LiveDataHeader&, const JobInfo&)>& callback) {
                return Handler::makeLiveDataHeaderEventHandler(
                    wrapPyCallback<const LiveDataHeader&, const JobInfo&>(std::move(callback)));
            },
            factoryDoc("Handler of LIVE_DATA_HEADER events; the callback receives a "
                       ":class:`velmar_link.LiveDataHeader` and a :class:`velmar_link.JobInfo`.")
                .c_str(),
            "callback"_a)
        .def_static(
            "make_live_data_header_eis_event_handler",
            [](const py::typing::Callable<void(const LiveDataHeaderEis&, const JobInfo&)>& callback) {
                return Handler::makeLiveDataHeaderEisEventHandler(
                    wrapPyCallback<const LiveDataHeaderEis&, const JobInfo&>(std::move(callback)));
            },
            factoryDoc("Handler of LIVE_DATA_HEADER_EIS events; the callback receives a "
                       ":class:`velmar_link.LiveDataHeaderEis` and a :class:`velmar_link.JobInfo`.")
                .c_str(),
            "callback"_a)
        .def_static(
            "make_live_data_rows_event_handler",
            [](const py::typing::Callable<void(const Rows&)>& callback) {
                return Handler::makeLiveDataRowsEventHandler(wrapPyCallback<const Rows&>(std::move(callback)));
            },
            factoryDoc("Handler of LIVE_DATA_ROWS events; the callback receives the rows as list[list[float]], "
                       "described by the last header.")
                .c_str(),
            "callback"_a)
        .def_static(
            "make_live_data_row_eis_event_handler",
            [](const py::typing::Callable<void(const LiveDataRowEis&)>& callback) {
                return Handler::makeLiveDataRowEisEventHandler(wrapPyCallback<const LiveDataRowEis&>(std::move(callback)));
            },
            factoryDoc("Handler of LIVE_DATA_ROW_EIS events; the callback receives a "
                       ":class:`velmar_link.LiveDataRowEis`.")
                .c_str(),
            "callback"_a)
        .def_static(
            "make_live_data_wave_event_handler",
            [](const py::typing::Callable<void(const LiveDataWavesEis&)>& callback) {
                return Handler::makeLiveDataWaveEventHandler(wrapPyCallback<const LiveDataWavesEis&>(std::move(callback)));
            },
            factoryDoc("Handler of LIVE_DATA_WAVES events; the callback receives a "
                       ":class:`velmar_link.LiveDataWavesEis`.")
                .c_str(),
            "callback"_a)
        .def_static(
            "make_live_data_finished_event_handler",
            [](const py::typing::Callable<void(const JobInfo&)>& callback) {
                return Handler::makeLiveDataFinishedEventHandler(wrapPyCallback<const JobInfo&>(std::move(callback)));
            },
            factoryDoc("Handler of LIVE_DATA_FINISHED events; the callback receives a :class:`velmar_link.JobInfo`.")
                .c_str(),
            "callback"_a)
        .def_static(
            "make_job_done_event_handler",
            [](const py::typing::Callable<void(const JobInfo&)>& callback) {
                return Handler::makeJobDoneEventHandler(wrapPyCallback<const JobInfo&>(std::move(callback)));
            },
            factoryDoc("Handler of JOB_DONE events, sent once the job has left the queue, successful or not, also "
                       "for jobs without live data; the callback receives a :class:`velmar_link.JobInfo`.")
                .c_str(),
            "callback"_a)
        .def_static(
            "make_job_status_update_event_handler",
            [](const py::typing::Callable<void(JobStatusEnum, const JobInfo&)>& callback) {
                return Handler::makeJobStatusUpdateEventHandler(
                    wrapPyCallback<JobStatusEnum, const JobInfo&>(std::move(callback)));
            },
            factoryDoc("Handler of JOB_STATUS_UPDATE events; the callback receives the new "
                       ":class:`velmar_link.JobStatusEnum` and a :class:`velmar_link.JobInfo`.")
                .c_str(),
            "callback"_a)
        .def_static(
            "make_job_log_message_event_handler",
            [](const py::typing::Callable<void(const std::string&, LogSeverityEnum, const std::string&, const std::string&)>& callback) {
                return Handler::makeJobLogMessageEventHandler(
                    wrapPyCallback<const std::string&, LogSeverityEnum, const std::string&, const std::string&>(
                        std::move(callback)));
            },
            factoryDoc("Handler of MESSAGE_FROM_JOB events; the callback receives the job id (str), a "
                       ":class:`velmar_link.LogSeverityEnum`, the date and time (str) and the message (str).")
                .c_str(),
            "callback"_a)
        .def_static(
            "make_log_message_event_handler",
            [](const py::typing::Callable<void(LogSeverityEnum, const std::string&, const std::string&)>& callback) {
                return Handler::makeLogMessageEventHandler(
                    wrapPyCallback<LogSeverityEnum, const std::string&, const std::string&>(std::move(callback)));
            },
            factoryDoc("Handler of MESSAGE_FROM_SERVER events; the callback receives a "
                       ":class:`velmar_link.LogSeverityEnum`, the date and time (str) and the message (str).")
                .c_str(),
            "callback"_a);
}

}  // namespace velmar::python
