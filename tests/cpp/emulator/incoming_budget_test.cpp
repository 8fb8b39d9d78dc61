// The shared budget of unfinished incoming messages, without sockets.
#include "emulator/core/connection_registry.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <optional>

using velmar::emulator::IncomingBudget;

TEST(IncomingBudget, APartFitsOnlyBesideWhatAllConnectionsHold) {
    IncomingBudget budget(1000);
    IncomingBudget::Share first(budget), second(budget);
    first.hold(400);
    second.hold(300);
    EXPECT_EQ(budget.held(), 700u);
    // The answer is the same whichever connection asks: only the sum counts.
    for (const auto* share : {&first, &second}) {
        EXPECT_TRUE(share->admits(300));
        EXPECT_FALSE(share->admits(301));
    }
    // A connection's further parts replace what it held, they do not add up.
    first.hold(600);
    EXPECT_EQ(budget.held(), 900u);
    EXPECT_FALSE(second.admits(101));
    EXPECT_FALSE(budget.admits(std::numeric_limits<std::size_t>::max()));
    EXPECT_FALSE(IncomingBudget(10).admits(11));
}

TEST(IncomingBudget, AFinishedMessageAndAnEndedConnectionGiveTheirBytesBack) {
    IncomingBudget budget(1000);
    IncomingBudget::Share kept(budget);
    kept.hold(200);
    {
        std::optional<IncomingBudget::Share> ended(std::in_place, budget);
        ended->hold(800);
        EXPECT_FALSE(kept.admits(1));
        ended.reset();
    }
    EXPECT_EQ(budget.held(), 200u);
    EXPECT_TRUE(kept.admits(800));
    kept.hold(0);
    EXPECT_EQ(budget.held(), 0u);
    EXPECT_TRUE(kept.admits(1000));
}
