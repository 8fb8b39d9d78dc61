// The session's protocol logic on a virtual clock: time-outs, the job lifecycle, live-data
// faults and cancellation, without threads. The peer is a script that schedules its frames.

#include "support/eis_live_data_frames.hpp"
#include "support/virtual_runtime.hpp"

#include "json_common/logging/error_formatters.hpp"
#include "velmar_link_json/jobs/control/control_jobs.hpp"
#include "velmar_link_json/jobs/dc/dc_jobs.hpp"
#include "velmar_link_json/jobs/measurement_jobs.hpp"
#include "velmar_link_json/link_json_session.hpp"
#include "velmar_link_json/session_finite_numbers.hpp"

#include <gtest/gtest.h>

#include <boost/json.hpp>

#include <cmath>
#include <limits>

namespace velmar {
namespace {

namespace json = boost::json;
using namespace std::chrono_literals;
using testing::VirtualPeer;
using testing::VirtualRuntime;
using testing::VirtualTransportFactory;

constexpr std::string_view kHeader =
    R"({"measurement_type_short":"CV","measurement_type":"Cyclic Voltammetry",)"
    R"("columns":{"dimensions":["time","voltage","current"],"units":["s","V","A"],"urns":["T","U","I"]}})";

json::object reply(const json::object& request, json::object extra = {}) {
    extra["type"] = "REPLY";
    extra["request_id"] = request.at("request_id");
    if (!extra.contains("status")) extra["status"] = "SUCCESS";
    return extra;
}

json::object event(std::string_view type, json::object body) {
    body["type"] = type;
    return json::object{{"type", "EVENT"}, {"event", std::move(body)}};
}

json::object jobDone(const json::object& request, std::string_view jobId, std::string_view status = "FINISHED",
                     std::string_view detail = "RUN_TO_COMPLETION") {
    return json::object{{"type", "JOB_DONE"},
                        {"request_id", request.at("request_id")},
                        {"job_id", jobId},
                        {"status", status},
                        {"status_detail", detail},
                        {"job_info", {{"job_id", jobId}, {"status", status}, {"status_detail", detail}}}};
}

std::string formatted(const ErrorObject& error) { return ErrorFormatters::defaultFormatter().getFormatted(error); }

class VirtualSession : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_FALSE(session.connect()); }

    /// The peer answers each request with `frames(request)`, 1 ms apart.
    void script(std::function<std::vector<json::object>(const json::object&)> frames) {
        peer.onRequest = [this, frames = std::move(frames)](const json::object& request) {
            auto delay = 1ms;
            for (auto& frame : frames(request)) {
                runtime->runAfter(delay, [this, text = json::serialize(frame)] { session.dispatchIncommingJson(text); });
                delay += 1ms;
            }
        };
    }

    /// Answers "/job/start" with the reply, `middle` and the JOB_DONE; other requests succeed.
    void scriptJob(std::string jobId, std::vector<json::object> middle, bool done = true) {
        script([jobId, middle, done](const json::object& request) {
            if (request.at("do") != "/job/start") return std::vector<json::object>{reply(request)};
            std::vector<json::object> frames{reply(request, {{"job_id", jobId}})};
            frames.insert(frames.end(), middle.begin(), middle.end());
            if (done) frames.push_back(jobDone(request, jobId));
            return frames;
        });
    }

    std::shared_ptr<VirtualRuntime> runtime = std::make_shared<VirtualRuntime>();
    VirtualPeer peer;
    VirtualTransportFactory factory{peer};
    LinkJsonSession session{&factory, runtime};
};

// ---- time-outs --------------------------------------------------------------------------------

