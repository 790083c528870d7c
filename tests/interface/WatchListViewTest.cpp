// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/WatchListView.h"

#include "kit/FocusRing.h"
#include "kit/WindowButton.h"
#include "orrinvale/WatchListRow.h"
#include "tests/interface/WindowFixture.h"

#include <fmt/format.h>

namespace orrinvale
{

namespace
{

struct WatchListViewTest : InterfaceFixture {
    WatchListViewTest()
    {
        window.resize(500, 600);
        view = new WatchListView(
            [this](const std::string& bundleID) {
                icons.push_back(bundleID);
                return new QWidget;
            },
            &window);
        view->onHeightChange = [this] { ++heightChanges; };
        view->onDelete = [this](const UUID& id) {
            deleted.push_back(id);
            std::erase_if(processes, [&](const auto& process) { return process.id == id; });
            view->setProcesses(processes);
        };
        dress(Look::light);
        window.show();
    }
    void dress(Look look)
    {
        auto palette = window.palette();
        palette.setColor(QPalette::Window, WindowPalette::of(look).card);
        window.setPalette(palette);
        view->applyTheme(WindowPalette::of(look));
        fit();
    }
    void fit() { view->setGeometry(0, 0, 498, view->heightFor(498)); }
    void watch(const std::vector<std::string>& labels)
    {
        processes.clear();
        for (const auto& label : labels)
            processes.push_back({UUID::random(), "org.example.Same", label, 3});
        view->setProcesses(processes);
        fit();
    }
    QStringList labels() const
    {
        QStringList texts;
        for (const auto* row : view->rows())
            texts << row->labelLabel().text();
        return texts;
    }
    WindowButton& deleteButton(std::size_t row) { return view->rows()[row]->deleteButton(); }
    void press(WindowButton& button)
    {
        QTest::mouseClick(&button, Qt::LeftButton, {}, middleOf(button));
        settle();
    }
    QRect addPlace() const { return shownRect(view->addButton()).translated(view->addButton().pos()); }
    static QStringList list(std::initializer_list<const char*> texts)
    {
        QStringList result;
        for (const auto* text : texts)
            result << QString::fromUtf8(text);
        return result;
    }

