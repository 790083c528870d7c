// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "kit/WindowPalette.h"

#include <QWidget>

namespace orrinvale
{

class AdaptiveView;
class Clock;
class DayDetailView;
class HeatmapView;
class LocalCalendar;
class TextLabel;
class WindowButton;

// What the activity log window shows, and where: a header with the number of entries and two buttons, the heatmap and
// the selected day. Who owns it fills it and listens to the buttons.
class ActivityLogView final : public QWidget
{
    Q_OBJECT

public:
    ActivityLogView(const Clock& clock, const LocalCalendar& calendar);

    void setTheme(Look look);

    TextLabel& titleLabel() const { return *m_titleLabel; }
    TextLabel& statsLabel() const { return *m_statsLabel; }
    WindowButton& clearButton() const { return *m_clearButton; }
    WindowButton& exportButton() const { return *m_exportButton; }
    HeatmapView& heatmapView() const { return *m_heatmapView; }
    DayDetailView& dayDetailView() const { return *m_dayDetailView; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOut();
    void layOutHeader();

    const WindowPalette* m_colours;
    HeatmapView* m_heatmapView; // first in the focus order
    TextLabel* m_titleLabel;
    TextLabel* m_statsLabel;
    WindowButton* m_clearButton;
    WindowButton* m_exportButton;
    DayDetailView* m_dayDetailView;
};

} // namespace orrinvale
