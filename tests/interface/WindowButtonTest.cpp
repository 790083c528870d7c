// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/WindowButton.h"

#include "kit/FocusRing.h"
#include "tests/interface/WindowFixture.h"

#include <QFontMetricsF>

namespace orrinvale
{

namespace
{

using Kind = WindowButton::Kind;

struct WindowButtonTest : InterfaceFixture, testing::WithParamInterface<Look> {
    WindowButtonTest()
    {
        window.resize(300, 100);
        ordinary = add(QStringLiteral("Cancel"), Kind::ordinary, {20, 20});
        withSymbol = add(QStringLiteral("Clear"), Kind::ordinary, {120, 20});
        withSymbol->setSymbol(QStringLiteral("trash"));
        withSymbol->setDangerous(true);
        fit(*withSymbol);
        isDefault = add(QStringLiteral("Get Started"), Kind::filled, {20, 60});
        icon = add(QStringLiteral("Delete"), Kind::icon, {150, 60});
        icon->setSymbol(QStringLiteral("trash"));
        icon->setDangerous(true);
        window.show();
    }
    WindowButton* add(const QString& text, Kind kind, QPoint at)
    {
        auto* button = new WindowButton(text, kind, &window);
        button->setColours(colours());
        placeShown(*button, QRect(at, button->shownSize()));
        QObject::connect(button, &QAbstractButton::clicked, &window, [this, text] { clicked << text; });
        return button;
    }
    static void fit(WindowButton& button)
    {
        placeShown(button, QRect(shownRect(button).topLeft() + button.pos(), button.shownSize()));
    }
    const WindowPalette& colours() const { return WindowPalette::of(GetParam()); }
    // Within what the button shows of itself.
    static QColor pixel(WindowButton& button, int x, int y)
    {
        return picture(button).pixelColor(QPoint(x, y) + shownRect(button).topLeft());
    }
    // Beside every text and symbol.
    static QColor ground(WindowButton& button) { return pixel(button, 4, button.shownSize().height() / 2); }
    static QColor outline(WindowButton& button) { return pixel(button, button.shownSize().width() / 2, 0); }
    static bool has(WindowButton& button, const QColor& colour)
    {
        const auto image = picture(button);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (isNearly(image.pixelColor(x, y), colour))
                    return true;
        return false;
    }

