// The emulated job queue on a virtual clock: order, bypass, bound, stops, lifecycle frames.

#include "device_jobs_bench.hpp"

namespace velmar::emulator::testing {
namespace {

namespace json = boost::json;

json::object sleepFor(double seconds) {
    return {{"duration", seconds}};
}
const json::object kBeep{{"frequency", 440.0}, {"duration", 0.1}};

TEST(DeviceJobsQueue, JobsRunOneAtATimeInArrivalOrder) {
    JobBench bench;
    const auto first = bench.start("sleep", sleepFor(1.0)).at("job_id");
    const auto second = bench.start("beep", kBeep).at("job_id");
    EXPECT_TRUE(bench.model.busy());
    bench.clock.advance(1ms);
    EXPECT_EQ(bench.statusOf(first), "RUNNING");
    EXPECT_EQ(bench.statusOf(second), "PENDING");

    bench.clock.advance(900ms);
    EXPECT_EQ(bench.statusOf(second), "PENDING") << "the second job must wait for the first";
    bench.clock.advance(150ms);
    EXPECT_EQ(bench.statusOf(first), "FINISHED");
    EXPECT_EQ(bench.statusOf(second), "RUNNING");
    bench.clock.advance(200ms);

    const auto done = bench.done();
    ASSERT_EQ(done.size(), 2u);
    EXPECT_EQ(done[0].at("job_id"), first);
    EXPECT_EQ(done[0].at("request_id"), "r1");
    EXPECT_EQ(done[1].at("job_id"), second);
    EXPECT_EQ(done[1].at("status_detail"), "RUN_TO_COMPLETION");
    EXPECT_FALSE(bench.model.busy());
}

TEST(DeviceJobsQueue, LifecycleFramesInOrder) {
    JobBench bench;
    const auto reply = bench.start("switch_on", kSwitchOnMain);
    ASSERT_EQ(reply.at("status"), "SUCCESS");
    const auto jobId = reply.at("job_id");
    EXPECT_EQ(reply.at("job_info").at("status"), "PENDING");
    EXPECT_EQ(reply.at("job_info").at("parameters").at("bias"), 0.5);
    bench.clock.runUntilIdle();

    // REPLY, PENDING, RUNNING, log, ..., FINISHED, JOB_DONE event, JOB_DONE frame.
    std::vector<std::string> sequence;
    for (const auto& frame : bench.client.peer->texts()) {
        const auto& type = frame.at("type").as_string();
        sequence.push_back(type == "EVENT"
                               ? std::string(frame.at("event").at("type").as_string()) +
                                     (frame.at("event").as_object().contains("new_status")
                                          ? ":" + std::string(frame.at("event").at("new_status").as_string())
                                          : "")
                               : std::string(type));
    }
    ASSERT_GE(sequence.size(), 7u);
    EXPECT_EQ(sequence[0], "REPLY");
    EXPECT_EQ(sequence[1], "JOB_STATUS_UPDATE:PENDING");
    EXPECT_EQ(sequence[2], "JOB_STATUS_UPDATE:RUNNING");
    EXPECT_EQ(sequence[3], "MESSAGE_FROM_JOB");
    EXPECT_EQ(sequence[sequence.size() - 3], "MESSAGE_FROM_JOB");
    EXPECT_EQ(sequence[sequence.size() - 4], "JOB_STATUS_UPDATE:FINISHED");
    EXPECT_EQ(sequence[sequence.size() - 2], "JOB_DONE");
    EXPECT_EQ(sequence.back(), "JOB_DONE");

    const auto done = bench.doneOf(jobId);
    EXPECT_EQ(done.at("status"), "FINISHED");
    EXPECT_EQ(done.at("result").at("applied_bias"), 0.5);
    EXPECT_FALSE(done.contains("error"));
    const auto& info = done.at("job_info").as_object();
    for (const auto* key : {"job_id", "status", "status_detail", "type", "created", "started", "ended",
                            "error", "options", "job_meta", "parameters", "stop_conditions"}) {
        EXPECT_TRUE(info.contains(key)) << key;
    }
    EXPECT_NE(info.at("ended").as_string(), "");
    EXPECT_EQ(bench.events("MESSAGE_FROM_JOB").front().at("severity"), "MESSAGE");
    // Jobs without a result value carry no "result".
    const auto beep = bench.start("beep", kBeep).at("job_id");
    bench.clock.runUntilIdle();
    EXPECT_FALSE(bench.doneOf(beep).contains("result"));
}

TEST(DeviceJobsQueue, BypassRunsBesideTheQueueForControlJobsOnly) {
    JobBench bench;
    const auto sleeper = bench.start("sleep", sleepFor(10.0)).at("job_id");
    const auto state =
        bench.start("get_potentiostat_state", {{"potentiostat", "MAIN:1:POT"}}, {{"bypass_queue", true}})
            .at("job_id");
    bench.clock.advance(100ms);
    EXPECT_EQ(bench.doneOf(state).at("status"), "FINISHED");
    EXPECT_EQ(bench.doneOf(state).at("result").at("switched_on"), false);
    EXPECT_EQ(bench.statusOf(sleeper), "RUNNING");

    const auto refused =
        bench.start("ocv", {{"duration", 1.0}, {"output_data_rate", 10.0}}, {{"bypass_queue", true}});
    EXPECT_EQ(JobBench::code(refused), "QUEUE_BYPASS_NOT_ALLOWED");
    const auto done = bench.done().back();
    EXPECT_EQ(done.at("request_id"), "r4");
    EXPECT_EQ(done.at("status"), "FAILED");
    EXPECT_EQ(done.at("status_detail"), "FAILED_TO_CREATE");
    EXPECT_EQ(JobBench::code(done), "QUEUE_BYPASS_NOT_ALLOWED");
}

TEST(DeviceJobsQueue, BoundedQueueAnswersQueueFull) {
    JobBench bench({.queueCapacity = 2});
    bench.start("sleep", sleepFor(5.0));
    bench.clock.advance(1ms);  // running: not counted
    EXPECT_EQ(bench.start("beep", kBeep).at("status"), "SUCCESS");
    EXPECT_EQ(bench.start("beep", kBeep).at("status"), "SUCCESS");
    const auto full = bench.start("beep", kBeep);
    EXPECT_EQ(JobBench::code(full), "QUEUE_FULL");
    EXPECT_EQ(bench.done().back().at("status_detail"), "FAILED_TO_CREATE");
    // A bypassing job does not need a place in the queue.
    EXPECT_EQ(bench.start("get_date_time", {}, {{"bypass_queue", true}}).at("status"), "SUCCESS");
}

struct StopCase {
    const char* name;
    json::object request;
    bool pendingCancelled;
};

TEST(DeviceJobsQueue, StopEndsRunningJobAndFlushesOrContinues) {
    const StopCase cases[] = {
        {"flush", {{"do", "/stop"}, {"queue", "flush"}}, true},
        {"continue", {{"do", "/stop"}, {"queue", "continue"}}, false},
        {"no mode", {{"do", "/stop"}}, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        JobBench bench;
        const auto running = bench.start("sleep", sleepFor(5.0)).at("job_id");
        const auto waiting = bench.start("sleep", sleepFor(0.5)).at("job_id");
        bench.clock.advance(100ms);
        bench.model.handleText(bench.client.id, json::serialize(c.request));

        const auto stopped = bench.doneOf(running);
        EXPECT_EQ(stopped.at("status"), "FAILED");
        EXPECT_EQ(stopped.at("status_detail"), "STOPPED_BY_USER");
        EXPECT_EQ(JobBench::code(stopped), "STOPPED_MANUALLY");
        EXPECT_EQ(stopped.at("error").at("message"), "manually stopped");

        bench.clock.advance(1s);
        const auto next = bench.doneOf(waiting);
        if (c.pendingCancelled) {
            EXPECT_EQ(next.at("status_detail"), "CANCELLED_BEFORE_RUN");
            EXPECT_EQ(JobBench::code(next), "STOPPED_MANUALLY_BEFORE_RUN");
            EXPECT_EQ(next.at("job_info").at("started"), "");
        } else {
            EXPECT_EQ(next.at("status"), "FINISHED");
        }
        EXPECT_EQ(bench.done().size(), 2u);
        EXPECT_FALSE(bench.model.busy());
    }
}

TEST(DeviceJobsQueue, CheckParametersValidatesWithoutRunning) {
    JobBench bench;
    const auto ok = bench.check("beep", kBeep);
    EXPECT_EQ(ok.at("status"), "SUCCESS");
    EXPECT_EQ(JobBench::code(bench.check("beep", {{"frequency", 440.0}})), "PARAMETER_MISSING");
    bench.clock.runUntilIdle();
    EXPECT_TRUE(bench.done().empty());
    EXPECT_TRUE(bench.send({{"do", "/job/list"}, {"exclude_finished", false}}).at("jobs").as_array().empty());
}

TEST(DeviceJobsQueue, InfoAndListReportKnownJobs) {
    JobBench bench;
    const auto finished = bench.start("beep", kBeep).at("job_id");
    bench.clock.runUntilIdle();
    const auto pending = bench.start("sleep", sleepFor(1.0)).at("job_id");

    const auto missing = bench.send({{"do", "/job/info"}, {"job_id", "nope"}});
    EXPECT_EQ(JobBench::code(missing), "ID_NOT_FOUND");
    EXPECT_EQ(missing.at("error").at("message"), "could not find {0} with {1} '{2}'");
    EXPECT_EQ(missing.at("error").at("message_parameters"), (json::array{"job", "job_id", "nope"}));

    const auto all = bench.send({{"do", "/job/list"}, {"exclude_finished", false}}).at("jobs").as_array();
    ASSERT_EQ(all.size(), 2u);
    EXPECT_EQ(all[0].at("job_id"), finished);
    const auto open = bench.send({{"do", "/job/list"}, {"exclude_finished", true}}).at("jobs").as_array();
    ASSERT_EQ(open.size(), 1u);
    EXPECT_EQ(open[0].at("job_id"), pending);
}

TEST(DeviceJobsQueue, EventsGoToTheStartingConnectionAndJobsOutliveIt) {
    JobBench bench;
    const auto other = bench.connect();
    const auto jobId = bench.start("sleep", sleepFor(0.5)).at("job_id");
    bench.clock.advance(1ms);
    bench.model.closeConnection(bench.client.id);
    bench.clock.advance(1s);
    const auto info = bench.send({{"do", "/job/info"}, {"job_id", jobId}}, &other);
    EXPECT_EQ(info.at("job_info").at("status"), "FINISHED");
    EXPECT_TRUE(JobBench::events(other, "JOB_STATUS_UPDATE").empty());
    EXPECT_TRUE(JobBench::done(other).empty());
}

TEST(DeviceJobsQueue, JobWhoseReplyWasNeverSentRunsOnceItsConnectionHasGone) {
    JobBench bench;
    const auto other = bench.connect();
    Fault close;
    close.action = FaultActionEnum::CLOSE;
    ASSERT_FALSE(bench.model.faults().arm("/job/start", close, 1));
    const json::object request{{"do", "/job/start"}, {"request_id", "lost"}, {"job", JobBench::job("sleep", sleepFor(0.5))}};
    bench.model.handleText(bench.client.id, json::serialize(request));
    const auto listed = [&] { return bench.send({{"do", "/job/list"}}, &other).at("jobs").as_array(); };
    ASSERT_EQ(listed().size(), 1u);
    bench.clock.advance(2s);
    EXPECT_EQ(listed().at(0).at("status"), "PENDING") << "waits while its connection may still get the reply";
    bench.model.closeConnection(bench.client.id);
    bench.clock.advance(2s);
    EXPECT_EQ(listed().at(0).at("status"), "FINISHED");
}

TEST(DeviceJobsQueue, TimeScaleDividesDurations) {
    JobBench bench({}, 10.0);
    const auto jobId = bench.start("sleep", sleepFor(2.0)).at("job_id");
    bench.clock.advance(150ms);
    EXPECT_EQ(bench.statusOf(jobId), "RUNNING");
    bench.clock.advance(60ms);
    EXPECT_EQ(bench.statusOf(jobId), "FINISHED");
}

}  // namespace
}  // namespace velmar::emulator::testing
