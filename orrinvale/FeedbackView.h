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
    FeedbackView(std::shared_ptr<FeedbackState> state, MainQueue& queue, FeedbackOverlay::Motion motion);

    // Takes `form`, which gets all the room below the header.
    void setForm(QWidget* form);
    void applyTheme(Look look);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void stateChanged();
    void layOut();

    std::shared_ptr<FeedbackState> m_state;
    const WindowPalette* m_colours;
    TextLabel* m_product;
    TextLabel* m_title;
    QWidget* m_form = nullptr;
    FeedbackOverlay* m_overlay;
    Cancellables m_cancellables;
};

// The frame around the view, which two programs give it.
namespace feedbackFrame
{
inline const QString title = QStringLiteral("Feedback");
inline constexpr QSize size(520, 640);
inline constexpr QSize minimumSize(380, 420);
// Everything but the button that minimizes.
inline constexpr auto flags = Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                              Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint;
} // namespace feedbackFrame

} // namespace orrinvale
