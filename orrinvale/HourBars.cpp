// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/HourBars.h"

#include <algorithm>

namespace orrinvale
{

namespace
{

constexpr double gap = 6;
constexpr double lowest = 4;
constexpr double smallestScale = 1; // seconds

double scaleOf(const std::vector<double>& buckets)
{
    return std::max(smallestScale, *std::max_element(buckets.begin(), buckets.end()));
}

} // namespace

HourBars::HourBars(const std::vector<double>& buckets, double width, double height)
{
    if (buckets.empty())
        return;
    const auto count = static_cast<double>(buckets.size());
    const auto barWidth = std::max(0.0, (width - gap * (count - 1)) / count);
    const auto scale = scaleOf(buckets);
    for (std::size_t i = 0; i < buckets.size(); ++i) {
        const auto x = static_cast<double>(i) * (barWidth + gap);
        bars.push_back({x, 0, barWidth, std::max(lowest, height * (buckets[i] / scale))});
    }
}

double HourBars::cornerRadius(const Rect& bar) const
{
    return std::min(bar.width / 2.5, bar.height / 2);
}

} // namespace orrinvale
