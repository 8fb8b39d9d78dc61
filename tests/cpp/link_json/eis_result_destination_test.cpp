// Impedance result downloads written straight into tracks and waves: exact frames in one
// piece and in small pieces, fragmented frames, frames shorter than the announced rows, and
// "wave_size" claims beyond the frame; one exact and one fragmented frame through the
// in-process scripted peer on 127.0.0.1.

#include "link_json/eis_test_support.hpp"
#include "support/scripted_peer.hpp"

#include "velmar_link_json/jobs/ac/eis_result_destination.hpp"
#include "velmar_link_json/jobs/control/control_jobs.hpp"
#include "velmar_link_json/link_json_session.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>

namespace velmar {
namespace {

using namespace velmar::testing;
namespace json = boost::json;

/// A dataset of four rows with waves of different lengths (one shared, one missing, one with
/// special values) in its binary form.
EisBinaryForm sampleForm() {
    auto sharing = eisRow(1, 0, {});
    sharing.meta[0][4] = 3.0;
    const auto dataset = eisDatasetOf({eisRow(0, 0, {1.0, 2.0, 3.0}), sharing, eisRow(2, -1, {}),
                                       eisRow(3, 1, {std::numeric_limits<double>::quiet_NaN(), -0.0})});
    auto form = eisDatasetToBinary(dataset);
    EXPECT_TRUE(form);
    return std::move(*form);
}

void expectLikeTheWholeDecoder(const std::expected<EisDataset, ErrorObject>& decoded, const EisBinaryForm& form,
                               std::uint64_t rows) {
    ASSERT_TRUE(decoded) << decoded.error().getMessageFormatted();
    auto expected = eisDatasetFromBinary(form.data, LiveDataHeaderEis(form.header), rows, JobInfo{}, 12);
    ASSERT_TRUE(expected);
    ASSERT_EQ(decoded->getRowCount(), expected->getRowCount());
    for (std::size_t c = 0; c < expected->getMetaTracks().size(); ++c) {
        EXPECT_EQ(bitsOf(decoded->getMetaTracks()[c]), bitsOf(expected->getMetaTracks()[c])) << "meta " << c;
    }
    EXPECT_EQ(decoded->getPaths(), expected->getPaths());
    EXPECT_EQ(decoded->getPotentiostats(), expected->getPotentiostats());
    ASSERT_EQ(decoded->getPathsWaves().size(), 2u);
    for (std::size_t p = 0; p < 2; ++p) {
        ASSERT_EQ(decoded->getPathWaves(p).size(), expected->getPathWaves(p).size());
        for (std::size_t w = 0; w < expected->getPathWaves(p).size(); ++w) {
            EXPECT_EQ(bitsOf(decoded->getPathWaves(p)[w]), bitsOf(expected->getPathWaves(p)[w]));
        }
    }
}

/// The frame handed over in pieces of `step` bytes, as the transport does.
std::expected<EisDataset, ErrorObject> receive(EisResultDestination& destination, const EisBinaryForm& form,
                                               bool exact, std::size_t step) {
    destination.received = 0;
    destination.begin(exact ? form.data.size() : 0, exact);
    for (std::size_t at = 0; at < form.data.size(); at += step) {
        destination.store(form.data.data() + at, std::min(step, form.data.size() - at));
    }
    destination.received = form.data.size();
    destination.filled = true;
    return destination.takeDataset(LiveDataHeaderEis(form.header), JobInfo{}, 12);
}

TEST(EisResultDestination, ExactFrameFillsTracksAndWavesInAnyPieces) {
    const auto form = sampleForm();
    for (const std::size_t step : {form.data.size(), std::size_t{8}, std::size_t{3}}) {
        SCOPED_TRACE(step);
        EisResultDestination destination(form.header, form.rowCount);
        const auto decoded = receive(destination, form, true, step);
        expectLikeTheWholeDecoder(decoded, form, form.rowCount);
        EXPECT_EQ(decoded->getWaveIds(), (std::vector<double>{0, 0, -1, 1}));
        EXPECT_EQ(decoded->getWaveForRow(1, 1), (std::vector<double>{-1.0, -2.0, -3.0}));
    }
    // Without announced rows the count follows from the length (exact without waves).
    auto plain = eisDatasetToBinary(eisDatasetOf({eisRow(0, -1, {}), eisRow(1, -1, {})}));
    ASSERT_TRUE(plain);
    EisResultDestination derived(plain->header, std::nullopt);
    const auto decoded = receive(derived, *plain, true, 64);
    expectLikeTheWholeDecoder(decoded, *plain, 0);
    EXPECT_EQ(decoded->getRowCount(), 2u);
}

TEST(EisResultDestination, FragmentedFrameIsCollectedInBoundedSteps) {
    const auto form = sampleForm();
    EisResultDestination destination(form.header, form.rowCount);
    destination.begin(0, false);
    destination.store(form.data.data(), 16);
    EXPECT_LE(destination.allocatedBytes(), EisResultDestination::GROWTH_STEP);
    destination.store(form.data.data() + 16, form.data.size() - 16);
    destination.received = form.data.size();
    destination.filled = true;
    expectLikeTheWholeDecoder(destination.takeDataset(LiveDataHeaderEis(form.header), JobInfo{}, 12), form,
                              form.rowCount);
}

TEST(EisResultDestination, FrameShorterThanTheAnnouncedRowsFails) {
    const auto form = sampleForm();
    const std::uint64_t columns = form.header.totalColumnCount();
    EisResultDestination destination(form.header, std::uint64_t{1} << 40);
    destination.storeWhole(form.data);
    EXPECT_EQ(destination.allocatedBytes(), 0u);
    const auto result = destination.takeDataset(LiveDataHeaderEis(form.header), JobInfo{}, 12);
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().code, ErrorCodeEnum::RESOURCE_CONTENT_INVALID);
    EXPECT_EQ(result.error().getMessageFormatted(),
              "job result of " + std::to_string(form.data.size()) + " bytes received, but its header announces " +
                  std::to_string(std::uint64_t{1} << 40) + " rows of " + std::to_string(columns) + " columns (" +
                  std::to_string((std::uint64_t{1} << 40) * columns * 8) + " bytes)");