TEST_F(VirtualSession, BlockingRequestTimesOutAtItsDeadlineAndALateReplyIsIgnored) {
    const auto start = runtime->now();
    const auto failed = session.sendRequest(json::object{{"do", "/status"}});
    EXPECT_EQ(LinkJsonSession::getError(failed).code, ErrorCodeEnum::OPERATION_TIMED_OUT);
    EXPECT_EQ(runtime->now() - start, 1000ms);

    session.setRequestTimeout(120ms);
    const auto before = runtime->now();
    (void)session.sendRequest(json::object{{"do", "/status"}});
    EXPECT_EQ(runtime->now() - before, 120ms);
    const auto own = runtime->now();
    (void)session.sendRequest(json::object{{"do", "/status"}}, 30);
    EXPECT_EQ(runtime->now() - own, 30ms);

    // The late reply to the first request finds nothing; the next request is answered.
    session.dispatchIncommingJson(json::serialize(reply(peer.sent.front())));
    script([](const json::object& request) { return std::vector{reply(request, {{"which", "next"}})}; });
    const auto answered = session.sendRequest(json::object{{"do", "/status"}});
    EXPECT_EQ(answered.at("which"), "next");
}

TEST_F(VirtualSession, AsynchronousRequestsExpireOnTheSessionClockInDeadlineOrder) {
    std::vector<std::pair<std::string, ErrorCodeEnum>> seen;
    const auto record = [&](std::string name) {
        return [&seen, name](const json::object& r) { seen.emplace_back(name, LinkJsonSession::getError(r).code); };
    };
    session.sendRequest(json::object{{"do", "/a"}}, record("slow"), 500);
    session.sendRequest(json::object{{"do", "/b"}}, record("fast"), 100);
    runtime->advance(99ms);
    EXPECT_TRUE(seen.empty());
    runtime->advance(1ms);
    ASSERT_EQ(seen.size(), 1u);
    EXPECT_EQ(seen[0], std::pair(std::string("fast"), ErrorCodeEnum::OPERATION_TIMED_OUT));
    runtime->advance(400ms);
    ASSERT_EQ(seen.size(), 2u);
    EXPECT_EQ(seen[1].first, "slow");
}

// ---- calls from the I/O thread ----------------------------------------------------------------

TEST_F(VirtualSession, BlockingCallsOnTheIoThreadFailAtOnceWithoutSending) {
    runtime->onIoThread([&] {
        const auto status = session.getWorkstationStatus();
        ASSERT_FALSE(status);
        EXPECT_EQ(status.error().code, ErrorCodeEnum::UNEXPECTED_EXCEPTION);
        EXPECT_EQ(formatted(status.error()),
                  "an unexpected exception occured: blocking call from a callback of the same link");
        SleepJob job;
        EXPECT_EQ(session.doJob(job).code, ErrorCodeEnum::UNEXPECTED_EXCEPTION);
        EXPECT_EQ(job.getLastJobStatus(), JobStatusEnum::UNKNOWN);
        EXPECT_EQ(session.waitForJobToFinish(job).code, ErrorCodeEnum::UNEXPECTED_EXCEPTION);
    });
    EXPECT_TRUE(peer.sent.empty());
    EXPECT_EQ(runtime->now(), VirtualRuntime::TimePoint{});
}

TEST_F(VirtualSession, DisconnectFromACallbackCompletesAtOnce) {
    std::vector<VelmarLinkConnectionStatusEnum> statuses;
    session.setConnectionStatusCallback([&](VelmarLinkConnectionStatusEnum s) { statuses.push_back(s); });
    std::optional<ErrorCodeEnum> pending;
    session.sendRequest(json::object{{"do", "/status"}}, [&](const json::object& r) { pending = LinkJsonSession::getError(r).code; }, 0);
    runtime->onIoThread([&] {
        session.disconnect();
        EXPECT_FALSE(session.isConnected());
        EXPECT_EQ(session.getConnectionStatus(), VelmarLinkConnectionStatusEnum::DISCONNECTED);
    });
    EXPECT_EQ(pending, ErrorCodeEnum::CONNECTION_WAS_CLOSED);
    EXPECT_EQ(statuses, std::vector{VelmarLinkConnectionStatusEnum::DISCONNECTED});
    session.setConnectionStatusCallback({});
    ASSERT_FALSE(session.connect());
    EXPECT_EQ(peer.disposed, 1);
}

