// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ReasonCardView.h"

#include "base/Clock.h"
#include "base/MainQueue.h"
#include "kit/Shapes.h"
#include "kit/SymbolBadge.h"
#include "kit/TextLabel.h"
#include "kit/Typography.h"
#include "kit/VisibleText.h"

#include <QPainter>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace orrinvale
{

namespace
{

constexpr auto cardRadius = 12.0;
constexpr auto inset = 14;
constexpr auto topInset = 10;
constexpr auto badgeRadius = 8.0;
constexpr auto symbolPoints = 16.0;
constexpr auto badgeToText = 12;
constexpr auto dotSize = 5.0;
constexpr auto dotSpacing = 4.0;
constexpr auto dotPitch = dotSize + dotSpacing;
constexpr auto headerToDots = 8;
constexpr auto otherDotsAlpha = 0.35;
constexpr auto categoryToTime = 8;

std::vector<std::string> detailsOf(const WakeSignals& pages)
{
    std::vector<std::string> details;
    std::transform(pages.begin(), pages.end(), std::back_inserter(details), [](const auto& s) { return s.detail; });
    return details;
}

} // namespace

// Where everything stands on a card of one width.
struct ReasonCardView::Layout {
    QRect header;
    QRect badge;
    QRect title;
    QRect category;
    QRect time;
    int height;
};

ReasonCardView::ReasonCardView(const Colours& colours, MainQueue& queue, const Clock& clock, QWidget* parent)
    : QWidget(parent), m_colours(colours), m_queue(queue), m_clock(clock), m_headerLabel(new TextLabel(this)),
      m_iconBadge(new SymbolBadge(badgeRadius, symbolPoints, this)), m_titleLabel(new TextLabel(this, Qt::ElideMiddle)),
      m_categoryLabel(new TextLabel(this)), m_timeLabel(new TextLabel(this)), m_fade(queue, [this](double opacity) {
          m_iconBadge->setOpacity(opacity);
          for (auto* label : {m_titleLabel, m_categoryLabel, m_timeLabel})
              label->setOpacity(opacity);
      })
{
    m_headerLabel->setContent(QStringLiteral("ACTIVE REASON"));
    m_titleLabel->setContent(QStringLiteral("No active reason"));
    m_timeLabel->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_iconBadge->setSymbol(QStringLiteral("moon.zzz.fill"));
    setScale(1);
    setColours(colours);
}

ReasonCardView::~ReasonCardView() = default;

void ReasonCardView::setColours(const Colours& colours)
{
    m_colours = colours;
    m_titleLabel->setColour(colours.textPrimary);
    for (auto* label : {m_headerLabel, m_categoryLabel, m_timeLabel})
        label->setColour(colours.textSecondary);
    const auto isAccent = m_badge == ReasonContent::Badge::accent;
    m_iconBadge->setColours(isAccent ? colours.accent : colours.idleColor, Qt::white);
    update();
}

void ReasonCardView::setScale(double scale)
{
    m_scale = scale;
    m_headerLabel->setStyle(scaledFont(9, QFont::DemiBold, 0.6, scale), m_colours.textSecondary);
    m_titleLabel->setStyle(scaledFont(13, QFont::Medium, 0, scale), m_colours.textPrimary);
    m_categoryLabel->setStyle(scaledFont(11, QFont::Medium, 0, scale), m_colours.textSecondary);
    m_timeLabel->setStyle(scaledFont(10, QFont::Normal, 0, scale), m_colours.textSecondary);
    layOut();
}

void ReasonCardView::update(const WakeSignals& signals, const std::optional<std::string>& fallbackReason, bool isAwake)
{
    m_fallbackReason = fallbackReason;
    m_isAwakeState = isAwake;
    auto pages = pagesOf(signals);
    const auto isSame = detailsOf(pages) == detailsOf(m_activeSignals);
    m_activeSignals = std::move(pages);
    if (m_rotationIndex < 0 || m_rotationIndex >= static_cast<int>(m_activeSignals.size()))
        m_rotationIndex = 0;
    if (!isSame) {
        m_rotationIndex = 0;
        show(content());
    }
    restartOrStopRotation();
    layOut(); // which the number of dots is a part of
    update();
}

ReasonContent ReasonCardView::content() const
{
    if (m_activeSignals.empty())
        return ReasonContent::ofNoSignal(m_fallbackReason, m_isAwakeState);
    return ReasonContent::of(m_activeSignals[m_rotationIndex % m_activeSignals.size()], m_clock.now());
}

void ReasonCardView::show(const ReasonContent& content)
{
    m_fade.run([this, content] { apply(content); });
}

void ReasonCardView::apply(const ReasonContent& content)
{
    m_titleLabel->setContent(visibleText(content.title));
    m_categoryLabel->setContent(QString::fromStdString(content.category));
    m_timeLabel->setContent(QString::fromStdString(content.time));
    m_iconBadge->setSymbol(QString::fromStdString(content.symbol));
    m_badge = content.badge;
    setColours(m_colours);
    layOut();
    if (onHeightChange)
        onHeightChange();
}

void ReasonCardView::restartOrStopRotation()
{
    if (m_activeSignals.size() < 2)
        m_rotationTimer.cancel();
    else if (!m_rotationTimer)
        m_rotationTimer =
            m_queue.every(std::chrono::milliseconds(std::lround(rotationInterval * 1000)), [this] { rotate(); });
}

void ReasonCardView::rotate()
{
    if (m_activeSignals.size() < 2)
        return;
    m_rotationIndex = (m_rotationIndex + 1) % static_cast<int>(m_activeSignals.size());
    show(content());
    update();
}

ReasonCardView::Layout ReasonCardView::layoutFor(int width) const
{
    const auto line = [this](int pixels) { return static_cast<int>(std::lround(pixels * m_scale)); };
    const auto right = width - inset;
    Layout layout;
    layout.header = QRect(inset, topInset, m_headerLabel->naturalWidth() + 2, line(12));
    const auto moreDots = std::max(dotGrid(width).lines - 1, 0);
    const auto below = layout.header.bottom() + 1 + static_cast<int>(moreDots * dotPitch);
    const auto badgeSize = static_cast<int>(std::lround(32 + 16 * (m_scale - 1)));
    layout.badge = QRect(inset, below + 8, badgeSize, badgeSize);
    const auto left = layout.badge.right() + 1 + badgeToText;
    layout.title = QRect(left, below + 7, right - left, line(18));
    if (m_categoryLabel->text().isEmpty() && m_timeLabel->text().isEmpty())
        layout.title.moveTop(layout.badge.center().y() - line(18) / 2 + 1);
    auto top = below + 7 + line(18) + 1;
    layout.category = QRect(left, top, m_categoryLabel->naturalWidth(), line(14));
    const auto timeWidth = m_timeLabel->naturalWidth();
    const auto fits = layout.category.right() + 1 + categoryToTime + timeWidth <= right;
    if (!fits)
        top += line(14);
    layout.time = QRect(fits ? right - timeWidth : left, top, fits ? timeWidth : right - left, line(14));
    layout.height = std::max(layout.badge.bottom(), layout.time.bottom()) + 1 + inset;
    return layout;
}

int ReasonCardView::heightFor(int width) const
{
    return layoutFor(width).height;
}

void ReasonCardView::layOut()
{
    const auto layout = layoutFor(width());
    m_headerLabel->setGeometry(layout.header);
    m_iconBadge->setGeometry(layout.badge);
    m_iconBadge->setSymbolPoints(symbolPoints * layout.badge.width() / 32.0);
    m_titleLabel->setGeometry(layout.title);
    m_categoryLabel->setGeometry(layout.category);
    m_timeLabel->setGeometry(layout.time);
    m_timeLabel->setAlignment((layout.time.left() == layout.title.left() ? Qt::AlignLeft : Qt::AlignRight) |
                              Qt::AlignVCenter);
}

void ReasonCardView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    layOut();
}

