#include "emulator/emulator_test_support.hpp"

#include "json_common/base64.hpp"

using namespace velmar::emulator;
using namespace velmar::emulator::testing;
namespace json = boost::json;

using DeviceModelEnvelope = ModelFixture;

TEST_F(DeviceModelEnvelope, UnknownEndpointFailsWithItsPathAsParameter) {
    auto client = connect();
    auto reply = request(client, {{"do", "/no/such/path"}});
    EXPECT_EQ(reply.at("type"), "REPLY");
    EXPECT_EQ(reply.at("request_id"), "rid-1");
    EXPECT_EQ(reply.at("status"), "FAILED");
    EXPECT_EQ(code(reply), "ENDPOINT_NOT_FOUND");
    EXPECT_EQ(reply.at("error").at("message"), "endpoint '{0}' not found");
    EXPECT_EQ(reply.at("error").at("message_parameters"), json::array{"/no/such/path"});
}

TEST_F(DeviceModelEnvelope, MalformedFramesGetFailedRepliesAndTheConnectionLivesOn) {
    auto client = connect();
    model.handleText(client.id, "{\"do\": \"/id\", ");
    model.handleText(client.id, "[1, 2]");
    model.handleText(client.id, R"({"request_id": "x-1", "do": 5})");
    auto texts = client.peer->texts();
    ASSERT_EQ(texts.size(), 3u);
    EXPECT_EQ(code(texts[0].as_object()), "JSON_MALFORMED");
    EXPECT_FALSE(texts[0].as_object().contains("request_id"));
    EXPECT_EQ(code(texts[1].as_object()), "JSON_OBJECT_EXPECTED");
    EXPECT_EQ(code(texts[2].as_object()), "PARAMETER_MISSING");
    EXPECT_EQ(texts[2].at("request_id"), "x-1");
    EXPECT_EQ(request(client, {{"do", "/id"}}).at("status"), "SUCCESS");
}

TEST_F(DeviceModelEnvelope, IdStatusAndStop) {
    auto client = connect();
    auto id = request(client, {{"do", "/id"}});
    EXPECT_EQ(id.at("workstation").at("model_name"), "RQ5");
    EXPECT_EQ(id.at("workstation").at("mode"), "EMULATION");

    model.setBusyProvider([] { return true; });
    auto status = request(client, {{"do", "/status"}}).at("workstation_status").as_object();
    EXPECT_EQ(status.at("busy"), true);
    EXPECT_TRUE(status.at("uptime").is_int64());
    EXPECT_TRUE(status.at("last_dc_calibration").is_string());

    // "/stop" is recorded and handed to the hook, but never answered.
    std::vector<StopQueueModeEnum> seen;
    model.setStopHandler([&](const StopRequest& stop) { seen.push_back(stop.queue); });
    const auto before = client.peer->frames.size();
    model.handleText(client.id, R"({"do":"/stop","queue":"flush"})");
    model.handleText(client.id, R"({"do":"/stop","queue":"continue"})");
    model.handleText(client.id, R"({"do":"/stop"})");
    EXPECT_EQ(client.peer->frames.size(), before);
    EXPECT_EQ(seen, (std::vector{StopQueueModeEnum::FLUSH, StopQueueModeEnum::CONTINUE, StopQueueModeEnum::UNSPECIFIED}));
    ASSERT_EQ(model.stopRequests().size(), 3u);
    EXPECT_EQ(model.stopRequests()[0].connectionId, client.id);
}

using DeviceModelSettings = ModelFixture;

