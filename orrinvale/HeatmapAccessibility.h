// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

class QAccessibleInterface;

namespace orrinvale
{

class HeatmapView;

// A table whose children are the heatmap's days, for assistive technology; the caller owns it.
QAccessibleInterface* accessibleHeatmap(HeatmapView* view);

} // namespace orrinvale
