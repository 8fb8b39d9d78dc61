// The small-signal impedance of every cell kind: closed forms, the redox linearisation, and
// agreement with the cell's own time-domain response to a small sine.

#include "emulator/cell/cell_model.hpp"
#include "emulator/cell/redox_cell.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>

namespace velmar::emulator {
namespace {

using Complex = std::complex<double>;
constexpr double kPi = std::numbers::pi;

std::unique_ptr<CellModel> cell(std::string_view spec) {
    auto made = parseCellSpec(spec);
    EXPECT_TRUE(made) << (made ? "" : made.error());
    return made ? std::move(*made) : nullptr;
}

void expectClose(Complex actual, Complex expected, double relative) {
    EXPECT_LE(std::abs(actual - expected), relative * std::abs(expected)) << actual << " vs " << expected;
}

// Drives the cell potentiostatically with bias + amplitude sin(2 pi f t) at 400 steps per
// period and returns the quotient of the potential's and the current's phasors over
// `periods` periods after `settle` periods.
Complex drivenImpedance(CellModel& model, double bias, double frequency, double amplitude, int settle, int periods) {
    constexpr int steps = 400;
    const double dt = 1.0 / (frequency * steps);
    model.reset();
    model.stepPotentiostatic(0.0, bias);
    Complex potential = 0.0, current = 0.0;
    for (int k = 1; k <= (settle + periods) * steps; ++k) {
        const double phase = 2.0 * kPi * k / steps;
        const double e = bias + amplitude * std::sin(phase);
        const double i = model.stepPotentiostatic(k * dt, e);
        if (k > settle * steps) {
            potential += e * std::polar(1.0, -phase);
            current += i * std::polar(1.0, -phase);
        }
    }
    return potential / current;
}

TEST(CellImpedance, ClosedFormsOfTheEquivalentCircuits) {
    const double w = 2.0 * kPi * 50.0;
    const Complex jw(0.0, w);
    EXPECT_EQ(cell("resistor:R=470")->impedance(w, 0.3), Complex(470.0));
    expectClose(cell("rc:R=1000,C=1e-6,Ru=10")->impedance(w, 0.0), 10.0 + 1000.0 / (1.0 + jw * 1e-3), 1e-12);
    expectClose(cell("rc:R=inf,C=1e-6,Ru=10")->impedance(w, 0.0), 10.0 + 1.0 / (jw * 1e-6), 1e-12);

    // Randles with its Warburg element sigma (1 - j) / sqrt(w).
    const Complex warburg = 50.0 * Complex(1.0, -1.0) / std::sqrt(w);
    expectClose(cell("randles:Rs=10,Rct=100,Cdl=1e-5,sigma=50")->impedance(w, 0.0),
                10.0 + 1.0 / (jw * 1e-5 + 1.0 / (100.0 + warburg)), 1e-12);
    // The constant-phase element 1 / (Q (jw)^n), alone and with a Warburg element.
    const Complex cpe = 2e-5 * std::pow(jw, 0.85);
    expectClose(cell("cpe:Rs=5,Rct=300,Q=2e-5,n=0.85")->impedance(w, 0.0), 5.0 + 1.0 / (cpe + 1.0 / 300.0), 1e-12);
    expectClose(cell("randles:Rs=5,Rct=300,Q=2e-5,n=0.85,sigma=50")->impedance(w, 0.0),
                5.0 + 1.0 / (cpe + 1.0 / (300.0 + warburg)), 1e-12);
    // The Warburg element makes the low-frequency phase tend to -45 degrees, a blocking
    // electrode to a pure capacitor.
    EXPECT_NEAR(std::arg(cell("randles:Rs=0,Rct=1e-3,Cdl=1e-9,sigma=100")->impedance(1e-3, 0.0)), -kPi / 4, 1e-3);
    EXPECT_NEAR(std::arg(cell("randles:Rs=0,Rct=inf,Cdl=1e-6")->impedance(10.0, 0.0)), -kPi / 2, 1e-12);

    EXPECT_EQ(cell("randles:sigma=0,Rs=10,Rct=90")->steadyStateCurrent(1.0), 0.01);
    EXPECT_EQ(cell("randles:sigma=100")->steadyStateCurrent(1.0), 0.0);
    EXPECT_FALSE(parseCellSpec("cpe:n=1.5"));
    EXPECT_FALSE(parseCellSpec("randles:Rct=0"));
}

TEST(CellImpedance, RedoxLinearisationIsTheChargeTransferAndWarburgOfItsKinetics) {
    const double temperature = 298.15;
    const double f = 96485.33212 / (8.314462618 * temperature);
    RedoxCell::Parameters p;
    p.formalPotential = 0.2;
    p.bulkOxidised = 1e-3;
    p.bulkReduced = 2e-3;
    p.rateConstant = 1e-4;
    p.uncompensatedResistance = 5.0;
    RedoxCell redox(p);
    const double nFA = 96485.33212 * p.area;

    for (const double bias : {0.2, 0.15, 0.26}) {
        SCOPED_TRACE(bias);
        // Zero net current: Nernstian surface with the diffusion balance (equal D: the sum is
        // the bulk sum), in mol/m^3.
        const double theta = std::exp(f * (bias - 0.2));
        const double cR = 3.0 / (1.0 + theta);
        const double cO = theta * cR;
        const auto [o, r] = redox.steadySurfaceConcentrations(bias);
        EXPECT_NEAR(o, cO, 1e-12);
        EXPECT_NEAR(r, cR, 1e-12);
        // Rct = RT / (nF i0), i0 = nFA k0 cO^(1-a) cR^a.
        const double i0 = nFA * 1e-4 * std::sqrt(cO * cR);
        EXPECT_NEAR(redox.chargeTransferResistance(bias), 1.0 / (f * i0), 1e-9 / (f * i0));

        const double w = 2.0 * kPi * 10.0;
        const double sigma = (1.0 / (std::sqrt(1e-9) * cO) + 1.0 / (std::sqrt(1e-9) * cR)) / (f * nFA) / std::sqrt(2.0);
        const Complex faradaic = 1.0 / (f * i0) + sigma * Complex(1.0, -1.0) / std::sqrt(w);
        const Complex expected = 5.0 + 1.0 / (Complex(0.0, w * 0.2 * p.area) + 1.0 / faradaic);
        expectClose(redox.impedance(w, bias), expected, 1e-9);
    }
    // Without species nothing but the double layer remains.
    p.bulkOxidised = p.bulkReduced = 0.0;
    const double w = 100.0;
    expectClose(RedoxCell(p).impedance(w, 0.2), 5.0 + 1.0 / Complex(0.0, w * 0.2 * p.area), 1e-12);
}

// The time-domain models answer a small sine as their impedance says, so that DC and
// impedance measurements of one cell agree.
TEST(CellImpedance, SmallSineResponseOfTheTimeDomainModelsAgrees) {
    struct Case {
        const char* spec;
        double bias;
        double frequency;
        int settle;
        double tolerance;
    };
    const Case cases[] = {
        {"rc:R=1000,C=1e-6,Ru=10", 0.0, 200.0, 5, 0.01},
        {"randles:Rs=10,Rct=100,Cdl=1e-5,sigma=50", 0.0, 50.0, 20, 0.02},
        {"randles:Rs=10,Rct=100,Cdl=1e-5,sigma=50", 0.0, 1.0, 20, 0.02},
        {"cpe:Rs=10,Rct=1000,Q=1e-5,n=0.8", 0.0, 10.0, 20, 0.02},
        {"cpe:Rs=10,Rct=1000,Q=1e-5,n=0.8", 0.0, 1000.0, 20, 0.02},
        {"redox:E0=0.2,c=1e-3,cR=1e-3,k0=1e-4,Ru=5", 0.2, 10.0, 20, 0.03},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.spec) + " at " + std::to_string(c.frequency) + " Hz");
        auto model = cell(c.spec);
        const Complex expected = model->impedance(2.0 * kPi * c.frequency, c.bias);
        expectClose(drivenImpedance(*model, c.bias, c.frequency, 0.002, c.settle, 10), expected, c.tolerance);
    }
}

}  // namespace
}  // namespace velmar::emulator
