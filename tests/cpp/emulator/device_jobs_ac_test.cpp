// Impedance measurements through the job queue: the generated frequency grid, live data
// (header, wave previews, rows) on the virtual clock, the result resource's binary layout,
// multisines, GEIS VA, noise, and the refusals.

#include "device_jobs_bench.hpp"
#include "emulator/ac_jobs/ac_plan.hpp"

#include <cmath>
#include <complex>
#include <cstring>
#include <numbers>

namespace velmar::emulator::testing {
namespace {

namespace json = boost::json;
constexpr double kPi = std::numbers::pi;

// 100 Hz .. 1 MHz from 10 kHz at 20 per decade; two measured periods and no settling, so
// that every wave has 128 samples.
json::object eisParameters(double bias = 0.1) {
    auto parameters = kEisGenerate;
    parameters["bias"] = bias;
    auto& range = parameters["frequency_range"].as_object();
    range["pre_duration"] = 0.0;
    range["pre_waves"] = 0;
    range["meas_duration"] = 0.0;
    range["meas_waves"] = 2;
    return parameters;
}

json::object runToEnd(JobBench& bench, std::string_view type, const json::object& parameters) {
    const auto reply = bench.start(type, parameters);
    EXPECT_EQ(reply.at("status"), "SUCCESS") << json::serialize(reply);
    bench.clock.runUntilIdle();
    return bench.doneOf(reply.at("job_id"));
}

std::vector<double> numbers(const json::value& list) {
    std::vector<double> out;
    for (const auto& v : list.as_array()) out.push_back(v.to_number<double>());
    return out;
}

/// Equal up to the last digits that a JSON text of the test's parser may change.
void expectSameWave(std::span<const double> actual, std::span<const double> expected, double scale) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t k = 0; k < actual.size(); ++k) EXPECT_NEAR(actual[k], expected[k], 1e-14 * scale) << k;
}

std::vector<double> resultValues(JobBench& bench, const json::object& done) {
    const auto id = done.at("job_info").at("result_resource_id").as_string();
    const auto content = bench.model.resources().download(ResourceTypeEnum::JOB_RESULT, id, 0).value();
    std::vector<double> values(content.payload.size / 8);
    std::memcpy(values.data(), content.payload.owner->data(), values.size() * 8);
    return values;
}

/// The grid of the example computed on its own: 10^(4 + k/20) up, then 10^(4 - k/20) down.
TEST(AcFrequencyGrid, TheExampleGridAndALowerDensityBelow66Hz) {
    const auto grid = generateFrequencyGrid({100.0, 1e6, 1e4, 20, 5});
    std::vector<double> expected;
    for (int k = 0; k <= 40; ++k) expected.push_back(std::pow(10.0, 4.0 + k / 20.0));
    for (int k = 1; k <= 40; ++k) expected.push_back(std::pow(10.0, 4.0 - k / 20.0));
    ASSERT_EQ(grid.size(), expected.size());
    for (std::size_t i = 0; i < grid.size(); ++i) EXPECT_NEAR(grid[i], expected[i], 1e-12 * expected[i]) << i;
    EXPECT_EQ(grid[40], 1e6);
    EXPECT_EQ(grid.back(), 100.0);

    // 1 Hz .. 1 kHz from 100 Hz, 10 per decade above 66 Hz, falling linearly (in log f) to 2
    // per decade at 1 Hz; the step from x = log10 f is 1 / d(x).
    const auto low = generateFrequencyGrid({1.0, 1e3, 100.0, 10, 2});
    std::vector<double> want;
    for (int k = 0; k <= 10; ++k) want.push_back(std::pow(10.0, 2.0 + k / 10.0));
    const double corner = std::log10(66.0);
    double x = 2.0;
    int k = 0;
    while (true) {
        const double d = x >= corner ? 10.0 : 2.0 + 8.0 * x / corner;
        const double next = x >= corner ? 2.0 - (++k) / 10.0 : x - 1.0 / d;
        if (next < -1e-9) break;
        x = next;
        want.push_back(std::pow(10.0, x));
    }
    if (std::abs(x) > 1e-9) want.push_back(1.0);
    ASSERT_EQ(low.size(), want.size());
    for (std::size_t i = 0; i < low.size(); ++i) EXPECT_NEAR(low[i], want[i], 1e-9 * want[i]) << i;
    EXPECT_EQ(low.back(), 1.0);

    // A start at a limit is measured once.
    const auto top = generateFrequencyGrid({10.0, 1000.0, 1000.0, 1, 1});
    EXPECT_EQ(top, (std::vector<double>{1000.0, 100.0, 10.0}));
}

