// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once
typedef unsigned char UInt8, Boolean;
typedef unsigned int UInt32;
typedef int SInt32, OSStatus;
