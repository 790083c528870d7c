// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/Timestamp.h"

#include <gtest/gtest.h>

namespace orrinvale
{

using namespace std::chrono_literals;

namespace
{

constexpr Instant sample{1773480413s}; // 2026-03-14T09:26:53Z

TEST(Timestamp, ReadsBackAsTheSameInstant)
{
    EXPECT_EQ(timestampText(sample), "2026-03-14T09:26:53Z");
    EXPECT_EQ(timestampFromText("2026-03-14T09:26:53Z"), std::optional(sample));
}

TEST(Timestamp, FractionsAreDropped)
{
    EXPECT_EQ(timestampText(sample + 800ms), "2026-03-14T09:26:53Z");
}

TEST(Timestamp, FractionsBefore1970AreDroppedTowardThePast)
{
    EXPECT_EQ(timestampText(Instant(-200ms)), "1969-12-31T23:59:59Z");
}

TEST(Timestamp, AnyOtherFormIsNone)
{
    for (const auto* text :
         {"", "2026-03-14", "2026-03-14T09:26:53", "2026-03-14T09:26:53.0Z", "2026-03-14T09:26:53+00:00",
          "2026-03-14 09:26:53Z", "2026-03-14T09:26:53Z ", "2026-02-30T09:26:53Z", "2026-13-14T09:26:53Z",
          "2026-03-14T24:26:53Z", "2026-03-14T09:60:53Z", "2026-03-14T09:26:60Z", "9999-03-14T09:26:53Z",
          "+026-03-14T09:26:53Z"})
        EXPECT_FALSE(timestampFromText(text)) << text;
}

TEST(Timestamp, LeapDayIsADay)
{
    EXPECT_TRUE(timestampFromText("2024-02-29T00:00:00Z"));
    EXPECT_FALSE(timestampFromText("2026-02-29T00:00:00Z"));
}

} // namespace

} // namespace orrinvale
