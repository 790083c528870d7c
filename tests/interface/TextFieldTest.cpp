// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/TextField.h"

#include "kit/PaintedButton.h"
#include "tests/interface/InterfaceFixture.h"

#include <QLineEdit>

namespace orrinvale
{

namespace
{

constexpr QRect frame(20, 20, 200, 32);

struct TextFieldTest : InterfaceFixture {
    TextFieldTest()
    {
        window.resize(300, 100);
        field = new TextField(QStringLiteral("Search apps…"), windowText::rowTitle, &window);
        field->setSymbol(QStringLiteral("magnifyingglass"));
        field->addClearButton(QStringLiteral("Clear search"));
        field->applyTheme(colours);
        field->placeFrame(frame);
        other = new TextField(QStringLiteral("Label"), windowText::body, &window);
        other->applyTheme(colours);
        other->placeFrame(frame.translated(0, 40));
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        other->setFocus();
    }
    QColor pixel(int x, int y) { return picture(window).pixelColor(frame.topLeft() + QPoint(x, y)); }

    const WindowPalette& colours = WindowPalette::of(Look::light);
    QWidget window;
    TextField* field;
    TextField* other;
};

TEST_F(TextFieldTest, HasAFrameAtRest)
{
    EXPECT_EQ(field->shownHeight(), 32);
    EXPECT_EQ(pixel(100, 0), colours.controlBorder);
    EXPECT_EQ(pixel(100, 1), colours.field);
    EXPECT_EQ(pixel(100, -1), bytes(colours.card));
}

TEST_F(TextFieldTest, HasARingInPlaceOfTheFrameWhileItHasTheFocus)
{
    const auto before = field->line().geometry();
    field->setFocus();
    ASSERT_TRUE(field->line().hasFocus());
    EXPECT_EQ(pixel(100, -1), colours.focusRing);
    EXPECT_EQ(pixel(100, 0), colours.focusRing);
    EXPECT_EQ(pixel(100, 1), colours.field);
    EXPECT_EQ(field->line().geometry(), before);
}

TEST_F(TextFieldTest, TheTextKeepsItsDistanceFromSymbolAndFrame)
{
    EXPECT_EQ(field->mapTo(&window, field->line().pos()).x() + 2, frame.x() + 33);
    EXPECT_EQ(other->mapTo(&window, other->line().pos()).x() + 2, frame.x() + 11);
}

TEST_F(TextFieldTest, TheClearButtonShowsWhileThereIsText)
{
    EXPECT_FALSE(field->clearButton()->isVisible());
    QTest::keyClicks(&field->line(), QStringLiteral("hand"));
    EXPECT_TRUE(field->clearButton()->isVisible());
    field->clearButton()->setFocus();
    QTest::keyClick(field->clearButton(), Qt::Key_Return);
    EXPECT_EQ(field->line().text(), QString());
    EXPECT_FALSE(field->clearButton()->isVisible());
    EXPECT_TRUE(field->line().hasFocus());
}

TEST_F(TextFieldTest, APressBesideTheLineIsOneInIt)
{
    QTest::mouseClick(field, Qt::LeftButton, {}, {14, 16});
    EXPECT_TRUE(field->line().hasFocus());
}

TEST_F(TextFieldTest, SaysWhatItIsFor)
{
    EXPECT_EQ(field->line().accessibleName(), QStringLiteral("Search apps…"));
    EXPECT_EQ(field->clearButton()->accessibleName(), QStringLiteral("Clear search"));
    EXPECT_EQ(other->clearButton(), nullptr);
}

} // namespace

} // namespace orrinvale
