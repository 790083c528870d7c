// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace orrinvale
{

// The table of running processes, busiest first: a header line, then "pid %cpu command" a line; 100 % is one core.
// Measuring takes a while and goes on in the background, so a table is asked for before it is read. Main thread.
class ProcessStatus
{
public:
    virtual ~ProcessStatus() = default;
    // Begins a measurement of one to two seconds unless one is under way. Returns at once.
    virtual void prepare() = 0;
    // Drops the table, and the measurement under way: what was busy then says nothing of what will be.
    virtual void forget() = 0;
    // The newest finished table; nullopt when there is none. UTF-8, no line feed inside a row.
    virtual std::optional<std::string> table() = 0;
};

} // namespace orrinvale
