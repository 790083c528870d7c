// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/InlineToolTip.h"

#include <QApplication>
#include <QEvent>
#include <QStyle>
#include <QStylePainter>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace orrinvale
{

namespace
{

constexpr auto gap = 4;
constexpr auto inset = 8;
constexpr auto shownFor = 10000; // ms
constexpr auto perLetter = 40;   // ms more for each beyond the first hundred
constexpr auto quickLetters = 100;

} // namespace

InlineToolTip::InlineToolTip(QWidget& window, const QRect& room) : QLabel(&window), m_room(room)
{
    hide();
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setWordWrap(true);
    setIndent(1);
    setMargin(1 + style()->pixelMetric(QStyle::PM_ToolTipLabelFrameWidth));
    setAlignment(Qt::AlignLeft);
    setForegroundRole(QPalette::ToolTipText);
    qApp->installEventFilter(this);
}

bool InlineToolTip::eventFilter(QObject* object, QEvent* event)
{
    switch (event->type()) {
    case QEvent::ToolTip:
        if (auto* owner = qobject_cast<QWidget*>(object);
            owner && window()->isAncestorOf(owner) && !owner->toolTip().isEmpty()) {
            showFor(*owner);
            return true;
        }
        break;
    case QEvent::Leave:
    case QEvent::Hide:
        if (object == m_owner)
            end();
        break;
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
    case QEvent::KeyPress:
        end();
        break;
    default:
        break;
    }
    return QLabel::eventFilter(object, event);
}

void InlineToolTip::showFor(QWidget& owner)
{
    m_owner = &owner;
    connect(&owner, &QObject::destroyed, this, &InlineToolTip::ownerGone, Qt::UniqueConnection);
    setPalette(QToolTip::palette());
    setFont(QToolTip::font());
    setText(owner.toolTip());
    const auto most = m_room.adjusted(inset, inset, -inset, -inset);
    setWordWrap(false);
    const auto width = std::min(sizeHint().width(), most.width());
    setWordWrap(true);
    resize(width, heightForWidth(width));
    const auto below = QRect(owner.mapTo(window(), QPoint(0, owner.height() + gap)), size());
    const auto above = owner.mapTo(window(), QPoint(0, -gap)).y() - height();
    const auto x = std::max(most.left(), std::min(below.left(), most.right() + 1 - width));
    move(x, below.bottom() <= most.bottom() ? below.top() : above);
    raise();
    show();
    if (m_timer)
        killTimer(m_timer);
    m_timer = startTimer(shownFor + perLetter * std::max(0, static_cast<int>(text().size()) - quickLetters));
}

void InlineToolTip::end()
{
    m_owner = nullptr;
    if (m_timer)
        killTimer(std::exchange(m_timer, 0));
    hide();
}

// It may also have been the owner of an earlier tip.
void InlineToolTip::ownerGone(QObject* owner)
{
    if (owner == m_owner)
        end();
}

void InlineToolTip::timerEvent(QTimerEvent*)
{
    end();
}

void InlineToolTip::paintEvent(QPaintEvent* event)
{
    QStylePainter painter(this);
    QStyleOptionFrame option;
    option.initFrom(this);
    painter.drawPrimitive(QStyle::PE_PanelTipLabel, option);
    painter.end();
    QLabel::paintEvent(event);
}

} // namespace orrinvale
