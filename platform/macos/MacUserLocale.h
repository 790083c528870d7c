// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UserLocale.h"

namespace orrinvale
{

// From the system's settings: a program that the Finder starts has no LANG.
class MacUserLocale final : public UserLocale
{
public:
    std::string dates() const override;
    std::string collation() const override;
};

} // namespace orrinvale
