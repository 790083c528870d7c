// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace orrinvale
{

struct WindowPalette;

// What a card of the settings window can hold: a widget that knows how high it must be.
class SettingsRow
{
public:
    virtual ~SettingsRow() = default;
    virtual QWidget& widget() = 0;
    // At this width, with the present fonts.
    virtual int heightFor(int width) const = 0;
    // Colours and, with them, fonts.
    virtual void applyTheme(const WindowPalette& colours) = 0;
};

namespace settingsGrid
{
inline constexpr int cardPadding = 16;
inline constexpr int rowPadding = 8;
inline constexpr int leastRow = 56;
inline constexpr int textToControl = 16;
} // namespace settingsGrid

} // namespace orrinvale
