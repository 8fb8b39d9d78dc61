#include "json_common/exact_json.hpp"
#include "json_common/protocol/live_data_header.hpp"
#include "velmar_link_json/jobs/dc/dc_jobs.hpp"
#include "velmar_link_json/jobs/dc/dc_live_data.hpp"

#include <boost/json.hpp>
#include <gtest/gtest.h>

namespace velmar {
namespace {

namespace json = boost::json;

constexpr std::string_view HEADER_EVENT = R"({"type":"EVENT","event":{"type":"LIVE_DATA_HEADER","header":{
    "measurement_type_short":"CV","measurement_type":"Cyclic Voltammetry",
    "columns":{"dimensions":["time","voltage","current"],"units":["s","V","A"],"urns":["T","U","I"]}}}})";

std::string rowsEvent(std::string_view data) {
    return std::string(R"({"type":"EVENT","event":{"type":"LIVE_DATA_ROWS","data":)") + std::string(data) + "}}";
}

struct Recorder {
    std::vector<DcLiveDataMessage> messages;
    DcLiveDataHandlerFunction function() {
        return [this](const DcLiveDataMessage& message) { messages.push_back(message); };
    }
};

TEST(DcLiveData, IsEventOfTypeChecksBothTypes) {
    boost::system::error_code ec;
    EXPECT_TRUE(isEventOfType(ec, parseJsonExact(HEADER_EVENT), "LIVE_DATA_HEADER"));
    EXPECT_FALSE(isEventOfType(ec, parseJsonExact(HEADER_EVENT), "LIVE_DATA_ROWS"));
    EXPECT_FALSE(isEventOfType(ec, parseJsonExact(R"({"type":"REPLY","event":{"type":"LIVE_DATA_ROWS"}})"), "LIVE_DATA_ROWS"));
    EXPECT_FALSE(isEventOfType(ec, parseJsonExact(R"({"type":"EVENT","event":{"type":7}})"), "LIVE_DATA_ROWS"));
    EXPECT_FALSE(isEventOfType(ec, parseJsonExact(R"({"type":"EVENT"})"), "LIVE_DATA_ROWS"));
    EXPECT_FALSE(isEventOfType(ec, parseJsonExact(R"([1,2])"), "LIVE_DATA_ROWS"));
}

json::object eventOf(std::string_view text) { return parseJsonExact(text).as_object().at("event").as_object(); }

TEST(DcLiveData, FeaturesDecodeTheThreeEventsForEveryHandlerInOrder) {
    Recorder first, second;
    std::vector<int> order;
    CvJob job(CvParameters{}, std::vector<DcLiveDataHandlerFunction>{first.function(), [&](const DcLiveDataMessage&) {
                                                                         order.push_back(1);
                                                                     }});
    job.addLivedataEventHandler([&](const DcLiveDataMessage&) { order.push_back(2); });
    job.addLivedataEventHandler(second.function());
    EXPECT_EQ(job.getType(), 1);
    auto& features = job.getFeatures();

    const std::vector<double> binary{0.2, 0.3, -0.0, 0.3, 0.4, 4e-6};
    EXPECT_FALSE(features.handleEvent(EventTypeEnum::LIVE_DATA_HEADER, eventOf(HEADER_EVENT)));
    EXPECT_FALSE(features.handleEvent(EventTypeEnum::LIVE_DATA_ROWS, eventOf(rowsEvent("[[0.0,0.1,1e-6],[0.1,0.2,2e-6]]"))));
    EXPECT_FALSE(features.handleEvent(EventTypeEnum::LIVE_DATA_ROWS,
                                      eventOf(rowsEvent("\"" + encodeLiveDataRowsBase64(binary.data(), 2, 3) + "\""))));
    EXPECT_FALSE(features.handleEvent(EventTypeEnum::LIVE_DATA_ROWS, eventOf(rowsEvent("[]"))));
    EXPECT_FALSE(features.handleEvent(
        EventTypeEnum::LIVE_DATA_FINISHED,
        eventOf(R"({"type":"EVENT","event":{"type":"LIVE_DATA_FINISHED","job_info":{"job_id":"j-1","status":"FINISHED"}}})")));
    EXPECT_FALSE(features.handleEvent(EventTypeEnum::JOB_STATUS_UPDATE, json::object{{"new_status", 3}}));  // not live data

    ASSERT_EQ(first.messages.size(), 5u);
    EXPECT_EQ(second.messages.size(), 5u);
    EXPECT_EQ(order, (std::vector<int>{1, 2, 1, 2, 1, 2, 1, 2, 1, 2}));
    const auto& header = std::get<DcLiveDataHeaderMessage>(first.messages[0]).header;
    EXPECT_EQ(header.measurement_type_short, "CV");
    EXPECT_EQ(header.getNumberOfColumns(), 3u);
    const auto& rows = std::get<DcLiveDataRowsMessage>(first.messages[1]);
    EXPECT_EQ(rows.toRows(), (std::vector<std::vector<double>>{{0.0, 0.1, 1e-6}, {0.1, 0.2, 2e-6}}));
    const auto& decoded = std::get<DcLiveDataRowsMessage>(first.messages[2]);
    EXPECT_EQ(decoded.values, binary);
    EXPECT_TRUE(std::signbit(decoded.row(0)[2]));
    EXPECT_EQ(std::get<DcLiveDataRowsMessage>(first.messages[3]).rowCount(), 0u);
    EXPECT_EQ(std::get<DcLiveDataFinishedMessage>(first.messages[4]).jobInfo.job_id, "j-1");
}

