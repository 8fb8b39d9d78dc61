#include "emulator/ac_jobs/ac_plan.hpp"

#include "emulator/core/emulator_messages.hpp"
#include "emulator/device_jobs/device_limits.hpp"
#include "emulator/device_jobs/job_catalog.hpp"
#include "json_common/job_parameters/eis_parameters.hpp"

#include <boost/json.hpp>

#include <algorithm>
#include <cmath>
#include <exception>

namespace velmar::emulator {

namespace json = boost::json;

namespace {

constexpr double kDecadeTolerance = 1e-9;
/// The smallest excitation amplitude (V) and the smallest GEIS current amplitude (A).
constexpr double kMinAmplitude = 1e-6;
constexpr double kMinCurrentAmplitude = 1e-9;

/// One direction of the grid from the start, without the start itself.
std::vector<double> gridRun(const FrequencyGridSpec& spec, bool upwards) {
    const double xMin = std::log10(spec.minFrequency);
    const double xMax = std::log10(spec.maxFrequency);
    const double xCorner = std::log10(kGridCornerFrequency);
    const double upper = spec.pointsPerDecadeUpper;
    const double lower = spec.pointsPerDecadeLower;
    const auto density = [&](double x) {
        if (x >= xCorner) return upper;
        return lower + (upper - lower) * (x - xMin) / (xCorner - xMin);
    };
    const double sign = upwards ? 1.0 : -1.0;
    const double limit = upwards ? xMax : xMin;
    const auto beyond = [&](double x) { return upwards ? x > limit + kDecadeTolerance : x < limit - kDecadeTolerance; };

    std::vector<double> out;
    double x = std::log10(spec.startFrequency);
    double anchor = x;
    int steps = 0;  // of the present run at or above the corner
    bool inRun = false;
    for (;;) {
        double next = 0.0;
        if (x >= xCorner) {
            if (!inRun) {
                anchor = x;
                steps = 0;
                inRun = true;
            }
            next = anchor + sign * (++steps) / upper;
        } else {
            inRun = false;
            next = x + sign / density(x);
        }
        if (beyond(next)) break;
        x = next;
        out.push_back(std::pow(10.0, x));
    }
    const double end = upwards ? spec.maxFrequency : spec.minFrequency;
    if (std::abs(x - limit) <= kDecadeTolerance) {
        if (!out.empty()) out.back() = end;
    } else {
        out.push_back(end);
    }
    return out;
}

ErrorObject tooLow(std::string_view key, double value, double minimum) {
    return ErrorObject(ErrorCodeEnum::PARAMETER_VALUE_TOO_LOW, messages::PARAMETER_VALUE_TOO_LOW, key, value, minimum);
}

ErrorObject tooHigh(std::string_view key, double value, double maximum) {
    return ErrorObject(ErrorCodeEnum::PARAMETER_VALUE_TOO_HIGH, messages::PARAMETER_VALUE_TOO_HIGH, key, value,
                       maximum);
}

/// Whole periods of a phase: at least `waves`, and enough to last `duration` seconds.
double periodsOf(int waves, double duration, double frequency) {
    return std::max(static_cast<double>(waves), std::ceil(duration * frequency - 1e-9));
}

/// Shapes the wave of a measurement whose highest harmonic is `highest`.
void shapeWave(AcMeasurement& m, unsigned highest) {
    m.samplesPerPeriod = std::max<std::size_t>(kSamplesPerPeriod, 8u * std::size_t{highest});
    const double fitting = std::max(1.0, std::floor(double(kMaxWaveSamples) / double(m.samplesPerPeriod)));
    m.wavePeriods = static_cast<std::size_t>(std::min(m.measPeriods, fitting));
}

AcMeasurement singleSine(double frequency, double amplitude, int preWaves, double preDuration, int measWaves,
                         double measDuration) {
    AcMeasurement m;
    m.fundamental = frequency;
    m.prePeriods = periodsOf(preWaves, preDuration, frequency);
    m.measPeriods = std::max(1.0, periodsOf(measWaves, measDuration, frequency));
    m.points.push_back(AcPoint{frequency, amplitude, 1});
    shapeWave(m, 1);
    return m;
}

std::expected<std::vector<double>, ErrorObject> grid(const auto& range) {
    if (range.max_frequency < range.min_frequency) return std::unexpected(tooLow("max_frequency", range.max_frequency, range.min_frequency));
    if (range.start_frequency < range.min_frequency)
        return std::unexpected(tooLow("start_frequency", range.start_frequency, range.min_frequency));
    if (range.start_frequency > range.max_frequency)
        return std::unexpected(tooHigh("start_frequency", range.start_frequency, range.max_frequency));
    return generateFrequencyGrid({range.min_frequency, range.max_frequency, range.start_frequency,
                                  range.points_per_decade_upper, range.points_per_decade_lower});
}

/// Consecutive grid points within `decades` decades of each other form one multisine; its
/// fundamental is the lowest of them divided by the starting harmonic, and each point becomes
/// the nearest harmonic (a harmonic met twice in one multisine is measured once).
std::vector<AcMeasurement> multisines(const std::vector<double>& frequencies, const EisMultisineFrequencyRangeGenerate& r) {
    std::vector<AcMeasurement> out;
    const double band = std::pow(10.0, r.multisine_decades);
    std::size_t first = 0;
    while (first < frequencies.size()) {
        double low = frequencies[first], high = frequencies[first];
        std::size_t end = first + 1;
        for (; end < frequencies.size(); ++end) {
            const double nextLow = std::min(low, frequencies[end]);
            const double nextHigh = std::max(high, frequencies[end]);
            if (nextHigh / nextLow > band * (1.0 + 1e-9)) break;
            low = nextLow;
            high = nextHigh;
        }
        AcMeasurement m;
        m.fundamental = low / r.multisine_starting_harmonic;
        m.prePeriods = periodsOf(r.multisine_pre_waves, r.pre_duration, m.fundamental);
        m.measPeriods = std::max(1.0, periodsOf(r.multisine_meas_waves, r.meas_duration, m.fundamental));
        unsigned highest = 1;
        for (std::size_t i = first; i < end; ++i) {
            const double nearest = std::max(1.0, std::round(frequencies[i] / m.fundamental));
            // A harmonic beyond kMaxHarmonic is kept (capped) for the refusal of the plan.
            const auto harmonic = static_cast<unsigned>(std::min(nearest, 4e9));
            if (std::ranges::any_of(m.points, [&](const AcPoint& p) { return p.harmonic == harmonic; })) continue;
            m.points.push_back(AcPoint{harmonic * m.fundamental, 0.0, harmonic});
            highest = std::max(highest, harmonic);
        }
        // The total amplitude is shared so that the multisine has the rms value of one sine
        // of that amplitude.
        for (auto& p : m.points) p.amplitude = r.amplitude / std::sqrt(double(m.points.size()));
        shapeWave(m, std::min(highest, kMaxHarmonic + 1));  // refused later when above
        out.push_back(std::move(m));
        first = end;
    }
    return out;
}

std::expected<AcPlan, ErrorObject> measurements(std::string_view type, const json::value& parameters) {
    AcPlan plan;
    if (type == "eis" || type == "geis_va") {
        const auto range = type == "eis" ? json::value_to<EisParametersGenerate>(parameters).frequency_range
                                         : json::value_to<GeisVaParametersGenerate>(parameters).frequency_range;
        auto frequencies = grid(range);
        if (!frequencies) return std::unexpected(frequencies.error());
        for (const double f : *frequencies) {
            plan.measurements.push_back(singleSine(f, range.amplitude, range.pre_waves, range.pre_duration,
                                                   range.meas_waves, range.meas_duration));
        }
    } else if (type == "eis_table" || type == "geis_va_table") {
        const auto spectrum = type == "eis_table"
                                  ? json::value_to<EisParametersFrequencyTable>(parameters).frequency_range.spectrum
                                  : json::value_to<GeisVaParametersFrequencyTable>(parameters).frequency_range.spectrum;
        for (const auto& e : spectrum) {
            plan.measurements.push_back(
                singleSine(e.frequency, e.amplitude, e.pre_waves, e.pre_duration, e.meas_waves, e.meas_duration));
        }
    } else if (type == "eis_multisine") {
        const auto p = json::value_to<EisMultisineParametersGenerate>(parameters);
        auto frequencies = grid(p.frequency_range);
        if (!frequencies) return std::unexpected(frequencies.error());
        plan.measurements = multisines(*frequencies, p.frequency_range);
        plan.multisine = true;
        plan.waveInResult = p.multisine_wave_in_result;
    } else if (type == "eis_multisine_table") {
        const auto p = json::value_to<EisMultiSineTable>(parameters);
        const auto& r = p.frequency_range;
        plan.multisine = true;
        plan.waveInResult = p.multisine_wave_in_result;
        if (!r.harmonics.empty()) {
            AcMeasurement m;
            m.fundamental = r.fundamental_frequency;
            m.prePeriods = periodsOf(r.pre_waves, r.pre_duration, m.fundamental);
            m.measPeriods = std::max(1.0, periodsOf(r.meas_waves, r.meas_duration, m.fundamental));
            unsigned highest = 1;
            for (const auto& h : r.harmonics) {
                const auto harmonic = static_cast<unsigned>(std::max(h.harmonic, 1));
                m.points.push_back(AcPoint{harmonic * m.fundamental, h.amplitude, harmonic});
                highest = std::max(highest, harmonic);
            }
            shapeWave(m, std::min(highest, kMaxHarmonic + 1));  // refused later when above
            plan.measurements.push_back(std::move(m));
        }
    }
    return plan;
}

ErrorObject checkPlan(const AcPlan& plan) {
    if (plan.measurements.empty()) return tooLow("points", 0.0, 1.0);
    double amplitudeSum = 0.0;
    for (const auto& m : plan.measurements) {
        double sum = 0.0;
        for (const auto& p : m.points) {
            if (p.harmonic > kMaxHarmonic) return tooHigh("harmonic", p.harmonic, kMaxHarmonic);
            if (p.amplitude < kMinAmplitude) return tooLow("amplitude", p.amplitude, kMinAmplitude);
            sum += p.amplitude;
        }
        amplitudeSum = std::max(amplitudeSum, sum);
    }
    if (plan.galvanostatic) {
        if (std::abs(plan.bias) > limits::kCurrentRange) return tooHigh("bias", std::abs(plan.bias), limits::kCurrentRange);
        if (plan.maxCurrentAmplitude < kMinCurrentAmplitude)
            return tooLow("maximum_current_amplitude", plan.maxCurrentAmplitude, kMinCurrentAmplitude);
        if (plan.maxCurrentAmplitude < plan.minCurrentAmplitude)
            return tooLow("maximum_current_amplitude", plan.maxCurrentAmplitude, plan.minCurrentAmplitude);
        const double room = limits::kCurrentRange - std::abs(plan.bias);
        if (plan.maxCurrentAmplitude > room) return tooHigh("maximum_current_amplitude", plan.maxCurrentAmplitude, room);
    } else if (const double room = limits::kSetPoint - std::abs(plan.bias); amplitudeSum > room) {
        return tooHigh("amplitude", amplitudeSum, room);
    }
    if (const double seconds = plan.seconds(); seconds > limits::kMaxJobSeconds)
        return tooHigh("duration", seconds, limits::kMaxJobSeconds);
    return {};
}

}  // namespace

std::vector<double> generateFrequencyGrid(const FrequencyGridSpec& spec) {
    std::vector<double> out{spec.startFrequency};
    for (const bool upwards : {true, false}) {
        const bool atLimit = std::abs(std::log10(spec.startFrequency) -
                                      std::log10(upwards ? spec.maxFrequency : spec.minFrequency)) <= kDecadeTolerance;
        if (atLimit) continue;
        const auto run = gridRun(spec, upwards);
        out.insert(out.end(), run.begin(), run.end());
    }
    return out;
}

std::size_t AcPlan::rowCount() const {
    std::size_t rows = 0;
    for (const auto& m : measurements) rows += m.points.size();
    return rows;
}

double AcPlan::seconds() const {
    double total = 0.0;
    for (const auto& m : measurements) total += m.seconds();
    return total;
}

double AcPlan::highestFrequency() const {
    double highest = 0.0;
    for (const auto& m : measurements) {
        for (const auto& p : m.points) highest = std::max(highest, p.frequency);
    }
    return highest;
}

std::expected<AcPlan, ErrorObject> planAcJob(std::string_view type, const json::object& given) {
    const auto parameters = withImpedanceDefaults(type, given);
    std::expected<AcPlan, ErrorObject> plan;
    try {
        plan = measurements(type, json::value(parameters));
    } catch (const std::exception& error) {
        // The catalogue has converted the parameters already; this guards the I/O thread.
        return std::unexpected(ErrorObject(ErrorCodeEnum::PARAMETER_FORMAT_INVALID, messages::PARAMETER_FORMAT_INVALID,
                                           "parameters", error.what()));
    }
    if (!plan) return plan;
    plan->bias = numberOf(parameters, "bias");
    if (type == "geis_va" || type == "geis_va_table") {
        plan->galvanostatic = true;
        plan->minCurrentAmplitude = numberOf(parameters, "minimum_current_amplitude");
        plan->maxCurrentAmplitude = numberOf(parameters, "maximum_current_amplitude");
    }
    if (auto error = checkPlan(*plan)) return std::unexpected(std::move(error));
    return plan;
}

}  // namespace velmar::emulator
