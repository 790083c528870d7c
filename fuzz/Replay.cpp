// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT

// Gives a harness each file of some folders once, where there is no libFuzzer: what was found stays mended, and no
// harness rots. The name of a file comes before its turn, so that the last one is the one that ended it.
#include "fuzz/FuzzInput.h"

#include "base/AtomicFile.h"

#include <cstdio>
#include <filesystem>

int main(int count, char** words)
{
    int replayed = 0;
    for (int i = 1; i < count; ++i) {
        for (const auto& file : std::filesystem::directory_iterator(words[i])) {
            const auto bytes = orrinvale::readWholeFile(file.path());
            orrinvale::require(bytes.has_value(), "a file of the corpus can be read");
            std::printf("%s\n", file.path().c_str());
            std::fflush(stdout);
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes->data()), bytes->size());
            ++replayed;
        }
    }
    return replayed > 0 ? 0 : 1;
}
