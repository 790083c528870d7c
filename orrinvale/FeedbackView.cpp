// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/FeedbackView.h"

#include "kit/TextLabel.h"
#include "kit/WindowText.h"

#include <QPainter>

#include <utility>

namespace orrinvale
{

namespace
{

constexpr auto headerHeight = 72;
constexpr auto ruleHeight = 2;
constexpr auto ruleAlpha = 0.8;
constexpr auto inset = 20;
constexpr auto lineGap = 1;

} // namespace

FeedbackView::FeedbackView(std::shared_ptr<FeedbackState> state, MainQueue& queue, FeedbackOverlay::Motion motion)
    : m_state(std::move(state)), m_colours(&WindowPalette::of(Look::light)),
      m_product(new TextLabel(this, Qt::ElideRight)), m_title(new TextLabel(this, Qt::ElideRight)),
      m_overlay(new FeedbackOverlay(motion, this))
{
    setMinimumSize(feedbackFrame::minimumSize);
    m_product->setContent(QStringLiteral("orrinvale"));
    m_title->setContent(QStringLiteral("Send Feedback"));
    applyTheme(Look::light);
    stateChanged();
    for (auto* value : {&m_state->isLoading, &m_state->loadFailed})
        m_cancellables += value->observeOn(
            queue, [this](bool) { stateChanged(); }, Deliver::changesOnly);
}

void FeedbackView::setForm(QWidget* form)
{
    m_form = form;
    m_form->setParent(this);
    m_form->show();
    m_overlay->raise();
    layOut();
}

void FeedbackView::applyTheme(Look look)
{
    m_colours = &WindowPalette::of(look);
    applyTextStyle(*m_product, windowText::subtitle, m_colours->quietText);
    applyTextStyle(*m_title, windowText::windowHead, m_colours->primaryText);
    m_overlay->applyTheme(look);
    layOut();
    update();
}

void FeedbackView::stateChanged()
{
    const auto overlay = m_state->overlay();
    m_overlay->show(overlay);
    if (!m_form)
        return;
    const auto failed = overlay == FeedbackState::Overlay::failed;
    if (failed)
        setFocus();
    m_form->setVisible(!failed);
    if (overlay == FeedbackState::Overlay::none)
        m_form->setFocus();
}

// The two lines stand in the middle of the header together.
void FeedbackView::layOut()
{
    const auto productHeight = windowText::subtitle.line();
    const auto titleHeight = windowText::windowHead.line();
    const auto top = (headerHeight - productHeight - lineGap - titleHeight) / 2;
    m_product->setGeometry(inset, top, width() - 2 * inset, productHeight);
    m_title->setGeometry(inset, top + productHeight + lineGap, width() - 2 * inset, titleHeight);
    const auto content = rect().adjusted(0, headerHeight + ruleHeight, 0, 0);
    m_overlay->setGeometry(content);
    if (m_form)
        m_form->setGeometry(content);
}

void FeedbackView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), m_colours->window);
    painter.fillRect(0, 0, width(), headerHeight, m_colours->card);
    painter.fillRect(0, headerHeight, width(), ruleHeight, withAlpha(m_colours->accent, ruleAlpha));
}

void FeedbackView::resizeEvent(QResizeEvent*)
{
    layOut();
}

} // namespace orrinvale
