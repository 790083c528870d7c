// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/HeatmapView.h"

#include "kit/PaintedButton.h"
#include "kit/Shapes.h"
#include "kit/TextLabel.h"
#include "kit/Typography.h"
#include "text/LocalCalendar.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

#include <cmath>

namespace orrinvale
{

namespace
{

constexpr auto ringRadius = 4.0;
constexpr auto titleTracking = 0.55;
constexpr auto focusMargin = 5.0; // between the grid and the ring around it
constexpr auto focusRadius = 7.0;

QFont::Weight weightOf(TextWeight weight)
{
    return weight == TextWeight::semibold ? QFont::DemiBold
           : weight == TextWeight::medium ? QFont::Medium
                                          : QFont::Normal;
}

// The views keep their sizes whatever the desktop's text scale: the grid they name does.
QFont fontOf(const HeatmapLabel& label)
{
    return scaledFont(label.points, weightOf(label.weight), label.weight == TextWeight::semibold ? titleTracking : 0,
                      1);
}

double wordWidth(const char* word)
{
    constexpr auto legendPoints = 9.0;
    return QFontMetricsF(scaledFont(legendPoints, QFont::Normal, 0, 1)).horizontalAdvance(QLatin1String(word));
}

std::optional<HeatmapMove> moveOf(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return HeatmapMove::left;
    case Qt::Key_Right:
        return HeatmapMove::right;
    case Qt::Key_Up:
        return HeatmapMove::up;
    case Qt::Key_Down:
        return HeatmapMove::down;
    case Qt::Key_Home:
        return HeatmapMove::home;
    case Qt::Key_End:
        return HeatmapMove::end;
    default:
        return std::nullopt;
    }
}

} // namespace

