// JSON forms of the link's records.

#include "json_common/configuration/workstation_info.hpp"
#include "json_common/resources/resource.hpp"

#include <gtest/gtest.h>
#include <boost/json.hpp>

namespace velmar {
namespace {

namespace json = boost::json;

TEST(LinkRecords, WorkstationInfoRoundTripWithModeByName) {
    const auto wire = json::parse(R"({"serial_number":"S","model_name":"RQ5","firmware_version":"1",
        "firmware_build_id":"b","cpu_card_uuid":"u","system_mac":"m","system_name":"n","mode":"EMULATION"})");
    const auto info = json::value_to<WorkstationInfo>(wire);
    EXPECT_EQ(info.mode, WorkstationModeEnum::EMULATION);
    EXPECT_EQ(info.system_name, "n");
    EXPECT_EQ(json::value_from(info), wire);
    EXPECT_THROW(json::value_to<WorkstationInfo>(json::parse(R"({"mode":"SLEEPING"})")), std::invalid_argument);
    EXPECT_THROW(json::value_to<WorkstationInfo>(json::parse(R"({"model_name":5})")), std::invalid_argument);
}

TEST(LinkRecords, StatusAndConnectionRoundTrip) {
    WorkstationStatus status{true, 99, "2026-01-01", WorkstationModeEnum::RECOVERY};
    const auto back = json::value_to<WorkstationStatus>(json::value_from(status));
    EXPECT_TRUE(back.busy);
    EXPECT_EQ(back.uptime, 99u);
    EXPECT_EQ(back.mode, WorkstationModeEnum::RECOVERY);

    WebsocketConnectionInfo connection{"c1", "t", "127.0.0.1", 5555, "/default", "velmar_link_lib", true};
    const auto copy = json::value_to<WebsocketConnectionInfo>(json::value_from(connection));
    EXPECT_EQ(copy.remote_port, 5555u);
    EXPECT_TRUE(copy.using_tls);
    EXPECT_THROW(json::value_to<WebsocketConnectionInfo>(json::parse(R"({"remote_port":70000})")),
                 std::invalid_argument);
}

TEST(LinkRecords, ResourceRoundTripWithTypeByName) {
    const auto wire = json::parse(R"({"resource_id":"r","name":"n","type":"JOB_RESULT","sub_type":"DATASET_DC",
        "size":12,"created":"c","created_by":"u","updated":"d","job_id":"j","header":{"k":1}})");
    const auto resource = json::value_to<Resource>(wire);
    EXPECT_EQ(resource.type, ResourceTypeEnum::JOB_RESULT);
    EXPECT_EQ(resource.size, 12u);
    EXPECT_EQ(resource.header.at("k"), 1);
    EXPECT_EQ(json::value_from(resource), wire);
    EXPECT_EQ(Resource::DATA_CHUNK_SIZE_LIMIT, 1048576u);
    EXPECT_THROW(json::value_to<Resource>(json::parse(R"({"type":"NOPE"})")), std::invalid_argument);
}

}  // namespace
}  // namespace velmar
