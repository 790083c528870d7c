// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/FeedbackView.h"

namespace orrinvale
{

// The window with the form, on the middle of the screen when it first appears. The user closes it with its button or
// with Escape.
class FeedbackWindow final : public QWidget
{
    Q_OBJECT

public:
    // Takes `view`.
    FeedbackWindow(FeedbackView* view, Look look);

    void applyTheme(Look look);
    // Shows it in front of everything, with the keyboard's focus.
    void bringForward();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    FeedbackView* m_view;
    Look m_look;
};

} // namespace orrinvale
