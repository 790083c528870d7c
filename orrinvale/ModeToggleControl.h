// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/ModeToggleButton.h"

#include <QStringList>
#include <QWidget>

#include <functional>
#include <vector>

namespace orrinvale
{

// The segmented control for the wake mode: a track with one segment per title. One stop of the Tab key; the arrows,
// Home and End choose within it.
class ModeToggleControl final : public QWidget
{
    Q_OBJECT

public:
    struct Colours {
        QColor track;
        QColor separator;
        QColor background; // behind the track
        ModeToggleButton::Colours segment;
    };

    ModeToggleControl(const QStringList& titles, QWidget* parent);

    // Shows the segment as chosen; an index of no segment changes nothing.
    void select(int index);
    int selectedIndex() const { return m_selectedIndex; }
    const std::vector<ModeToggleButton*>& buttons() const { return m_buttons; }
    void setColours(const Colours& colours);
    // Of the labels; what becomes too wide for its segment takes two lines.
    void setScale(double scale);
    // What the track needs at this width and the present scale.
    int trackHeightFor(int trackWidth) const;

    // Called with the index of the segment that the user tapped.
    std::function<void(int)> onSelect;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void tap(int index);
    void layOut();
    QStringList titles() const;
    void fitLabels();

    std::vector<ModeToggleButton*> m_buttons;
    int m_selectedIndex = 0;
    double m_scale = 1;
    Colours m_colours;
};

// How all labels of a control are written: in one size, on one line where that takes at most a tenth of it, else with a
// line for each word.
struct SegmentLabels {
    double pixels; // of the font
    ModeToggleButton::Label label;
};
SegmentLabels segmentLabels(const QStringList& titles, double width, double wantedPixels);

// The segments of a control of this size: of equal width, 4 apart, inset by `margin` on all sides.
std::vector<QRect> segmentRects(const QSize& size, int count, int margin);

} // namespace orrinvale
