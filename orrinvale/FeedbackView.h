// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"
#include "orrinvale/FeedbackOverlay.h"

#include <memory>

namespace orrinvale
{

class MainQueue;

// The content of the feedback window: a header, and below it the form under what `state` says lies over it. The
// window of the application that failed to start the form shows the same view without a form.
class FeedbackView final : public QWidget
{
    Q_OBJECT

public:
    FeedbackView(std::shared_ptr<FeedbackState> state, MainQueue& queue, Look look, FeedbackOverlay::Motion motion);

    // Takes `form`, which gets all the room below the header.
    void setForm(QWidget* form);
    void setLook(Look look);
    FeedbackState::Overlay overlay() const { return m_state->overlay(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void stateChanged();
    QRect contentRect() const;

    std::shared_ptr<FeedbackState> m_state;
    FeedbackPalette m_palette;
    QWidget* m_form = nullptr;
    FeedbackOverlay* m_overlay;
    Cancellables m_cancellables;
};

} // namespace orrinvale
