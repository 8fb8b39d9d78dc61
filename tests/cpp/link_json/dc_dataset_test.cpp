#include "json_common/exact_json.hpp"
#include "json_common/logging/velmar_link_exception.hpp"
#include "json_common/protocol/live_data_header.hpp"
#include "velmar_link_json/jobs/dc/dc_dataset.hpp"

#include <boost/json.hpp>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace velmar {
namespace {

namespace json = boost::json;

const ColumnHeader TIME{"time", "s", "MAIN:TIME"};
const ColumnHeader VOLTAGE{"voltage", "V", "MAIN:1:POT:VOLTAGE"};
const ColumnHeader CURRENT{"current", "A", "MAIN:1:POT:CURRENT"};
const ColumnHeader TEMPERATURE{"temperature", "K", "MAIN:TEMP"};

DcDataset makeDataset(std::string type, std::vector<ColumnHeader> header, std::vector<std::vector<double>> tracks,
                      std::string jobId = "job-1") {
    JobInfo info;
    info.job_id = std::move(jobId);
    info.type = type;
    return DcDataset(type, type.substr(0, 2), std::move(header), std::move(tracks), std::move(info));
}

std::uint64_t bits(double value) { return std::bit_cast<std::uint64_t>(value); }

TEST(DcDatasetAppend, TimeContinuesAfterLastValuePlusGap) {
    auto first = makeDataset("cv", {TIME, VOLTAGE}, {{0.0, 1.0, 2.0}, {0.1, 0.2, 0.3}});
    const auto second = makeDataset("cv", {TIME, VOLTAGE}, {{0.0, 0.5}, {0.4, 0.5}}, "job-2");
    first.append(second, 10.0);
    EXPECT_EQ(first.getRowCount(), 5u);
    EXPECT_EQ(first.getTracks()[0], (std::vector<double>{0.0, 1.0, 2.0, 12.0, 12.5}));
    EXPECT_EQ(first.getTracks()[1], (std::vector<double>{0.1, 0.2, 0.3, 0.4, 0.5}));
    EXPECT_EQ(first.getJobType(), "cv");
    const auto included = first.getIncludedDatasets();
    ASSERT_EQ(included.size(), 2u);
    EXPECT_EQ(included[0].length, 3u);
    EXPECT_EQ(included[0].job_info.job_id, "job-1");
    EXPECT_EQ(included[1].length, 2u);
    EXPECT_EQ(included[1].job_info.job_id, "job-2");
    EXPECT_DOUBLE_EQ(included[1].start_time, 0.0);
}

TEST(DcDatasetAppend, DifferentJobTypesBecomeCombined) {
    auto first = makeDataset("cv", {TIME}, {{0.0}});
    first.append(makeDataset("ocv", {TIME}, {{0.0}}), 0.0);
    EXPECT_EQ(first.getJobType(), "DC Combined");
    EXPECT_EQ(first.getJobTypeShort(), "DC");
    EXPECT_EQ(first.getInfo().type, "DC");
}

TEST(DcDatasetAppend, EmptyDatasetBecomesUnshiftedCopy) {
    DcDataset empty;
    const auto other = makeDataset("ramp", {TIME, CURRENT}, {{5.0, 6.0}, {1e-6, 2e-6}}, "job-9");
    empty.append(other, 100.0);
    EXPECT_EQ(empty.getTracks(), other.getTracks());
    EXPECT_EQ(empty.getHeader(), other.getHeader());
    EXPECT_EQ(empty.getJobType(), "ramp");
    EXPECT_EQ(empty.getJobInfo().job_id, "job-9");
    EXPECT_EQ(empty.getIncludedDatasets().size(), 1u);

    // A header without rows also counts as empty.
    auto headerOnly = makeDataset("cv", {VOLTAGE}, {});
    headerOnly.append(other, 1.0);
    EXPECT_EQ(headerOnly.getHeader(), other.getHeader());
}

TEST(DcDatasetAppend, MissingColumnsAreFilledWithNanBothWays) {
    auto first = makeDataset("cv", {TIME, VOLTAGE, CURRENT}, {{0.0, 1.0}, {0.1, 0.2}, {1.0, 2.0}});
    const auto second = makeDataset("cv", {TIME, TEMPERATURE, CURRENT}, {{0.0, 1.0, 2.0}, {300, 301, 302}, {3, 4, 5}});
    first.append(second, 0.0);
    ASSERT_EQ(first.getHeader(), (std::vector<ColumnHeader>{TIME, VOLTAGE, CURRENT, TEMPERATURE}));
    const auto& t = first.getTracks();
    for (const auto& track : t) EXPECT_EQ(track.size(), 5u);
    EXPECT_EQ(t[2], (std::vector<double>{1, 2, 3, 4, 5}));
    EXPECT_TRUE(std::isnan(t[1][2]) && std::isnan(t[1][3]) && std::isnan(t[1][4]));
    EXPECT_TRUE(std::isnan(t[3][0]) && std::isnan(t[3][1]));
    EXPECT_EQ(t[3][2], 300);
    EXPECT_EQ(t[3][4], 302);
    EXPECT_EQ(t[0], (std::vector<double>{0, 1, 1, 2, 3}));
    EXPECT_EQ(dcDatasetToBinary(first).value().size(), 4u * 5u * 8u);
}

TEST(DcDatasetAppend, ColumnsMatchOnAllThreeStrings) {
    auto first = makeDataset("cv", {TIME, VOLTAGE}, {{0.0}, {1.0}});
    const ColumnHeader otherUrn{"voltage", "V", "MAIN:2:POT:VOLTAGE"};
    first.append(makeDataset("cv", {TIME, otherUrn}, {{0.0}, {2.0}}), 1.0);
    EXPECT_EQ(first.getHeader().size(), 3u);
    EXPECT_EQ(first.indexOf(otherUrn), 2u);
}

TEST(DcDatasetAppend, SelfAppendDoublesTheRows) {
    auto data = makeDataset("cv", {TIME, VOLTAGE}, {{0.0, 1.0}, {5.0, 6.0}});
    data.append(data, 1.0);
    EXPECT_EQ(data.getTracks()[0], (std::vector<double>{0.0, 1.0, 2.0, 3.0}));
    EXPECT_EQ(data.getTracks()[1], (std::vector<double>{5.0, 6.0, 5.0, 6.0}));
    EXPECT_EQ(data.getIncludedDatasets().size(), 2u);
}

TEST(DcDatasetRows, ExtraValuesDroppedShortRowsLeaveRaggedTracks) {
    auto data = makeDataset("cv", {TIME, VOLTAGE, CURRENT}, {});
    data.appendDataRow({0.0, 1.0, 2.0, 99.0});
    data.appendDataRow({1.0});
    EXPECT_EQ(data.getRowCount(), 2u);
    EXPECT_EQ(data.getTracks()[1].size(), 1u);
    const auto binary = dcDatasetToBinary(data);
    ASSERT_FALSE(binary.has_value());
    EXPECT_EQ(binary.error().code, ErrorCodeEnum::RESOURCE_CONTENT_INVALID);
    EXPECT_EQ(binary.error().getMessageFormatted(),
              "DC column 1 has 1 values but column 0 has 2 - a ragged dataset cannot be written as a flat binary table");
}

TEST(DcDatasetLookup, UnknownNamesGiveNotFoundOrEmptyTrack) {
    const auto data = makeDataset("cv", {TIME, VOLTAGE, CURRENT}, {{0}, {1}, {2}});
    EXPECT_EQ(data.indexOfDimension("voltage"), 1u);
    EXPECT_EQ(data.indexOfUrn("MAIN:1:POT:CURRENT"), 2u);
    EXPECT_EQ(data.indexOf(CURRENT), 2u);
    EXPECT_EQ(data.indexOf(ColumnHeader{"current", "mA", CURRENT.urn}), DcDataset::NOT_FOUND);
    EXPECT_EQ(data.indexOfDimension("charge"), std::numeric_limits<std::size_t>::max());
    EXPECT_EQ(data.indexOfUrn(""), DcDataset::NOT_FOUND);
    EXPECT_TRUE(data.getDcTrack("charge").empty());
    EXPECT_EQ(&data.getDcTrack("charge"), &DcDataset::emptyTrack());
    EXPECT_EQ(data.getDcTrack("current"), std::vector<double>{2});
    EXPECT_EQ(data.getDcDimensions(), (std::vector<std::string>{"time", "voltage", "current"}));

    const DcDataset none;
    EXPECT_EQ(none.getRowCount(), 0u);
    EXPECT_TRUE(std::isnan(none.getInfo().start_time));
    EXPECT_EQ(dcDatasetToBinary(none).value(), "");
}

TEST(DcDatasetBinary, RoundTripIsBitExact) {
    const double nanPayload = std::bit_cast<double>(std::uint64_t{0x7FF4000000000123});
    const double negativeNan = std::bit_cast<double>(std::uint64_t{0xFFF8000000000001});
    const std::vector<double> special{nanPayload,
                                      negativeNan,
                                      std::numeric_limits<double>::infinity(),
                                      -std::numeric_limits<double>::infinity(),
                                      -0.0,
                                      std::numeric_limits<double>::denorm_min(),
                                      0.1};
    const auto data = makeDataset("cv", {TIME, VOLTAGE}, {{0, 1, 2, 3, 4, 5, 6}, special});
    const auto binary = dcDatasetToBinary(data);
    ASSERT_TRUE(binary.has_value());
    ASSERT_EQ(binary->size(), 2u * 7u * 8u);
    // Column-major little-endian: the first value of column 1 starts at byte 7 * 8.
    EXPECT_EQ(static_cast<unsigned char>((*binary)[56]), 0x23);
    EXPECT_EQ(static_cast<unsigned char>((*binary)[63]), 0x7F);

    LiveDataHeader header{"Cyclic Voltammetry", "CV", {TIME, VOLTAGE}};
    auto trailing = *binary + "xyz";
    const auto back = dcDatasetFromBinary(std::move(trailing), std::move(header), JobInfo{});
    ASSERT_EQ(back.getRowCount(), 7u);
    EXPECT_EQ(back.getJobType(), "Cyclic Voltammetry");
    for (std::size_t i = 0; i < special.size(); ++i) {
        EXPECT_EQ(bits(back.getTracks()[1][i]), bits(special[i])) << "row " << i;
    }
    EXPECT_EQ(dcDatasetToBinary(back).value(), *binary);
}

TEST(DcDatasetBinary, PayloadShorterThanOneRowGivesColumnsWithoutRows) {
    LiveDataHeader header{"Ramp", "RAMP", {TIME, VOLTAGE, CURRENT}};
    const auto data = dcDatasetFromBinary(std::string_view("0123456789abcdef"), std::move(header), JobInfo{});
    EXPECT_EQ(data.getHeader().size(), 3u);
    EXPECT_EQ(data.getTracks().size(), 3u);
    EXPECT_EQ(data.getRowCount(), 0u);

    const auto none = dcDatasetFromBinary(std::string_view("0123456789abcdef"), LiveDataHeader{}, JobInfo{});
    EXPECT_TRUE(none.getTracks().empty());
}

/// One track per header column, all of the row count.
void expectOneTrackPerColumn(const DcDataset& data, std::size_t columns, std::size_t rows) {
    ASSERT_EQ(data.getHeader().size(), columns);
    ASSERT_EQ(data.getTracks().size(), columns);
    EXPECT_EQ(data.getRowCount(), rows);
    for (const auto& track : data.getTracks()) EXPECT_EQ(track.size(), rows);
}

TEST(DcDatasetShape, EverySourceGivesOneTrackPerColumnAlsoWithoutRows) {
    LiveDataHeader header{"Ramp", "RAMP", {TIME, VOLTAGE, CURRENT}};
    expectOneTrackPerColumn(DcDataset(LiveDataHeader(header), JobInfo{}), 3, 0);
    expectOneTrackPerColumn(makeDataset("Ramp", {TIME, VOLTAGE, CURRENT}, {}), 3, 0);
    expectOneTrackPerColumn(dcDatasetFromBinary(std::string_view(), LiveDataHeader(header), JobInfo{}), 3, 0);
    expectOneTrackPerColumn(dcDatasetFromBinary(std::string(), LiveDataHeader(header), JobInfo{}), 3, 0);

    // A recorded job that sent its header and finished without a row.
    const auto noRows = dcDatasetFromJson(parseJsonExact(R"([
      {"type":"EVENT","event":{"type":"LIVE_DATA_HEADER","header":{
         "measurement_type_short":"CV","measurement_type":"Cyclic Voltammetry",
         "columns":{"dimensions":["time","voltage"],"units":["s","V"],"urns":["T","U"]}}}},
      {"type":"EVENT","event":{"type":"LIVE_DATA_FINISHED","job_info":{"job_id":"abc","type":"cv"}}}])"));
    ASSERT_TRUE(noRows);
    expectOneTrackPerColumn(*noRows, 2, 0);

    // Tracks handed over for only some columns: the others are filled to the row count.
    const auto partial = makeDataset("Ramp", {TIME, VOLTAGE, CURRENT}, {{0.0, 1.0}});
    expectOneTrackPerColumn(partial, 3, 2);
    EXPECT_TRUE(std::isnan(partial.getTracks()[2][1]));
    expectOneTrackPerColumn(makeDataset("Ramp", {TIME}, {{0.0}, {1.0}, {2.0}}), 1, 1);

    // Decoders that move the tracks out and back keep the shape.
    DcDataset moved(LiveDataHeader(header), JobInfo{});
    const DcDataset rebuilt(moved.getJobType(), moved.getJobTypeShort(), moved.getHeader(),
                            std::move(moved.tracksForWriting()), JobInfo{});
    expectOneTrackPerColumn(rebuilt, 3, 0);
}

TEST(DcDatasetShape, AppendingAndLookingUpZeroRowResults) {
    const auto empty = dcDatasetFromBinary(std::string_view(), LiveDataHeader{"Ramp", "RAMP", {TIME, VOLTAGE}}, JobInfo{});
    auto data = makeDataset("Ramp", {TIME, VOLTAGE}, {{0.0, 1.0}, {0.5, 0.6}});
    data.append(empty, 1.0);
    expectOneTrackPerColumn(data, 2, 2);
    EXPECT_EQ(data.getTracks()[0], (std::vector<double>{0.0, 1.0}));

    // A zero-row result with a column of its own adds that column, empty of values.
    const auto other = dcDatasetFromBinary(std::string_view(), LiveDataHeader{"Ramp", "RAMP", {TEMPERATURE}}, JobInfo{});
    data.append(other, 1.0);
    expectOneTrackPerColumn(data, 3, 2);
    EXPECT_TRUE(std::isnan(data.getTracks()[2][0]));

    auto start = empty;
    start.append(data, 0.0);
    expectOneTrackPerColumn(start, 3, 2);
    EXPECT_TRUE(empty.getDcTrack("voltage").empty());
    EXPECT_EQ(empty.getInfo().length, 0u);
    EXPECT_TRUE(std::isnan(empty.getInfo().start_time));
    EXPECT_EQ(dcDatasetToBinary(empty).value(), "");
}

json::value events(std::string_view rowsData) {
    std::string text = R"([
      {"type":"EVENT","event":{"type":"JOB_STATUS_UPDATE"}},
      {"type":"EVENT","event":{"type":"LIVE_DATA_HEADER","header":{
         "measurement_type_short":"CV","measurement_type":"Cyclic Voltammetry",
         "dimensions":["ignored"],"units":[],"urns":[],
         "columns":{"dimensions":["time","voltage"],"units":["s","V"],"urns":["T","U"]}}}},
      {"type":"EVENT","event":{"type":"LIVE_DATA_ROWS","data":[[0.0,0.5],[0.1,0.25,7.0]]}},
      {"type":"EVENT","event":{"type":"LIVE_DATA_ROWS","data":)";
    text += rowsData;
    text += R"(}},
      {"type":"EVENT","event":{"type":"LIVE_DATA_FINISHED","job_info":{"job_id":"abc","type":"cv"}}}])";
    return parseJsonExact(text);
}

