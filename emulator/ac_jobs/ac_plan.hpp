#pragma once

// What an impedance job measures, worked out from its parameters before anything runs: the
// frequency grid, the excitations (single sines and multisines) with their timing, and what
// the job costs. No hardware state is needed; the sampling configuration is checked by
// ac_signals.hpp.

#include "json_common/logging/error_object.hpp"

#include <boost/json/fwd.hpp>

#include <cstddef>
#include <expected>
#include <string_view>
#include <vector>

namespace velmar::emulator {

/// The generated frequency grid. With x = log10(f), xc = log10(66 Hz) and the density d(x)
/// (points per decade) = upper for x >= xc, and for x < xc
///     d(x) = lower + (upper - lower) (x - log10(min)) / (xc - log10(min)),
/// the grid is: the start frequency; then upwards the points x' = x + 1/d(x) while x' stays at
/// or below log10(max), then the maximum itself unless the last point already is it (within
/// 1e-9 decades, in which case it is replaced by the exact maximum); then below the start,
/// the points x' = x - 1/d(x) down to the minimum in the same way. Within a run of points at
/// or above xc the points are computed from the run's first point a as a + k/upper (not by
/// summing steps), so that for example 10 kHz to 1 MHz at 20 per decade gives exactly
/// 10^(4 + k/20).
struct FrequencyGridSpec {
    double minFrequency = 100.0;
    double maxFrequency = 1e6;
    double startFrequency = 1e4;
    int pointsPerDecadeUpper = 20;
    int pointsPerDecadeLower = 5;
};
inline constexpr double kGridCornerFrequency = 66.0;
/// The grid in measurement order. Requires min <= start <= max and densities >= 1.
std::vector<double> generateFrequencyGrid(const FrequencyGridSpec& spec);

/// One row of the result.
struct AcPoint {
    double frequency = 0.0;  ///< Hz
    /// Excitation amplitude at this frequency: V (potentiostatic), or for GEIS VA the voltage
    /// amplitude that the current amplitude is chosen for.
    double amplitude = 0.0;
    unsigned harmonic = 1;  ///< of the measurement's fundamental
};

/// One excitation, a single sine (one point, harmonic 1) or a multisine (its points are
/// harmonics of the fundamental); the rows of one measurement share its wave. The point takes
/// prePeriods + measPeriods periods of the fundamental; its wave records the first
/// wavePeriods measured periods at samplesPerPeriod samples each.
struct AcMeasurement {
    double fundamental = 0.0;
    double prePeriods = 0.0;
    double measPeriods = 1.0;
    std::vector<AcPoint> points;
    std::size_t samplesPerPeriod = 64;
    std::size_t wavePeriods = 1;

    std::size_t waveSize() const { return samplesPerPeriod * wavePeriods; }
    double seconds() const { return (prePeriods + measPeriods) / fundamental; }
    double preSeconds() const { return prePeriods / fundamental; }
};

/// Samples per period of a single sine, and the bound of samples per recorded wave: a wave
/// holds max(64, 8 x highest harmonic) samples per period of the fundamental and at most
/// kMaxWaveSamples samples (so the highest harmonic is at most kMaxWaveSamples / 8).
inline constexpr std::size_t kSamplesPerPeriod = 64;
inline constexpr std::size_t kMaxWaveSamples = 1024;
inline constexpr unsigned kMaxHarmonic = kMaxWaveSamples / 8;
/// Bound of the values of one result (columns of every row and the waves, which the result
/// repeats for each row that shares them): 32 Mi values, 256 MiB; a full table of 10000
/// points with two sync paths fits.
inline constexpr double kMaxResultValues = 32.0 * 1024 * 1024;

struct AcPlan {
    bool galvanostatic = false;
    bool multisine = false;
    /// False for a multisine job with "multisine_wave_in_result" false: rows carry no wave.
    bool waveInResult = true;
    /// V, or A for the galvanostatic kinds.
    double bias = 0.0;
    double minCurrentAmplitude = 0.0;
    double maxCurrentAmplitude = 0.0;
    std::vector<AcMeasurement> measurements;

    std::size_t rowCount() const;
    double seconds() const;
    double highestFrequency() const;
};

/// The plan of an impedance job from its "parameters" (keys and ranges checked by the
/// catalogue): PARAMETER_VALUE_TOO_LOW / _TOO_HIGH for an empty spectrum ("points"), a
/// maximum below the minimum frequency, a start frequency outside them, amplitudes that are
/// zero or leave the output range, GEIS current amplitudes out of order or range, a multisine
/// harmonic above kMaxHarmonic, and a run longer than a week ("duration").
std::expected<AcPlan, ErrorObject> planAcJob(std::string_view type, const boost::json::object& parameters);

}  // namespace velmar::emulator
