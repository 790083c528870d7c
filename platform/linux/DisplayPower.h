// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace orrinvale
{

// Whether the kernel says that every connected display of the machine is off, whoever switched it off: X11's DPMS, a
// Wayland compositor or the console. False where no display is connected, or none is known (a virtual machine, a driver
// of its own). Looks at a folder like /sys/class/drm, and wakes no display up. Thread-safe.
bool areDisplaysOff(const std::filesystem::path& folder);

} // namespace orrinvale
