// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once
#include <CoreFoundation/CoreFoundation.h>

enum { kCoreEventClass = 'aevt', kAEReopenApplication = 'rapp' };
