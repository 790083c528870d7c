// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace orrinvale
{

// Asks the user for a folder or a place to save at, in a dialog over one of our windows. Dropping the token takes the
// question back: the dialog closes and nothing is answered. Main thread.
class FilePanels
{
public:
    // nullopt when the user cancelled. Called in a later turn, at most once; never after the panels' destruction. The
    // token may be dropped in it.
    using Answer = std::function<void(std::optional<std::filesystem::path>)>;
    using WindowId = std::uintptr_t; // as the window system numbers it; 0 is none

    struct FolderRequest {
        std::string prompt;           // on the button that confirms
        std::filesystem::path folder; // where the user begins
        WindowId window = 0;
    };
    struct SaveRequest {
        std::string fileName;    // a suggestion
        std::string contentType; // MIME type of the only kind of file
        WindowId window = 0;
    };

    virtual ~FilePanels() = default;
    [[nodiscard]] virtual Cancellable chooseFolder(const FolderRequest& request, Answer answer) = 0;
    [[nodiscard]] virtual Cancellable chooseFile(const SaveRequest& request, Answer answer) = 0;
};

} // namespace orrinvale
