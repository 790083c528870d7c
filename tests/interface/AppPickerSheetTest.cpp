// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/AppPickerSheet.h"

#include "kit/FocusRing.h"
#include "kit/OverlayThumb.h"
#include "kit/TextField.h"
#include "kit/TextLabel.h"
#include "kit/Typography.h"
#include "kit/WindowButton.h"
#include "orrinvale/AppPickerList.h"
#include "orrinvale/CustomProcess.h"
#include "tests/interface/InterfaceFixture.h"

#include <QAccessible>
#include <QLineEdit>
#include <QPointer>
#include <QScrollBar>

namespace orrinvale
{

namespace
{

QRect frameOf(const TextField& field)
{
    return field.geometry().adjusted(1, 1, -1, -1);
}

QRect shownOf(const WindowButton& button)
{
    return shownRect(button).translated(button.pos());
}

// A sheet over a window with one button, from which it was opened.
struct AppPickerSheetTest : InterfaceFixture {
    AppPickerSheetTest()
    {
        for (const auto* name : {"Blender", "HandBrake", "Safari", "Xcode"})
            fake.installedApplications.install(std::string("org.") + name, name);
        fake.appearance.motionIsReduced = true;
        content.resize(540, 560);
        opener = new WindowButton(QStringLiteral("Add App…"), WindowButton::Kind::ordinary, &content);
        content.show();
        content.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&content));
        opener->clearFocus(); // that came with the window
        opener->setFocus(Qt::TabFocusReason);
    }

    AppPickerSheet& open(Look look = Look::light)
    {
        sheet = new AppPickerSheet(platform(), "en_US", look, &content);
        sheet->onAdd = [this](const CustomProcess& process) { added.push_back(process); };
        sheet->onDismiss = [this] { ++dismissed; };
        return *sheet;
    }
    AppPickerSheet& openLoaded(Look look = Look::light)
    {
        open(look);
        settle();
        return *sheet;
    }
    QLineEdit& search() const { return sheet->searchField().line(); }
    QLineEdit& label() const { return sheet->labelField().line(); }
    AppPickerList& list() const { return sheet->list(); }
    std::string chosen() const
    {
        const auto& app = sheet->picker().selectedApp();
        return app ? app->name : std::string();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(content.window()->focusWidget(), key, modifiers);
    }
    void type(const char* text) const { QTest::keyClicks(content.window()->focusWidget(), QString::fromUtf8(text)); }
    void click(std::size_t row) const
    {
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, list().rowRect(row).center());
    }
    bool hasFocus(const QWidget& widget) const { return content.window()->focusWidget() == &widget; }
    QColor pixel(const QPoint& inContent) { return picture(content).pixelColor(inContent); }
    QColor rowPixel(std::size_t row, int x, int y)
    {
        settle();
        return pixel(list().viewport()->mapTo(&content, list().rowRect(row).topLeft() + QPoint(x, y)));
    }

    QWidget content;
    WindowButton* opener;
    QPointer<AppPickerSheet> sheet;
    std::vector<CustomProcess> added;
    int dismissed = 0;
};

TEST_F(AppPickerSheetTest, AHeldReturnChoosesARowAndDoesNotAddIt)
{
    openLoaded();
    press(Qt::Key_Down);
    hold(Qt::Key_Return);
    EXPECT_EQ(chosen(), "Blender");
    EXPECT_TRUE(added.empty());
    hold(Qt::Key_Return);
    EXPECT_EQ(added.size(), 1U);
}

TEST_F(AppPickerSheetTest, StandsInTheMiddleAndCoversTheContent)
{
    open();
    EXPECT_EQ(sheet->geometry(), QRect(0, 0, 540, 560));
    EXPECT_EQ(sheet->cardRect(), QRect(60, 46, 420, 468));
    content.resize(900, 800);
    EXPECT_EQ(sheet->geometry(), QRect(0, 0, 900, 800));
    EXPECT_EQ(sheet->cardRect(), QRect(240, 166, 420, 468));
    content.resize(460, 400);
    EXPECT_EQ(sheet->cardRect(), QRect(20, 24, 420, 352));
    EXPECT_EQ(list().geometry(), QRect(20, 96, 380, 128));
}