TEST(DeviceJobsAc, EisRowsWavesAndResultOfAResistor) {
    JobBench bench({.queueCapacity = 2, .cellSpec = "resistor:R=1000"});
    const auto done = runToEnd(bench, "eis", eisParameters());
    ASSERT_EQ(done.at("status"), "FINISHED") << json::serialize(done);

    const auto headers = bench.events("LIVE_DATA_HEADER_EIS");
    ASSERT_EQ(headers.size(), 1u);
    const auto& header = headers[0].at("header");
    EXPECT_EQ(header.at("measurement_type"), "Electrochemical Impedance Spectroscopy");
    EXPECT_EQ(header.at("meta").at("dimensions"),
              (json::array{"frequency", "periods", "time", "wave_id", "wave_size"}));
    ASSERT_EQ(header.at("impedances").as_array().size(), 1u);
    EXPECT_EQ(header.at("impedances").at(0).at("numerator"), "MAIN:1:POT:U~MUX:1:MUX_U");
    EXPECT_EQ(header.at("impedances").at(0).at("denominator"), "MAIN:1:POT:I~MUX:1:MUX_I");
    EXPECT_EQ(header.at("impedances").at(0).at("units").at(0), "\u2126");
    EXPECT_EQ(header.at("paths").at(1).at("name"), "current");
    EXPECT_EQ(header.at("potentiostats").at(0).at("dimensions"), (json::array{"dc", "shunt", "bandwith", "filter"}));
    const std::size_t columns = header.at("dimensions").as_array().size();
    EXPECT_EQ(columns, 5u + 6u + 2u * 5u + 4u);

    // Every frame of the job after the header: previews of a point's wave, then its row.
    std::vector<json::object> rows;
    std::vector<std::vector<double>> preview(2);
    for (const auto& frame : bench.client.peer->texts()) {
        if (frame.at("type") != "EVENT") continue;
        const auto& event = frame.at("event").as_object();
        if (event.at("type") == "LIVE_DATA_WAVES") {
            EXPECT_EQ(event.at("full_wave_size"), 128);
            EXPECT_EQ(event.at("offset").to_number<std::size_t>(), preview[0].size());
            for (std::size_t p = 0; p < 2; ++p) {
                const auto part = numbers(event.at("paths_waves").at(p));
                preview[p].insert(preview[p].end(), part.begin(), part.end());
            }
        } else if (event.at("type") == "LIVE_DATA_ROW_EIS") {
            EXPECT_EQ(numbers(event.at("paths_waves").at(0)), preview[0]) << "the preview showed the row's wave";
            preview = {{}, {}};
            rows.push_back(event);
        }
    }
    const auto grid = generateFrequencyGrid({100.0, 1e6, 1e4, 20, 5});
    ASSERT_EQ(rows.size(), grid.size());
    double lastTime = 0.0;
    for (std::size_t r = 0; r < rows.size(); ++r) {
        SCOPED_TRACE(r);
        const auto meta = numbers(rows[r].at("meta").at(0));
        EXPECT_DOUBLE_EQ(meta[0], grid[r]);
        EXPECT_EQ(meta[1], 2.0);
        EXPECT_NEAR(meta[2] - lastTime, 2.0 / grid[r], 1e-9) << "two periods per point";
        lastTime = meta[2];
        EXPECT_EQ(meta[3], double(r));
        EXPECT_EQ(meta[4], 128.0);
        EXPECT_EQ(numbers(rows[r].at("impedances").at(0)), (std::vector<double>{1000.0, 0.0, 0.0, 0.0, 0.0, 0.0}));
        EXPECT_EQ(numbers(rows[r].at("paths").at(0)).at(0), 0.1);
        EXPECT_NEAR(numbers(rows[r].at("paths").at(1)).at(0), 1e-4, 1e-18);
        EXPECT_EQ(numbers(rows[r].at("potentiostats").at(0)).at(0), 0.1);
        const auto voltage = numbers(rows[r].at("paths_waves").at(0));
        ASSERT_EQ(voltage.size(), 128u);
        EXPECT_NEAR(voltage[16], 0.11, 1e-15);
        EXPECT_NEAR(numbers(rows[r].at("paths_waves").at(1))[48], 0.9e-4, 1e-18);
    }

    // The result: the columns with one value per row, then each path's waves row by row.
    const auto resourceId = done.at("job_info").at("result_resource_id").as_string();
    const auto info = bench.model.resources().info(ResourceTypeEnum::JOB_RESULT, resourceId).value();
    EXPECT_EQ(info.subType, "DATASET_AC");
    EXPECT_EQ(info.header.at("number_of_rows"), rows.size());
    EXPECT_EQ(info.header.at("job_data_header"), header);
    const auto values = resultValues(bench, done);
    const std::size_t n = rows.size();
    ASSERT_EQ(values.size(), n * columns + 2 * n * 128);
    for (std::size_t r = 0; r < n; ++r) {
        EXPECT_EQ(values[0 * n + r], grid[r]) << "the result is exact";
        EXPECT_EQ(values[5 * n + r], 1000.0);               // |impedance|
        EXPECT_EQ(values[11 * n + r], 0.1);                 // voltage dc
        EXPECT_EQ(values[21 * n + r], 0.1);                 // potentiostat dc
        const auto current = numbers(rows[r].at("paths_waves").at(1));
        expectSameWave(std::span(values).subspan(n * columns + n * 128 + r * 128, 128), current, 1e-4);
    }
}

