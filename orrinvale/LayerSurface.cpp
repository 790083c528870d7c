// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/LayerSurface.h"

#include "orrinvale/InstalledFiles.h"

#include <QGuiApplication>

namespace orrinvale
{

void allowLayerSurfaces()
{
    qputenv("QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT", "1");
}

std::unique_ptr<LayerSurface> openLayerSurface(QWindow& window, QScreen* screen, const LayerSurface::Client& client)
{
    if (!QGuiApplication::platformName().startsWith(QStringLiteral("wayland")))
        return nullptr;
    static const auto entryPoint = reinterpret_cast<LayerSurfaceEntryPoint>(
        moduleEntryPoint(QStringLiteral("orrinvale-layer-shell.so"), ORRINVALE_LAYER_SHELL_ENTRY_POINT));
    return std::unique_ptr<LayerSurface>(entryPoint ? entryPoint(window, screen, client) : nullptr);
}

} // namespace orrinvale
