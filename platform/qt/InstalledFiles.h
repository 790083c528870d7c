// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFunctionPointer>
#include <QString>

#include <optional>

namespace orrinvale
{

// A module or helper program of ours: beside the program in a build folder, in lib/orrinvale when installed. nullopt
// when it is in neither place.
std::optional<QString> moduleFile(const QString& name);

// What a module of ours exports under that name, which bears the version: a program that is running while another
// version is installed finds nothing rather than one of another shape. Loads the module, for good. Null when it is not
// there or not fit for the libraries of this system.
QFunctionPointer moduleEntryPoint(const QString& module, const char* name);

} // namespace orrinvale
