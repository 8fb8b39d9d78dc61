#include "bindings.hpp"

#include "json_common/configuration/workstation_mode.hpp"
#include "json_common/job_parameters/potentiostat_coupling.hpp"
#include "json_common/jobs/job_status.hpp"
#include "json_common/logging/error_code_enum.hpp"
#include "json_common/protocol/event_type.hpp"
#include "json_common/resources/resource_type.hpp"
#include "settings/setting.hpp"

namespace velmar::python {

// Every enum is a native Python enum (enum.Enum): members carry the native values but do
// not compare equal to integers.
void bindEnums(py::module_& m) {
    py::native_enum<SettingType>(m, "SettingType", "enum.Enum", "Type enumeration for Setting values")
        .value("UNINITIALIZED", SettingType::UNINITIALIZED, "uninitialized setting")
        .value("BOOL", SettingType::BOOL, "boolean setting")
        .value("INT", SettingType::INT, "integer setting")
        .value("DOUBLE", SettingType::DOUBLE, "double precision floating point setting")
        .value("STRING", SettingType::STRING, "string setting")
        .finalize();

    py::native_enum<JobStatusEnum>(m, "JobStatusEnum", "enum.Enum", "Enum which indicates the status of the job.")
        .value("UNKNOWN", JobStatusEnum::UNKNOWN)
        .value("PENDING", JobStatusEnum::PENDING)
        .value("RUNNING", JobStatusEnum::RUNNING)
        .value("FINISHED", JobStatusEnum::FINISHED)
        .value("FAILED", JobStatusEnum::FAILED)
        .value("DELETED", JobStatusEnum::DELETED)
        .finalize();

    py::native_enum<VelmarLinkConnectionStatusEnum>(m, "VelmarLinkConnectionStatusEnum", "enum.Enum",
                                                    "Indicates the connection status.")
        .value("DISCONNECTED", VelmarLinkConnectionStatusEnum::DISCONNECTED)
        .value("CONNECTED", VelmarLinkConnectionStatusEnum::CONNECTED)
        .finalize();

    py::native_enum<JobStatusDetailEnum>(m, "JobStatusDetailEnum", "enum.Enum",
                                         "An enum that explains the status in more detail.")
        .value("NOT_FINISHED", JobStatusDetailEnum::NOT_FINISHED)
        .value("RUN_TO_COMPLETION", JobStatusDetailEnum::RUN_TO_COMPLETION)
        .value("NOT_CONNECTED", JobStatusDetailEnum::NOT_CONNECTED)
        .value("FAILED_TO_CREATE", JobStatusDetailEnum::FAILED_TO_CREATE)
        .value("CANCELLED_BEFORE_RUN", JobStatusDetailEnum::CANCELLED_BEFORE_RUN)
        .value("STOPPED_BY_USER", JobStatusDetailEnum::STOPPED_BY_USER)
        .value("FUNCTIONAL_LIMIT_OCCURRED", JobStatusDetailEnum::FUNCTIONAL_LIMIT_OCCURRED)
        .value("SAFETY_LIMIT_OCCURRED", JobStatusDetailEnum::SAFETY_LIMIT_OCCURRED)
        .value("CONNECTION_LOSS", JobStatusDetailEnum::CONNECTION_LOSS)
        .value("RUNTIME_ERROR", JobStatusDetailEnum::RUNTIME_ERROR)
        .finalize();

    py::native_enum<QueueStopModeEnum>(m, "QueueStopModeEnum", "enum.Enum",
                                       "Enum with which you can select what should happen when the criteria is met.")
        .value("QUEUE_STOP_MODE_FLUSH", QueueStopModeEnum::QUEUE_STOP_MODE_FLUSH, "flush all the following jobs")
        .value("QUEUE_STOP_MODE_CONTINUE", QueueStopModeEnum::QUEUE_STOP_MODE_CONTINUE,
               "continue with the following job")
        .finalize();

    py::native_enum<PotentiostatCoupling>(m, "PotentiostatCoupling", "enum.Enum",
                                          "Enum with which you can select the feedback mode.")
        .value("POTENTIOSTATIC", PotentiostatCoupling::POTENTIOSTATIC, "voltage feedback")
        .value("GALVANOSTATIC", PotentiostatCoupling::GALVANOSTATIC, "current feedback")
        .value("FRA_PROBE", PotentiostatCoupling::FRA_PROBE,
               "internal feedback, mode must be used in combination with an FRA probe")
        .finalize();

    py::native_enum<DriftCorrection>(
        m, "DriftCorrection", "enum.Enum",
        "Enum with which you can select how much of the drift correction an EIS measurement applies.")
        .value("FULL", DriftCorrection::FULL,
               "both estimators: spectral matched filter at exactly one recorded period, regression over the "
               "period means above. The default.")
        .value("DC_ONLY", DriftCorrection::DC_ONLY,
               "only the regression over the period means, so nothing at one recorded period. For a sample "
               "driven into its nonlinearity, where the unexcited bins carry distortion rather than drift.")
        .value("OFF", DriftCorrection::OFF,
               "no correction. The drift is still estimated and reported per path, nothing is subtracted from "
               "the measured lines.")
        .finalize();

    // Registration order and values differ on purpose: DC first.
    py::native_enum<CalibrationTypesEnum>(m, "CalibrationTypesEnum", "enum.Enum",
                                          "Enum which indicates the type of the calibration.")
        .value("DC", CalibrationTypesEnum::DC, "perform full DC calibration")
        .value("MAIN_SHUNTS_DC", CalibrationTypesEnum::MAIN_SHUNTS_DC)
        .value("EXTERNAL_POTENTIOSTAT_DC", CalibrationTypesEnum::EXTERNAL_POTENTIOSTAT_DC)
        .value("DUMP", CalibrationTypesEnum::DUMP)
        .value("LOAD", CalibrationTypesEnum::LOAD)
        .value("FILTER", CalibrationTypesEnum::FILTER)
        .value("GAIN", CalibrationTypesEnum::GAIN)
        .value("MUX_FILTER", CalibrationTypesEnum::MUX_FILTER)
        .value("MUX_GAIN", CalibrationTypesEnum::MUX_GAIN)
        .value("MUX4_FILTER", CalibrationTypesEnum::MUX4_FILTER)
        .value("MUX4_GAIN", CalibrationTypesEnum::MUX4_GAIN)
        .value("MUX4_DC_GAIN", CalibrationTypesEnum::MUX4_DC_GAIN)
        .value("VOLTAGE_RANGE", CalibrationTypesEnum::VOLTAGE_RANGE)
        .value("SHUNT_OPEN", CalibrationTypesEnum::SHUNT_OPEN)
        .value("SHUNT_LOAD", CalibrationTypesEnum::SHUNT_LOAD)
        .value("SHUNT_SHORT", CalibrationTypesEnum::SHUNT_SHORT)
        .value("SHUNT_REFERENCE", CalibrationTypesEnum::SHUNT_REFERENCE)
        .value("MAIN_VOLTAGE_RANGE", CalibrationTypesEnum::MAIN_VOLTAGE_RANGE)
        .value("MAIN_SHUNT_OPEN", CalibrationTypesEnum::MAIN_SHUNT_OPEN)
        .value("MAIN_SHUNT_LOAD", CalibrationTypesEnum::MAIN_SHUNT_LOAD)
        .value("MAIN_SHUNT_SHORT", CalibrationTypesEnum::MAIN_SHUNT_SHORT)
        .value("REFERENCE_ADC", CalibrationTypesEnum::REFERENCE_ADC)
        .finalize();

    py::native_enum<CalibrationDataTypeEnum>(m, "CalibrationDataTypeEnum", "enum.Enum",
                                             "Enum which indicates the data type of the calibration data.")
        .value("UNDEFINED", CalibrationDataTypeEnum::UNDEFINED)
        .value("FLOAT", CalibrationDataTypeEnum::FLOAT)
        .value("FLOAT_VECTOR", CalibrationDataTypeEnum::FLOAT_VECTOR)
        .value("SPECTRA", CalibrationDataTypeEnum::SPECTRA)
        .value("STRING", CalibrationDataTypeEnum::STRING)
        .finalize();

    py::native_enum<ResourceTypeEnum>(m, "ResourceTypeEnum", "enum.Enum",
                                      "Enum which indicates the type of the resource.")
        .value("UNDEFINED", ResourceTypeEnum::UNDEFINED)
        .value("FIRMWARE_UPDATE", ResourceTypeEnum::FIRMWARE_UPDATE)
        .value("WAVE", ResourceTypeEnum::WAVE)
        .value("CALIB_MESH", ResourceTypeEnum::CALIB_MESH)
        .value("VELMAR_BINARY", ResourceTypeEnum::VELMAR_BINARY)
        .value("DEBUG_INFO", ResourceTypeEnum::DEBUG_INFO)
        .value("JOB_RESULT", ResourceTypeEnum::JOB_RESULT)
        .finalize();

    py::native_enum<WorkstationModeEnum>(m, "WorkstationModeEnum", "enum.Enum",
                                         "Enum indicating the operating mode of the RQ5\n\n"
                                         "Indicates whether the device can be used normally or whether it is in "
                                         "recovery mode for resetting settings.")
        .value("NORMAL", WorkstationModeEnum::NORMAL)
        .value("RECOVERY", WorkstationModeEnum::RECOVERY)
        .value("FAILSAFE", WorkstationModeEnum::FAILSAFE)
        .value("EMULATION", WorkstationModeEnum::EMULATION)
        .finalize();

    py::native_enum<LogSeverityEnum>(m, "LogSeverityEnum", "enum.Enum", "Enum indicating the severity of a log message.")
        .value("DEBUG", LogSeverityEnum::DEBUG)
        .value("MESSAGE", LogSeverityEnum::MESSAGE)
        .value("WARNING", LogSeverityEnum::WARNING)
        .value("CRITICAL_ERROR", LogSeverityEnum::CRITICAL_ERROR)
        .finalize();

    py::native_enum<EventTypeEnum>(m, "EventTypeEnum", "enum.Enum",
                                   "Enum which indicates the type of an event sent by the RQ5.")
        .value("UNKNOWN", EventTypeEnum::UNKNOWN)
        .value("JOB_STATUS_UPDATE", EventTypeEnum::JOB_STATUS_UPDATE)
        .value("MESSAGE_FROM_JOB", EventTypeEnum::MESSAGE_FROM_JOB)
        .value("MESSAGE_FROM_SERVER", EventTypeEnum::MESSAGE_FROM_SERVER)
        .value("JOB_DONE", EventTypeEnum::JOB_DONE)
        .value("LIVE_DATA_HEADER", EventTypeEnum::LIVE_DATA_HEADER)
        .value("LIVE_DATA_HEADER_EIS", EventTypeEnum::LIVE_DATA_HEADER_EIS)
        .value("LIVE_DATA_ROWS", EventTypeEnum::LIVE_DATA_ROWS)
        .value("LIVE_DATA_ROW_EIS", EventTypeEnum::LIVE_DATA_ROW_EIS)
        .value("LIVE_DATA_WAVES", EventTypeEnum::LIVE_DATA_WAVES)
        .value("LIVE_DATA_FINISHED", EventTypeEnum::LIVE_DATA_FINISHED)
        .finalize();

    py::native_enum<DatasetType>(m, "DatasetType", "enum.Enum", "Enum which indicates the type of the dataset.")
        .value("DC", DatasetType::DC)
        .value("AC", DatasetType::AC)
        .finalize();

    // Members come from the one code list, so Python and C++ cannot drift apart.
    py::native_enum<ErrorCodeEnum> errorCodes(m, "ErrorCodeEnum", "enum.Enum",
                                              "Enum which indicates error codes for various operations.");
    for (const auto& [code, name] : errorCodeNameTable()) {
        errorCodes.value(std::string(name).c_str(), code);
    }
    errorCodes.finalize();
}

}  // namespace velmar::python
