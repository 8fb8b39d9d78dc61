#pragma once

// Calibration jobs. Apart from CalibrateJob (DC calibration for users) these are service jobs
// that ordinary users are not meant to call.

#include "json_common/job_parameters/calibration_parameters.hpp"
#include "json_common/job_parameters/job_results.hpp"
#include "velmar_link_json/jobs/ac/ac_measurement_job.hpp"
#include "velmar_link_json/jobs/job_names.hpp"

#include <cstdint>
#include <vector>

namespace velmar {

/// Starts a calibration; the user form names the type by CalibrationTypesEnum.
class CalibrateJob : public AcMeasurementJob<CalibrateParametersString, JobNames::CALIBRATE_JOB_NAME> {
public:
    using AcMeasurementJob::AcMeasurementJob;
    explicit CalibrateJob(const CalibrateParameters& parameters, std::map<std::string, std::string> metaData = {});
};

using SetCalibrationDataJob =
    AcMeasurementJob<SetCalibrationDataParameters, JobNames::SET_CALIBRATION_DATA_JOB_NAME>;
using SetMeshJsonFileJob = MeasurementJobTemplate<SetMeshJsonFileParameters, JobNames::SET_MESH_JSON_FILE_JOB_NAME>;

/// Reads calibration data; the result keeps the type that the device reported.
class GetCalibrationDataJob
    : public SingleValueMeasurementJobTemplate<CalibrationDataValue, GetCalibrationDataParameters,
                                               JobNames::GET_CALIBRATION_DATA_JOB_NAME> {
public:
    using SingleValueMeasurementJobTemplate::SingleValueMeasurementJobTemplate;
    /// Reads "result"/"data" with "type" and "value".
    void extractJobResult(const boost::json::object& message) override;
    /// UNDEFINED until a result has been read.
    CalibrationDataTypeEnum getCalibrationDataType() const { return type_; }

private:
    CalibrationDataTypeEnum type_ = CalibrationDataTypeEnum::UNDEFINED;
};

/// Reads the device's mesh file.
class GetMeshJsonFileJob
    : public SingleValueMeasurementJobTemplate<std::vector<std::uint8_t>, AbstractMeasurementJob::Parameterless,
                                               JobNames::GET_MESH_JSON_FILE_JOB_NAME> {
public:
    using SingleValueMeasurementJobTemplate::SingleValueMeasurementJobTemplate;
    /// Decodes "result"/"file"/"content" (Base64). Throws std::runtime_error "No valid 'file'
    /// object found", "No valid 'content' field found in file object" or "Failed to decode
    /// file content: " followed by the reason.
    void extractJobResult(const boost::json::object& message) override;
};

class GetFilterUsageMatrixJob
    : public SingleValueMeasurementJobTemplate<FilterUsageMatrix, GetFilterUsageMatrixParameters,
                                               JobNames::GET_FILTER_USAGE_MATRIX_JOB_NAME> {
public:
    using SingleValueMeasurementJobTemplate::SingleValueMeasurementJobTemplate;
    void extractJobResult(const boost::json::object& message) override;
};

extern template class MeasurementJobTemplate<CalibrateParametersString, JobNames::CALIBRATE_JOB_NAME>;
extern template class AcMeasurementJob<CalibrateParametersString, JobNames::CALIBRATE_JOB_NAME>;
extern template class MeasurementJobTemplate<SetCalibrationDataParameters, JobNames::SET_CALIBRATION_DATA_JOB_NAME>;
extern template class AcMeasurementJob<SetCalibrationDataParameters, JobNames::SET_CALIBRATION_DATA_JOB_NAME>;
extern template class MeasurementJobTemplate<SetMeshJsonFileParameters, JobNames::SET_MESH_JSON_FILE_JOB_NAME>;
extern template class MeasurementJobTemplate<GetCalibrationDataParameters, JobNames::GET_CALIBRATION_DATA_JOB_NAME>;
extern template class MeasurementJobTemplate<AbstractMeasurementJob::Parameterless,
                                             JobNames::GET_MESH_JSON_FILE_JOB_NAME>;
extern template class MeasurementJobTemplate<GetFilterUsageMatrixParameters,
                                             JobNames::GET_FILTER_USAGE_MATRIX_JOB_NAME>;

}  // namespace velmar