TEST_F(VirtualSession, TheMessageSizeLimitReachesTheTransportAtConnect) {
    EXPECT_EQ(peer.maxMessageSize, std::size_t{256} << 20);
    session.setMaxMessageSize(4096);
    EXPECT_EQ(session.getMaxMessageSize(), 4096U);
    session.disconnect();
    ASSERT_FALSE(session.connect());
    EXPECT_EQ(peer.maxMessageSize, 4096U);
}

TEST_F(VirtualSession, WaitForJobToFinishOfAJobThatDoesNotRunHereReturnsItsOutcome) {
    scriptJob("job-w", {});
    SleepJob job;
    EXPECT_FALSE(session.doJob(job));
    EXPECT_FALSE(session.waitForJobToFinish(job));
    SleepJob never;
    EXPECT_TRUE(session.waitForJobToFinish(never));
}

// ---- numbers ------------------------------------------------------------------------------------

TEST(FiniteNumbers, PathOfTheFirstNonFiniteValue) {
    const double inf = std::numeric_limits<double>::infinity();
    EXPECT_EQ(findNonFiniteNumber(json::object{{"a", 1.5}, {"b", json::array{1, 2}}}), std::nullopt);
    EXPECT_EQ(findNonFiniteNumber(json::object{{"a", 1.5}, {"b", json::array{1, -inf}}}), "b/1");
    EXPECT_EQ(findNonFiniteNumber(json::value(json::object{{"job", {{"parameters", {{"scan_rate", std::nan("")}}}}}})),
              "job/parameters/scan_rate");
}

TEST_F(VirtualSession, NonFiniteNumbersAreRefusedBeforeSending) {
    const auto failed = session.sendRequest(json::object{{"do", "/settings/set"}, {"value", json::array{1.0, INFINITY}}});
    const auto error = LinkJsonSession::getError(failed);
    EXPECT_EQ(error.code, ErrorCodeEnum::PARAMETER_IS_NOT_A_NUMBER);
    EXPECT_EQ(formatted(error), "parameter 'value/1' is not a number");

    CvParameters parameters;
    parameters.scan_rate = std::nan("");
    CvJob job(parameters);
    const auto refused = session.doJob(job);
    EXPECT_EQ(formatted(refused), "parameter 'job/parameters/scan_rate' is not a number");
    EXPECT_EQ(job.getLastJobStatus(), JobStatusEnum::FAILED);
    EXPECT_EQ(job.getLastJobInfo().status_detail, JobStatusDetailEnum::FAILED_TO_CREATE);
    EXPECT_TRUE(peer.sent.empty());
}

// ---- the job lifecycle -------------------------------------------------------------------------

TEST_F(VirtualSession, StartReplyTimeOutFailsTheJobOnTheWaitingThread) {
    script([](const json::object&) { return std::vector<json::object>{}; });
    SleepJob job;
    const auto start = runtime->now();
    EXPECT_EQ(session.doJob(job).code, ErrorCodeEnum::OPERATION_TIMED_OUT);
    EXPECT_EQ(runtime->now() - start, 1000ms);
    EXPECT_EQ(job.getLastJobInfo().status_detail, JobStatusDetailEnum::FAILED_TO_CREATE);
    EXPECT_FALSE(job.isRunning());
}

TEST_F(VirtualSession, AJobWithoutJobDoneWaitsPastTheRequestTimeOutUntilCancelled) {
    scriptJob("job-1", {}, false);
    runtime->runAfter(5000ms, [&] { session.cancelPendingOperations(); });
    SleepJob job;
    const auto error = session.doJob(job);
    EXPECT_EQ(error.code, ErrorCodeEnum::STOPPED_MANUALLY);
    EXPECT_EQ(runtime->now(), VirtualRuntime::TimePoint{} + 5000ms);
    EXPECT_EQ(job.getLastJobInfo().status_detail, JobStatusDetailEnum::STOPPED_BY_USER);
    EXPECT_EQ(job.getLastJobInfo().job_id, "job-1");
    EXPECT_TRUE(session.isConnected());
}

