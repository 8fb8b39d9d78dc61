#pragma once

// Parameter records of the calibration kinds. Calibration data are addressed by
// "calibration_type" (wire text), "calibration_path" and "indexes".

#include "json_common/detail/json_declare.hpp"
#include "json_common/job_parameters/potentiostat_coupling.hpp"

#include <boost/describe/class.hpp>

#include <string>
#include <variant>
#include <vector>

namespace velmar {

/// Spectra: one [frequency, real, imaginary] triple per point.
using CalibrationSpectra = std::vector<std::vector<double>>;

/// A typed calibration value; on the wire {"type": "float" | "float_vector" | "spectra" |
/// "string", "value": ...}. The alternative index follows CalibrationDataTypeEnum minus one.
struct CalibrationDataValue {
    std::variant<double, std::vector<double>, CalibrationSpectra, std::string> value = 0.0;

    CalibrationDataTypeEnum getType() const;
    friend bool operator==(const CalibrationDataValue&, const CalibrationDataValue&) = default;
};

/// The user form of a calibration request.
struct CalibrateParameters {
    CalibrationTypesEnum calibration_type = CalibrationTypesEnum::DC;
    std::string calibration_path;
    std::vector<int> indexes;
    std::vector<std::string> paths;
};
BOOST_DESCRIBE_STRUCT(CalibrateParameters, (), (calibration_type, calibration_path, indexes, paths))

/// The wire form: the calibration type as its text.
struct CalibrateParametersString {
    std::string calibration_type = "dc";
    std::string calibration_path;
    std::vector<int> indexes;
    std::vector<std::string> paths;

    static CalibrateParametersString fromParameters(const CalibrateParameters& parameters);
};
BOOST_DESCRIBE_STRUCT(CalibrateParametersString, (), (calibration_type, calibration_path, indexes, paths))

struct SetCalibrationDataParameters {
    std::string calibration_type = "dc";
    std::string calibration_path;
    std::vector<int> indexes;
    CalibrationDataValue data;
};
BOOST_DESCRIBE_STRUCT(SetCalibrationDataParameters, (), (calibration_type, calibration_path, indexes, data))

struct GetCalibrationDataParameters {
    std::string calibration_type = "dc";
    std::string calibration_path;
    std::vector<int> indexes;
};
BOOST_DESCRIBE_STRUCT(GetCalibrationDataParameters, (), (calibration_type, calibration_path, indexes))

/// The mesh file to store on the device; "content" is the file in Base64.
struct SetMeshJsonFileParameters {
    std::string name = "mesh.json";
    std::string content;
};
BOOST_DESCRIBE_STRUCT(SetMeshJsonFileParameters, (), (name, content))

struct GetFilterUsageMatrixParameters {
    std::string uri;
};
BOOST_DESCRIBE_STRUCT(GetFilterUsageMatrixParameters, (), (uri))

VELMAR_DECLARE_JSON(CalibrationDataValue);
VELMAR_DECLARE_JSON(CalibrateParametersString);
VELMAR_DECLARE_JSON(SetCalibrationDataParameters);
VELMAR_DECLARE_JSON(GetCalibrationDataParameters);
VELMAR_DECLARE_JSON(SetMeshJsonFileParameters);
VELMAR_DECLARE_JSON(GetFilterUsageMatrixParameters);

}  // namespace velmar
