// The impedance dataset's binary form both ways (bit for bit, with and without "wave_size",
// derived row counts, claims beyond the data), the writer's checks, and the events-array form.

#include "link_json/eis_test_support.hpp"

#include "json_common/logging/velmar_link_exception.hpp"
#include "velmar_link_json/jobs/ac/eis_dataset.hpp"
#include "velmar_link_json/jobs/common/binary64.hpp"

#include <boost/json.hpp>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace velmar {
namespace {

using namespace velmar::testing;
namespace json = boost::json;

constexpr double INF = std::numeric_limits<double>::infinity();

double nanWithPayload() { return std::bit_cast<double>(std::uint64_t{0x7FF800000000BEEFULL}); }

std::string binaryOf(const std::vector<double>& values) {
    std::string out;
    appendLittleEndian(out, values.data(), values.size());
    return out;
}

EisDataset readBack(const EisBinaryForm& form, std::uint64_t rows) {
    auto header = form.header;
    auto dataset = eisDatasetFromBinary(form.data, std::move(header), rows, JobInfo{}, 12);
    EXPECT_TRUE(dataset.has_value()) << (dataset ? "" : dataset.error().getMessageFormatted());
    return dataset ? std::move(*dataset) : EisDataset{};
}

void expectSameBits(const EisDataset& a, const EisDataset& b) {
    ASSERT_EQ(a.getRowCount(), b.getRowCount());
    ASSERT_EQ(a.getMetaTracks().size(), b.getMetaTracks().size());
    for (std::size_t c = 0; c < a.getMetaTracks().size(); ++c) {
        EXPECT_EQ(bitsOf(a.getMetaTracks()[c]), bitsOf(b.getMetaTracks()[c])) << "meta " << c;
    }
    auto sameGroups = [](const auto& x, const auto& y, const char* what) {
        ASSERT_EQ(x.size(), y.size()) << what;
        for (std::size_t i = 0; i < x.size(); ++i) {
            ASSERT_EQ(x[i].size(), y[i].size()) << what;
            for (std::size_t c = 0; c < x[i].size(); ++c) EXPECT_EQ(bitsOf(x[i][c]), bitsOf(y[i][c])) << what;
        }
    };
    sameGroups(a.getImpedances(), b.getImpedances(), "impedances");
    sameGroups(a.getPaths(), b.getPaths(), "paths");
    sameGroups(a.getAsyncPaths(), b.getAsyncPaths(), "async paths");
    sameGroups(a.getPotentiostats(), b.getPotentiostats(), "potentiostats");
    sameGroups(a.getPathsWaves(), b.getPathsWaves(), "waves");
}

TEST(EisBinary, RoundTripIsBitExactForEverySpecialValue) {
    const double special[] = {nanWithPayload(), INF, -INF, -0.0};
    auto dataset = eisDatasetOf({});
    for (int k = 0; k < 4; ++k) {
        auto row = eisRow(k, k % 2 == 0 ? k / 2 : -1, k % 2 == 0 ? std::vector<double>{special[k], 1.0, special[3 - k]}
                                                                 : std::vector<double>{});
        row.impedances[0][1] = special[k];
        row.paths[0][1] = special[3 - k];
        row.async_paths[0][0] = special[(k + 1) % 4];
        row.potentiostats[0][0] = special[(k + 2) % 4];
        dataset.appendDataRow(row);
    }
    const auto form = eisDatasetToBinary(dataset);
    ASSERT_TRUE(form) << form.error().getMessageFormatted();
    EXPECT_EQ(form->rowCount, 4u);
    EXPECT_EQ(form->header, dataset.getHeader());
    // 4 rows of 13 columns, then 2 paths x 2 waves of 3 samples.
    EXPECT_EQ(form->data.size(), (4 * 13 + 2 * 2 * 3) * 8u);
    const auto back = readBack(*form, 4);
    expectSameBits(dataset, back);
    EXPECT_EQ(back.getWaveIds(), (std::vector<double>{0, -1, 1, -1}));

    // Derived row count: the same dataset, as the columns do not fill another row.
    expectSameBits(dataset, readBack(*form, 0));
}

TEST(EisBinary, WriterAddsTheWaveColumnsThatAReaderNeeds) {
    const auto dataset = eisDatasetOf({eisRow(0, 0, {1.0, 2.0}, false), eisRow(1, 0, {3.0, 4.0}, false)}, false);
    const auto form = eisDatasetToBinary(dataset);
    ASSERT_TRUE(form) << form.error().getMessageFormatted();
    const auto& meta = form->header.meta;
    ASSERT_EQ(meta.size(), 5u);
    EXPECT_EQ(meta[3].dimension, "wave_id");
    EXPECT_EQ(meta[4].dimension, "wave_size");
    EXPECT_EQ(form->header.columns.size(), form->header.totalColumnCount());
    const auto back = readBack(*form, 2);
    EXPECT_EQ(back.getWaveIds(), (std::vector<double>{0, 1}));
    EXPECT_EQ(back.getWaveSizes(), (std::vector<double>{2, 2}));
    EXPECT_EQ(back.getWaveForRow(1, 1), (std::vector<double>{-3.0, -4.0}));
    EXPECT_EQ(back.getPathData("voltage").getDcTrack(), dataset.getPathData("voltage").getDcTrack());

    // Without waves the header is left alone.
    const auto plain = eisDatasetOf({eisRow(0, 0, {}, false)}, false);
    const auto plainForm = eisDatasetToBinary(plain);
    ASSERT_TRUE(plainForm);
    EXPECT_EQ(plainForm->header.meta.size(), 3u);
}

TEST(EisBinary, RowsSharingAWaveAreMergedAfterReading) {
    auto sharing = eisRow(1, 0, {});
    sharing.meta[0][4] = 2.0;
    const auto dataset = eisDatasetOf({eisRow(0, 0, {1.0, 2.0}), sharing, eisRow(2, 1, {5.0, 6.0})});
    const auto form = eisDatasetToBinary(dataset);
    ASSERT_TRUE(form) << form.error().getMessageFormatted();
    // Each row carries its own copy on the wire.
    EXPECT_EQ(form->data.size(), (3 * 13 + 2 * 3 * 2) * 8u);
    const auto back = readBack(*form, 3);
    EXPECT_EQ(back.getPathWaves(0).size(), 2u);
    EXPECT_EQ(back.getWaveIds(), (std::vector<double>{0, 0, 1}));
    expectSameBits(dataset, back);
}

TEST(EisBinary, WithoutWaveSizeEveryWaveHasTheSameLength) {
    auto header = eisHeader(false);
    const std::size_t columns = header.totalColumnCount();
    std::vector<double> values;
    for (std::size_t i = 0; i < columns * 2; ++i) values.push_back(static_cast<double>(i));
    // 2 paths x 2 rows x 3 samples, plus one value that does not make a whole wave length.
    for (int i = 0; i < 13; ++i) values.push_back(100.0 + i);
    auto dataset = eisDatasetFromBinary(binaryOf(values), LiveDataHeaderEis(header), 2, JobInfo{}, 12);
    ASSERT_TRUE(dataset);
    EXPECT_EQ(dataset->getRowCount(), 2u);
    EXPECT_EQ(dataset->getWaveForRow(0, 0), (std::vector<double>{100, 101, 102}));
    EXPECT_EQ(dataset->getWaveForRow(1, 1), (std::vector<double>{109, 110, 111}));
    EXPECT_EQ(dataset->getWaveIds(), (std::vector<double>{0, 1}));

    // Fewer remaining values than paths x rows: no waves.
    values.resize(columns * 2 + 3);
    dataset = eisDatasetFromBinary(binaryOf(values), LiveDataHeaderEis(header), 2, JobInfo{}, 12);
    ASSERT_TRUE(dataset);
    EXPECT_TRUE(dataset->getPathWaves(0).empty());
    EXPECT_EQ(dataset->getPaths()[0][0], (std::vector<double>{10, 11}));
}

TEST(EisBinary, DerivedRowCountRoundsDown) {
    auto header = eisHeader(false);
    const std::size_t columns = header.totalColumnCount();
    std::vector<double> values(columns * 3 + columns - 1, 1.0);
    std::string data = binaryOf(values) + "xyz";
    const auto dataset = eisDatasetFromBinary(data, LiveDataHeaderEis(header), 0, JobInfo{}, 12);
    ASSERT_TRUE(dataset);
    EXPECT_EQ(dataset->getRowCount(), 3u);
    EXPECT_TRUE(dataset->hasConsistentShape());

    const auto tiny = eisDatasetFromBinary("1234567", LiveDataHeaderEis(header), 0, JobInfo{}, 12);
    ASSERT_TRUE(tiny);
    EXPECT_EQ(tiny->getRowCount(), 0u);
}

TEST(EisBinary, ClaimsBeyondTheDataAreErrors) {
    const auto header = eisHeader();
    const std::size_t columns = header.totalColumnCount();
    auto tooShort = eisDatasetFromBinary(binaryOf(std::vector<double>(columns, 0.0)), LiveDataHeaderEis(header),
                                         1u << 30, JobInfo{}, 12);
    ASSERT_FALSE(tooShort);
    EXPECT_EQ(tooShort.error().code, ErrorCodeEnum::RESOURCE_CONTENT_INVALID);
    EXPECT_EQ(tooShort.error().getMessageFormatted(),
              "EIS binary data of " + std::to_string(columns * 8) + " bytes is shorter than 1073741824 rows of " +
                  std::to_string(columns) + " columns");

    // One row whose wave_size (meta column 4) claims a huge wave after which 2 values remain.
    std::vector<double> values(columns, 0.0);
    values[4] = 1e15;
    values.push_back(1.0);
    values.push_back(2.0);
    auto claim = eisDatasetFromBinary(binaryOf(values), LiveDataHeaderEis(header), 1, JobInfo{}, 12);
    ASSERT_FALSE(claim);
    EXPECT_EQ(claim.error().code, ErrorCodeEnum::RESOURCE_CONTENT_INVALID);
    EXPECT_EQ(claim.error().getMessageFormatted(),
              "wave_size of row 0 declares 1000000000000000 samples for sync path 0 but only 2 values remain");

    values[4] = 2.5;
    auto fraction = eisDatasetFromBinary(binaryOf(values), LiveDataHeaderEis(header), 1, JobInfo{}, 12);
    ASSERT_FALSE(fraction);
    EXPECT_EQ(fraction.error().getMessageFormatted(), "wave_size of row 0 is not a sample count: 2.5");
}

TEST(EisBinary, WriterChecksInTheirOrder) {
    auto raggedMeta = eisDatasetOf({eisRow(0, 0, {1.0})});
    auto shortRow = eisRow(1, 0, {});
    shortRow.meta[0].pop_back();
    raggedMeta.appendDataRow(shortRow);
    auto result = eisDatasetToBinary(raggedMeta);
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().code, ErrorCodeEnum::RESOURCE_CONTENT_INVALID);
    EXPECT_EQ(result.error().getMessageFormatted(), "EIS meta column 'wave_size' has 1 values but the dataset has 2 rows");

