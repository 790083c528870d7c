// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "orrinvale/AppSettings.h"
#include "orrinvale/SettingsRow.h"

#include <QWidget>

#include <array>
#include <functional>

namespace orrinvale
{

class RowText;
class ThemeTile;

// The row of the settings that chooses the theme. The tiles are one stop of the Tab key; the arrows, Home and End
// choose.
class ThemeTiles final : public QWidget, public SettingsRow
{
    Q_OBJECT

public:
    explicit ThemeTiles(QWidget* parent);

    void choose(AppTheme theme);
    const std::array<ThemeTile*, allAppThemes.size()>& tiles() const { return m_tiles; }
    RowText& text() const { return *m_text; }

    // Called when the user chose a tile, the present one too.
    std::function<void(AppTheme)> onChoose;

    QWidget& widget() override { return *this; }
    int heightFor(int width) const override;
    void applyTheme(const WindowPalette& colours) override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void tap(const ThemeTile& tile);
    void layOut();

    RowText* m_text;
    std::array<ThemeTile*, allAppThemes.size()> m_tiles;
};

} // namespace orrinvale
