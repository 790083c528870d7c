// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT

// A desktop entry, and the program behind its Exec line.
#include "base/Text.h"
#include "fuzz/FuzzInput.h"
#include "fuzz/ScratchFolder.h"
#include "platform/linux/DesktopEntryIndex.h"

#include <stdlib.h>

using namespace orrinvale;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const auto folder = scratchFolder() / "applications";
    static const auto isSpeakingGerman = ::setenv("LANGUAGE", "de", 1) == 0;
    require(isSpeakingGerman, "the language can be set");
    const auto text = FuzzInput(data, size).rest();
    writeScratchFile(folder / "first.desktop", text);
    writeScratchFile(folder / "below" / "second.desktop", text);
    for (const auto& entry : readDesktopEntries({folder})) {
        require(entry.name == validUtf8(entry.name), "a name is in UTF-8");
        require(entry.applicationId == validUtf8(entry.applicationId), "an id is in UTF-8");
        startedProgram(entry.exec);
    }
    readDesktopEntry({folder}, "first");
    DesktopEntryIndex(readDesktopEntries({folder})).byProgram("/usr/bin/app");
    const std::string line(text.substr(0, text.find('\0')));
    startedProgram(line);
    isInterpreter(line);
    return 0;
}
