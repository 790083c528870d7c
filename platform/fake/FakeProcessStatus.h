// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessStatus.h"

namespace orrinvale
{

class FakeProcessStatus final : public ProcessStatus
{
public:
    std::optional<std::string> text; // what a measurement finds
    bool isFast = true;              // ends at once; else never
    int prepared = 0;
    int reads = 0;

    void prepare() override
    {
        ++prepared;
        m_isFinished = m_isFinished || isFast;
    }
    void forget() override { m_isFinished = false; }
    std::optional<std::string> table() override
    {
        ++reads;
        return m_isFinished ? text : std::nullopt;
    }

private:
    bool m_isFinished = false;
};

} // namespace orrinvale
