// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/MenuRowButton.h"

#include "kit/TextLabel.h"
#include "kit/Typography.h"
#include "tests/interface/InterfaceFixture.h"

#include <QAccessible>

namespace orrinvale
{

namespace
{

const auto surface = QColor(250, 247, 242);
const auto icon = QColor(0, 128, 0);
const auto tint = QColor(220, 240, 220);
const auto separator = QColor(200, 100, 50);
const auto chevron = QColor(120, 0, 120);
const auto ring = QColor(255, 0, 0);

struct MenuRowButtonTest : InterfaceFixture {
    MenuRowButtonTest()
    {
        row.setColours({icon, tint, surface, separator, QColor(1, 1, 1), QColor(2, 2, 2), chevron, ring, Qt::blue});
        row.resize(300, 56);
        row.show();
        row.action = [this](MenuRowButton& clicked) { actions.push_back(&clicked); };
    }
    int pixelsOf(const QColor& colour, const QRect& where)
    {
        const auto image = picture(row);
        auto count = 0;
        for (int y = where.top(); y <= where.bottom(); ++y)
            for (int x = where.left(); x <= where.right(); ++x)
                count += image.pixelColor(x, y) == colour;
        return count;
    }

    MenuRowButton row{QStringLiteral("Settings"), QStringLiteral("Customize & behavior"),
                      QStringLiteral("gearshape.circle.fill"), MenuRowButton::Line::above, nullptr};
    std::vector<MenuRowButton*> actions;
};

TEST_F(MenuRowButtonTest, ShowsItsTextsToTheCharacter)
{
    EXPECT_EQ(row.titleLabel().text(), QStringLiteral("Settings"));
    EXPECT_EQ(row.subtitleLabel().text(), QStringLiteral("Customize & behavior"));
    EXPECT_EQ(row.subtitleLabel().textFormat(), Qt::PlainText);
    EXPECT_EQ(row.symbol(), QStringLiteral("gearshape.circle.fill"));
}

TEST_F(MenuRowButtonTest, AnAmpersandIsNoMnemonic)
{
    EXPECT_TRUE(row.shortcut().isEmpty());
    EXPECT_EQ(row.subtitleLabel().buddy(), nullptr);
}

TEST_F(MenuRowButtonTest, StandsAsItWasDrawn)
{
    EXPECT_EQ(row.heightFor(300), 56);
    EXPECT_EQ(row.titleLabel().geometry(), QRect(58, 11, 190, 18));
    EXPECT_EQ(row.subtitleLabel().geometry(), QRect(58, 29, 190, 16));
}

TEST_F(MenuRowButtonTest, TextsHaveTheirSizesWeightsAndColours)
{
    EXPECT_NEAR(pixelSizeOf(row.titleLabel().font()), 13, 0.01);
    EXPECT_EQ(row.titleLabel().font().weight(), QFont::Medium);
    EXPECT_EQ(row.titleLabel().colour(), QColor(1, 1, 1));
    EXPECT_NEAR(pixelSizeOf(row.subtitleLabel().font()), 11, 0.01);
    EXPECT_EQ(row.subtitleLabel().font().weight(), QFont::Normal);
    EXPECT_EQ(row.subtitleLabel().colour(), QColor(2, 2, 2));
}

TEST_F(MenuRowButtonTest, PaintsBadgeSymbolChevronAndLine)
{
    const auto image = picture(row);
    EXPECT_EQ(image.pixelColor(30, 13), tint) << "the upper edge of the badge";
    EXPECT_EQ(image.pixelColor(30, 43), tint) << "its lower edge";
    EXPECT_EQ(image.pixelColor(30, 11), surface);
    EXPECT_EQ(image.pixelColor(14, 12), surface) << "its rounded corner";
    EXPECT_LT(pixelsOf(tint, {20, 18, 20, 20}), 250) << "the symbol covers the most of its square";
    EXPECT_EQ(pixelsOf(tint, {16, 21, 4, 14}), 4 * 14) << "and is 20 wide";
    EXPECT_GT(pixelsOf(icon, {20, 18, 20, 20}), 50);
    EXPECT_LT(pixelsOf(surface, {270, 20, 16, 16}), 16 * 16 - 20) << "the chevron";
    EXPECT_EQ(pixelsOf(surface, {286, 1, 14, 55}), 14 * 55) << "14 from the edge";
    EXPECT_EQ(pixelsOf(separator, {58, 0, 242, 1}), 242) << "from the text to the edge";
    EXPECT_EQ(pixelsOf(separator, {0, 0, 58, 56}), 0);
}

TEST_F(MenuRowButtonTest, TheFirstRowHasNoLine)
{
    MenuRowButton first(QStringLiteral("Activity Log"), QStringLiteral("See your orrinvale activities"),
                        QStringLiteral("leaf.circle.fill"), MenuRowButton::Line::none, nullptr);
    first.setColours(row.colours());
    first.resize(300, 56);
    EXPECT_EQ(picture(first).pixelColor(150, 0), surface);
}

TEST_F(MenuRowButtonTest, OuterCornersOfTheGroupAreRoundedOff)
{
    row.setCornerRadii(0, 12);
    const auto image = picture(row);
    EXPECT_EQ(image.pixelColor(0, 2), surface);
    EXPECT_NE(image.pixelColor(0, 55), surface);
    EXPECT_NE(image.pixelColor(299, 55), surface);
    EXPECT_EQ(image.pixelColor(12, 55), surface);
}

TEST_F(MenuRowButtonTest, HoverReplacesTheSurfaceAndGoesWithThePointer)
{
    EXPECT_EQ(bytes(row.background()), surface);
    pointAt(row);
    EXPECT_EQ(bytes(row.background()), QColor(0, 0, 255, 20));
    pointAway(row);
    EXPECT_EQ(bytes(row.background()), surface);
}

TEST_F(MenuRowButtonTest, PressIsStrongerAndLeavingCancels)
{
    QTest::mousePress(&row, Qt::LeftButton);
    EXPECT_EQ(bytes(row.background()), QColor(0, 0, 255, 41));
    QTest::mouseMove(&row, QPoint(20, 200));
    EXPECT_EQ(bytes(row.background()), surface);
    QTest::mouseRelease(&row, Qt::LeftButton, {}, QPoint(20, 200));
    EXPECT_THAT(actions, IsEmpty());
}

TEST_F(MenuRowButtonTest, ItsActionGetsTheRowWhenTheButtonGoesUpInside)
{
    QTest::mousePress(&row, Qt::LeftButton);
    EXPECT_THAT(actions, IsEmpty());
    QTest::mouseRelease(&row, Qt::LeftButton);
    EXPECT_THAT(actions, ElementsAre(&row));
}

TEST_F(MenuRowButtonTest, ItsTextsLetTheClickThrough)
{
    QTest::mouseClick(row.window()->windowHandle(), Qt::LeftButton, {}, QPoint(80, 20));
    EXPECT_EQ(actions.size(), 1u);
}

TEST_F(MenuRowButtonTest, WithoutAnActionNothingHappens)
{
    row.action = nullptr;
    QTest::mouseClick(&row, Qt::LeftButton);
    QTest::keyClick(&row, Qt::Key_Return);
}

TEST_F(MenuRowButtonTest, SpaceReturnAndEnterAct)
{
    for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter})
        QTest::keyClick(&row, key);
    EXPECT_EQ(actions.size(), 3u);
    QTest::keyClick(&row, Qt::Key_A);
    EXPECT_EQ(actions.size(), 3u);
}