TEST_F(VirtualSession, ConnectionLossEndsTheRunWithConnectionLoss) {
    scriptJob("job-2", {}, false);
    runtime->runAfter(50ms, [&] { peer.statusHandler(VelmarLinkConnectionStatusEnum::DISCONNECTED); });
    SleepJob job;
    EXPECT_EQ(session.doJob(job).code, ErrorCodeEnum::CONNECTION_WAS_CLOSED);
    EXPECT_EQ(job.getLastJobInfo().status_detail, JobStatusDetailEnum::CONNECTION_LOSS);
}

TEST_F(VirtualSession, JobDoneWithoutJobInfoKeepsTheStoredInformation) {
    script([](const json::object& request) {
        if (request.at("do") != "/job/start") return std::vector{reply(request)};
        return std::vector{reply(request, {{"job_id", "job-3"}, {"job_info", {{"job_id", "job-3"}, {"type", "sleep"}, {"created", "t0"}}}}),
                           json::object{{"type", "JOB_DONE"}, {"request_id", request.at("request_id")}, {"status", "FINISHED"},
                                        {"status_detail", "RUN_TO_COMPLETION"}, {"job_id", "other"}}};
    });
    SleepJob job;
    EXPECT_FALSE(session.doJob(job));
    EXPECT_EQ(job.getLastJobStatus(), JobStatusEnum::FINISHED);
    EXPECT_EQ(job.getLastJobInfo().job_id, "job-3");
    EXPECT_EQ(job.getLastJobInfo().created, "t0");
}

TEST_F(VirtualSession, GarbageJobDoneLeavesTheJobFailed) {
    const std::vector<json::object> garbage{
        {{"type", "JOB_DONE"}},                                  // no status, no job_info
        {{"type", "JOB_DONE"}, {"status", "RUNNING"}},           // not a final status
        {{"type", "JOB_DONE"}, {"status", 7}},                   // not a text
        {{"type", "JOB_DONE"}, {"status", "FINISHED"}, {"job_info", "finished"}},
        {{"type", "JOB_DONE"}, {"job_info", {{"status", "PENDING"}}}},
    };
    for (const auto& done : garbage) {
        script([done](const json::object& request) {
            if (request.at("do") != "/job/start") return std::vector{reply(request)};
            auto frame = done;
            frame["request_id"] = request.at("request_id");
            return std::vector{reply(request, {{"job_id", "job-g"}}), frame};
        });
        SleepJob job;
        const auto error = session.doJob(job);
        EXPECT_EQ(error.code, ErrorCodeEnum::JSON_MALFORMED) << json::serialize(done);
        EXPECT_EQ(job.getLastJobStatus(), JobStatusEnum::FAILED);
        EXPECT_EQ(job.getLastJobInfo().status_detail, JobStatusDetailEnum::RUNTIME_ERROR);
    }
}

TEST_F(VirtualSession, TheSameJobObjectIsRefusedWhileItRuns) {
    SleepJob job;
    ASSERT_TRUE(job.tryMarkRunning());  // a run on another link holds it
    const auto error = session.doJob(job);
    EXPECT_EQ(error.code, ErrorCodeEnum::INVALID_PARAMETER);
    EXPECT_EQ(formatted(error), "job is already running");
    EXPECT_TRUE(job.isRunning());
    EXPECT_TRUE(peer.sent.empty());
    job.clearRunning();
    scriptJob("job-4", {});
    EXPECT_FALSE(session.doJob(job));
    EXPECT_FALSE(job.isRunning());
}

// ---- live data ----------------------------------------------------------------------------------

json::object headerEvent(std::string_view jobId) {
    return event("LIVE_DATA_HEADER", {{"job_id", jobId}, {"header", json::parse(kHeader)}});
}

json::object rowsEvent(std::string_view jobId, json::value data) {
    json::object body{{"data", std::move(data)}};
    if (!jobId.empty()) body["job_id"] = jobId;
    return event("LIVE_DATA_ROWS", std::move(body));
}

