#include "emulator/cell/cell_model.hpp"
#include "emulator/waveforms/dc_sampler.hpp"
#include "emulator/waveforms/dc_waveform.hpp"

#include <boost/json.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace velmar::emulator {
namespace {

namespace json = boost::json;

DcWaveform make(std::string_view kind, std::string_view parameters) {
    auto waveform = makeDcWaveform(kind, json::parse(parameters).as_object());
    EXPECT_TRUE(waveform.has_value()) << (waveform ? "" : waveform.error().getMessageFormatted());
    return std::move(waveform).value();
}

std::vector<DcSampler::Row> sample(const DcWaveform& waveform, std::string_view cellSpec = "resistor:R=1000",
                                   CellControlEnum control = CellControlEnum::POTENTIOSTATIC) {
    auto cell = parseCellSpec(cellSpec).value();
    DcSampler sampler(waveform, *cell, control);
    std::vector<DcSampler::Row> rows;
    DcSampler::Row row;
    while (sampler.next(row)) rows.push_back(row);
    EXPECT_EQ(rows.size(), sampler.rowCount());
    return rows;
}

/// Indices where the sweep direction changes.
std::vector<double> turningValues(const std::vector<DcSampler::Row>& rows) {
    std::vector<double> turns;
    for (std::size_t i = 1; i + 1 < rows.size(); ++i) {
        const double before = rows[i][1] - rows[i - 1][1];
        const double after = rows[i + 1][1] - rows[i][1];
        if (before * after < 0.0) turns.push_back(rows[i][1]);
    }
    return turns;
}

constexpr std::string_view CV = R"({"start_value":0.0,"first_vertex":0.5,"second_vertex":-0.5,"end_value":0.1,
    "scan_rate":0.1,"output_data_rate":10,"num_cycles":2.5,"autorange":true,"current_range":0.01,
    "turn_limit_check":false,"upper_turn_boundary":0,"lower_turn_boundary":0,"step_height":0,"ir_drop":0})";

TEST(WaveformCv, HalfCyclesTurnAtEachVertexAndEndAtTheEndValue) {
    const auto waveform = make("cv", CV);
    // 0 -> 0.5 -> -0.5 -> 0.5 -> -0.5 -> 0.5 -> 0.1: 0.5 + 4 x 1.0 + 0.4 = 4.9 V at 0.1 V/s.
    EXPECT_NEAR(waveform.duration(), 49.0, 1e-9);
    EXPECT_EQ(waveform.rowCount(), 491u);
    const auto rows = sample(waveform);
    EXPECT_EQ(turningValues(rows), (std::vector<double>{0.5, -0.5, 0.5, -0.5, 0.5}));
    EXPECT_NEAR(rows.back()[1], 0.1, 1e-12);
    EXPECT_NEAR(rows.back()[0], 49.0, 1e-12);
    EXPECT_NEAR(rows[3][0], 0.3, 1e-12);
    EXPECT_NEAR(rows[3][1], 0.03, 1e-12);
    for (const auto& row : rows) EXPECT_NEAR(row[2], row[1] / 1000.0, 1e-15);
}

TEST(WaveformCv, DirectionFollowsTheFirstVertexAndStaircaseHoldsSteps) {
    auto parameters = json::parse(CV).as_object();
    parameters["first_vertex"] = -0.2;
    parameters["second_vertex"] = 0.3;
    parameters["num_cycles"] = 0.5;
    parameters["step_height"] = 0.05;
    const auto waveform = makeDcWaveform("cv", parameters).value();
    EXPECT_NEAR(waveform.duration(), (0.2 + 0.3) / 0.1, 1e-9);
    EXPECT_LT(waveform.valueAt(0.6), 0.0);
    EXPECT_NEAR(waveform.valueAt(0.49), 0.0, 1e-12);   // first step held for 0.5 s
    EXPECT_NEAR(waveform.valueAt(0.5), -0.05, 1e-12);
    EXPECT_NEAR(waveform.valueBefore(0.5), 0.0, 1e-12);
    EXPECT_NEAR(waveform.valueAt(2.0), -0.2, 1e-12);   // the vertex
    EXPECT_NEAR(waveform.valueAt(10.0), 0.1, 1e-12);   // end value afterwards

    parameters["num_cycles"] = 0;
    EXPECT_NEAR(makeDcWaveform("cv", parameters)->duration(), 1.0, 1e-9);  // start -> end only
}

