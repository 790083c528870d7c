// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT

// Names out of the process table, of programs and of systemd's units.
#include "orrinvale/ProcessTable.h"

#include "fuzz/FuzzInput.h"
#include "platform/linux/ApplicationIdentity.h"
#include "platform/linux/SystemdUnit.h"

using namespace orrinvale;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto text = FuzzInput(data, size).rest();
    const std::string word(text);
    if (const auto name = topProcessName(text))
        require(name->find('\n') == name->npos, "a name is of one line");
    require(lastPathComponent(text).size() <= text.size(), "a part is no longer than the whole");
    require(innermostUnit(text).size() <= text.size(), "a unit is no longer than the text that names it");
    desktopIdOfUnit(text);
    bundleIdentifierOf(word);
    for (const auto& id : desktopIdsOf(word))
        require(bundleIdentifierOf(id) == word, "the way there is the way back");
    bundleIdentifierOfExecutable(text);
    return 0;
}
