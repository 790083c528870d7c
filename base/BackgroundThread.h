// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

namespace orrinvale
{

class MainQueue;

// Runs `run` once on a thread of its own that answers no signals, bears the name (its first 15 bytes, which is what
// every system keeps) and is waited for by nobody. While the system refuses a thread (too many of them, no memory), it
// is tried again each second on `retries`, which outlives that. Any thread may call it.
void startBackgroundThread(MainQueue& retries, std::string name, std::function<void()> run);

} // namespace orrinvale
