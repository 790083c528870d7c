// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/MacApplicationSupport.h"

#include <QStandardPaths>

namespace orrinvale
{

namespace
{

std::optional<std::filesystem::path> folder(QStandardPaths::StandardLocation location)
{
    const auto path = QStandardPaths::writableLocation(location);
    return path.isEmpty() ? std::nullopt : std::optional<std::filesystem::path>(path.toStdString());
}

} // namespace

std::optional<std::filesystem::path> MacApplicationSupport::applicationSupportDirectory()
{
    return folder(QStandardPaths::GenericDataLocation);
}

std::filesystem::path MacApplicationSupport::temporaryDirectory()
{
    return folder(QStandardPaths::TempLocation).value_or("/tmp");
}

std::optional<std::filesystem::path> MacApplicationSupport::downloadsDirectory()
{
    return folder(QStandardPaths::DownloadLocation);
}

std::filesystem::path MacApplicationSupport::homeDirectory()
{
    return folder(QStandardPaths::HomeLocation).value_or("/");
}

} // namespace orrinvale
