// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "kit/WindowPalette.h"
#include "orrinvale/FeedbackState.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QVariantAnimation>
#include <QWidget>

namespace orrinvale
{

class TextLabel;

// Covers the form until it is there: a turning ring with "Loading survey…", or the failure text for good. Fades away
// once the form is loaded. Owned by the feedback view.
class FeedbackOverlay final : public QWidget
{
    Q_OBJECT

public:
    enum class Motion { still, moving };

    FeedbackOverlay(Motion motion, QWidget* parent);

    void show(FeedbackState::Overlay what);
    void applyTheme(Look look);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    bool isFailed() const { return m_shown == FeedbackState::Overlay::failed; }
    void showText();
    void fadeAway();
    void setOpacity(double opacity);
    void layOut();
    void paintRing(QPainter& painter) const;

    const WindowPalette* m_colours;
    Motion m_motion;
    FeedbackState::Overlay m_shown = FeedbackState::Overlay::loading;
    double m_opacity = 1;
    QRectF m_picture; // the ring's or the symbol's place
    TextLabel* m_text;
    QVariantAnimation m_fade;
    QBasicTimer m_turning;
    QElapsedTimer m_turned;
};

} // namespace orrinvale
