#pragma once

#include "emulator/cell/cell_model.hpp"

#include <utility>
#include <vector>

namespace velmar::emulator {

/// A redox couple O + n e- <=> R in quiescent solution at a planar electrode.
///
/// Both species diffuse (Fick's second law) on an expanding grid (node spacing growing
/// geometrically from the electrode, reaching six diffusion lengths of 10^4 s); each time
/// step is implicit (backward Euler, finite volumes). The electrode boundary carries
/// Butler-Volmer kinetics; because the discrete concentrations are linear in the surface
/// flux, the flux follows in closed form for a given electrode potential, and the
/// electrode potential behind the uncompensated resistance (E_applied = E_electrode +
/// Ru * I) and the double-layer charging current Cdl * A * dE_electrode/dt are solved
/// implicitly by a safeguarded Newton iteration on that scalar. Steps are subdivided so that
/// the potential moves by at most 0.01 RT/nF per sub-step and so that sub-steps grow
/// geometrically after a jump.
class RedoxCell final : public CellModel {
public:
    struct Parameters {
        double formalPotential = 0.2;     ///< E0, V
        double electrons = 1.0;           ///< n
        double bulkOxidised = 1e-3;       ///< mol/L
        double bulkReduced = 0.0;         ///< mol/L
        double diffusionOxidised = 1e-9;  ///< m^2/s
        double diffusionReduced = 1e-9;   ///< m^2/s
        double area = 7e-6;               ///< m^2
        double rateConstant = 0.01;       ///< k0, m/s
        double transferCoefficient = 0.5; ///< alpha
        double doubleLayerCapacitance = 0.2;  ///< F/m^2
        double uncompensatedResistance = 0.0; ///< ohm
        double temperature = 298.15;      ///< K
        double currentNoise = 0.0;        ///< A
        double potentialNoise = 0.0;      ///< V
        std::uint64_t seed = 1;
    };
    explicit RedoxCell(const Parameters& parameters);

    void reset() override;
    double stepPotentiostatic(double t, double potential) override;
    double stepGalvanostatic(double t, double current) override;
    double openCircuitPotential() const override;
    std::string describe() const override;
    /// Linearised about the steady state at the bias: the surface concentrations are those
    /// of zero net current (Nernstian at the bias, with sqrt(DO) (cO* - cO) = sqrt(DR) (cR -
    /// cR*)), Rct = RT / (n F i0) with i0 = n F A k0 cO^(1-alpha) cR^alpha of those
    /// concentrations, the Warburg part (RT / (n F)^2 A) (1 / (sqrt(DO) cO) + 1 / (sqrt(DR)
    /// cR)) / sqrt(j omega), in parallel with Cdl A, behind Ru.
    std::complex<double> impedance(double omega, double biasPotential) const override;
    /// Zero: with semi-infinite diffusion the current of a held potential decays to nothing.
    double steadyStateCurrent(double) const override { return 0.0; }
    Noise noise() const override;
    /// The steady-state surface concentrations (mol/m^3) of oxidised and reduced species at
    /// `potential`, and the charge-transfer resistance there (ohm; infinite without species).
    std::pair<double, double> steadySurfaceConcentrations(double potential) const;
    double chargeTransferResistance(double potential) const;

    /// Surface concentrations in mol/m^3 (for tests).
    double surfaceOxidised() const { return oxidised_.front(); }
    double surfaceReduced() const { return reduced_.front(); }

private:
    enum class Control { POTENTIAL, CURRENT };
    /// Surface concentrations as linear functions of the flux J (mol m^-2 s^-1, reduction
    /// positive) after one implicit step: cO(0) = aO - bO J, cR(0) = aR + bR J.
    struct Step {
        std::vector<double> baseO, unitO, baseR, unitR;
    };

    double advance(double t, double target, Control control);
    double subStep(double dt, double target, Control control);
    void solve(const std::vector<double>& old, double bulk, double diffusion, double dt, std::vector<double>& base,
               std::vector<double>& unit);
    double flux(double electrodePotential, double aO, double bO, double aR, double bR) const;
    double faradaicCurrent(double fluxValue) const;

    Parameters parameters_;
    double f_;  ///< nF/RT
    double nFA_;
    std::vector<double> spacing_;  ///< h_i = x_{i+1} - x_i
    std::vector<double> volume_;   ///< control volume of node i
    std::vector<double> oxidised_, reduced_;  ///< mol/m^3 at the nodes; the last node is bulk
    Step step_;
    std::vector<double> scratch_;
    GaussianNoise currentNoise_;
    GaussianNoise potentialNoise_;

    double time_ = 0.0;
    double lastJump_ = 0.0;
    double lastInput_ = 0.0;  ///< applied potential or current at time_
    Control lastControl_ = Control::POTENTIAL;
    double electrodePotential_ = 0.0;
    double lastCurrent_ = 0.0;
};

}  // namespace velmar::emulator
