#include "emulator/cell/redox_cell.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <fmt/format.h>

namespace velmar::emulator {

namespace {

constexpr double FARADAY = 96485.33212;  // C/mol
constexpr double GAS_CONSTANT = 8.314462618;  // J/(mol K)
constexpr double LITRE_TO_CUBIC_METRE = 1000.0;  // mol/L -> mol/m^3
/// Shortest diffusion time resolved near the electrode, and longest experiment covered by
/// the grid, in seconds.
constexpr double SHORTEST_TIME = 1e-6;
constexpr double LONGEST_TIME = 1e4;
constexpr double GRID_GROWTH = 1.03;
/// Largest potential change per sub-step, in units of RT/nF.
constexpr double MAX_REDUCED_POTENTIAL_STEP = 0.01;
/// After a jump, each sub-step is at most this fraction of the time since the jump.
constexpr double JUMP_RESOLUTION = 0.05;
constexpr double MIN_SUB_STEP = 1e-8;
/// The electrode potential is sought within this distance of E0 (solvent window).
constexpr double POTENTIAL_WINDOW = 5.0;

double boundedExp(double x) { return std::exp(std::clamp(x, -300.0, 300.0)); }

/// Root of an increasing function on [lo, hi]; the nearer bound when there is none.
template <class F>
double solveIncreasing(F&& function, double guess, double lo, double hi) {
    guess = std::clamp(guess, lo, hi);
    double a = std::max(lo, guess - 0.01);
    double b = std::min(hi, guess + 0.01);
    double fa = function(a);
    double fb = function(b);
    for (double width = 0.02; fa > 0.0 && a > lo; width *= 2.0) {
        b = a;
        fb = fa;
        a = std::max(lo, a - width);
        fa = function(a);
    }
    for (double width = 0.02; fb < 0.0 && b < hi; width *= 2.0) {
        a = b;
        fa = fb;
        b = std::min(hi, b + width);
        fb = function(b);
    }
    if (fa > 0.0) return a;
    if (fb < 0.0) return b;
    // Newton steps kept inside the bracket, bisection when a step leaves it.
    double x = fa == fb ? 0.5 * (a + b) : a - fa * (b - a) / (fb - fa);
    for (int i = 0; i < 100 && b - a > 1e-13; ++i) {
        const double fx = function(x);
        if (fx == 0.0) return x;
        (fx < 0.0 ? a : b) = x;
        const double h = 1e-9;
        const double slope = (function(x + h) - fx) / h;
        double next = slope > 0.0 ? x - fx / slope : 0.5 * (a + b);
        if (!(next > a && next < b)) next = 0.5 * (a + b);
        if (std::abs(next - x) < 1e-14) return next;
        x = next;
    }
    return x;
}

}  // namespace

RedoxCell::RedoxCell(const Parameters& parameters)
    : parameters_(parameters),
      f_(parameters.electrons * FARADAY / (GAS_CONSTANT * parameters.temperature)),
      nFA_(parameters.electrons * FARADAY * parameters.area),
      currentNoise_(parameters.currentNoise, parameters.seed),
      potentialNoise_(parameters.potentialNoise, parameters.seed + 1) {
    const double diffusion = std::max(parameters.diffusionOxidised, parameters.diffusionReduced);
    const double first = std::sqrt(diffusion * SHORTEST_TIME);
    const double length = 6.0 * std::sqrt(diffusion * LONGEST_TIME);
    for (double x = 0.0, h = first; x < length; x += h, h *= GRID_GROWTH) spacing_.push_back(h);
    const std::size_t nodes = spacing_.size() + 1;
    volume_.resize(nodes - 1);
    volume_[0] = 0.5 * spacing_[0];
    for (std::size_t i = 1; i + 1 < nodes; ++i) volume_[i] = 0.5 * (spacing_[i - 1] + spacing_[i]);
    reset();
}

void RedoxCell::reset() {
    const std::size_t nodes = spacing_.size() + 1;
    oxidised_.assign(nodes, parameters_.bulkOxidised * LITRE_TO_CUBIC_METRE);
    reduced_.assign(nodes, parameters_.bulkReduced * LITRE_TO_CUBIC_METRE);
    time_ = 0.0;
    lastJump_ = 0.0;
    electrodePotential_ = openCircuitPotential();
    lastInput_ = electrodePotential_;
    lastControl_ = Control::POTENTIAL;
    lastCurrent_ = 0.0;
    currentNoise_.reset();
    potentialNoise_.reset();
}

double RedoxCell::openCircuitPotential() const {
    const double o = oxidised_.front();
    const double r = reduced_.front();
    if (o <= 0.0 && r <= 0.0) return parameters_.formalPotential;
    const double ratio = std::clamp(o / std::max(r, 1e-300), 1e-6, 1e6);
    return parameters_.formalPotential + std::log(ratio) / f_;
}

std::string RedoxCell::describe() const {
    const auto& p = parameters_;
    return fmt::format("redox:E0={},n={},c={},cR={},DO={},DR={},A={},k0={},alpha={},Cdl={},Ru={},T={},noise={},"
                       "vnoise={},seed={}",
                       p.formalPotential, p.electrons, p.bulkOxidised, p.bulkReduced, p.diffusionOxidised,
                       p.diffusionReduced, p.area, p.rateConstant, p.transferCoefficient, p.doubleLayerCapacitance,
                       p.uncompensatedResistance, p.temperature, p.currentNoise, p.potentialNoise, p.seed);
}

double RedoxCell::stepPotentiostatic(double t, double potential) {
    return currentNoise_.apply(advance(t, potential, Control::POTENTIAL));
}

double RedoxCell::stepGalvanostatic(double t, double current) {
    return potentialNoise_.apply(advance(t, current, Control::CURRENT));
}

double RedoxCell::flux(double electrodePotential, double aO, double bO, double aR, double bR) const {
    const double eta = electrodePotential - parameters_.formalPotential;
    const double alpha = parameters_.transferCoefficient;
    const double kf = parameters_.rateConstant * boundedExp(-alpha * f_ * eta);
    const double kb = parameters_.rateConstant * boundedExp((1.0 - alpha) * f_ * eta);
    return (kf * aO - kb * aR) / (1.0 + kf * bO + kb * bR);
}

double RedoxCell::faradaicCurrent(double fluxValue) const { return -nFA_ * fluxValue; }

double RedoxCell::advance(double t, double target, Control control) {
    const double ru = parameters_.uncompensatedResistance;
    if (control != lastControl_) {
        // Continue from the present state in the other quantity.
        lastInput_ = control == Control::CURRENT ? lastCurrent_ : electrodePotential_ + ru * lastCurrent_;
        lastControl_ = control;
    }
    const double dt = t - time_;
    if (!(dt > 0.0)) {
        // A step at an unchanged time: the double layer cannot follow at once.
        lastInput_ = target;
        lastJump_ = time_;
        if (control == Control::CURRENT) {
            lastCurrent_ = target;
            return electrodePotential_ + ru * target;
        }
        if (ru > 0.0 && parameters_.doubleLayerCapacitance > 0.0) {
            lastCurrent_ = (target - electrodePotential_) / ru;
        } else {
            electrodePotential_ = target - ru * lastCurrent_;
            lastCurrent_ = faradaicCurrent(flux(electrodePotential_, oxidised_.front(), 0.0, reduced_.front(), 0.0));
        }
        return lastCurrent_;
    }

    const double start = lastInput_;
    double result = 0.0;
    double now = time_;
    const double rate = std::abs(target - start) / dt;
    while (now < t) {
        double h = t - now;
        h = std::min(h, std::max(MIN_SUB_STEP, JUMP_RESOLUTION * (now - lastJump_)));
        if (control == Control::POTENTIAL && rate > 0.0) h = std::min(h, MAX_REDUCED_POTENTIAL_STEP / (f_ * rate));
        // Equal pieces up to the end of the call, without a sliver at the end.
        const double remaining = t - now;
        const double pieces = std::ceil(remaining / h - 1e-9);
        h = pieces <= 1.0 ? remaining : remaining / pieces;
        const double next = pieces <= 1.0 ? t : now + h;
        const double input = start + (target - start) * ((next - time_) / dt);
        result = subStep(next - now, input, control);
        now = next;
    }
    time_ = t;
    lastInput_ = target;
    return result;
}

void RedoxCell::solve(const std::vector<double>& old, double bulk, double diffusion, double dt,
                      std::vector<double>& base, std::vector<double>& unit) {
    // Nodes 0..N-1 are unknown, node N holds the bulk value. Thomas algorithm for the two
    // right-hand sides: the step without surface flux, and a unit flux out of node 0.
    const std::size_t n = spacing_.size();
    base.resize(n + 1);
    unit.resize(n + 1);
    scratch_.resize(n);
    auto& upperPrime = scratch_;
    double previousUpper = 0.0;
    double previousBase = 0.0;
    double previousUnit = 0.0;
    for (std::size_t i = 0; i < n; ++i) {
        const double right = diffusion / spacing_[i];
        const double left = i == 0 ? 0.0 : diffusion / spacing_[i - 1];
        const double diagonal = volume_[i] / dt + left + right;
        double rhsBase = volume_[i] / dt * old[i];
        double rhsUnit = i == 0 ? 1.0 : 0.0;
        if (i + 1 == n) rhsBase += right * bulk;
        const double lower = -left;
        const double denominator = diagonal - lower * previousUpper;
        upperPrime[i] = i + 1 == n ? 0.0 : -right / denominator;
        base[i] = (rhsBase - lower * previousBase) / denominator;
        unit[i] = (rhsUnit - lower * previousUnit) / denominator;
        previousUpper = upperPrime[i];
        previousBase = base[i];
        previousUnit = unit[i];
    }
    for (std::size_t i = n - 1; i-- > 0;) {
        base[i] -= upperPrime[i] * base[i + 1];
        unit[i] -= upperPrime[i] * unit[i + 1];
    }
    base[n] = bulk;
    unit[n] = 0.0;
}

double RedoxCell::subStep(double dt, double target, Control control) {
    auto& s = step_;
    solve(oxidised_, parameters_.bulkOxidised * LITRE_TO_CUBIC_METRE, parameters_.diffusionOxidised, dt, s.baseO,
          s.unitO);
    solve(reduced_, parameters_.bulkReduced * LITRE_TO_CUBIC_METRE, parameters_.diffusionReduced, dt, s.baseR,
          s.unitR);
    const double aO = s.baseO[0], bO = s.unitO[0], aR = s.baseR[0], bR = s.unitR[0];
    const double capacitance = parameters_.doubleLayerCapacitance * parameters_.area;
    const double ru = parameters_.uncompensatedResistance;
    const double previous = electrodePotential_;
    const auto totalCurrent = [&](double e) {
        return faradaicCurrent(flux(e, aO, bO, aR, bR)) + capacitance * (e - previous) / dt;
    };
    const double lo = parameters_.formalPotential - POTENTIAL_WINDOW;
    const double hi = parameters_.formalPotential + POTENTIAL_WINDOW;
    double electrode = 0.0;
    double current = 0.0;
    double measured = 0.0;
    if (control == Control::POTENTIAL) {
        if (ru == 0.0) {
            electrode = target;
        } else {
            electrode = solveIncreasing([&](double e) { return e + ru * totalCurrent(e) - target; }, previous,
                                        std::min(lo, target), std::max(hi, target));
        }
        current = totalCurrent(electrode);
        measured = current;
    } else {
        electrode = solveIncreasing([&](double e) { return totalCurrent(e) - target; }, previous, lo, hi);
        current = target;
        measured = electrode + ru * target;
    }
    const double j = flux(electrode, aO, bO, aR, bR);
    for (std::size_t i = 0; i < oxidised_.size(); ++i) {
        oxidised_[i] = std::max(0.0, s.baseO[i] - j * s.unitO[i]);
        reduced_[i] = std::max(0.0, s.baseR[i] + j * s.unitR[i]);
    }
    electrodePotential_ = electrode;
    lastCurrent_ = current;
    return measured;
}

std::pair<double, double> RedoxCell::steadySurfaceConcentrations(double potential) const {
    const double o = parameters_.bulkOxidised * LITRE_TO_CUBIC_METRE;
    const double r = parameters_.bulkReduced * LITRE_TO_CUBIC_METRE;
    const double so = std::sqrt(parameters_.diffusionOxidised);
    const double sr = std::sqrt(parameters_.diffusionReduced);
    // cO / cR = theta (Nernst) and so cO + sr cR = so o + sr r (what one species loses at the
    // surface the other gains); written so that neither a huge nor a tiny theta overflows.
    const double x = std::clamp(f_ * (potential - parameters_.formalPotential), -700.0, 700.0);
    const double conserved = so * o + sr * r;
    if (x > 0.0) {
        const double cO = conserved / (sr * std::exp(-x) + so);
        return {cO, cO * std::exp(-x)};
    }
    const double cR = conserved / (sr + so * std::exp(x));
    return {cR * std::exp(x), cR};
}

double RedoxCell::chargeTransferResistance(double potential) const {
    const auto [cO, cR] = steadySurfaceConcentrations(potential);
    const double alpha = parameters_.transferCoefficient;
    const double exchange = nFA_ * parameters_.rateConstant * std::pow(cO, 1.0 - alpha) * std::pow(cR, alpha);
    return exchange > 0.0 ? 1.0 / (f_ * exchange) : std::numeric_limits<double>::infinity();
}

std::complex<double> RedoxCell::impedance(double omega, double biasPotential) const {
    const auto [cO, cR] = steadySurfaceConcentrations(biasPotential);
    const double rct = chargeTransferResistance(biasPotential);
    std::complex<double> faradaicAdmittance = 0.0;
    if (std::isfinite(rct) && cO > 0.0 && cR > 0.0) {
        const double warburg = (1.0 / (std::sqrt(parameters_.diffusionOxidised) * cO) +
                                1.0 / (std::sqrt(parameters_.diffusionReduced) * cR)) /
                               (f_ * nFA_);
        const std::complex<double> faradaic = rct + warburg / std::sqrt(std::complex<double>(0.0, omega));
        faradaicAdmittance = 1.0 / faradaic;
    }
    const std::complex<double> admittance =
        faradaicAdmittance + std::complex<double>(0.0, omega * parameters_.doubleLayerCapacitance * parameters_.area);
    if (admittance == 0.0) return {std::numeric_limits<double>::infinity(), 0.0};
    return parameters_.uncompensatedResistance + 1.0 / admittance;
}

CellModel::Noise RedoxCell::noise() const {
    return {parameters_.currentNoise, parameters_.potentialNoise, parameters_.seed};
}

}  // namespace velmar::emulator
