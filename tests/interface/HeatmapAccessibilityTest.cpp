// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/HeatmapAccessibility.h"

#include "base/Timestamp.h"
#include "orrinvale/HeatmapView.h"
#include "tests/interface/WindowFixture.h"

#include <QAccessible>

namespace orrinvale
{

namespace
{

struct HeatmapAccessibilityTest : InterfaceFixture {
    HeatmapAccessibilityTest()
    {
        time.setWallClock(timestampFromText("2026-10-28T15:00:00Z").value());
        view = std::make_unique<HeatmapView>(time, english, nullptr);
        view->resize(600, 196);
        view->onSelectDay = [this](Instant date) {
            selected.push_back(english.dateKey(date));
            view->setSelectedDate(date);
        };
        view->setEntries({{UUID::random(), time.now(), "m", PersistedStateCategory::awake}});
        picture(*view);
    }
    QAccessibleInterface* heatmap() { return QAccessible::queryAccessibleInterface(view.get()); }
    QAccessibleInterface* day(int index) { return heatmap()->child(index); }
    QAccessibleInterface* today() { return day(heatmap()->childCount() - 1); }

    LocalCalendar english{"UTC", "en_US"};
    std::unique_ptr<HeatmapView> view;
    std::vector<std::string> selected;
};

TEST_F(HeatmapAccessibilityTest, EachDayIsAChildNamedLikeItsTooltip)
{
    EXPECT_EQ(heatmap()->text(QAccessible::Name), QStringLiteral("Activity"));
    EXPECT_EQ(heatmap()->role(), QAccessible::Table);
    ASSERT_EQ(heatmap()->childCount(), static_cast<int>(view->cellRects().size()));
    for (int i = 0; i < heatmap()->childCount(); ++i) {
        const auto& cell = view->cellRects()[static_cast<std::size_t>(i)];
        ASSERT_NE(day(i), nullptr);
        EXPECT_EQ(day(i)->role(), QAccessible::Cell);
        EXPECT_EQ(day(i)->text(QAccessible::Name), view->tooltipOf(cell));
        EXPECT_EQ(day(i)->parent(), heatmap());
        EXPECT_EQ(heatmap()->indexOfChild(day(i)), i);
    }
    EXPECT_EQ(today()->text(QAccessible::Name), QStringLiteral("Oct 28, 2026 — 1 active period"));
    EXPECT_EQ(day(0)->text(QAccessible::Name), QStringLiteral("Jul 5, 2026 — No activity"));
}

TEST_F(HeatmapAccessibilityTest, EachDayIsWhereItIsPainted)
{
    for (const auto index : {0, 57, 115}) {
        const auto cell = view->cellOnScreen(view->cellRects()[static_cast<std::size_t>(index)]).toRect();
        const QRect onScreen(view->mapToGlobal(cell.topLeft()), cell.size());
        EXPECT_EQ(day(index)->rect(), onScreen);
        EXPECT_EQ(heatmap()->childAt(onScreen.center().x(), onScreen.center().y()), day(index));
    }
    EXPECT_EQ(heatmap()->childAt(-500, -500), nullptr);
}

TEST_F(HeatmapAccessibilityTest, TheSelectedDaySaysSo)
{
    EXPECT_TRUE(today()->state().selected);
    EXPECT_TRUE(today()->state().selectable);
    EXPECT_FALSE(day(3)->state().selected);
    view->setSelectedDate(view->cellRects()[3].day.date);
    EXPECT_FALSE(today()->state().selected);
    EXPECT_TRUE(day(3)->state().selected);
}

TEST_F(HeatmapAccessibilityTest, ItsActionSelectsTheDay)
{
    auto* action = day(3)->actionInterface();
    ASSERT_NE(action, nullptr);
    EXPECT_EQ(action->actionNames(), QStringList{QAccessibleActionInterface::pressAction()});
    action->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_THAT(selected, ElementsAre("2026-07-08"));
    EXPECT_TRUE(day(3)->state().selected);
    action->doAction(QStringLiteral("no such action"));
    EXPECT_EQ(selected.size(), 1u);
}

TEST_F(HeatmapAccessibilityTest, NamesFollowTheLog)
{
    auto* last = today();
    view->setEntries({});
    picture(*view);
    EXPECT_EQ(last->text(QAccessible::Name), QStringLiteral("Oct 28, 2026 — No activity"));
}

TEST_F(HeatmapAccessibilityTest, ADayThatIsNoLongerDrawnIsInvalid)
{
    auto* last = today();
    time.setWallClock(timestampFromText("2026-10-25T15:00:00Z").value());
    picture(*view);
    EXPECT_FALSE(last->isValid());
    EXPECT_EQ(last->text(QAccessible::Name), QString());
    EXPECT_EQ(last->rect(), QRect());
    EXPECT_EQ(heatmap()->child(heatmap()->childCount()), nullptr);
    EXPECT_EQ(heatmap()->child(-1), nullptr);
}

TEST_F(HeatmapAccessibilityTest, OtherWidgetsKeepTheirOwnInterfaces)
{
    QWidget other;
    other.setAccessibleName(QStringLiteral("Other"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&other)->childCount(), 0);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&other)->text(QAccessible::Name), QStringLiteral("Other"));
}

TEST_F(HeatmapAccessibilityTest, MayGoWithItsDays)
{
    heatmap();
    day(5);
    view.reset();
    settle();
}

} // namespace

} // namespace orrinvale
