// The job runner against a session whose transport is an in-process fake: every request is
// answered by a script on the session's own I/O thread.

#include "velmar_link_json/jobs/control/control_jobs.hpp"
#include "velmar_link_json/jobs/job_runner.hpp"
#include "velmar_link_json/link_json_session.hpp"
#include "velmar_link_json/link_ll_session.hpp"

#include <gtest/gtest.h>

#include <boost/asio/io_context.hpp>
#include <boost/asio/post.hpp>
#include <boost/json.hpp>

#include <chrono>
#include <future>
#include <mutex>

namespace velmar {
namespace {

namespace json = boost::json;

/// Answers one request with the frames to deliver (in order).
using Script = std::function<std::vector<json::object>(const json::object& request)>;

class FakeLlSession : public AbstractLinkLlSession {
public:
    FakeLlSession(boost::asio::io_context& context, Script script) : context_(context), script_(std::move(script)) {}
    int connect() override {
        status_ = VelmarLinkConnectionStatusEnum::CONNECTED;
        return LinkConnectOutcome::SUCCESS;
    }
    void startServices() override {}
    void disconnect() override { status_ = VelmarLinkConnectionStatusEnum::DISCONNECTED; }
    bool send(std::string text) override {
        const auto request = json::parse(text).as_object();
        auto frames = script_(request);
        boost::asio::post(context_, [this, frames = std::move(frames)] {
            for (const auto& frame : frames) receive_(json::serialize(frame));
        });
        return true;
    }
    VelmarLinkConnectionStatusEnum getConnectionStatus() const override { return status_; }
    unsigned getDeviceProtocolVersion() const override { return 12; }
    void setConnectionStatusCallback(StatusHandler) override {}
    void setReceiveHandler(TextHandler handler) override { receive_ = std::move(handler); }
    void setReceiveBinaryHandler(BinaryHandler) override {}
    void setConnectionTimeout(std::chrono::milliseconds) override {}

private:
    boost::asio::io_context& context_;
    Script script_;
    TextHandler receive_;
    VelmarLinkConnectionStatusEnum status_ = VelmarLinkConnectionStatusEnum::DISCONNECTED;
};

class FakeFactory : public LinkLlSessionAbstractFactory {
public:
    explicit FakeFactory(Script script) : LinkLlSessionAbstractFactory({}), script_(std::move(script)) {}
    AbstractLinkLlSession* createSession(boost::asio::io_context& context) override {
        return new FakeLlSession(context, script_);
    }

private:
    Script script_;
};

json::object reply(const json::object& request, bool success, json::object extra = {}) {
    json::object out{{"type", "REPLY"}, {"request_id", request.at("request_id")}, {"status", success ? "SUCCESS" : "FAILED"}};
    for (auto& member : extra) out[member.key()] = member.value();
    return out;
}

json::object jobDone(const json::object& request, std::string_view status, std::string_view detail,
                     json::value result = nullptr) {
    json::object info{{"job_id", "job-7"}, {"status", status}, {"status_detail", detail},
                      {"type", request.at("job").at("type")}};
    json::object out{{"type", "JOB_DONE"}, {"request_id", request.at("request_id")}, {"job_id", "job-7"},
                     {"status", status}, {"status_detail", detail}, {"job_info", info}};
    if (!result.is_null()) out["result"] = result;
    return out;
}

json::value errorJson(std::uint64_t number, std::string_view code, std::string_view message) {
    return json::object{{"number", number}, {"code", code}, {"message", message}};
}

class JobRunner : public ::testing::Test {
protected:
    void start(Script script) {
        factory_ = std::make_unique<FakeFactory>(std::move(script));
        session_ = std::make_unique<LinkJsonSession>(factory_.get());
        ASSERT_FALSE(session_->connect());
    }
    void TearDown() override {
        if (session_) session_->disconnect();
    }

    /// runJob bounded to five seconds; past that the wait is cancelled and the test fails.
    ErrorObject run(AbstractMeasurementJob& job) {
        auto result = std::async(std::launch::async, [&] { return runJob(*session_, job); });
        if (result.wait_for(std::chrono::seconds(5)) != std::future_status::ready) {
            ADD_FAILURE() << "runJob did not return";
            session_->cancelPendingOperations();
        }
        return result.get();
    }

