// The impedance dataset in memory: lookups and their sentinels, helper objects, wave ids,
// merging identical waves, and joining results.

#include "link_json/eis_test_support.hpp"

#include "velmar_link_json/jobs/ac/eis_dataset.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace velmar {
namespace {

using namespace velmar::testing;

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

TEST(EisDatasetLookups, NothingFoundGivesSentinelsAndTheSharedEmptyTrack) {
    const EisDataset empty;
    EXPECT_EQ(&empty.getImpedanceData(), &EisDataset::INVALID_IMPEDANCE_DATA);
    EXPECT_EQ(&empty.getImpedanceData("a", "b"), &EisDataset::INVALID_IMPEDANCE_DATA);
    EXPECT_EQ(&empty.getPathData("voltage"), &EisDataset::INVALID_PATH);
    EXPECT_EQ(&empty.getPotentiostatData(), &EisDataset::INVALID_POTENTIOSTAT);
    EXPECT_EQ(&empty.getMetaColumn(0), &EisDataset::emptyTrack());
    EXPECT_EQ(&empty.getTimes(), &EisDataset::emptyTrack());
    EXPECT_EQ(&empty.getPathWaves(0), &EisDataset::emptyWaves());
    EXPECT_TRUE(empty.getImpedances(0).empty());
    EXPECT_EQ(empty.getInfo().type, "AC");
    EXPECT_TRUE(std::isnan(empty.getInfo().start_time));

    const auto dataset = eisDatasetOf({eisRow(0, 0, {1.0, 2.0})});
    EXPECT_EQ(&dataset.getMetaColumn(99), &EisDataset::emptyTrack());
    EXPECT_EQ(&dataset.getPathDcValues(2), &EisDataset::emptyTrack());
    EXPECT_EQ(&dataset.getWaveForRow(7, 0), &EisDataset::emptyTrack());
    EXPECT_EQ(&dataset.getWaveForRow("nowhere", 0), &EisDataset::emptyTrack());
    EXPECT_EQ(&dataset.getImpedanceData("MAIN:9:VOLTAGE"), &EisDataset::INVALID_IMPEDANCE_DATA);
    EXPECT_EQ(&dataset.getImpedanceDataByName("nameless"), &EisDataset::INVALID_IMPEDANCE_DATA);
    EXPECT_EQ(&dataset.getPotentiostatData("MAIN:9:POT"), &EisDataset::INVALID_POTENTIOSTAT);
    EXPECT_EQ(&dataset.getPathData("voltage").getTrack("no such column"), &EisDataset::emptyTrack());

    // The sentinels answer every question without failing.
    EXPECT_FALSE(EisDataset::INVALID_PATH.isValid());
    EXPECT_TRUE(EisDataset::INVALID_PATH.getWaves().empty());
    EXPECT_TRUE(EisDataset::INVALID_PATH.getDcTrack().empty());
    EXPECT_TRUE(EisDataset::INVALID_IMPEDANCE_DATA.getCalculatedSpectra().empty());
    EXPECT_TRUE(EisDataset::INVALID_IMPEDANCE_DATA.getHeader().columns.empty());
    EXPECT_TRUE(EisDataset::INVALID_POTENTIOSTAT.getTrackNames().empty());
}

TEST(EisDatasetLookups, HelperObjectsSeeTheRowsOfEveryGroup) {
    const auto dataset = eisDatasetOf({eisRow(0, 0, {1.0}), eisRow(1, 1, {2.0})});
    EXPECT_EQ(dataset.getRowCount(), 2u);
    EXPECT_TRUE(dataset.hasConsistentShape());
    EXPECT_EQ(dataset.getPathData("voltage").getDcTrack(), (std::vector<double>{0.5, 1.5}));
    EXPECT_EQ(dataset.getPathDcValues(1), (std::vector<double>{0.0, 0.001}));
    EXPECT_EQ(dataset.getPotentiostatData(POT_URI).getTrack("shunt"), (std::vector<double>{1000.0, 1000.0}));
    EXPECT_EQ(dataset.getTimes(), (std::vector<double>{0.0, 10.0}));

    const auto& impedance = dataset.getImpedanceData(VOLTAGE_URI, CURRENT_URI);
    ASSERT_TRUE(impedance.isValid());
    EXPECT_EQ(impedance.getTrack("|impedance|"), (std::vector<double>{100.0, 101.0}));
    EXPECT_EQ(impedance.getImpedanceName(), VOLTAGE_URI + "/" + CURRENT_URI);
    EXPECT_EQ(dataset.getImpedancesDimensions(), (std::vector<std::string>{"voltage/current"}));
    EXPECT_EQ(impedance.getCalculatedSpectra().size(), 2u);

    const auto& voltage = dataset.getPathData("voltage");
    ASSERT_EQ(voltage.getImpedanceData().size(), 1u);
    EXPECT_EQ(&voltage.getImpedanceData(VOLTAGE_URI + "/" + CURRENT_URI), &impedance);
    EXPECT_EQ(voltage.getWaves().size(), 2u);
    EXPECT_EQ(dataset.getPathsDimensions(), (std::vector<std::string>{"voltage", "current"}));
    EXPECT_EQ(dataset.getInfo().length, 2u);
}

TEST(EisDatasetLookups, SingleTextFindsTheFirstImpedanceInKeyOrderByEitherEnd) {
    auto header = eisHeader();
    const auto columns = columnsOf({"|impedance|", "phase"});
    header.impedances = {ImpedanceDataHeader("Y", "Z", columns, "second"),
                         ImpedanceDataHeader("X", "Q", columns, "third"),
                         ImpedanceDataHeader("A", "X", columns, "first")};
    const EisDataset dataset(std::move(header), JobInfo{});
    // ("A", "X") sorts before ("X", "Q"): its denominator matches first.
    EXPECT_EQ(dataset.getImpedanceData("X").getImpedanceName(), "first");
    EXPECT_EQ(dataset.getImpedanceData("Z").getImpedanceName(), "second");
    EXPECT_EQ(dataset.getImpedanceDataByName("third").getHeader().numerator, "X");
    EXPECT_EQ(dataset.getImpedanceData().getImpedanceName(), "first");
    EXPECT_EQ(dataset.getImpedancesNames(), (std::vector<std::string>{"first", "third", "second"}));
}

TEST(EisDatasetLookups, ComplexImpedanceFromMagnitudeAndPhase) {
    auto dataset = eisDatasetOf({eisRow(0, 0, {})});
    auto row = eisRow(1, -1, {});
    row.impedances = {{2.0, std::numbers::pi / 2}};
    dataset.appendDataRow(row);
    const auto values = dataset.getImpedances(0);
    ASSERT_EQ(values.size(), 2u);
    EXPECT_DOUBLE_EQ(values[0].real(), 100.0);
    EXPECT_NEAR(values[1].real(), 0.0, 1e-12);
    EXPECT_DOUBLE_EQ(values[1].imag(), 2.0);
    EXPECT_TRUE(dataset.getImpedances(1).empty());

    // Without a "phase" column: empty, no error.
    auto header = eisHeader();
    header.impedances.front().columns = columnsOf({"|impedance|", "impedance error"});
    EisDataset noPhase(std::move(header), JobInfo{});
    LiveDataRowEis magnitudeOnly = eisRow(0, 0, {});
    noPhase.appendDataRow(magnitudeOnly);
    EXPECT_TRUE(noPhase.getImpedances(0).empty());
    EXPECT_TRUE(noPhase.getImpedanceData().getCalculatedComplexImpedanceTrack().empty());
}

TEST(EisDatasetWaves, WaveIdRoundsHalfAwayFromZeroAndRowsWithoutTheColumnMapToThemselves) {
    auto dataset = eisDatasetOf({});
    for (const double id : {1.5, -1.5, 2.4, NaN, 0.0}) dataset.appendDataRow(eisRow(0, id, {}));
    EXPECT_EQ(dataset.getWaveIdForRow(0), 2);
    EXPECT_EQ(dataset.getWaveIdForRow(1), -2);
    EXPECT_EQ(dataset.getWaveIdForRow(2), 2);
    EXPECT_EQ(dataset.getWaveIdForRow(3), -1);
    EXPECT_EQ(dataset.getWaveIdForRow(9), 9);

    const auto noIds = eisDatasetOf({eisRow(0, 0, {1.0}, false), eisRow(1, 0, {2.0}, false)}, false);
    EXPECT_EQ(noIds.getWaveIdForRow(1), 1);
    EXPECT_EQ(noIds.getWaveForRow("voltage", 1), (std::vector<double>{2.0}));
    EXPECT_EQ(noIds.getWaveForRow(1, 1), (std::vector<double>{-2.0}));
}

TEST(EisDatasetWaves, RowsWithoutWaveReferToAnEarlierOneOrToNone) {
    const auto dataset = eisDatasetOf({eisRow(0, 0, {1.0, 2.0}), eisRow(1, 0, {}), eisRow(2, -1, {})});
    EXPECT_EQ(dataset.getPathWaves(0).size(), 1u);
    EXPECT_EQ(dataset.getWaveForRow(0, 1), (std::vector<double>{1.0, 2.0}));
    EXPECT_TRUE(dataset.getWaveForRow(0, 2).empty());
}

TEST(EisDatasetWaves, DedupKeepsExactlyEqualWavesOnceAndRenumbersTheRows) {
    const double negativeZero = -0.0;
    auto dataset = eisDatasetOf({});
    // Rows 0 and 2 carry equal waves (NaN equal to NaN), row 3 differs only by the sign of a
    // zero, row 1 has none.
    dataset.appendDataRow(eisRow(0, 0, {1.0, NaN, 0.0}));
    dataset.appendDataRow(eisRow(1, -1, {}));
    dataset.appendDataRow(eisRow(2, 1, {1.0, NaN, 0.0}));
    dataset.appendDataRow(eisRow(3, 2, {1.0, NaN, negativeZero}));
    dataset.appendDataRow(eisRow(4, 1, {}));
    dataset.dedupWaves();
    EXPECT_EQ(dataset.getPathWaves(0).size(), 2u);
    EXPECT_EQ(dataset.getPathWaves(1).size(), 2u);
    EXPECT_EQ(dataset.getWaveIds(), (std::vector<double>{0, -1, 0, 1, 0}));
    EXPECT_EQ(bitsOf(dataset.getWaveForRow(0, 3)), bitsOf({1.0, NaN, negativeZero}));
    EXPECT_EQ(dataset.getWaveForRow(1, 4)[0], -1.0);
    EXPECT_EQ(dataset.getPathData("current").getWaves().size(), 2u);
}

TEST(EisDatasetWaves, DedupComparesTheWavesOfAllPathsTogether) {
    auto dataset = eisDatasetOf({});
    auto first = eisRow(0, 0, {5.0});
    auto second = eisRow(1, 1, {5.0});
    second.paths_waves[1] = {7.0};
    dataset.appendDataRow(first);
    dataset.appendDataRow(second);
    dataset.dedupWaves();
    EXPECT_EQ(dataset.getPathWaves(0).size(), 2u);
    EXPECT_EQ(dataset.getWaveIds(), (std::vector<double>{0, 1}));
}

TEST(EisDatasetWaves, DedupWithoutWaveIdColumnAddsOneWhenRowsShareAWave) {
    auto dataset = eisDatasetOf({eisRow(0, 0, {1.0}, false), eisRow(1, 0, {1.0}, false), eisRow(2, 0, {3.0}, false)},
                                false);
    dataset.dedupWaves();
    EXPECT_EQ(dataset.getWaveIds(), (std::vector<double>{0, 0, 1}));
    EXPECT_EQ(dataset.getMetaDataHeader().back().dimension, "wave_id");
    EXPECT_EQ(dataset.getHeader().columns.size(), dataset.getHeader().totalColumnCount());
    EXPECT_EQ(dataset.getWaveForRow(0, 2), (std::vector<double>{3.0}));
    EXPECT_TRUE(dataset.hasConsistentShape());

    // Nothing to merge: the header stays as it is.
    auto distinct = eisDatasetOf({eisRow(0, 0, {1.0}, false), eisRow(1, 0, {2.0}, false)}, false);
    distinct.dedupWaves();
    EXPECT_EQ(distinct.findIndexOfColumInMeta("wave_id"), EisDataset::NOT_FOUND);
}

TEST(EisDatasetWaves, DedupOfManyRowsSharingFewWaves) {
    auto dataset = eisDatasetOf({});
    constexpr int ROWS = 20000;
    for (int r = 0; r < ROWS; ++r) {
        dataset.appendDataRow(eisRow(r, r, {static_cast<double>(r % 7), 1.0, 2.0}));
    }
    dataset.dedupWaves();
    EXPECT_EQ(dataset.getPathWaves(0).size(), 7u);
    for (int r = 0; r < ROWS; r += 997) {
        EXPECT_EQ(dataset.getWaveForRow(0, static_cast<std::size_t>(r))[0], static_cast<double>(r % 7));
    }
}

TEST(EisDatasetWaves, DedupTellsApartLongWavesThatDifferOnlyBetweenSampledPositions) {
    // Only a few samples of a long wave go into its cheap signature; waves that agree there
    // must still be compared whole.
    std::vector<double> base(1000);
    for (std::size_t i = 0; i < base.size(); ++i) base[i] = std::sin(0.01 * static_cast<double>(i));
    auto other = base;
    other[1] += 1e-12;
    auto dataset = eisDatasetOf({});
    dataset.appendDataRow(eisRow(0, 0, base));
    dataset.appendDataRow(eisRow(1, 1, other));
    dataset.appendDataRow(eisRow(2, 2, base));
    dataset.appendDataRow(eisRow(3, 3, other));
    dataset.appendDataRow(eisRow(4, 4, base));
    dataset.dedupWaves();
    EXPECT_EQ(dataset.getPathWaves(0).size(), 2u);
    EXPECT_EQ(dataset.getWaveIds(), (std::vector<double>{0, 1, 0, 1, 0}));
    EXPECT_EQ(dataset.getWaveForRow(0, 3), other);
}

TEST(EisDatasetShape, AShortRowLeavesTheDatasetInconsistent) {
    auto dataset = eisDatasetOf({eisRow(0, 0, {})});
    auto row = eisRow(1, -1, {});
    row.paths.pop_back();
    dataset.appendDataRow(row);
    EXPECT_FALSE(dataset.hasConsistentShape());
}

TEST(EisDatasetCopies, CopiesAndMovesKeepHelperObjectsOnTheirOwnTracks) {
    auto original = eisDatasetOf({eisRow(0, 0, {1.0})});
    const EisDataset copy(original);
    original.appendDataRow(eisRow(1, 1, {2.0}));
    EXPECT_EQ(copy.getPathData("voltage").getDcTrack().size(), 1u);
    EXPECT_EQ(original.getPathData("voltage").getDcTrack().size(), 2u);

    EisDataset moved(std::move(original));
    EXPECT_EQ(moved.getPathData("voltage").getDcTrack().size(), 2u);
    EXPECT_EQ(&moved.getPathData("voltage").getWaves(), &moved.getPathWaves(0));
    EisDataset assigned;
    assigned = copy;
    EXPECT_EQ(&assigned.getImpedanceData().getTrack("phase"), &assigned.getImpedances()[0][1]);
}

TEST(EisDatasetAppend, ToAnEmptyDatasetCopiesTheOther) {
    EisDataset empty(eisHeader(), JobInfo{});
    const auto other = eisDatasetOf({eisRow(0, 0, {1.0}), eisRow(1, 1, {2.0})}, true, "job-2");
    EXPECT_TRUE(empty.append(other, 5.0));
    EXPECT_EQ(empty.getJobInfo().job_id, "job-2");
    EXPECT_EQ(empty.getTimes(), other.getTimes());
    EXPECT_EQ(empty.getPathWaves(0), other.getPathWaves(0));

    // Also when the headers differ.
    EisDataset bare;
    EXPECT_TRUE(bare.append(other, 5.0));
    EXPECT_EQ(bare.getRowCount(), 2u);
    EXPECT_EQ(bare.getPathData("current").getDcTrack().size(), 2u);
}

TEST(EisDatasetAppend, MismatchingGroupHeadersAreRefusedWithoutMessage) {
    auto dataset = eisDatasetOf({eisRow(0, 0, {1.0})});
    auto header = eisHeader();
    header.potentiostats.front().uri = "MAIN:2:POT";
    EisDataset other(std::move(header), JobInfo{});
    other.appendDataRow(eisRow(1, 0, {2.0}));
    ::testing::internal::CaptureStderr();
    EXPECT_FALSE(dataset.append(other, 1.0));
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(dataset.getRowCount(), 1u);
    EXPECT_EQ(dataset.getPathData("voltage").getDcTrack().size(), 1u);
}

TEST(EisDatasetAppend, InconsistentShapeIsRefusedOnStandardError) {
    auto dataset = eisDatasetOf({eisRow(0, 0, {1.0})});
    auto other = eisDatasetOf({eisRow(1, 0, {2.0})});
    auto shortRow = eisRow(2, -1, {});
    shortRow.async_paths = {{}};
    other.appendDataRow(shortRow);
    ::testing::internal::CaptureStderr();
    EXPECT_FALSE(dataset.append(other, 1.0));
    EXPECT_NE(::testing::internal::GetCapturedStderr().find(
                  "cannot append: the data does not have the shape its header describes"),
              std::string::npos);
    EXPECT_EQ(dataset.getRowCount(), 1u);
}

TEST(EisDatasetAppend, WaveIdsFollowTheirWavesAndTimeContinuesAfterTheGap) {
    auto dataset = eisDatasetOf({eisRow(0, 0, {1.0}), eisRow(1, 1, {2.0}), eisRow(2, 1, {})});
    auto other = eisDatasetOf({eisRow(0, 0, {3.0}), eisRow(1, -1, {}), eisRow(2, 0, {})}, true, "job-2");
    ASSERT_TRUE(dataset.append(other, 5.0));
    EXPECT_EQ(dataset.getRowCount(), 6u);
    EXPECT_TRUE(dataset.hasConsistentShape());
    EXPECT_EQ(dataset.getWaveIds(), (std::vector<double>{0, 1, 1, 2, -1, 2}));
    EXPECT_EQ(dataset.getWaveForRow(0, 5), (std::vector<double>{3.0}));
    EXPECT_EQ(dataset.getWaveForRow(1, 3), (std::vector<double>{-3.0}));
    // Last time 20 plus the gap 5.
    EXPECT_EQ(dataset.getTimes(), (std::vector<double>{0, 10, 20, 25, 35, 45}));
    EXPECT_EQ(dataset.getJobType(), LiveDataHeaderEis::MEASUREMENT_TYPE);
    EXPECT_EQ(dataset.getPathData("voltage").getDcTrack().size(), 6u);
    const auto included = dataset.getIncludedDatasets();
    ASSERT_EQ(included.size(), 2u);
    EXPECT_EQ(included[0].length, 3u);
    EXPECT_EQ(included[1].job_info.job_id, "job-2");
}

TEST(EisDatasetAppend, DifferentJobTypesGiveTheCombinedTexts) {
    auto dataset = eisDatasetOf({eisRow(0, 0, {})});
    auto header = eisHeader();
    header.measurement_type = "Galvanostatic EIS";
    header.measurement_type_short = "GEIS";
    EisDataset other(std::move(header), JobInfo{});
    other.appendDataRow(eisRow(1, 0, {}));
    ASSERT_TRUE(dataset.append(other, 0.0));
    EXPECT_EQ(dataset.getJobType(), "EIS Combined");
    EXPECT_EQ(dataset.getJobTypeShort(), "DC");
}

TEST(EisDatasetAppend, TimeInTheFirstMetaColumnIsNotShifted) {
    auto header = eisHeader();
    std::swap(header.meta[0], header.meta[2]);
    auto build = [&header] {
        EisDataset dataset(LiveDataHeaderEis(header), JobInfo{});
        auto row = eisRow(1, -1, {});
        std::swap(row.meta[0][0], row.meta[0][2]);
        dataset.appendDataRow(row);
        return dataset;
    };
    auto dataset = build();
    ASSERT_TRUE(dataset.append(build(), 100.0));
    EXPECT_EQ(dataset.getTimes(), (std::vector<double>{10.0, 10.0}));
}

TEST(EisDatasetAppend, WithoutWaveIdColumnTheAppendedWavesStayReachable) {
    auto dataset = eisDatasetOf({eisRow(0, 0, {1.0}, false), eisRow(1, 0, {2.0}, false)}, false);
    const auto other = eisDatasetOf({eisRow(0, 0, {3.0}, false)}, false);
    ASSERT_TRUE(dataset.append(other, 0.0));
    EXPECT_EQ(dataset.getWaveForRow(0, 2), (std::vector<double>{3.0}));
    EXPECT_TRUE(dataset.hasConsistentShape());
}

TEST(EisDatasetAppend, ToItself) {
    auto dataset = eisDatasetOf({eisRow(0, 0, {1.0})});
    ASSERT_TRUE(dataset.append(dataset, 1.0));
    EXPECT_EQ(dataset.getWaveIds(), (std::vector<double>{0, 1}));
    EXPECT_EQ(dataset.getTimes(), (std::vector<double>{0.0, 1.0}));
}

}  // namespace
}  // namespace velmar
