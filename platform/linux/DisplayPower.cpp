// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/linux/DisplayPower.h"

#include "base/AtomicFile.h"

namespace orrinvale
{

namespace fs = std::filesystem;

bool areDisplaysOff(const fs::path& folder)
{
    const auto says = [](const fs::path& connector, const char* attribute, std::string_view word) {
        return readWholeFile(connector / attribute).value_or("").starts_with(word);
    };
    bool anyOff = false;
    std::error_code error;
    for (fs::directory_iterator each(folder, error), end; !error && each != end; each.increment(error)) {
        const auto& connector = each->path(); // card0-HDMI-A-1; a card itself has no status
        if (!says(connector, "status", "connected"))
            continue;
        if (!says(connector, "dpms", "Off"))
            return false;
        anyOff = true;
    }
    return anyOff;
}

} // namespace orrinvale