    // Fragmented, the same check when the frame has ended.
    EisResultDestination fragmented(form.header, 5);
    const auto late = receive(fragmented, form, false, 1000);
    ASSERT_FALSE(late);
    EXPECT_EQ(late.error().code, ErrorCodeEnum::RESOURCE_CONTENT_INVALID);
}

TEST(EisResultDestination, WaveSizeClaimBeyondTheFrameFailsWithoutAllocatingIt) {
    auto form = sampleForm();
    // "wave_size" of row 0 (meta column 4): a claim far beyond the frame.
    const std::size_t at = (4 * form.rowCount + 0) * sizeof(double);
    const double claim = 1e12;
    std::memcpy(form.data.data() + at, &claim, sizeof(claim));
    EisResultDestination destination(form.header, form.rowCount);
    destination.storeWhole(form.data);
    EXPECT_LT(destination.allocatedBytes(), form.data.size() + 4096);
    const auto result = destination.takeDataset(LiveDataHeaderEis(form.header), JobInfo{}, 12);
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().code, ErrorCodeEnum::RESOURCE_CONTENT_INVALID);
    EXPECT_EQ(result.error().getMessageFormatted(),
              "wave_size of row 0 declares 1000000000000 samples for sync path 0 but only 16 values remain");
}

Resource jobResult() {
    Resource resource;
    resource.resource_id = "r1";
    resource.type = ResourceTypeEnum::JOB_RESULT;
    return resource;
}

