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
#include <cmath>

namespace orrinvale
{

namespace
{

constexpr auto focusMargin = 4; // room around the track for the ring of an outer segment
constexpr auto trackInset = 2;
constexpr auto trackRadius = 10.0;
constexpr auto gap = 4;
constexpr auto labelPixels = 12.0;
constexpr auto labelPadding = 4; // at the sides, and above and below
constexpr auto trackHeight = 36;
constexpr auto smallestLabel = 9.0;
constexpr auto labelStep = 0.5;

QFont labelFont(double pixels)
{
    return scaledFont(pixels, QFont::DemiBold, 0, 1); // the wider of the two weights
}

bool fit(const QStringList& texts, double width, double pixels)
{
    const QFontMetricsF metrics(labelFont(pixels));
    return std::all_of(texts.begin(), texts.end(),
                       [&](const auto& text) { return metrics.horizontalAdvance(text) <= width; });
}

} // namespace

SegmentLabels segmentLabels(const QStringList& titles, double width, double wantedPixels)
{
    for (auto pixels = wantedPixels; pixels >= wantedPixels * 0.9; pixels -= labelStep)
        if (fit(titles, width, pixels))
            return {pixels, ModeToggleButton::Label::oneLine};
    const auto words = titles.join(QLatin1Char(' ')).split(QLatin1Char(' '));
    auto pixels = wantedPixels;
    while (pixels > smallestLabel && !fit(words, width, pixels))
        pixels -= labelStep;
    return {pixels, ModeToggleButton::Label::wrapped};
}

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

QStringList ModeToggleControl::titles() const
{
    QStringList titles;
    for (const auto* button : m_buttons)
        titles += button->text();
    return titles;
}

void ModeToggleControl::fitLabels()
{
    const auto labels = segmentLabels(titles(), m_buttons.front()->width() - labelPadding, labelPixels * m_scale);
    for (auto* button : m_buttons)
        button->setLabel(labels.pixels, labels.label);
}

int ModeToggleControl::trackHeightFor(int trackWidth) const
{
    const auto segment =
        segmentRects({trackWidth, trackHeight}, static_cast<int>(m_buttons.size()), trackInset).front();
    const auto labels = segmentLabels(titles(), segment.width() - labelPadding, labelPixels * m_scale);
    const auto lines = labels.label == ModeToggleButton::Label::wrapped ? 2 : 1;
    const auto line = static_cast<int>(std::ceil(QFontMetricsF(labelFont(labels.pixels)).height()));
    const auto usual = static_cast<int>(std::lround(trackHeight + 16 * (m_scale - 1)));
    return std::max(usual, lines * line + labelPadding + 2 * trackInset);
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
