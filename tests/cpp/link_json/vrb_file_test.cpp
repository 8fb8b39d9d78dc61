// The `.vrb` import from files: the same datasets as from memory (read straight into the
// tracks), the file errors, and readFileInfo within its 65536-byte window.

#include "link_json/vrb_test_support.hpp"

#include "velmar_link_json/vrb/vrb_importer.hpp"

#include <boost/json.hpp>
#include <gtest/gtest.h>

namespace velmar {
namespace {

using namespace velmar::testing;
namespace json = boost::json;

using VrbFile = VrbFileTest;

TEST_F(VrbFile, FileAndMemoryGiveTheSameDatasets) {
    const VrbImporter importer;
    const std::string dc = dcSnapshot();
    auto fromFile = importer.importFromFileAsDcDataset(write("dc.vrb", dc));
    auto fromMemory = importer.importFromMemoryAsDcDataset(dc);
    ASSERT_TRUE(fromFile.has_value()) << fromFile.error().getMessageFormatted();
    ASSERT_TRUE(fromMemory.has_value());
    EXPECT_EQ(dcDatasetToBinary(*fromFile).value(), dcDatasetToBinary(*fromMemory).value());
    EXPECT_EQ(fromFile->getHeader(), fromMemory->getHeader());
    EXPECT_EQ(fromFile->getJobInfo().job_id, "job-7");

    const auto original = eisSample();
    const auto ac = write("ac.vrb", eisSnapshot(original));
    auto eis = importer.importFromFileAsEisDataset(ac);
    ASSERT_TRUE(eis.has_value()) << eis.error().getMessageFormatted();
    EXPECT_EQ(eisBits(*eis), eisBits(original));
    auto any = importer.importFromFile(ac);
    ASSERT_TRUE(any.has_value());
    EXPECT_NE(dynamic_cast<const EisDataset*>(any->get()), nullptr);
    EXPECT_EQ(importer.importFromFileAsDcDataset(ac).error(), VrbImporter::makeTypeMismatchError());
}

TEST_F(VrbFile, LongMetadataIsImportedButNotSummarised) {
    // The separator lies beyond the window of readFileInfo; the import has no such limit.
    const std::string payload = dcPayload();
    auto metadata = vrbMetadata("DATASET_DC", json::value_from(dcHeader()), payload.size(), 3);
    metadata["name"] = std::string(VrbImporter::FILE_INFO_WINDOW + 10, 'n');
    const auto path = write("long.vrb", vrbBytes(metadata, payload));
    const VrbImporter importer;
    auto info = importer.readFileInfo(path);
    ASSERT_FALSE(info.has_value());
    EXPECT_EQ(info.error().code, ErrorCodeEnum::RESOURCE_CONTENT_INVALID);
    EXPECT_EQ(info.error().getMessageFormatted(),
              "no metadata/payload separator (0x00) within the first 65536 bytes: not a valid 'With Header' (.vrb) "
              "file");
    auto imported = importer.importFromFileAsDcDataset(path);
    ASSERT_TRUE(imported.has_value()) << imported.error().getMessageFormatted();
    EXPECT_EQ(imported->getRowCount(), 3u);
}

TEST_F(VrbFile, FileInfoReadsTheSummaryOfALargeFile) {
    // 8 MiB of payload behind a short header: the summary comes from the first bytes.
    const std::string payload(std::size_t{8} << 20, '\0');
    auto metadata = vrbMetadata("DATASET_DC", json::value_from(dcHeader()), payload.size(), payload.size() / 24);
    const auto path = write("big.vrb", vrbBytes(metadata, payload));
    auto info = VrbImporter().readFileInfo(path);
    ASSERT_TRUE(info.has_value()) << info.error().getMessageFormatted();
    EXPECT_EQ(info->sub_type, "DATASET_DC");
    EXPECT_EQ(info->name, "job job-7");
    EXPECT_EQ(info->size, payload.size());
    EXPECT_EQ(info->protocol_version, 12u);
    EXPECT_EQ(info->number_of_rows, payload.size() / 24);
    auto imported = VrbImporter().importFromFileAsDcDataset(path);
    ASSERT_TRUE(imported.has_value());
    EXPECT_EQ(imported->getRowCount(), payload.size() / 24);
}

TEST_F(VrbFile, FileErrorsHaveTheirCodes) {
    const VrbImporter importer;
    const auto missing = dir_ / "missing.vrb";
    for (const auto& error : {importer.importFromFile(missing).error(), importer.readFileInfo(missing).error()}) {
        EXPECT_EQ(error.code, ErrorCodeEnum::FILE_NOT_FOUND);
    }
    const auto empty = write("empty.vrb", "");
    for (const auto& error : {importer.importFromFile(empty).error(), importer.readFileInfo(empty).error()}) {
        EXPECT_EQ(error.code, ErrorCodeEnum::FILE_IS_EMPTY);
    }
    for (const auto& error : {importer.importFromFile(dir_).error(), importer.readFileInfo(dir_).error()}) {
        EXPECT_EQ(error.code, ErrorCodeEnum::FILE_COULD_NOT_BE_OPENED);
        EXPECT_EQ(error.getMessageFormatted(), "could not open the file for reading");
    }
}

TEST_F(VrbFile, ContentErrorsAreThoseOfTheMemoryImport) {
    const VrbImporter importer;
    const std::string good = dcSnapshot();
    for (const std::string& bytes : {good + "x", std::string("{\"a\":1}"), good.substr(0, good.size() - 8)}) {
        auto fromFile = importer.importFromFile(write("bad.vrb", bytes));
        auto fromMemory = importer.importFromMemory(bytes);
        ASSERT_FALSE(fromFile.has_value());
        ASSERT_FALSE(fromMemory.has_value());
        EXPECT_EQ(fromFile.error(), fromMemory.error());
    }
}

}  // namespace
}  // namespace velmar
