// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Lifetime.h"
#include "platform/FilePanels.h"

#include <utility>

namespace orrinvale
{

// Keeps the last request; the test answers it.
class FakeFilePanels final : public FilePanels
{
public:
    [[nodiscard]] Cancellable chooseFolder(const FolderRequest& request, Answer answer) override
    {
        folderRequest = request;
        return open(std::move(answer));
    }
    [[nodiscard]] Cancellable chooseFile(const SaveRequest& request, Answer answer) override
    {
        saveRequest = request;
        return open(std::move(answer));
    }

    bool isOpen() const { return static_cast<bool>(m_answer); }
    // Does nothing when the question was taken back.
    void choose(std::optional<std::filesystem::path> path)
    {
        if (const auto answer = std::exchange(m_answer, nullptr))
            answer(std::move(path));
    }

    int questions = 0;
    std::optional<FolderRequest> folderRequest;
    std::optional<SaveRequest> saveRequest;

private:
    Cancellable open(Answer answer)
    {
        ++questions;
        m_answer = std::move(answer);
        return Cancellable(m_lifetime.unlessGone([this, number = ++m_lastNumber] {
            if (number == m_lastNumber)
                m_answer = nullptr;
        }));
    }

    Answer m_answer;
    int m_lastNumber = 0;
    Lifetime m_lifetime;
};

} // namespace orrinvale