    QWidget window;
    WatchListView* view;
    std::vector<CustomProcess> processes;
    std::vector<std::string> icons;
    std::vector<UUID> deleted;
    int heightChanges = 0;
};

TEST_F(WatchListViewTest, AnEmptyListSaysSoAndHowToFillIt)
{
    view->setProcesses({});
    fit();
    EXPECT_TRUE(view->emptyLabel().isVisible());
    EXPECT_TRUE(view->hintLabel().isVisible());
    EXPECT_EQ(view->emptyLabel().text(), QStringLiteral("No custom apps yet"));
    EXPECT_EQ(view->hintLabel().text(), QStringLiteral("Tap \"Add App\""));
    EXPECT_EQ(view->hintLabel().text().size(), 13);
    EXPECT_NEAR(view->hintLabel().opacity(), 0.7, 1e-9);
    EXPECT_EQ(view->addButton().accessibleName(), QStringLiteral("Add App…"));
    EXPECT_EQ(view->addButton().symbol(), QStringLiteral("plus"));
}

TEST_F(WatchListViewTest, AnEmptyListStandsAsItWasDrawn)
{
    view->setProcesses({});
    fit();
    EXPECT_EQ(view->emptyLabel().geometry(), QRect(0, 20, 498, 17));
    EXPECT_EQ(view->hintLabel().geometry(), QRect(0, 41, 498, 15));
    EXPECT_EQ(view->height(), 20 + 17 + 4 + 15 + 20 + 1 + 48);
    EXPECT_EQ(addPlace().topLeft(), QPoint(16, 76 + 1 + 10));
    EXPECT_EQ(addPlace().height(), 28);
}

TEST_F(WatchListViewTest, RowsComeInTheListsOrderWithTheirIcons)
{
    watch({"Zoom active", "Amber", "Zoom active"});
    EXPECT_EQ(labels(), list({"Zoom active", "Amber", "Zoom active"}));
    EXPECT_EQ(icons.size(), 3u);
    EXPECT_EQ(icons[0], "org.example.Same");
    EXPECT_FALSE(view->emptyLabel().isVisible());
    EXPECT_FALSE(view->hintLabel().isVisible());
}

TEST_F(WatchListViewTest, RowsStandAsTheyWereDrawn)
{
    watch({"One", "Two"});
    EXPECT_EQ(view->rows()[0]->geometry(), QRect(0, 0, 498, 48));
    EXPECT_EQ(view->rows()[1]->geometry(), QRect(0, 49, 498, 48));
    EXPECT_EQ(view->height(), 48 + 1 + 48 + 1 + 48);
    EXPECT_EQ(addPlace().topLeft(), QPoint(16, 98 + 10));
    EXPECT_TRUE(view->rows()[0]->isVisible());
}

TEST_F(WatchListViewTest, HairlinesLieBetweenTheRowsAndAboveTheButton)
{
    watch({"One", "Two"});
    for (const auto look : allLooks) {
        dress(look);
        const auto& colours = WindowPalette::of(look);
        const auto image = window.grab().toImage();
        EXPECT_TRUE(isNearly(image.pixelColor(30, 48), colours.card));
        EXPECT_TRUE(isNearly(image.pixelColor(56, 48), colours.border));
        EXPECT_TRUE(isNearly(image.pixelColor(497, 48), colours.border));
        EXPECT_TRUE(isNearly(image.pixelColor(0, 97), colours.border));
        EXPECT_TRUE(isNearly(image.pixelColor(497, 97), colours.border));
        EXPECT_TRUE(isNearly(image.pixelColor(300, 96), colours.card));
    }
}

TEST_F(WatchListViewTest, TextsHaveTheirSizesWeightsAndColours)
{
    for (const auto look : allLooks) {
        dress(look);
        expectText(view->emptyLabel(), {12, QFont::Medium}, WindowPalette::of(look).primaryText);
        expectText(view->hintLabel(), {11, QFont::Normal}, WindowPalette::of(look).primaryText);
        EXPECT_EQ(bytes(view->addButton().ground()), bytes(WindowPalette::of(look).button));
        // At 70 % it can still be read.
        const auto faded = blended(WindowPalette::of(look).card, withAlpha(WindowPalette::of(look).primaryText, 0.7));
        EXPECT_GE(contrastRatio(faded, WindowPalette::of(look).card), 4.6);
    }
}

TEST_F(WatchListViewTest, AThemeReachesRowsThatAreThereAndThoseToCome)
{
    watch({"One"});
    dress(Look::dark);
    EXPECT_EQ(bytes(view->rows()[0]->labelLabel().colour()), bytes(WindowPalette::of(Look::dark).primaryText));
    watch({"One", "Two"});
    EXPECT_EQ(bytes(view->rows()[1]->labelLabel().colour()), bytes(WindowPalette::of(Look::dark).primaryText));
}

TEST_F(WatchListViewTest, DeletingTellsWhichRowEvenAmongEqualApplications)
{
    watch({"One", "Two", "Three"});
    const auto second = processes[1].id;
    press(deleteButton(1));
    EXPECT_THAT(deleted, ElementsAre(second));
    EXPECT_EQ(labels(), list({"One", "Three"}));
}

TEST_F(WatchListViewTest, AfterDeletingTheFocusGoesToTheNextRowElseToTheAddButton)
{
    watch({"One", "Two", "Three"});
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    deleteButton(1).setFocus(Qt::TabFocusReason);
    QTest::keyClick(&deleteButton(1), Qt::Key_Return);
    settle();
    EXPECT_EQ(labels(), list({"One", "Three"}));
    EXPECT_TRUE(deleteButton(1).hasFocus());
    EXPECT_TRUE(deleteButton(1).showsFocusRing());
    QTest::keyClick(&deleteButton(1), Qt::Key_Space);
    settle();
    EXPECT_TRUE(view->addButton().hasFocus());
    EXPECT_TRUE(view->addButton().showsFocusRing());
}

TEST_F(WatchListViewTest, DeletingWithTheMouseMovesTheFocusWithoutARing)
{
    watch({"One", "Two"});
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    press(deleteButton(0));
    EXPECT_TRUE(deleteButton(0).hasFocus());
    EXPECT_FALSE(deleteButton(0).showsFocusRing());
    press(deleteButton(0));
    EXPECT_TRUE(view->addButton().hasFocus());
    EXPECT_FALSE(view->addButton().showsFocusRing());
}

TEST_F(WatchListViewTest, TheDeleteKeyRemovesTheRowOfItsButton)
{
    watch({"One", "Two"});
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    deleteButton(0).setFocus(Qt::TabFocusReason);
    QTest::keyClick(&deleteButton(0), Qt::Key_Delete);
    settle();
    EXPECT_EQ(labels(), list({"Two"}));
    EXPECT_TRUE(deleteButton(0).hasFocus());
}

TEST_F(WatchListViewTest, AHeldKeyDeletesOneRow)
{
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Delete}) {
        watch({"One", "Two", "Three", "Four"});
        deleteButton(1).setFocus(Qt::TabFocusReason);
        hold(key);
        EXPECT_EQ(labels(), list({"One", "Three", "Four"})) << key;
    }
}

