// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/Geometry.h"

#include <vector>

namespace orrinvale
{

// Where the bars of the hours stand in a chart of one size; a bar is never lower than a stub that shows the hour.
struct HourBars {
    HourBars(const std::vector<double>& buckets, double width, double height);

    std::vector<Rect> bars;
    double cornerRadius(const Rect& bar) const;
};

} // namespace orrinvale
