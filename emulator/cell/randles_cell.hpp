#pragma once

#include "emulator/cell/cell_model.hpp"

#include <vector>

namespace velmar::emulator {

/// The Randles circuit: Rs in series with the double layer in parallel with the faradaic
/// branch Rct + W, where W is the semi-infinite Warburg element sigma (1 - j) / sqrt(omega).
/// The double layer is a capacitor Cdl or, with n < 1, a constant-phase element
/// 1 / (Q (j omega)^n).
///
/// impedance() is the closed form. In the time domain the fractional elements (the Warburg
/// element, s^-1/2, and the constant-phase element, s^-n) are sums of parallel R-C elements
/// in series, from s^-v = sin(v pi) / pi * integral over x > 0 of x^-v / (s + x) dx sampled
/// at four points per decade of x between 1e-8 and 1e10 rad/s; each step integrates every
/// element exactly for a current held over the sub-step, which makes the branch voltages
/// linear in the branch currents, so that the circuit is solved in closed form per sub-step.
class RandlesCell final : public CellModel {
public:
    struct Parameters {
        double seriesResistance = 10.0;     ///< Rs, ohm
        double chargeTransfer = 1000.0;     ///< Rct, ohm; infinity for a blocking electrode
        double capacitance = 1e-6;          ///< Cdl, F (used when exponent is 1)
        double cpeCoefficient = 0.0;        ///< Q, F s^(n-1) (used when exponent < 1)
        double cpeExponent = 1.0;           ///< n, 0 < n <= 1
        double warburg = 100.0;             ///< sigma, ohm s^-1/2; 0 for none
        double currentNoise = 0.0;
        double potentialNoise = 0.0;
        std::uint64_t seed = 1;
        /// "randles" or "cpe": the kind that describe() writes.
        std::string kind = "randles";
    };
    explicit RandlesCell(const Parameters& parameters);

    void reset() override;
    double stepPotentiostatic(double t, double potential) override;
    double stepGalvanostatic(double t, double current) override;
    double openCircuitPotential() const override;
    std::string describe() const override;
    std::complex<double> impedance(double omega, double biasPotential) const override;
    /// potential / (Rs + Rct) without a Warburg element, else zero (diffusion blocks it).
    double steadyStateCurrent(double potential) const override;
    Noise noise() const override;

private:
    /// Elements in series through which one current flows: a resistor, an optional
    /// capacitor and parallel R-C elements. Over a sub-step of length h with the current i
    /// held, its voltage at the end is offset() + slope() i.
    struct Chain {
        double resistance = 0.0;
        double capacitance = 0.0;  ///< 0: none
        std::vector<double> r, tau, v, decay;
        double capacitorVoltage = 0.0;
        double h = 0.0;
        bool open = false;  ///< no current can flow (infinite resistance)

        void prepare(double step);
        double offset() const;
        double slope() const;
        void commit(double current);
        void clear();
    };
    /// Adds the R-C elements of scale * s^-exponent to `chain`.
    static void addFractional(Chain& chain, double scale, double exponent);

    double advance(double t, double target, bool galvanostatic);
    double subStep(double h, double target, bool galvanostatic);
    int subSteps(double dt) const;

    Parameters parameters_;
    Chain doubleLayer_;
    Chain faradaic_;
    GaussianNoise currentNoise_;
    GaussianNoise potentialNoise_;
    double time_ = 0.0;
    double lastInput_ = 0.0;
    bool lastGalvanostatic_ = false;
    double lastCurrent_ = 0.0;
    double lastNode_ = 0.0;  ///< voltage across the parallel part
};

}  // namespace velmar::emulator
