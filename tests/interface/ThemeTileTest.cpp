// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ThemeTile.h"

#include "orrinvale/ActivityPalette.h"
#include "tests/interface/WindowFixture.h"

namespace orrinvale
{

namespace
{

constexpr auto pictureWidth = 108;
constexpr auto room = ThemeTile::room;

struct ThemeTileTest : InterfaceFixture {
    ThemeTile& tile(AppTheme theme)
    {
        made = std::make_unique<ThemeTile>(theme, nullptr);
        auto palette = made->palette();
        palette.setColor(QPalette::Window, WindowPalette::of(Look::light).card);
        made->setPalette(palette);
        made->applyTheme(WindowPalette::of(Look::light));
        made->resize(pictureWidth + 2 * room, made->heightNeeded());
        made->show();
        return *made;
    }
    // Within the picture.
    QColor pixel(int x, int y) { return picture(*made).pixelColor(room + x, room + y); }

    std::unique_ptr<ThemeTile> made;
};

TEST_F(ThemeTileTest, BearsTheNameOfItsTheme)
{
    for (const auto& [theme, name] : {std::pair{AppTheme::light, "Light"}, std::pair{AppTheme::dark, "Dark"},
                                      std::pair{AppTheme::system, "System"}, std::pair{AppTheme::sakura, "Sakura"}}) {
        EXPECT_EQ(tile(theme).text(), QLatin1String(name));
        EXPECT_EQ(tile(theme).accessibleName(), QLatin1String(name) + QStringLiteral(" theme"));
        EXPECT_EQ(tile(theme).theme(), theme);
    }
}

TEST_F(ThemeTileTest, StandsAsItWasDrawn)
{
    EXPECT_EQ(tile(AppTheme::light).pictureRect(), QRect(room, room, 108, 68));
    EXPECT_EQ(made->heightNeeded(), room + 68 + 8 + 15 + room);
    EXPECT_EQ(made->cursor().shape(), Qt::PointingHandCursor);
}

struct Miniature {
    AppTheme theme;
    Look look;
    QRgb frame;
};

TEST_F(ThemeTileTest, IsALittleWindowInItsThemesOwnColours)
{
    for (const auto& [theme, look, frame] :
         {Miniature{AppTheme::light, Look::light, 0xd4d4d4}, Miniature{AppTheme::dark, Look::dark, 0x474747},
          Miniature{AppTheme::sakura, Look::sakura, 0xe6c9d4}}) {
        tile(theme);
        const auto& colours = WindowPalette::of(look);
        EXPECT_TRUE(isNearly(pixel(54, 0), QColor(frame)));
        EXPECT_TRUE(isNearly(pixel(0, 40), QColor(frame)));
        EXPECT_TRUE(isNearly(pixel(54, 4), colours.card));
        EXPECT_TRUE(isNearly(pixel(54, 13), colours.card));
        EXPECT_TRUE(isNearly(pixel(54, 15), blended(colours.window, withAlpha(colours.accent, 0.8)), 3));
        EXPECT_TRUE(isNearly(pixel(54, 19), colours.window));
        EXPECT_TRUE(isNearly(pixel(20, 7), blended(colours.card, withAlpha(colours.primaryText, 0.85)), 2));
        EXPECT_TRUE(isNearly(pixel(94, 8), blended(colours.card, withAlpha(colours.primaryText, 0.25)), 2));
        EXPECT_TRUE(isNearly(pixel(54, 26), colours.card));
        EXPECT_TRUE(isNearly(pixel(4, 40), colours.window));
        EXPECT_TRUE(isNearly(pixel(54, 64), colours.window));
    }
}

TEST_F(ThemeTileTest, SystemIsHalfLightAndHalfDarkAlongASlant)
{
    tile(AppTheme::system);
    EXPECT_TRUE(isNearly(pixel(54, 0), QColor(0x8f, 0x8f, 0x8f)));
    EXPECT_TRUE(isNearly(pixel(60, 4), WindowPalette::of(Look::light).card));
    EXPECT_TRUE(isNearly(pixel(72, 4), WindowPalette::of(Look::dark).card));
    EXPECT_TRUE(isNearly(pixel(38, 64), WindowPalette::of(Look::light).window));
    EXPECT_TRUE(isNearly(pixel(46, 64), WindowPalette::of(Look::dark).window));
}

TEST_F(ThemeTileTest, ShowsEveryLevelOfItsTheme)
{
    tile(AppTheme::dark);
    const auto image = picture(*made);
    for (const auto& level : ActivityPalette::of(true, false).levels) {
        int found = 0;
        for (int y = room + 30; y < room + 56; ++y)
            for (int x = room + 10; x < room + 98; ++x)
                found += isNearly(image.pixelColor(x, y), level) ? 1 : 0;
        EXPECT_GT(found, 9) << level.name().toStdString();
    }
}

TEST_F(ThemeTileTest, TheChosenOneHasARingAndAStrongName)
{
    for (const auto look : allLooks) {
        const auto& colours = WindowPalette::of(look);
        tile(AppTheme::light).applyTheme(colours);
        EXPECT_FALSE(isNearly(pixel(54, -4), colours.focusRing));
        made->setChosen(true);
        EXPECT_TRUE(made->isChosen());
        EXPECT_TRUE(made->isChecked());
        EXPECT_TRUE(isNearly(pixel(54, -4), colours.focusRing));
        EXPECT_TRUE(isNearly(pixel(54, -3), colours.focusRing));
        EXPECT_FALSE(isNearly(pixel(54, -2), colours.focusRing));
        EXPECT_FALSE(isNearly(pixel(54, -5), colours.focusRing));
        EXPECT_TRUE(isNearly(pixel(pictureWidth + 3, 34), colours.focusRing));
        made->setChosen(false);
        EXPECT_FALSE(made->isChosen());
        EXPECT_FALSE(isNearly(pixel(54, -4), colours.focusRing));
    }
}

TEST_F(ThemeTileTest, AClickAloneDoesNotChooseIt)
{
    QTest::mouseClick(&tile(AppTheme::light), Qt::LeftButton);
    EXPECT_FALSE(made->isChecked());
    EXPECT_FALSE(made->isChosen());
}

TEST_F(ThemeTileTest, ThePointerBringsAQuietRing)
{
    tile(AppTheme::light);
    pointAt(*made);
    EXPECT_TRUE(isNearly(pixel(54, -4), WindowPalette::of(Look::light).border));
    made->setChosen(true);
    EXPECT_TRUE(isNearly(pixel(54, -4), WindowPalette::of(Look::light).focusRing));
    made->setChosen(false);
    pointAway(*made);
    EXPECT_FALSE(isNearly(pixel(54, -4), WindowPalette::of(Look::light).border));
}

TEST_F(ThemeTileTest, TheFocusRingIsAroundPictureAndName)
{
    tile(AppTheme::light).setChosen(true);
    ASSERT_TRUE(QTest::qWaitForWindowActive(made.get()));
    made->clearFocus();
    made->setFocus(Qt::TabFocusReason);
    const auto ring = WindowPalette::of(Look::light).focusRing;
    const auto image = picture(*made);
    EXPECT_TRUE(isNearly(image.pixelColor(60, 0), ring));
    EXPECT_TRUE(isNearly(image.pixelColor(60, made->height() - 1), ring));
    EXPECT_TRUE(isNearly(image.pixelColor(0, 60), ring));
}

TEST_F(ThemeTileTest, TheKeyboardReachesTheChosenOneAlone)
{
    tile(AppTheme::light).setChosen(true);
    EXPECT_TRUE(made->focusPolicy() & Qt::TabFocus);
    made->setChosen(false);
    EXPECT_FALSE(made->focusPolicy() & Qt::TabFocus);
}

TEST_F(ThemeTileTest, KeepsItsPictureWithLargerText)
{
    const LargerText larger(1.5);
    EXPECT_EQ(tile(AppTheme::light).pictureRect().size(), QSize(108, 68));
    EXPECT_EQ(made->heightNeeded(), room + 68 + 8 + 23 + room);
}

} // namespace

} // namespace orrinvale