TEST(DeviceJobsAc, RcSpectrumFollowsTheClosedForm) {
    JobBench bench({.queueCapacity = 2, .cellSpec = "rc:R=1000,C=1e-6,Ru=10"});
    auto parameters = eisParameters(0.0);
    parameters["frequency_range"].as_object()["min_frequency"] = 1.0;
    const auto done = runToEnd(bench, "eis", parameters);
    ASSERT_EQ(done.at("status"), "FINISHED");
    const auto rows = bench.events("LIVE_DATA_ROW_EIS");
    ASSERT_GT(rows.size(), 80u);
    for (const auto& row : rows) {
        const double f = row.at("meta").at(0).at(0).as_double();
        const auto z = 10.0 + 1000.0 / std::complex<double>(1.0, 2.0 * kPi * f * 1e-3);
        const auto impedance = numbers(row.at("impedances").at(0));
        EXPECT_NEAR(impedance[0], std::abs(z), 1e-9 * std::abs(z)) << f;
        EXPECT_NEAR(impedance[1], std::arg(z), 1e-9) << f;
    }
}

TEST(DeviceJobsAc, MultisineRowsShareOneWave) {
    const json::object table{{"bias", 0.0},
                             {"multisine_wave_in_result", true},
                             {"frequency_range",
                              {{"type", "table"},
                               {"fundamental_frequency", 10.0},
                               {"harmonics", json::array{{{"harmonic", 1}, {"amplitude", 0.01}},
                                                         {{"harmonic", 3}, {"amplitude", 0.01}},
                                                         {{"harmonic", 7}, {"amplitude", 0.01}}}},
                               {"pre_duration", 0.0},
                               {"pre_waves", 1},
                               {"meas_duration", 0.0},
                               {"meas_waves", 2}}}};
    for (const bool inResult : {true, false}) {
        SCOPED_TRACE(inResult);
        JobBench bench({.queueCapacity = 2, .cellSpec = "rc:R=1000,C=1e-5,Ru=10"});
        auto parameters = table;
        parameters["multisine_wave_in_result"] = inResult;
        const auto done = runToEnd(bench, "eis_multisine_table", parameters);
        ASSERT_EQ(done.at("status"), "FINISHED") << json::serialize(done);
        const auto rows = bench.events("LIVE_DATA_ROW_EIS");
        ASSERT_EQ(rows.size(), 3u);
        const std::size_t waveSize = 2 * 64;  // 8 x 7 < 64 samples per fundamental period
        for (std::size_t r = 0; r < 3; ++r) {
            const auto meta = numbers(rows[r].at("meta").at(0));
            const double harmonics[] = {1.0, 3.0, 7.0};
            EXPECT_EQ(meta[0], 10.0 * harmonics[r]);
            EXPECT_EQ(meta[2], 0.3) << "all rows when the multisine has been measured";
            EXPECT_EQ(meta[3], inResult ? 0.0 : -1.0);
            EXPECT_EQ(meta[4], inResult ? double(waveSize) : 0.0);
            EXPECT_EQ(rows[r].at("paths_waves").as_array().size(), inResult && r == 0 ? 2u : 0u);
            const auto z = 10.0 + 1000.0 / std::complex<double>(1.0, 2.0 * kPi * meta[0] * 1e-2);
            EXPECT_NEAR(rows[r].at("impedances").at(0).at(0).as_double(), std::abs(z), 1e-9 * std::abs(z));
        }
        // The binary form repeats the shared wave for every row that names it.
        const auto values = resultValues(bench, done);
        const std::size_t columns = 25;
        ASSERT_EQ(values.size(), 3 * columns + (inResult ? 2 * 3 * waveSize : 0));
        if (inResult) {
            const auto wave = numbers(rows[0].at("paths_waves").at(0));
            for (std::size_t r = 0; r < 3; ++r)
                expectSameWave(std::span(values).subspan(3 * columns + r * waveSize, waveSize), wave, 0.03);
        }
    }
}

