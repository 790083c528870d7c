// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <system_error>
#include <thread>

#include <stdlib.h>

namespace orrinvale
{

// A folder that goes with the test.
struct TemporaryFolder {
    TemporaryFolder()
    {
        auto pattern = (std::filesystem::temp_directory_path() / "orrinvale-test-XXXXXX").string();
        path = ::mkdtemp(pattern.data());
    }
    // A program that a test started may still be writing its last file.
    ~TemporaryFolder()
    {
        std::error_code error;
        for (int attempt = 0; attempt < 100; ++attempt) {
            std::filesystem::remove_all(path, error);
            if (!error)
                return;
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        ADD_FAILURE() << "cannot remove " << path << ": " << error.message();
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path path;
};

} // namespace orrinvale
