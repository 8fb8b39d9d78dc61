// LinkJsonSession without sockets: a fake transport records what is sent, and frames are fed
// to the dispatcher on the session's I/O thread.

#include "support/fake_ll_session.hpp"

#include "json_common/logging/error_object_json.hpp"
#include "velmar_link_json/events/velmar_link_event_handler.hpp"
#include "velmar_link_json/jobs/control/control_jobs.hpp"
#include "velmar_link_json/jobs/dc/dc_jobs.hpp"
#include "velmar_link_json/link_json_session.hpp"

#include <gtest/gtest.h>
#include <boost/json.hpp>

#include <future>
#include <regex>
#include <set>

namespace velmar {
namespace {

namespace json = boost::json;
using testing::FakeLlSessionFactory;
using testing::FakeTransportState;
using namespace std::chrono_literals;

json::object parsed(const std::string& text) { return json::parse(text).as_object(); }

std::string requestIdOf(const std::string& text) { return std::string(parsed(text).at("request_id").as_string()); }

std::string replyText(const std::string& requestId, json::object body = {}) {
    body["type"] = "REPLY";
    body["request_id"] = requestId;
    body["status"] = "SUCCESS";
    return json::serialize(body);
}

ErrorCodeEnum codeOf(const json::object& reply) { return LinkJsonSession::getError(reply).code; }

class SessionTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_FALSE(session.connect()); }

    /// Starts an asynchronous request and returns the future of its reply and its request text.
    std::pair<std::future<json::object>, std::string> start(json::object request, int timeoutMs = 0) {
        auto promise = std::make_shared<std::promise<json::object>>();
        auto future = promise->get_future();
        const auto before = state.sent.size();
        session.sendRequest(std::move(request), [promise](const json::object& r) { promise->set_value(r); },
                            timeoutMs);
        return {std::move(future), state.waitForSent(before + 1)};
    }

    FakeTransportState state;
    FakeLlSessionFactory factory{state};
    LinkJsonSession session{&factory};
};

TEST(LinkJsonSessionIds, RequestIdsAreUniqueLowerCaseVersion4Uuids) {
    FakeTransportState state;
    FakeLlSessionFactory factory{state};
    LinkJsonSession session{&factory};
    const std::regex shape("[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}");
    std::set<std::string> seen;
    for (int i = 0; i < 1000; ++i) {
        auto id = session.generateRequestId();
        ASSERT_TRUE(std::regex_match(id, shape)) << id;
        seen.insert(std::move(id));
    }
    EXPECT_EQ(seen.size(), 1000u);
}

TEST(LinkJsonSessionIds, NotConnectedFailsAtOnceWithoutWaiting) {
    FakeTransportState state;
    FakeLlSessionFactory factory{state};
    LinkJsonSession session{&factory};
    const auto started = std::chrono::steady_clock::now();
    const auto reply = session.sendRequest(json::object{{"do", "/status"}}, 5000);
    EXPECT_LT(std::chrono::steady_clock::now() - started, 100ms);
    EXPECT_EQ(reply.at("type"), "REPLY");
    EXPECT_EQ(reply.at("status"), "FAILED");
    EXPECT_EQ(codeOf(reply), ErrorCodeEnum::CONNECTION_NOT_ESTABLISHED);
    EXPECT_EQ(session.getWorkstationStatus().error().message, "no network connection has been established yet");
    EXPECT_TRUE(state.sent.empty());
}

TEST_F(SessionTest, ReplyIsMatchedByRequestIdWhateverTheOrder) {
    auto [first, firstText] = start(json::object{{"do", "/id"}, {"request_id", "caller-value"}});
    auto [second, secondText] = start(json::object{{"do", "/status"}});
    EXPECT_NE(requestIdOf(firstText), "caller-value");
    EXPECT_EQ(parsed(secondText).at("do"), "/status");
    state.injectText(replyText(requestIdOf(secondText), {{"which", 2}}));
    state.injectText(replyText(requestIdOf(firstText), {{"which", 1}}));
    ASSERT_EQ(first.wait_for(2s), std::future_status::ready);
    ASSERT_EQ(second.wait_for(2s), std::future_status::ready);
    EXPECT_EQ(first.get().at("which"), 1);
    EXPECT_EQ(second.get().at("which"), 2);
}

