#include "emulator/waveforms/dc_waveform.hpp"

#include "emulator/core/emulator_messages.hpp"
#include "emulator/device_jobs/device_limits.hpp"

#include <boost/json.hpp>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace velmar::emulator {

namespace json = boost::json;

namespace {

constexpr double INF = std::numeric_limits<double>::infinity();

/// Reads parameter members; the first failure is kept and later reads return 0.
class ParameterReader {
public:
    explicit ParameterReader(const json::object& parameters) : parameters_(parameters) {}

    double number(std::string_view key) {
        const auto* value = find(key);
        if (value == nullptr) return 0.0;
        if (!value->is_number()) return fail(ErrorCodeEnum::PARAMETER_FORMAT_INVALID, messages::PARAMETER_FORMAT_INVALID,
                                             key, "number");
        return value->to_number<double>();
    }
    /// A number of at least `minimum` (exclusive when `strict`).
    double atLeast(std::string_view key, double minimum, bool strict) {
        const double value = number(key);
        if (!error_ && (value < minimum || (strict && value == minimum) || std::isnan(value))) {
            return fail(ErrorCodeEnum::PARAMETER_VALUE_TOO_LOW, messages::PARAMETER_VALUE_TOO_LOW, key, value, minimum);
        }
        return value;
    }
    double positive(std::string_view key) { return atLeast(key, 0.0, true); }
    /// A non-negative number of at most `maximum`.
    double upTo(std::string_view key, double maximum) {
        const double value = nonNegative(key);
        if (!error_ && value > maximum) {
            return fail(ErrorCodeEnum::PARAMETER_VALUE_TOO_HIGH, messages::PARAMETER_VALUE_TOO_HIGH, key, value, maximum);
        }
        return value;
    }
    /// A staircase height: 0 (a continuous sweep) or at least the smallest step.
    double stepHeight(std::string_view key) {
        const double value = nonNegative(key);
        if (!error_ && value > 0.0 && value < limits::kMinStep) {
            return fail(ErrorCodeEnum::PARAMETER_VALUE_TOO_LOW, messages::PARAMETER_VALUE_TOO_LOW, key, value,
                        limits::kMinStep);
        }
        return value;
    }
    /// A potential step of at least the smallest step.
    double step(std::string_view key) {
        const double value = positive(key);
        if (!error_ && value < limits::kMinStep) {
            return fail(ErrorCodeEnum::PARAMETER_VALUE_TOO_LOW, messages::PARAMETER_VALUE_TOO_LOW, key, value,
                        limits::kMinStep);
        }
        return value;
    }
    double nonNegative(std::string_view key) { return atLeast(key, 0.0, false); }
    bool flag(std::string_view key) {
        const auto* value = parameters_.if_contains(key);
        if (value == nullptr) return false;  // optional: absent means off
        if (!value->is_bool()) {
            fail(ErrorCodeEnum::PARAMETER_FORMAT_INVALID, messages::PARAMETER_FORMAT_INVALID, key, "boolean");
            return false;
        }
        return value->get_bool();
    }
    std::vector<double> numbers(std::string_view key) {
        std::vector<double> out;
        const auto* value = find(key);
        if (value == nullptr) return out;
        const auto* array = value->if_array();
        if (array == nullptr) {
            fail(ErrorCodeEnum::PARAMETER_FORMAT_INVALID, messages::PARAMETER_FORMAT_INVALID, key, "array of numbers");
            return out;
        }
        out.reserve(array->size());
        for (const auto& element : *array) {
            if (!element.is_number()) {
                fail(ErrorCodeEnum::PARAMETER_FORMAT_INVALID, messages::PARAMETER_FORMAT_INVALID, key,
                     "array of numbers");
                return {};
            }
            out.push_back(element.to_number<double>());
        }
        return out;
    }
    template <class... Args>
    double fail(ErrorCodeEnum code, std::string_view format, Args&&... args) {
        if (!error_) error_ = ErrorObject(code, format, std::forward<Args>(args)...);
        return 0.0;
    }
    const ErrorObject& error() const { return error_; }

private:
    const json::value* find(std::string_view key) {
        if (error_) return nullptr;
        const auto* value = parameters_.if_contains(key);
        if (value == nullptr) fail(ErrorCodeEnum::PARAMETER_MISSING, messages::PARAMETER_MISSING, key);
        return value;
    }

