// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/FeedbackOverlay.h"

#include "orrinvale/Symbols.h"
#include "orrinvale/Typography.h"

#include <QPainter>
#include <QTimerEvent>

namespace orrinvale
{

namespace
{

constexpr auto fadeMilliseconds = 160;
constexpr auto turnMilliseconds = 1000;
constexpr auto stepMilliseconds = 33;
constexpr auto ringSide = 24.0;
constexpr auto ringGap = 12.0;
constexpr auto ringLine = 18.0;
constexpr auto symbolSide = 36.0;
constexpr auto symbolGap = 14.0;
constexpr auto symbolLine = 20.0;
constexpr auto aboveTheMiddle = 20.0;
constexpr auto textPixels = 13.0;

} // namespace

FeedbackOverlay::FeedbackOverlay(const FeedbackPalette& palette, Motion motion, QWidget* parent)
    : QWidget(parent), m_palette(palette), m_motion(motion)
{
    setAccessibleName(text());
    m_fade.setDuration(fadeMilliseconds);
    m_fade.setStartValue(1.0);
    m_fade.setEndValue(0.0);
    connect(&m_fade, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        m_opacity = value.toDouble();
        update();
    });
    connect(&m_fade, &QVariantAnimation::finished, this, &QWidget::hide);
}

void FeedbackOverlay::show(FeedbackState::Overlay what)
{
    if (what == m_shown)
        return;
    m_shown = what;
    m_turning.stop();
    if (what == FeedbackState::Overlay::none)
        return fadeAway();
    m_fade.stop();
    m_opacity = 1;
    setAccessibleName(text());
    setVisible(true);
    update();
}

void FeedbackOverlay::setColours(const FeedbackPalette& palette)
{
    m_palette = palette;
    update();
}

QString FeedbackOverlay::text() const
{
    return isFailed() ? QStringLiteral("Couldn't load the survey.\nCheck your internet connection.")
                      : QStringLiteral("Loading survey…");
}

void FeedbackOverlay::fadeAway()
{
    if (isVisible() && m_motion == Motion::moving)
        m_fade.start();
    else
        hide();
}

void FeedbackOverlay::showEvent(QShowEvent*)
{
    if (m_shown != FeedbackState::Overlay::loading || m_motion == Motion::still)
        return;
    m_turned.start();
    m_turning.start(stepMilliseconds, this);
}

void FeedbackOverlay::hideEvent(QHideEvent*)
{
    m_turning.stop();
}

void FeedbackOverlay::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_turning.timerId())
        update();
}

void FeedbackOverlay::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setOpacity(m_opacity);
    painter.fillRect(rect(), m_palette.window);
    if (m_shown == FeedbackState::Overlay::none)
        return;
    const auto side = isFailed() ? symbolSide : ringSide;
    const auto gap = isFailed() ? symbolGap : ringGap;
    const auto line = textScale() * (isFailed() ? symbolLine : ringLine);
    const auto lines = static_cast<double>(text().count(u'\n') + 1);
    const auto top = (height() - side - gap - lines * line) / 2 - aboveTheMiddle;
    const QPointF corner((width() - side) / 2, top);
    if (isFailed())
        paintSymbol(painter, QStringLiteral("wifi.slash"), QRectF(corner, QSizeF(side, side)), m_palette.quiet);
    else
        paintRing(painter, corner);
    paintText(painter, top + side + gap, line);
}

void FeedbackOverlay::paintRing(QPainter& painter, QPointF corner) const
{
    constexpr auto width = 2.5;
    const auto circle = QRectF(corner, QSizeF(ringSide, ringSide)).adjusted(width, width, -width, -width);
    const auto turned = m_turning.isActive() ? m_turned.elapsed() % turnMilliseconds : 0;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(m_palette.ringRest, width));
    painter.drawEllipse(circle);
    painter.setPen(QPen(m_palette.ringDone, width, Qt::SolidLine, Qt::RoundCap));
    // Sixteenths of a degree; negative is clockwise.
    painter.drawArc(circle, static_cast<int>((90 - turned * 360 / turnMilliseconds) * 16), -90 * 16);
}

void FeedbackOverlay::paintText(QPainter& painter, double top, double lineHeight) const
{
    painter.setFont(textFont(textPixels));
    painter.setPen(m_palette.quiet);
    for (const auto& line : text().split(u'\n')) {
        painter.drawText(QRectF(0, top, width(), lineHeight), Qt::AlignCenter | Qt::TextDontClip, line);
        top += lineHeight;
    }
}

} // namespace orrinvale
