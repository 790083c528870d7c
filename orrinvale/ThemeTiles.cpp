// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ThemeTiles.h"

#include "orrinvale/RowText.h"
#include "orrinvale/ThemeTile.h"

#include <QKeyEvent>

#include <algorithm>

namespace orrinvale
{

namespace
{

constexpr auto padding = 12; // above and below
constexpr auto textToTiles = 14;
constexpr auto tileGap = 12;
constexpr auto widestTile = 148;
constexpr auto tileCount = static_cast<int>(allAppThemes.size());

// In a row of this width, which lies inside the card's outline.
int tileWidth(int width)
{
    constexpr auto outline = 1;
    const auto card = width + 2 * outline;
    return std::min(widestTile, (card - 2 * settingsGrid::cardPadding - (tileCount - 1) * tileGap) / tileCount);
}

// Where a key leads in the row of tiles; -1 for other keys.
int destination(int key, int present)
{
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Up:
        return std::max(present - 1, 0);
    case Qt::Key_Right:
    case Qt::Key_Down:
        return std::min(present + 1, tileCount - 1);
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return tileCount - 1;
    default:
        return -1;
    }
}

} // namespace

ThemeTiles::ThemeTiles(QWidget* parent)
    : QWidget(parent), m_text(new RowText(QStringLiteral("Theme"), QStringLiteral("Set the app's appearance"), this))
{
    for (std::size_t i = 0; i < m_tiles.size(); ++i) {
        m_tiles[i] = new ThemeTile(allAppThemes[i], this);
        QObject::connect(m_tiles[i], &QAbstractButton::clicked, this, [this, i] { tap(*m_tiles[i]); });
        // Assistive technology checks a radio button instead of clicking it.
        QObject::connect(m_tiles[i], &QAbstractButton::toggled, this, [this, i](bool isNowChecked) {
            if (isNowChecked && !m_tiles[i]->isChosen())
                tap(*m_tiles[i]);
        });
    }
}

void ThemeTiles::tap(const ThemeTile& tile)
{
    choose(tile.theme());
    if (onChoose)
        onChoose(tile.theme());
}

void ThemeTiles::choose(AppTheme theme)
{
    for (auto* tile : m_tiles)
        tile->setChosen(tile->theme() == theme);
}

int ThemeTiles::heightFor(int width) const
{
    const auto text = m_text->heightFor(width - 2 * settingsGrid::cardPadding);
    return padding + text + textToTiles + m_tiles[0]->heightNeeded() - 2 * ThemeTile::room + padding;
}

void ThemeTiles::applyTheme(const WindowPalette& colours)
{
    m_text->applyTheme(colours);
    for (auto* tile : m_tiles)
        tile->applyTheme(colours);
    layOut();
}

void ThemeTiles::layOut()
{
    const auto textWidth = width() - 2 * settingsGrid::cardPadding;
    const auto textHeight = m_text->heightFor(textWidth);
    m_text->setGeometry(settingsGrid::cardPadding, padding, textWidth, textHeight);
    auto left = settingsGrid::cardPadding;
    for (auto* tile : m_tiles) {
        tile->setGeometry(left - ThemeTile::room, padding + textHeight + textToTiles - ThemeTile::room,
                          tileWidth(width()) + 2 * ThemeTile::room, tile->heightNeeded());
        left += tileWidth(width()) + tileGap;
    }
}

void ThemeTiles::resizeEvent(QResizeEvent*)
{
    layOut();
}

void ThemeTiles::keyPressEvent(QKeyEvent* event)
{
    const auto chosen = std::find_if(m_tiles.begin(), m_tiles.end(), [](auto* tile) { return tile->isChosen(); });
    const auto present = static_cast<int>(chosen - m_tiles.begin());
    const auto next = chosen == m_tiles.end() ? -1 : destination(event->key(), present);
    if (next < 0)
        return event->ignore();
    if (next == present || event->isAutoRepeat())
        return;
    m_tiles[static_cast<std::size_t>(next)]->click();
    m_tiles[static_cast<std::size_t>(next)]->setFocus(Qt::TabFocusReason);
}

} // namespace orrinvale
