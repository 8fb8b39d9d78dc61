#pragma once

namespace velmar {

/// The job name of every job kind: the "type" of the request's "job" object. The addresses of
/// these arrays are the template arguments that bind a job class to its name.
struct JobNames {
    // DC measurements.
    static constexpr char CV_JOB_NAME[] = "cv";
    static constexpr char AC_CV_JOB_NAME[] = "ac_cv";
    static constexpr char FAST_CYCLING_JOB_NAME[] = "fast_cycling";
    static constexpr char RAMP_JOB_NAME[] = "ramp";
    static constexpr char STEADYSTAIRS_JOB_NAME[] = "steady_stairs";
    static constexpr char POGA_JOB_NAME[] = "poga";
    static constexpr char OCV_JOB_NAME[] = "ocv";
    static constexpr char NPV_JOB_NAME[] = "npv";
    static constexpr char DPV_JOB_NAME[] = "dpv";
    static constexpr char SWV_JOB_NAME[] = "swv";
    static constexpr char WAVE_JOB_NAME[] = "wave";
    static constexpr char WAVE_FILE_JOB_NAME[] = "wave_file";
    // Impedance measurements.
    static constexpr char EIS_GENERATE_JOB_NAME[] = "eis";
    static constexpr char EIS_TABLE_JOB_NAME[] = "eis_table";
    static constexpr char EIS_MULTISINE_GENERATE_JOB_NAME[] = "eis_multisine";
    static constexpr char EIS_MULTISINE_TABLE_JOB_NAME[] = "eis_multisine_table";
    static constexpr char GEIS_VA_GENERATE_JOB_NAME[] = "geis_va";
    static constexpr char GEIS_VA_TABLE_JOB_NAME[] = "geis_va_table";
    // Calibration. The service names begin with the UTF-8 bytes F0 9F 9B A0 EF B8 8F
    // (U+1F6E0 U+FE0F) and a slash, byte for byte.
    static constexpr char CALIBRATE_JOB_NAME[] = "calibrate";
    static constexpr char SET_CALIBRATION_DATA_JOB_NAME[] = "\xF0\x9F\x9B\xA0\xEF\xB8\x8F/set_calibration_data";
    static constexpr char GET_CALIBRATION_DATA_JOB_NAME[] = "\xF0\x9F\x9B\xA0\xEF\xB8\x8F/get_calibration_data";
    static constexpr char GET_MESH_JSON_FILE_JOB_NAME[] = "\xF0\x9F\x9B\xA0\xEF\xB8\x8F/get_mesh_json_file";
    static constexpr char SET_MESH_JSON_FILE_JOB_NAME[] = "\xF0\x9F\x9B\xA0\xEF\xB8\x8F/set_mesh_json_file";
    static constexpr char GET_FILTER_USAGE_MATRIX_JOB_NAME[] =
        "\xF0\x9F\x9B\xA0\xEF\xB8\x8F/get_filter_usage_matrix";
    // Control and information.
    static constexpr char BEEP_JOB_NAME[] = "beep";
    static constexpr char SLEEP_JOB_NAME[] = "sleep";
    static constexpr char SET_LED_COLOR_JOB_NAME[] = "set_led_color";
    static constexpr char SWITCH_ON_JOB_NAME[] = "switch_on";
    static constexpr char SWITCH_ON_QUICK_JOB_NAME[] = "switch_on_quick";
    static constexpr char SWITCH_OFF_JOB_NAME[] = "switch_off";
    static constexpr char SWITCH_ALL_OFF_JOB_NAME[] = "switch_all_off";
    static constexpr char SET_BIAS_JOB_NAME[] = "set_bias";
    static constexpr char SET_VOLTAGE_RANGE_JOB_NAME[] = "set_voltage_range";
    static constexpr char SET_ACTIVE_GAINS_JOB_NAME[] = "set_active_gains";
    static constexpr char SET_ACTIVE_CURRENT_RANGES_JOB_NAME[] = "set_active_current_ranges";
    static constexpr char SET_CABLE_OPTIONS_JOB_NAME[] = "set_cable_options";
    static constexpr char SET_DATETIME_NAME[] = "set_date_time";
    static constexpr char GET_DATETIME_NAME[] = "get_date_time";
    static constexpr char INITIALIZE_RTC_JOB_NAME[] = "initialize_rtc";
    static constexpr char GET_ADC_STATE_JOB_NAME[] = "get_adc_state";
    static constexpr char GET_POTENTIOSTAT_STATE_JOB_NAME[] = "get_potentiostat_state";
    static constexpr char GET_HARDWARE_INFO_JOB_NAME[] = "get_hardware_info";
    static constexpr char GET_HARDWARE_PROPERTY_JOB_NAME[] = "get_hardware_property";
    static constexpr char SET_HARDWARE_PROPERTY_JOB_NAME[] = "set_hardware_property";
    static constexpr char GET_HARDWARE_SETTINGS_JOB_NAME[] = "get_hardware_settings";
    static constexpr char SET_HARDWARE_SETTINGS_JOB_NAME[] = "set_hardware_settings";
    static constexpr char MEASURE_INTEGRAL_JOB_NAME[] = "measure_integral";
    static constexpr char SET_FIRMWARE_UPDATE_JOB_NAME[] = "set_firmware_update";
    static constexpr char REBOOT_JOB_NAME[] = "reboot";
    static constexpr char REENUMERATE_HARDWARE_JOB_NAME[] = "reenumerate_hardware";
};

}  // namespace velmar
