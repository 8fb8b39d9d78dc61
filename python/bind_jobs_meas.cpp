#include "bindings.hpp"

#include "bind_jobs_common.hpp"
#include "velmar_link_json/jobs/calibration/calibration_jobs.hpp"

namespace velmar::python {

namespace {

constexpr const char* kServiceNote = "\n\nNo customer should call this job.";

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
    auto calibration = submodule(m, "calibration");
    bindCalibrationJobs(calibration);
}

}  // namespace velmar::python
