#pragma once

#include "emulator/cell/cell_model.hpp"
#include "emulator/waveforms/dc_waveform.hpp"

#include <array>
#include <cstddef>

namespace velmar::emulator {

/// Which quantity the potentiostat imposes.
enum class CellControlEnum { POTENTIOSTATIC, GALVANOSTATIC };

/// Drives a cell with a DC waveform and yields the rows [time, voltage, current] that the
/// workstation streams, at the waveform's output data rate. Between rows the cell is also
/// stepped at every kink and jump of the set-point (jumps applied exactly) and, for a
/// superimposed sine, at the waveform's internal step. The waveform and the cell must
/// outlive the sampler. Single-threaded.
class DcSampler {
public:
    using Row = std::array<double, 3>;

    /// Resets the cell.
    DcSampler(const DcWaveform& waveform, CellModel& cell, CellControlEnum control);

    std::size_t rowCount() const { return rowCount_; }
    std::size_t rowsDone() const { return next_; }
    /// The next row; false when every row has been produced.
    bool next(Row& row);

private:
    double apply(double t, double setPoint);

    const DcWaveform& waveform_;
    CellModel& cell_;
    CellControlEnum control_;
    std::size_t rowCount_;
    std::size_t next_ = 0;
    double time_ = 0.0;
    double lastMeasured_ = 0.0;
};

}  // namespace velmar::emulator
