// The `.vrb` import from memory: both dataset kinds bit for bit, and every step of the
// metadata check with its message and code, fed with the matching bad input.

#include "link_json/vrb_test_support.hpp"

#include "json_common/logging/library_version.hpp"
#include "velmar_link_json/vrb/vrb_importer.hpp"

#include <boost/json.hpp>
#include <gtest/gtest.h>

namespace velmar {
namespace {

using namespace velmar::testing;
namespace json = boost::json;

std::vector<std::uint64_t> bitsOfTrack(const std::vector<double>& track) { return bitsOf(track); }

/// The DC snapshot's metadata, changed by `edit`, with the DC payload behind it.
std::string dcWith(auto edit) {
    const std::string payload = dcPayload();
    auto metadata = vrbMetadata("DATASET_DC", json::value_from(dcHeader()), payload.size(), 3);
    edit(metadata);
    return vrbBytes(metadata, payload);
}

void expectError(const std::expected<std::shared_ptr<DataSet>, ErrorObject>& result, ErrorCodeEnum code,
                 std::string_view message) {
    ASSERT_FALSE(result.has_value());
    EXPECT_EQ(result.error().code, code) << result.error().getMessageFormatted();
    EXPECT_EQ(result.error().getMessageFormatted(), message);
}

TEST(VrbImport, DcSnapshotGivesTheTracksBitForBitAndTheJobInfo) {
    auto imported = VrbImporter().importFromMemory(dcSnapshot());
    ASSERT_TRUE(imported.has_value()) << imported.error().getMessageFormatted();
    const auto* dataset = dynamic_cast<const DcDataset*>(imported->get());
    ASSERT_NE(dataset, nullptr);
    EXPECT_EQ(dataset->getHeader(), dcHeader().columns);
    EXPECT_EQ(dataset->getJobType(), "cv");
    EXPECT_EQ(dataset->getJobInfo().job_id, "job-7");
    const auto expected = dcDatasetFromBinary(dcPayload(), dcHeader(), JobInfo{});
    ASSERT_EQ(dataset->getTracks().size(), 3u);
    for (std::size_t c = 0; c < 3; ++c) {
        EXPECT_EQ(bitsOfTrack(dataset->getTracks()[c]), bitsOfTrack(expected.getTracks()[c])) << "column " << c;
    }
}

TEST(VrbImport, EisSnapshotGivesTheDatasetItWasWrittenFrom) {
    const auto original = eisSample();
    auto imported = VrbImporter().importFromMemory(eisSnapshot(original));
    ASSERT_TRUE(imported.has_value()) << imported.error().getMessageFormatted();
    const auto* dataset = dynamic_cast<const EisDataset*>(imported->get());
    ASSERT_NE(dataset, nullptr);
    EXPECT_EQ(dataset->getRowCount(), 3u);
    EXPECT_EQ(eisBits(*dataset), eisBits(original));
    EXPECT_EQ(dataset->getJobInfo().job_id, "job-7");
}

TEST(VrbImport, TypedVariantsRefuseTheOtherKind) {
    const VrbImporter importer;
    const auto dc = dcSnapshot();
    const auto ac = eisSnapshot(eisSample());
    EXPECT_TRUE(importer.importFromMemoryAsDcDataset(dc).has_value());
    EXPECT_TRUE(importer.importFromMemoryAsEisDataset(ac).has_value());
    for (const auto& error : {importer.importFromMemoryAsEisDataset(dc).error(),
                              importer.importFromMemoryAsDcDataset(ac).error()}) {
        EXPECT_EQ(error.code, ErrorCodeEnum::RESOURCE_CONTENT_INVALID);
        EXPECT_EQ(error.getMessageFormatted(), "imported dataset type does not match the requested type");
        EXPECT_EQ(error, VrbImporter::makeTypeMismatchError());
    }
}

TEST(VrbImport, SeparatorIsLookedForBeforeAnyJsonIsParsed) {
    expectError(VrbImporter().importFromMemory("{not json at all"), ErrorCodeEnum::RESOURCE_CONTENT_INVALID,
                "missing metadata/payload separator (0x00): not a valid 'With Header' (.vrb) file");
    expectError(VrbImporter().importFromMemory(""), ErrorCodeEnum::RESOURCE_CONTENT_INVALID,
                "missing metadata/payload separator (0x00): not a valid 'With Header' (.vrb) file");
}

TEST(VrbImport, MetadataMustBeAJsonObject) {
    auto broken = VrbImporter().importFromMemory(std::string("{\"size\": ", 9) + '\0');
    ASSERT_FALSE(broken.has_value());
    EXPECT_EQ(broken.error().code, ErrorCodeEnum::JSON_MALFORMED);
    EXPECT_EQ(broken.error().message, "json malformed: {0}");
    EXPECT_FALSE(broken.error().getMessageFormatted().empty());
    expectError(VrbImporter().importFromMemory(std::string("[1,2]") + '\0'), ErrorCodeEnum::JSON_MALFORMED,
                "json object expected");
}

TEST(VrbImport, PayloadMustHaveTheDeclaredSize) {
    const std::string good = dcSnapshot();
    expectError(VrbImporter().importFromMemory(good + 'x'), ErrorCodeEnum::RESOURCE_CONTENT_INVALID,
                "payload size 73 does not match the declared size 72");
    expectError(VrbImporter().importFromMemory(good.substr(0, good.size() - 1)),
                ErrorCodeEnum::RESOURCE_CONTENT_INVALID, "payload size 71 does not match the declared size 72");
    expectError(VrbImporter().importFromMemory(dcWith([](json::object& m) { m.erase("size"); })),
                ErrorCodeEnum::RESOURCE_CONTENT_INVALID, "payload size 72 does not match the declared size missing");
    expectError(VrbImporter().importFromMemory(dcWith([](json::object& m) { m["size"] = "72"; })),
                ErrorCodeEnum::RESOURCE_CONTENT_INVALID, "payload size 72 does not match the declared size \"72\"");
}

TEST(VrbImport, ProtocolVersionMustBeThere) {
    expectError(VrbImporter().importFromMemory(dcWith([](json::object& m) { m.erase("workstation_info"); })),
                ErrorCodeEnum::RESOURCE_CONTENT_INVALID, "missing workstation_info: cannot verify the protocol version");
    expectError(VrbImporter().importFromMemory(dcWith([](json::object& m) { m["workstation_info"] = 12; })),
                ErrorCodeEnum::RESOURCE_CONTENT_INVALID, "missing workstation_info: cannot verify the protocol version");
    for (const json::value& version : {json::value(nullptr), json::value("12")}) {
        expectError(VrbImporter().importFromMemory(dcWith([&](json::object& m) {
                        m["workstation_info"].as_object()["protocol_version"] = version;
                    })),
                    ErrorCodeEnum::RESOURCE_CONTENT_INVALID,
                    "missing workstation_info.protocol_version: cannot verify the protocol version");
    }
    expectError(VrbImporter().importFromMemory(
                    dcWith([](json::object& m) { m["workstation_info"].as_object().erase("protocol_version"); })),
                ErrorCodeEnum::RESOURCE_CONTENT_INVALID,
                "missing workstation_info.protocol_version: cannot verify the protocol version");
}

TEST(VrbImport, NewerProtocolVersionIsRefusedUnlessIgnored) {
    auto withVersion = [](json::value version) {
        return dcWith([&](json::object& m) { m["workstation_info"].as_object()["protocol_version"] = version; });
    };
    const auto newer = withVersion(ProtocolVersion::library() + 1);
    expectError(VrbImporter().importFromMemory(newer), ErrorCodeEnum::PROTOCOL_VERSION_MISMATCH,
                "protocol version mismatch");
    expectError(VrbImporter().importFromMemory(withVersion(12.5)), ErrorCodeEnum::PROTOCOL_VERSION_MISMATCH,
                "protocol version mismatch");
    VrbImporter ignoring(true);
    EXPECT_TRUE(ignoring.getIgnoreProtocolVersionMismatch());
    EXPECT_TRUE(ignoring.importFromMemory(newer).has_value());
    ignoring.setIgnoreProtocolVersionMismatch(false);
    EXPECT_FALSE(ignoring.importFromMemory(newer).has_value());
    // 0 (unknown) and older versions are read whatever the library's version.
    for (const json::value& version : {json::value(0), json::value(11), json::value(-3), json::value(12)}) {
        EXPECT_TRUE(VrbImporter().importFromMemory(withVersion(version)).has_value()) << json::serialize(version);
    }
}

TEST(VrbImport, HeaderAndJobDataHeaderMustBeObjects) {
    for (const json::value& header : {json::value(nullptr), json::value("header")}) {
        expectError(VrbImporter().importFromMemory(dcWith([&](json::object& m) { m["header"] = header; })),
                    ErrorCodeEnum::JSON_MALFORMED, "resource metadata 'header' is missing or not an object");
    }
    expectError(VrbImporter().importFromMemory(dcWith([](json::object& m) { m.erase("header"); })),
                ErrorCodeEnum::JSON_MALFORMED, "resource metadata 'header' is missing or not an object");
    expectError(
        VrbImporter().importFromMemory(dcWith([](json::object& m) { m["header"].as_object().erase("job_data_header"); })),
        ErrorCodeEnum::JSON_MALFORMED, "'job_data_header' is missing or not an object");
    expectError(
        VrbImporter().importFromMemory(dcWith([](json::object& m) { m["header"].as_object()["job_data_header"] = 1; })),
        ErrorCodeEnum::JSON_MALFORMED, "'job_data_header' is missing or not an object");
}

TEST(VrbImport, UnreadableHeaderPartsAreMalformed) {
    const auto rows = VrbImporter().importFromMemory(
        dcWith([](json::object& m) { m["header"].as_object()["number_of_rows"] = "three"; }));
    ASSERT_FALSE(rows.has_value());
    EXPECT_EQ(rows.error().code, ErrorCodeEnum::JSON_MALFORMED);
    const auto columns = VrbImporter().importFromMemory(dcWith([](json::object& m) {
        m["header"].as_object()["job_data_header"].as_object()["columns"] = "none";
    }));
    ASSERT_FALSE(columns.has_value());
    EXPECT_EQ(columns.error().code, ErrorCodeEnum::JSON_MALFORMED);
    auto ac = eisSnapshot(eisSample());
    ac.replace(ac.find("\"meta\""), 6, "\"Meta\"");
    const auto eis = VrbImporter().importFromMemory(ac);
    EXPECT_FALSE(eis.has_value());
}

TEST(VrbImport, SubTypeMustBeAKnownString) {
    expectError(VrbImporter().importFromMemory(dcWith([](json::object& m) { m.erase("sub_type"); })),
                ErrorCodeEnum::RESOURCE_CONTENT_INVALID, "'sub_type' is missing or not a string");
    expectError(VrbImporter().importFromMemory(dcWith([](json::object& m) { m["sub_type"] = 1; })),
                ErrorCodeEnum::RESOURCE_CONTENT_INVALID, "'sub_type' is missing or not a string");
    expectError(VrbImporter().importFromMemory(dcWith([](json::object& m) { m["sub_type"] = "DATASET_XY"; })),
                ErrorCodeEnum::RESOURCE_CONTENT_INVALID, "unsupported dataset sub_type 'DATASET_XY'");
}

TEST(VrbImport, DcPayloadShorterThanARowGivesTheColumnsWithoutRows) {
    const std::string payload(20, '\x01');
    auto metadata = vrbMetadata("DATASET_DC", json::value_from(dcHeader()), payload.size(), 0);
    auto imported = VrbImporter().importFromMemoryAsDcDataset(vrbBytes(metadata, payload));
    ASSERT_TRUE(imported.has_value()) << imported.error().getMessageFormatted();
    EXPECT_EQ(imported->getHeader().size(), 3u);
    EXPECT_EQ(imported->getTracks().size(), 3u);
    EXPECT_EQ(imported->getRowCount(), 0u);
}

TEST(VrbImport, EisPayloadShorterThanTheAnnouncedRowsIsRefused) {
    const auto original = eisSample();
    auto form = eisDatasetToBinary(original);
    ASSERT_TRUE(form.has_value());
    auto metadata = vrbMetadata("DATASET_AC", json::value_from(form->header), 16, 1000000);
    const auto imported = VrbImporter().importFromMemory(vrbBytes(metadata, form->data.substr(0, 16)));
    ASSERT_FALSE(imported.has_value());
    EXPECT_EQ(imported.error().code, ErrorCodeEnum::RESOURCE_CONTENT_INVALID);
}

TEST(VrbImport, FileInfoFromMemoryTakesTheSummaryOnly) {
    const VrbImporter importer;
    auto info = importer.readFileInfoFromMemory(dcSnapshot());
    ASSERT_TRUE(info.has_value());
    EXPECT_EQ(info->sub_type, "DATASET_DC");
    EXPECT_EQ(info->name, "job job-7");
    EXPECT_EQ(info->size, 72u);
    EXPECT_EQ(info->protocol_version, 12u);
    EXPECT_EQ(info->number_of_rows, 3u);
    // The payload is not checked: a wrong size still gives the summary.
    EXPECT_TRUE(importer.readFileInfoFromMemory(dcSnapshot() + "xyz").has_value());
    EXPECT_EQ(importer.readFileInfoFromMemory("{}").error().code, ErrorCodeEnum::RESOURCE_CONTENT_INVALID);
    EXPECT_EQ(importer.readFileInfoFromMemory(std::string("{") + '\0').error().code, ErrorCodeEnum::JSON_MALFORMED);
}

}  // namespace
}  // namespace velmar
