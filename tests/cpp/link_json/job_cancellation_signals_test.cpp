#include "velmar_link_json/jobs/common/cancellation_signals.hpp"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace velmar
