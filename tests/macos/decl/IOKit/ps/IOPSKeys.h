// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once
#define kIOPSPowerSourceStateKey "Power Source State"
#define kIOPSCurrentCapacityKey "Current Capacity"
#define kIOPSMaxCapacityKey "Max Capacity"
