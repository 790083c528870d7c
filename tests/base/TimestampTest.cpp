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
          "2026-03-14T24:26:53Z", "2026-03-14T09:60:53Z", "2026-03-14T09:26:60Z", "+026-03-14T09:26:53Z"})
        EXPECT_FALSE(timestampFromText(text)) << text;
}

TEST(Timestamp, EveryYearOfFourDigitsIsAnInstant)
{
    for (const auto* text : {"0000-01-01T00:00:00Z", "0001-01-01T00:00:00Z", "1677-09-21T00:12:43Z",
                             "1678-01-01T00:00:00Z", "2262-04-11T23:47:17Z", "9999-12-31T23:59:59Z"}) {
        const auto instant = timestampFromText(text);
        ASSERT_TRUE(instant) << text;
        EXPECT_EQ(timestampText(*instant), text);
    }
    const auto span = *timestampFromText("9999-12-31T23:59:59Z") - *timestampFromText("0000-01-01T00:00:00Z");
    EXPECT_EQ(std::chrono::floor<std::chrono::days>(span).count(), 3'652'424);
}

TEST(Timestamp, LeapDayIsADay)
{
    EXPECT_TRUE(timestampFromText("2024-02-29T00:00:00Z"));
    EXPECT_FALSE(timestampFromText("2026-02-29T00:00:00Z"));
}

} // namespace

} // namespace orrinvale
