#include "json_common/protocol/live_data_eis.hpp"
#include "velmar_link_json/events/velmar_link_event_handler.hpp"
#include "velmar_link_json/jobs/common/job_info.hpp"

#include <gtest/gtest.h>

#include <boost/json.hpp>

namespace velmar {
namespace {

namespace json = boost::json;

void fire(const VelmarLinkEventHandler& handler, std::string_view event) {
    (*handler.getRawCallback())(json::parse(event).as_object());
}

TEST(EventHandler, JobStatusUpdateDecodesStatusAndJobInfo) {
    int calls = 0;
    auto handler = VelmarLinkEventHandler::makeJobStatusUpdateEventHandler([&](JobStatusEnum status, const JobInfo& info) {
        ++calls;
        EXPECT_EQ(status, JobStatusEnum::RUNNING);
        EXPECT_EQ(info.job_id, "j");
    });
    EXPECT_EQ(handler->getType(), EventTypeEnum::JOB_STATUS_UPDATE);
    fire(*handler, R"({"type":"JOB_STATUS_UPDATE","new_status":"RUNNING","job_info":{"job_id":"j"}})");
    EXPECT_EQ(calls, 1);
}

TEST(EventHandler, MalformedEventsAreDroppedWithoutCallingBack) {
    int calls = 0;
    auto status = VelmarLinkEventHandler::makeJobStatusUpdateEventHandler([&](JobStatusEnum, const JobInfo&) { ++calls; });
    auto log = VelmarLinkEventHandler::makeLogMessageEventHandler(
        [&](LogSeverityEnum, const std::string&, const std::string&) { ++calls; });
    auto rows = VelmarLinkEventHandler::makeLiveDataRowsEventHandler([&](const auto&) { ++calls; });
    auto rowEis = VelmarLinkEventHandler::makeLiveDataRowEisEventHandler([&](const LiveDataRowEis&) { ++calls; });
    auto done = VelmarLinkEventHandler::makeJobDoneEventHandler([&](const JobInfo&) { ++calls; });

    testing::internal::CaptureStderr();
    fire(*status, R"({"new_status":"running","job_info":{}})");
    fire(*log, R"({"severity":"LOUD","date_time":"t","message":"m"})");
    fire(*log, R"({"severity":"DEBUG","date_time":1,"message":"m"})");
    fire(*rows, R"({"data":[[1,"x"]]})");
    fire(*rows, R"({})");
    fire(*rowEis, R"({"impedances":[],"paths":[],"paths_waves":[],"async_paths":[],"potentiostats":[]})");
    const auto errors = testing::internal::GetCapturedStderr();
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 6);
    EXPECT_NE(errors.find("the AC data table does not match the declared "), std::string::npos);
}

// Job information follows the rule of its record: a missing or ill-typed one is the default
// information (with the event's own job id), not a reason to drop the event.
TEST(EventHandler, EventsWithoutJobInformationCarryTheDefault) {
    std::vector<JobInfo> seen;
    auto status = VelmarLinkEventHandler::makeJobStatusUpdateEventHandler(
        [&](JobStatusEnum, const JobInfo& info) { seen.push_back(info); });
    auto done = VelmarLinkEventHandler::makeJobDoneEventHandler([&](const JobInfo& info) { seen.push_back(info); });
    fire(*status, R"({"new_status":"RUNNING","job_id":"j7"})");
    fire(*done, R"({"job_info":"finished"})");
    ASSERT_EQ(seen.size(), 2u);
    EXPECT_EQ(seen[0].job_id, "j7");
    EXPECT_EQ(seen[1].status, JobStatusEnum::UNKNOWN);
}

TEST(EventHandler, LogMessagesCarryTheirFields) {
    std::string seen;
    auto job = VelmarLinkEventHandler::makeJobLogMessageEventHandler(
        [&](const std::string& id, LogSeverityEnum severity, const std::string& time, const std::string& message) {
            seen = id + "|" + std::to_string(static_cast<int>(severity)) + "|" + time + "|" + message;
        });
    fire(*job, R"({"job_id":"j1","severity":"CRITICAL_ERROR","date_time":"now","message":"hot"})");
    EXPECT_EQ(seen, "j1|3|now|hot");
    EXPECT_EQ(job->getType(), EventTypeEnum::MESSAGE_FROM_JOB);
}

TEST(EventHandler, LiveDataEventsDecode) {
    std::vector<std::vector<double>> rows;
    auto rowsHandler = VelmarLinkEventHandler::makeLiveDataRowsEventHandler([&](const auto& r) { rows = r; });
    fire(*rowsHandler, R"({"data":[[1,2.5],[3,4]]})");
    EXPECT_EQ(rows, (std::vector<std::vector<double>>{{1, 2.5}, {3, 4}}));
    fire(*rowsHandler, R"({"data":[]})");
    EXPECT_TRUE(rows.empty());

    LiveDataRowEis row;
    auto rowHandler = VelmarLinkEventHandler::makeLiveDataRowEisEventHandler([&](const LiveDataRowEis& r) { row = r; });
    fire(*rowHandler, R"({"impedances":[[1,2]],"paths":[[3]],"paths_waves":[[]],"async_paths":[],"potentiostats":[[4]],"meta":[[5,6]]})");
    EXPECT_TRUE(row.async_paths.empty());
    EXPECT_EQ(row.meta, (NumberLists{{5, 6}}));

    LiveDataWavesEis waves;
    auto waveHandler = VelmarLinkEventHandler::makeLiveDataWaveEventHandler([&](const LiveDataWavesEis& w) { waves = w; });
    fire(*waveHandler, R"({"paths_waves":[[1,2,3]],"offset":0,"full_wave_size":3})");
    EXPECT_EQ(waves.offset, 0U);
    EXPECT_EQ(waves.full_wave_size, waves.paths_waves[0].size());
    EXPECT_EQ(waveHandler->getType(), EventTypeEnum::LIVE_DATA_WAVES);

    std::string type;
    auto header = VelmarLinkEventHandler::makeLiveDataHeaderEisEventHandler(
        [&](const LiveDataHeaderEis& h, const JobInfo& info) { type = h.measurement_type_short + "/" + info.type; });
    fire(*header, R"({"header":{"impedances":[],"paths":[],"async_paths":[],"potentiostats":[],"meta":{"dimensions":[],"units":[]}},"job_info":{"type":"eis"}})");
    EXPECT_EQ(type, "EIS/eis");
}

TEST(EventHandler, EveryFactoryIsBoundToItsEventType) {
    EXPECT_EQ(VelmarLinkEventHandler::makeLiveDataHeaderEventHandler({})->getType(), EventTypeEnum::LIVE_DATA_HEADER);
    EXPECT_EQ(VelmarLinkEventHandler::makeLiveDataHeaderEisEventHandler({})->getType(),
              EventTypeEnum::LIVE_DATA_HEADER_EIS);
    EXPECT_EQ(VelmarLinkEventHandler::makeLiveDataRowsEventHandler({})->getType(), EventTypeEnum::LIVE_DATA_ROWS);
    EXPECT_EQ(VelmarLinkEventHandler::makeLiveDataRowEisEventHandler({})->getType(), EventTypeEnum::LIVE_DATA_ROW_EIS);
    EXPECT_EQ(VelmarLinkEventHandler::makeLiveDataFinishedEventHandler({})->getType(),
              EventTypeEnum::LIVE_DATA_FINISHED);
    EXPECT_EQ(VelmarLinkEventHandler::makeJobDoneEventHandler({})->getType(), EventTypeEnum::JOB_DONE);
    EXPECT_EQ(VelmarLinkEventHandler::makeLogMessageEventHandler({})->getType(), EventTypeEnum::MESSAGE_FROM_SERVER);
}

}  // namespace
}  // namespace velmar