TEST(DeviceJobsAc, GeneratedMultisineTakesTheNearestHarmonics) {
    JobBench bench({.queueCapacity = 2, .cellSpec = "resistor:R=1000"});
    auto parameters = eisParameters(0.0);
    auto& range = parameters["frequency_range"].as_object();
    range["min_frequency"] = 100.0;
    range["max_frequency"] = 1000.0;
    range["start_frequency"] = 100.0;
    range["points_per_decade_upper"] = 10;
    range["multisine_pre_waves"] = 0;
    range["multisine_meas_waves"] = 1;
    range["multisine_decades"] = 1;
    range["multisine_starting_harmonic"] = 4;
    parameters["multisine_wave_in_result"] = true;
    ASSERT_EQ(runToEnd(bench, "eis_multisine", parameters).at("status"), "FINISHED");
    // One decade at 10 per decade from 100 Hz: one multisine on 25 Hz, the points rounded to
    // the nearest harmonic of it.
    std::vector<double> frequencies;
    for (const auto& row : bench.events("LIVE_DATA_ROW_EIS")) {
        const auto meta = numbers(row.at("meta").at(0));
        frequencies.push_back(meta[0]);
        EXPECT_EQ(meta[3], 0.0);
        EXPECT_EQ(meta[4], 320.0) << "8 x 40 samples per period of 25 Hz";
        EXPECT_EQ(row.at("impedances").at(0).at(0), 1000.0);
    }
    const std::vector<double> harmonics{4, 5, 6, 8, 10, 13, 16, 20, 25, 32, 40};
    std::vector<double> expected;
    for (const double h : harmonics) expected.push_back(25.0 * h);
    EXPECT_EQ(frequencies, expected);
}

