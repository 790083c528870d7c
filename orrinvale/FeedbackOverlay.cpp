// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/FeedbackOverlay.h"

#include "kit/Symbols.h"
#include "kit/TextLabel.h"
#include "kit/WindowText.h"

#include <QPainter>
#include <QTimerEvent>

namespace orrinvale
{

namespace
{

constexpr auto fadeMilliseconds = 160;
constexpr auto turnMilliseconds = 1000;
constexpr auto stepMilliseconds = 33;
constexpr auto ringSide = 24;
constexpr auto ringGap = 12;
constexpr auto symbolSide = 36;
constexpr auto symbolGap = 14;
constexpr auto aboveTheMiddle = 20;
constexpr auto inset = 24;
constexpr TextStyle failureText{13, 20};

} // namespace

FeedbackOverlay::FeedbackOverlay(Motion motion, QWidget* parent)
    : QWidget(parent), m_colours(&WindowPalette::of(Look::light)), m_motion(motion), m_text(new TextLabel(this))
{
    m_text->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    m_fade.setDuration(fadeMilliseconds);
    m_fade.setStartValue(1.0);
    m_fade.setEndValue(0.0);
    connect(&m_fade, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& value) { setOpacity(value.toDouble()); });
    connect(&m_fade, &QVariantAnimation::finished, this, &QWidget::hide);
    showText();
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
    setOpacity(1);
    showText();
    setVisible(true);
}

void FeedbackOverlay::applyTheme(Look look)
{
    m_colours = &WindowPalette::of(look);
    showText();
}

void FeedbackOverlay::showText()
{
    m_text->setContent(isFailed() ? QStringLiteral("Couldn't load the survey.\nCheck your internet connection.")
                                  : QStringLiteral("Loading survey…"));
    applyTextStyle(*m_text, isFailed() ? failureText : windowText::rowTitle, m_colours->quietText);
    layOut();
    update();
}

void FeedbackOverlay::fadeAway()
{
    if (isVisible() && m_motion == Motion::moving)
        m_fade.start();
    else
        hide();
}

void FeedbackOverlay::setOpacity(double opacity)
{
    m_opacity = opacity;
    m_text->setOpacity(opacity);
    update();
}

void FeedbackOverlay::layOut()
{
    const auto side = isFailed() ? symbolSide : ringSide;
    const auto gap = isFailed() ? symbolGap : ringGap;
    const auto textWidth = width() - 2 * inset;
    const auto textHeight = m_text->heightFor(textWidth, (isFailed() ? failureText : windowText::rowTitle).line());
    const auto top = (height() - side - gap - textHeight) / 2 - aboveTheMiddle;
    m_picture = QRectF((width() - side) / 2.0, top, side, side);
    m_text->setGeometry(inset, top + side + gap, textWidth, textHeight);
}

void FeedbackOverlay::resizeEvent(QResizeEvent*)
{
    layOut();
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
        update(m_picture.toAlignedRect());
}

void FeedbackOverlay::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setOpacity(m_opacity);
    painter.fillRect(rect(), m_colours->window);
    if (isFailed())
        paintSymbol(painter, QStringLiteral("wifi.slash"), m_picture, m_colours->quietText);
    else
        paintRing(painter);
}

void FeedbackOverlay::paintRing(QPainter& painter) const
{
    constexpr auto width = 2.5;
    const auto circle = m_picture.adjusted(width, width, -width, -width);
    const auto turned = m_turning.isActive() ? m_turned.elapsed() % turnMilliseconds : 0;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(m_colours->controlOff, width));
    painter.drawEllipse(circle);
    painter.setPen(QPen(m_colours->controlOn, width, Qt::SolidLine, Qt::RoundCap));
    // Sixteenths of a degree; negative is clockwise.
    painter.drawArc(circle, static_cast<int>((90 - turned * 360 / turnMilliseconds) * 16), -90 * 16);
}

} // namespace orrinvale
