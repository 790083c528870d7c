// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Text.h"

#include <QString>

namespace orrinvale
{

// How a text that others chose is shown, a file's name above all: with a sign in place of each control character.
inline QString visibleText(const std::string& utf8)
{
    return QString::fromStdString(withVisibleControls(utf8));
}

} // namespace orrinvale
