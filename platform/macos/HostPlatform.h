// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/macos/MacPlatform.h"
#include "platform/macos/MacProcess.h"

namespace orrinvale
{

// The door to the operating system that the application is built for; each has a header of this name.
using HostPlatform = MacPlatform;
using HostProcess = MacProcess;

} // namespace orrinvale