TEST(EisResultDestination, ThroughTheTransportInOnePieceAndFragmented) {
    const auto form = sampleForm();
    for (const bool fragment : {false, true}) {
        SCOPED_TRACE(fragment);
        ScriptedPeer peer([&form, fragment](const json::object& request) {
            auto action = PeerAction::reply(request);
            action.binaries.push_back(form.data);
            action.fragment = fragment;
            return action;
        });
        LinkJsonSession session("127.0.0.1", peer.port());
        ASSERT_FALSE(session.connect());
        auto destination = std::make_shared<EisResultDestination>(form.header, form.rowCount);
        std::string out;
        ASSERT_FALSE(session.retrieveFullResource(jobResult(), destination, out, 0));
        ASSERT_TRUE(destination->filled);
        EXPECT_EQ(destination->received, form.data.size());
        expectLikeTheWholeDecoder(destination->takeDataset(LiveDataHeaderEis(form.header), JobInfo{}, 12), form,
                                  form.rowCount);
    }
}

/// A workstation that lists one job result of `subType` for job "j1" and serves `frame`.
ScriptedPeer resultServer(const EisBinaryForm& form, std::string subType, std::string frame, std::uint64_t rows) {
    json::object resource{{"resource_id", "r1"}, {"name", "job j1"}, {"type", "JOB_RESULT"},
                          {"sub_type", std::move(subType)}, {"size", frame.size()}, {"job_id", "j1"},
                          {"header", {{"job_data_header", json::value_from(form.header)},
                                      {"job_info", {{"job_id", "j1"}, {"status", "FINISHED"}}},
                                      {"number_of_rows", rows}}}};
    return ScriptedPeer([resource, frame](const json::object& request) {
        if (request.at("do") == "/JOB_RESULT/list") {
            return PeerAction::reply(request, {{"resources", json::array{resource}}});
        }
        auto action = PeerAction::reply(request);
        action.binaries.push_back(frame);
        return action;
    });
}

std::expected<std::shared_ptr<DataSet>, ErrorObject> fetch(ScriptedPeer& peer) {
    LinkJsonSession session("127.0.0.1", peer.port());
    EXPECT_FALSE(session.connect());
    SleepJob job;
    JobInfo info;
    info.job_id = "j1";
    info.status = JobStatusEnum::FINISHED;
    job.setLastJobInfo(info);
    return session.getJobResultData(job);
}

TEST(EisResultDownload, ImpedanceResultsBecomeAnEisDataset) {
    const auto form = sampleForm();
    auto peer = resultServer(form, "DATASET_AC", form.data, form.rowCount);
    const auto result = fetch(peer);
    ASSERT_TRUE(result) << result.error().getMessageFormatted();
    const auto dataset = std::dynamic_pointer_cast<EisDataset>(*result);
    ASSERT_NE(dataset, nullptr);
    EXPECT_EQ(dataset->getRowCount(), form.rowCount);
    EXPECT_EQ(dataset->getJobInfo().job_id, "j1");
    EXPECT_EQ(dataset->getWaveIds(), (std::vector<double>{0, 0, -1, 1}));
    EXPECT_EQ(dataset->getPathWaves(0).size(), 2u);
}

TEST(EisResultDownload, ShortFramesAndOtherSubTypesFail) {
    const auto form = sampleForm();
    auto shortPeer = resultServer(form, "DATASET_AC", form.data.substr(0, 64), form.rowCount);
    const auto shortResult = fetch(shortPeer);
    ASSERT_FALSE(shortResult);
    EXPECT_EQ(shortResult.error().code, ErrorCodeEnum::RESOURCE_CONTENT_INVALID);

    auto otherPeer = resultServer(form, "DATASET_XY", form.data, form.rowCount);
    const auto other = fetch(otherPeer);
    ASSERT_FALSE(other);
    EXPECT_EQ(other.error().code, ErrorCodeEnum::RESOURCE_TYPE_MISMATCH);
}

}  // namespace
}  // namespace velmar
