// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ThemeTiles.h"

#include "kit/WindowText.h"
#include "orrinvale/RowText.h"
#include "orrinvale/ThemeTile.h"
#include "tests/interface/WindowFixture.h"

#include <QAccessible>
#include <QFontMetricsF>

namespace orrinvale
{

namespace
{

constexpr auto room = ThemeTile::room;

struct ThemeTilesTest : InterfaceFixture {
    ThemeTilesTest()
    {
        tiles = new ThemeTiles(&window);
        tiles->choose(AppTheme::light);
        tiles->onChoose = [this](AppTheme theme) { chosen.push_back(theme); };
        before = new QWidget(&window);
        after = new QWidget(&window);
        for (auto* other : {before, after})
            other->setFocusPolicy(Qt::StrongFocus);
        QWidget::setTabOrder(before, tiles->tiles()[0]);
        for (std::size_t i = 1; i < 4; ++i)
            QWidget::setTabOrder(tiles->tiles()[i - 1], tiles->tiles()[i]);
        QWidget::setTabOrder(tiles->tiles()[3], after);
        show(498);
    }
    void show(int width)
    {
        window.resize(width, 300);
        tiles->applyTheme(WindowPalette::of(Look::light));
        tiles->setGeometry(0, 0, width, tiles->heightFor(width));
        window.show();
    }
    QRect picturePlace(std::size_t i) const
    {
        return tiles->tiles()[i]->pictureRect().translated(tiles->tiles()[i]->pos());
    }
    ThemeTile& focusTile(std::size_t i)
    {
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        tiles->tiles()[i]->setFocus(Qt::TabFocusReason);
        return *tiles->tiles()[i];
    }
    static void key(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    std::vector<AppTheme> checked() const
    {
        std::vector<AppTheme> themes;
        for (const auto* tile : tiles->tiles())
            if (tile->isChosen() && tile->isChecked())
                themes.push_back(tile->theme());
        return themes;
    }

    QWidget window;
    ThemeTiles* tiles;
    QWidget* before;
    QWidget* after;
    std::vector<AppTheme> chosen;
};

TEST_F(ThemeTilesTest, ShowsTheFourThemesInTheirOrder)
{
    EXPECT_EQ(tiles->text().titleLabel().text(), QStringLiteral("Theme"));
    EXPECT_EQ(tiles->text().subtitleLabel().text(), QStringLiteral("Set the app's appearance"));
    QStringList names;
    for (const auto* tile : tiles->tiles())
        names << tile->text();
    EXPECT_EQ(names, (QStringList{QStringLiteral("Light"), QStringLiteral("Dark"), QStringLiteral("System"),
                                  QStringLiteral("Sakura")}));
}

TEST_F(ThemeTilesTest, StandsAsItWasDrawn)
{
    EXPECT_EQ(tiles->height() + 2, 164); // with the card's outline
    EXPECT_EQ(tiles->text().geometry().topLeft(), QPoint(16, 12));
    EXPECT_EQ(picturePlace(0), QRect(16, 59, 108, 68));
    EXPECT_EQ(picturePlace(1), QRect(16 + 120, 59, 108, 68));
    EXPECT_EQ(picturePlace(3), QRect(16 + 360, 59, 108, 68));
}

TEST_F(ThemeTilesTest, TilesShareTheWidthUpToALimit)
{
    show(418); // in the smallest window
    EXPECT_EQ(picturePlace(0).width(), 88);
    EXPECT_EQ(picturePlace(3).left(), 16 + 3 * 100);
    show(1400);
    EXPECT_EQ(picturePlace(0).width(), 148);
    EXPECT_EQ(picturePlace(3).left(), 16 + 3 * 160);
}

TEST_F(ThemeTilesTest, OneTileIsChosen)
{
    EXPECT_THAT(checked(), ElementsAre(AppTheme::light));
    for (const auto theme : {AppTheme::sakura, AppTheme::dark, AppTheme::system, AppTheme::light}) {
        tiles->choose(theme);
        EXPECT_THAT(checked(), ElementsAre(theme));
    }
    EXPECT_THAT(chosen, IsEmpty());
}

TEST_F(ThemeTilesTest, AClickChooses)
{
    for (const auto i : {3u, 1u, 0u, 2u})
        QTest::mouseClick(tiles->tiles()[i], Qt::LeftButton, {}, middleOf(*tiles->tiles()[i]));
    EXPECT_THAT(chosen, ElementsAre(AppTheme::sakura, AppTheme::dark, AppTheme::light, AppTheme::system));
    EXPECT_THAT(checked(), ElementsAre(AppTheme::system));
}

TEST_F(ThemeTilesTest, AClickOnTheChosenOneAppliesItAgain)
{
    QTest::mouseClick(tiles->tiles()[0], Qt::LeftButton, {}, middleOf(*tiles->tiles()[0]));
    EXPECT_THAT(chosen, ElementsAre(AppTheme::light));
    EXPECT_THAT(checked(), ElementsAre(AppTheme::light));
}

TEST_F(ThemeTilesTest, AssistiveTechnologyCanChoose)
{
    for (const auto i : {2u, 0u, 3u}) {
        auto* tile = QAccessible::queryAccessibleInterface(tiles->tiles()[i]);
        EXPECT_EQ(tile->role(), QAccessible::RadioButton);
        ASSERT_THAT(tile->actionInterface()->actionNames(),
                    testing::Contains(QAccessibleActionInterface::toggleAction()));
        tile->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        EXPECT_THAT(checked(), ElementsAre(allAppThemes[i]));
    }
    EXPECT_THAT(chosen, ElementsAre(AppTheme::system, AppTheme::light, AppTheme::sakura));
    auto* actions = QAccessible::queryAccessibleInterface(tiles->tiles()[3])->actionInterface();
    actions->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_THAT(checked(), ElementsAre(AppTheme::sakura)) << "one is always chosen";
}

TEST_F(ThemeTilesTest, ArrowsChooseAndTheFocusGoesAlong)
{
    focusTile(0);
    key(Qt::Key_Right);
    EXPECT_TRUE(tiles->tiles()[1]->hasFocus());
    EXPECT_TRUE(tiles->tiles()[1]->showsFocusRing());
    EXPECT_THAT(checked(), ElementsAre(AppTheme::dark));
    key(Qt::Key_Down);
    key(Qt::Key_Right);
    key(Qt::Key_Right); // nothing is there
    key(Qt::Key_Left);
    key(Qt::Key_Up);
    key(Qt::Key_Home);
    key(Qt::Key_Left);
    key(Qt::Key_End);
    EXPECT_THAT(chosen, ElementsAre(AppTheme::dark, AppTheme::system, AppTheme::sakura, AppTheme::system,
                                    AppTheme::dark, AppTheme::light, AppTheme::sakura));
    EXPECT_THAT(checked(), ElementsAre(AppTheme::sakura));
    EXPECT_TRUE(tiles->tiles()[3]->hasFocus());
}

TEST_F(ThemeTilesTest, AreOneStopOfTheTabKey)
{
    focusTile(0);
    key(Qt::Key_Right);
    key(Qt::Key_Tab);
    EXPECT_TRUE(after->hasFocus());
    key(Qt::Key_Backtab);
    EXPECT_TRUE(tiles->tiles()[1]->hasFocus());
    key(Qt::Key_Backtab);
    EXPECT_TRUE(before->hasFocus());
    key(Qt::Key_Tab);
    EXPECT_TRUE(tiles->tiles()[1]->hasFocus());
}

TEST_F(ThemeTilesTest, OtherKeysAreLeftToTheWindow)
{
    focusTile(0);
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, {});
    QApplication::sendEvent(tiles, &escape);
    EXPECT_FALSE(escape.isAccepted());
}

TEST_F(ThemeTilesTest, LargerTextIsWholeAndTheTilesKeepTheirSize)
{
    const LargerText larger(1.5);
    show(418);
    expectWhole(tiles->text().titleLabel(), 27);
    expectWhole(tiles->text().subtitleLabel(), 23);
    EXPECT_EQ(picturePlace(0).size(), QSize(88, 68));
    EXPECT_GT(picturePlace(0).top(), tiles->text().geometry().bottom());
    EXPECT_LE(tiles->tiles()[0]->geometry().bottom() - room, tiles->height());
    const QFontMetricsF metrics(windowText::strongSubtitle.font());
    for (const auto* tile : tiles->tiles())
        EXPECT_LT(metrics.horizontalAdvance(tile->text()), tile->width());
}

} // namespace

} // namespace orrinvale
