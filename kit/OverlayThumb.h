// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "kit/Colours.h"
#include "kit/Look.h"

#include <QWidget>

class QAbstractScrollArea;
class QTimer;

namespace orrinvale
{

// The thumb of a vertical scroll area. It lies over the content and takes no width from it. A child of the area.
class OverlayThumb final : public QWidget
{
    Q_OBJECT

public:
    enum class Shows {
        whileScrolling,      // and cannot be grasped
        wheneverThereIsMore, // and can be dragged
    };

    OverlayThumb(QAbstractScrollArea* area, Shows when);

    void setColour(const QColor& colour);
    // How far the area's frame keeps it from the edges.
    void setFrameWidth(int pixels);
    // Of the thumb as it is drawn, in the area's coordinates.
    QRect shownRect() const;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    int trackTop() const;
    int trackLength() const;
    int length() const;
    int travel() const { return trackLength() - length(); }
    int range() const;
    void place();
    void reveal();

    QAbstractScrollArea& m_area;
    Shows m_when;
    QColor m_colour = withAlpha(Qt::black, 0.26);
    int m_frameWidth = 0;
    int m_grasp = 0; // where it was pressed, from its top
    QTimer* m_hide;
};

} // namespace orrinvale
