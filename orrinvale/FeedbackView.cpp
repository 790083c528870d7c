// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/FeedbackView.h"

#include "orrinvale/Typography.h"

#include <QPainter>

#include <utility>

namespace orrinvale
{

namespace
{

constexpr auto headerHeight = 72;
constexpr auto ruleHeight = 2;
constexpr auto ruleAlpha = 0.8F;
constexpr auto inset = 20;
constexpr auto productLine = 15.0;
constexpr auto titleLine = 20.0;
constexpr auto lineGap = 1.0;
constexpr QSize smallestSize(380, 420);

void paintLine(QPainter& painter, double top, double height, const QFont& font, const QColor& colour,
               const QString& text)
{
    painter.setFont(font);
    painter.setPen(colour);
    painter.drawText(QRectF(inset, top, 1, height), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, text);
}

// Both lines stand in the middle of the header together.
void paintHeader(QPainter& painter, int width, const FeedbackPalette& palette)
{
    const auto scale = textScale();
    const auto top = (headerHeight - (productLine + titleLine) * scale - lineGap) / 2;
    painter.fillRect(0, 0, width, headerHeight, palette.header);
    paintLine(painter, top, productLine * scale, textFont(11), palette.quiet, QStringLiteral("orrinvale"));
    paintLine(painter, top + productLine * scale + lineGap, titleLine * scale, textFont(14, QFont::DemiBold),
              palette.primary, QStringLiteral("Send Feedback"));
}

} // namespace

FeedbackView::FeedbackView(std::shared_ptr<FeedbackState> state, MainQueue& queue, Look look,
                           FeedbackOverlay::Motion motion)
    : m_state(std::move(state)), m_palette(FeedbackPalette::of(look)),
      m_overlay(new FeedbackOverlay(m_palette, motion, this))
{
    setMinimumSize(smallestSize);
    setAccessibleName(QStringLiteral("Send Feedback"));
    stateChanged();
    for (auto* value : {&m_state->isLoading, &m_state->loadFailed})
        m_cancellables += value->observeOn(
            queue, [this](bool) { stateChanged(); }, Deliver::ChangesOnly);
}

void FeedbackView::setForm(QWidget* form)
{
    m_form = form;
    m_form->setParent(this);
    m_form->setGeometry(contentRect());
    m_form->show();
    m_overlay->raise();
}

void FeedbackView::setLook(Look look)
{
    m_palette = FeedbackPalette::of(look);
    m_overlay->setColours(m_palette);
    update();
}

void FeedbackView::stateChanged()
{
    m_overlay->show(overlay());
    if (!m_form)
        return;
    const auto failed = overlay() == FeedbackState::Overlay::failed;
    if (failed)
        setFocus();
    m_form->setVisible(!failed);
    if (overlay() == FeedbackState::Overlay::none)
        m_form->setFocus();
}

QRect FeedbackView::contentRect() const
{
    return rect().adjusted(0, headerHeight + ruleHeight, 0, 0);
}

void FeedbackView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), m_palette.window);
    paintHeader(painter, width(), m_palette);
    auto rule = m_palette.accent;
    rule.setAlphaF(ruleAlpha);
    painter.fillRect(0, headerHeight, width(), ruleHeight, rule);
}

void FeedbackView::resizeEvent(QResizeEvent*)
{
    m_overlay->setGeometry(contentRect());
    if (m_form)
        m_form->setGeometry(contentRect());
}

} // namespace orrinvale
