#pragma once

// What an impedance job records, from the sampling configuration (set_hardware_settings):
// one impedance group per impedance configuration, one path group per synchronous channel
// (with its recorded waves), one per asynchronous channel, one potentiostat group per output
// potentiostat; and what each channel sees of the emulated cell:
//   - a potentiostat's voltage path (MUX_U, HP ADC_U): the cell potential; its current path
//     (MUX_I, HP ADC_I): the cell current (every potentiostat sits on the same cell, driven by
//     the first output potentiostat);
//   - MUX4 channel n: 1/n of the cell current when the channel's dimension begins with
//     "current", else 1/n of the cell potential;
//   - the auxiliary inputs (ACQ): nothing (0).
// Every value that a path reports has passed through its channel's polynomial; the
// impedance is the quotient of the numerator's and the denominator's small-signal phasors.

#include "json_common/configuration/hardware_info.hpp"
#include "json_common/configuration/hardware_settings.hpp"
#include "json_common/logging/error_object.hpp"
#include "json_common/protocol/live_data_eis.hpp"

#include <complex>
#include <expected>
#include <string>
#include <vector>

namespace velmar::emulator {

struct AcPlan;

/// What a channel measures, as a multiple of the cell potential or current.
struct AcPathSource {
    enum class Quantity { POTENTIAL, CURRENT, NOTHING } quantity = Quantity::NOTHING;
    double scale = 1.0;
    UserPolynomial polynomial;
    /// The highest frequency of each filter range of the path (Hz), ascending.
    std::vector<double> filterRanges;
    std::string unit;

    /// The polynomial at `raw`, and its derivative there.
    double convert(double raw) const;
    double slope(double raw) const;
    /// The highest frequency of the path (0 without filter ranges).
    double maxFrequency() const { return filterRanges.empty() ? 0.0 : filterRanges.back(); }
    /// The index of the filter range used at `frequency`: the first that reaches it.
    std::size_t filterIndex(double frequency) const;
};

struct AcSignals {
    LiveDataHeaderEis header;
    std::vector<AcPathSource> syncSources;   ///< per header.paths
    std::vector<AcPathSource> asyncSources;  ///< per header.async_paths
    /// Per header.impedances: the indices of numerator and denominator in header.paths.
    std::vector<std::pair<std::size_t, std::size_t>> impedancePaths;
};

/// The signals of an impedance job: HARDWARE_CONFIGURATION_ISSUE when no impedance is
/// configured, when an impedance uses a channel that is not sampled synchronously or whose
/// denominator sees nothing, or when a frequency of the plan lies above the filter range of a
/// synchronous path.
std::expected<AcSignals, ErrorObject> acSignals(const HardwareSettings& settings, const HardwareInfo& info,
                                                const AcPlan& plan);

/// The columns of each group, in order (the header of every impedance job).
std::vector<ColumnHeader> acMetaColumns();
std::vector<ColumnHeader> acImpedanceColumns();
std::vector<ColumnHeader> acPathColumns(const std::string& unit);
std::vector<ColumnHeader> acPotentiostatColumns();

}  // namespace velmar::emulator
