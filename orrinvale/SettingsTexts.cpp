// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/SettingsTexts.h"

#include <cmath>

#include <fmt/format.h>

namespace orrinvale
{

std::string thresholdsText(double cpuBusyThreshold, double cpuSingleCoreThreshold)
{
    return fmt::format("Load ≥ {} % · Core ≥ {} %", std::llround(cpuBusyThreshold),
                       std::llround(cpuSingleCoreThreshold));
}

std::string lowBatterySubtitle(std::int64_t lowBatteryThreshold)
{
    return fmt::format("Stops keeping the Mac awake below {}% while unplugged", lowBatteryThreshold);
}

std::string abbreviatedWithTilde(std::string_view path, std::string_view homeDirectory)
{
    while (homeDirectory.ends_with('/'))
        homeDirectory.remove_suffix(1);
    if (homeDirectory.empty() || !path.starts_with(homeDirectory))
        return std::string(path);
    const auto rest = path.substr(homeDirectory.size());
    const auto isInside = rest.empty() || rest.starts_with('/'); // /home/anna is not in /home/an
    return isInside ? "~" + std::string(rest) : std::string(path);
}

} // namespace orrinvale
