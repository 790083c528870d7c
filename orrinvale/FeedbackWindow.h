// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/FeedbackView.h"

namespace orrinvale
{

// The window "Feedback", centred when it first appears. The user closes it with its button or with Escape.
class FeedbackWindow final : public QWidget
{
    Q_OBJECT

public:
    FeedbackWindow(std::shared_ptr<FeedbackState> state, MainQueue& queue, Look look, FeedbackOverlay::Motion motion);

    FeedbackView& view() { return *m_view; }
    // Shows it in front of everything, with the keyboard's focus.
    void bringForward();

Q_SIGNALS:
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    FeedbackView* m_view;
};

} // namespace orrinvale
