#pragma once

// The limits of the emulated RQ5, as a real instrument has them. Every job is checked against
// them before anything is computed or allocated for it, so that one request cannot make the
// emulator work or allocate without bound. docs/protocol.md ("Validation") lists them.

namespace velmar::emulator::limits {

/// Set-points of the DC kinds (V, or A with a galvanostatically switched-on potentiostat).
inline constexpr double kSetPoint = 10.0;
/// "current_range" (A): the largest current range.
inline constexpr double kCurrentRange = 1.0;
/// "ir_drop" (Ohm).
inline constexpr double kIrDrop = 1e6;
inline constexpr double kMinScanRate = 1e-6;
inline constexpr double kMaxScanRate = 1000.0;
inline constexpr double kMinOutputDataRate = 1e-3;
inline constexpr double kMaxOutputDataRate = 10000.0;
/// "num_cycles" of cv, ac_cv and fast_cycling.
inline constexpr double kMaxCycles = 100000.0;
/// The smallest potential step ("step_height", "step_value"; "step_height" 0 means a
/// continuous sweep).
inline constexpr double kMinStep = 1e-6;
/// The shortest time of a step, pulse or period (s).
inline constexpr double kMinStepTime = 1e-4;
/// The longest job: one week of the emulated clock (s).
inline constexpr double kMaxJobSeconds = 7.0 * 86400.0;
/// Rows of one measurement.
inline constexpr double kMaxPoints = 10'000'000.0;
/// Straight pieces of the set-point curve over a whole run (steps, pulses, wave values times
/// repetitions, and the internal steps that follow a superimposed sine).
inline constexpr double kMaxSteps = 10'000'000.0;
/// Pieces held in memory for one period of the set-point curve.
inline constexpr double kMaxPeriodSteps = 1'000'000.0;
/// Values of a "wave" and repetitions of a wave.
inline constexpr double kMaxWaveValues = 1'000'000.0;
inline constexpr double kMaxRepetitions = 100000.0;
/// "value_rate" of the wave kinds (Hz).
inline constexpr double kMaxValueRate = 100000.0;
/// Frequency of the ac_cv sine (Hz).
inline constexpr double kMaxSineFrequency = 10000.0;
/// Frequencies of the impedance kinds (Hz).
inline constexpr double kMinFrequency = 1e-5;
inline constexpr double kMaxFrequency = 1e7;
/// Points per decade of a generated spectrum and points of a spectrum table.
inline constexpr double kMaxPointsPerDecade = 100.0;
inline constexpr double kMaxSpectrumPoints = 10000.0;
/// Waves of a frequency point (pre and measurement waves, multisine waves).
inline constexpr double kMaxWaves = 100000.0;

}  // namespace velmar::emulator::limits
