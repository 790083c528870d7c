// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ModeToggleControl.h"

#include "kit/Shapes.h"
#include "kit/Typography.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace orrinvale
{

namespace
{

constexpr auto focusMargin = 4; // room around the track for the ring of an outer segment
constexpr auto trackInset = 2;
constexpr auto trackRadius = 10.0;
constexpr auto gap = 4;
constexpr auto labelPixels = 12.0;
constexpr auto labelPadding = 4;

} // namespace

std::vector<QRect> segmentRects(const QSize& size, int count, int margin)
{
    const auto width = (size.width() - 2 * margin - gap * (count - 1)) / count;
    std::vector<QRect> rects;
    for (int i = 0; i < count; ++i)
        rects.emplace_back(margin + i * (width + gap), margin, width, size.height() - 2 * margin);
    rects.back().setRight(size.width() - margin - 1);
    return rects;
}

ModeToggleControl::ModeToggleControl(const QStringList& titles, QWidget* parent) : QWidget(parent)
{
    setAccessibleName(QStringLiteral("Mode"));
    for (const auto& title : titles) {
        auto* button = new ModeToggleButton(title, this);
        const auto index = static_cast<int>(m_buttons.size());
        button->onTap = [this, index] { tap(index); };
        button->installEventFilter(this);
        m_buttons.push_back(button);
    }
    setFocusProxy(m_buttons.front());
    select(0);
}

void ModeToggleControl::select(int index)
{
    if (index < 0 || index >= static_cast<int>(m_buttons.size()))
        return;
    m_selectedIndex = index;
    for (auto* button : m_buttons)
        button->setSelected(button == m_buttons[index]);
    setFocusProxy(m_buttons[index]);
}

void ModeToggleControl::tap(int index)
{
    select(index);
    if (onSelect)
        onSelect(index);
}

void ModeToggleControl::setColours(const Colours& colours)
{
    m_colours = colours;
    for (auto* button : m_buttons)
        button->setColours(colours.segment);
    update();
}

void ModeToggleControl::setScale(double scale)
{
    m_scale = scale;
    fitLabels();
}

void ModeToggleControl::fitLabels()
{
    auto pixels = labelPixels * m_scale;
    const auto fits = [&](const ModeToggleButton* button) {
        const QFontMetricsF metrics(scaledFont(pixels, QFont::DemiBold, 0, 1));
        return metrics.horizontalAdvance(button->text()) <= button->width() - labelPadding;
    };
    constexpr auto smallest = 9.0;
    while (pixels > smallest && !std::all_of(m_buttons.begin(), m_buttons.end(), fits))
        pixels -= 0.5;
    for (auto* button : m_buttons)
        button->setFontPixels(pixels);
}

void ModeToggleControl::layOut()
{
    const auto rects = segmentRects(size(), static_cast<int>(m_buttons.size()), focusMargin + trackInset);
    for (std::size_t i = 0; i < m_buttons.size(); ++i)
        m_buttons[i]->setGeometry(rects[i]);
    fitLabels();
}

void ModeToggleControl::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    layOut();
}

void ModeToggleControl::keyPressEvent(QKeyEvent* event)
{
    const auto last = static_cast<int>(m_buttons.size()) - 1;
    auto wanted = -1;
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
        wanted = m_selectedIndex - 1;
        break;
    case Qt::Key_Right:
    case Qt::Key_Down:
        wanted = m_selectedIndex + 1;
        break;
    case Qt::Key_Home:
        wanted = 0;
        break;
    case Qt::Key_End:
        wanted = last;
        break;
    default:
        event->ignore();
        return;
    }
    if (wanted < 0 || wanted > last || wanted == m_selectedIndex || event->isAutoRepeat())
        return;
    tap(wanted);
    m_buttons[wanted]->setFocus(Qt::TabFocusReason);
}

// The ring of a segment lies outside of it, on this widget.
bool ModeToggleControl::eventFilter(QObject* object, QEvent* event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
        update();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(object, event);
}

void ModeToggleControl::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto track = QRectF(rect()).adjusted(focusMargin, focusMargin, -focusMargin, -focusMargin);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_colours.track);
    painter.drawRoundedRect(track, trackRadius, trackRadius);
    strokeInside(painter, track, trackRadius, 1, m_colours.separator);
    for (const auto* button : m_buttons) {
        if (!button->showsFocusRing())
            continue;
        const auto segment = QRectF(button->geometry());
        strokeInside(painter, segment.adjusted(-2, -2, 2, 2), 10, 2, m_colours.background);
        strokeInside(painter, segment.adjusted(-4, -4, 4, 4), 12, 2, m_colours.segment.focusRing);
    }
}

} // namespace orrinvale
