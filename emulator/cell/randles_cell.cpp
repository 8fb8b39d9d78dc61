#include "emulator/cell/randles_cell.hpp"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <numbers>

namespace velmar::emulator {

namespace {
/// Range and density of the R-C elements that stand for a fractional element (rad/s).
constexpr double kLowestRate = 1e-8;
constexpr double kHighestRate = 1e10;
constexpr double kElementsPerDecade = 4.0;
constexpr int kMaxSubSteps = 200;
}  // namespace

void RandlesCell::Chain::prepare(double step) {
    h = step;
    decay.resize(tau.size());
    for (std::size_t k = 0; k < tau.size(); ++k) decay[k] = std::exp(-step / tau[k]);
}

double RandlesCell::Chain::offset() const {
    double sum = capacitorVoltage;
    for (std::size_t k = 0; k < v.size(); ++k) sum += v[k] * decay[k];
    return sum;
}

double RandlesCell::Chain::slope() const {
    double sum = resistance + (capacitance > 0.0 ? h / capacitance : 0.0);
    for (std::size_t k = 0; k < r.size(); ++k) sum += r[k] * (1.0 - decay[k]);
    return sum;
}

void RandlesCell::Chain::commit(double current) {
    if (capacitance > 0.0) capacitorVoltage += h * current / capacitance;
    for (std::size_t k = 0; k < v.size(); ++k) v[k] = v[k] * decay[k] + r[k] * (1.0 - decay[k]) * current;
}

void RandlesCell::Chain::clear() {
    capacitorVoltage = 0.0;
    std::fill(v.begin(), v.end(), 0.0);
}

void RandlesCell::addFractional(Chain& chain, double scale, double exponent) {
    const double step = std::numbers::ln10 / kElementsPerDecade;
    const double first = std::log(kLowestRate);
    const int count = static_cast<int>(std::round((std::log(kHighestRate) - first) / step));
    const double factor = scale * std::sin(exponent * std::numbers::pi) / std::numbers::pi * step;
    for (int k = 0; k < count; ++k) {
        const double rate = std::exp(first + (k + 0.5) * step);
        const double weight = factor * std::pow(rate, 1.0 - exponent);  // 1 / C of the element
        chain.tau.push_back(1.0 / rate);
        chain.r.push_back(weight / rate);
        chain.v.push_back(0.0);
    }
}

RandlesCell::RandlesCell(const Parameters& parameters)
    : parameters_(parameters),
      currentNoise_(parameters.currentNoise, parameters.seed),
      potentialNoise_(parameters.potentialNoise, parameters.seed + 1) {
    if (parameters_.cpeExponent < 1.0) {
        addFractional(doubleLayer_, 1.0 / parameters_.cpeCoefficient, parameters_.cpeExponent);
    } else {
        doubleLayer_.capacitance = parameters_.cpeCoefficient > 0.0 ? parameters_.cpeCoefficient : parameters_.capacitance;
    }
    faradaic_.open = std::isinf(parameters_.chargeTransfer);
    faradaic_.resistance = faradaic_.open ? 0.0 : parameters_.chargeTransfer;
    if (parameters_.warburg > 0.0) addFractional(faradaic_, parameters_.warburg * std::numbers::sqrt2, 0.5);
    reset();
}

void RandlesCell::reset() {
    doubleLayer_.clear();
    faradaic_.clear();
    doubleLayer_.prepare(0.0);
    faradaic_.prepare(0.0);
    time_ = 0.0;
    lastInput_ = 0.0;
    lastGalvanostatic_ = false;
    lastCurrent_ = 0.0;
    lastNode_ = 0.0;
    currentNoise_.reset();
    potentialNoise_.reset();
}

// The voltage across the parallel part, which a zero current leaves behind Rs.
double RandlesCell::openCircuitPotential() const { return lastNode_; }

std::string RandlesCell::describe() const {
    const auto& p = parameters_;
    return fmt::format("{}:Rs={},Rct={},Cdl={},Q={},n={},sigma={},noise={},vnoise={},seed={}", p.kind,
                       p.seriesResistance, p.chargeTransfer, p.capacitance, p.cpeCoefficient, p.cpeExponent, p.warburg,
                       p.currentNoise, p.potentialNoise, p.seed);
}

std::complex<double> RandlesCell::impedance(double omega, double) const {
    const auto& p = parameters_;
    const std::complex<double> jw(0.0, omega);
    const std::complex<double> doubleLayer =
        p.cpeExponent < 1.0 ? p.cpeCoefficient * std::pow(jw, p.cpeExponent)
                            : jw * (p.cpeCoefficient > 0.0 ? p.cpeCoefficient : p.capacitance);
    std::complex<double> faradaic = 0.0;
    if (!std::isinf(p.chargeTransfer)) {
        faradaic = 1.0 / (p.chargeTransfer + p.warburg * std::complex<double>(1.0, -1.0) / std::sqrt(omega));
    }
    return p.seriesResistance + 1.0 / (doubleLayer + faradaic);
}

double RandlesCell::steadyStateCurrent(double potential) const {
    if (parameters_.warburg > 0.0 || std::isinf(parameters_.chargeTransfer)) return 0.0;
    return potential / (parameters_.seriesResistance + parameters_.chargeTransfer);
}

CellModel::Noise RandlesCell::noise() const {
    return {parameters_.currentNoise, parameters_.potentialNoise, parameters_.seed};
}

double RandlesCell::stepPotentiostatic(double t, double potential) {
    return currentNoise_.apply(advance(t, potential, false));
}

double RandlesCell::stepGalvanostatic(double t, double current) {
    return potentialNoise_.apply(advance(t, current, true));
}

// Sub-steps of at most a quarter of the time constant Rs x double layer (the fastest one of
// the circuit), at most kMaxSubSteps per call.
int RandlesCell::subSteps(double dt) const {
    const auto& p = parameters_;
    const double coefficient = p.cpeCoefficient > 0.0 ? p.cpeCoefficient : p.capacitance;
    const double tau = p.cpeExponent < 1.0 ? std::pow(p.seriesResistance * coefficient, 1.0 / p.cpeExponent)
                                           : p.seriesResistance * coefficient;
    if (!(tau > 0.0)) return 1;
    return static_cast<int>(std::clamp(std::ceil(dt / (0.25 * tau)), 1.0, double(kMaxSubSteps)));
}

double RandlesCell::advance(double t, double target, bool galvanostatic) {
    if (galvanostatic != lastGalvanostatic_) {
        // Continue from the present state in the other quantity.
        lastInput_ = galvanostatic ? lastCurrent_ : lastNode_ + parameters_.seriesResistance * lastCurrent_;
        lastGalvanostatic_ = galvanostatic;
    }
    const double dt = t - time_;
    double result = 0.0;
    if (!(dt > 0.0)) {
        // A step at an unchanged time: the elements are charged by what flows in a moment.
        result = subStep(1e-12, target, galvanostatic);
    } else {
        const int steps = subSteps(dt);
        for (int k = 1; k <= steps; ++k) {
            const double input = lastInput_ + (target - lastInput_) * k / steps;
            result = subStep(dt / steps, input, galvanostatic);
        }
        time_ = t;
    }
    lastInput_ = target;
    return result;
}

double RandlesCell::subStep(double h, double target, bool galvanostatic) {
    doubleLayer_.prepare(h);
    faradaic_.prepare(h);
    const double a1 = doubleLayer_.offset();
    const double b1 = doubleLayer_.slope();
    double conductance = 1.0 / b1;
    double source = a1 / b1;
    double a2 = 0.0, b2 = 1.0;
    if (!faradaic_.open) {
        a2 = faradaic_.offset();
        b2 = faradaic_.slope();
        conductance += 1.0 / b2;
        source += a2 / b2;
    }
    // Branch currents (v - a) / b add up to i = G v - J; the applied potential is Rs i + v.
    const double rs = parameters_.seriesResistance;
    double node = 0.0;
    double current = 0.0;
    if (galvanostatic) {
        current = target;
        node = (current + source) / conductance;
    } else {
        node = (target + rs * source) / (1.0 + rs * conductance);
        current = conductance * node - source;
    }
    doubleLayer_.commit((node - a1) / b1);
    if (!faradaic_.open) faradaic_.commit((node - a2) / b2);
    lastNode_ = node;
    lastCurrent_ = current;
    return galvanostatic ? node + rs * current : current;
}

}  // namespace velmar::emulator
