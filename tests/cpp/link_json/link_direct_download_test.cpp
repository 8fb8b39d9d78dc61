// DC result downloads written straight into a DcResultDestination, against the in-process
// scripted peer on 127.0.0.1: the frame's length against the announced row count (exact,
// short, long, zero rows), frames in one piece and fragmented, a huge claim followed by a
// small frame, text frames while a destination is armed, and the whole-frame path.

#include "support/scripted_peer.hpp"

#include "velmar_link_json/jobs/dc/dc_result_destination.hpp"
#include "velmar_link_json/link_json_session.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velmar {
namespace {

namespace json = boost::json;
using testing::PeerAction;
using testing::ScriptedPeer;

constexpr std::size_t COLUMNS = 3;

/// `bytes` bytes of a frame whose binary64 values differ from each other.
std::string frameOf(std::size_t bytes) {
    std::string frame(bytes, '\0');
    std::size_t i = 0;
    for (; i + 8 <= bytes; i += 8) {
        const double value = 1.0 + static_cast<double>(i / 8);
        std::memcpy(frame.data() + i, &value, 8);
    }
    for (; i < bytes; ++i) frame[i] = static_cast<char>(0x5a);
    return frame;
}

LiveDataHeader threeColumns() {
    LiveDataHeader header;
    header.measurement_type = "Cyclic Voltammetry";
    header.measurement_type_short = "cv";
    header.columns = {ColumnHeader{"Time", "s", "urn:t"}, ColumnHeader{"Voltage", "V", "urn:v"},
                      ColumnHeader{"Current", "A", "urn:i"}};
    return header;
}

Resource jobResult() {
    Resource resource;
    resource.resource_id = "r1";
    resource.type = ResourceTypeEnum::JOB_RESULT;
    return resource;
}

/// Every download request is answered by `texts` (after the reply) and the binary `frame`.
ScriptedPeer::Script serving(const std::string& frame, bool fragment, std::vector<std::string> texts = {}) {
    return [frame, fragment, texts](const json::object& request) {
        auto action = PeerAction::reply(request);
        action.texts.insert(action.texts.begin(), texts.begin(), texts.end());
        action.binaries.push_back(frame);
        action.fragment = fragment;
        return action;
    };
}

struct Download {
    std::shared_ptr<DcResultDestination> destination;
    std::expected<DcDataset, ErrorObject> dataset;
};

Download download(const std::string& frame, std::optional<std::uint64_t> announcedRows, bool fragment) {
    ScriptedPeer peer(serving(frame, fragment));
    LinkJsonSession session("127.0.0.1", peer.port());
    EXPECT_FALSE(session.connect());
    auto destination = std::make_shared<DcResultDestination>(COLUMNS, announcedRows);
    std::string out;
    EXPECT_FALSE(session.retrieveFullResource(jobResult(), destination, out, 0));
    EXPECT_TRUE(out.empty());
    EXPECT_TRUE(destination->filled);
    EXPECT_EQ(destination->received, frame.size());
    auto dataset = destination->takeDataset(threeColumns(), JobInfo{});
    return {destination, std::move(dataset)};
}

void expectLikeTheWholeFrameDecoder(const DcDataset& decoded, const std::string& frame) {
    const auto expected = dcDatasetFromBinary(std::string_view(frame), threeColumns(), JobInfo{});
    ASSERT_EQ(decoded.getTracks().size(), COLUMNS);
    ASSERT_EQ(decoded.getRowCount(), frame.size() / (COLUMNS * 8));
    for (std::size_t c = 0; c < COLUMNS; ++c) {
        EXPECT_TRUE(decoded.getTracks()[c] == expected.getTracks()[c]) << "column " << c;
    }
}

void expectSizeMismatch(const Download& result, std::size_t received, std::uint64_t rows) {
    ASSERT_FALSE(result.dataset);
    EXPECT_EQ(result.dataset.error().code, ErrorCodeEnum::RESOURCE_CONTENT_INVALID);
    EXPECT_EQ(result.dataset.error().getMessageFormatted(),
              "job result of " + std::to_string(received) + " bytes received, but its header announces " +
                  std::to_string(rows) + " rows of 3 columns (" + std::to_string(rows * COLUMNS * 8) + " bytes)");
}

TEST(LinkDirectDownload, FrameOfTheAnnouncedLengthFillsTheTracks) {
    const std::size_t rows = 100'000;  // several reads beyond the first part
    const auto frame = frameOf(COLUMNS * rows * 8);
    for (const bool fragment : {false, true}) {
        const auto result = download(frame, rows, fragment);
        ASSERT_TRUE(result.dataset) << result.dataset.error().getMessageFormatted();
        expectLikeTheWholeFrameDecoder(*result.dataset, frame);
    }
}

TEST(LinkDirectDownload, FrameOfAnotherLengthThanAnnouncedFails) {
    const std::size_t rows = 100'000;
    for (const bool fragment : {false, true}) {
        SCOPED_TRACE(fragment ? "fragmented" : "one frame");
        // Half a frame once gave a voltage track holding time values; a double frame swapped
        // voltage and current.
        expectSizeMismatch(download(frameOf(COLUMNS * rows * 4), rows, fragment), COLUMNS * rows * 4, rows);
        expectSizeMismatch(download(frameOf(COLUMNS * rows * 16), rows, fragment), COLUMNS * rows * 16, rows);
        expectSizeMismatch(download(frameOf(COLUMNS * rows * 8 - 1), rows, fragment), COLUMNS * rows * 8 - 1, rows);
        expectSizeMismatch(download(frameOf(COLUMNS * rows * 8 + 8), rows, fragment), COLUMNS * rows * 8 + 8, rows);
        expectSizeMismatch(download(frameOf(24), 0, fragment), 24, 0);
    }
}

TEST(LinkDirectDownload, ZeroRowsGiveOneEmptyTrackPerColumn) {
    for (const bool fragment : {false, true}) {
        for (const auto announced : {std::optional<std::uint64_t>(0), std::optional<std::uint64_t>()}) {
            const auto result = download(std::string(), announced, fragment);
            ASSERT_TRUE(result.dataset);
            EXPECT_EQ(result.dataset->getRowCount(), 0u);
            ASSERT_EQ(result.dataset->getTracks().size(), COLUMNS);
            for (const auto& track : result.dataset->getTracks()) EXPECT_TRUE(track.empty());
            EXPECT_EQ(result.dataset->getHeader().size(), COLUMNS);
        }
    }
}

TEST(LinkDirectDownload, WithoutAnnouncedRowsTheLengthGivesTheRows) {
    for (const bool fragment : {false, true}) {
        for (const std::size_t bytes : {COLUMNS * 20'000 * 8 + 13, std::size_t{100}, COLUMNS * 8 - 1}) {
            const auto frame = frameOf(bytes);
            const auto result = download(frame, std::nullopt, fragment);
            ASSERT_TRUE(result.dataset);
            expectLikeTheWholeFrameDecoder(*result.dataset, frame);
        }
    }
}

TEST(LinkDirectDownload, HugeClaimWithSmallFrameAllocatesOnlyWhatArrives) {
    const std::uint64_t claimed = 44'739'242;  // about 1 GiB of tracks
    const auto frame = frameOf(1464);
    for (const bool fragment : {false, true}) {
        const auto result = download(frame, claimed, fragment);
        EXPECT_LE(result.destination->allocatedBytes(), DcResultDestination::GROWTH_STEP);
        expectSizeMismatch(result, 1464, claimed);
    }
    // The same for a claim whose byte count cannot even be represented.
    const auto absurd = download(frame, std::uint64_t{1} << 62, false);
    EXPECT_EQ(absurd.destination->allocatedBytes(), 0u);
    ASSERT_FALSE(absurd.dataset);
    EXPECT_EQ(absurd.dataset.error().code, ErrorCodeEnum::RESOURCE_CONTENT_INVALID);
}

TEST(LinkDirectDownload, TextFramesWhileArmedKeepTheTextPath) {
    const std::size_t rows = 50'000;
    const auto frame = frameOf(COLUMNS * rows * 8);
    // An unsolicited large reply and an event arrive before the reply and the frame.
    const std::string large = json::serialize(
        json::object{{"type", "REPLY"}, {"request_id", "unknown"}, {"padding", std::string(300'000, 'x')}});
    const std::string event = R"({"type":"EVENT","event":{"type":"MESSAGE_FROM_JOB","message":"hello"}})";
    ScriptedPeer peer([&](const json::object& request) {
        if (request.at("do") == "/status") {
            return PeerAction::reply(request, {{"workstation_status", json::object{{"busy", false}, {"uptime", 7}}},
                                               {"padding", std::string(200'000, 'y')}});
        }
        return serving(frame, false, {large, event})(request);
    });
    LinkJsonSession session("127.0.0.1", peer.port());
    ASSERT_FALSE(session.connect());
    auto destination = std::make_shared<DcResultDestination>(COLUMNS, rows);
    std::string out;
    ASSERT_FALSE(session.retrieveFullResource(jobResult(), destination, out, 0));
    auto dataset = destination->takeDataset(threeColumns(), JobInfo{});
    ASSERT_TRUE(dataset);
    expectLikeTheWholeFrameDecoder(*dataset, frame);
    // A large text reply read in several parts, after the direct frame.
    auto status = session.getWorkstationStatus();
    ASSERT_TRUE(status);
    EXPECT_EQ(status->uptime, 7u);
}

TEST(LinkDirectDownload, WithoutDestinationTheWholeFrameArrives) {
    const auto frame = frameOf(3'000'000 + 3);
    ScriptedPeer peer(serving(frame, false));
    LinkJsonSession session("127.0.0.1", peer.port());
    ASSERT_FALSE(session.connect());
    std::string out;
    ASSERT_FALSE(session.retrieveFullResource(jobResult(), out, 0));
    EXPECT_TRUE(out == frame);
    // After a download into a destination, the next one without destination is whole again.
    auto destination = std::make_shared<DcResultDestination>(COLUMNS, std::nullopt);
    ASSERT_FALSE(session.retrieveFullResource(jobResult(), destination, out, 0));
    EXPECT_TRUE(destination->filled);
    EXPECT_EQ(destination->received, frame.size());
    out.clear();
    ASSERT_FALSE(session.retrieveFullResource(jobResult(), out, 0));
    EXPECT_TRUE(out == frame);

    // A whole frame handed to a destination decodes like one written into it.
    DcResultDestination whole(COLUMNS, std::nullopt);
    whole.storeWhole(frame);
    auto dataset = whole.takeDataset(threeColumns(), JobInfo{});
    ASSERT_TRUE(dataset);
    expectLikeTheWholeFrameDecoder(*dataset, frame);
}

}  // namespace
}  // namespace velmar