TEST(DcDatasetJson, ArraysAndBase64RowsAreAppendedInOrder) {
    const std::vector<double> rows{0.2, -0.0, 0.3, 1e300};
    const auto encoded = encodeLiveDataRowsBase64(rows.data(), 2, 2);
    const auto data = json::value_to<DcDataset>(events("\"" + encoded + "\""));
    EXPECT_EQ(data.getJobType(), "Cyclic Voltammetry");
    EXPECT_EQ(data.getJobTypeShort(), "CV");
    EXPECT_EQ(data.getJobInfo().job_id, "abc");
    ASSERT_EQ(data.getRowCount(), 4u);
    EXPECT_EQ(data.getTracks()[0], (std::vector<double>{0.0, 0.1, 0.2, 0.3}));
    EXPECT_EQ(data.getTracks()[1], (std::vector<double>{0.5, 0.25, -0.0, 1e300}));
    EXPECT_TRUE(std::signbit(data.getTracks()[1][2]));

    const auto empty = dcDatasetFromJson(events("[]"));
    ASSERT_TRUE(empty.has_value());
    EXPECT_EQ(empty->getRowCount(), 2u);
}

TEST(DcDatasetJson, MalformedRowsAreRefused) {
    const auto badLength = dcDatasetFromJson(events("\"AAAAAAAAAAA\""));
    ASSERT_FALSE(badLength.has_value());
    EXPECT_EQ(badLength.error().getMessageFormatted(), "Invalid Base64 string length.");
    EXPECT_THROW(json::value_to<DcDataset>(events("\"AAAAAAAAAAA\"")), VelmarLinkException);

    // 8 bytes: not a whole row of two columns.
    EXPECT_FALSE(dcDatasetFromJson(events("\"AAAAAAAAAAA=\"")).has_value());
    EXPECT_FALSE(dcDatasetFromJson(events("\"AAAAAAA*AAAA\"")).has_value());
    EXPECT_FALSE(dcDatasetFromJson(events("[[0.0,\"x\"]]")).has_value());
    EXPECT_FALSE(dcDatasetFromJson(events("{}")).has_value());
    EXPECT_FALSE(dcDatasetFromJson(json::value(json::object{})).has_value());
}

}  // namespace
}  // namespace velmar