TEST_F(SessionTest, TimedOutRequestIgnoresItsLateReply) {
    auto [reply, text] = start(json::object{{"do", "/status"}}, 50);
    ASSERT_EQ(reply.wait_for(2s), std::future_status::ready);
    const auto failure = reply.get();
    EXPECT_EQ(codeOf(failure), ErrorCodeEnum::OPERATION_TIMED_OUT);
    EXPECT_EQ(std::string(failure.at("request_id").as_string()), requestIdOf(text));
    // Must not crash or resolve anything else.
    state.injectText(replyText(requestIdOf(text)));
    auto [next, nextText] = start(json::object{{"do", "/status"}});
    state.injectText(replyText(requestIdOf(nextText)));
    ASSERT_EQ(next.wait_for(2s), std::future_status::ready);
    EXPECT_TRUE(LinkJsonSession::wasSuccessful(next.get()));
}

TEST_F(SessionTest, ABusyIoThreadDoesNotExtendAnotherThreadsTimeOut) {
    // The I/O thread stays in a handler until the blocked request has returned: if the
    // time-out depended on the I/O thread, the request would never return.
    std::promise<void> release;
    auto released = release.get_future().share();
    std::promise<void> entered;
    auto busy = std::make_shared<LinkJsonSession::EventHandler>([&, released](const json::object&) {
        entered.set_value();
        released.wait();
    });
    session.setEventHandler(EventTypeEnum::MESSAGE_FROM_SERVER, busy);
    state.injectText(R"({"type":"EVENT","event":{"type":"MESSAGE_FROM_SERVER"}})");
    ASSERT_EQ(entered.get_future().wait_for(5s), std::future_status::ready);
    auto request = std::async(std::launch::async, [&] { return session.sendRequest(json::object{{"do", "/status"}}, 50); });
    const bool returned = request.wait_for(5s) == std::future_status::ready;
    release.set_value();
    ASSERT_TRUE(returned) << "the wait depended on the I/O thread";
    EXPECT_EQ(codeOf(request.get()), ErrorCodeEnum::OPERATION_TIMED_OUT);
}

TEST_F(SessionTest, CallsFromAnEventHandlerDoNotBlockTheIoThread) {
    std::promise<ErrorObject> outcome;
    auto application = VelmarLinkEventHandler::makeLogMessageEventHandler(
        [&](LogSeverityEnum, const std::string&, const std::string&) {
            auto status = session.getWorkstationStatus();
            outcome.set_value(status ? ErrorObject{} : status.error());
        });
    ASSERT_FALSE(session.setEventHandler(application));
    const auto sentBefore = state.sent.size();
    state.injectText(R"({"type":"EVENT","event":{"type":"MESSAGE_FROM_SERVER","severity":"DEBUG","date_time":"t","message":"m"}})");
    auto future = outcome.get_future();
    ASSERT_EQ(future.wait_for(5s), std::future_status::ready);
    const auto error = future.get();
    EXPECT_EQ(error.code, ErrorCodeEnum::UNEXPECTED_EXCEPTION);
    EXPECT_EQ(error.getMessageFormatted(), "an unexpected exception occured: blocking call from a callback of the same link");
    EXPECT_EQ(state.sent.size(), sentBefore);
    // The I/O thread goes on.
    auto [reply, text] = start(json::object{{"do", "/status"}});
    state.injectText(replyText(requestIdOf(text)));
    ASSERT_EQ(reply.wait_for(5s), std::future_status::ready);
}