TEST_F(AppPickerSheetTest, IsADialogToAssistiveTechnology)
{
    auto* accessible = QAccessible::queryAccessibleInterface(&open());
    EXPECT_EQ(accessible->role(), QAccessible::Dialog);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Add App to Watch List"));
}

TEST_F(AppPickerSheetTest, EverythingHasItsPlace)
{
    open();
    EXPECT_EQ(sheet->headLabel().geometry(), QRect(20, 20, 380, 20));
    EXPECT_EQ(frameOf(sheet->searchField()), QRect(20, 52, 380, 32));
    EXPECT_EQ(list().geometry(), QRect(20, 96, 380, 244));
    EXPECT_EQ(sheet->labelCaption().geometry(), QRect(20, 356, 380, 12));
    EXPECT_EQ(frameOf(sheet->labelField()), QRect(20, 372, 380, 32));
    EXPECT_EQ(shownOf(sheet->addButton()), QRect(320, 420, 80, 28));
    EXPECT_EQ(shownOf(sheet->cancelButton()), QRect(232, 420, 80, 28));
}

TEST_F(AppPickerSheetTest, SaysItsTexts)
{
    openLoaded();
    EXPECT_EQ(sheet->headLabel().text(), QStringLiteral("Add App to Watch List"));
    EXPECT_EQ(search().placeholderText(), QStringLiteral("Search apps…"));
    EXPECT_EQ(list().loadingLabel().text(), QStringLiteral("Loading apps…"));
    EXPECT_EQ(sheet->labelCaption().text(), QStringLiteral("LABEL"));
    EXPECT_EQ(label().placeholderText(), QString());
    EXPECT_EQ(sheet->cancelButton().accessibleName(), QStringLiteral("Cancel"));
    EXPECT_EQ(sheet->addButton().accessibleName(), QStringLiteral("Add"));
    EXPECT_EQ(sheet->searchField().symbol(), QStringLiteral("magnifyingglass"));
}

TEST_F(AppPickerSheetTest, HasItsSizesOfText)
{
    open();
    const auto pixels = [](const QWidget& widget) { return std::lround(pixelSizeOf(widget.font())); };
    EXPECT_EQ(pixels(sheet->headLabel()), 15);
    EXPECT_EQ(pixels(search()), 13);
    EXPECT_EQ(pixels(list().loadingLabel()), 12);
    EXPECT_EQ(pixels(sheet->labelCaption()), 9);
    EXPECT_EQ(pixels(label()), 12);
}

TEST_F(AppPickerSheetTest, LoadsBehindAWordAndThenLists)
{
    open();
    EXPECT_TRUE(list().loadingLabel().isVisible());
    EXPECT_EQ(list().loadingLabel().geometry(), list().rect());
    EXPECT_EQ(list().model()->rowCount(), 0);
    settle();
    EXPECT_FALSE(list().loadingLabel().isVisible());
    EXPECT_EQ(list().model()->rowCount(), 4);
    EXPECT_EQ(list().model()->index(1, 0).data().toString(), QStringLiteral("HandBrake"));
}

TEST_F(AppPickerSheetTest, RowsStandInsideTheList)
{
    openLoaded();
    EXPECT_EQ(list().rowRect(0), QRect(5, 5, 360, 36));
    EXPECT_EQ(list().rowRect(3), QRect(5, 113, 360, 36));
    EXPECT_FALSE(list().thumb().isVisible());
}

TEST_F(AppPickerSheetTest, OpensWithTheCursorInTheSearch)
{
    open();
    EXPECT_TRUE(search().hasFocus());
    EXPECT_FALSE(sheet->addButton().isEnabled());
}

