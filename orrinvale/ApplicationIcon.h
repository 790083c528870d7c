// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

namespace orrinvale
{

// The icon of the application's windows, drawn when it is first asked for. Where the desktop knows our desktop entry,
// it takes the installed one instead.
const QIcon& applicationIcon();

} // namespace orrinvale
