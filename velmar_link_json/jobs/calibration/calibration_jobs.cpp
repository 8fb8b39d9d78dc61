#include "velmar_link_json/jobs/calibration/calibration_jobs.hpp"

#include "json_common/base64.hpp"
#include "velmar_link_json/jobs/measurement_job_template_impl.hpp"

#include <stdexcept>

namespace velmar {

template class MeasurementJobTemplate<CalibrateParametersString, JobNames::CALIBRATE_JOB_NAME>;
template class AcMeasurementJob<CalibrateParametersString, JobNames::CALIBRATE_JOB_NAME>;
template class MeasurementJobTemplate<SetCalibrationDataParameters, JobNames::SET_CALIBRATION_DATA_JOB_NAME>;
template class AcMeasurementJob<SetCalibrationDataParameters, JobNames::SET_CALIBRATION_DATA_JOB_NAME>;
template class MeasurementJobTemplate<SetMeshJsonFileParameters, JobNames::SET_MESH_JSON_FILE_JOB_NAME>;
template class MeasurementJobTemplate<GetCalibrationDataParameters, JobNames::GET_CALIBRATION_DATA_JOB_NAME>;
template class MeasurementJobTemplate<AbstractMeasurementJob::Parameterless, JobNames::GET_MESH_JSON_FILE_JOB_NAME>;
template class MeasurementJobTemplate<GetFilterUsageMatrixParameters, JobNames::GET_FILTER_USAGE_MATRIX_JOB_NAME>;

CalibrateJob::CalibrateJob(const CalibrateParameters& parameters, std::map<std::string, std::string> metaData)
    : AcMeasurementJob(CalibrateParametersString::fromParameters(parameters), std::move(metaData)) {}

void GetCalibrationDataJob::extractJobResult(const boost::json::object& message) {
    const auto* result = detail::findResultObject(message);
    if (result == nullptr) return;
    result_ = boost::json::value_to<CalibrationDataValue>(result->at("data"));
    type_ = result_.getType();
}

void GetMeshJsonFileJob::extractJobResult(const boost::json::object& message) {
    const auto* result = detail::findResultObject(message);
    const boost::json::value* file = result != nullptr ? result->if_contains("file") : nullptr;
    if (file == nullptr || !file->is_object()) throw std::runtime_error("No valid 'file' object found");
    const auto* content = file->get_object().if_contains("content");
    if (content == nullptr || !content->is_string()) {
        throw std::runtime_error("No valid 'content' field found in file object");
    }
    auto decoded = decodeBase64(content->get_string());
    if (!decoded) throw std::runtime_error("Failed to decode file content: " + decoded.error());
    result_.assign(decoded->begin(), decoded->end());
}

void GetFilterUsageMatrixJob::extractJobResult(const boost::json::object& message) {
    if (const auto* result = detail::findResultValue(message)) {
        result_ = boost::json::value_to<FilterUsageMatrix>(*result);
    }
}

}  // namespace velmar