    QWidget window;
    WindowButton* ordinary;
    WindowButton* withSymbol;
    WindowButton* isDefault;
    WindowButton* icon;
    QStringList clicked;
};

double textWidth(const TextStyle& style, const char* text)
{
    return std::ceil(QFontMetricsF(style.font()).horizontalAdvance(QLatin1String(text)));
}

TEST_P(WindowButtonTest, IsAsLargeAsItsTextAndPaddings)
{
    EXPECT_EQ(ordinary->shownSize(), QSize(12 + int(textWidth(windowText::button, "Cancel")) + 12 + 2, 28));
    EXPECT_EQ(withSymbol->shownSize(), QSize(9 + 14 + 6 + int(textWidth(windowText::button, "Clear")) + 12 + 2, 28));
    EXPECT_EQ(isDefault->shownSize(), QSize(12 + int(textWidth(windowText::strongTitle, "Get Started")) + 12 + 2, 28));
    EXPECT_EQ(icon->shownSize(), QSize(28, 28));
}

TEST_P(WindowButtonTest, RestsInTheColoursOfItsKind)
{
    EXPECT_TRUE(isNearly(ground(*ordinary), colours().button));
    EXPECT_TRUE(isNearly(outline(*ordinary), colours().buttonBorder));
    EXPECT_EQ(bytes(ordinary->ink()), bytes(colours().primaryText));
    EXPECT_TRUE(isNearly(ground(*isDefault), colours().defaultButton));
    EXPECT_TRUE(isNearly(outline(*isDefault), colours().defaultButton));
    EXPECT_EQ(isDefault->ink(), QColor(Qt::white));
    EXPECT_EQ(icon->ground(), QColor(Qt::transparent));
    EXPECT_EQ(bytes(icon->ink()), bytes(colours().quietText));
    EXPECT_TRUE(has(*ordinary, colours().primaryText));
    EXPECT_TRUE(has(*isDefault, Qt::white));
    EXPECT_TRUE(has(*icon, colours().quietText));
}

TEST_P(WindowButtonTest, TellsHoverAndPress)
{
    pointAt(*ordinary);
    pointAt(*isDefault);
    EXPECT_TRUE(isNearly(ground(*ordinary), colours().buttonHover));
    EXPECT_TRUE(isNearly(ground(*isDefault), colours().defaultButtonHover));
    for (auto* button : {ordinary, isDefault})
        QTest::mousePress(button, Qt::LeftButton, {}, middleOf(*button));
    EXPECT_TRUE(isNearly(ground(*ordinary), colours().buttonPressed));
    EXPECT_TRUE(isNearly(ground(*isDefault), colours().defaultButtonPressed));
    pointAway(*ordinary);
    QTest::mouseRelease(ordinary, Qt::LeftButton, {}, {-50, -50});
    EXPECT_TRUE(isNearly(ground(*ordinary), colours().button));
    EXPECT_EQ(clicked, QStringList());
}

TEST_P(WindowButtonTest, ADangerousOneWarnsOnHoverAndPressOnly)
{
    EXPECT_TRUE(isNearly(ground(*withSymbol), colours().button));
    EXPECT_EQ(bytes(withSymbol->ink()), bytes(colours().primaryText));
    for (auto* button : {withSymbol, icon}) {
        pointAt(*button);
        EXPECT_TRUE(isNearly(ground(*button), colours().dangerWash));
        EXPECT_TRUE(isNearly(outline(*button), button == icon ? colours().dangerWash : colours().danger));
        EXPECT_TRUE(has(*button, colours().danger));
        pointAway(*button);
    }
    EXPECT_TRUE(isNearly(ground(*withSymbol), colours().button));
    EXPECT_FALSE(has(*withSymbol, colours().danger));
}

TEST_P(WindowButtonTest, AnUnusableOneIsHalfThereAndDoesNothing)
{
    isDefault->setEnabled(false);
    const auto below = bytes(window.palette().color(QPalette::Window));
    EXPECT_TRUE(isNearly(window.grab().toImage().pixelColor(isDefault->pos() + QPoint(8, 18)),
                         blended(below, withAlpha(colours().defaultButton, 0.5)), 2));
    pointAt(*isDefault);
    EXPECT_EQ(bytes(isDefault->ground()), bytes(colours().defaultButton));
    QTest::mouseClick(isDefault, Qt::LeftButton, {}, middleOf(*isDefault));
    QTest::keyClick(isDefault, Qt::Key_Return);
    EXPECT_EQ(clicked, QStringList());
    ordinary->setFocus(Qt::TabFocusReason);
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &window, Qt::Key_Tab);
        EXPECT_FALSE(isDefault->hasFocus());
    }
}

TEST_P(WindowButtonTest, TheRingShowsAfterTheKeyboardAndNotAfterTheMouse)
{
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto ring = [this] { return picture(*ordinary).pixelColor(0, ordinary->height() / 2); };
    EXPECT_FALSE(isNearly(ring(), colours().focusRing));
    isDefault->setFocus();
    ordinary->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(isNearly(ring(), colours().focusRing));
    QTest::mouseClick(ordinary, Qt::LeftButton, {}, middleOf(*ordinary));
    EXPECT_FALSE(isNearly(ring(), colours().focusRing));
}

TEST_P(WindowButtonTest, ItsKeysClickIt)
{
    for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter})
        QTest::keyClick(ordinary, key);
    EXPECT_EQ(clicked.size(), 3);
}

TEST_P(WindowButtonTest, TheRoomForTheRingIsNotTheButton)
{
    QTest::mouseClick(ordinary, Qt::LeftButton, {}, {1, ordinary->height() / 2});
    EXPECT_EQ(clicked, QStringList());
    QTest::mouseClick(ordinary, Qt::LeftButton, {}, {4, ordinary->height() / 2});
    EXPECT_EQ(clicked, QStringList{QStringLiteral("Cancel")});
}

TEST_P(WindowButtonTest, IsCalledByItsTextAndHasNoMnemonic)
{
    EXPECT_EQ(withSymbol->accessibleName(), QStringLiteral("Clear"));
    EXPECT_EQ(withSymbol->symbol(), QStringLiteral("trash"));
    EXPECT_TRUE(withSymbol->shortcut().isEmpty());
}

TEST_P(WindowButtonTest, GrowsWithItsText)
{
    const LargerText larger(1.5);
    EXPECT_EQ(ordinary->shownSize(), QSize(12 + int(textWidth(windowText::button, "Cancel")) + 12 + 2, 37));
    EXPECT_EQ(icon->shownSize(), QSize(37, 37));
}

INSTANTIATE_TEST_SUITE_P(Looks, WindowButtonTest, testing::ValuesIn(allLooks));

} // namespace

} // namespace orrinvale
