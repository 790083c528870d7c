// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <vector>

namespace orrinvale
{

// What a tray shows that draws a menu of its own in place of passing a click on.
struct StatusMenuEntry {
    QString title;
    std::function<void()> choose;
};
using StatusMenu = std::vector<StatusMenuEntry>;

} // namespace orrinvale
