// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/WindowText.h"

#include "tests/interface/WindowFixture.h"

namespace orrinvale
{

namespace
{

struct Style {
    const char* name;
    TextStyle style;
    double pixels;
    int line;
    QFont::Weight weight;
    double tracking = 0;
};
const Style styles[] = {
    {"welcome", windowText::welcome, 24, 32, QFont::DemiBold, -0.35},
    {"dayTotal", windowText::dayTotal, 20, 24, QFont::DemiBold, -0.2},
    {"sheetHead", windowText::sheetHead, 15, 20, QFont::DemiBold},
    {"windowHead", windowText::windowHead, 14, 20, QFont::DemiBold},
    {"rowTitle", windowText::rowTitle, 13, 18, QFont::Normal},
    {"strongTitle", windowText::strongTitle, 13, 18, QFont::DemiBold},
    {"mediumTitle", windowText::mediumTitle, 13, 18, QFont::Medium},
    {"button", windowText::button, 12, 18, QFont::Medium},
    {"body", windowText::body, 12, 17, QFont::Normal},
    {"mediumBody", windowText::mediumBody, 12, 17, QFont::Medium},
    {"subtitle", windowText::subtitle, 11, 15, QFont::Normal},
    {"strongSubtitle", windowText::strongSubtitle, 11, 15, QFont::DemiBold},
    {"sectionHead", windowText::sectionHead, 11, 16, QFont::DemiBold, 0.55},
    {"dateHead", windowText::dateHead, 11, 16, QFont::DemiBold},
    {"small", windowText::small, 10, 14, QFont::Normal},
    {"mediumSmall", windowText::mediumSmall, 10, 14, QFont::Medium},
    {"fieldHead", windowText::fieldHead, 9, 12, QFont::DemiBold, 0.55},
};

struct WindowTextTest : testing::TestWithParam<Style> {
};

TEST_P(WindowTextTest, HasItsSizeWeightTrackingAndLine)
{
    const auto& expected = GetParam();
    EXPECT_NEAR(pixelSizeOf(expected.style.font()), expected.pixels, 0.01);
    EXPECT_EQ(expected.style.font().weight(), expected.weight);
    EXPECT_NEAR(expected.style.font().letterSpacing(), expected.tracking, trackingStep);
    EXPECT_EQ(expected.style.line(), expected.line);
    EXPECT_EQ(expected.style.font().family(), QApplication::font().family());
}

TEST_P(WindowTextTest, GrowsWithTheDesktopsText)
{
    const auto& expected = GetParam();
    const LargerText larger(1.5);
    const auto scale = textScale();
    EXPECT_GT(scale, 1.45);
    EXPECT_NEAR(pixelSizeOf(expected.style.font()), expected.pixels * scale, 0.01);
    EXPECT_NEAR(expected.style.font().letterSpacing(), expected.tracking * scale, trackingStep);
    EXPECT_EQ(expected.style.line(), std::lround(expected.line * scale));
}

INSTANTIATE_TEST_SUITE_P(Styles, WindowTextTest, testing::ValuesIn(styles),
                         [](const auto& each) { return each.param.name; });

TEST(WindowText, LengthsGrowWithTheText)
{
    EXPECT_EQ(withText(22), 22);
    const LargerText larger(1.5);
    EXPECT_EQ(withText(22), 33);
}

TEST(WindowText, NoDesktopMakesItLargerThanOneAndAHalf)
{
    const LargerText larger(3);
    EXPECT_EQ(windowText::rowTitle.line(), 27);
}

TEST(WindowText, ALabelTakesFontColourAndLine)
{
    TextLabel label(nullptr);
    label.setContent(QStringLiteral("one two"));
    applyTextStyle(label, windowText::sectionHead, Qt::blue);
    expectText(label, {11, QFont::DemiBold, 0.55}, Qt::blue);
}

} // namespace

} // namespace orrinvale