TEST(DcLiveData, SingleHandlerAndListOfOneBehaveAlike) {
    Recorder a, b;
    RampJob single(RampParameters{}, a.function());
    RampJob list(RampParameters{}, std::vector<DcLiveDataHandlerFunction>{b.function()});
    const auto header = eventOf(HEADER_EVENT);
    const auto event = eventOf(rowsEvent("[[1,2,3]]"));
    for (auto* job : {&single, &list}) {
        EXPECT_FALSE(job->getFeatures().headerEventHandler(header));
        EXPECT_FALSE(job->getFeatures().rowEventHandler(event));
    }
    ASSERT_EQ(a.messages.size(), 2u);
    ASSERT_EQ(b.messages.size(), 2u);
    EXPECT_EQ(std::get<DcLiveDataRowsMessage>(a.messages[1]).values, std::get<DcLiveDataRowsMessage>(b.messages[1]).values);

    // A copied job keeps the handlers and decodes through its own features.
    RampJob copy(single);
    EXPECT_FALSE(copy.getFeatures().headerEventHandler(header));
    EXPECT_FALSE(copy.getFeatures().rowEventHandler(event));
    EXPECT_EQ(a.messages.size(), 4u);
}

TEST(DcLiveData, MalformedEventsGiveAnErrorAndReachNoHandler) {
    Recorder recorder;
    OcvJob job(OcvParameters{}, recorder.function());
    auto& features = job.getFeatures();
    const auto event = [](std::string_view text) { return parseJsonExact(text).as_object(); };
    const auto problem = [](const ErrorObject& error) {
        EXPECT_EQ(error.code, ErrorCodeEnum::JSON_MALFORMED);
        return error.getMessageParameters().empty() ? std::string() : error.getMessageFormatted();
    };
    EXPECT_EQ(problem(features.rowEventHandler(event(R"({"data":[[1,2,3]]})"))),
              "json malformed: live data rows before any header");
    EXPECT_EQ(problem(features.headerEventHandler(event(R"({"type":"LIVE_DATA_HEADER"})"))),
              "json malformed: live data event without 'header'");
    EXPECT_EQ(problem(features.headerEventHandler(event(R"({"header":[1]})"))),
              "json malformed: live data 'header' is not an object");
    ASSERT_FALSE(features.headerEventHandler(eventOf(HEADER_EVENT)));
    EXPECT_EQ(problem(features.rowEventHandler(event(R"({"type":"LIVE_DATA_ROWS"})"))),
              "json malformed: live data event without 'data'");
    EXPECT_EQ(problem(features.rowEventHandler(event(R"({"data":null})"))), "json malformed: live data event without 'data'");
    EXPECT_EQ(problem(features.rowEventHandler(event(R"({"data":[[1,"a",3]]})"))),
              "json malformed: live data rows must be arrays of numbers");
    EXPECT_EQ(problem(features.rowEventHandler(event(R"({"data":[[1,2,3],[1,2]]})"))),
              "json malformed: live data row 1 is not an array of 3 values (the header's columns)");
    EXPECT_EQ(problem(features.rowEventHandler(event(R"({"data":{"x":1}})"))),
              "json malformed: live data 'data' is neither rows nor Base64 text");
    EXPECT_EQ(problem(features.rowEventHandler(event(R"({"data":"AAA"})"))),
              "json malformed: Base64 rows of 3 characters are not whole 4-character groups");
    EXPECT_EQ(problem(features.rowEventHandler(event(R"({"data":"AAAAAAAAAAA="})"))),
              "json malformed: a binary block of 8 bytes is not a whole number of rows of 3 columns");
    EXPECT_EQ(problem(features.finishedEventHandler(event(R"({"job_info":[]})"))),
              "json malformed: live data 'job_info' is not an object");
    EXPECT_EQ(recorder.messages.size(), 1u);  // the header only
}

TEST(DcLiveData, CollectorBuildsTheDataset) {
    DcLiveDataHandler collector;
    CvJob job(CvParameters{}, collector.asFunction());
    auto& features = job.getFeatures();
    EXPECT_FALSE(features.headerEventHandler(eventOf(HEADER_EVENT)));
    EXPECT_FALSE(features.rowEventHandler(parseJsonExact(R"({"data":[[0,1,2],[1,2,3]]})").as_object()));
    EXPECT_FALSE(features.finishedEventHandler(parseJsonExact(R"({"job_info":{"job_id":"x"}})").as_object()));
    EXPECT_TRUE(collector.isFinished());
    const auto& data = collector.getDataset();
    EXPECT_EQ(data.getRowCount(), 2u);
    EXPECT_EQ(data.getDcTrack("current"), (std::vector<double>{2, 3}));
    EXPECT_EQ(data.getJobInfo().job_id, "x");
    EXPECT_EQ(data.getJobType(), "Cyclic Voltammetry");
}

}  // namespace
}  // namespace velmar
