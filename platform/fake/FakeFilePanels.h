// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/FilePanels.h"

namespace orrinvale
{

// Keeps the last request; the test answers it.
class FakeFilePanels final : public FilePanels
{
public:
    void chooseFolder(const FolderRequest& request, Answer answer) override
    {
        folderRequest = request;
        m_answer = std::move(answer);
    }
    void chooseFile(const SaveRequest& request, Answer answer) override
    {
        saveRequest = request;
        m_answer = std::move(answer);
    }

    bool isOpen() const { return static_cast<bool>(m_answer); }
    void choose(std::optional<std::filesystem::path> path) { std::exchange(m_answer, nullptr)(std::move(path)); }

    std::optional<FolderRequest> folderRequest;
    std::optional<SaveRequest> saveRequest;

private:
    Answer m_answer;
};

} // namespace orrinvale