TEST_F(VirtualSession, LiveDataReachOnlyTheJobWhoseIdTheyCarry) {
    scriptJob("job-5", {headerEvent("job-5"), rowsEvent("job-5", json::parse("[[0,1,2]]")),
                        rowsEvent("someone-else", json::parse("[[9,9,9]]")), rowsEvent("", json::parse("[[1,2,3]]")),
                        event("LIVE_DATA_FINISHED", {{"job_id", "job-5"}})});
    DcLiveDataHandler collector;
    CvJob job(CvParameters{}, collector.asFunction());
    ::testing::internal::CaptureStderr();
    EXPECT_FALSE(session.doJob(job));
    const auto errors = ::testing::internal::GetCapturedStderr();
    EXPECT_NE(errors.find("job someone-else is not running on this link"), std::string::npos) << errors;
    EXPECT_TRUE(collector.isFinished());
    EXPECT_EQ(collector.getDataset().getDcTrack("current"), (std::vector<double>{2, 3}));
}

struct MalformedCase {
    const char* name;
    std::vector<json::object> events;
};

TEST_F(VirtualSession, AMalformedLiveDataEventFailsOnlyItsJobAndTheSessionGoesOn) {
    const std::vector<MalformedCase> cases{
        {"mixed lengths", {headerEvent("j"), rowsEvent("j", json::parse("[[1,2,3],[1,2]]"))}},
        {"strings in rows", {headerEvent("j"), rowsEvent("j", json::parse(R"([[1,"x",3]])"))}},
        {"null data", {headerEvent("j"), rowsEvent("j", nullptr)}},
        {"no data", {headerEvent("j"), event("LIVE_DATA_ROWS", {{"job_id", "j"}})}},
        {"base64 not whole rows", {headerEvent("j"), rowsEvent("j", "AAAAAAAAAAA=")}},
        {"base64 characters", {headerEvent("j"), rowsEvent("j", "!!!!")}},
        {"rows of another width", {headerEvent("j"), rowsEvent("j", json::parse("[[1,2]]"))}},
        {"header missing", {event("LIVE_DATA_HEADER", {{"job_id", "j"}})}},
        {"header not an object", {event("LIVE_DATA_HEADER", {{"job_id", "j"}, {"header", "CV"}})}},
        {"header unreadable", {event("LIVE_DATA_HEADER", {{"job_id", "j"}, {"header", {{"columns", 3}}}})}},
        {"rows before any header", {rowsEvent("j", json::parse("[[1,2,3]]"))}},
        {"rows without id before any header", {rowsEvent("", json::parse("[[1,2,3]]"))}},
        {"finished with bad job info", {headerEvent("j"), event("LIVE_DATA_FINISHED", {{"job_id", "j"}, {"job_info", 3}})}},
    };
    for (const auto& malformed : cases) {
        auto events = malformed.events;
        events.push_back(rowsEvent("j", json::parse("[[7,7,7]]")));  // dropped: the job has failed
        scriptJob("j", events);
        DcLiveDataHandler collector;
        CvJob job(CvParameters{}, collector.asFunction());
        ::testing::internal::CaptureStderr();
        const auto error = session.doJob(job);
        const auto errors = ::testing::internal::GetCapturedStderr();
        EXPECT_EQ(error.code, ErrorCodeEnum::JSON_MALFORMED) << malformed.name;
        EXPECT_EQ(error.message, "json malformed: {0}") << malformed.name;
        EXPECT_EQ(job.getLastJobStatus(), JobStatusEnum::FAILED) << malformed.name;
        EXPECT_EQ(job.getLastJobInfo().status_detail, JobStatusDetailEnum::RUNTIME_ERROR) << malformed.name;
        EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << malformed.name << ": " << errors;
        EXPECT_EQ(formatted(error).find(".hpp"), std::string::npos) << formatted(error);
        EXPECT_EQ(collector.getDataset().getRowCount(), 0u) << malformed.name;
        // The link goes on.
        const auto status = session.sendRequest(json::object{{"do", "/status"}});
        EXPECT_TRUE(LinkJsonSession::wasSuccessful(status)) << malformed.name;
        // Let the rest of the script run out before the next case.
        runtime->advance(100ms);
    }
}

// ---- impedance live data ----------------------------------------------------------------------