TEST_F(SessionTest, DisconnectFromACallbackCompletesAndTheOwnerJoinsLater) {
    auto [pending, text] = start(json::object{{"do", "/status"}});
    std::promise<bool> connectedAfter;
    std::atomic<int> statusCalls{0};
    session.setConnectionStatusCallback([&](VelmarLinkConnectionStatusEnum) { ++statusCalls; });
    auto application = VelmarLinkEventHandler::makeLogMessageEventHandler(
        [&](LogSeverityEnum, const std::string&, const std::string&) {
            session.disconnect();
            connectedAfter.set_value(session.isConnected());
        });
    ASSERT_FALSE(session.setEventHandler(application));
    state.injectText(R"({"type":"EVENT","event":{"type":"MESSAGE_FROM_SERVER","severity":"DEBUG","date_time":"t","message":"m"}})");
    auto after = connectedAfter.get_future();
    ASSERT_EQ(after.wait_for(5s), std::future_status::ready);
    EXPECT_FALSE(after.get());
    ASSERT_EQ(pending.wait_for(5s), std::future_status::ready);
    EXPECT_EQ(codeOf(pending.get()), ErrorCodeEnum::CONNECTION_WAS_CLOSED);
    EXPECT_EQ(statusCalls.load(), 1);
    EXPECT_FALSE(session.isConnected());
    EXPECT_EQ(session.getWorkstationStatus().error().code, ErrorCodeEnum::CONNECTION_NOT_ESTABLISHED);
    session.setConnectionStatusCallback({});
    ASSERT_FALSE(session.connect());  // joins the old I/O thread
    EXPECT_EQ(state.disposed, 1);
}

std::string eventText(std::string_view type, std::string_view body) {
    return std::string(R"({"type":"EVENT","event":{"type":")") + std::string(type) + "\"," + std::string(body) + "}}";
}

constexpr std::string_view kCvHeader = R"("header":{"measurement_type_short":"CV","measurement_type":"Cyclic Voltammetry",)"
                                       R"("columns":{"dimensions":["t","U","I"],"units":["s","V","A"],"urns":["a","b","c"]}})";

TEST_F(SessionTest, TwoJobsOnOneLinkReceiveOnlyTheirOwnLiveData) {
    DcLiveDataHandler collectorA, collectorB;
    CvJob jobA(CvParameters{}, collectorA.asFunction(), {{"name", "A"}});
    CvJob jobB(CvParameters{}, collectorB.asFunction(), {{"name", "B"}});
    auto runA = std::async(std::launch::async, [&] { return session.doJob(jobA); });
    const auto firstText = state.waitForSent(1);
    auto runB = std::async(std::launch::async, [&] { return session.doJob(jobB); });
    const auto secondText = state.waitForSent(2);
    ASSERT_FALSE(secondText.empty());
    auto first = parsed(firstText);
    auto second = parsed(secondText);
    if (first.at("job").at("job_meta").at("name") != "A") std::swap(first, second);
    const auto idA = std::string(first.at("request_id").as_string());
    const auto idB = std::string(second.at("request_id").as_string());

    state.injectText(replyText(idA, {{"job_id", "A"}}));
    state.injectText(replyText(idB, {{"job_id", "B"}}));  // B waits in the device's queue
    state.injectText(eventText("JOB_STATUS_UPDATE", R"("new_status":"RUNNING","job_info":{"job_id":"A"})"));
    state.injectText(eventText("LIVE_DATA_HEADER", std::string(R"("job_id":"A",)") + std::string(kCvHeader)));
    state.injectText(eventText("LIVE_DATA_ROWS", R"("job_id":"A","data":[[1,1,1]])"));
    state.injectText(eventText("LIVE_DATA_ROWS", R"("data":[[2,2,2]])"));  // no id: the current job, A
    state.injectText(eventText("LIVE_DATA_HEADER", std::string(R"("job_id":"B",)") + std::string(kCvHeader)));
    state.injectText(eventText("LIVE_DATA_ROWS", R"("job_id":"A","data":[[3,3,3]])"));
    state.injectText(eventText("LIVE_DATA_ROWS", R"("data":[[4,4,4]])"));  // no id: now B
    state.injectText(R"({"type":"JOB_DONE","request_id":")" + idA + R"(","status":"FINISHED"})");
    state.injectText(R"({"type":"JOB_DONE","request_id":")" + idB + R"(","status":"FINISHED"})");
    ASSERT_EQ(runA.wait_for(5s), std::future_status::ready);
    ASSERT_EQ(runB.wait_for(5s), std::future_status::ready);
    EXPECT_FALSE(runA.get());
    EXPECT_FALSE(runB.get());
    EXPECT_EQ(collectorA.getDataset().getDcTrack("t"), (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(collectorB.getDataset().getDcTrack("t"), (std::vector<double>{4}));
}

TEST_F(SessionTest, TheSameJobHandedToASecondRunIsRefusedAndTheFirstGoesOn) {
    SleepJob job;
    auto run = std::async(std::launch::async, [&] { return session.doJob(job); });
    const auto request = parsed(state.waitForSent(1));
    const auto requestId = std::string(request.at("request_id").as_string());
    state.injectText(replyText(requestId, {{"job_id", "only"}}));
    const auto refused = session.doJob(job);
    EXPECT_EQ(refused.code, ErrorCodeEnum::INVALID_PARAMETER);
    EXPECT_EQ(refused.getMessageFormatted(), "job is already running");
    EXPECT_EQ(state.sent.size(), 1u);
    state.injectText(R"({"type":"JOB_DONE","request_id":")" + requestId +
                     R"(","job_info":{"job_id":"only","status":"FINISHED","status_detail":"RUN_TO_COMPLETION"}})");
    ASSERT_EQ(run.wait_for(5s), std::future_status::ready);
    EXPECT_FALSE(run.get());
    EXPECT_EQ(job.getLastJobInfo().job_id, "only");
}

