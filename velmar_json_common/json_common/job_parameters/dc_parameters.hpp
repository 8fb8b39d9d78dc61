#pragma once

// Parameter records of the DC measurement kinds. Member names are the JSON keys; numbers are
// volts, amperes, seconds and hertz (potentiostatic reading; galvanostatic swaps the roles of
// potentials and currents).

#include "json_common/detail/json_declare.hpp"

#include <boost/describe/class.hpp>

#include <string>
#include <vector>

namespace velmar {

struct CvParameters {
    double start_value = 0.0;
    double first_vertex = 0.5;
    double second_vertex = -0.5;
    double end_value = 0.0;
    double scan_rate = 0.1;
    double output_data_rate = 10.0;
    /// Half cycles are allowed (2.5).
    double num_cycles = 1.0;
    bool autorange = true;
    double current_range = 0.01;
    bool turn_limit_check = false;
    double upper_turn_boundary = 0.0;
    double lower_turn_boundary = 0.0;
    /// 0 selects the smallest step.
    double step_height = 0.0;
    /// Ohm; 0 switches the compensation off.
    double ir_drop = 0.0;
};
BOOST_DESCRIBE_STRUCT(CvParameters, (),
                      (start_value, first_vertex, second_vertex, end_value, scan_rate, output_data_rate, num_cycles,
                       autorange, current_range, turn_limit_check, upper_turn_boundary, lower_turn_boundary,
                       step_height, ir_drop))

/// A cyclic voltammetry with a superimposed sine excitation.
struct AcCvParameters {
    double start_value = 0.0;
    double first_vertex = 0.5;
    double second_vertex = -0.5;
    double end_value = 0.0;
    double scan_rate = 0.1;
    double output_data_rate = 10.0;
    double num_cycles = 1.0;
    double amplitude = 0.01;
    double frequency = 1000.0;
    double current_range = 0.01;
};
BOOST_DESCRIBE_STRUCT(AcCvParameters, (),
                      (start_value, first_vertex, second_vertex, end_value, scan_rate, output_data_rate, num_cycles,
                       amplitude, frequency, current_range))

struct FastCyclingParameters {
    double first_step = 0.5;
    double second_step = -0.5;
    double end_value = 0.0;
    double step_time = 1.0;
    double output_data_rate = 10.0;
    double num_cycles = 1.0;
    bool autorange = true;
    double current_range = 0.01;
    bool turn_limit_check = false;
    double upper_turn_boundary = 0.0;
    double lower_turn_boundary = 0.0;
};
BOOST_DESCRIBE_STRUCT(FastCyclingParameters, (),
                      (first_step, second_step, end_value, step_time, output_data_rate, num_cycles, autorange,
                       current_range, turn_limit_check, upper_turn_boundary, lower_turn_boundary))

struct RampParameters {
    double start_value = 0.0;
    double end_value = 0.5;
    double scan_rate = 0.1;
    double step_height = 0.0;
    double output_data_rate = 10.0;
    bool autorange = true;
    double current_range = 0.01;
};
BOOST_DESCRIBE_STRUCT(RampParameters, (),
                      (start_value, end_value, scan_rate, step_height, output_data_rate, autorange, current_range))

struct SteadyStairsParameters {
    double start_value = 0.0;
    double end_value = 0.5;
    double step_time = 1.0;
    double step_height = 0.01;
    double hold_time = 0.0;
    double stability_tolerance = 0.0;
    double output_data_rate = 10.0;
    bool autorange = true;
    double current_range = 0.01;
    double ir_drop = 0.0;
};
BOOST_DESCRIBE_STRUCT(SteadyStairsParameters, (),
                      (start_value, end_value, step_time, step_height, hold_time, stability_tolerance,
                       output_data_rate, autorange, current_range, ir_drop))

struct PogaParameters {
    double bias = 0.0;
    double duration = 1.0;
    double output_data_rate = 10.0;
    bool autorange = true;
    double current_range = 0.01;
};
BOOST_DESCRIBE_STRUCT(PogaParameters, (), (bias, duration, output_data_rate, autorange, current_range))

struct OcvParameters {
    double duration = 1.0;
    double output_data_rate = 10.0;
};
BOOST_DESCRIBE_STRUCT(OcvParameters, (), (duration, output_data_rate))

struct NpvParameters {
    double base_value = 0.0;
    double start_value = 0.0;
    double step_value = 0.01;
    double end_value = 0.5;
    double step_time = 0.1;
    double pulse_time = 0.05;
    double output_data_rate = 100.0;
    double current_range = 0.01;
};
BOOST_DESCRIBE_STRUCT(NpvParameters, (),
                      (base_value, start_value, step_value, end_value, step_time, pulse_time, output_data_rate,
                       current_range))

struct DpvParameters {
    double start_value = 0.0;
    double step_value = 0.01;
    double pulse_value = 0.05;
    double end_value = 0.5;
    double step_time = 0.1;
    double pulse_time = 0.05;
    bool invert_pulse = false;
    double output_data_rate = 100.0;
    double current_range = 0.01;
};
BOOST_DESCRIBE_STRUCT(DpvParameters, (),
                      (start_value, step_value, pulse_value, end_value, step_time, pulse_time, invert_pulse,
                       output_data_rate, current_range))

struct SwvParameters {
    double start_value = 0.0;
    double step_value = 0.01;
    double amplitude = 0.025;
    double end_value = 0.5;
    double period = 0.1;
    double output_data_rate = 100.0;
    double current_range = 0.01;
};
BOOST_DESCRIBE_STRUCT(SwvParameters, (),
                      (start_value, step_value, amplitude, end_value, period, output_data_rate, current_range))

struct WaveParameters {
    double output_data_rate = 10.0;
    double value_rate = 10.0;
    double repetitions = 1.0;
    double current_range = 0.01;
    std::vector<double> values;
    double bias = 0.0;
};
BOOST_DESCRIBE_STRUCT(WaveParameters, (), (output_data_rate, value_rate, repetitions, current_range, values, bias))

struct WaveFileParameters {
    double output_data_rate = 10.0;
    double value_rate = 10.0;
    double repetitions = 1.0;
    double current_range = 0.01;
    /// A WAVE resource on the device.
    std::string resource_id;
    double bias = 0.0;
};
BOOST_DESCRIBE_STRUCT(WaveFileParameters, (),
                      (output_data_rate, value_rate, repetitions, current_range, resource_id, bias))

VELMAR_DECLARE_JSON(CvParameters);
VELMAR_DECLARE_JSON(AcCvParameters);
VELMAR_DECLARE_JSON(FastCyclingParameters);
VELMAR_DECLARE_JSON(RampParameters);
VELMAR_DECLARE_JSON(SteadyStairsParameters);
VELMAR_DECLARE_JSON(PogaParameters);
VELMAR_DECLARE_JSON(OcvParameters);
VELMAR_DECLARE_JSON(NpvParameters);
VELMAR_DECLARE_JSON(DpvParameters);
VELMAR_DECLARE_JSON(SwvParameters);
VELMAR_DECLARE_JSON(WaveParameters);
VELMAR_DECLARE_JSON(WaveFileParameters);

}  // namespace velmar