    auto badSize = eisDatasetOf({eisRow(0, 0, {1.0, 2.0})});
    auto row = eisRow(1, 1, {1.0, 2.0, 3.0});
    row.meta[0][4] = 2.0;
    badSize.appendDataRow(row);
    result = eisDatasetToBinary(badSize);
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().getMessageFormatted(), "wave 1 of sync path 0 has 3 samples but wave_size declares 2");

    // Row 1 refers to wave 2 of which no row has the samples: path 0 holds 2 waves, 3 declared.
    auto badCount = eisDatasetOf({eisRow(0, 0, {1.0}), eisRow(1, 1, {2.0})});
    auto dangling = eisRow(2, 2, {});
    badCount.appendDataRow(dangling);
    result = eisDatasetToBinary(badCount);
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().getMessageFormatted(), "sync path 0 holds 2 waves but the meta columns declare 3");

    auto raggedGroup = eisDatasetOf({eisRow(0, -1, {})});
    auto noTemperature = eisRow(1, -1, {});
    noTemperature.async_paths = {{}};
    raggedGroup.appendDataRow(noTemperature);
    result = eisDatasetToBinary(raggedGroup);
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().getMessageFormatted(), "EIS async path 0 column 'dc' has 1 values but the dataset has 2 rows");
}

json::object event(json::object body) { return json::object{{"type", "EVENT"}, {"event", std::move(body)}}; }

