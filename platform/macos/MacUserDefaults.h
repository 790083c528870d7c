// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UserDefaults.h"

namespace orrinvale
{

// The system's preferences of this application, each under its key as it is. While the application runs they are
// changed with `defaults write`; edits of the file are lost.
class MacUserDefaults final : public UserDefaults
{
public:
    std::optional<DefaultsValue> object(const std::string& key) override;
    void set(const std::string& key, DefaultsValue value) override;
};

} // namespace orrinvale
