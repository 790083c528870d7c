// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>

namespace orrinvale
{

// Runs the event loop until `condition` holds; false when it does not within `limit`.
bool waitFor(const std::function<bool()>& condition, std::chrono::milliseconds limit = std::chrono::seconds(5));

// Runs the event loop for a stated time: only to show that something does not happen.
void runEventsFor(std::chrono::milliseconds duration);

} // namespace orrinvale
