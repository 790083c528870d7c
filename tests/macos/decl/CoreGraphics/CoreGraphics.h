// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once
#include <CoreFoundation/CoreFoundation.h>

#define kCGSessionOnConsoleKey CFSTR("kCGSSessionOnConsoleKey")
extern "C" {
unsigned CGMainDisplayID(void);
unsigned CGDisplayIsAsleep(unsigned display);
CFDictionaryRef CGSessionCopyCurrentDictionary(void) __attribute__((cf_returns_retained));
}
