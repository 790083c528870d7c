// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/FeedbackFailureWindow.h"

#include "orrinvale/FeedbackView.h"
#include "platform/Platform.h"

namespace orrinvale
{

namespace
{

std::shared_ptr<FeedbackState> failedState()
{
    auto state = std::make_shared<FeedbackState>();
    state->loadFailed.set(true);
    state->isLoading.set(false);
    return state;
}

} // namespace

FeedbackFailureWindow::FeedbackFailureWindow(AppSettings& settings, const Platform& platform)
    : WindowController(settings, platform, {feedbackFrame::title, feedbackFrame::size, feedbackFrame::minimumSize}),
      m_view(new FeedbackView(failedState(), platform.mainQueue, FeedbackOverlay::Motion::still))
{
    window().setWindowFlags(feedbackFrame::flags);
    setContent(m_view);
}

void FeedbackFailureWindow::applyTheme()
{
    m_view->applyTheme(look());
}

} // namespace orrinvale