// A line holds what fits beside the header; those that follow it stand in the same columns.
ReasonCardView::DotGrid ReasonCardView::dotGrid(int width) const
{
    const auto count = static_cast<int>(m_activeSignals.size());
    if (count < 2)
        return {};
    const auto room = width - 2 * inset - m_headerLabel->naturalWidth() - headerToDots;
    const auto most = std::max(1, static_cast<int>((room + dotSpacing) / dotPitch));
    const auto columns = std::min(count, most);
    return {columns, (count + columns - 1) / columns};
}

std::vector<QRectF> ReasonCardView::pageDots() const
{
    const auto grid = dotGrid(width());
    if (grid.lines == 0)
        return {};
    const auto top = topInset + std::round((12 * m_scale - dotSize) / 2); // by the middle of the header
    const auto left = width() - inset - (grid.columns * dotPitch - dotSpacing);
    std::vector<QRectF> dots;
    for (int i = 0; i < static_cast<int>(m_activeSignals.size()); ++i)
        dots.emplace_back(left + i % grid.columns * dotPitch, top + i / grid.columns * dotPitch, dotSize, dotSize);
    return dots;
}

void ReasonCardView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_colours.cardBackground);
    painter.drawRoundedRect(rect(), cardRadius, cardRadius);
    strokeInside(painter, rect(), cardRadius, 1, m_colours.separator);
    painter.setPen(Qt::NoPen);
    const auto dots = pageDots();
    for (std::size_t i = 0; i < dots.size(); ++i) {
        const auto isLit = static_cast<int>(i) == m_rotationIndex;
        painter.setBrush(isLit ? m_colours.accent : withAlpha(m_colours.textSecondary, otherDotsAlpha));
        painter.drawRoundedRect(dots[i], dotSize / 2, dotSize / 2);
    }
}

} // namespace orrinvale
