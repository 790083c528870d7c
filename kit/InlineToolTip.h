// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QPointer>

namespace orrinvale
{

// Shows the tooltips of the widgets in a window inside that window, where they cannot have a window of their own. It
// goes with the pointer, a press, a key, and after as long as Qt's own. Main thread; lives as long as the window.
class InlineToolTip final : public QLabel
{
    Q_OBJECT

public:
    // `room` is the part of the window that it may cover.
    InlineToolTip(QWidget& window, const QRect& room);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void showFor(QWidget& owner);
    void end();
    void ownerGone(QObject* owner);

    QRect m_room;
    QPointer<QWidget> m_owner;
    int m_timer = 0;
};

} // namespace orrinvale
