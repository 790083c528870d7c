// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace orrinvale
{

// Whether brackets of a JSON text stand in one another more than a hundred times, which none of our files comes near: a
// parser may need memory of the stack for each. A text that is no JSON has either answer.
bool isNestedTooDeep(std::string_view json);

} // namespace orrinvale