TEST_F(SessionTest, MalformedFramesAreDroppedAndPendingRequestsStay) {
    auto [reply, text] = start(json::object{{"do", "/status"}});
    ::testing::internal::CaptureStderr();
    ::testing::internal::CaptureStdout();
    session.dispatchIncommingJson("{not json");
    session.dispatchIncommingJson(R"({"request_id":")" + requestIdOf(text) + R"("})");
    session.dispatchIncommingJson(R"(["REPLY"])");
    session.dispatchIncommingJson(R"({"type":"WHATEVER","request_id":")" + requestIdOf(text) + R"("})");
    const auto err = ::testing::internal::GetCapturedStderr();
    const auto out = ::testing::internal::GetCapturedStdout();
    EXPECT_EQ(err.rfind("issue parsing incomming json ", 0), 0u) << err;
    EXPECT_NE(err.find("missing property 'type'\nmissing property 'type'\n"), std::string::npos) << err;
    EXPECT_EQ(out, "received unknown type WHATEVER\n");
    EXPECT_EQ(reply.wait_for(50ms), std::future_status::timeout);
    state.injectText(replyText(requestIdOf(text)));
    ASSERT_EQ(reply.wait_for(2s), std::future_status::ready);
    EXPECT_TRUE(LinkJsonSession::wasSuccessful(reply.get()));
}

TEST_F(SessionTest, EventsGoToTheHandlerOfTheirTypeAndUnknownTypesAreDropped) {
    std::vector<std::string> seen;
    auto rows = std::make_shared<LinkJsonSession::EventHandler>(
        [&](const json::object& event) { seen.push_back(std::string(event.at("type").as_string())); });
    session.setEventHandler(EventTypeEnum::LIVE_DATA_ROWS, rows);
    session.dispatchIncommingJson(R"({"type":"EVENT","event":{"type":"LIVE_DATA_ROWS","rows":[]}})");
    session.dispatchIncommingJson(R"({"type":"EVENT","event":{"type":"NO_SUCH_TYPE"}})");
    session.dispatchIncommingJson(R"({"type":"EVENT","event":{"type":"LIVE_DATA_HEADER"}})");
    session.dispatchIncommingJson(R"({"type":"EVENT","event":"LIVE_DATA_ROWS"})");
    EXPECT_EQ(seen, std::vector<std::string>{"LIVE_DATA_ROWS"});

    session.clearEventHandler(EventTypeEnum::LIVE_DATA_ROWS,
                              std::make_shared<LinkJsonSession::EventHandler>());  // not the same one
    session.dispatchIncommingJson(R"({"type":"EVENT","event":{"type":"LIVE_DATA_ROWS"}})");
    session.clearEventHandler(EventTypeEnum::LIVE_DATA_ROWS, rows);
    session.dispatchIncommingJson(R"({"type":"EVENT","event":{"type":"LIVE_DATA_ROWS"}})");
    EXPECT_EQ(seen.size(), 2u);
}

