// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

namespace orrinvale
{

// Its making opens /dev/null in the place of each of standard input, output and error that is missing: the next file
// that the process opens would take that place, and console lines would go into it. The first thing in main.
class StandardDescriptors
{
public:
    StandardDescriptors();
};

} // namespace orrinvale
