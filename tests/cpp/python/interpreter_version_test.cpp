#include "interpreter_version.hpp"

#include <gtest/gtest.h>

using velmar::python::interpreterVersionMatches;

TEST(InterpreterVersion, SameMinorLineMatches) {
    EXPECT_TRUE(interpreterVersionMatches("3.12", "3.12.7 (main, Oct  1 2024, 08:52:12) [GCC 12.2.0]"));
    EXPECT_TRUE(interpreterVersionMatches("3.12", "3.12"));
    EXPECT_TRUE(interpreterVersionMatches("3.11", "3.11.7 (main)"));
}

TEST(InterpreterVersion, OtherLinesAreRefused) {
    EXPECT_FALSE(interpreterVersionMatches("3.12", "3.13.0"));
    EXPECT_FALSE(interpreterVersionMatches("3.12", "3.120"));
    EXPECT_FALSE(interpreterVersionMatches("3.12", "3.1"));
    EXPECT_FALSE(interpreterVersionMatches("3.12", ""));
}