TEST_F(SessionTest, JobAndApplicationHandlersOfOneTypeBothReceiveTheEvent) {
    std::vector<std::string> seen;
    auto job = std::make_shared<LinkJsonSession::EventHandler>([&](const json::object&) { seen.push_back("job"); });
    auto application = std::make_shared<VelmarLinkEventHandler>(
        EventTypeEnum::LIVE_DATA_ROWS,
        std::make_shared<VelmarLinkEventHandler::RawCallback>([&](const json::object&) { seen.push_back("app"); }));
    auto other = std::make_shared<VelmarLinkEventHandler>(
        EventTypeEnum::LIVE_DATA_ROWS, std::make_shared<VelmarLinkEventHandler::RawCallback>());
    session.setEventHandler(EventTypeEnum::LIVE_DATA_ROWS, job);
    EXPECT_FALSE(session.setEventHandler(application));
    EXPECT_FALSE(session.setEventHandler(application));
    EXPECT_EQ(session.setEventHandler(other).getMessageFormatted(), "event handler already set");
    session.dispatchIncommingJson(R"({"type":"EVENT","event":{"type":"LIVE_DATA_ROWS","data":[]}})");
    EXPECT_EQ(seen, (std::vector<std::string>{"job", "app"}));

    session.clearEventHandler(other);  // not the registered one: no effect
    session.clearEventHandler(EventTypeEnum::LIVE_DATA_ROWS, job);
    session.dispatchIncommingJson(R"({"type":"EVENT","event":{"type":"LIVE_DATA_ROWS","data":[]}})");
    session.clearEventHandler(application);
    session.dispatchIncommingJson(R"({"type":"EVENT","event":{"type":"LIVE_DATA_ROWS","data":[]}})");
    EXPECT_EQ(seen, (std::vector<std::string>{"job", "app", "app"}));
}

TEST_F(SessionTest, ManualStopFailsRequestsJobsOperationsAndKeepsTheConnection) {
    auto [reply, text] = start(json::object{{"do", "/status"}});
    std::promise<json::object> jobDone;
    session.addPendingJob("job-request", [&](const json::object& m) { jobDone.set_value(m); }, nullptr);
    std::atomic<int> operationReason{-1};
    auto operation = std::make_shared<std::function<void(CancellationReason)>>(
        [&](CancellationReason reason) { operationReason = static_cast<int>(reason); });
    session.addPendingOperation(operation);

    std::thread([&] { session.cancelPendingOperations(); }).join();

    const auto failure = reply.get();
    EXPECT_EQ(codeOf(failure), ErrorCodeEnum::STOPPED_MANUALLY);
    EXPECT_EQ(LinkJsonSession::getError(failure).message, "manually stopped");
    const auto job = jobDone.get_future().get();
    EXPECT_EQ(job.at("type"), "JOB_DONE");
    EXPECT_EQ(job.at("request_id"), "job-request");
    EXPECT_EQ(job.at("job_id"), "void");
    EXPECT_EQ(job.at("status"), "FAILED");
    EXPECT_EQ(job.at("status_detail"), "STOPPED_BY_USER");
    EXPECT_TRUE(job.at("job_info").is_object());
    EXPECT_EQ(operationReason.load(), static_cast<int>(CancellationReason::MANUAL_STOP));
    EXPECT_TRUE(session.isConnected());
    session.removePendingOperation(operation);
}

TEST_F(SessionTest, ConnectionLossFailsEverythingWithConnectionWasClosed) {
    auto [reply, text] = start(json::object{{"do", "/status"}});
    std::promise<json::object> jobDone;
    session.addPendingJob("job-request", [&](const json::object& m) { jobDone.set_value(m); }, nullptr);
    std::promise<VelmarLinkConnectionStatusEnum> status;
    session.setConnectionStatusCallback([&](VelmarLinkConnectionStatusEnum s) { status.set_value(s); });
    state.injectLoss();
    EXPECT_EQ(codeOf(reply.get()), ErrorCodeEnum::CONNECTION_WAS_CLOSED);
    EXPECT_EQ(jobDone.get_future().get().at("status_detail"), "CONNECTION_LOSS");
    EXPECT_EQ(status.get_future().get(), VelmarLinkConnectionStatusEnum::DISCONNECTED);
    EXPECT_FALSE(session.isConnected());
    session.setConnectionStatusCallback({});
    // A later connect tears down the old connection and makes a new transport.
    ASSERT_FALSE(session.connect());
    EXPECT_EQ(state.created, 2);
    EXPECT_EQ(state.disposed, 1);
}

