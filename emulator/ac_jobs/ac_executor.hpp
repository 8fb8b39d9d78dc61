#pragma once

// The executors of the impedance kinds (eis, eis_table, eis_multisine, eis_multisine_table,
// geis_va, geis_va_table): the plan of ac_plan.hpp measured on the emulated cell's
// small-signal impedance at the DC operating point, with the groups of ac_signals.hpp. Live
// data: "LIVE_DATA_HEADER_EIS" at the start; per measurement, while it is measured,
// "LIVE_DATA_WAVES" preview fragments (at most kWaveFragmentSamples samples per path each),
// then one "LIVE_DATA_ROW_EIS" per frequency point; "LIVE_DATA_FINISHED" at the end. The
// result is a "DATASET_AC" JOB_RESULT (ac_result.hpp). docs/protocol.md ("Impedance
// measurements") describes the values.

#include "emulator/device_jobs/measurement_executor.hpp"

#include <cstddef>

namespace velmar::emulator {

inline constexpr std::size_t kWaveFragmentSamples = 1024;

/// Registers the six impedance kinds.
void registerAcExecutors(MeasurementExecutorRegistry& registry);

}  // namespace velmar::emulator