TEST(DeviceJobsAc, Mux4ChannelsSeeAFractionOfTheCell) {
    JobBench bench({.queueCapacity = 2, .cellSpec = "resistor:R=1000"});
    const json::object identity{{"coefficients", json::array{0.0, 1.0}}};
    const auto channel = [&](std::string_view uri, std::string_view dimension, std::string_view unit) {
        return json::object{{"uri", uri}, {"dimension", dimension}, {"unit", unit}, {"polynomial", identity}};
    };
    const auto impedance = [](std::string_view numerator, std::string_view denominator) {
        return json::object{{"numerator", numerator}, {"denominator", denominator}, {"impedance_name", ""}};
    };
    const std::string u = "MAIN:1:POT:U~MUX:1:MUX_U", i = "MAIN:1:POT:I~MUX:1:MUX_I";
    const std::string ch2 = "MUX4:1:CH2~MUX4:1:ADC2", ch4 = "MUX4:1:CH4~MUX4:1:ADC4";
    const json::object settings{
        {"output_potentiostats", json::array{{{"uri", "MAIN:1:POT"},
                                              {"potentiostatic_polynomial", identity},
                                              {"galvanostatic_polynomial", identity}}}},
        {"channels", json::array{channel(u, "voltage", "V"), channel(i, "current", "A"),
                                 channel(ch2, "voltage-MUX4-1-CH2", "V"), channel(ch4, "current-MUX4-1-CH4", "A"),
                                 channel("MAIN:1:POT:I~HP:1:ADC_I", "current", "A")}},
        {"impedance_configurations", json::array{impedance(u, i), impedance(ch2, i), impedance(u, ch4)}}};
    ASSERT_EQ(runToEnd(bench, "set_hardware_settings", settings).at("status"), "FINISHED");
    ASSERT_EQ(runToEnd(bench, "eis", eisParameters(0.2)).at("status"), "FINISHED");
    const auto header = bench.events("LIVE_DATA_HEADER_EIS").at(0).at("header");
    EXPECT_EQ(header.at("paths").at(2).at("name"), "voltage-MUX4-1-CH2");
    EXPECT_EQ(header.at("async_paths").at(0).at("uri"), "MAIN:1:POT:I~HP:1:ADC_I");
    const auto row = bench.events("LIVE_DATA_ROW_EIS").at(0);
    EXPECT_EQ(row.at("impedances").at(0).at(0), 1000.0);
    EXPECT_EQ(row.at("impedances").at(1).at(0), 500.0) << "channel 2 sees half the cell potential";
    EXPECT_EQ(row.at("impedances").at(2).at(0), 4000.0) << "channel 4 a quarter of its current";
    EXPECT_DOUBLE_EQ(row.at("paths").at(2).at(0).as_double(), 0.1);
    EXPECT_DOUBLE_EQ(row.at("async_paths").at(0).at(0).as_double(), 2e-4);
    EXPECT_EQ(row.at("paths_waves").as_array().size(), 4u);
}

TEST(DeviceJobsAc, GeisChoosesTheCurrentAmplitudeAndNoiseShowsInTheErrors) {
    JobBench bench({.queueCapacity = 2, .cellSpec = "resistor:R=1000"});
    auto parameters = eisParameters(0.0);
    parameters["minimum_current_amplitude"] = 1e-6;
    parameters["maximum_current_amplitude"] = 1e-3;
    parameters["frequency_range"].as_object()["amplitude"] = 0.05;
    ASSERT_EQ(runToEnd(bench, "geis_va", parameters).at("status"), "FINISHED");
    const auto row = bench.events("LIVE_DATA_ROW_EIS").front();
    const auto current = numbers(row.at("paths_waves").at(1));
    const auto voltage = numbers(row.at("paths_waves").at(0));
    EXPECT_NEAR(*std::ranges::max_element(current), 5e-5, 1e-12) << "0.05 V over 1 kOhm";
    EXPECT_NEAR(*std::ranges::max_element(voltage), 0.05, 1e-9);
    EXPECT_EQ(row.at("impedances").at(0).at(0), 1000.0);

    JobBench noisy({.queueCapacity = 2, .cellSpec = "resistor:R=1000,noise=1e-7,seed=3"});
    ASSERT_EQ(runToEnd(noisy, "eis", eisParameters()).at("status"), "FINISHED");
    for (const auto& r : noisy.events("LIVE_DATA_ROW_EIS")) {
        const auto impedance = numbers(r.at("impedances").at(0));
        EXPECT_NE(impedance[0], 1000.0);
        EXPECT_NEAR(impedance[0], 1000.0, 8.0 * impedance[2]) << "within a few standard errors";
        EXPECT_GT(impedance[2], 0.0);
        EXPECT_GT(impedance[3], 0.0);
    }
}

