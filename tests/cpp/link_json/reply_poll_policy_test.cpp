// When the I/O thread polls for an awaited reply before sleeping: only while polling pays.
#include "velmar_link_json/session_runtime.hpp"

#include <gtest/gtest.h>

using velmar::ReplyPollPolicy;

namespace {

/// Waits without polling until the policy polls again (bounded by twice the pause).
int waitsUntilPolling(ReplyPollPolicy& policy) {
    for (int waits = 0; waits < 2 * ReplyPollPolicy::PAUSE_WAITS; ++waits) {
        if (policy.shouldPoll()) return waits;
    }
    return -1;
}

}  // namespace

TEST(ReplyPollPolicy, PollsWhileRepliesArriveWithinTheWindow) {
    ReplyPollPolicy policy;
    for (int i = 0; i < 1000; ++i) {
        ASSERT_TRUE(policy.shouldPoll());
        policy.record(true);
    }
    // One late reply among caught ones does not stop it; two in a row do.
    policy.record(false);
    EXPECT_TRUE(policy.shouldPoll());
    policy.record(true);
    EXPECT_TRUE(policy.shouldPoll());
    policy.record(false);
    policy.record(false);
    EXPECT_FALSE(policy.shouldPoll());
}

TEST(ReplyPollPolicy, AfterAPauseOneTryDecides) {
    ReplyPollPolicy policy;
    policy.record(false);
    policy.record(false);
    // A peer that needs this core, or answers late, costs one window per pause.
    EXPECT_EQ(waitsUntilPolling(policy), ReplyPollPolicy::PAUSE_WAITS - 1);
    policy.record(false);
    EXPECT_EQ(waitsUntilPolling(policy), ReplyPollPolicy::PAUSE_WAITS - 1);
    // A caught reply makes it poll again.
    policy.record(true);
    for (int i = 0; i < 10; ++i) {
        ASSERT_TRUE(policy.shouldPoll());
        policy.record(true);
    }
}
