#include "json_common/job_parameters/calibration_parameters.hpp"

#include "json_common/detail/described_json.hpp"

#include <stdexcept>

namespace velmar {

VELMAR_DEFINE_DESCRIBED_JSON(CalibrateParametersString)
VELMAR_DEFINE_DESCRIBED_JSON(SetCalibrationDataParameters)
VELMAR_DEFINE_DESCRIBED_JSON(GetCalibrationDataParameters)
VELMAR_DEFINE_DESCRIBED_JSON(SetMeshJsonFileParameters)
VELMAR_DEFINE_DESCRIBED_JSON(GetFilterUsageMatrixParameters)

CalibrationDataTypeEnum CalibrationDataValue::getType() const {
    return static_cast<CalibrationDataTypeEnum>(value.index() + 1);
}

CalibrateParametersString CalibrateParametersString::fromParameters(const CalibrateParameters& parameters) {
    return {std::string(calibrationTypesEnumToString(parameters.calibration_type)), parameters.calibration_path,
            parameters.indexes, parameters.paths};
}

void tag_invoke(const boost::json::value_from_tag&, boost::json::value& jv, const CalibrationDataValue& record) {
    boost::json::object object;
    object["type"] = calibrationDataTypeName(record.getType());
    object["value"] = std::visit([](const auto& value) { return detail::memberToJson(value); }, record.value);
    jv = std::move(object);
}

CalibrationDataValue tag_invoke(const boost::json::value_to_tag<CalibrationDataValue>&, const boost::json::value& jv) {
    const auto& object = jv.as_object();
    const auto type = std::string_view(object.at("type").as_string());
    const auto& value = object.at("value");
    CalibrationDataValue out;
    using enum CalibrationDataTypeEnum;
    if (type == calibrationDataTypeName(FLOAT)) out.value = detail::memberFromJson<double>(value);
    else if (type == calibrationDataTypeName(FLOAT_VECTOR)) out.value = detail::memberFromJson<std::vector<double>>(value);
    else if (type == calibrationDataTypeName(SPECTRA)) out.value = detail::memberFromJson<CalibrationSpectra>(value);
    else if (type == calibrationDataTypeName(STRING)) out.value = detail::memberFromJson<std::string>(value);
    else throw std::invalid_argument("unknown calibration data type '" + std::string(type) + "'");
    return out;
}

}  // namespace velmar
