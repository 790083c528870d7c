// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT

// user-dirs.dirs.
#include "fuzz/FuzzInput.h"
#include "fuzz/ScratchFolder.h"
#include "platform/linux/LinuxApplicationSupport.h"

#include <stdlib.h>

using namespace orrinvale;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const auto folder = scratchFolder() / "config";
    ::setenv("XDG_CONFIG_HOME", folder.c_str(), 1);
    writeScratchFile(folder / "user-dirs.dirs", FuzzInput(data, size).rest());
    const auto downloads = LinuxApplicationSupport().downloadsDirectory();
    require(!downloads || downloads->is_absolute(), "the downloads folder stands somewhere");
    return 0;
}
