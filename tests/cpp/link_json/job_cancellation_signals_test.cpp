#include "velmar_link_json/jobs/common/cancellation_signals.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace velmar {
namespace {

TEST(CancellationSignals, FreeSignalsAreReusedAndOnlyConnectedOnesEmit) {
    CancellationSignals signals;
    int first = 0;
    int second = 0;
    auto slotA = signals.slot();
    slotA.assign([&](boost::asio::cancellation_type) { ++first; });
    auto slotB = signals.slot();
    slotB.assign([&](boost::asio::cancellation_type type) {
        if (type == boost::asio::cancellation_type::terminal) ++second;
    });
    EXPECT_EQ(signals.size(), 2U);

    signals.emitSignal(boost::asio::cancellation_type::terminal);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 1);

    slotA.clear();
    auto reused = signals.slot();
    EXPECT_EQ(signals.size(), 2U);
    EXPECT_FALSE(reused.has_handler());
    signals.emitSignal(boost::asio::cancellation_type::partial);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 1);
}

TEST(CancellationSignals, ConnectedHandlersAreCalledUntilReleased) {
    CancellationSignals signals;
    std::vector<boost::asio::cancellation_type> seen;
    auto slot = signals.connect([&](boost::asio::cancellation_type type) { seen.push_back(type); });
    auto other = signals.connect([&](boost::asio::cancellation_type) { seen.push_back(boost::asio::cancellation_type::none); });
    EXPECT_EQ(signals.size(), 2U);  // two waits never share a signal
    signals.emitSignal(boost::asio::cancellation_type::terminal);
    EXPECT_EQ(seen, (std::vector{boost::asio::cancellation_type::terminal, boost::asio::cancellation_type::none}));
    signals.release(slot);
    signals.release(other);
    signals.emitSignal(boost::asio::cancellation_type::total);
    EXPECT_EQ(seen.size(), 2U);
    (void)signals.connect([](boost::asio::cancellation_type) {});
    EXPECT_EQ(signals.size(), 2U);  // a released signal is reused
}

}  // namespace
}  // namespace velmar
