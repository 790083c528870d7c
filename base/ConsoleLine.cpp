// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/ConsoleLine.h"

#include <cstdio>
#include <string>

namespace orrinvale
{

void consoleLine(std::string_view component, std::string_view text)
{
    auto line = std::string("⚠️ ");
    line.append(component).append(": ").append(text).push_back('\n');
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fflush(stdout);
}

} // namespace orrinvale