TEST_F(AppPickerSheetTest, FiltersAsOneTypes)
{
    openLoaded();
    type("SAF");
    EXPECT_EQ(list().model()->rowCount(), 1);
    EXPECT_TRUE(sheet->searchField().clearButton()->isVisible());
    QTest::mouseClick(sheet->searchField().clearButton(), Qt::LeftButton);
    EXPECT_EQ(list().model()->rowCount(), 4);
    EXPECT_TRUE(search().hasFocus());
}

TEST_F(AppPickerSheetTest, AClickChoosesAndLabels)
{
    openLoaded();
    click(3);
    EXPECT_EQ(chosen(), "Xcode");
    EXPECT_EQ(label().text(), QStringLiteral("Xcode active"));
    EXPECT_EQ(label().placeholderText(), QStringLiteral("e.g. Xcode active"));
    EXPECT_TRUE(sheet->addButton().isEnabled());
    click(2);
    EXPECT_EQ(chosen(), "Safari");
    EXPECT_EQ(label().text(), QStringLiteral("Xcode active"));
    EXPECT_EQ(label().placeholderText(), QStringLiteral("e.g. Safari active"));
}

TEST_F(AppPickerSheetTest, AClickBesideTheRowsChoosesNothing)
{
    openLoaded();
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, QPoint(100, 220));
    QTest::mouseClick(list().viewport(), Qt::RightButton, {}, list().rowRect(1).center());
    EXPECT_EQ(chosen(), "");
}

TEST_F(AppPickerSheetTest, ByKeyboardAllTheWay)
{
    openLoaded();
    type("a");
    press(Qt::Key_Down);
    EXPECT_TRUE(hasFocus(list()));
    EXPECT_EQ(list().cursor(), 0U);
    press(Qt::Key_Down);
    EXPECT_EQ(chosen(), ""); // the cursor alone
    press(Qt::Key_Return);
    EXPECT_EQ(chosen(), "Safari");
    EXPECT_TRUE(added.empty());
    press(Qt::Key_Return);
    ASSERT_EQ(added.size(), 1U);
    EXPECT_EQ(added[0].bundleID, "org.Safari");
    EXPECT_EQ(added[0].label, "Safari active");
    EXPECT_EQ(added[0].score, 3);
    EXPECT_EQ(dismissed, 1);
}

TEST_F(AppPickerSheetTest, ReturnOnAnotherRowChoosesThat)
{
    openLoaded();
    click(2);
    press(Qt::Key_Up);
    press(Qt::Key_Return);
    EXPECT_EQ(chosen(), "HandBrake");
    EXPECT_TRUE(added.empty());
}

TEST_F(AppPickerSheetTest, SpaceChoosesAndNeverAdds)
{
    openLoaded();
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    press(Qt::Key_Space);
    EXPECT_EQ(chosen(), "Blender");
    EXPECT_TRUE(added.empty());
}

TEST_F(AppPickerSheetTest, TheCursorGoesWhereTheKeysSay)
{
    openLoaded();
    press(Qt::Key_Down);
    press(Qt::Key_End);
    EXPECT_EQ(list().cursor(), 3U);
    press(Qt::Key_Down);
    EXPECT_EQ(list().cursor(), 3U);
    press(Qt::Key_Home);
    EXPECT_EQ(list().cursor(), 0U);
    press(Qt::Key_PageDown);
    EXPECT_EQ(list().cursor(), 3U);
    press(Qt::Key_PageUp);
    EXPECT_EQ(list().cursor(), 0U);
    type("s");
    EXPECT_EQ(list().cursor(), 2U);
    press(Qt::Key_Up);
    EXPECT_EQ(list().cursor(), 1U);
    press(Qt::Key_Home);
    press(Qt::Key_Up);
    EXPECT_TRUE(search().hasFocus());
    EXPECT_EQ(chosen(), "");
}

TEST_F(AppPickerSheetTest, DownEntersTheListOnTheChosenRow)
{
    openLoaded();
    click(2);
    search().setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(list().cursor(), 2U);
}

