#include "json_common/exact_json.hpp"
#include "json_common/protocol/live_data_header.hpp"
#include "velmar_link_json/jobs/dc/dc_jobs.hpp"
#include "velmar_link_json/jobs/dc/dc_live_data.hpp"
#include "velmar_link_json/link_json_session.hpp"

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

TEST(DcLiveData, SessionRoutesTheThreeEventsToEveryHandlerInOrder) {
    LinkJsonSession session("127.0.0.1");
    Recorder first, second;
    std::vector<int> order;
    CvJob job(CvParameters{}, std::vector<DcLiveDataHandlerFunction>{first.function(), [&](const DcLiveDataMessage&) {
                                                                         order.push_back(1);
                                                                     }});
    job.addLivedataEventHandler([&](const DcLiveDataMessage&) { order.push_back(2); });
    job.addLivedataEventHandler(second.function());
    EXPECT_EQ(job.getType(), 1);
    job.setEventHandlers(session);

    session.dispatchIncommingJson(std::string(HEADER_EVENT));
    session.dispatchIncommingJson(rowsEvent("[[0.0,0.1,1e-6],[0.1,0.2,2e-6]]"));
    const std::vector<double> binary{0.2, 0.3, -0.0, 0.3, 0.4, 4e-6};
    session.dispatchIncommingJson(rowsEvent("\"" + encodeLiveDataRowsBase64(binary.data(), 2, 3) + "\""));
    session.dispatchIncommingJson(rowsEvent("[]"));
    session.dispatchIncommingJson(
        R"({"type":"EVENT","event":{"type":"LIVE_DATA_FINISHED","job_info":{"job_id":"j-1","status":"FINISHED"}}})");
    job.removeEventHandlers(session);
    session.dispatchIncommingJson(rowsEvent("[[9,9,9]]"));  // no longer routed

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
    const auto event = parseJsonExact(rowsEvent("[[1,2,3]]")).as_object().at("event").as_object();
    single.getFeatures().rowEventHandler(event);
    list.getFeatures().rowEventHandler(event);
    ASSERT_EQ(a.messages.size(), 1u);
    ASSERT_EQ(b.messages.size(), 1u);
    EXPECT_EQ(std::get<DcLiveDataRowsMessage>(a.messages[0]).values, std::get<DcLiveDataRowsMessage>(b.messages[0]).values);

    // A copied job keeps the handlers and dispatches through its own features.
    RampJob copy(single);
    copy.getFeatures().rowEventHandler(event);
    EXPECT_EQ(a.messages.size(), 2u);
}

TEST(DcLiveData, MalformedRowEventsThrowTheJsonError) {
    Recorder recorder;
    OcvJob job(OcvParameters{}, recorder.function());
    auto& features = job.getFeatures();
    const auto event = [](std::string_view text) { return parseJsonExact(text).as_object(); };
    EXPECT_THROW(features.rowEventHandler(event(R"({"type":"LIVE_DATA_ROWS"})")), std::exception);
    EXPECT_THROW(features.rowEventHandler(event(R"({"data":[["a"]]})")), std::exception);
    EXPECT_THROW(features.rowEventHandler(event(R"({"data":{"x":1}})")), std::exception);
    EXPECT_THROW(features.rowEventHandler(event(R"({"data":"AAA"})")), std::exception);
    EXPECT_THROW(features.headerEventHandler(event(R"({"header":{"measurement_type":"x"}})")), std::exception);
    EXPECT_TRUE(recorder.messages.empty());
}

TEST(DcLiveData, CollectorBuildsTheDataset) {
    DcLiveDataHandler collector;
    CvJob job(CvParameters{}, collector.asFunction());
    auto& features = job.getFeatures();
    features.headerEventHandler(parseJsonExact(HEADER_EVENT).as_object().at("event").as_object());
    features.rowEventHandler(parseJsonExact(R"({"data":[[0,1,2],[1,2,3]]})").as_object());
    features.finishedEventHandler(parseJsonExact(R"({"job_info":{"job_id":"x"}})").as_object());
    EXPECT_TRUE(collector.isFinished());
    const auto& data = collector.getDataset();
    EXPECT_EQ(data.getRowCount(), 2u);
    EXPECT_EQ(data.getDcTrack("current"), (std::vector<double>{2, 3}));
    EXPECT_EQ(data.getJobInfo().job_id, "x");
    EXPECT_EQ(data.getJobType(), "Cyclic Voltammetry");
}

}  // namespace
}  // namespace velmar
