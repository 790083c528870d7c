// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/qt/InstalledFiles.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibrary>

namespace orrinvale
{

std::optional<QString> moduleFile(const QString& name)
{
    const auto program = QCoreApplication::applicationDirPath();
    for (const auto* folder : {"/", "/../lib/orrinvale/", "/../PlugIns/"}) {
        const auto path = program + QLatin1String(folder) + name;
        if (QFileInfo(path).isFile())
            return QFileInfo(path).canonicalFilePath();
    }
    return std::nullopt;
}

QFunctionPointer moduleEntryPoint(const QString& module, const char* name)
{
    const auto path = moduleFile(module);
    if (!path)
        return nullptr;
    QLibrary library(*path);
    // A library that became too old or too new for the module shows here, not at the call that misses it.
    library.setLoadHints(QLibrary::ResolveAllSymbolsHint);
    const auto entryPoint = library.resolve(name);
    if (!entryPoint)
        library.unload();
    return entryPoint;
}

} // namespace orrinvale
