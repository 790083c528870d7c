// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "kit/TextLabel.h"
#include "kit/Typography.h"
#include "kit/WindowPalette.h"
#include "tests/interface/InterfaceFixture.h"

#include <QHelpEvent>
#include <QToolTip>

#include <array>
#include <cmath>

namespace orrinvale
{

inline constexpr std::array allLooks{Look::light, Look::dark, Look::sakura};

// The desktop's text that many times as large, until the end of the scope.
class LargerText
{
public:
    explicit LargerText(double scale) : m_usual(QApplication::font())
    {
        auto font = m_usual;
        font.setPixelSize(static_cast<int>(std::lround(13 * scale)));
        choose(font);
    }
    ~LargerText() { choose(m_usual); }

private:
    // A running application tells its widgets; one whose events a test turns by hand does not.
    static void choose(const QFont& font)
    {
        QApplication::setFont(font);
        for (auto* widget : QApplication::allWidgets()) {
            QEvent event(QEvent::ApplicationFontChange);
            QApplication::sendEvent(widget, &event);
        }
    }

    QFont m_usual;
};

// How a text is to be drawn, in logical pixels.
struct TextLook {
    double pixels;
    QFont::Weight weight;
    double tracking = 0;
};

inline constexpr auto trackingStep = 1.0 / 64; // what a font keeps of it

inline void expectText(const TextLabel& label, const TextLook& look, const QColor& colour)
{
    SCOPED_TRACE(label.text().toStdString());
    EXPECT_NEAR(pixelSizeOf(label.font()), look.pixels, 0.01);
    EXPECT_EQ(label.font().weight(), look.weight);
    EXPECT_NEAR(label.font().letterSpacing(), look.tracking, trackingStep);
    EXPECT_EQ(bytes(label.colour()), bytes(colour));
}

// Nothing of a wrapped or single line is cut: it fits into the label, in lines of that height.
inline void expectWhole(const TextLabel& label, int lineHeight)
{
    SCOPED_TRACE(label.text().toStdString());
    if (label.wordWrap())
        EXPECT_GE(label.height(), label.heightFor(label.width(), lineHeight));
    else
        EXPECT_GE(label.width(), label.naturalWidth());
    EXPECT_GE(label.height(), lineHeight);
}

// A painted colour; tables have more digits than bytes, so neighbours count as equal.
inline testing::AssertionResult isNearly(const QColor& colour, const QColor& expected, int tolerance = 1)
{
    const auto isNear = [=](int one, int other) { return std::abs(one - other) <= tolerance; };
    if (isNear(colour.red(), expected.red()) && isNear(colour.green(), expected.green()) &&
        isNear(colour.blue(), expected.blue()))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << colour.name().toStdString() << " is not " << expected.name().toStdString();
}

// The tooltip of that place, empty when there is none.
inline QString toolTipAt(QWidget& widget, QPoint point)
{
    for (auto* window : QApplication::topLevelWidgets())
        if (window->inherits("QTipLabel"))
            window->hide(); // QToolTip's own hiding takes its time
    QHelpEvent help(QEvent::ToolTip, point, widget.mapToGlobal(point));
    QApplication::sendEvent(&widget, &help);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
}

// The pointer moves inside a widget: offscreen there is none to move.
inline void movePointer(QWidget& widget, QPoint point, Qt::MouseButtons buttons = Qt::NoButton)
{
    QMouseEvent move(QEvent::MouseMove, point, widget.mapToGlobal(point), Qt::NoButton, buttons, {});
    QApplication::sendEvent(&widget, &move);
}

// The languages' data has narrow spaces before "AM" in newer versions.
inline QString withPlainSpaces(QString text)
{
    return text.replace(QChar(0x202f), QLatin1Char(' '));
}

} // namespace orrinvale
