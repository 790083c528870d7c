// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ActivityLogView.h"

#include "kit/FocusRing.h"
#include "kit/OverlayScrollArea.h"
#include "kit/TextLabel.h"
#include "kit/WindowButton.h"
#include "kit/WindowText.h"
#include "orrinvale/DayDetailView.h"
#include "orrinvale/HeatmapView.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

namespace orrinvale
{

namespace
{

constexpr auto inset = 20;
constexpr auto headerHeight = 72;
constexpr auto ruleHeight = 2;
constexpr auto ruleOpacity = 0.8;
constexpr auto heatmapTop = headerHeight + ruleHeight + inset;
constexpr auto heatmapHeight = 196;
constexpr auto cardGap = 16;
constexpr auto buttonGap = 8;
constexpr auto titleToStats = 1;

} // namespace

ActivityLogView::ActivityLogView(const Clock& clock, const LocalCalendar& calendar)
    : m_colours(&WindowPalette::of(Look::light)), m_heatmapView(new HeatmapView(clock, calendar, this)),
      m_titleLabel(new TextLabel(this, Qt::ElideRight)), m_statsLabel(new TextLabel(this, Qt::ElideRight)),
      m_clearButton(new WindowButton(QStringLiteral("Clear"), WindowButton::Kind::ordinary, this)),
      m_exportButton(new WindowButton(QStringLiteral("Export"), WindowButton::Kind::ordinary, this)),
      m_dayDetailView(new DayDetailView(clock, calendar, this))
{
    m_clearButton->setSymbol(QStringLiteral("trash"));
    m_clearButton->setDangerous(true);
    m_exportButton->setSymbol(QStringLiteral("square.and.arrow.up"));
    m_statsLabel->setContent(QStringLiteral("0 entries"));
    setFocusProxy(m_heatmapView);
}

void ActivityLogView::setTheme(Look look)
{
    m_colours = &WindowPalette::of(look);
    const auto isSakura = look == Look::sakura;
    const auto isDark = look == Look::dark;
    m_heatmapView->setTheme(isDark, isSakura);
    m_dayDetailView->setTheme(isDark, isSakura);
    m_titleLabel->setContent(isSakura ? QStringLiteral("🌸  Activity Log") : QStringLiteral("🍵  Activity Log"));
    applyTextStyle(*m_titleLabel, windowText::windowHead, m_colours->primaryText);
    applyTextStyle(*m_statsLabel, windowText::subtitle, m_colours->secondaryText);
    m_clearButton->setColours(*m_colours);
    m_exportButton->setColours(*m_colours);
    layOut();
    update();
}

void ActivityLogView::layOutHeader()
{
    auto right = width() - inset;
    for (auto* button : {m_exportButton, m_clearButton}) {
        const auto size = button->shownSize();
        placeShown(*button,
                   QRect(right - size.width(), (headerHeight - size.height()) / 2, size.width(), size.height()));
        right -= size.width() + buttonGap;
    }
    const auto title = windowText::windowHead.line();
    const auto stats = windowText::subtitle.line();
    const auto top = (headerHeight - title - titleToStats - stats) / 2;
    m_titleLabel->setGeometry(inset, top, right - inset, title);
    m_statsLabel->setGeometry(inset, top + title + titleToStats, right - inset, stats);
}

void ActivityLogView::layOut()
{
    layOutHeader();
    m_heatmapView->setGeometry(inset, heatmapTop, width() - 2 * inset, heatmapHeight);
    const auto detailTop = heatmapTop + heatmapHeight + cardGap;
    m_dayDetailView->setGeometry(inset, detailTop, width() - 2 * inset, height() - inset - detailTop);
}

// What does not fit in the day's card has nothing that could have the focus.
void ActivityLogView::keyPressEvent(QKeyEvent* event)
{
    auto* scrollBar = m_dayDetailView->scrollArea().verticalScrollBar();
    if (event->key() == Qt::Key_PageUp)
        scrollBar->triggerAction(QAbstractSlider::SliderPageStepSub);
    else if (event->key() == Qt::Key_PageDown)
        scrollBar->triggerAction(QAbstractSlider::SliderPageStepAdd);
    else
        event->ignore();
}

void ActivityLogView::resizeEvent(QResizeEvent*)
{
    layOut();
}

void ActivityLogView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), m_colours->window);
    painter.fillRect(0, 0, width(), headerHeight, m_colours->card);
    painter.fillRect(0, headerHeight, width(), ruleHeight, withAlpha(m_colours->accent, ruleOpacity));
}

} // namespace orrinvale
