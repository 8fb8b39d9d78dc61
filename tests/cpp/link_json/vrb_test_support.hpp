#pragma once

// `.vrb` snapshots built in memory for the import tests: the metadata that the workstation
// writes (resource record, workstation_info, header), one 0x00 byte, the payload.

#include "link_json/eis_test_support.hpp"

#include "json_common/protocol/live_data_header.hpp"
#include "velmar_link_json/jobs/ac/eis_dataset.hpp"
#include "velmar_link_json/jobs/common/binary64.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"
#include "velmar_link_json/jobs/dc/dc_dataset.hpp"

#include <boost/json.hpp>
#include <gtest/gtest.h>

#include <atomic>
#include <bit>
#include <cstdint>
#include <limits>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <unistd.h>

namespace velmar::testing {

inline LiveDataHeader dcHeader() {
    LiveDataHeader header;
    header.measurement_type = "cv";
    header.measurement_type_short = "CV";
    header.columns = {ColumnHeader("time", "s", ""), ColumnHeader("voltage", "V", "MAIN:1:VOLTAGE"),
                      ColumnHeader("current", "A", "MAIN:1:CURRENT")};
    return header;
}

inline std::string littleEndian(const std::vector<double>& values) {
    std::string out;
    appendLittleEndian(out, values.data(), values.size());
    return out;
}

/// The metadata of a snapshot: `payloadSize` as "size", protocol version 12.
inline boost::json::object vrbMetadata(std::string_view subType, boost::json::value jobDataHeader,
                                       std::uint64_t payloadSize, std::uint64_t rows) {
    JobInfo info;
    info.job_id = "job-7";
    return boost::json::object{
        {"resource_id", "0b6c1e1e-0000-4000-8000-000000000001"},
        {"name", "job job-7"},
        {"type", "JOB_RESULT"},
        {"sub_type", subType},
        {"size", payloadSize},
        {"created", "2026-03-05T10:11:12.345Z"},
        {"created_by", "emulator"},
        {"updated", "2026-03-05T10:11:12.345Z"},
        {"job_id", "job-7"},
        {"header", {{"job_data_header", std::move(jobDataHeader)},
                    {"job_info", jobInfoToJson(info)},
                    {"number_of_rows", rows}}},
        {"workstation_info", {{"serial_number", "E-1"}, {"protocol_version", 12}}},
    };
}

inline std::string vrbBytes(const boost::json::object& metadata, std::string_view payload) {
    std::string out = boost::json::serialize(metadata);
    out.push_back('\0');
    out.append(payload);
    return out;
}

/// Three rows of dcHeader(): time 0, 1, 2, and special values in the other columns.
inline std::string dcPayload() {
    return littleEndian({0.0, 1.0, 2.0, -0.0, std::numeric_limits<double>::infinity(), 4.9e-324,
                         std::bit_cast<double>(std::uint64_t{0x7FF800000000BEEFULL}), 1e-3, -2.5});
}

inline std::string dcSnapshot() {
    const std::string payload = dcPayload();
    return vrbBytes(vrbMetadata("DATASET_DC", boost::json::value_from(dcHeader()), payload.size(), 3), payload);
}

/// Three impedance rows of eisHeader(): two with waves (special values included), one without.
inline EisDataset eisSample() {
    return eisDatasetOf({eisRow(0, 0, {1.0, 2.0, 3.0}), eisRow(1, -1, {}),
                         eisRow(2, 1, {4.0, -0.0, std::numeric_limits<double>::infinity()})});
}

inline std::string eisSnapshot(const EisDataset& dataset) {
    auto form = eisDatasetToBinary(dataset);
    EXPECT_TRUE(form.has_value()) << form.error().getMessageFormatted();
    if (!form) return {};
    return vrbBytes(vrbMetadata("DATASET_AC", boost::json::value_from(form->header), form->data.size(), form->rowCount),
                    form->data);
}

/// The binary form of an impedance dataset: equal forms mean equal values, bit for bit.
inline std::string eisBits(const EisDataset& dataset) {
    auto form = eisDatasetToBinary(dataset);
    EXPECT_TRUE(form.has_value());
    return form ? form->data : std::string();
}

/// A directory of its own for each test, removed afterwards.
class VrbFileTest : public ::testing::Test {
protected:
    void SetUp() override {
        static std::atomic<int> counter{0};
        dir_ = std::filesystem::path(::testing::TempDir()) /
               ("vrb_" + std::to_string(::getpid()) + "_" + std::to_string(counter++));
        std::filesystem::create_directories(dir_);
    }
    void TearDown() override { std::filesystem::remove_all(dir_); }

    std::filesystem::path write(const std::string& name, std::string_view bytes) const {
        const auto path = dir_ / name;
        std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return path;
    }

    std::filesystem::path dir_;
};

}  // namespace velmar::testing
