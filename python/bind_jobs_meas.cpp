#include "bindings.hpp"

#include "bind_jobs_common.hpp"
#include "velmar_link_json/jobs/calibration/calibration_jobs.hpp"
#include "velmar_link_json/jobs/measurement_jobs.hpp"

namespace velmar::python {

namespace {

constexpr const char* kEisNote =
    "\n\n\"bias\" is the DC operating point; \"drift_correction\" (a :class:`velmar_link.DriftCorrection` or None "
    "for the device default) selects how much drift correction is applied.";

constexpr const char* kServiceNote = "\n\nNo customer should call this job.";

void bindImpedanceJobs(py::module_& meas) {
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

    using A = JobArguments;
    bindJob<EisGenerateJob, A::WITH_META_DATA>(
        meas, "EisGenerateJob", "EisParametersGeneratePy",
        std::string("Potentiostatic impedance spectroscopy over generated frequencies.") + kEisNote);
    bindJob<EisFrequencyTableJob, A::WITH_META_DATA>(
        meas, "EisFrequencyTableJob", "EisParametersFrequencyTablePy",
        std::string("Potentiostatic impedance spectroscopy over a frequency table.") + kEisNote);
    bindJob<EisMultisineGenerateJob, A::WITH_META_DATA>(
        meas, "EisMultisineGenerateJob", "EisMultisineParametersGeneratePy",
        std::string("Impedance spectroscopy with multisine excitation over generated frequencies.") + kEisNote);
    bindJob<EisMultisineTableJob, A::WITH_META_DATA>(
        meas, "EisMultisineTableJob", "EisMultiSineTablePy",
        std::string("Impedance spectroscopy with multisine excitation over a table of harmonics.") + kEisNote);
    bindJob<GeisVaGenerateJob, A::WITH_META_DATA>(
        meas, "GeisVaGenerateJob", "GeisVaParametersGeneratePy",
        std::string("Galvanostatic impedance spectroscopy with adaptive amplitude over generated frequencies.") + kEisNote);
    bindJob<GeisVaFrequencyTableJob, A::WITH_META_DATA>(
        meas, "GeisVaFrequencyTableJob", "GeisVaParametersFrequencyTablePy",
        std::string("Galvanostatic impedance spectroscopy with adaptive amplitude over a frequency table.") + kEisNote);
}

void bindCalibrationJobs(py::module_& calibration) {
    using A = JobArguments;
    py::class_<CalibrationDataValue>(calibration, "CalibrationData",
                                     "A typed calibration value: float, list of floats, spectra or str.")
        .def(py::init([](std::variant<double, std::vector<double>, CalibrationSpectra, std::string> value) {
                 return CalibrationDataValue{std::move(value)};
             }),
             "Create from a float, a list of floats, spectra (list of [frequency, real, imaginary]) or a str.",
             "value"_a = 0.0)
        .def_readwrite("value", &CalibrationDataValue::value, "The value.")
        .def("get_calibration_data_type", &CalibrationDataValue::getType,
             "The :class:`velmar_link.CalibrationDataTypeEnum` of the value.");

    bindRecord<CalibrateParameters>(calibration, "CalibrateParametersPy",
                                    "Parameters of :class:`velmar_link.calibration.CalibrateJob`.");
    bindJob<CalibrateJob, A::NO_CONSTRUCTOR>(
        calibration, "CalibrateJob", "CalibrateParametersStringPy",
        "Start a calibration of the RQ5. Only :attr:`velmar_link.CalibrationTypesEnum.DC` (perform full DC "
        "calibration) is meant for users.")
        .def(py::init([](const CalibrateParameters& parameters, MetaData meta) {
                 return std::make_shared<CalibrateJob>(parameters, std::move(meta));
             }),
             "Create the job from :class:`velmar_link.calibration.CalibrateParametersPy`.", "parameters"_a,
             "meta_data"_a = MetaData{})
        .def(py::init([](CalibrationTypesEnum type, std::string path, std::vector<int> indexes,
                         std::vector<std::string> paths, MetaData meta) {
                 return std::make_shared<CalibrateJob>(CalibrateParameters{type, std::move(path), std::move(indexes),
                                                                           std::move(paths)},
                                                       std::move(meta));
             }),
             "Create the job.\n\n:param calibration_type: the :class:`velmar_link.CalibrationTypesEnum`",
             "calibration_type"_a = CalibrationTypesEnum::DC, "calibration_path"_a = std::string(),
             "indexes"_a = std::vector<int>{}, "paths"_a = std::vector<std::string>{}, "meta_data"_a = MetaData{});

    bindJob<SetCalibrationDataJob, A::WITH_META_DATA>(calibration, "SetCalibrationDataJob",
                                                      "SetCalibrationDataParametersPy",
                                                      std::string("Store calibration data on the RQ5.") + kServiceNote);
    bindJob<GetCalibrationDataJob>(calibration, "GetCalibrationDataJob", "GetCalibrationDataParametersPy",
                                   std::string("Read calibration data from the RQ5.") + kServiceNote)
        .def("get_calibration_data_type", &GetCalibrationDataJob::getCalibrationDataType,
             "The :class:`velmar_link.CalibrationDataTypeEnum` of the last result.")
        .def("get_float_data", [](const GetCalibrationDataJob& job) { return std::get<double>(job.getJobResult().value); },
             "The result as float; raises if it is of another type.")
        .def("get_float_vector_data",
             [](const GetCalibrationDataJob& job) { return std::get<std::vector<double>>(job.getJobResult().value); },
             "The result as list of floats; raises if it is of another type.")
        .def("get_spectra_data",
             [](const GetCalibrationDataJob& job) { return std::get<CalibrationSpectra>(job.getJobResult().value); },
             "The result as spectra (list of [frequency, real, imaginary]); raises if it is of another type.")
        .def("get_string_data",
             [](const GetCalibrationDataJob& job) { return std::get<std::string>(job.getJobResult().value); },
             "The result as str; raises if it is of another type.");

    py::class_<FilterUsageMatrix>(calibration, "FilterUsageMatrix", "How often each filter was used.")
        .def_readonly("matrix", &FilterUsageMatrix::matrix,
                      "one row [path index, filter index, gain index, count] per entry");
    bindJob<GetFilterUsageMatrixJob>(calibration, "GetFilterUsageMatrixJob", "GetFilterUsageMatrixParametersPy",
                                     std::string("Read the filter usage matrix.") + kServiceNote);
    bindJob<GetMeshJsonFileJob>(calibration, "GetMeshJsonFileJob", nullptr,
                                std::string("Read the mesh file of the RQ5; :meth:`get_job_result` returns its "
                                            "contents as bytes.") + kServiceNote);
    bindJob<SetMeshJsonFileJob>(calibration, "SetMeshJsonFileJob", "SetMeshJsonFileParametersPy",
                                std::string("Store a mesh file on the RQ5; \"content\" is the file in Base64.") +
                                    kServiceNote);
}

}  // namespace

void bindJobsMeas(py::module_& m) {
    auto meas = submodule(m, "meas");
    bindImpedanceJobs(meas);
    auto calibration = submodule(m, "calibration");
    bindCalibrationJobs(calibration);
}

}  // namespace velmar::python
