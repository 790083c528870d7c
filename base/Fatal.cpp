// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/Fatal.h"

#include <cstdio>
#include <cstdlib>

namespace orrinvale
{

void fatal(std::string_view what)
{
    std::fprintf(stderr, "orrinvale: fatal: %.*s\n", static_cast<int>(what.size()), what.data());
    std::fflush(stderr);
    std::abort();
}

} // namespace orrinvale
