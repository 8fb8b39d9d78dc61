#pragma once

#include "emulator/cell/cell_model.hpp"

namespace velmar::emulator {

/// An ohmic resistor: I = E / R.
class ResistorCell final : public CellModel {
public:
    struct Parameters {
        double resistance = 1000.0;
        double currentNoise = 0.0;
        double potentialNoise = 0.0;
        std::uint64_t seed = 1;
    };
    explicit ResistorCell(const Parameters& parameters);

    void reset() override;
    double stepPotentiostatic(double t, double potential) override;
    double stepGalvanostatic(double t, double current) override;
    double openCircuitPotential() const override { return 0.0; }
    std::string describe() const override;
    std::complex<double> impedance(double omega, double biasPotential) const override;
    double steadyStateCurrent(double potential) const override;
    Noise noise() const override;

private:
    Parameters parameters_;
    GaussianNoise currentNoise_;
    GaussianNoise potentialNoise_;
};

/// Ru in series with a parallel R-C (R infinite: Ru in series with C, the double layer of
/// an inert electrode). Integrated exactly for inputs held over short sub-steps.
class RcCell final : public CellModel {
public:
    struct Parameters {
        double resistance = 1000.0;  ///< parallel resistor; infinity for none
        double capacitance = 1e-6;
        double seriesResistance = 0.0;
        double currentNoise = 0.0;
        double potentialNoise = 0.0;
        std::uint64_t seed = 1;
    };
    explicit RcCell(const Parameters& parameters);

    void reset() override;
    double stepPotentiostatic(double t, double potential) override;
    double stepGalvanostatic(double t, double current) override;
    double openCircuitPotential() const override { return capacitorVoltage_; }
    std::string describe() const override;
    std::complex<double> impedance(double omega, double biasPotential) const override;
    double steadyStateCurrent(double potential) const override;
    Noise noise() const override;

private:
    Parameters parameters_;
    GaussianNoise currentNoise_;
    GaussianNoise potentialNoise_;
    double time_ = 0.0;
    double capacitorVoltage_ = 0.0;
    double lastInput_ = 0.0;  ///< applied potential or current at time_
    bool lastGalvanostatic_ = false;
    double lastCurrent_ = 0.0;
};

}  // namespace velmar::emulator
