// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

namespace orrinvale
{

// Lets assistive technology see the days of every heatmap as children of its own. May be called again.
void installHeatmapAccessibility();

} // namespace orrinvale
