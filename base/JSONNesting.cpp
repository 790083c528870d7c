// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "base/JSONNesting.h"

namespace orrinvale
{

bool isNestedTooDeep(std::string_view json)
{
    constexpr int most = 100;
    int depth = 0;
    bool isInString = false;
    for (std::size_t i = 0; i < json.size(); ++i) {
        const auto c = json[i];
        if (isInString && c == '\\')
            ++i;
        else if (c == '"')
            isInString = !isInString;
        else if (!isInString && (c == '[' || c == '{') && ++depth > most)
            return true;
        else if (!isInString && (c == ']' || c == '}'))
            --depth;
    }
    return false;
}

} // namespace orrinvale