TEST_F(DeviceModelSettings, EachKeyHasItsOwnOutcomeAndOnlyAcceptedValuesChange) {
    auto client = connect();
    auto reply = request(client, {{"do", "/settings/set"},
                                  {"settings", {{"display_brightness", 42},
                                                {"network_dhcp", false},
                                                {"fan_curve_temperature_low", 40},  // integer for a double
                                                {"network_port", 70000},
                                                {"calibration_interval_days", 0},
                                                {"fan_curve_temperature_high", 99.5},
                                                {"network_hostname", 17},
                                                {"system_serial_number", "FAKE"},
                                                {"no_such_key", true}}}});
    ASSERT_EQ(reply.at("status"), "SUCCESS");
    const auto& outcome = reply.at("settings").as_object();
    const auto statusOf = [&](std::string_view key) { return std::string(outcome.at(key).at("status").as_string()); };
    const auto codeOf = [&](std::string_view key) { return code(outcome.at(key).as_object()); };
    EXPECT_EQ(statusOf("display_brightness"), "SUCCESS");
    EXPECT_EQ(statusOf("network_dhcp"), "SUCCESS");
    EXPECT_EQ(statusOf("fan_curve_temperature_low"), "SUCCESS");
    EXPECT_EQ(codeOf("network_port"), "PARAMETER_VALUE_TOO_HIGH");
    EXPECT_EQ(codeOf("calibration_interval_days"), "PARAMETER_VALUE_TOO_LOW");
    EXPECT_EQ(codeOf("fan_curve_temperature_high"), "PARAMETER_VALUE_TOO_HIGH");
    EXPECT_EQ(codeOf("network_hostname"), "PARAMETER_FORMAT_INVALID");
    EXPECT_EQ(codeOf("system_serial_number"), "SETTINGS_NOT_APPLIED");
    EXPECT_EQ(codeOf("no_such_key"), "ID_NOT_FOUND");
    EXPECT_EQ(outcome.at("no_such_key").at("error").at("message_parameters"),
              (json::array{"setting", "key", "no_such_key"}));

    auto settings = request(client, {{"do", "/settings/get"}}).at("settings").as_object();
    EXPECT_EQ(settings.at("display_brightness"), 42);
    EXPECT_EQ(settings.at("network_dhcp"), false);
    EXPECT_TRUE(settings.at("fan_curve_temperature_low").is_double());
    EXPECT_EQ(settings.at("fan_curve_temperature_low").as_double(), 40.0);
    EXPECT_EQ(settings.at("network_port"), 1994);
    EXPECT_EQ(settings.at("fan_curve_temperature_high").as_double(), 55.0);
    EXPECT_EQ(settings.at("system_serial_number"), "RQ5-EMU-000001");
    EXPECT_FALSE(settings.contains("no_such_key"));
}

TEST_F(DeviceModelSettings, SetWithoutSettingsObjectFails) {
    auto client = connect();
    EXPECT_EQ(code(request(client, {{"do", "/settings/set"}})), "PARAMETER_MISSING");
    EXPECT_EQ(code(request(client, {{"do", "/settings/set"}, {"settings", json::array{1}}})),
              "PARAMETER_FORMAT_INVALID");
}

using DeviceModelResources = ModelFixture;

TEST_F(DeviceModelResources, ChunkedAppendThenGetHonoursOffsetAndLimit) {
    auto client = connect();
    auto created = request(client, {{"do", "/WAVE/create"}, {"name", "sine"}});
    ASSERT_EQ(created.at("status"), "SUCCESS");
    const std::string id(created.at("resource").at("resource_id").as_string());
    EXPECT_EQ(created.at("resource").at("type"), "WAVE");
    EXPECT_EQ(created.at("resource").at("size"), 0);

    std::string content;
    for (int i = 0; i < 3000; ++i) content += static_cast<char>(i * 7 % 256);
    for (std::size_t at = 0; at < content.size(); at += 1000) {
        auto chunk = velmar::encodeBase64(std::string_view(content).substr(at, 1000));
        ASSERT_EQ(request(client, {{"do", "/WAVE/append"}, {"resource_id", id}, {"data", chunk}}).at("status"), "SUCCESS");
    }
    const auto get = [&](std::uint64_t offset, std::uint64_t limit) {
        auto reply = request(client, {{"do", "/WAVE/get"}, {"resource_id", id}, {"offset", offset}, {"limit", limit}});
        EXPECT_EQ(reply.at("resource_total_size"), 3000);
        return *velmar::decodeBase64(reply.at("data").as_string());
    };
    EXPECT_EQ(get(0, 0), content);  // 0 = the chunk limit, more than the content
    EXPECT_EQ(get(1500, 10), content.substr(1500, 10));
    EXPECT_EQ(get(2995, 100), content.substr(2995));
    EXPECT_EQ(get(3000, 10), "");
    EXPECT_EQ(get(100000, 0), "");

    auto info = request(client, {{"do", "/WAVE/info"}, {"resource_id", id}});
    EXPECT_EQ(info.at("resource").at("size"), 3000);
    EXPECT_EQ(info.at("resource").at("name"), "sine");
    auto list = request(client, {{"do", "/WAVE/list"}}).at("resources").as_array();
    ASSERT_EQ(list.size(), 1u);
    EXPECT_TRUE(request(client, {{"do", "/UNDEFINED/list"}}).at("resources").as_array().empty());
}

