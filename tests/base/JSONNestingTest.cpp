// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/JSONNesting.h"

#include <gtest/gtest.h>

#include <string>

namespace orrinvale
{
namespace
{

std::string nested(int levels, const std::string& open, const std::string& close)
{
    std::string text;
    for (int level = 0; level < levels; ++level)
        text = open + text + close;
    return text;
}

TEST(JSONNesting, AHundredLevelsAreAllowed)
{
    for (const auto& [open, close] : {std::pair("[", "]"), std::pair("{\"a\":", "}"), std::pair("[{\"a\":1},", "]")}) {
        EXPECT_FALSE(isNestedTooDeep(nested(99, open, close)));
        EXPECT_TRUE(isNestedTooDeep(nested(101, open, close)));
        EXPECT_TRUE(isNestedTooDeep(nested(10'000, open, "")));
    }
    EXPECT_FALSE(isNestedTooDeep(nested(100, "[", "]")));
}

TEST(JSONNesting, BracketsSideBySideAndInStringsDoNotCount)
{
    std::string wide = "[";
    for (int i = 0; i < 1000; ++i)
        wide += "[{}],";
    EXPECT_FALSE(isNestedTooDeep(wide + "0]"));
    EXPECT_FALSE(isNestedTooDeep("\"" + std::string(1000, '[') + "\""));
    EXPECT_FALSE(isNestedTooDeep("\"\\\"" + std::string(1000, '[') + "\""));
    EXPECT_TRUE(isNestedTooDeep("\"\\\\\"" + std::string(1000, '[')));
    EXPECT_FALSE(isNestedTooDeep("\"\\"));
    EXPECT_FALSE(isNestedTooDeep(""));
}

} // namespace
} // namespace orrinvale
