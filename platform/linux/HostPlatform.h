// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/LinuxPlatform.h"
#include "platform/linux/LinuxProcess.h"

namespace orrinvale
{

// The door to the operating system that the application is built for; each has a header of this name.
using HostPlatform = LinuxPlatform;
using HostProcess = LinuxProcess;

} // namespace orrinvale
