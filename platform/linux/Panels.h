// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

#include <array>
#include <cstdint>
#include <span>

class QDBusConnection;
class QScreen;

namespace orrinvale
{

// The part of the screen that the desktop's panels leave, in logical pixels. Qt tells it where there is one screen; on
// X11 with several it takes each for wholly free, and the panels' own word is asked for. On Wayland Plasma is asked,
// and where it is not running the screen is whole. A few round trips to the X server, or one on the session bus that
// takes 200 ms at most; main thread.
QRect partWithoutPanels(const QScreen& screen);

// What Plasma's desktop, which draws its panels, says of the screen with this name; the whole one where it says nothing
// or nonsense.
QRect partWithoutPlasmaPanels(const QDBusConnection& bus, const QString& name, const QRect& screen);

// What a panel reserves of the whole desktop, in the order of its _NET_WM_STRUT_PARTIAL: how far from the left, right,
// upper and lower edge, then from where to where along each of them; in pixels.
// https://specifications.freedesktop.org/wm-spec/ under "Application Window Properties"
using PanelStrut = std::array<std::uint32_t, 12>;

// What the struts leave of a screen of a desktop of that size. One that takes more than half of the screen is meant for
// another one.
QRect partWithoutStruts(const QRect& screen, const QSize& desktop, std::span<const PanelStrut> struts);

} // namespace orrinvale