TEST(EisEventsArray, RecordedEventsBuildTheDataset) {
    json::array events;
    events.push_back(event({{"type", "LIVE_DATA_HEADER_EIS"}, {"header", json::value_from(eisHeader())}}));
    for (int k = 0; k < 3; ++k) {
        auto row = json::value_from(eisRow(k, k, {1.0 * k})).as_object();
        row["type"] = "LIVE_DATA_ROW_EIS";
        events.push_back(event(std::move(row)));
    }
    events.push_back(event({{"type", "LIVE_DATA_FINISHED"}, {"job_info", {{"job_id", "j-7"}}}}));
    const auto dataset = json::value_to<EisDataset>(json::value(events));
    EXPECT_EQ(dataset.getRowCount(), 3u);
    EXPECT_EQ(dataset.getJobInfo().job_id, "j-7");
    EXPECT_EQ(dataset.getWaveForRow("current", 2), (std::vector<double>{-2.0}));
    EXPECT_EQ(dataset.getImpedanceData().getTrack("|impedance|").size(), 3u);

    auto wrong = json::value_from(eisRow(0, 0, {})).as_object();
    wrong["type"] = "LIVE_DATA_ROW_EIS";
    wrong["paths"] = json::array{json::array{1.0}};
    events.push_back(event(std::move(wrong)));
    const auto failed = eisDatasetFromJsonArray(events, LiveDataHeaderEis{}, JobInfo{});
    ASSERT_FALSE(failed);
    EXPECT_EQ(failed.error().code, ErrorCodeEnum::JSON_MALFORMED);
    EXPECT_EQ(failed.error().getMessageFormatted(),
              "the AC data table does not match the declared paths: 1 lists for 2 declared");

    EXPECT_THROW(json::value_to<EisDataset>(json::value("no array")), VelmarLinkException);
}

}  // namespace
}  // namespace velmar
