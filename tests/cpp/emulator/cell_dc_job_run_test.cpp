#include "emulator/dc_jobs/dc_job_run.hpp"
#include "json_common/base64.hpp"

#include <boost/json.hpp>
#include <gtest/gtest.h>

#include <cstring>

namespace velmar::emulator {
namespace {

namespace json = boost::json;

std::unique_ptr<DcJobRun> makeRun(std::string_view spec = "resistor:R=1000") {
    const auto parameters = json::parse(R"({"start_value":0.1,"end_value":0.3,"scan_rate":0.1,"step_height":0,
        "output_data_rate":10,"autorange":true,"current_range":0.01})").as_object();
    return DcJobRun::create("ramp", parameters, parseCellSpec(spec).value(), CellControlEnum::POTENTIOSTATIC).value();
}

TEST(DcJobRun, EventsFollowTheClockAndTheResultIsColumnMajor) {
    auto run = makeRun();
    EXPECT_EQ(run->rowCount(), 21u);
    const auto header = run->headerEvent("job-1");
    EXPECT_EQ(header.at("header").at("measurement_type_short"), "RAMP");
    EXPECT_EQ(header.at("header").at("columns").at("urns").as_array().size(), 3u);

    const auto first = run->rowsEventUntil(0.45, "job-1", RowEncodingEnum::ARRAYS);
    ASSERT_TRUE(first.has_value());
    EXPECT_EQ(first->at("data").as_array().size(), 5u);  // t = 0, 0.1, ..., 0.4
    EXPECT_FALSE(run->rowsEventUntil(0.45, "job-1", RowEncodingEnum::ARRAYS).has_value());

    const auto second = run->rowsEventUntil(10.0, "job-1", RowEncodingEnum::BASE64, 4);
    ASSERT_TRUE(second.has_value());
    const auto bytes = decodeBase64(std::string_view(second->at("data").as_string())).value();
    ASSERT_EQ(bytes.size(), 4u * 3u * 8u);
    double row[3];
    std::memcpy(row, bytes.data(), sizeof(row));
    EXPECT_DOUBLE_EQ(row[0], 0.5);
    EXPECT_DOUBLE_EQ(row[1], 0.15);
    EXPECT_DOUBLE_EQ(row[2], 0.15 / 1000.0);

    run->runToEnd();
    EXPECT_TRUE(run->done());
    const auto payload = run->resultPayload();
    ASSERT_EQ(payload.size(), 21u * 3u * 8u);
    double lastTime = 0.0, firstVoltage = 0.0;
    std::memcpy(&lastTime, payload.data() + 20 * 8, 8);
    std::memcpy(&firstVoltage, payload.data() + 21 * 8, 8);
    EXPECT_DOUBLE_EQ(lastTime, 2.0);
    EXPECT_DOUBLE_EQ(firstVoltage, 0.1);
    EXPECT_EQ(run->resultHeader({}).at("number_of_rows").to_number<std::size_t>(), 21u);
}

TEST(DcJobRun, StopKeepsTheRowsSoFar) {
    auto run = makeRun();
    (void)run->rowsEventUntil(0.25, "j", RowEncodingEnum::ARRAYS);
    run->stop();
    EXPECT_TRUE(run->done());
    EXPECT_FALSE(run->rowsEventUntil(5.0, "j", RowEncodingEnum::ARRAYS).has_value());
    EXPECT_EQ(run->resultPayload().size(), 3u * 3u * 8u);
    EXPECT_FALSE(DcJobRun::create("cv", json::object{}, parseCellSpec("").value(), CellControlEnum::POTENTIOSTATIC));
}

}  // namespace
}  // namespace velmar::emulator
