#pragma once

#include "json_common/logging/error_object.hpp"

#include <boost/json/fwd.hpp>

#include <cstddef>
#include <expected>
#include <string_view>
#include <vector>

namespace velmar::emulator {

/// One straight piece of a set-point curve: from `startValue` at `start` to `endValue` at
/// `start + length` (seconds from the start of the period).
struct WaveSegment {
    double start = 0.0;
    double length = 0.0;
    double startValue = 0.0;
    double endValue = 0.0;
};

/// The set-point of a DC job as a function of time: a piecewise-linear period played
/// `repetitions` times, an optional superimposed sine, and the value held after the end.
/// The set-point is right-continuous: at a jump the new value applies from the jump on.
/// Immutable after construction; any thread.
class DcWaveform {
public:
    DcWaveform(std::vector<WaveSegment> period, std::size_t repetitions, double finalValue, double outputDataRate,
               bool appliesSetPoint = true);

    /// Adds amplitude * sin(2 pi frequency t) to every value.
    void setSine(double amplitude, double frequency);

    /// The set-point at time t (t < 0 gives the first value, t >= duration the final value).
    double valueAt(double t) const;
    /// The limit of the set-point from the left at t (differs from valueAt at jumps).
    double valueBefore(double t) const;
    /// Total duration in seconds.
    double duration() const { return periodLength_ * static_cast<double>(repetitions_); }
    /// The smallest segment boundary (kink or jump) strictly after t, or infinity.
    double nextBoundary(double t) const;
    /// The longest internal step that still follows the curve (finite with a sine).
    double maxInternalStep() const;
    double outputDataRate() const { return outputDataRate_; }
    /// False for the open-circuit measurement, which applies nothing.
    bool appliesSetPoint() const { return appliesSetPoint_; }
    /// Rows streamed at the output data rate: at t = k / rate for every t <= duration.
    std::size_t rowCount() const;
    const std::vector<WaveSegment>& period() const { return period_; }

private:
    double periodValue(double local, bool fromLeft) const;

    std::vector<WaveSegment> period_;
    double periodLength_ = 0.0;
    std::size_t repetitions_ = 1;
    double finalValue_ = 0.0;
    double outputDataRate_ = 1.0;
    bool appliesSetPoint_ = true;
    double sineAmplitude_ = 0.0;
    double sineFrequency_ = 0.0;
};

/// Builds the set-point curve of a DC job from its parameter object (the "parameters" of the
/// job request). Shapes, in the job's control quantity (potential, or current with a
/// galvanostatically switched-on potentiostat):
///  - cv: start_value, then round(2 x num_cycles) vertices alternating first_vertex,
///    second_vertex (so 2.5 cycles turn five times), then end_value, at scan_rate; with
///    step_height > 0 each leg is a staircase of that height. turn_limit_check is not
///    emulated.
///  - ac_cv: cv (no staircase) plus amplitude x sin(2 pi frequency t).
///  - fast_cycling: first_step and second_step alternately, round(2 x num_cycles) steps of
///    step_time each, then end_value.
///  - ramp: start_value to end_value at scan_rate (staircase with step_height > 0).
///  - steady_stairs: hold_time at start_value, then one level per step_height from
///    start_value to end_value (both included), each held step_time.
///  - poga: bias for duration. ocv: nothing applied for duration.
///  - npv: per step_time, base_value then, for the last pulse_time, the pulse level
///    start_value + k x step_value towards end_value.
///  - dpv: staircase start_value + k x step_value; for the last pulse_time of each step the
///    level plus pulse_value (minus with invert_pulse).
///  - swv: per period, level start_value + k x step_value plus amplitude in the first half
///    and minus amplitude in the second (signs follow the scan direction).
///  - wave, wave_file: bias + values[i], each held 1 / value_rate, repetitions times;
///    wave_file takes the values of its resource through `fileValues`.
/// Pulse and step counts are floor(|end - start| / |step|) + 1.
/// Fails with PARAMETER_MISSING, PARAMETER_FORMAT_INVALID or PARAMETER_VALUE_TOO_LOW naming
/// the key, or TYPE_NAME_UNKNOWN for a kind that is not a DC kind.
std::expected<DcWaveform, ErrorObject> makeDcWaveform(std::string_view kind, const boost::json::object& parameters,
                                                      const std::vector<double>* fileValues = nullptr);

}  // namespace velmar::emulator