TEST_F(AppPickerSheetTest, DownStaysWhereThereIsNoRow)
{
    openLoaded();
    type("nothing like it");
    press(Qt::Key_Down);
    EXPECT_TRUE(search().hasFocus());
}

TEST_F(AppPickerSheetTest, ReturnInAFieldAddsWhenThatIsPossible)
{
    openLoaded();
    press(Qt::Key_Return);
    EXPECT_TRUE(added.empty());
    click(0);
    label().setFocus();
    label().clear();
    type("Night renders");
    press(Qt::Key_Return);
    ASSERT_EQ(added.size(), 1U);
    EXPECT_EQ(added[0].label, "Night renders");
}

TEST_F(AppPickerSheetTest, AnEmptiedLabelIsReplacedWhenAdding)
{
    openLoaded();
    click(0);
    label().clear();
    QTest::mouseClick(&sheet->addButton(), Qt::LeftButton);
    EXPECT_EQ(added.at(0).label, "Blender active");
}

TEST_F(AppPickerSheetTest, TheChoiceOutlivesAFilterThatHidesIt)
{
    openLoaded();
    click(0);
    search().setFocus();
    type("xc");
    EXPECT_TRUE(sheet->addButton().isEnabled());
    EXPECT_FALSE(list().selectionModel()->hasSelection());
    search().clear();
    EXPECT_TRUE(list().selectionModel()->isRowSelected(0));
    press(Qt::Key_Return);
    EXPECT_EQ(added.at(0).bundleID, "org.Blender");
}

TEST_F(AppPickerSheetTest, EscapeCancelsFromEverywhere)
{
    for (int stops = 0; stops < 4; ++stops) {
        openLoaded();
        for (int i = 0; i < stops; ++i)
            press(Qt::Key_Tab);
        press(Qt::Key_Escape);
        EXPECT_EQ(dismissed, stops + 1);
        settle();
        EXPECT_FALSE(sheet);
    }
    EXPECT_TRUE(added.empty());
    EXPECT_TRUE(content.isVisible());
}

TEST_F(AppPickerSheetTest, CancelDismissesWithoutAdding)
{
    openLoaded();
    click(1);
    QTest::mouseClick(&sheet->cancelButton(), Qt::LeftButton);
    EXPECT_EQ(dismissed, 1);
    EXPECT_TRUE(added.empty());
}

TEST_F(AppPickerSheetTest, AddIsDeadWhileNothingIsChosen)
{
    openLoaded();
    QTest::mouseClick(&sheet->addButton(), Qt::LeftButton);
    EXPECT_TRUE(added.empty());
    EXPECT_EQ(dismissed, 0);
}

TEST_F(AppPickerSheetTest, TheFocusGoesRoundInTheSheet)
{
    openLoaded();
    type("e");
    click(0);
    search().setFocus();
    const std::vector<QWidget*> stops{
        sheet->searchField().clearButton(), &list(), &label(), &sheet->cancelButton(), &sheet->addButton(), &search()};
    for (auto* stop : stops) {
        press(Qt::Key_Tab);
        EXPECT_TRUE(hasFocus(*stop)) << stop->accessibleName().toStdString();
    }
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(hasFocus(sheet->addButton()));
    EXPECT_TRUE(sheet->addButton().showsFocusRing());
}

TEST_F(AppPickerSheetTest, TheFocusLeavesOutWhatCannotBeUsed)
{
    open(); // nothing is listed, searched for or chosen yet
    for (auto* stop : std::vector<QWidget*>{&label(), &sheet->cancelButton(), &search()}) {
        press(Qt::Key_Tab);
        EXPECT_TRUE(hasFocus(*stop)) << stop->accessibleName().toStdString();
    }
}

TEST_F(AppPickerSheetTest, TheFocusReturnsToWhereItWas)
{
    openLoaded();
    press(Qt::Key_Escape);
    EXPECT_TRUE(hasFocus(*opener));
    EXPECT_TRUE(opener->showsFocusRing());
}

