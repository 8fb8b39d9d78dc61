#include "emulator/cell/simple_cells.hpp"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace velmar::emulator {

ResistorCell::ResistorCell(const Parameters& parameters)
    : parameters_(parameters),
      currentNoise_(parameters.currentNoise, parameters.seed),
      potentialNoise_(parameters.potentialNoise, parameters.seed + 1) {}

void ResistorCell::reset() {
    currentNoise_.reset();
    potentialNoise_.reset();
}

double ResistorCell::stepPotentiostatic(double, double potential) {
    return currentNoise_.apply(potential / parameters_.resistance);
}

double ResistorCell::stepGalvanostatic(double, double current) {
    return potentialNoise_.apply(current * parameters_.resistance);
}

std::string ResistorCell::describe() const {
    return fmt::format("resistor:R={},noise={},vnoise={},seed={}", parameters_.resistance, parameters_.currentNoise,
                       parameters_.potentialNoise, parameters_.seed);
}

std::complex<double> ResistorCell::impedance(double, double) const { return parameters_.resistance; }

double ResistorCell::steadyStateCurrent(double potential) const { return potential / parameters_.resistance; }

CellModel::Noise ResistorCell::noise() const {
    return {parameters_.currentNoise, parameters_.potentialNoise, parameters_.seed};
}

RcCell::RcCell(const Parameters& parameters)
    : parameters_(parameters),
      currentNoise_(parameters.currentNoise, parameters.seed),
      potentialNoise_(parameters.potentialNoise, parameters.seed + 1) {}

void RcCell::reset() {
    time_ = 0.0;
    capacitorVoltage_ = 0.0;
    lastInput_ = 0.0;
    lastGalvanostatic_ = false;
    lastCurrent_ = 0.0;
    currentNoise_.reset();
    potentialNoise_.reset();
}

namespace {
/// Sub-steps so that each is at most a twentieth of the time constant (at most 1000).
int subSteps(double dt, double tau) {
    if (!(tau > 0.0) || std::isinf(tau)) return 1;
    return static_cast<int>(std::clamp(std::ceil(dt / (tau / 20.0)), 1.0, 1000.0));
}
}  // namespace

double RcCell::stepPotentiostatic(double t, double potential) {
    const double r = parameters_.resistance;
    const double c = parameters_.capacitance;
    const double ru = parameters_.seriesResistance;
    const double dt = t - time_;
    if (lastGalvanostatic_) {
        lastInput_ = capacitorVoltage_ + ru * lastCurrent_;
        lastGalvanostatic_ = false;
    }
    double current = 0.0;
    if (ru == 0.0) {
        // The capacitor follows the applied potential; its current is C dE/dt.
        const double slope = dt > 0.0 ? (potential - capacitorVoltage_) / dt : 0.0;
        capacitorVoltage_ = potential;
        current = potential / r + c * slope;
    } else if (dt <= 0.0) {
        current = (potential - capacitorVoltage_) / ru;
    } else {
        // dv/dt = (E/Ru - v (1/Ru + 1/R)) / C, integrated exactly for E moving linearly over
        // each sub-step: with the target a + b t (a = E/(Ru g), b its slope), the solution is
        // a + b (t - tau) + (v0 - a + b tau) exp(-t / tau).
        const double g = 1.0 / ru + 1.0 / r;
        const double tau = c / g;
        const int steps = subSteps(dt, tau);
        const double h = dt / steps;
        const double decay = std::exp(-h / tau);
        const double slope = (potential - lastInput_) / dt / (ru * g);
        for (int k = 0; k < steps; ++k) {
            const double target = (lastInput_ + (potential - lastInput_) * k / steps) / (ru * g);
            capacitorVoltage_ = target + slope * (h - tau) + (capacitorVoltage_ - target + slope * tau) * decay;
        }
        current = (potential - capacitorVoltage_) / ru;
    }
    time_ = std::max(time_, t);
    lastInput_ = potential;
    lastCurrent_ = current;
    return currentNoise_.apply(current);
}

double RcCell::stepGalvanostatic(double t, double current) {
    const double r = parameters_.resistance;
    const double c = parameters_.capacitance;
    const double dt = t - time_;
    if (!lastGalvanostatic_) {
        lastInput_ = lastCurrent_;
        lastGalvanostatic_ = true;
    }
    if (dt > 0.0) {
        // dv/dt = (I - v/R) / C.
        const double tau = r * c;
        const int steps = subSteps(dt, tau);
        const double h = dt / steps;
        for (int k = 1; k <= steps; ++k) {
            const double applied = lastInput_ + (current - lastInput_) * k / steps;
            if (std::isinf(r)) {
                capacitorVoltage_ += applied * h / c;
            } else {
                const double target = applied * r;
                capacitorVoltage_ = target + (capacitorVoltage_ - target) * std::exp(-h / tau);
            }
        }
    }
    time_ = std::max(time_, t);
    lastInput_ = current;
    lastCurrent_ = current;
    return potentialNoise_.apply(capacitorVoltage_ + current * parameters_.seriesResistance);
}

std::string RcCell::describe() const {
    return fmt::format("rc:R={},C={},Ru={},noise={},vnoise={},seed={}", parameters_.resistance,
                       parameters_.capacitance, parameters_.seriesResistance, parameters_.currentNoise,
                       parameters_.potentialNoise, parameters_.seed);
}

// Ru + R || C; without R (infinite) Ru + 1 / (j omega C).
std::complex<double> RcCell::impedance(double omega, double) const {
    const std::complex<double> admittance(std::isinf(parameters_.resistance) ? 0.0 : 1.0 / parameters_.resistance,
                                          omega * parameters_.capacitance);
    return parameters_.seriesResistance + 1.0 / admittance;
}

double RcCell::steadyStateCurrent(double potential) const {
    return std::isinf(parameters_.resistance) ? 0.0 : potential / (parameters_.resistance + parameters_.seriesResistance);
}

CellModel::Noise RcCell::noise() const { return {parameters_.currentNoise, parameters_.potentialNoise, parameters_.seed}; }

}  // namespace velmar::emulator
