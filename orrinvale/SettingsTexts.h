// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace orrinvale
{

// "Load ≥ 40 % · Core ≥ 50 %": percentages rounded to the nearest whole number, halves away from zero.
std::string thresholdsText(double cpuBusyThreshold, double cpuSingleCoreThreshold);

// What "Pause on Low Battery" does, with the threshold in percent.
std::string lowBatterySubtitle(std::int64_t lowBatteryThreshold);

// "~/Downloads" for a path in the home folder, "~" for the folder itself; every other path as it is.
std::string abbreviatedWithTilde(std::string_view path, std::string_view homeDirectory);

} // namespace orrinvale
