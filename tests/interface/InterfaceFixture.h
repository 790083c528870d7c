// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/WakeEngine.h"
#include "tests/logic/LogicFixture.h"

#include <QApplication>
#include <QColor>
#include <QWidget>
#include <QtTest/QTest>

#include <ostream>

// So that a failed comparison can be read.
inline void PrintTo(const QColor& colour, std::ostream* out)
{
    *out << colour.name(QColor::HexArgb).toStdString();
}
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}
inline void PrintTo(const QRect& rect, std::ostream* out)
{
    *out << '(' << rect.x() << ", " << rect.y() << ' ' << rect.width() << 'x' << rect.height() << ')';
}
inline void PrintTo(const QPoint& point, std::ostream* out)
{
    *out << '(' << point.x() << ", " << point.y() << ')';
}

namespace orrinvale
{

inline void PrintTo(const WakeState& state, std::ostream* out)
{
    *out << state.statusText();
}
// Names how many pixels the process draws for each logical one, when not one.
inline constexpr auto scaleVariable = "ORRINVALE_TEST_SCALE";

// Widgets on a fake machine in virtual time. Qt's own events run only where a test says so.
struct InterfaceFixture : LogicFixture {
    InterfaceFixture() { fake.applicationSupport.support = support.path; }

    WakeEngine& engine()
    {
        if (!m_engine)
            m_engine = std::make_unique<WakeEngine>(platform(), settings(), calendar);
        return *m_engine;
    }
    // What Qt has queued, and what is due in virtual time.
    void settle()
    {
        for (int i = 0; i < 3; ++i) {
            QCoreApplication::processEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            time.runPending();
        }
    }

    TemporaryFolder support;

private:
    std::unique_ptr<WakeEngine> m_engine;
};

// A colour of a table with components from 0 to 1, to compare by its bytes.
inline QColor tableColour(double red, double green, double blue, double alpha = 1)
{
    const auto byte = [](double component) { return static_cast<int>(std::lround(component * 255)); };
    return {byte(red), byte(green), byte(blue), byte(alpha)};
}
inline QColor bytes(const QColor& colour)
{
    return QColor::fromRgba(colour.rgba());
}

inline QPoint middleOf(const QWidget& widget)
{
    return widget.rect().center();
}

// The pointer as the window system tells of it: offscreen there is none to move.
inline void pointAt(QWidget& widget)
{
    const QPointF middle = middleOf(widget);
    QEnterEvent event(middle, middle, QPointF(widget.mapToGlobal(middle.toPoint())));
    QApplication::sendEvent(&widget, &event);
}
inline void pointAway(QWidget& widget)
{
    QEvent event(QEvent::Leave);
    QApplication::sendEvent(&widget, &event);
}

// As it is painted, in the pixels of the process's scale.
inline QImage picture(QWidget& widget)
{
    return widget.grab().toImage().convertToFormat(QImage::Format_ARGB32);
}

} // namespace orrinvale