TEST_F(DeviceModelResources, GetIsCappedAtTheChunkLimit) {
    auto client = connect();
    auto info = model.resources().createJobResult("big", "DATASET_DC", "job-1", {{"rows", 1}},
                                                  std::string(ResourceStore::CHUNK_LIMIT + 10, 'x'));
    ASSERT_TRUE(info);
    auto reply = request(client, {{"do", "/JOB_RESULT/get"}, {"resource_id", info->resourceId}, {"limit", 5'000'000}});
    EXPECT_EQ(velmar::decodedBase64Size(reply.at("data").as_string()), ResourceStore::CHUNK_LIMIT);
    auto described = request(client, {{"do", "/JOB_RESULT/info"}, {"resource_id", info->resourceId}}).at("resource");
    EXPECT_EQ(described.at("sub_type"), "DATASET_DC");
    EXPECT_EQ(described.at("job_id"), "job-1");
    EXPECT_EQ(described.at("header").at("rows"), 1);
}

TEST_F(DeviceModelResources, DownloadSendsReplyThenOneBinaryFrameAndSurvivesLaterAppends) {
    auto client = connect();
    auto info = model.resources().create(velmar::ResourceTypeEnum::DEBUG_INFO, "log", "test").value();
    ASSERT_FALSE(model.resources().appendBytes(info.type, info.resourceId, "0123456789"));

    request(client, {{"do", "/DEBUG_INFO/download"}, {"resource_id", info.resourceId}, {"limit", 4}});
    ASSERT_GE(client.peer->frames.size(), 2u);
    const auto& last = client.peer->frames.back();
    EXPECT_EQ(last.kind, RecordingPeer::Frame::Kind::BINARY);
    EXPECT_EQ(last.bytes, "0123");
    EXPECT_EQ(client.peer->frames[client.peer->frames.size() - 2].kind, RecordingPeer::Frame::Kind::TEXT);

    request(client, {{"do", "/DEBUG_INFO/download"}, {"resource_id", info.resourceId}, {"limit", 0}});
    const auto shared = client.peer->lastPayload;
    EXPECT_EQ(std::string_view(shared.owner->data(), shared.size), "0123456789");
    // An append while the frame is "in flight" must leave the shared bytes alone.
    const auto* before = shared.owner->data();
    ASSERT_FALSE(model.resources().appendBytes(info.type, info.resourceId, std::string(1 << 16, 'z')));
    EXPECT_EQ(shared.owner->data(), before);
    EXPECT_EQ(*shared.owner, "0123456789");
}

TEST_F(DeviceModelResources, UnknownIdTypeMismatchBadDataAndDelete) {
    auto client = connect();
    auto unknown = request(client, {{"do", "/WAVE/get"}, {"resource_id", "nope"}});
    EXPECT_EQ(code(unknown), "ID_NOT_FOUND");
    EXPECT_EQ(unknown.at("error").at("message_parameters"), (json::array{"resource", "resource_id", "nope"}));

    auto created = request(client, {{"do", "/CALIB_MESH/create"}, {"name", "mesh"}});
    const std::string id(created.at("resource").at("resource_id").as_string());
    EXPECT_EQ(code(request(client, {{"do", "/WAVE/info"}, {"resource_id", id}})), "RESOURCE_TYPE_MISMATCH");
    EXPECT_EQ(code(request(client, {{"do", "/CALIB_MESH/append"}, {"resource_id", id}, {"data", "abc"}})),
              "RESOURCE_CONTENT_INVALID");
    EXPECT_EQ(code(request(client, {{"do", "/CALIB_MESH/append"}, {"resource_id", id}, {"data", "ab$="}})),
              "RESOURCE_CONTENT_INVALID");
    EXPECT_EQ(model.resources().info(velmar::ResourceTypeEnum::CALIB_MESH, id)->size, 0u);
    EXPECT_EQ(code(request(client, {{"do", "/CALIB_MESH/get"}, {"resource_id", id}, {"offset", -1}})),
              "PARAMETER_VALUE_TOO_LOW");
    EXPECT_EQ(code(request(client, {{"do", "/CALIB_MESH/create"}})), "PARAMETER_MISSING");

    EXPECT_EQ(request(client, {{"do", "/CALIB_MESH/delete"}, {"resource_id", id}}).at("status"), "SUCCESS");
    EXPECT_EQ(code(request(client, {{"do", "/CALIB_MESH/info"}, {"resource_id", id}})), "ID_NOT_FOUND");
}