    std::unique_ptr<FakeFactory> factory_;
    std::unique_ptr<LinkJsonSession> session_;
};

TEST_F(JobRunner, WithoutConnectionTheJobFailsLocally) {
    FakeFactory factory([](const json::object&) { return std::vector<json::object>{}; });
    LinkJsonSession session(&factory);
    BeepJob job;
    const auto error = runJob(session, job);
    EXPECT_EQ(error.code, ErrorCodeEnum::CONNECTION_NOT_ESTABLISHED);
    EXPECT_EQ(error.message, "no network connection has been established yet");
    EXPECT_EQ(job.getLastJobStatus(), JobStatusEnum::FAILED);
    EXPECT_EQ(job.getLastJobInfo().status_detail, JobStatusDetailEnum::NOT_CONNECTED);
}

TEST_F(JobRunner, SingleValueJobGetsItsResult) {
    json::object sent;
    start([&](const json::object& request) {
        sent = request;
        return std::vector{reply(request, true, {{"job_id", "job-7"}}),
                           jobDone(request, "FINISHED", "RUN_TO_COMPLETION",
                                   json::parse(R"({"applied_bias":0.1,"voltage":0.1,"current":0.0})"))};
    });
    SwitchOnJob job(SwitchOnParameters{"MAIN:1:POT", PotentiostatCoupling::GALVANOSTATIC, 0.1, 1, 2});
    EXPECT_FALSE(run(job));
    EXPECT_EQ(sent.at("do"), "/job/start");
    EXPECT_EQ(sent.at("job").at("parameters").at("coupling"), "GALVANOSTATIC");
    EXPECT_TRUE(job.wasSuccessful());
    EXPECT_EQ(job.getLastJobInfo().job_id, "job-7");
    EXPECT_EQ(job.getJobResult().applied_bias, 0.1);
}

TEST_F(JobRunner, RefusedStartEndsFailedToCreateWithTheDeviceError) {
    start([](const json::object& request) {
        return std::vector{reply(request, false, {{"error", errorJson(0x4004, "PARAMETER_VALUE_TOO_HIGH", "too high")}})};
    });
    SetLedColorJob job(SetLedColorParameters{300, 0, 0});
    const auto error = run(job);
    EXPECT_EQ(error.code, ErrorCodeEnum::PARAMETER_VALUE_TOO_HIGH);
    EXPECT_EQ(job.getLastJobStatus(), JobStatusEnum::FAILED);
    EXPECT_EQ(job.getLastJobInfo().status_detail, JobStatusDetailEnum::FAILED_TO_CREATE);
}

TEST_F(JobRunner, AJobDoneBeforeTheFailedReplyIsUsed) {
    start([](const json::object& request) {
        auto done = jobDone(request, "FAILED", "RUNTIME_ERROR");
        done["job_info"].as_object()["error"] = errorJson(0x100000, "POT_STATUS_MISMATCH", "pot is on");
        return std::vector{done, reply(request, false, {{"error", errorJson(0x40001, "QUEUE_FULL", "full")}})};
    });
    SetVoltageRangeJob job;
    EXPECT_EQ(run(job).code, ErrorCodeEnum::POT_STATUS_MISMATCH);
    EXPECT_EQ(job.getLastJobInfo().status_detail, JobStatusDetailEnum::RUNTIME_ERROR);
}

TEST_F(JobRunner, ResultThatCannotBeDecodedBecomesUnexpectedException) {
    start([](const json::object& request) {
        return std::vector{reply(request, true), jobDone(request, "FINISHED", "RUN_TO_COMPLETION",
                                                         json::parse(R"({"value":"12"})"))};
    });
    MeasureIntegralJob job;
    const auto error = run(job);
    EXPECT_EQ(error.code, ErrorCodeEnum::UNEXPECTED_EXCEPTION);
    EXPECT_TRUE(error.getMessageFormatted().starts_with("an unexpected exception occured: "));
    EXPECT_FALSE(job.wasSuccessful());
}

TEST_F(JobRunner, ManualStopEndsTheWaitWithStoppedManually) {
    std::promise<void> sent;
    start([&](const json::object& request) {
        sent.set_value();
        return std::vector{reply(request, true, {{"job_id", "job-9"}})};
    });
    SleepJob job;
    auto result = std::async(std::launch::async, [&] { return runJob(*session_, job); });
    // Whether or not the start reply has been processed, the stop ends the run the same way.
    ASSERT_EQ(sent.get_future().wait_for(std::chrono::seconds(5)), std::future_status::ready);
    session_->cancelPendingOperations();
    ASSERT_EQ(result.wait_for(std::chrono::seconds(5)), std::future_status::ready);
    EXPECT_EQ(result.get().code, ErrorCodeEnum::STOPPED_MANUALLY);
    EXPECT_EQ(job.getLastJobInfo().status_detail, JobStatusDetailEnum::STOPPED_BY_USER);
}

TEST_F(JobRunner, ConnectionLossEndsTheRunWithConnectionLoss) {
    std::promise<void> sent;
    start([&](const json::object& request) {
        sent.set_value();
        return std::vector{reply(request, true, {{"job_id", "job-3"}})};
    });
    SleepJob job;
    auto result = std::async(std::launch::async, [&] { return runJob(*session_, job); });
    ASSERT_EQ(sent.get_future().wait_for(std::chrono::seconds(5)), std::future_status::ready);
    session_->disconnect();
    ASSERT_EQ(result.wait_for(std::chrono::seconds(5)), std::future_status::ready);
    EXPECT_EQ(result.get().code, ErrorCodeEnum::CONNECTION_WAS_CLOSED);
    EXPECT_EQ(job.getLastJobInfo().status_detail, JobStatusDetailEnum::CONNECTION_LOSS);
}

TEST_F(JobRunner, WaitForJobFollowsARunOfAnotherThread) {
    std::promise<json::object> started;
    start([&](const json::object& request) {
        started.set_value(request);
        return std::vector{reply(request, true, {{"job_id", "job-4"}})};
    });
    SleepJob job;
    auto run = std::async(std::launch::async, [&] { return runJob(*session_, job); });
    auto startedFuture = started.get_future();
    ASSERT_EQ(startedFuture.wait_for(std::chrono::seconds(5)), std::future_status::ready);
    const auto request = startedFuture.get();
    auto wait = std::async(std::launch::async, [&] { return waitForJob(*session_, job); });
    EXPECT_EQ(wait.wait_for(std::chrono::milliseconds(50)), std::future_status::timeout);
    session_->dispatchIncommingJson(json::serialize(jobDone(request, "FINISHED", "RUN_TO_COMPLETION")));
    ASSERT_EQ(wait.wait_for(std::chrono::seconds(5)), std::future_status::ready);
    EXPECT_FALSE(wait.get());
    EXPECT_FALSE(run.get());
    EXPECT_TRUE(job.wasSuccessful());
    // A job that has ended is not waited for.
    EXPECT_FALSE(waitForJob(*session_, job));
}

TEST_F(JobRunner, CheckParametersAndJobQueries) {
    start([](const json::object& request) {
        const auto path = std::string_view(request.at("do").as_string());
        if (path == "/job/check_parameters") {
            const bool valid = request.at("job").at("parameters").at("duration").as_double() > 0;
            if (!valid) return std::vector{reply(request, false, {{"error", errorJson(0x4005, "PARAMETER_VALUE_TOO_LOW", "low")}})};
            return std::vector{reply(request, true)};
        }
        if (path == "/job/list") {
            EXPECT_EQ(request.at("exclude_finished"), true);
            return std::vector{reply(request, true, {{"jobs", json::parse(R"([{"job_id":"a","status":"RUNNING"},{"job_id":"b"}])")}})};
        }
        if (path == "/job/info") {
            return std::vector{reply(request, true, {{"job_info", {{"job_id", request.at("job_id")}, {"status", "PENDING"}}}})};
        }
        return std::vector{reply(request, false)};
    });
    EXPECT_FALSE(checkJobParameters(*session_, *std::make_unique<SleepJob>(SleepParameters{1.0})));
    SleepJob invalid(SleepParameters{-1.0});
    EXPECT_EQ(checkJobParameters(*session_, invalid).code, ErrorCodeEnum::PARAMETER_VALUE_TOO_LOW);

    const auto list = getJobInfoList(*session_, true);
    ASSERT_TRUE(list.has_value());
    ASSERT_EQ(list->size(), 2U);
    EXPECT_EQ((*list)[0].status, JobStatusEnum::RUNNING);

    const auto info = getJobInfo(*session_, invalid);
    ASSERT_TRUE(info.has_value());
    EXPECT_EQ(info->status, JobStatusEnum::PENDING);
}

TEST_F(JobRunner, CheckParametersWithAnUnreadableStatus) {
    start([](const json::object& request) {
        return std::vector{json::object{{"type", "REPLY"}, {"request_id", request.at("request_id")}, {"status", "MAYBE"}}};
    });
    BeepJob job;
    const auto error = checkJobParameters(*session_, job);
    EXPECT_EQ(error.message, "reply status invalid");
}

}  // namespace
}  // namespace velmar
