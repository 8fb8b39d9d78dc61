// The "With Header" snapshots of job results under VELMAR_BINARY: description JSON with the
// workstation's protocol version, one 0x00 byte, the content; read whole, in chunks and listed.

#include "emulator/emulator_test_support.hpp"

#include "json_common/base64.hpp"

#include <boost/json.hpp>
#include <gtest/gtest.h>

namespace velmar::emulator::testing {
namespace {

namespace json = boost::json;

using ResourceSnapshots = ModelFixture;

TEST_F(ResourceSnapshots, JobResultReadsAsDescriptionSeparatorAndContent) {
    auto client = connect();
    const std::string content("\x01\x02\x00\x03payload", 11);
    auto result = model.resources().createJobResult("job j1", "DATASET_DC", "j1", {{"number_of_rows", 1}}, content);
    ASSERT_TRUE(result);
    const std::string id = result->resourceId;

    request(client, {{"do", "/VELMAR_BINARY/download"}, {"resource_id", id}});
    // A copy: the requests below record further frames.
    const auto frame = client.peer->frames.back();
    ASSERT_EQ(frame.kind, RecordingPeer::Frame::Kind::BINARY);
    const auto separator = frame.bytes.find('\0');
    ASSERT_NE(separator, std::string::npos);
    EXPECT_EQ(frame.bytes.substr(separator + 1), content);
    const auto metadata = json::parse(frame.bytes.substr(0, separator)).as_object();
    EXPECT_EQ(metadata.at("resource_id").as_string(), id);
    EXPECT_EQ(metadata.at("type"), "JOB_RESULT");
    EXPECT_EQ(metadata.at("sub_type"), "DATASET_DC");
    EXPECT_EQ(metadata.at("size"), content.size());
    EXPECT_EQ(metadata.at("header").at("number_of_rows"), 1);
    EXPECT_EQ(metadata.at("workstation_info").at("protocol_version"), 12);
    EXPECT_EQ(metadata.at("workstation_info").at("mode"), "EMULATION");

    // Chunks across the separator give the same bytes; the size counts the whole snapshot.
    std::string chunked;
    for (std::uint64_t offset = 0;; offset += 7) {
        auto reply = request(client, {{"do", "/VELMAR_BINARY/get"}, {"resource_id", id}, {"offset", offset}, {"limit", 7}});
        EXPECT_EQ(reply.at("resource_total_size"), frame.bytes.size());
        auto bytes = *decodeBase64(reply.at("data").as_string());
        if (bytes.empty()) break;
        chunked += bytes;
    }
    EXPECT_EQ(chunked, frame.bytes);

    auto info = request(client, {{"do", "/VELMAR_BINARY/info"}, {"resource_id", id}}).at("resource");
    EXPECT_EQ(info.at("type"), "VELMAR_BINARY");
    EXPECT_EQ(info.at("size"), frame.bytes.size());
    EXPECT_EQ(info.at("name"), "job j1.vrb");
    EXPECT_EQ(info.at("job_id"), "j1");
    // The job result itself is unchanged.
    EXPECT_EQ(request(client, {{"do", "/JOB_RESULT/info"}, {"resource_id", id}}).at("resource").at("size"),
              content.size());
}

TEST_F(ResourceSnapshots, ListedBesideUploadsAndReadOnly) {
    auto client = connect();
    auto upload = model.resources().create(ResourceTypeEnum::VELMAR_BINARY, "blob", "test");
    ASSERT_TRUE(upload);
    auto result = model.resources().createJobResult("job j2", "DATASET_AC", "j2", {}, "abc");
    ASSERT_TRUE(result);
    const auto list = request(client, {{"do", "/VELMAR_BINARY/list"}}).at("resources").as_array();
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[0].at("name"), "blob");
    EXPECT_EQ(list[1].at("resource_id").as_string(), result->resourceId);
    EXPECT_EQ(list[1].at("sub_type"), "DATASET_AC");
    EXPECT_EQ(request(client, {{"do", "/JOB_RESULT/list"}}).at("resources").as_array().size(), 1u);
    // Appending to or deleting the snapshot addresses a job result: refused as another type.
    EXPECT_EQ(code(request(client, {{"do", "/VELMAR_BINARY/append"}, {"resource_id", result->resourceId}, {"data", "AAAA"}})),
              "RESOURCE_TYPE_MISMATCH");
    EXPECT_EQ(code(request(client, {{"do", "/VELMAR_BINARY/delete"}, {"resource_id", result->resourceId}})),
              "RESOURCE_TYPE_MISMATCH");
    EXPECT_EQ(model.resources().info(ResourceTypeEnum::JOB_RESULT, result->resourceId)->size, 3u);
}

}  // namespace
}  // namespace velmar::emulator::testing
