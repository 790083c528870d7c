// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "kit/PaintedButton.h"
#include "kit/WindowPalette.h"
#include "orrinvale/AppSettings.h"

namespace orrinvale
{

// A small drawing of the activity window in one theme's own colours, over the theme's name; the chosen one has a ring.
class ThemeTile final : public PaintedButton
{
    Q_OBJECT

public:
    static constexpr int pictureHeight = 68;
    static constexpr int room = 7; // around the picture: for the ring of the choice and the one of the focus

    ThemeTile(AppTheme theme, QWidget* parent);

    AppTheme theme() const { return m_theme; }
    void setChosen(bool isChosen);
    bool isChosen() const { return m_isChosen; }
    void applyTheme(const WindowPalette& colours);
    // The picture's, in this widget.
    QRect pictureRect() const;
    // Of the whole widget.
    int heightNeeded() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    // A click of the user must not change the state by itself: the row of tiles does.
    void nextCheckState() override {}

private:
    void paintPicture(QPainter& painter, const QRectF& picture) const;
    void paintName(QPainter& painter) const;

    AppTheme m_theme;
    bool m_isChosen = false;
    WindowPalette m_colours;
};

} // namespace orrinvale