HeatmapView::HeatmapView(const Clock& clock, const LocalCalendar& calendar, QWidget* parent)
    : QWidget(parent), m_clock(clock), m_calendar(calendar), m_selectedDate(clock.now())
{
    setAccessibleName(QStringLiteral("Activity"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    recount();
}

void HeatmapView::setEntries(std::vector<ActivityEntry> entries)
{
    m_entries = std::move(entries);
    recount();
}

void HeatmapView::setSelectedDate(Instant date)
{
    m_selectedDate = date;
    update();
    announceSelection();
}

void HeatmapView::setTheme(bool isDark, bool isSakura)
{
    m_isDark = isDark;
    m_isSakura = isSakura;
    update();
}

void HeatmapView::recount()
{
    m_today = m_calendar.dateKey(m_clock.now());
    m_grid = heatmapGrid(m_entries, m_clock.now(), m_calendar);
    update();
}

QRectF HeatmapView::flipped(const Rect& rect) const
{
    const auto onScreen = rect.flipped(height());
    return {onScreen.x, onScreen.y, onScreen.width, onScreen.height};
}

QRectF HeatmapView::cellOnScreen(const HeatmapCell& cell) const
{
    return flipped(cell.rect);
}

QString HeatmapView::tooltipOf(const HeatmapCell& cell) const
{
    return QString::fromStdString(heatmapTooltip(cell.day, m_calendar));
}

bool HeatmapView::isSelected(const HeatmapCell& cell) const
{
    return cell.day.dateKey == m_calendar.dateKey(m_selectedDate);
}

void HeatmapView::selectDay(Instant date)
{
    if (onSelectDay)
        onSelectDay(date);
}

const HeatmapCell* HeatmapView::cellAt(const QPointF& position) const
{
    // Turned over, so that a pixel belongs to the cell that is painted on it.
    for (const auto& cell : m_cellRects) {
        if (cell.rect.flipped(height()).contains({position.x(), position.y()}))
            return &cell;
    }
    return nullptr;
}

void HeatmapView::mouseMoveEvent(QMouseEvent* event)
{
    setCursor(cellAt(event->position()) ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void HeatmapView::mousePressEvent(QMouseEvent* event)
{
    m_showsFocusRing = false;
    update();
    if (const auto* cell = cellAt(event->position()); cell && event->button() == Qt::LeftButton)
        selectDay(cell->day.date);
}

void HeatmapView::keyPressEvent(QKeyEvent* event)
{
    const auto isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const auto move = moveOf(event->key());
    if (!move && !isEnter)
        return event->ignore();
    m_showsFocusRing = true;
    update();
    const auto selected = m_calendar.dateKey(m_selectedDate);
    const auto* day = move ? heatmapMove(m_grid, selected, *move) : m_grid.dayOf(selected);
    if (day)
        selectDay(day->date);
}

void HeatmapView::focusInEvent(QFocusEvent* event)
{
    m_showsFocusRing = isKeyboardFocus(event->reason());
    QWidget::focusInEvent(event);
    announceSelection();
}

void HeatmapView::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    update();
}

bool HeatmapView::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    if (const auto* cell = cellAt(help->pos()))
        QToolTip::showText(help->globalPos(), plainToolTip(tooltipOf(*cell)), this,
                           cellOnScreen(*cell).toAlignedRect());
    else
        QToolTip::hideText();
    return true;
}

void HeatmapView::announceSelection()
{
    if (!QAccessible::isActive() || !hasFocus())
        return;
    for (std::size_t i = 0; i < m_cellRects.size(); ++i) {
        if (!isSelected(m_cellRects[i]))
            continue;
        QAccessibleEvent event(this, QAccessible::Focus);
        event.setChild(static_cast<int>(i));
        QAccessible::updateAccessibility(&event);
    }
}

void HeatmapView::paintLabel(QPainter& painter, const HeatmapLabel& label) const
{
    const auto font = fontOf(label);
    const QFontMetricsF metrics(font);
    const auto text = QString::fromStdString(label.text);
    const auto isAtRight = label.at == HeatmapLabel::Corner::right;
    const auto left = isAtRight ? label.corner.x - metrics.horizontalAdvance(text) : label.corner.x;
    painter.setFont(font);
    painter.drawText(QPointF(left, height() - label.corner.y - metrics.descent()), text);
}

void HeatmapView::paintCells(QPainter& painter, const ActivityPalette& colours) const
{
    painter.setPen(Qt::NoPen);
    for (const auto& cell : m_cellRects) {
        painter.setBrush(colours.levels[cell.day.level()]);
        painter.drawRoundedRect(snapped(painter, flipped(cell.rect)), heatmapCellRadius, heatmapCellRadius);
    }
}

void HeatmapView::paintSelection(QPainter& painter, const HeatmapLayout& layout, const ActivityPalette& colours) const
{
    if (const auto ring = layout.selectionRing(m_calendar.dateKey(m_selectedDate))) {
        // Around the cell as it is drawn, so that the gap is the same on every side.
        const auto cell = snapped(painter, flipped(ring->grownBy(-heatmapRingWidth)));
        const auto w = heatmapRingWidth;
        painter.setPen(QPen(colours.selectionRing, heatmapRingWidth));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(cell.adjusted(-w, -w, w, w), ringRadius, ringRadius);
    }
    if (showsFocusRing())
        strokeInside(painter, snapped(painter, flipped(layout.grid.grownBy(focusMargin + 1))), focusRadius + 1, 2,
                     WindowPalette::of(lookOf(m_isDark, m_isSakura)).focusRing);
}

void HeatmapView::paintLegend(QPainter& painter, const ActivityPalette& colours) const
{
    const auto legend = heatmapLegend(width(), wordWidth("Less"), wordWidth("More"));
    paintLabel(painter, legend.less);
    paintLabel(painter, legend.more);
    painter.setPen(Qt::NoPen);
    for (std::size_t level = 0; level < legend.swatches.size(); ++level) {
        painter.setBrush(colours.levels[level]);
        painter.drawRoundedRect(snapped(painter, flipped(legend.swatches[level])), heatmapSwatchRadius,
                                heatmapSwatchRadius);
    }
}

void HeatmapView::paintEvent(QPaintEvent*)
{
    if (m_today != m_calendar.dateKey(m_clock.now()))
        recount(); // the window was left open past midnight
    HeatmapLayout layout(m_grid, width(), height());
    const auto& window = WindowPalette::of(lookOf(m_isDark, m_isSakura));
    const auto colours = ActivityPalette::of(m_isDark, m_isSakura);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintCard(painter, rect(), window.card, window.border);
    for (const auto& guide : layout.guides)
        painter.fillRect(snapped(painter, flipped(guide)), window.border);
    painter.setPen(window.quietText);
    for (const auto& label : layout.labels)
        paintLabel(painter, label);
    m_cellRects = layout.cells;
    paintCells(painter, colours);
    paintSelection(painter, layout, colours);
    painter.setPen(window.quietText);
    paintLegend(painter, colours);
}

} // namespace orrinvale
