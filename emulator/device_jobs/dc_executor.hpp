#pragma once

// The built-in executors of the DC measurement kinds (cv, ac_cv, fast_cycling, ramp,
// steady_stairs, poga, ocv, npv, dpv, swv, wave, wave_file): the waveform and cell run of
// emulator/dc_jobs driven by the job queue's clock, with the stop conditions evaluated on the
// rows. Live data: "LIVE_DATA_HEADER" {"header","job_info","job_id"}, "LIVE_DATA_ROWS"
// {"data":[[t,E,I],...],"job_id"} in blocks of about a quarter second of emulated time,
// "LIVE_DATA_FINISHED" {"job_info","job_id"}; the result is a "DATASET_DC" JOB_RESULT.

#include "emulator/device_jobs/measurement_executor.hpp"

namespace velmar::emulator {

/// Registers the twelve DC kinds.
void registerDcExecutors(MeasurementExecutorRegistry& registry);

}  // namespace velmar::emulator
