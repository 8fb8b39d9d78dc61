// The impedance live-data machinery without a session: decoding of the four event kinds,
// handler order, copies, and the errors of tables that do not fit their header.

#include "support/eis_live_data_frames.hpp"

#include "json_common/exact_json.hpp"
#include "velmar_link_json/jobs/ac/ac_live_data.hpp"
#include "velmar_link_json/jobs/calibration/calibration_jobs.hpp"
#include "velmar_link_json/jobs/measurement_jobs.hpp"

#include <gtest/gtest.h>

#include <boost/json.hpp>

namespace velmar {
namespace {

namespace json = boost::json;
using testing::eisHeaderEvent;
using testing::eisRowEvent;
using testing::eisWavesEvent;

json::object eventOf(std::string_view text) { return parseJsonExact(text).as_object(); }

struct Recorder {
    std::vector<AcLiveDataMessage> messages;
    AcLiveDataHandlerFunction function() {
        return [this](const AcLiveDataMessage& message) { messages.push_back(message); };
    }
};

TEST(AcLiveData, FeaturesDecodeTheFourEventsForEveryHandlerInOrder) {
    Recorder first;
    std::vector<int> order;
    EisGenerateJob job(EisParametersGenerate{},
                       std::vector<AcLiveDataHandlerFunction>{first.function(),
                                                              [&](const AcLiveDataMessage&) { order.push_back(1); }});
    job.addLivedataEventHandler([&](const AcLiveDataMessage&) { order.push_back(2); });
    EXPECT_EQ(job.getType(), 3);
    auto& features = job.getFeatures();

    EXPECT_FALSE(features.handleEvent(EventTypeEnum::LIVE_DATA_HEADER_EIS,
                                      eventOf(eisHeaderEvent(R"("job_info":{"job_id":"j-2","status":"RUNNING"})"))));
    EXPECT_FALSE(features.handleEvent(
        EventTypeEnum::LIVE_DATA_WAVES,
        eventOf(eisWavesEvent(R"("paths_waves":[[1,2],[3,4]],"offset":1,"full_wave_size":3)"))));
    EXPECT_FALSE(features.handleEvent(EventTypeEnum::LIVE_DATA_ROW_EIS, eventOf(eisRowEvent())));
    EXPECT_FALSE(features.handleEvent(EventTypeEnum::LIVE_DATA_FINISHED,
                                      eventOf(R"({"job_info":{"job_id":"j-2","status":"FINISHED"}})")));
    EXPECT_FALSE(features.handleEvent(EventTypeEnum::LIVE_DATA_ROWS, eventOf(R"({"data":"garbage"})")));  // not AC

    ASSERT_EQ(first.messages.size(), 4u);
    EXPECT_EQ(order, (std::vector<int>{1, 2, 1, 2, 1, 2, 1, 2}));
    const auto& header = std::get<AcLiveDataHeaderMessage>(first.messages[0]);
    EXPECT_EQ(header.header.measurement_type_short, "EIS");
    EXPECT_EQ(header.header.getPathsDataHeaders().size(), 2u);
    EXPECT_EQ(header.header.getPathsDataHeaders()[1].getName(), "current");
    EXPECT_EQ(header.header.getImpedancesHeaders()[0].getUri(), "MAIN:1:POT:U~MUX:1:MUX_U/MAIN:1:POT:I~MUX:1:MUX_I");
    EXPECT_EQ(header.header.getColumns().size(), 5u + 2u + 2u + 2u + 2u);
    EXPECT_EQ(header.jobInfo.job_id, "j-2");
    EXPECT_EQ(header.jobInfo.status, JobStatusEnum::RUNNING);
    const auto& waves = std::get<AcLiveDataWavesMessage>(first.messages[1]).waves;
    EXPECT_EQ(waves.offset, 1u);
    EXPECT_EQ(waves.full_wave_size, 3u);
    const auto& row = std::get<AcLiveDataRowMessage>(first.messages[2]).row;
    EXPECT_EQ(row.getMeta(), (std::vector<double>{100, 4, 0.5, 0, 3}));
    EXPECT_EQ(row.paths_waves[1], (std::vector<double>{4, 5, 6}));
    EXPECT_EQ(std::get<AcLiveDataFinishedMessage>(first.messages[3]).jobInfo.status, JobStatusEnum::FINISHED);
}

TEST(AcLiveData, SingleHandlerListOfOneAndCopiesBehaveAlike) {
    Recorder a, b;
    EisFrequencyTableJob single(EisParametersFrequencyTable{}, a.function(), {{"sample", "A7"}});
    GeisVaGenerateJob list(GeisVaParametersGenerate{}, std::vector<AcLiveDataHandlerFunction>{b.function()});
    EXPECT_EQ(single.getMetaData().at("sample"), "A7");
    const auto header = eventOf(eisHeaderEvent());
    const auto row = eventOf(eisRowEvent());
    EXPECT_FALSE(single.getFeatures().headerEventHandler(header));
    EXPECT_FALSE(single.getFeatures().rowEisEventHandler(row));
    EXPECT_FALSE(list.getFeatures().headerEventHandler(header));
    EXPECT_FALSE(list.getFeatures().rowEisEventHandler(row));
    ASSERT_EQ(a.messages.size(), 2u);
    ASSERT_EQ(b.messages.size(), 2u);
    EXPECT_EQ(std::get<AcLiveDataRowMessage>(a.messages[1]).row, std::get<AcLiveDataRowMessage>(b.messages[1]).row);

    // A copy keeps the handlers but decodes through its own features, which have seen no
    // header yet.
    EisFrequencyTableJob copy(single);
    EXPECT_EQ(copy.getFeatures().getLivedataEventHandlers().size(), 1u);
    EXPECT_EQ(copy.getFeatures().getLastHeader(), nullptr);
    EXPECT_TRUE(copy.getFeatures().rowEisEventHandler(row));
    EXPECT_FALSE(copy.getFeatures().headerEventHandler(header));
    EXPECT_FALSE(copy.getFeatures().rowEisEventHandler(row));
    EXPECT_EQ(a.messages.size(), 4u);

    // The calibration jobs share the template.
    SetCalibrationDataJob calibration;
    EXPECT_EQ(calibration.getType(), 3);
    EXPECT_FALSE(calibration.getFeatures().headerEventHandler(header));
}

std::string problemOf(const ErrorObject& error) {
    EXPECT_EQ(error.code, ErrorCodeEnum::JSON_MALFORMED);
    return error.getMessageFormatted();
}

TEST(AcLiveData, TablesThatDoNotFitTheHeaderGiveTheMismatchMessage) {
    Recorder recorder;
    EisMultisineTableJob job(EisMultiSineTable{}, recorder.function());
    auto& features = job.getFeatures();
    const std::string mismatch = "the AC data table does not match the declared ";

    EXPECT_EQ(problemOf(features.rowEisEventHandler(eventOf(eisRowEvent()))),
              mismatch + "header: none received before this row");
    EXPECT_EQ(problemOf(features.wavesEventHandler(eventOf(eisWavesEvent(R"("paths_waves":[[1],[2]])")))),
              mismatch + "header: none received before this wave fragment");
    ASSERT_FALSE(features.headerEventHandler(eventOf(eisHeaderEvent())));

    struct Case {
        std::string members;
        std::string expected;
    };
    const std::string waves = R"("paths_waves":[],"async_paths":[],)";
    const std::vector<Case> rows{
        {R"("impedances":[[1,2],[3,4]],"paths":[[0.5,1],[0.5,10]],)" + waves + R"("potentiostats":[[0.5,1]],"meta":[[1,2,3,4,5]])",
         "impedances: 2 lists for 1 declared"},
        {R"("impedances":[[1,2]],"paths":[[0.5,1],[0.5]],)" + waves + R"("potentiostats":[[0.5,1]],"meta":[[1,2,3,4,5]])",
         "paths: list 1 holds 1 values for 2 columns"},
        {R"("impedances":[[1,2]],"paths":[[0.5,1],[0.5,1]],)" + waves + R"("potentiostats":[[0.5,1]],"meta":[[1,2,3]])",
         "meta: 1 lists of 3 values for 5 meta columns"},
        {R"("impedances":[[1,2]],"paths":[[0.5,1],[0.5,1]],"paths_waves":[[1]],"async_paths":[],)"
         R"("potentiostats":[[0.5,1]],"meta":[[1,2,3,4,5]])",
         "paths_waves: 1 waves for 2 sync paths"},
        {R"("impedances":[[1,2]],"paths":[[0.5,1],[0.5,1]],"paths_waves":[],"async_paths":[[1]],)"
         R"("potentiostats":[[0.5,1]],"meta":[[1,2,3,4,5]])",
         "async_paths: 1 lists for 0 declared"},
        {R"("impedances":[[1,2]],"paths":[[0.5,1],[0.5,1]],)" + waves + R"("potentiostats":[[0.5,1]])",
         "row layout: 'meta' missing or not an array"},
        {R"("impedances":[[1,"x"]],"paths":[[0.5,1],[0.5,1]],)" + waves + R"("potentiostats":[[0.5,1]],"meta":[[1,2,3,4,5]])",
         "row layout: 'impedances' holds a non-number"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(problemOf(features.rowEisEventHandler(eventOf(eisRowEvent(row.members)))), mismatch + row.expected);
    }
    EXPECT_EQ(problemOf(features.wavesEventHandler(eventOf(eisWavesEvent(R"("paths_waves":[[1,2]])")))),
              mismatch + "wave fragment: 1 fragments for 2 sync paths");
    EXPECT_EQ(problemOf(features.wavesEventHandler(
                  eventOf(eisWavesEvent(R"("paths_waves":[[1,2],[3,4]],"offset":2,"full_wave_size":3)")))),
              mismatch + "wave fragment: samples 2 to 4 of path 0 exceed 3 samples");
    EXPECT_EQ(problemOf(features.wavesEventHandler(eventOf(eisWavesEvent(R"("paths_waves":[[1],[2]],"offset":-1)")))),
              mismatch + "wave layout: 'offset' is not an unsigned integer");
    EXPECT_EQ(recorder.messages.size(), 1u);  // the header only

    // A row that fits still passes after the failures (the header stays).
    EXPECT_FALSE(features.rowEisEventHandler(eventOf(eisRowEvent())));
    // A row with an empty "async_paths" is valid when none is declared, as is one without waves.
    EXPECT_FALSE(features.rowEisEventHandler(
        eventOf(eisRowEvent(R"("impedances":[[1,2]],"paths":[[0.5,1],[0.5,1]],)" + waves +
                            R"("potentiostats":[[0.5,1]],"meta":[[1,2,3,-1,0]])"))));
    // A complete wave in one fragment.
    EXPECT_FALSE(features.wavesEventHandler(
        eventOf(eisWavesEvent(R"("paths_waves":[[1,2,3],[4,5,6]],"offset":0,"full_wave_size":3)"))));
    EXPECT_EQ(recorder.messages.size(), 4u);
}

TEST(AcLiveData, BadHeadersAndJobInformationAreMalformed) {
    Recorder recorder;
    GeisVaFrequencyTableJob job(GeisVaParametersFrequencyTable{}, recorder.function());
    auto& features = job.getFeatures();
    EXPECT_EQ(problemOf(features.headerEventHandler(eventOf(R"({"type":"LIVE_DATA_HEADER_EIS"})"))),
              "json malformed: live data event without 'header'");
    EXPECT_EQ(problemOf(features.headerEventHandler(eventOf(R"({"header":"EIS"})"))),
              "json malformed: live data 'header' is not an object");
    EXPECT_EQ(problemOf(features.headerEventHandler(eventOf(R"({"header":{"impedances":[],"paths":[],)"
                                                            R"("async_paths":[],"potentiostats":[]}})"))),
              "the AC data table does not match the declared header: 'meta' missing");
    EXPECT_EQ(problemOf(features.headerEventHandler(eventOf(R"({"header":{"impedances":[{"numerator":1}],"paths":[],)"
                                                            R"("async_paths":[],"potentiostats":[],"meta":{}}})")))
                  .rfind("the AC data table does not match the declared header: 'impedances': ", 0),
              0u);
    EXPECT_EQ(problemOf(features.headerEventHandler(eventOf(eisHeaderEvent(R"("job_info":[])")))),
              "json malformed: live data 'job_info' is not an object");
    EXPECT_EQ(problemOf(features.finishedEventHandler(eventOf(R"({"job_info":7})"))),
              "json malformed: live data 'job_info' is not an object");
    EXPECT_EQ(features.getLastHeader(), nullptr);
    EXPECT_TRUE(recorder.messages.empty());

    // Without "job_info" the finished notice carries the job's stored information.
    EXPECT_FALSE(features.finishedEventHandler(eventOf(R"({"type":"LIVE_DATA_FINISHED"})")));
    ASSERT_EQ(recorder.messages.size(), 1u);
    EXPECT_EQ(std::get<AcLiveDataFinishedMessage>(recorder.messages[0]).jobInfo.status, JobStatusEnum::UNKNOWN);
}

}  // namespace
}  // namespace velmar