TEST_F(MenuRowButtonTest, TheFocusRingShowsAfterTheKeyboardOnly)
{
    row.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&row));
    row.clearFocus();
    row.setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(row.showsFocusRing());
    EXPECT_EQ(picture(row).pixelColor(4, 28), ring) << "2 wide, 3 inside the edge";
    EXPECT_NE(picture(row).pixelColor(2, 28), ring);
    EXPECT_NE(picture(row).pixelColor(5, 28), ring);
    QTest::mouseClick(&row, Qt::LeftButton);
    EXPECT_FALSE(row.showsFocusRing());
    row.clearFocus();
    row.setFocus(Qt::PopupFocusReason);
    EXPECT_FALSE(row.showsFocusRing());
    QTest::keyClick(&row, Qt::Key_Space);
    EXPECT_TRUE(row.showsFocusRing());
}

TEST_F(MenuRowButtonTest, IsAButtonWithANameAndADescription)
{
    auto* accessible = QAccessible::queryAccessibleInterface(&row);
    EXPECT_EQ(accessible->role(), QAccessible::Button);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Settings"));
    EXPECT_EQ(accessible->text(QAccessible::Description), QStringLiteral("Customize & behavior"));
    accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(QTest::qWaitFor([&] { return actions.size() == 1; }, 2000)) << "it shows as pressed for a moment";
}

TEST_F(MenuRowButtonTest, LargerTextMakesAHigherRowOfWholeFours)
{
    for (const auto scale : {1.0, 1.1, 1.25, 1.5}) {
        row.setScale(scale);
        const auto height = row.heightFor(300);
        row.resize(300, height);
        EXPECT_EQ(height % 4, 0);
        EXPECT_GE(row.titleLabel().y(), 8);
        EXPECT_EQ(row.subtitleLabel().y(), row.titleLabel().geometry().bottom() + 1);
        EXPECT_LE(row.subtitleLabel().geometry().bottom() + 1, height - 8);
        EXPECT_NEAR(pixelSizeOf(row.titleLabel().font()), 13 * scale, 0.01);
    }
}

TEST_F(MenuRowButtonTest, AtOneAndAHalfTheBadgeIsForty)
{
    row.setScale(1.5);
    row.resize(300, row.heightFor(300));
    EXPECT_EQ(row.titleLabel().x(), 14 + 40 + 12);
}

TEST_F(MenuRowButtonTest, ALongSubtitleWrapsBesideTheChevron)
{
    MenuRowButton wordy(QStringLiteral("Title"),
                        QStringLiteral("A subtitle of so many words that one line is too short"),
                        QStringLiteral("leaf.circle.fill"), MenuRowButton::Line::none, nullptr);
    EXPECT_EQ(wordy.heightFor(300), 72);
    wordy.resize(300, 72);
    wordy.show();
    EXPECT_EQ(wordy.subtitleLabel().geometry(), QRect(58, 29, 190, 32));
}

} // namespace

} // namespace orrinvale