/// An impedance event from its "event" text.
json::object acEvent(const std::string& text) {
    return json::object{{"type", "EVENT"}, {"event", json::parse(text)}};
}

constexpr std::string_view kAcJob = R"("job_id":"ac")";

TEST_F(VirtualSession, ImpedanceLiveDataReachTheirJobInOrder) {
    scriptJob("ac", {acEvent(testing::eisHeaderEvent(kAcJob)),
                     acEvent(testing::eisWavesEvent(R"("paths_waves":[[1],[2]],"offset":0,"full_wave_size":3)", kAcJob)),
                     acEvent(testing::eisRowEvent(testing::EIS_ROW_MEMBERS, kAcJob)),
                     acEvent(testing::eisRowEvent(testing::EIS_ROW_MEMBERS, kAcJob)),
                     event("LIVE_DATA_FINISHED", {{"job_id", "ac"}, {"job_info", {{"job_id", "ac"}}}})});
    std::vector<std::size_t> kinds;
    EisGenerateJob job(EisParametersGenerate{}, [&](const AcLiveDataMessage& message) { kinds.push_back(message.index()); });
    EXPECT_FALSE(session.doJob(job));
    EXPECT_EQ(kinds, (std::vector<std::size_t>{0, 2, 1, 1, 3}));
    EXPECT_TRUE(job.wasSuccessful());
}

TEST_F(VirtualSession, AnImpedanceTableThatDoesNotFitFailsOnlyItsJobAndTheSessionGoesOn) {
    const std::string rowWithTwoImpedances =
        R"("impedances":[[1,2],[3,4]],"paths":[[0.5,1],[0.5,10]],"paths_waves":[],"async_paths":[],)"
        R"("potentiostats":[[0.5,1]],"meta":[[1,2,3,4,5]])";
    const std::vector<MalformedCase> cases{
        {"row before any header", {acEvent(testing::eisRowEvent(testing::EIS_ROW_MEMBERS, kAcJob))}},
        {"row with an undeclared impedance",
         {acEvent(testing::eisHeaderEvent(kAcJob)), acEvent(testing::eisRowEvent(rowWithTwoImpedances, kAcJob))}},
        {"waves for one path of two",
         {acEvent(testing::eisHeaderEvent(kAcJob)), acEvent(testing::eisWavesEvent(R"("paths_waves":[[1]])", kAcJob))}},
        {"header without meta",
         {acEvent(R"({"job_id":"ac","type":"LIVE_DATA_HEADER_EIS","header":{"impedances":[],"paths":[],)"
                  R"("async_paths":[],"potentiostats":[]}})")}},
    };
    for (const auto& malformed : cases) {
        auto events = malformed.events;
        events.push_back(acEvent(testing::eisRowEvent(testing::EIS_ROW_MEMBERS, kAcJob)));  // dropped
        scriptJob("ac", events);
        std::size_t calls = 0;
        EisGenerateJob job(EisParametersGenerate{}, [&](const AcLiveDataMessage&) { ++calls; });
        ::testing::internal::CaptureStderr();
        const auto error = session.doJob(job);
        const auto errors = ::testing::internal::GetCapturedStderr();
        EXPECT_EQ(error.code, ErrorCodeEnum::JSON_MALFORMED) << malformed.name;
        EXPECT_EQ(formatted(error).rfind("the AC data table does not match the declared ", 0), 0u) << formatted(error);
        EXPECT_EQ(job.getLastJobStatus(), JobStatusEnum::FAILED) << malformed.name;
        EXPECT_EQ(job.getLastJobInfo().status_detail, JobStatusDetailEnum::RUNTIME_ERROR) << malformed.name;
        EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << malformed.name << ": " << errors;
        EXPECT_LE(calls, 1u) << malformed.name;  // at most the header
        const auto status = session.sendRequest(json::object{{"do", "/status"}});
        EXPECT_TRUE(LinkJsonSession::wasSuccessful(status)) << malformed.name;
        runtime->advance(100ms);
    }
}

}  // namespace
}  // namespace velmar