TEST(ResourceStore, AppendsBeyondCapacityFailWithoutChangingTheResource) {
    IdSource ids(1);
    ResourceStore store(ids, 100);
    auto info = store.create(velmar::ResourceTypeEnum::WAVE, "w", "test").value();
    EXPECT_FALSE(store.appendBytes(info.type, info.resourceId, std::string(80, 'a')));
    EXPECT_EQ(store.appendBytes(info.type, info.resourceId, std::string(30, 'a')).code, velmar::ErrorCodeEnum::OUT_OF_MEMORY);
    EXPECT_EQ(store.info(info.type, info.resourceId)->size, 80u);
    EXPECT_FALSE(store.remove(info.type, info.resourceId));
    EXPECT_EQ(store.usedBytes(), 0u);
}

using DeviceModelConnections = ModelFixture;

TEST_F(DeviceModelConnections, ListIdAndDrop) {
    auto first = connect("first");
    auto second = connect("second");
    auto list = request(first, {{"do", "/connection/list"}}).at("connections").as_array();
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[1].at("user_agent"), "second");
    EXPECT_EQ(list[1].at("using_tls"), false);
    EXPECT_EQ(request(second, {{"do", "/connection/id"}}).at("connection").at("connection_id"), json::value(second.id));

    auto unknown = request(first, {{"do", "/connection/drop"}, {"connection_id", "ghost"}});
    EXPECT_EQ(code(unknown), "ID_NOT_FOUND");
    EXPECT_EQ(unknown.at("error").at("message"), "could not find {0} with {1} '{2}'");
    EXPECT_EQ(unknown.at("error").at("message_parameters"), (json::array{"connection", "connection_id", "ghost"}));

    EXPECT_EQ(request(first, {{"do", "/connection/drop"}, {"connection_id", second.id}}).at("status"), "SUCCESS");
    EXPECT_EQ(second.peer->frames.back().kind, RecordingPeer::Frame::Kind::CLOSE);

    // Dropping oneself: the reply comes before the close.
    request(first, {{"do", "/connection/drop"}, {"connection_id", first.id}});
    const auto& frames = first.peer->frames;
    ASSERT_GE(frames.size(), 2u);
    EXPECT_EQ(frames[frames.size() - 2].kind, RecordingPeer::Frame::Kind::TEXT);
    EXPECT_EQ(frames.back().kind, RecordingPeer::Frame::Kind::CLOSE);

    model.closeConnection(second.id);
    EXPECT_EQ(model.connections().size(), 1u);
}

using DeviceModelFaults = ModelFixture;

TEST_F(DeviceModelFaults, EventsComeFirstThenTheDelayedReplyForCountRequests) {
    auto client = connect();
    auto arm = request(client, {{"do", "/emulator/fault"},
                                {"endpoint", "/id"},
                                {"action", "delay"},
                                {"delay_ms", 250},
                                {"count", 2},
                                {"events_before_reply", json::array{json::object{{"type", "MESSAGE_FROM_SERVER"}}}}});
    ASSERT_EQ(arm.at("status"), "SUCCESS");
    for (int i = 0; i < 3; ++i) model.handleText(client.id, R"({"do":"/id","request_id":"r)" + std::to_string(i) + "\"}");
    // Two delayed: only their events and the third, undisturbed reply are out so far.
    auto texts = client.peer->texts();
    ASSERT_EQ(texts.size(), 4u);  // arm reply, event, event, reply r2
    EXPECT_EQ(texts[1].at("type"), "EVENT");
    EXPECT_EQ(texts[1].at("event").at("type"), "MESSAGE_FROM_SERVER");
    EXPECT_EQ(texts[3].at("request_id"), "r2");
    ASSERT_EQ(scheduler.tasks.size(), 2u);
    EXPECT_EQ(scheduler.tasks[0].delay, std::chrono::milliseconds(250));
    scheduler.runAll();
    texts = client.peer->texts();
    ASSERT_EQ(texts.size(), 6u);
    EXPECT_EQ(texts[4].at("request_id"), "r0");
    EXPECT_EQ(texts[5].at("request_id"), "r1");
}

