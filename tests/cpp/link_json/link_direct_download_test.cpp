// Binary downloads written straight into a destination's ranges, against the in-process
// scripted peer on 127.0.0.1: exact, shorter and longer frames, text frames while a
// destination is armed, and the whole-frame path without a destination.

#include "support/scripted_peer.hpp"

#include "velmar_link_json/binary_destination.hpp"
#include "velmar_link_json/jobs/dc/dc_dataset.hpp"
#include "velmar_link_json/link_json_session.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace velmar {
namespace {

namespace json = boost::json;
using testing::PeerAction;
using testing::ScriptedPeer;

constexpr std::size_t COLUMNS = 3;

/// Tracks of `rows` values each, as the result download arms them.
struct TrackDestination final : BinaryDestination {
    TrackDestination(std::size_t columns, std::size_t rows) : tracks(columns, std::vector<double>(rows, -1.0)) {
        for (auto& track : tracks) ranges.emplace_back(reinterpret_cast<std::byte*>(track.data()), rows * 8);
    }
    std::vector<std::vector<double>> tracks;
};

/// `bytes` bytes of a frame whose binary64 values differ from each other and from the fill.
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
ScriptedPeer::Script serving(const std::string& frame, std::vector<std::string> texts = {}) {
    return [frame, texts](const json::object& request) {
        auto action = PeerAction::reply(request);
        action.texts.insert(action.texts.begin(), texts.begin(), texts.end());
        action.binaries.push_back(frame);
        return action;
    };
}

/// Downloads `frame` into tracks of `rows` rows and checks the decoded dataset against the
/// whole-frame decoder.
void expectDirectDownloadDecodesLikeTheWholeFrame(std::size_t rows, const std::string& frame) {
    ScriptedPeer peer(serving(frame));
    LinkJsonSession session("127.0.0.1", peer.port());
    ASSERT_FALSE(session.connect());
    auto destination = std::make_shared<TrackDestination>(COLUMNS, rows);
    std::string out;
    ASSERT_FALSE(session.retrieveFullResource(jobResult(), destination, out, 0));
    EXPECT_TRUE(out.empty());
    ASSERT_TRUE(destination->filled);
    EXPECT_EQ(destination->received, frame.size());
    const std::size_t capacity = COLUMNS * rows * 8;
    EXPECT_EQ(destination->overflow.size(), frame.size() > capacity ? frame.size() - capacity : 0u);

    const auto expected = dcDatasetFromBinary(std::string_view(frame), threeColumns(), JobInfo{});
    const auto decoded = dcDatasetFromReceivedTracks(std::move(destination->tracks), destination->received,
                                                     destination->overflow, threeColumns(), JobInfo{});
    ASSERT_EQ(decoded.getRowCount(), frame.size() / (COLUMNS * 8));
    ASSERT_EQ(decoded.getTracks().size(), COLUMNS);
    for (std::size_t c = 0; c < COLUMNS; ++c) {
        EXPECT_TRUE(decoded.getTracks()[c] == expected.getTracks()[c]) << "column " << c;
    }
}

TEST(LinkDirectDownload, ExactFrameFillsTheRanges) {
    const std::size_t rows = 100'000;  // several reads beyond the first part
    const auto frame = frameOf(COLUMNS * rows * 8);
    ScriptedPeer peer(serving(frame));
    LinkJsonSession session("127.0.0.1", peer.port());
    ASSERT_FALSE(session.connect());
    auto destination = std::make_shared<TrackDestination>(COLUMNS, rows);
    std::string out;
    ASSERT_FALSE(session.retrieveFullResource(jobResult(), destination, out, 0));
    ASSERT_TRUE(destination->filled);
    EXPECT_EQ(destination->received, frame.size());
    EXPECT_TRUE(destination->overflow.empty());
    for (std::size_t c = 0; c < COLUMNS; ++c) {
        EXPECT_EQ(std::memcmp(destination->tracks[c].data(), frame.data() + c * rows * 8, rows * 8), 0);
    }
    expectDirectDownloadDecodesLikeTheWholeFrame(rows, frame);
}

TEST(LinkDirectDownload, ShorterFramesShrinkTheTracks) {
    const std::size_t rows = 100'000;
    expectDirectDownloadDecodesLikeTheWholeFrame(rows, frameOf(COLUMNS * 70'000 * 8));      // more than half
    expectDirectDownloadDecodesLikeTheWholeFrame(rows, frameOf(COLUMNS * 20'000 * 8 + 13));  // less, ragged end
    expectDirectDownloadDecodesLikeTheWholeFrame(rows, frameOf(COLUMNS * 99'999 * 8 + 7));
    expectDirectDownloadDecodesLikeTheWholeFrame(rows, frameOf(100));  // within the first part
    expectDirectDownloadDecodesLikeTheWholeFrame(rows, std::string());
}

TEST(LinkDirectDownload, LongerFramesKeepEveryValue) {
    const std::size_t rows = 100'000;
    expectDirectDownloadDecodesLikeTheWholeFrame(rows, frameOf(COLUMNS * 130'000 * 8 + 5));
    expectDirectDownloadDecodesLikeTheWholeFrame(rows, frameOf(COLUMNS * 400'000 * 8));  // past several tracks
    expectDirectDownloadDecodesLikeTheWholeFrame(10, frameOf(COLUMNS * 50'000 * 8));       // mostly overflow
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
            auto action = PeerAction::reply(
                request, {{"workstation_status", json::object{{"busy", false}, {"uptime", 7}}},
                          {"padding", std::string(200'000, 'y')}});
            return action;
        }
        return serving(frame, {large, event})(request);
    });
    LinkJsonSession session("127.0.0.1", peer.port());
    ASSERT_FALSE(session.connect());
    auto destination = std::make_shared<TrackDestination>(COLUMNS, rows);
    std::string out;
    ASSERT_FALSE(session.retrieveFullResource(jobResult(), destination, out, 0));
    ASSERT_TRUE(destination->filled);
    EXPECT_EQ(destination->received, frame.size());
    for (std::size_t c = 0; c < COLUMNS; ++c) {
        EXPECT_EQ(std::memcmp(destination->tracks[c].data(), frame.data() + c * rows * 8, rows * 8), 0);
    }
    // A large text reply read in several parts, after the direct frame.
    auto status = session.getWorkstationStatus();
    ASSERT_TRUE(status);
    EXPECT_EQ(status->uptime, 7u);
}

TEST(LinkDirectDownload, WithoutDestinationTheWholeFrameArrives) {
    const auto frame = frameOf(3'000'000 + 3);
    ScriptedPeer peer(serving(frame));
    LinkJsonSession session("127.0.0.1", peer.port());
    ASSERT_FALSE(session.connect());
    std::string out;
    ASSERT_FALSE(session.retrieveFullResource(jobResult(), out, 0));
    EXPECT_TRUE(out == frame);
    // After a download into a destination, the next one without destination is whole again.
    auto destination = std::make_shared<TrackDestination>(COLUMNS, 1000);
    ASSERT_FALSE(session.retrieveFullResource(jobResult(), destination, out, 0));
    EXPECT_TRUE(destination->filled);
    EXPECT_EQ(destination->received, frame.size());
    out.clear();
    ASSERT_FALSE(session.retrieveFullResource(jobResult(), out, 0));
    EXPECT_TRUE(out == frame);
}

}  // namespace
}  // namespace velmar
