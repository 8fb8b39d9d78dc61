#include "emulator/waveforms/dc_sampler.hpp"

#include <algorithm>
#include <cmath>

namespace velmar::emulator {

DcSampler::DcSampler(const DcWaveform& waveform, CellModel& cell, CellControlEnum control)
    : waveform_(waveform), cell_(cell), control_(control), rowCount_(waveform.rowCount()) {
    cell_.reset();
}

double DcSampler::apply(double t, double setPoint) {
    time_ = t;
    if (!waveform_.appliesSetPoint()) return lastMeasured_ = cell_.stepGalvanostatic(t, 0.0);
    if (control_ == CellControlEnum::POTENTIOSTATIC) return lastMeasured_ = cell_.stepPotentiostatic(t, setPoint);
    return lastMeasured_ = cell_.stepGalvanostatic(t, setPoint);
}

bool DcSampler::next(Row& row) {
    if (next_ >= rowCount_) return false;
    const double t = static_cast<double>(next_) / waveform_.outputDataRate();
    double setPoint = 0.0;
    if (next_ == 0) {
        setPoint = waveform_.valueAt(0.0);
        apply(0.0, setPoint);
    } else {
        // Follow the curve up to t: kinks and jumps exactly, a sine at its internal step.
        // Boundaries within rounding distance of t count as at t.
        double now = time_;
        const double internal = waveform_.maxInternalStep();
        for (;;) {
            const double boundary = waveform_.nextBoundary(now);
            const double stop = std::min(boundary, now + internal);
            if (stop >= t - 1e-10 - 1e-12 * t) break;
            const double before = waveform_.valueBefore(stop);
            apply(stop, before);
            const double after = waveform_.valueAt(stop);
            if (after != before) apply(stop, after);
            now = stop;
        }
        // The row measures just before a jump that falls on its time; the jump follows.
        setPoint = waveform_.valueBefore(t);
        apply(t, setPoint);
    }
    const double after = waveform_.valueAt(t);
    if (after != setPoint && next_ != 0) {
        const double measured = lastMeasured_;
        apply(t, after);
        lastMeasured_ = measured;
    }
    const double measured = lastMeasured_;
    if (!waveform_.appliesSetPoint()) {
        row = {t, measured, 0.0};
    } else if (control_ == CellControlEnum::POTENTIOSTATIC) {
        row = {t, setPoint, measured};
    } else {
        row = {t, measured, setPoint};
    }
    ++next_;
    return true;
}

}  // namespace velmar::emulator
