// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/WakeEngine.h"
#include "tests/logic/LogicFixture.h"

#include <QApplication>
#include <QColor>
#include <QKeyEvent>
#include <QWidget>
#include <QWindow>
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
    // A key held down for a while: its repetitions go to whatever has the focus by then.
    void hold(Qt::Key key)
    {
        const auto send = [this, key](QEvent::Type type, bool isRepetition) {
            QKeyEvent event(type, key, Qt::NoModifier, QString(), isRepetition);
            if (auto* focused = QApplication::focusWidget())
                QApplication::sendEvent(focused, &event);
            settle();
        };
        send(QEvent::KeyPress, false);
        for (int i = 0; i < 5; ++i) {
            send(QEvent::KeyRelease, true);
            send(QEvent::KeyPress, true);
        }
        send(QEvent::KeyRelease, false);
    }
    // Clicks in one place of a window, as quick as those of a double click, on whatever is there by then.
    void clickQuickly(QWidget& window, const QPoint& place, int times)
    {
        constexpr auto between = 100; // ms
        for (int i = 0; i < times; ++i) {
            const auto before = QTest::lastMouseTimestamp;
            QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, place);
            QTest::lastMouseTimestamp = before + between;
            settle();
        }
        QTest::lastMouseTimestamp += 1000;
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
