// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace orrinvale
{

// A module or helper program of ours: beside the program in a build folder, in lib/orrinvale when installed. nullopt
// when it is in neither place.
std::optional<QString> moduleFile(const QString& name);

} // namespace orrinvale
