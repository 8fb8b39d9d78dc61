// The impedance live-data collector: what it builds from the live data equals the dataset
// built from the same events recorded as an array.

#include "support/eis_live_data_frames.hpp"

#include "json_common/enum_names.hpp"
#include "json_common/exact_json.hpp"
#include "velmar_link_json/jobs/ac/ac_live_data_handler.hpp"
#include "velmar_link_json/jobs/measurement_jobs.hpp"

#include <gtest/gtest.h>

#include <boost/json.hpp>

namespace velmar {
namespace {

namespace json = boost::json;

json::object eventOf(std::string_view text) { return parseJsonExact(text).as_object(); }

TEST(AcLiveDataCollector, BuildsTheDatasetThatTheRecordedEventsDescribe) {
    AcLiveDataHandler collector;
    EisGenerateJob job(EisParametersGenerate{}, collector.asFunction());
    auto& features = job.getFeatures();
    const std::string second = R"("impedances":[[2000,-0.5]],"paths":[[0.5,1],[0.0005,10]],"paths_waves":[],)"
                               R"("async_paths":[],"potentiostats":[[0.5,1000]],"meta":[[10,4,1.5,0,3]])";
    const std::vector<std::string> events{testing::eisHeaderEvent(), testing::eisRowEvent(),
                                          testing::eisWavesEvent(R"("paths_waves":[[1],[2]],"full_wave_size":3)"),
                                          testing::eisRowEvent(second),
                                          R"({"type":"LIVE_DATA_FINISHED","job_info":{"job_id":"e-1"}})"};
    json::array recorded;
    for (const auto& text : events) {
        auto event = eventOf(text);
        ASSERT_FALSE(features.handleEvent(*enumFromName<EventTypeEnum>(std::string_view(event.at("type").as_string())), event)) << text;
        recorded.push_back(json::object{{"type", "EVENT"}, {"event", std::move(event)}});
    }
    ASSERT_TRUE(collector.isFinished());
    EXPECT_EQ(collector.getWaveFragmentCount(), 1u);
    const auto& live = collector.getDataset();
    EXPECT_EQ(live.getRowCount(), 2u);
    EXPECT_EQ(live.getJobInfo().job_id, "e-1");
    EXPECT_EQ(live.getFrequencies(), (std::vector<double>{100, 10}));
    EXPECT_EQ(live.getWaveForRow("voltage", 1), (std::vector<double>{1, 2, 3}));  // the second row reuses wave 0
    ASSERT_EQ(live.getImpedances(0).size(), 2u);
    EXPECT_DOUBLE_EQ(live.getImpedances(0)[0].real(), 1000.5 * std::cos(-0.25));

    auto fromEvents = eisDatasetFromJsonArray(recorded, LiveDataHeaderEis{}, JobInfo{});
    ASSERT_TRUE(fromEvents) << fromEvents.error().getMessageFormatted();
    EXPECT_EQ(fromEvents->getHeader(), live.getHeader());
    EXPECT_EQ(fromEvents->getMetaTracks(), live.getMetaTracks());
    EXPECT_EQ(fromEvents->getImpedances(), live.getImpedances());
    EXPECT_EQ(fromEvents->getPathsWaves(), live.getPathsWaves());
}

}  // namespace
}  // namespace velmar
