#include "py_common.hpp"

#include "bind_jobs_common.hpp"
#include "bindings.hpp"
#include "velmar_link_json/jobs/measurement_jobs.hpp"

#include <string>

namespace velmar::python {

namespace {

constexpr const char* EIS_NOTE =
    "\n\n\"bias\" is the DC operating point; \"drift_correction\" (a :class:`velmar_link.DriftCorrection` or None "
    "for the device default) selects how much drift correction is applied.\n\nLive data: add callbacks with "
    ":meth:`add_header_callback`, :meth:`add_row_callback`, :meth:`add_waves_callback` and "
    ":meth:`add_finished_callback` before the job is run.";

constexpr const char* ADD_HEADER_DOC = R"(Add a callback for the live-data header of this job.

The callback receives a :class:`velmar_link.LiveDataHeaderEis` and the :class:`velmar_link.JobInfo`;
it runs on the link's I/O thread with the interpreter lock held. An exception it raises is
reported as unraisable.)";
constexpr const char* ADD_ROW_DOC = R"(Add a callback for each frequency point of this job.

The callback receives a :class:`velmar_link.LiveDataRowEis` that fits the last header. A row that
does not fit it fails the job instead (JSON_MALFORMED, "the AC data table does not match the
declared ...").)";
constexpr const char* ADD_WAVES_DOC = R"(Add a callback for the preview fragments of the waves being recorded.

The callback receives a :class:`velmar_link.LiveDataWavesEis`; the fragments are meant for
display and are not needed to build the result.)";

template <class Job>
void bindAcJob(py::module_& meas, const char* name, const char* parametersName, const char* summary) {
    auto cls = bindJob<Job, JobArguments::WITH_META_DATA>(meas, name, parametersName, std::string(summary) + EIS_NOTE);
    cls.def(
           "add_header_callback",
           [](Job& job, const py::typing::Callable<void(const LiveDataHeaderEis&, const JobInfo&)>& callback) {
               job.addLivedataEventHandler(pyLiveDataHandler<AcLiveDataHeaderMessage, AcLiveDataMessage>(
                   callback, [](const PyCallbackHolder& holder, const AcLiveDataHeaderMessage& header) {
                       holder.call(header.header, header.jobInfo);
                   }));
           },
           ADD_HEADER_DOC, "callback"_a)
        .def(
            "add_row_callback",
            [](Job& job, const py::typing::Callable<void(const LiveDataRowEis&)>& callback) {
                job.addLivedataEventHandler(pyLiveDataHandler<AcLiveDataRowMessage, AcLiveDataMessage>(
                    callback,
                    [](const PyCallbackHolder& holder, const AcLiveDataRowMessage& row) { holder.call(row.row); }));
            },
            ADD_ROW_DOC, "callback"_a)
        .def(
            "add_waves_callback",
            [](Job& job, const py::typing::Callable<void(const LiveDataWavesEis&)>& callback) {
                job.addLivedataEventHandler(pyLiveDataHandler<AcLiveDataWavesMessage, AcLiveDataMessage>(
                    callback, [](const PyCallbackHolder& holder, const AcLiveDataWavesMessage& waves) {
                        holder.call(waves.waves);
                    }));
            },
            ADD_WAVES_DOC, "callback"_a)
        .def(
            "add_finished_callback",
            [](Job& job, const py::typing::Callable<void(const JobInfo&)>& callback) {
                job.addLivedataEventHandler(pyLiveDataHandler<AcLiveDataFinishedMessage, AcLiveDataMessage>(
                    callback, [](const PyCallbackHolder& holder, const AcLiveDataFinishedMessage& finished) {
                        holder.call(finished.jobInfo);
                    }));
            },
            ADD_FINISHED_DOC, "callback"_a)
        .def(
            "get_number_of_live_data_callbacks",
            [](const Job& job) { return job.getFeatures().getLivedataEventHandlers().size(); },
            LIVE_DATA_CALLBACK_COUNT_DOC);
}

void bindTables(py::module_& meas) {
    bindRecord<EisFrequencyRangeGenerate>(
        meas, "EisFrequencyRangeGenerate",
        "Generated frequencies: logarithmically equidistant steps (points_per_decade_upper) between 66 Hz and the "
        "maximum frequency, the density changing linearly down to points_per_decade_lower at the minimum frequency.");
    bindRecord<EisMultisineFrequencyRangeGenerate>(meas, "EisMultisineFrequencyRangeGenerate",
                                                   "Generated frequencies of a multisine measurement.");
    bindRecord<EisParametersFrequencyTableEntry>(meas, "EisParametersFrequencyTableEntry",
                                                 "One point of a frequency table with its timing.");
    bindRecord<EisFrequencyTable>(meas, "EisParametersFrequencyTable",
                                  "The frequency table of :class:`velmar_link.meas.EisFrequencyTableJob`.");
    bindRecord<GeisVaFrequencyTable>(meas, "GeisVaParametersFrequencyTable",
                                     "The frequency table of :class:`velmar_link.meas.GeisVaFrequencyTableJob`.");
    bindRecord<EisMultiSineTableEntry>(meas, "EisMultiSineTableEntry", "One harmonic of a multisine table.");
    bindRecord<EisMultiSineTableRange>(meas, "EisMultiSineTable",
                                       "The multisine table: harmonics of one fundamental frequency with their timing.");
}

}  // namespace

void bindJobsAc(py::module_& m) {
    auto meas = submodule(m, "meas");
    bindTables(meas);
    bindAcJob<EisGenerateJob>(meas, "EisGenerateJob", "EisParametersGeneratePy",
                              "Potentiostatic impedance spectroscopy over generated frequencies.");
    bindAcJob<EisFrequencyTableJob>(meas, "EisFrequencyTableJob", "EisParametersFrequencyTablePy",
                                    "Potentiostatic impedance spectroscopy over a frequency table.");
    bindAcJob<EisMultisineGenerateJob>(meas, "EisMultisineGenerateJob", "EisMultisineParametersGeneratePy",
                                       "Impedance spectroscopy with multisine excitation over generated frequencies.");
    bindAcJob<EisMultisineTableJob>(meas, "EisMultisineTableJob", "EisMultiSineTablePy",
                                    "Impedance spectroscopy with multisine excitation over a table of harmonics.");
    bindAcJob<GeisVaGenerateJob>(
        meas, "GeisVaGenerateJob", "GeisVaParametersGeneratePy",
        "Galvanostatic impedance spectroscopy with adaptive amplitude over generated frequencies.");
    bindAcJob<GeisVaFrequencyTableJob>(
        meas, "GeisVaFrequencyTableJob", "GeisVaParametersFrequencyTablePy",
        "Galvanostatic impedance spectroscopy with adaptive amplitude over a frequency table.");
}

}  // namespace velmar::python