TEST(WaveformSteps, FastCyclingStairsAndPulseCounts) {
    const auto fast = make("fast_cycling", R"({"first_step":0.4,"second_step":-0.4,"end_value":0.05,"step_time":2,
        "output_data_rate":1,"num_cycles":1.5})");
    EXPECT_NEAR(fast.duration(), 6.0, 1e-12);
    EXPECT_EQ(fast.valueAt(1.0), 0.4);
    EXPECT_EQ(fast.valueAt(3.0), -0.4);
    EXPECT_EQ(fast.valueAt(5.0), 0.4);
    EXPECT_EQ(fast.valueAt(6.0), 0.05);
    EXPECT_NEAR(make("fast_cycling", R"({"first_step":0.4,"second_step":-0.4,"end_value":0,"step_time":2,
        "output_data_rate":1,"num_cycles":0.5})").duration(), 2.0, 1e-12);

    const auto stairs = make("steady_stairs", R"({"start_value":0.5,"end_value":0.2,"step_time":1,"step_height":0.1,
        "hold_time":3,"stability_tolerance":0,"output_data_rate":2})");
    EXPECT_NEAR(stairs.duration(), 3.0 + 4.0, 1e-12);  // levels 0.5, 0.4, 0.3, 0.2
    EXPECT_NEAR(stairs.valueAt(6.5), 0.2, 1e-12);
    EXPECT_NEAR(stairs.valueAt(3.5), 0.5, 1e-12);

    const auto npv = make("npv", R"({"base_value":-0.1,"start_value":0,"step_value":0.05,"end_value":0.2,
        "step_time":0.1,"pulse_time":0.02,"output_data_rate":100})");
    EXPECT_NEAR(npv.duration(), 0.5, 1e-12);
    EXPECT_NEAR(npv.valueAt(0.05), -0.1, 1e-12);
    EXPECT_NEAR(npv.valueAt(0.09), 0.0, 1e-12);
    EXPECT_NEAR(npv.valueAt(0.49), 0.2, 1e-12);

    const auto dpv = make("dpv", R"({"start_value":0.3,"step_value":0.1,"pulse_value":0.05,"end_value":0,
        "step_time":1,"pulse_time":0.25,"invert_pulse":true,"output_data_rate":4})");
    EXPECT_NEAR(dpv.duration(), 4.0, 1e-12);
    EXPECT_NEAR(dpv.valueAt(1.5), 0.2, 1e-12);
    EXPECT_NEAR(dpv.valueAt(1.8), 0.15, 1e-12);

    const auto swv = make("swv", R"({"start_value":0,"step_value":0.01,"amplitude":0.025,"end_value":-0.1,
        "period":0.2,"output_data_rate":10})");
    EXPECT_EQ(swv.rowCount(), 23u);  // 11 levels x 0.2 s at 10 Hz, both ends
    EXPECT_NEAR(swv.valueAt(0.05), -0.025, 1e-12);
    EXPECT_NEAR(swv.valueAt(0.15), 0.025, 1e-12);
    EXPECT_NEAR(swv.valueAt(2.15), -0.1 + 0.025, 1e-12);
}

TEST(WaveformSteps, WaveRepeatsItsValuesAroundTheBias) {
    const auto wave = make("wave", R"({"output_data_rate":4,"value_rate":2,"repetitions":3,"current_range":0.01,
        "values":[0.1,-0.1],"bias":0.5})");
    EXPECT_NEAR(wave.duration(), 3.0, 1e-12);
    EXPECT_NEAR(wave.valueAt(0.25), 0.6, 1e-12);
    EXPECT_NEAR(wave.valueAt(2.75), 0.4, 1e-12);
    EXPECT_NEAR(wave.valueAt(3.0), 0.5, 1e-12);
    const std::vector<double> fileValues{1.0};
    const auto file = makeDcWaveform("wave_file", json::parse(R"({"output_data_rate":1,"value_rate":1,"repetitions":2,
        "current_range":0.01,"resource_id":"abc","bias":0})").as_object(), &fileValues);
    EXPECT_NEAR(file->duration(), 2.0, 1e-12);
}

