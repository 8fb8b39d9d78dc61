#include "py_common.hpp"

#include <pybind11/numpy.h>

#include "bind_jobs_common.hpp"
#include "bindings.hpp"
#include "velmar_link_json/jobs/dc/dc_jobs.hpp"

#include <cstring>
#include <memory>

namespace velmar::python {

namespace {

constexpr const char* ADD_HEADER_DOC = R"(Add a callback for the live-data header of this job.

The callback receives a LiveDataHeader and the JobInfo; it runs on the link's I/O thread with the
interpreter lock held. An exception it raises is reported as unraisable.)";
constexpr const char* ADD_ROWS_DOC = R"(Add a callback for the blocks of live-data rows of this job.

The callback receives a list of rows, each a list of floats in the order of the header's columns.)";
constexpr const char* ADD_ROWS_ARRAY_DOC = R"(Add a callback that receives each block of rows as a numpy array.

The array is a new float64 array of shape (rows, columns); converting it is far cheaper than
building lists.)";

template <class Job>
void bindDcJob(py::module_& meas, const char* name, const char* parametersName, const char* doc) {
    auto cls = bindJob<Job, JobArguments::WITH_META_DATA_AND_STOP_CONDITIONS>(meas, name, parametersName, doc);
    cls.def(
           "add_header_callback",
           [](Job& job, const py::typing::Callable<void(const LiveDataHeader&, const JobInfo&)>& callback) {
               job.addLivedataEventHandler(pyLiveDataHandler<DcLiveDataHeaderMessage, DcLiveDataMessage>(
                   callback, [](const PyCallbackHolder& holder, const DcLiveDataHeaderMessage& header) {
                       holder.call(header.header, header.jobInfo);
                   }));
           },
           ADD_HEADER_DOC, "callback"_a)
        .def(
            "add_rows_callback",
            [](Job& job, const py::typing::Callable<void(const std::vector<std::vector<double>>&)>& callback) {
                job.addLivedataEventHandler(pyLiveDataHandler<DcLiveDataRowsMessage, DcLiveDataMessage>(
                    callback, [](const PyCallbackHolder& holder, const DcLiveDataRowsMessage& rows) {
                        holder.call(rows.toRows());
                    }));
            },
            ADD_ROWS_DOC, "callback"_a)
        .def(
            "add_rows_array_callback",
            [](Job& job, const py::typing::Callable<void(const py::array_t<double>&)>& callback) {
                job.addLivedataEventHandler(pyLiveDataHandler<DcLiveDataRowsMessage, DcLiveDataMessage>(
                    callback, [](const PyCallbackHolder& holder, const DcLiveDataRowsMessage& rows) {
                        if (Py_IsInitialized() == 0) return;
                        py::gil_scoped_acquire gil;
                        py::array_t<double> array({static_cast<py::ssize_t>(rows.rowCount()),
                                                   static_cast<py::ssize_t>(rows.columns)});
                        if (!rows.values.empty()) {
                            std::memcpy(array.mutable_data(), rows.values.data(),
                                        rows.rowCount() * rows.columns * sizeof(double));
                        }
                        holder.call(std::move(array));
                    }));
            },
            ADD_ROWS_ARRAY_DOC, "callback"_a)
        .def(
            "add_finished_callback",
            [](Job& job, const py::typing::Callable<void(const JobInfo&)>& callback) {
                job.addLivedataEventHandler(pyLiveDataHandler<DcLiveDataFinishedMessage, DcLiveDataMessage>(
                    callback, [](const PyCallbackHolder& holder, const DcLiveDataFinishedMessage& finished) {
                        holder.call(finished.jobInfo);
                    }));
            },
            ADD_FINISHED_DOC, "callback"_a)
        .def(
            "add_live_data_collector",
            [](Job& job) {
                auto collector = std::make_shared<DcLiveDataHandler>();
                job.addLivedataEventHandler(
                    [collector](const DcLiveDataMessage& message) { (*collector)(message); });
                return collector;
            },
            R"(Collect this job's live data natively into a DcDataset; returns the DcLiveDataCollector.

No Python code runs per event; read the dataset once the job has ended.)")
        .def(
            "get_number_of_live_data_callbacks",
            [](Job& job) { return job.getFeatures().getLivedataEventHandlers().size(); },
            LIVE_DATA_CALLBACK_COUNT_DOC);
}

}  // namespace

void bindJobsDc(py::module_& m) {
    auto meas = submodule(m, "meas");
    py::class_<DcLiveDataHandler, std::shared_ptr<DcLiveDataHandler>>(
        m, "DcLiveDataCollector", R"(Collects a DC job's live data into a DcDataset without calling Python.)",
        py::release_gil_before_calling_cpp_dtor())
        .def(
            "get_dataset", [](const DcLiveDataHandler& self) { return std::make_shared<DcDataset>(self.getDataset()); },
            R"(A copy of the dataset collected so far; call it after the job has ended.)")
        .def("is_finished", &DcLiveDataHandler::isFinished, R"(True once the live data of the job has ended.)");
    bindDcJob<CvJob>(meas, "CvJob", "CvParametersPy",
                     "Cyclic voltammetry: sweeps from the start value to the vertices and to the end value.");
    bindDcJob<AcCvJob>(meas, "AcCvJob", "AcCvParametersPy",
                       "Cyclic voltammetry with a superimposed sine of the given amplitude and frequency.");
    bindDcJob<FastCyclingJob>(meas, "FastCyclingJob", "FastCyclingParametersPy",
                              "Alternates between two steps without dead time, then drives to the end value.");
    bindDcJob<RampJob>(meas, "RampJob", "RampParametersPy", "A linear sweep from the start value to the end value.");
    bindDcJob<SteadyStairsJob>(meas, "SteadyStairsJob", "SteadyStairsParametersPy",
                               "A staircase from the start value to the end value, one step per step time.");
    bindDcJob<PogaJob>(meas, "PogaJob", "PogaParametersPy", "Holds a constant bias for the duration.");
    bindDcJob<OcvJob>(meas, "OcvJob", "OcvParametersPy", "Measures the open-circuit voltage for the duration.");
    bindDcJob<NpvJob>(meas, "NpvJob", "NpvParametersPy",
                      "Normal pulse voltammetry: pulses of growing height from a base value.");
    bindDcJob<DpvJob>(meas, "DpvJob", "DpvParametersPy",
                      "Differential pulse voltammetry: a staircase with a pulse at the end of each step.");
    bindDcJob<SwvJob>(meas, "SwvJob", "SwvParametersPy",
                      "Square wave voltammetry: a staircase with a symmetric square wave on each step.");
    bindDcJob<WaveJob>(meas, "WaveJob", "WaveParametersPy", "Plays a list of values at the value rate.");
    bindDcJob<WaveFileJob>(meas, "WaveFileJob", "WaveFileParametersPy",
                           "Plays the values of a wave resource on the device at the value rate.");

    // The dataset class exists already (bindDatasets); it learns here how to rebuild its job.
    auto dataset = py::reinterpret_borrow<py::class_<DcDataset, DataSet, std::shared_ptr<DcDataset>>>(
        py::type::of<DcDataset>());
    dataset.def(
        "recreate_original_job",
        [](const DcDataset& self) -> py::object {
            auto job = recreateOriginalDcJob(self);
            if (!job) return py::none();
            return py::cast(job);
        },
        R"(The job that produced the dataset, with its parameters, metadata and stop conditions, or None if the job type is unknown or the parameters are missing.)");
}

}  // namespace velmar::python