    const json::object& parameters_;
    ErrorObject error_;
};

/// Appends pieces to a period, keeping their start times contiguous.
class SegmentBuilder {
public:
    void hold(double value, double length) { line(value, value, length); }
    void line(double from, double to, double length) {
        if (!(length > 0.0)) return;
        segments_.push_back({end_, length, from, to});
        end_ += length;
    }
    /// A sweep from `from` to `to` at `rate`, continuous or as a staircase of `stepHeight`.
    void sweep(double from, double to, double rate, double stepHeight) {
        const double distance = std::abs(to - from);
        if (distance == 0.0) return;
        if (!(stepHeight > 0.0)) {
            line(from, to, distance / rate);
            return;
        }
        const double direction = to > from ? 1.0 : -1.0;
        const auto steps = static_cast<std::size_t>(std::floor(distance / stepHeight + 1e-9));
        for (std::size_t k = 0; k < steps; ++k) {
            hold(from + direction * static_cast<double>(k) * stepHeight, stepHeight / rate);
        }
        const double rest = distance - static_cast<double>(steps) * stepHeight;
        if (rest > 1e-12 * std::max(1.0, distance)) {
            hold(from + direction * static_cast<double>(steps) * stepHeight, rest / rate);
        }
    }
    std::vector<WaveSegment> take() { return std::move(segments_); }

private:
    std::vector<WaveSegment> segments_;
    double end_ = 0.0;
};

/// floor(|end - start| / |step|) + 1 levels from start towards end.
std::size_t levelCount(double start, double end, double step) {
    return static_cast<std::size_t>(std::floor(std::abs(end - start) / std::abs(step) + 1e-9)) + 1;
}

double level(double start, double end, double step, std::size_t k) {
    const double direction = end >= start ? 1.0 : -1.0;
    return start + direction * static_cast<double>(k) * std::abs(step);
}

/// The vertices of round(2 x numCycles); numCycles has been checked against kMaxCycles.
std::size_t turns(double numCycles) { return static_cast<std::size_t>(std::llround(2.0 * numCycles)); }

std::unexpected<ErrorObject> tooHigh(std::string_view key, double value, double maximum) {
    return std::unexpected(
        ErrorObject(ErrorCodeEnum::PARAMETER_VALUE_TOO_HIGH, messages::PARAMETER_VALUE_TOO_HIGH, key, value, maximum));
}

/// Pieces of one sweep of SegmentBuilder::sweep, counted without building them.
double sweepPieces(double from, double to, double stepHeight) {
    const double distance = std::abs(to - from);
    if (distance == 0.0) return 0.0;
    return stepHeight > 0.0 ? std::floor(distance / stepHeight) + 2.0 : 1.0;
}

/// floor(|end - start| / |step|) + 1 as a double, for the limit check before levelCount.
double levelsOf(double start, double end, double step) { return std::floor(std::abs(end - start) / std::abs(step)) + 1.0; }

}  // namespace

DcWaveform::DcWaveform(std::vector<WaveSegment> period, std::size_t repetitions, double finalValue,
                       double outputDataRate, bool appliesSetPoint)
    : period_(std::move(period)),
      repetitions_(period_.empty() ? 0 : repetitions),
      finalValue_(finalValue),
      outputDataRate_(outputDataRate),
      appliesSetPoint_(appliesSetPoint) {
    if (!period_.empty()) periodLength_ = period_.back().start + period_.back().length;
}

void DcWaveform::setSine(double amplitude, double frequency) {
    sineAmplitude_ = amplitude;
    sineFrequency_ = frequency;
}

