#pragma once

// Datasets, device trees, temporary directories and text edits shared by the XML tests.

#include "json_common/configuration/hardware_info.hpp"
#include "link_json/eis_test_support.hpp"
#include "velmar_link_json/jobs/dc/dc_dataset.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <limits>
#include <random>
#include <string>
#include <unistd.h>

namespace velmar::testing {

/// Values that text round trips get wrong first: signed zero, NaN of both signs, infinities,
/// the smallest subnormal, the largest double and numbers that need all 17 digits.
inline std::vector<double> awkwardValues() {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    return {0.0,
            -0.0,
            nan,
            -nan,
            std::numeric_limits<double>::infinity(),
            -std::numeric_limits<double>::infinity(),
            std::numeric_limits<double>::denorm_min(),
            -std::numeric_limits<double>::denorm_min(),
            2.2250738585072009e-308,
            std::numeric_limits<double>::max(),
            std::numeric_limits<double>::lowest(),
            0.1,
            1.0 / 3.0,
            123456789012345678.0,
            1e-7,
            5e-324 * 3};
}

/// `count` doubles of random bit patterns (NaN payloads excluded: text keeps only the sign).
inline std::vector<double> randomDoubles(std::size_t count, std::uint64_t seed) {
    std::mt19937_64 generator(seed);
    std::vector<double> values;
    values.reserve(count);
    while (values.size() < count) {
        const double value = std::bit_cast<double>(generator());
        if (!std::isnan(value)) values.push_back(value);
    }
    return values;
}

/// A cv dataset: time, potential, current; `rows` rows, with the awkward values in the current.
inline DcDataset dcDataset(std::size_t rows, std::string jobType = "cv", std::string jobId = "job-dc") {
    std::vector<std::vector<double>> tracks(3);
    const auto awkward = awkwardValues();
    for (std::size_t r = 0; r < rows; ++r) {
        tracks[0].push_back(0.01 * static_cast<double>(r));
        tracks[1].push_back(-0.5 + 1e-3 * static_cast<double>(r));
        tracks[2].push_back(awkward[r % awkward.size()]);
    }
    JobInfo info;
    info.job_id = std::move(jobId);
    info.type = jobType;
    return DcDataset(std::move(jobType), "CV",
                     {ColumnHeader("time", "s", "MAIN:TIME"), ColumnHeader("potential; set", "V", "MAIN:1:VOLTAGE"),
                      ColumnHeader("current", "µA", "MAIN:1:CURRENT")},
                     std::move(tracks), std::move(info));
}

inline HardwareInfo hardwareInfo() {
    HardwareInfo info;
    info.workstation = "RQ5 #42";
    info.software = "4.2.0";
    PathInfo path;
    path.url = "main/1/voltage";
    path.urn = "MAIN:1:VOLTAGE";
    path.sampling = "simultan";
    path.source = "voltage";
    path.relevance = 0.75;
    path.gain_ranges = {{0, 1.0, true}, {1, 10.0, false}};
    path.filter_ranges = {{0, 1e5}};
    info.paths = {path};
    PotentiostatInfo potentiostat;
    potentiostat.identifier = "MAIN:1:POT";
    potentiostat.serialnumber = "P-7";
    potentiostat.has_calibration_data = true;
    potentiostat.dac_resolution = 18;
    potentiostat.current_ranges = {{0, 1e-3, 1000.0}, {1, 1e-9, 1e9}};
    potentiostat.voltage_ranges = {{0, 10.0}};
    potentiostat.compliance_ranges = {{0, 12.5}};
    info.potentiostats = {potentiostat};
    info.cards = {{"mux", "MUX4", "S-1", "1.0", "B"}};
    return info;
}

/// Bit patterns of every track, for exact comparisons that see NaN and signed zero.
inline std::vector<std::vector<std::uint64_t>> bitsOfTracks(const std::vector<std::vector<double>>& tracks) {
    std::vector<std::vector<std::uint64_t>> out;
    for (const auto& track : tracks) out.push_back(bitsOf(track));
    return out;
}

/// The text with the first occurrence of `from` replaced; fails the test when there is none.
inline std::string replaced(std::string text, std::string_view from, std::string_view to) {
    const auto at = text.find(from);
    EXPECT_NE(at, std::string::npos) << "not in the text: " << from;
    if (at != std::string::npos) text.replace(at, from.size(), to);
    return text;
}

/// The text with the span from the first `open` through the next `close` replaced.
inline std::string replacedSpan(std::string text, std::string_view open, std::string_view close, std::string_view with = {}) {
    const auto start = text.find(open);
    const auto end = start == std::string::npos ? start : text.find(close, start);
    EXPECT_NE(end, std::string::npos) << "not in the text: " << open << "..." << close;
    if (end != std::string::npos) text.replace(start, end + close.size() - start, with);
    return text;
}

/// A fresh directory per test, removed afterwards.
class TempDir {
public:
    TempDir() {
        const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
        path_ = std::filesystem::temp_directory_path() /
                ("velmar_xml_" + std::to_string(::getpid()) + "_" + test->test_suite_name() + "_" + test->name());
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    ~TempDir() {
        std::error_code ec;
        std::filesystem::remove_all(path_, ec);
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

}  // namespace velmar::testing
