// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/FeedbackPalette.h"
#include "orrinvale/FeedbackState.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QVariantAnimation>
#include <QWidget>

namespace orrinvale
{

// Covers the form until it is there: a turning ring with "Loading survey…", or the failure text for good. Fades away
// once the form is loaded. Owned by the feedback view.
class FeedbackOverlay final : public QWidget
{
    Q_OBJECT

public:
    enum class Motion { still, moving };

    FeedbackOverlay(const FeedbackPalette& palette, Motion motion, QWidget* parent);

    void show(FeedbackState::Overlay what);
    void setColours(const FeedbackPalette& palette);

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    bool isFailed() const { return m_shown == FeedbackState::Overlay::failed; }
    QString text() const;
    void fadeAway();
    void paintRing(QPainter& painter, QPointF corner) const;
    void paintText(QPainter& painter, double top, double lineHeight) const;

    FeedbackPalette m_palette;
    Motion m_motion;
    FeedbackState::Overlay m_shown = FeedbackState::Overlay::loading;
    double m_opacity = 1;
    QVariantAnimation m_fade;
    QBasicTimer m_turning;
    QElapsedTimer m_turned;
};

} // namespace orrinvale