namespace {
/// Times closer than this count as equal, so that row times k / rate and summed segment
/// starts meet at the same boundary despite rounding.
double tolerance(double t) { return 1e-10 + 1e-12 * std::abs(t); }
}  // namespace

double DcWaveform::periodValue(double local, bool fromLeft) const {
    const double eps = tolerance(local);
    // The segment holding `local`: the last one starting at or before it (strictly before it
    // for the limit from the left).
    const auto after = fromLeft ? std::lower_bound(period_.begin(), period_.end(), local - eps,
                                                   [](const WaveSegment& s, double t) { return s.start < t; })
                                : std::upper_bound(period_.begin(), period_.end(), local + eps,
                                                   [](double t, const WaveSegment& s) { return t < s.start; });
    const auto& segment = after == period_.begin() ? period_.front() : *(after - 1);
    const double fraction = std::clamp((local - segment.start) / segment.length, 0.0, 1.0);
    return segment.startValue + (segment.endValue - segment.startValue) * fraction;
}

double DcWaveform::valueAt(double t) const {
    if (t >= duration() - tolerance(t)) return finalValue_;
    double value = 0.0;
    if (t <= 0.0) {
        value = period_.front().startValue;
    } else {
        const double k = std::floor((t + tolerance(t)) / periodLength_);
        value = periodValue(std::max(0.0, t - k * periodLength_), false);
    }
    return value + sineAmplitude_ * std::sin(2.0 * std::numbers::pi * sineFrequency_ * t);
}

double DcWaveform::valueBefore(double t) const {
    if (period_.empty() || t > duration() + tolerance(t)) return finalValue_;
    if (t <= tolerance(t)) return valueAt(0.0);
    const double k = std::max(0.0, std::ceil((t - tolerance(t)) / periodLength_) - 1.0);
    return periodValue(t - k * periodLength_, true) +
           sineAmplitude_ * std::sin(2.0 * std::numbers::pi * sineFrequency_ * t);
}

double DcWaveform::nextBoundary(double t) const {
    const double total = duration();
    const double eps = tolerance(t);
    if (period_.empty() || t >= total - eps) return INF;
    if (t < -eps) return 0.0;
    const double k = std::floor((t + eps) / periodLength_);
    const double local = t - k * periodLength_;
    const auto after = std::upper_bound(period_.begin(), period_.end(), local + eps,
                                        [](double value, const WaveSegment& s) { return value < s.start; });
    const double boundary = after == period_.end() ? (k + 1.0) * periodLength_ : k * periodLength_ + after->start;
    return std::min(boundary, total);
}

double DcWaveform::maxInternalStep() const {
    return sineAmplitude_ != 0.0 && sineFrequency_ > 0.0 ? 1.0 / (20.0 * sineFrequency_) : INF;
}

std::size_t DcWaveform::rowCount() const {
    return static_cast<std::size_t>(std::floor(duration() * outputDataRate_ + 1e-9)) + 1;
}

