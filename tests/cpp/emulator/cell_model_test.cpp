#include "emulator/cell/cell_model.hpp"
#include "emulator/cell/redox_cell.hpp"
#include "emulator/cell/simple_cells.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace velmar::emulator {
namespace {

constexpr double F = 96485.33212;
constexpr double R = 8.314462618;

struct CvPeaks {
    double cathodicCurrent = 0.0, cathodicPotential = 0.0;
    double anodicCurrent = 0.0, anodicPotential = 0.0;
};

/// One triangular sweep high -> low -> high at `rate`, sampled every `dt`.
CvPeaks runCv(CellModel& cell, double high, double low, double rate, double dt) {
    CvPeaks peaks;
    const double half = (high - low) / rate;
    cell.reset();
    cell.stepPotentiostatic(0.0, high);
    for (int k = 1; k * dt <= 2.0 * half + 1e-12; ++k) {
        const double t = k * dt;
        const double e = t < half ? high - rate * t : low + rate * (t - half);
        const double i = cell.stepPotentiostatic(t, e);
        if (i < peaks.cathodicCurrent) peaks = {i, e, peaks.anodicCurrent, peaks.anodicPotential};
        if (i > peaks.anodicCurrent) {
            peaks.anodicCurrent = i;
            peaks.anodicPotential = e;
        }
    }
    return peaks;
}

RedoxCell::Parameters reversibleCouple() {
    RedoxCell::Parameters p;  // 1 mM, D 1e-9 m^2/s, A 7e-6 m^2, k0 0.01 m/s, E0 0.2 V
    p.doubleLayerCapacitance = 0.0;
    return p;
}

TEST(RedoxCell, ReversibleCvFollowsRandlesSevcikAndNernst) {
    for (const double rate : {0.05, 0.5}) {
        SCOPED_TRACE(rate);
        const auto p = reversibleCouple();
        RedoxCell cell(p);
        const auto peaks = runCv(cell, 0.5, -0.1, rate, 1e-4 / rate);
        const double n = p.electrons;
        const double c = p.bulkOxidised * 1000.0;
        const double expected =
            0.4463 * n * F * p.area * c * std::sqrt(n * F * rate * p.diffusionOxidised / (R * p.temperature));
        EXPECT_NEAR(-peaks.cathodicCurrent / expected, 1.0, 0.02);
        const double separation = (peaks.anodicPotential - peaks.cathodicPotential) * 1000.0;
        EXPECT_GE(separation, 57.0);
        EXPECT_LE(separation, 63.0);
        // The cathodic peak lies 28.5 mV below the half-wave potential (E0 for equal D).
        EXPECT_NEAR(peaks.cathodicPotential, p.formalPotential - 0.0285, 0.002);
    }
}

TEST(RedoxCell, SlowKineticsAndResistanceWidenThePeakSeparation) {
    auto slow = reversibleCouple();
    slow.rateConstant = 1e-6;
    RedoxCell slowCell(slow);
    const auto slowPeaks = runCv(slowCell, 0.7, -0.3, 0.1, 1e-3);
    EXPECT_GT(slowPeaks.anodicPotential - slowPeaks.cathodicPotential, 0.15);

    auto resistive = reversibleCouple();
    resistive.uncompensatedResistance = 2000.0;
    RedoxCell resistiveCell(resistive);
    const auto resistivePeaks = runCv(resistiveCell, 0.5, -0.1, 0.1, 1e-3);
    // Each peak shifts by about ip * Ru (~27 mV here).
    const double separation = resistivePeaks.anodicPotential - resistivePeaks.cathodicPotential;
    EXPECT_GT(separation, 0.059 + 0.03);
    EXPECT_LT(separation, 0.059 + 0.09);
}

TEST(RedoxCell, PotentialStepGivesCottrellCurrent) {
    const auto p = reversibleCouple();
    RedoxCell cell(p);
    cell.stepPotentiostatic(0.0, 0.6);
    cell.stepPotentiostatic(0.0, -0.3);  // a jump far beyond E0: diffusion control
    for (const double t : {0.1, 1.0, 4.0}) {
        const double i = cell.stepPotentiostatic(t, -0.3);
        const double cottrell = F * p.area * p.bulkOxidised * 1000.0 * std::sqrt(p.diffusionOxidised / (std::numbers::pi * t));
        EXPECT_NEAR(-i / cottrell, 1.0, 0.01) << "t = " << t;
    }
}

TEST(RedoxCell, ConstantCurrentReachesE0AtAQuarterOfTheSandTime) {
    const auto p = reversibleCouple();
    RedoxCell cell(p);
    const double current = -1e-5;
    const double sand = std::pow(F * p.area * p.bulkOxidised * 1000.0 * std::sqrt(std::numbers::pi * p.diffusionOxidised) /
                                     (2.0 * -current),
                                 2.0);
    cell.stepGalvanostatic(0.0, current);
    double quarter = 0.0, before = 0.0, after = 0.0;
    for (int k = 1; k * 1e-3 <= 1.2 * sand; ++k) {
        const double t = k * 1e-3;
        const double e = cell.stepGalvanostatic(t, current);
        if (quarter == 0.0 && t >= sand / 4.0) quarter = e;
        if (before == 0.0 && t >= 0.9 * sand) before = e;
        after = e;
    }
    EXPECT_NEAR(quarter, p.formalPotential, 0.005);
    EXPECT_GT(before, p.formalPotential - 0.15);
    EXPECT_LT(after, p.formalPotential - 0.5);  // transition: the potential runs away
}

TEST(RedoxCell, DoubleLayerChargesWithCdlTimesScanRate) {
    RedoxCell::Parameters p;
    p.bulkOxidised = 0.0;
    p.uncompensatedResistance = 100.0;
    RedoxCell cell(p);
    cell.stepPotentiostatic(0.0, 0.0);
    double current = 0.0;
    for (int k = 1; k <= 100; ++k) current = cell.stepPotentiostatic(k * 1e-3, 0.1 * k * 1e-3);
    EXPECT_NEAR(current, p.doubleLayerCapacitance * p.area * 0.1, 1e-3 * p.doubleLayerCapacitance * p.area * 0.1);
}

TEST(CellModel, NoiseIsReproducibleForASeedAndOffWhenZero) {
    const auto run = [](std::string_view spec) {
        auto cell = parseCellSpec(spec).value();
        std::vector<double> out;
        for (int k = 0; k < 50; ++k) out.push_back(cell->stepPotentiostatic(k * 0.01, 1.0));
        cell->reset();
        out.push_back(cell->stepPotentiostatic(0.0, 1.0));
        return out;
    };
    const auto a = run("resistor:R=1000,noise=1e-6,seed=7");
    EXPECT_EQ(a, run("resistor:R=1000,noise=1e-6,seed=7"));
    EXPECT_NE(a, run("resistor:R=1000,noise=1e-6,seed=8"));
    EXPECT_EQ(a.front(), a.back());  // reset restarts the noise sequence
    double mean = 0.0;
    for (double v : a) mean += v / static_cast<double>(a.size());
    EXPECT_NEAR(mean, 1e-3, 1e-6);
    for (double v : run("resistor:R=1000")) EXPECT_EQ(v, 1e-3);
}

TEST(CellModel, RcStepDecaysWithTheTimeConstant) {
    auto cell = parseCellSpec("rc:R=inf,C=1e-6,Ru=100").value();
    cell->stepPotentiostatic(0.0, 0.0);
    cell->stepPotentiostatic(0.0, 1.0);
    const double tau = 100.0 * 1e-6;
    EXPECT_NEAR(cell->stepPotentiostatic(tau, 1.0), 0.01 * std::exp(-1.0), 1e-6);
    EXPECT_NEAR(cell->stepPotentiostatic(20 * tau, 1.0), 0.0, 1e-9);
    // Steady state through R parallel C in series with Ru.
    auto divider = parseCellSpec("rc:R=900,C=1e-6,Ru=100").value();
    divider->stepPotentiostatic(0.0, 1.0);
    EXPECT_NEAR(divider->stepPotentiostatic(1.0, 1.0), 1e-3, 1e-9);
    EXPECT_NEAR(divider->stepGalvanostatic(2.0, 1e-3), 1.0, 1e-6);
}

TEST(CellModel, SpecParserNamesWhatIsWrong) {
    EXPECT_TRUE(parseCellSpec("redox").has_value());
    EXPECT_TRUE(parseCellSpec("").has_value());
    EXPECT_TRUE(parseCellSpec("redox:E0=0.2,n=1,c=1e-3,D=1e-9,A=7e-6,k0=0.01,alpha=0.5,Cdl=0.2,Ru=0,T=298.15,noise=0"));
    EXPECT_NE(parseCellSpec("redox:X=1").error().find("'X'"), std::string::npos);
    EXPECT_NE(parseCellSpec("resistor:R=abc").error().find("abc"), std::string::npos);
    EXPECT_FALSE(parseCellSpec("resistor:R=0").has_value());
    EXPECT_FALSE(parseCellSpec("redox:alpha=1").has_value());
    EXPECT_NE(parseCellSpec("capacitor").error().find("capacitor"), std::string::npos);
    EXPECT_FALSE(parseCellSpec("rc:R").has_value());

    // describe() rebuilds the same model.
    auto cell = parseCellSpec("redox:E0=0.1,DO=2e-9,DR=1e-9,Ru=5,seed=3").value();
    auto again = parseCellSpec(cell->describe()).value();
    EXPECT_EQ(again->describe(), cell->describe());
    EXPECT_NE(cell->describe().find("DO=2e-09"), std::string::npos);
}

}  // namespace
}  // namespace velmar::emulator