TEST(WaveformErrors, MissingOrInvalidParametersAreNamed) {
    auto parameters = json::parse(CV).as_object();
    parameters.erase("scan_rate");
    auto missing = makeDcWaveform("cv", parameters);
    ASSERT_FALSE(missing.has_value());
    EXPECT_EQ(missing.error().code, ErrorCodeEnum::PARAMETER_MISSING);
    EXPECT_NE(missing.error().getMessageFormatted().find("scan_rate"), std::string::npos);
    parameters["scan_rate"] = 0.0;
    EXPECT_EQ(makeDcWaveform("cv", parameters).error().code, ErrorCodeEnum::PARAMETER_VALUE_TOO_LOW);
    parameters["scan_rate"] = "fast";
    EXPECT_EQ(makeDcWaveform("cv", parameters).error().code, ErrorCodeEnum::PARAMETER_FORMAT_INVALID);
    EXPECT_EQ(makeDcWaveform("eis", parameters).error().code, ErrorCodeEnum::TYPE_NAME_UNKNOWN);
    EXPECT_FALSE(makeDcWaveform("wave", json::parse(R"({"output_data_rate":1,"value_rate":1,"repetitions":1,
        "values":[],"bias":0})").as_object()));
    EXPECT_FALSE(makeDcWaveform("npv", json::parse(R"({"base_value":0,"start_value":0,"step_value":0.1,
        "end_value":1,"step_time":0.1,"pulse_time":0.2,"output_data_rate":10})").as_object()));
}

TEST(DcSampler, ControlModesFillTheRightColumns) {
    const auto poga = make("poga", R"({"bias":1e-3,"duration":1,"output_data_rate":5})");
    const auto galvanostatic = sample(poga, "resistor:R=100", CellControlEnum::GALVANOSTATIC);
    ASSERT_EQ(galvanostatic.size(), 6u);
    for (const auto& row : galvanostatic) {
        EXPECT_EQ(row[2], 1e-3);
        EXPECT_NEAR(row[1], 0.1, 1e-12);
    }
    const auto ocv = sample(make("ocv", R"({"duration":2,"output_data_rate":1})"), "redox:cR=1e-3");
    ASSERT_EQ(ocv.size(), 3u);
    for (const auto& row : ocv) {
        EXPECT_EQ(row[2], 0.0);
        EXPECT_NEAR(row[1], 0.2, 1e-3);  // equal concentrations rest at E0
    }
    EXPECT_NEAR(ocv[2][0], 2.0, 1e-12);
}

TEST(DcSampler, PulsesAreMeasuredAtTheirEndAndSineIsSuperimposed) {
    // DPV of the redox couple: the difference of pulse and base currents peaks near E0.
    const auto dpv = make("dpv", R"({"start_value":0.45,"step_value":0.005,"pulse_value":-0.05,"end_value":-0.05,
        "step_time":0.1,"pulse_time":0.05,"invert_pulse":false,"output_data_rate":20})");
    const auto rows = sample(dpv, "redox:Cdl=0");
    double best = 0.0, bestPotential = 0.0;
    for (std::size_t i = 1; i + 1 < rows.size(); i += 2) {
        // Row i ends the base period (base level), row i + 1 the pulse.
        const double difference = rows[i + 1][2] - rows[i][2];
        if (difference < best) {
            best = difference;
            bestPotential = rows[i][1];
        }
        EXPECT_NEAR(rows[i + 1][1] - rows[i][1], -0.05, 1e-12);
    }
    EXPECT_NEAR(bestPotential - 0.025, 0.2, 0.01);  // peak at E1/2 - pulse / 2

    const auto acCv = make("ac_cv", R"({"start_value":0,"first_vertex":0.1,"second_vertex":0,"end_value":0,
        "scan_rate":0.1,"output_data_rate":40,"num_cycles":0.5,"amplitude":0.01,"frequency":10})");
    const auto acRows = sample(acCv);
    EXPECT_NEAR(acRows[1][1], 0.1 * 0.025 + 0.01, 1e-12);  // a quarter period of the sine
}

}  // namespace
}  // namespace velmar::emulator
