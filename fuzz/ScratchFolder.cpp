// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "fuzz/ScratchFolder.h"

#include "fuzz/FuzzInput.h"

#include <fstream>
#include <string>

#include <stdlib.h>

namespace orrinvale
{

namespace fs = std::filesystem;

namespace
{

struct Scratch {
    Scratch()
    {
        auto pattern = (fs::temp_directory_path() / "orrinvale-fuzz-XXXXXX").string();
        require(::mkdtemp(pattern.data()) != nullptr, "a scratch folder can be made");
        path = pattern;
    }
    ~Scratch()
    {
        std::error_code error;
        fs::remove_all(path, error);
    }
    fs::path path;
};

} // namespace

const fs::path& scratchFolder()
{
    static const Scratch scratch;
    return scratch.path;
}

void writeScratchFile(const fs::path& file, std::string_view bytes)
{
    fs::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    require(stream.flush().good(), "a scratch file can be written");
}

} // namespace orrinvale