TEST(DeviceJobsAc, StopKeepsTheMeasuredPoints) {
    JobBench bench({.queueCapacity = 2, .cellSpec = "resistor:R=1000"});
    auto parameters = eisParameters();
    parameters["frequency_range"].as_object()["meas_duration"] = 1.0;
    const auto jobId = bench.start("eis", parameters).at("job_id");
    bench.clock.advance(3300ms);
    bench.model.handleText(bench.client.id, R"({"do":"/stop"})");
    const auto done = bench.doneOf(jobId);
    EXPECT_EQ(done.at("status_detail"), "STOPPED_BY_USER");
    const auto rows = bench.events("LIVE_DATA_ROW_EIS").size();
    EXPECT_EQ(rows, 3u) << "one point per emulated second";
    const auto info = bench.model.resources()
                          .info(ResourceTypeEnum::JOB_RESULT, done.at("job_info").at("result_resource_id").as_string())
                          .value();
    EXPECT_EQ(info.header.at("number_of_rows"), rows);
}

TEST(DeviceJobsAc, RefusalsBeforeAnythingIsBuilt) {
    JobBench bench;
    const auto rangeWith = [](json::object changes) {
        auto parameters = eisParameters();
        for (auto& [key, value] : changes) parameters["frequency_range"].as_object()[key] = value;
        return parameters;
    };
    json::object bigTable{{"bias", 0.0}, {"frequency_range", {{"type", "table"}, {"spectrum", json::array()}}}};
    auto hugeTable = bigTable;
    for (int i = 0; i < 10000; ++i) {
        hugeTable["frequency_range"].as_object()["spectrum"].as_array().push_back(
            {{"frequency", 1e5}, {"amplitude", 0.01}, {"pre_duration", 0.0}, {"pre_waves", 0},
             {"meas_duration", 1.0}, {"meas_waves", 1}});
    }
    json::object multisine{{"bias", 0.0},
                           {"multisine_wave_in_result", true},
                           {"frequency_range",
                            {{"type", "table"},
                             {"fundamental_frequency", 1e6},
                             {"harmonics", json::array{{{"harmonic", 20}, {"amplitude", 0.01}}}},
                             {"pre_duration", 0.0},
                             {"pre_waves", 1},
                             {"meas_duration", 0.0},
                             {"meas_waves", 1}}}};
    auto highHarmonic = multisine;
    highHarmonic["frequency_range"].as_object()["fundamental_frequency"] = 1.0;
    highHarmonic["frequency_range"].as_object()["harmonics"].as_array()[0].as_object()["harmonic"] = 129;
    auto geis = eisParameters(0.0);
    geis["minimum_current_amplitude"] = 1e-3;
    geis["maximum_current_amplitude"] = 1e-4;
    const RefusalCase cases[] = {
        {"empty spectrum", "eis_table", bigTable, "PARAMETER_VALUE_TOO_LOW", "points"},
        {"maximum below minimum", "eis", rangeWith({{"max_frequency", 50.0}}), "PARAMETER_VALUE_TOO_LOW",
         "max_frequency"},
        {"start outside", "eis", rangeWith({{"start_frequency", 10.0}}), "PARAMETER_VALUE_TOO_LOW", "start_frequency"},
        {"no excitation", "eis", rangeWith({{"amplitude", 0.0}}), "PARAMETER_VALUE_TOO_LOW", "amplitude"},
        {"current amplitudes reversed", "geis_va", geis, "PARAMETER_VALUE_TOO_LOW", "maximum_current_amplitude"},
        {"harmonic beyond the wave", "eis_multisine_table", highHarmonic, "PARAMETER_VALUE_TOO_HIGH", "harmonic"},
    };
    expectRefusals(bench, cases);
    // A harmonic of 20 MHz is above the filter ranges of the paths.
    EXPECT_EQ(JobBench::code(bench.check("eis_multisine_table", multisine)), "HARDWARE_CONFIGURATION_ISSUE");
    // The optional members take the records' defaults.
    EXPECT_EQ(bench.check("geis_va", eisParameters(0.0)).at("status"), "SUCCESS");
    auto generated = rangeWith({{"multisine_pre_waves", 1}, {"multisine_meas_waves", 1}, {"multisine_decades", 1},
                                {"multisine_starting_harmonic", 4}});
    EXPECT_EQ(bench.check("eis_multisine", generated).at("status"), "SUCCESS");
    EXPECT_EQ(JobBench::code(bench.check("eis", eisParameters(9.995))), "PARAMETER_VALUE_TOO_HIGH")
        << "bias and amplitude leave the output range";

    // Six sync paths with waves of 1024 samples at 10000 points are more than a result holds.
    const json::object identity{{"coefficients", json::array{0.0, 1.0}}};
    const auto channel = [&](std::string_view uri, std::string_view dimension) {
        return json::object{{"uri", uri}, {"dimension", dimension}, {"unit", "V"}, {"polynomial", identity}};
    };
    json::object six{{"output_potentiostats", json::array{{{"uri", "MAIN:1:POT"},
                                                           {"potentiostatic_polynomial", identity},
                                                           {"galvanostatic_polynomial", identity}}}},
                     {"channels", json::array{channel("MAIN:1:POT:U~MUX:1:MUX_U", "voltage"),
                                              channel("MAIN:1:POT:I~MUX:1:MUX_I", "current")}},
                     {"impedance_configurations", json::array{{{"numerator", "MAIN:1:POT:U~MUX:1:MUX_U"},
                                                               {"denominator", "MAIN:1:POT:I~MUX:1:MUX_I"},
                                                               {"impedance_name", ""}}}}};
    for (int n = 1; n <= 4; ++n) {
        const auto uri = "MUX4:1:CH" + std::to_string(n) + "~MUX4:1:ADC" + std::to_string(n);
        six["channels"].as_array().push_back(channel(uri, "voltage-MUX4-1-CH" + std::to_string(n)));
    }
    EXPECT_EQ(bench.check("eis_table", hugeTable).at("status"), "SUCCESS") << "two paths fit";
    ASSERT_EQ(runToEnd(bench, "set_hardware_settings", six).at("status"), "FINISHED");
    const auto tooMany = bench.check("eis_table", hugeTable);
    EXPECT_EQ(JobBench::code(tooMany), "PARAMETER_VALUE_TOO_HIGH");
    EXPECT_EQ(tooMany.at("error").at("message_parameters").at(0), "samples");

    // Without an impedance configuration nothing can be measured; at start the job is refused.
    const json::object noImpedance{
        {"output_potentiostats", json::array{{{"uri", "MAIN:1:POT"},
                                              {"potentiostatic_polynomial", identity},
                                              {"galvanostatic_polynomial", identity}}}},
        {"channels", json::array{{{"uri", "MAIN:1:POT:U~MUX:1:MUX_U"},
                                  {"dimension", "voltage"},
                                  {"unit", "V"},
                                  {"polynomial", identity}}}},
        {"impedance_configurations", json::array()}};
    ASSERT_EQ(runToEnd(bench, "set_hardware_settings", noImpedance).at("status"), "FINISHED");
    const auto refused = bench.start("eis", eisParameters());
    EXPECT_EQ(JobBench::code(refused), "HARDWARE_CONFIGURATION_ISSUE");
}

}  // namespace
}  // namespace velmar::emulator::testing