TEST_F(WatchListViewTest, ADoubleOrTripleClickDeletesOneRowAndTheNextClickAnother)
{
    for (const auto clicks : {1, 2, 3}) {
        watch({"One", "Two", "Three", "Four"});
        const auto place = deleteButton(1).mapTo(&window, middleOf(deleteButton(1)));
        clickQuickly(window, place, clicks);
        EXPECT_EQ(labels(), list({"One", "Three", "Four"})) << clicks;
        clickQuickly(window, place, 1);
        EXPECT_EQ(labels(), list({"One", "Four"})) << clicks;
    }
}

TEST_F(WatchListViewTest, QuickClicksOnTwoRowsDeleteBoth)
{
    watch({"One", "Two", "Three"});
    clickQuickly(window, deleteButton(2).mapTo(&window, middleOf(deleteButton(2))), 1);
    QTest::lastMouseTimestamp -= 1000;
    clickQuickly(window, deleteButton(0).mapTo(&window, middleOf(deleteButton(0))), 1);
    EXPECT_EQ(labels(), list({"Two"}));
}

TEST_F(WatchListViewTest, TheTabKeyGoesFromRowToRowAndToTheAddButton)
{
    QWidget behind(&window);
    behind.setFocusPolicy(Qt::StrongFocus);
    behind.show();
    watch({"One", "Two"});
    watch({"One", "Two", "Three"});
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    deleteButton(0).setFocus(Qt::TabFocusReason);
    for (const auto* next : std::initializer_list<const QWidget*>{&deleteButton(1), &deleteButton(2),
                                                                  &view->addButton(), &behind, &deleteButton(0)}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_TRUE(next->hasFocus()) << next->accessibleName().toStdString();
    }
}

TEST_F(WatchListViewTest, AnUnchangedListLeavesRowsAndFocusAlone)
{
    watch({"One", "Two"});
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    deleteButton(1).setFocus(Qt::TabFocusReason);
    const auto rows = view->rows();
    const auto changes = heightChanges;
    view->setProcesses(processes);
    EXPECT_EQ(view->rows(), rows);
    EXPECT_TRUE(deleteButton(1).hasFocus());
    EXPECT_EQ(heightChanges, changes);
}

TEST_F(WatchListViewTest, SaysWhenItNeedsAnotherHeight)
{
    watch({"One"});
    const auto before = heightChanges;
    watch({"One", "Two"});
    EXPECT_EQ(heightChanges, before + 1);
}

TEST_F(WatchListViewTest, AListOfAnyLengthComesAndGoes)
{
    std::vector<std::string> many;
    for (int i = 0; i < 50; ++i)
        many.push_back(fmt::format("App {}", i));
    watch(many);
    EXPECT_EQ(view->rows().size(), 50u);
    watch({});
    settle();
    EXPECT_EQ(view->findChildren<WatchListRow*>().size(), 0);
    EXPECT_TRUE(view->emptyLabel().isVisible());
}

TEST_F(WatchListViewTest, LargerTextIsWhole)
{
    const LargerText larger(1.5);
    view->setProcesses({});
    dress(Look::light);
    expectWhole(view->emptyLabel(), 26);
    expectWhole(view->hintLabel(), 23);
    EXPECT_GT(view->hintLabel().y(), view->emptyLabel().geometry().bottom());
    EXPECT_GT(addPlace().top(), view->hintLabel().geometry().bottom());
    EXPECT_LT(addPlace().bottom(), view->height());
    EXPECT_EQ(addPlace().size(), view->addButton().shownSize());
    watch({"One", "Two"});
    EXPECT_GT(view->rows()[1]->y(), view->rows()[0]->geometry().bottom());
    EXPECT_GT(addPlace().top(), view->rows()[1]->geometry().bottom());
}

} // namespace

} // namespace orrinvale
