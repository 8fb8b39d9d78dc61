// What the emulator keeps across requests is bounded in total: resource descriptions, the
// ended jobs, and the tables that jobs fill with new keys. Jobs run on the virtual clock.

#include "device_jobs_bench.hpp"
#include "emulator/core/id_source.hpp"
#include "emulator/core/resource_store.hpp"
#include "emulator/device_jobs/hardware_model.hpp"

namespace velmar::emulator::testing {
namespace {

namespace json = boost::json;

TEST(RetainedState, ResourceNamesAndHeadersCountAgainstTheirOwnBound) {
    IdSource ids(1);
    constexpr std::uint64_t kBound = 64u << 10;
    ResourceStore store(ids, 1u << 20, kBound);
    // Empty resources with long names: the content capacity would never stop them.
    const std::string name(4000, 'n');
    int created = 0;
    std::optional<ErrorObject> refusal;
    for (int i = 0; i < 1000 && !refusal; ++i) {
        auto info = store.create(ResourceTypeEnum::WAVE, name, "test");
        if (info) {
            ++created;
        } else {
            refusal = info.error();
        }
    }
    ASSERT_TRUE(refusal.has_value());
    EXPECT_EQ(refusal->code, ErrorCodeEnum::OUT_OF_MEMORY);
    EXPECT_EQ(created, static_cast<int>(kBound / (name.size() + 4 + ResourceStore::DESCRIPTION_OVERHEAD)));
    EXPECT_LE(store.descriptionBytes(), kBound);
    EXPECT_EQ(store.usedBytes(), 0u);

    // Job results are described by their header too; removing a resource frees its part.
    json::object header{{"job_info", {{"parameters", {{"values", json::array(4000, json::value(0.5))}}}}}};
    EXPECT_EQ(store.createJobResult("job", "DATASET_DC", "id", header, "").error().code, ErrorCodeEnum::OUT_OF_MEMORY);
    for (const auto& info : store.list(ResourceTypeEnum::WAVE)) EXPECT_FALSE(store.remove(info.type, info.resourceId));
    EXPECT_EQ(store.descriptionBytes(), 0u);
    EXPECT_TRUE(store.createJobResult("job", "DATASET_DC", "id", header, ""));
}

TEST(RetainedState, EndedJobsAreForgottenOldestFirstBeyondTheirBytes) {
    // Each sleep carries 20 kB of metadata; 100 kB keep at most five of them.
    JobBench bench({.queueCapacity = 16, .endedJobsKept = 1000, .endedJobsKeptBytes = 100'000});
    const json::object bulky{{"note", std::string(20'000, 'm')}};
    std::vector<json::value> ids;
    for (int i = 0; i < 12; ++i) {
        auto request = json::object{{"do", "/job/start"}, {"job", JobBench::job("sleep", {{"duration", 0.0}})}};
        request.at("job").as_object()["job_meta"] = bulky;
        ids.push_back(bench.send(std::move(request)).at("job_id"));
        bench.clock.runUntilIdle();
    }
    const auto listed = bench.send({{"do", "/job/list"}}).at("jobs").as_array();
    EXPECT_GE(listed.size(), 1u);
    EXPECT_LE(listed.size(), 5u);
    EXPECT_EQ(listed.back().at("job_id"), ids.back());
    EXPECT_EQ(JobBench::code(bench.send({{"do", "/job/info"}, {"job_id", ids.front()}})), "ID_NOT_FOUND");

    // The count bound still holds on its own.
    JobBench counted({.queueCapacity = 16, .endedJobsKept = 3});
    for (int i = 0; i < 6; ++i) {
        counted.start("sleep", {{"duration", 0.0}});
        counted.clock.runUntilIdle();
    }
    EXPECT_EQ(counted.send({{"do", "/job/list"}}).at("jobs").as_array().size(), 3u);
}

TEST(RetainedState, JobsBesideTheQueueAreBounded) {
    JobBench bench({.queueCapacity = 2, .bypassCapacity = 3});
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(bench.start("sleep", {{"duration", 60.0}}, {{"bypass_queue", true}}).at("status"), "SUCCESS");
    const auto refused = bench.start("sleep", {{"duration", 60.0}}, {{"bypass_queue", true}});
    EXPECT_EQ(JobBench::code(refused), "QUEUE_FULL");
    bench.clock.runUntilIdle();
    EXPECT_EQ(bench.start("sleep", {{"duration", 0.0}}, {{"bypass_queue", true}}).at("status"), "SUCCESS");
}

TEST(RetainedState, HardwarePropertiesWithNewKeysAreABoundedTable) {
    IdSource ids(1);
    ResourceStore resources(ids);
    HardwareModel hardware("RQ5-TEST");
    const auto set = [&](int key, int value) {
        return hardware.execute("set_hardware_property",
                                {{"uri", "MAIN:1"}, {"key", "k" + std::to_string(key)}, {"value", value}}, resources);
    };
    int stored = 0;
    std::optional<ErrorObject> refusal;
    for (int i = 0; i < 2000 && !refusal; ++i) {
        if (auto outcome = set(i, i)) {
            ++stored;
        } else {
            refusal = outcome.error();
        }
    }
    ASSERT_TRUE(refusal.has_value());
    EXPECT_EQ(refusal->code, ErrorCodeEnum::OUT_OF_MEMORY);
    EXPECT_LT(stored, 1024);
    EXPECT_TRUE(set(0, 7)) << "an existing key can still be changed";
}

using RetainedTestHooks = ModelFixture;

TEST_F(RetainedTestHooks, ArmedFaultsAndDelayedAnswersAreBounded) {
    auto client = connect();
    const json::object fault{{"do", "/emulator/fault"}, {"endpoint", "/status"}, {"action", "drop"}};
    for (std::size_t i = 0; i < FaultTable::MAX_ARMED; ++i) {
        client.peer->frames.clear();  // keeps each request's reply lookup short
        ASSERT_EQ(request(client, fault).at("status"), "SUCCESS");
    }
    EXPECT_EQ(code(request(client, fault)), "OUT_OF_MEMORY");
    auto disarm = fault;
    disarm["count"] = 0;
    EXPECT_EQ(request(client, disarm).at("status"), "SUCCESS");
    EXPECT_EQ(request(client, fault).at("status"), "SUCCESS");

    // Each delayed event waits in the scheduler; beyond the bound the rest of an answer is
    // dropped instead of kept.
    const json::object event{{"do", "/emulator/event"}, {"event", {{"type", "MESSAGE_FROM_SERVER"}}}, {"delay_ms", 60000}};
    for (std::size_t i = 0; i < DeviceModel::MAX_PAUSED_ANSWERS + 10; ++i) {
        client.peer->frames.clear();
        request(client, event);
    }
    EXPECT_EQ(scheduler.tasks.size(), DeviceModel::MAX_PAUSED_ANSWERS);
}

}  // namespace
}  // namespace velmar::emulator::testing
