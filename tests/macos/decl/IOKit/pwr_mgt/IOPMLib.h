// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once
#include <IOKit/IOReturn.h>

typedef UInt32 IOPMAssertionID, IOPMAssertionLevel;
enum { kIOPMNullAssertionID = 0, kIOPMAssertionLevelOn = 255 };
#ifdef __cplusplus
extern "C" {
#endif
IOReturn IOPMAssertionCreateWithName(CFStringRef type, IOPMAssertionLevel level, CFStringRef name, IOPMAssertionID* id);
IOReturn IOPMAssertionRelease(IOPMAssertionID id);
#ifdef __cplusplus
}
#endif