std::expected<DcWaveform, ErrorObject> makeDcWaveform(std::string_view kind, const json::object& parameters,
                                                      const std::vector<double>* fileValues) {
    ParameterReader in(parameters);
    SegmentBuilder period;
    const double rate = in.positive("output_data_rate");
    double finalValue = 0.0;
    std::size_t repetitions = 1;
    bool applies = true;
    double sineAmplitude = 0.0;
    double sineFrequency = 0.0;

    if (kind == "cv" || kind == "ac_cv") {
        const double start = in.number("start_value");
        const double first = in.number("first_vertex");
        const double second = in.number("second_vertex");
        const double end = in.number("end_value");
        const double scanRate = in.positive("scan_rate");
        const double numCycles = in.upTo("num_cycles", limits::kMaxCycles);
        double stepHeight = 0.0;
        if (kind == "cv") {
            stepHeight = parameters.contains("step_height") ? in.stepHeight("step_height") : 0.0;
        } else {
            sineAmplitude = in.number("amplitude");
            sineFrequency = in.positive("frequency");
        }
        if (in.error()) return std::unexpected(in.error());
        const std::size_t vertexCount = turns(numCycles);
        double pieces = 0.0;
        for (std::size_t i = 0; i < vertexCount && pieces <= limits::kMaxPeriodSteps; ++i) {
            pieces += sweepPieces(i == 0 ? start : (i % 2 == 0 ? second : first), i % 2 == 0 ? first : second,
                                  stepHeight);
        }
        pieces += sweepPieces(vertexCount == 0 ? start : (vertexCount % 2 == 0 ? second : first), end, stepHeight);
        if (pieces > limits::kMaxPeriodSteps) return tooHigh("steps", pieces, limits::kMaxPeriodSteps);
        double from = start;
        for (std::size_t i = 0; i < vertexCount; ++i) {
            const double vertex = i % 2 == 0 ? first : second;
            period.sweep(from, vertex, scanRate, stepHeight);
            from = vertex;
        }
        period.sweep(from, end, scanRate, stepHeight);
        finalValue = end;
    } else if (kind == "fast_cycling") {
        const double first = in.number("first_step");
        const double second = in.number("second_step");
        finalValue = in.number("end_value");
        const double stepTime = in.positive("step_time");
        const double numCycles = in.upTo("num_cycles", limits::kMaxCycles);
        if (in.error()) return std::unexpected(in.error());
        const std::size_t steps = turns(numCycles);
        for (std::size_t i = 0; i < steps; ++i) period.hold(i % 2 == 0 ? first : second, stepTime);
    } else if (kind == "ramp") {
        const double start = in.number("start_value");
        finalValue = in.number("end_value");
        const double scanRate = in.positive("scan_rate");
        const double stepHeight = parameters.contains("step_height") ? in.stepHeight("step_height") : 0.0;
        if (in.error()) return std::unexpected(in.error());
        if (const double pieces = sweepPieces(start, finalValue, stepHeight); pieces > limits::kMaxPeriodSteps)
            return tooHigh("steps", pieces, limits::kMaxPeriodSteps);
        period.sweep(start, finalValue, scanRate, stepHeight);
        if (start == finalValue) period.hold(start, 0.0);
    } else if (kind == "steady_stairs") {
        const double start = in.number("start_value");
        finalValue = in.number("end_value");
        const double stepTime = in.positive("step_time");
        const double stepHeight = in.step("step_height");
        const double holdTime = parameters.contains("hold_time") ? in.nonNegative("hold_time") : 0.0;
        if (in.error()) return std::unexpected(in.error());
        if (const double levels = levelsOf(start, finalValue, stepHeight); levels > limits::kMaxPeriodSteps)
            return tooHigh("steps", levels, limits::kMaxPeriodSteps);
        period.hold(start, holdTime);
        const std::size_t levels = levelCount(start, finalValue, stepHeight);
        for (std::size_t k = 0; k < levels; ++k) period.hold(level(start, finalValue, stepHeight, k), stepTime);
    } else if (kind == "poga") {
        finalValue = in.number("bias");
        period.hold(finalValue, in.positive("duration"));
    } else if (kind == "ocv") {
        period.hold(0.0, in.positive("duration"));
        applies = false;
    } else if (kind == "npv" || kind == "dpv") {
        const double base = kind == "npv" ? in.number("base_value") : 0.0;
        const double start = in.number("start_value");
        const double step = in.step("step_value");
        const double end = in.number("end_value");
        const double stepTime = in.positive("step_time");
        const double pulseTime = in.positive("pulse_time");
        const double pulse = kind == "dpv" ? in.number("pulse_value") : 0.0;
        const bool invert = kind == "dpv" && in.flag("invert_pulse");
        if (in.error()) return std::unexpected(in.error());
        if (pulseTime > stepTime) {
            return std::unexpected(ErrorObject(ErrorCodeEnum::PARAMETER_VALUE_TOO_HIGH, messages::PARAMETER_VALUE_TOO_HIGH,
                                               "pulse_time", pulseTime, stepTime));
        }
        if (const double pieces = 2.0 * levelsOf(start, end, step); pieces > limits::kMaxPeriodSteps)
            return tooHigh("steps", pieces, limits::kMaxPeriodSteps);
        const std::size_t levels = levelCount(start, end, step);
        for (std::size_t k = 0; k < levels; ++k) {
            const double value = level(start, end, step, k);
            period.hold(kind == "npv" ? base : value, stepTime - pulseTime);
            period.hold(kind == "npv" ? value : value + (invert ? -pulse : pulse), pulseTime);
        }
        finalValue = kind == "npv" ? base : level(start, end, step, levels - 1);
    } else if (kind == "swv") {
        const double start = in.number("start_value");
        const double step = in.step("step_value");
        const double amplitude = in.number("amplitude");
        const double end = in.number("end_value");
        const double periodTime = in.positive("period");
        if (in.error()) return std::unexpected(in.error());
        if (const double pieces = 2.0 * levelsOf(start, end, step); pieces > limits::kMaxPeriodSteps)
            return tooHigh("steps", pieces, limits::kMaxPeriodSteps);
        const double direction = end >= start ? 1.0 : -1.0;
        const std::size_t levels = levelCount(start, end, step);
        for (std::size_t k = 0; k < levels; ++k) {
            const double value = level(start, end, step, k);
            period.hold(value + direction * amplitude, periodTime / 2.0);
            period.hold(value - direction * amplitude, periodTime / 2.0);
        }
        finalValue = level(start, end, step, levels - 1);
    } else if (kind == "wave" || kind == "wave_file") {
        const double valueRate = in.positive("value_rate");
        const double repeat = in.upTo("repetitions", limits::kMaxRepetitions);
        const double bias = in.number("bias");
        std::vector<double> values = kind == "wave" ? in.numbers("values") : std::vector<double>{};
        if (kind == "wave_file") {
            if (!parameters.contains("resource_id")) in.fail(ErrorCodeEnum::PARAMETER_MISSING, messages::PARAMETER_MISSING, "resource_id");
            if (fileValues != nullptr) values = *fileValues;
        }
        if (in.error()) return std::unexpected(in.error());
        if (values.empty()) {
            return std::unexpected(ErrorObject(ErrorCodeEnum::PARAMETER_VALUE_TOO_LOW, messages::PARAMETER_VALUE_TOO_LOW,
                                               "values", std::size_t{0}, std::size_t{1}));
        }
        const auto valueCount = static_cast<double>(values.size());
        if (valueCount > limits::kMaxWaveValues) return tooHigh("values", valueCount, limits::kMaxWaveValues);
        if (valueCount * std::round(repeat) > limits::kMaxSteps)
            return tooHigh("steps", valueCount * std::round(repeat), limits::kMaxSteps);
        for (const double value : values) period.hold(bias + value, 1.0 / valueRate);
        repetitions = static_cast<std::size_t>(std::llround(repeat));
        finalValue = bias;
    } else {
        return std::unexpected(ErrorObject(ErrorCodeEnum::TYPE_NAME_UNKNOWN, messages::PARAMETER_FORMAT_INVALID, "type",
                                           "a DC measurement kind"));
    }
    if (in.error()) return std::unexpected(in.error());
    DcWaveform waveform(period.take(), repetitions, finalValue, rate, applies);
    if (sineAmplitude != 0.0) waveform.setSine(sineAmplitude, sineFrequency);
    // The whole run, before any row is produced: its duration, rows and the internal steps
    // that follow a sine.
    const double seconds = waveform.duration();
    if (!(seconds <= limits::kMaxJobSeconds)) return tooHigh("duration", seconds, limits::kMaxJobSeconds);
    if (const double points = std::floor(seconds * rate) + 1.0; points > limits::kMaxPoints)
        return tooHigh("points", points, limits::kMaxPoints);
    if (const double internal = seconds / waveform.maxInternalStep(); internal > limits::kMaxSteps)
        return tooHigh("steps", internal, limits::kMaxSteps);
    return waveform;
}

}  // namespace velmar::emulator
