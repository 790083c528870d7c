// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "layer_shell/LayerSurface.h"

#include "platform/qt/InstalledFiles.h"

#include <QGuiApplication>

namespace orrinvale
{

namespace
{

LayerSurfaceEntryPoint entryPoint()
{
    static const auto loaded = reinterpret_cast<LayerSurfaceEntryPoint>(
        moduleEntryPoint(QStringLiteral("orrinvale-layer-shell.so"), ORRINVALE_LAYER_SHELL_ENTRY_POINT));
    return loaded;
}

} // namespace

void allowLayerSurfaces()
{
    qputenv("QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT", "1");
}

bool canAskForLayerSurface()
{
    return QGuiApplication::platformName().startsWith(QStringLiteral("wayland")) && entryPoint();
}

std::unique_ptr<LayerSurface> openLayerSurface(QWindow& window, QScreen* screen, const LayerSurface::Client& client)
{
    return std::unique_ptr<LayerSurface>(entryPoint()(window, screen, client));
}

} // namespace orrinvale
