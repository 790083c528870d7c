// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QSize>

#include <functional>
#include <memory>

class QScreen;
class QWindow;

namespace orrinvale
{

// Where a layer surface lies: at which edges of the part of the screen that no panel on a layer takes, and how far from
// them.
struct LayerPlacement {
    QSize size;
    Qt::Edges edges;
    QMargins margins; // from those edges; may be negative
    bool operator==(const LayerPlacement&) const = default;
};

// A window of ours above all others, at a place of our choice, with the keyboard, and with the clicks elsewhere: on
// Wayland only the layer shell grants that. Whoever holds it lets go before the window is hidden. Main thread; nothing
// here waits, the compositor's answers come in turns of their own.
class LayerSurface
{
public:
    struct Client {
        // There can be none here. The window is as it was, but must be created anew before it is shown; it may be kept
        // for watchKeyboard().
        std::function<void()> refused;
        // Where it is to be on a screen with so much that no panel on a layer takes. Called once.
        std::function<LayerPlacement(const QSize& available)> place;
        // It has its place, and the window may be shown. Called once.
        std::function<void()> ready;
        // A click elsewhere, or a compositor that takes the surface away. May delete the surface.
        std::function<void()> dismissed;
    };

    virtual ~LayerSurface() = default;
    virtual void resize(const QSize& size) = 0;
    // For one that was refused, when its window has the keyboard: it is dismissed when the keyboard leaves, be it for a
    // moment. Qt tells of what lasts only, and a press on a panel of the compositor's own takes the keyboard and gives
    // it back at once.
    virtual void watchKeyboard() = 0;
};

// Must be called before the application object is made, and while there is one thread: it sets a variable of the
// environment that makes Qt leave a window with Qt::BypassWindowManagerHint without a surface's role.
void allowLayerSurfaces();

// Whether it is worth asking for one: this is Wayland, and the module is installed. Loads it.
bool canAskForLayerSurface();

// For a created window with Qt::BypassWindowManagerHint that was not yet shown, where canAskForLayerSurface(). `screen`
// may be null: the compositor then takes the one in use.
std::unique_ptr<LayerSurface> openLayerSurface(QWindow& window, QScreen* screen, const LayerSurface::Client& client);

// What the module exports under the build's ORRINVALE_LAYER_SHELL_ENTRY_POINT.
using LayerSurfaceEntryPoint = LayerSurface* (*)(QWindow& window, QScreen* screen, const LayerSurface::Client& client);

} // namespace orrinvale
