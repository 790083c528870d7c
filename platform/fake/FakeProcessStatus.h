// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessStatus.h"

namespace orrinvale
{

class FakeProcessStatus final : public ProcessStatus
{
public:
    std::optional<std::string> text;
    int prepared = 0;
    int reads = 0;

    void prepare() override { ++prepared; }
    std::optional<std::string> table() override
    {
        ++reads;
        return text;
    }
};

} // namespace orrinvale