TEST_F(SessionTest, RefusedSendIsConnectionBroken) {
    state.refuseSends = true;
    EXPECT_EQ(codeOf(session.sendRequest(json::object{{"do", "/status"}})), ErrorCodeEnum::CONNECTION_BROKEN);
}

TEST_F(SessionTest, SendStopTexts) {
    session.sendStop(QueueStopModeEnum::QUEUE_STOP_MODE_FLUSH);
    session.sendStop(QueueStopModeEnum::QUEUE_STOP_MODE_CONTINUE);
    session.sendStop(static_cast<QueueStopModeEnum>(7));
    state.waitForSent(3);
    EXPECT_EQ(state.sent, (std::vector<std::string>{R"({"do":"/stop","queue":"flush"})",
                                                    R"({"do":"/stop","queue":"continue"})", R"({"do":"/stop"})"}));
}

TEST_F(SessionTest, DownloadTimesOutAndALateBinaryFrameIsDropped) {
    session.setDownloadTimeout(60ms);
    std::promise<std::optional<ErrorObject>> outcome;
    session.setPendingDownload([&](std::string&&, std::optional<ErrorObject> e) { outcome.set_value(e); });
    auto future = outcome.get_future();
    ASSERT_EQ(future.wait_for(2s), std::future_status::ready);
    const auto error = future.get();
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->code, ErrorCodeEnum::OPERATION_TIMED_OUT);
    session.dispatchIncommingBinary(std::string("late"));  // no handler: dropped
}

TEST_F(SessionTest, BinaryFrameCompletesTheDownloadByMove) {
    std::promise<std::string> content;
    session.setPendingDownload([&](std::string&& data, std::optional<ErrorObject> e) {
        EXPECT_FALSE(e.has_value());
        content.set_value(std::move(data));
    });
    std::string frame(1 << 20, 'x');
    const char* storage = frame.data();
    session.dispatchIncommingBinary(std::move(frame));
    const auto received = content.get_future().get();
    EXPECT_EQ(received.size(), 1u << 20);
    EXPECT_EQ(received.data(), storage) << "the bytes were copied";
}

TEST_F(SessionTest, TypedRequestsReportFailuresAndIncompleteReplies) {
    auto status = std::async(std::launch::async, [&] { return session.getWorkstationStatus(); });
    auto text = state.waitForSent(1);
    state.injectText(replyText(requestIdOf(text)));  // no "workstation_status"
    auto result = status.get();
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().code, ErrorCodeEnum::JSON_MALFORMED);
    EXPECT_EQ(result.error().message, "incomplete json object received");

    auto list = std::async(std::launch::async, [&] { return session.getEcwConnectionList(); });
    text = state.waitForSent(2);
    state.injectText(replyText(requestIdOf(text), {{"connections", json::array{{{"remote_port", "text"}}}}}));
    auto listed = list.get();
    ASSERT_FALSE(listed);
    EXPECT_EQ(listed.error().message, "json malformed: {0}");

    auto info = std::async(std::launch::async, [&] { return session.getWorkstationInfo(); });
    text = state.waitForSent(3);
    json::object failed{{"type", "REPLY"}, {"request_id", requestIdOf(text)}, {"status", "FAILED"},
                        {"error", errorObjectToJson(ErrorObject(ErrorCodeEnum::QUEUE_FULL, "queue full"))}};
    state.injectText(json::serialize(failed));
    auto identity = info.get();
    ASSERT_FALSE(identity);
    EXPECT_EQ(identity.error().code, ErrorCodeEnum::QUEUE_FULL);
}

TEST(LinkJsonSessionStatic, WasSuccessfulAndGetError) {
    EXPECT_TRUE(LinkJsonSession::wasSuccessful(json::object{{"status", "SUCCESS"}}));
    EXPECT_FALSE(LinkJsonSession::wasSuccessful(json::object{{"status", "success"}}));
    EXPECT_FALSE(LinkJsonSession::wasSuccessful(json::object{{"status", 1}}));
    const auto missing = LinkJsonSession::getError(json::object{});
    EXPECT_EQ(missing.code, ErrorCodeEnum::UNKNOWN_ERR);
    EXPECT_EQ(missing.message, "an unknown error occured");
}

}  // namespace
}  // namespace velmar
