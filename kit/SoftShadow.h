// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>
#include <QRect>

class QPainter;

namespace orrinvale
{

// The blurred shadow of a rectangle, computed once for each size. Rounded corners of less than half the blur do not
// show in it.
class SoftShadow
{
public:
    struct Style {
        int offset; // downward
        int blur;   // the shadow fades over as much to both sides of its edge
        QColor colour;

        friend bool operator==(const Style&, const Style&) = default;
    };

    // Of `rect`, around and below it.
    void paint(QPainter& painter, const QRect& rect, const Style& style);

private:
    QSize m_size;
    Style m_style{};
    QImage m_image;
};

} // namespace orrinvale
