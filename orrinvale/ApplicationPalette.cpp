// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ApplicationPalette.h"

#include "kit/WindowPalette.h"

#include <QApplication>
#include <QPalette>
#include <QToolTip>

namespace orrinvale
{

namespace
{

QPalette paletteOf(const WindowPalette& colours)
{
    QPalette palette(colours.button, colours.window);
    palette.setColor(QPalette::WindowText, colours.primaryText);
    palette.setColor(QPalette::Base, colours.field);
    palette.setColor(QPalette::AlternateBase, colours.card);
    palette.setColor(QPalette::Text, colours.primaryText);
    palette.setColor(QPalette::ButtonText, colours.primaryText);
    palette.setColor(QPalette::PlaceholderText, colours.tertiaryText);
    palette.setColor(QPalette::Highlight, colours.defaultButton);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, colours.card);
    palette.setColor(QPalette::ToolTipText, colours.primaryText);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, colours.secondaryText);
    return palette;
}

} // namespace

bool isPaletteDark()
{
    constexpr auto middle = 128; // of lightness
    return QGuiApplication::palette().color(QPalette::Window).lightness() < middle;
}

void applyApplicationPalette(std::optional<bool> isDark)
{
    QApplication::setPalette(QPalette());
    if (isDark && *isDark != isPaletteDark())
        QApplication::setPalette(paletteOf(WindowPalette::of(*isDark ? Look::dark : Look::light)));
    QToolTip::setPalette(QApplication::palette());
}

} // namespace orrinvale