TEST_F(AppPickerSheetTest, TheWindowGetsNoMouse)
{
    struct Counting : QWidget {
        using QWidget::QWidget;
        int events = 0;
        void mousePressEvent(QMouseEvent*) override { ++events; }
        void wheelEvent(QWheelEvent*) override { ++events; }
    } window;
    window.resize(540, 560);
    window.show();
    AppPickerSheet over(platform(), "en_US", Look::light, &window);
    over.onDismiss = [this] { ++dismissed; };
    QTest::mouseClick(&over, Qt::LeftButton, {}, QPoint(10, 10));
    QWheelEvent wheel(QPointF(10, 10), QPointF(10, 10), {}, QPoint(0, -120), Qt::NoButton, {}, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&over, &wheel);
    EXPECT_EQ(window.events, 0);
    EXPECT_EQ(dismissed, 0);
}

TEST_F(AppPickerSheetTest, PaintsRowsInTheirStates)
{
    for (const auto look : {Look::light, Look::dark, Look::sakura}) {
        const auto& colours = WindowPalette::of(look);
        openLoaded(look);
        EXPECT_EQ(rowPixel(0, 180, 30), bytes(colours.field));
        click(1);
        EXPECT_EQ(rowPixel(1, 180, 30), bytes(colours.selection));
        EXPECT_EQ(rowPixel(1, 342, 13), bytes(colours.controlOn)); // beside the check mark
        EXPECT_EQ(rowPixel(2, 342, 13), bytes(colours.field));
        EXPECT_EQ(rowPixel(1, 20, 18), bytes(colours.tertiaryText)); // no icon
        press(Qt::Key_Down);
        EXPECT_EQ(rowPixel(2, 180, 0), bytes(colours.focusRing));
        EXPECT_EQ(rowPixel(2, 180, 2), bytes(colours.field));
        press(Qt::Key_Escape);
        settle();
    }
}

TEST_F(AppPickerSheetTest, AddIsDrawnAtHalfOpacityWhileNothingIsChosen)
{
    openLoaded();
    const auto& colours = WindowPalette::of(Look::light);
    const auto inSheet = [this](int x, int y) { return pixel(sheet->cardRect().topLeft() + QPoint(x, y)); };
    const auto half = bytes(blended(colours.card, withAlpha(colours.defaultButton, 0.5)));
    for (const auto& inside : {QPoint(326, 424), QPoint(340, 420), QPoint(320, 434)}) // the border too
        EXPECT_NEAR(inSheet(inside.x(), inside.y()).red(), half.red(), 1);
    click(0);
    EXPECT_EQ(inSheet(326, 424), colours.defaultButton);
    EXPECT_EQ(inSheet(340, 420), colours.defaultButton);
}

TEST_F(AppPickerSheetTest, TheRowUnderThePointerIsLit)
{
    openLoaded();
    const auto middle = list().rowRect(2).center();
    QHoverEvent hover(QEvent::HoverMove, middle, middle, QPointF());
    QApplication::sendEvent(list().viewport(), &hover);
    EXPECT_EQ(rowPixel(2, 180, 30), bytes(WindowPalette::of(Look::light).rowHover));
    EXPECT_EQ(rowPixel(1, 180, 30), bytes(WindowPalette::of(Look::light).field));
}

TEST_F(AppPickerSheetTest, DimsWhatIsBehind)
{
    QPalette white;
    white.setColor(QPalette::Window, Qt::white);
    content.setPalette(white);
    openLoaded();
    const auto& colours = WindowPalette::of(Look::light);
    EXPECT_NEAR(pixel({3, 3}).red(), bytes(blended(Qt::white, colours.scrim)).red(), 1);
    EXPECT_EQ(pixel({100, 60}), bytes(colours.card));
    EXPECT_LT(pixel({270, 520}).lightness(), pixel({3, 3}).lightness()); // the shadow
}