TEST_F(DeviceModelFaults, EachActionMisbehavesAsNamed) {
    auto client = connect();
    const auto armAndCall = [&](std::string_view action) {
        request(client, {{"do", "/emulator/fault"}, {"endpoint", "/status"}, {"action", action}});
        client.peer->frames.clear();
        model.handleText(client.id, R"({"do":"/status","request_id":"s"})");
        return client.peer->frames;
    };
    using Kind = RecordingPeer::Frame::Kind;

    auto frames = armAndCall("drop");
    EXPECT_TRUE(frames.empty());
    frames = armAndCall("close");
    ASSERT_EQ(frames.size(), 1u);
    EXPECT_EQ(frames[0].kind, Kind::CLOSE);
    frames = armAndCall("malformed");
    ASSERT_EQ(frames.size(), 2u);
    boost::system::error_code ec;
    json::parse(frames[0].bytes, ec);
    EXPECT_TRUE(ec);
    frames = armAndCall("no_type");
    ASSERT_EQ(frames.size(), 2u);
    EXPECT_FALSE(json::parse(frames[0].bytes).as_object().contains("type"));
    frames = armAndCall("binary");
    ASSERT_EQ(frames.size(), 2u);
    EXPECT_EQ(frames[0].kind, Kind::BINARY);
    frames = armAndCall("unknown_type");
    ASSERT_EQ(frames.size(), 2u);
    EXPECT_EQ(json::parse(frames[0].bytes).at("type"), "WHATEVER");
    EXPECT_EQ(json::parse(frames[1].bytes).at("status"), "SUCCESS");

    // Used up: the next request is answered normally.
    client.peer->frames.clear();
    model.handleText(client.id, R"({"do":"/status","request_id":"t"})");
    ASSERT_EQ(client.peer->frames.size(), 1u);

    EXPECT_EQ(code(request(client, {{"do", "/emulator/fault"}, {"endpoint", "/id"}, {"action", "explode"}})),
              "PARAMETER_FORMAT_INVALID");
    // A count of 0 disarms.
    request(client, {{"do", "/emulator/fault"}, {"endpoint", "/id"}, {"action", "drop"}, {"count", 5}});
    request(client, {{"do", "/emulator/fault"}, {"endpoint", "/id"}, {"action", "drop"}, {"count", 0}});
    EXPECT_EQ(request(client, {{"do", "/id"}}).at("status"), "SUCCESS");
}

TEST_F(DeviceModelFaults, EmulatorEventIsSentAfterItsDelay) {
    auto client = connect();
    auto reply = request(client, {{"do", "/emulator/event"}, {"event", {{"type", "JOB_STATUS_UPDATE"}}}, {"delay_ms", 100}});
    EXPECT_EQ(reply.at("status"), "SUCCESS");
    EXPECT_EQ(client.peer->texts().size(), 1u);
    scheduler.runAll();
    auto texts = client.peer->texts();
    ASSERT_EQ(texts.size(), 2u);
    EXPECT_EQ(texts[1], (json::object{{"type", "EVENT"}, {"event", {{"type", "JOB_STATUS_UPDATE"}}}}));

    // A connection that went away meanwhile gets nothing, and nothing breaks.
    request(client, {{"do", "/emulator/event"}, {"event", {{"type", "X"}}}, {"delay_ms", 100}});
    const auto count = client.peer->frames.size();
    model.closeConnection(client.id);
    client.peer.reset();
    scheduler.runAll();
    EXPECT_EQ(count, 3u);
}
