// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

namespace orrinvale
{

// Logical pixels with the origin at the bottom left and y growing upward, as the drawn views are laid out.

struct Point {
    double x;
    double y;

    friend bool operator==(const Point&, const Point&) = default;
};

struct Rect {
    double x;
    double y; // of the lower edge
    double width;
    double height;

    // The lower and left edges belong to it, the others do not.
    bool contains(Point point) const
    {
        return point.x >= x && point.x < x + width && point.y >= y && point.y < y + height;
    }
    Rect grownBy(double margin) const { return {x - margin, y - margin, width + 2 * margin, height + 2 * margin}; }
    // The same place in a view of that height whose origin is at the top left.
    Rect flipped(double viewHeight) const { return {x, viewHeight - y - height, width, height}; }

    friend bool operator==(const Rect&, const Rect&) = default;
};

} // namespace orrinvale
