// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/Panels.h"

#include "tests/platform/ScriptedService.h"

#include <QDBusConnection>

#include <gtest/gtest.h>

#include <ostream>

inline void PrintTo(const QRect& rect, std::ostream* out)
{
    *out << '(' << rect.x() << ", " << rect.y() << ' ' << rect.width() << 'x' << rect.height() << ')';
}

namespace orrinvale
{

namespace
{

constexpr QSize desktop(2304, 800);
constexpr QRect left(0, 0, 1280, 800);
constexpr QRect right(1280, 0, 1024, 768); // lower than the desktop

QRect rest(const QRect& screen, std::initializer_list<PanelStrut> struts)
{
    return partWithoutStruts(screen, desktop, {struts.begin(), struts.size()});
}

TEST(Panels, WhereThereIsNoneTheScreenIsWhole)
{
    EXPECT_EQ(rest(left, {}), left);
    EXPECT_EQ(rest(left, {PanelStrut{}}), left);
}

TEST(Panels, EachEdgeIsTakenFromTheScreenItLiesOn)
{
    const PanelStrut top{0, 0, 28, 0, 0, 0, 0, 0, 1280, 2303, 0, 0};
    EXPECT_EQ(rest(right, {top}), QRect(1280, 28, 1024, 740));
    EXPECT_EQ(rest(left, {top}), left);
    const PanelStrut bottom{0, 0, 0, 40, 0, 0, 0, 0, 0, 0, 0, 1279};
    EXPECT_EQ(rest(left, {bottom}), QRect(0, 0, 1280, 760));
    EXPECT_EQ(rest(right, {bottom}), right);
    const PanelStrut side{60, 0, 0, 0, 0, 799, 0, 0, 0, 0, 0, 0};
    EXPECT_EQ(rest(left, {side}), QRect(60, 0, 1220, 800));
    const PanelStrut farSide{0, 50, 0, 0, 0, 0, 0, 767, 0, 0, 0, 0};
    EXPECT_EQ(rest(right, {farSide}), QRect(1280, 0, 974, 768));
}

TEST(Panels, TheLowerEdgeOfALowerScreenCountsFromThatOfTheDesktop)
{
    const PanelStrut bottom{0, 0, 0, 32 + 28, 0, 0, 0, 0, 0, 0, 1280, 2303};
    EXPECT_EQ(rest(right, {bottom}), QRect(1280, 0, 1024, 740));
}

TEST(Panels, SeveralAddUp)
{
    EXPECT_EQ(rest(left, {{0, 0, 28, 0, 0, 0, 0, 0, 0, 1279, 0, 0},
                          {0, 0, 20, 0, 0, 0, 0, 0, 0, 1279, 0, 0},
                          {0, 0, 0, 40, 0, 0, 0, 0, 0, 0, 0, 1279}}),
              QRect(0, 28, 1280, 732));
}

TEST(Panels, OneOnTheEdgeBetweenTwoScreensIsNotTakenFromTheOther)
{
    const PanelStrut between{1280 + 60, 0, 0, 0, 0, 767, 0, 0, 0, 0, 0, 0}; // on the left of the right one
    EXPECT_EQ(rest(right, {between}), QRect(1340, 0, 964, 768));
    EXPECT_EQ(rest(left, {between}), left);
}

TEST(Panels, NonsenseTakesNothing)
{
    constexpr auto most = 0xFFFFFFFFU;
    EXPECT_EQ(rest(left, {{most, most, most, most, 0, most, 0, most, 0, most, 0, most}}), left);
    EXPECT_EQ(rest(left, {{0, 0, 700, 0, 0, 0, 0, 0, 0, 1279, 0, 0}}), left) << "more than half of it";
    EXPECT_EQ(rest(left, {{0, 0, 28, 0, 0, 0, 0, 0, 500, 10, 0, 0}}), left) << "from right to left";
}

QRect onPlasma(const char* name)
{
    return partWithoutPlasmaPanels(QDBusConnection::sessionBus(), QString::fromLatin1(name), left);
}

TEST(PlasmaPanels, TheirDesktopTellsWhatTheyLeave)
{
    const ScriptedService plasma(QStringLiteral(PLASMA_PANELS), {});
    EXPECT_EQ(onPlasma("below"), QRect(0, 0, 1280, 756));
    EXPECT_EQ(onPlasma("left"), QRect(48, 0, 1232, 800));
}

TEST(PlasmaPanels, WhereItTellsNothingOrNonsenseTheScreenIsWhole)
{
    EXPECT_EQ(onPlasma("below"), left) << "no Plasma";
    const ScriptedService plasma(QStringLiteral(PLASMA_PANELS), {});
    EXPECT_EQ(onPlasma("unknown"), left);
    EXPECT_EQ(onPlasma("tiny"), left);
    EXPECT_EQ(onPlasma("elsewhere"), left);
}

} // namespace

} // namespace orrinvale
