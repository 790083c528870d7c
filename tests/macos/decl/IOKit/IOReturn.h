// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once
#include <CoreFoundation/CoreFoundation.h>

typedef int IOReturn;
#define kIOReturnBadArgument ((IOReturn)0xe00002c2)
#define kIOReturnNotFound ((IOReturn)0xe00002f0)