TEST_F(AppPickerSheetTest, ManyRowsAreScrolledTo)
{
    for (int i = 0; i < 100; ++i)
        fake.installedApplications.install("org.more" + std::to_string(i), "More " + std::to_string(i));
    openLoaded();
    EXPECT_TRUE(list().thumb().isVisible());
    press(Qt::Key_Down);
    press(Qt::Key_End);
    EXPECT_EQ(list().verticalScrollBar()->value(), list().verticalScrollBar()->maximum());
    EXPECT_EQ(list().rowRect(103).bottom(), list().height() - 6); // the inset is there too
    press(Qt::Key_Home);
    EXPECT_EQ(list().rowRect(0).top(), 5);
    search().setFocus();
    list().verticalScrollBar()->setValue(500);
    type("m");
    EXPECT_EQ(list().verticalScrollBar()->value(), 0);
}

TEST_F(AppPickerSheetTest, GrowsWithTheText)
{
    const auto font = QApplication::font();
    auto large = font;
    large.setPixelSize(20); // more than one and a half
    QApplication::setFont(large);
    openLoaded();
    EXPECT_EQ(list().rowRect(0).height(), 45);
    EXPECT_EQ(frameOf(sheet->searchField()).height(), 37);
    EXPECT_EQ(shownOf(sheet->addButton()).height(), 37);
    EXPECT_EQ(sheet->cardRect(), QRect(60, 46, 420, 468));
    EXPECT_GT(list().height(), 150);
    QApplication::setFont(font);
}

TEST_F(AppPickerSheetTest, FollowsTheThemeWhileItIsOpen)
{
    openLoaded(Look::light);
    sheet->applyTheme(Look::dark);
    EXPECT_EQ(pixel({100, 60}), bytes(WindowPalette::of(Look::dark).card));
    EXPECT_EQ(rowPixel(0, 180, 30), bytes(WindowPalette::of(Look::dark).field));
}

TEST_F(AppPickerSheetTest, FadesInAndOut)
{
    fake.appearance.motionIsReduced = false;
    open();
    EXPECT_EQ(sheet->opacity(), 0);
    EXPECT_TRUE(search().hasFocus());
    time.advance(80ms);
    EXPECT_NEAR(sheet->opacity(), 0.5, 0.01);
    time.advance(80ms);
    EXPECT_EQ(sheet->opacity(), 1);
    press(Qt::Key_Escape);
    EXPECT_EQ(dismissed, 1);
    EXPECT_TRUE(hasFocus(*opener));
    time.advance(80ms);
    EXPECT_NEAR(sheet->opacity(), 0.5, 0.01);
    time.advance(80ms);
    settle();
    EXPECT_FALSE(sheet);
}

TEST_F(AppPickerSheetTest, DismissedWhileItFadesInItFadesOutFromThere)
{
    fake.appearance.motionIsReduced = false;
    open();
    press(Qt::Key_Escape);
    time.advance(16ms);
    settle();
    EXPECT_FALSE(sheet);
    open();
    time.advance(48ms);
    press(Qt::Key_Escape);
    time.advance(32ms);
    settle();
    EXPECT_TRUE(sheet);
    time.advance(16ms);
    settle();
    EXPECT_FALSE(sheet);
    EXPECT_EQ(dismissed, 2);
}

TEST_F(AppPickerSheetTest, ASecondReturnWhileItFadesAddsNothing)
{
    fake.appearance.motionIsReduced = false;
    openLoaded();
    click(0);
    QTest::keyClick(&label(), Qt::Key_Return);
    QTest::keyClick(&label(), Qt::Key_Return);
    EXPECT_EQ(added.size(), 1U);
    EXPECT_EQ(dismissed, 1);
}

TEST_F(AppPickerSheetTest, MayGoWithItsWindowWhileItScans)
{
    auto window = std::make_unique<QWidget>();
    new AppPickerSheet(platform(), "en_US", Look::light, window.get());
    window.reset();
    settle();
}

} // namespace

} // namespace orrinvale
