#pragma once

#include <complex>
#include <cstdint>
#include <expected>
#include <memory>
#include <random>
#include <string>
#include <string_view>

namespace velmar::emulator {

/// The electrochemical cell behind an emulated potentiostat: pure numerics, no I/O.
///
/// Units are SI: seconds, volts, amperes (anodic current positive). The steps take absolute
/// times that must not decrease. Between the previous call and this one the applied quantity
/// moves linearly from its previous value to the new one; a call at an unchanged time applies
/// a step at once (the returned value is then the instantaneous response). The returned
/// value carries the measurement noise of the model, if configured; the noise is
/// deterministic for a given seed and restarts with reset().
/// Single-threaded.
class CellModel {
public:
    virtual ~CellModel() = default;

    /// Back to the initial state at time 0, resting at the open-circuit potential.
    virtual void reset() = 0;
    /// Applies `potential` at time `t` and returns the measured current.
    virtual double stepPotentiostatic(double t, double potential) = 0;
    /// Applies `current` at time `t` and returns the measured potential.
    virtual double stepGalvanostatic(double t, double current) = 0;
    /// The potential at zero current in the present state.
    virtual double openCircuitPotential() const = 0;
    /// The spec text that rebuilds this model.
    virtual std::string describe() const = 0;

    /// The small-signal impedance (ohm) at angular frequency `omega` (rad/s, positive) about
    /// the steady state in which `biasPotential` (V) is held; a pure function of the model's
    /// parameters (the present state is not used). Infinite parts stand for an open cell.
    virtual std::complex<double> impedance(double omega, double biasPotential) const = 0;
    /// The current (A) that flows in the steady state in which `potential` (V) is held.
    virtual double steadyStateCurrent(double potential) const = 0;
    /// The measurement noise of the model: standard deviations of the current (A) and the
    /// potential (V), and the seed of its sequence.
    struct Noise {
        double current = 0.0;
        double potential = 0.0;
        std::uint64_t seed = 1;
    };
    virtual Noise noise() const = 0;
};

/// Additive white Gaussian noise of a fixed standard deviation; reproducible for a seed
/// (Box-Muller over a 64-bit Mersenne twister, the same on every platform).
class GaussianNoise {
public:
    GaussianNoise(double sigma = 0.0, std::uint64_t seed = 1) : sigma_(sigma), seed_(seed), random_(seed) {}
    void reset();
    double sigma() const { return sigma_; }
    /// `value` plus one noise sample; `value` unchanged when sigma is 0.
    double apply(double value);

private:
    double sigma_;
    std::uint64_t seed_;
    std::mt19937_64 random_;
    double spare_ = 0.0;
    bool haveSpare_ = false;
};

/// Builds a model from a spec "kind:key=value,key=value" (SI units; the concentrations in
/// mol/L). Kinds and keys:
///   resistor: R (ohm, default 1000), noise (A), vnoise (V), seed
///   rc:       Ru in series with R parallel C: R (ohm, "inf" for none; default 1000),
///             C (F, default 1e-6), Ru (ohm, default 0), noise, vnoise, seed
///   randles:  Rs + Cdl || (Rct + W), W the semi-infinite Warburg element sigma (1 - j) / sqrt(omega):
///             Rs (ohm, 10), Rct (ohm, 1000, "inf" for none), Cdl (F, 1e-6), sigma (ohm s^-1/2,
///             0 for none; default 100), Q (F s^(n-1)) and n (0 < n <= 1) to replace Cdl by a
///             constant-phase element 1 / (Q (j omega)^n), noise, vnoise, seed
///   cpe:      randles with the constant-phase element: Q (1e-5), n (0.8), sigma (0) by default
///   redox:    O + n e- <=> R in solution, planar diffusion, Butler-Volmer kinetics:
///             E0 (V, 0.2), n (1), c (bulk O, mol/L, 1e-3), cR (bulk R, mol/L, 0),
///             D (both species, m^2/s, 1e-9) or DO / DR, A (m^2, 7e-6), k0 (m/s, 0.01),
///             alpha (0.5), Cdl (F/m^2, 0.2), Ru (ohm, 0), T (K, 298.15), noise (A),
///             vnoise (V), seed
/// Every kind offers its small-signal impedance (CellModel::impedance), consistent with its
/// time-domain response. An empty spec or a bare kind gives the defaults. Fails with a text naming the offending
/// kind, key or value.
std::expected<std::unique_ptr<CellModel>, std::string> parseCellSpec(std::string_view spec);

}  // namespace velmar::emulator
