// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/InstalledFiles.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace orrinvale
{

std::optional<QString> moduleFile(const QString& name)
{
    const auto program = QCoreApplication::applicationDirPath();
    for (const auto* folder : {"/", "/../lib/orrinvale/"}) {
        const auto path = program + QLatin1String(folder) + name;
        if (QFileInfo(path).isFile())
            return QFileInfo(path).canonicalFilePath();
    }
    return std::nullopt;
}

} // namespace orrinvale
