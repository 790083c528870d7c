// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ThemeTile.h"

#include "kit/Shapes.h"
#include "kit/WindowText.h"
#include "orrinvale/ActivityPalette.h"

#include <QPainter>

#include <array>

namespace orrinvale
{

namespace
{

constexpr auto pictureRadius = 8.0;
constexpr auto ringRadius = 12.0;
constexpr auto ringDistance = 4.0; // from the picture to the ring's outer edge
constexpr auto pictureToName = 8;

// A fixed scatter of days that looks like use.
constexpr std::array scatter{1, 3, 0, 2, 4, 0, 1, 3, 2, 0, 4, 1, 2, 3, 0, 2, 1, 4,
                             3, 2, 0, 1, 3, 2, 1, 0, 2, 4, 3, 1, 2, 0, 1, 3, 2, 4};

void paintCells(QPainter& painter, double width, Look look)
{
    constexpr auto step = 6.5, size = 5.0, radius = 1.2, top = 29.75, aside = 30.0;
    constexpr auto rows = 4;
    const auto levels = ActivityPalette::of(look == Look::dark, look == Look::sakura).levels;
    const auto columns = static_cast<int>((width - aside) / step);
    const auto left = 8 + ((width - 16) - (columns * step - 1.5)) / 2;
    for (int cell = 0; cell < columns * rows; ++cell) {
        const auto column = cell / rows, row = cell % rows;
        const auto level = scatter[static_cast<std::size_t>(cell * 5 + column) % scatter.size()];
        painter.setBrush(levels[static_cast<std::size_t>(level)]);
        painter.drawRoundedRect(QRectF(left + column * step, top + row * step, size, size), radius, radius);
    }
}

// With the origin at the picture's corner.
void paintMiniature(QPainter& painter, double width, Look look)
{
    const auto& colours = WindowPalette::of(look);
    const auto bar = [&](const QRectF& rect, const QColor& colour) {
        painter.setBrush(colour);
        painter.drawRoundedRect(rect, rect.height() / 2, rect.height() / 2);
    };
    painter.setPen(Qt::NoPen);
    painter.fillRect(QRectF(0, 0, width, ThemeTile::pictureHeight), colours.window);
    painter.fillRect(QRectF(0, 0, width, 15), colours.card);
    painter.fillRect(QRectF(0, 15, width, 1.5), withAlpha(colours.accent, 0.8));
    bar(QRectF(8, 6, 24, 3.5), withAlpha(colours.primaryText, 0.85));
    bar(QRectF(width - 20, 5.5, 12, 4.5), withAlpha(colours.primaryText, 0.25));
    const QRectF card(8, 23.5, width - 16, 37);
    painter.setBrush(colours.card);
    painter.setPen(QPen(colours.border, 1));
    painter.drawRoundedRect(card, 4, 4);
    painter.setPen(Qt::NoPen);
    paintCells(painter, width, look);
}

QColor frameOf(AppTheme theme)
{
    switch (theme) {
    case AppTheme::light:
        return QColor(0xd4, 0xd4, 0xd4);
    case AppTheme::dark:
        return QColor(0x47, 0x47, 0x47);
    case AppTheme::system:
        return QColor(0x8f, 0x8f, 0x8f);
    case AppTheme::sakura:
        break;
    }
    return QColor(0xe6, 0xc9, 0xd4);
}

Look lookShownBy(AppTheme theme)
{
    return lookOf(theme == AppTheme::dark, theme == AppTheme::sakura);
}

} // namespace

ThemeTile::ThemeTile(AppTheme theme, QWidget* parent) : PaintedButton(parent), m_theme(theme)
{
    const auto name = QString::fromStdString(std::string(rawValue(theme)));
    setText(name);
    setAccessibleName(name + QStringLiteral(" theme"));
    setCheckable(true);
    setAutoExclusive(true); // which makes it a radio button
    setCursor(Qt::PointingHandCursor);
}

void ThemeTile::setChosen(bool isChosen)
{
    m_isChosen = isChosen;
    setChecked(isChosen);
    setFocusPolicy(isChosen ? Qt::StrongFocus : Qt::ClickFocus);
    update();
}

void ThemeTile::applyTheme(const WindowPalette& colours)
{
    m_colours = colours;
    update();
}

QRect ThemeTile::pictureRect() const
{
    return {room, room, width() - 2 * room, pictureHeight};
}

int ThemeTile::heightNeeded() const
{
    return room + pictureHeight + pictureToName + windowText::subtitle.line() + room;
}

void ThemeTile::paintPicture(QPainter& painter, const QRectF& picture) const
{
    QPainterPath shape;
    shape.addRoundedRect(picture, pictureRadius, pictureRadius);
    painter.save();
    painter.setClipPath(shape);
    painter.translate(picture.topLeft());
    paintMiniature(painter, picture.width(), lookShownBy(m_theme));
    if (m_theme == AppTheme::system) {
        QPainterPath darkHalf;
        darkHalf.addPolygon(QPolygonF{{picture.width() * 0.62, 0.0},
                                      {picture.width(), 0.0},
                                      {picture.width(), picture.height()},
                                      {picture.width() * 0.38, picture.height()}});
        painter.setClipPath(darkHalf, Qt::IntersectClip);
        paintMiniature(painter, picture.width(), Look::dark);
    }
    painter.restore();
    strokeInside(painter, picture, pictureRadius, 1, frameOf(m_theme));
}

void ThemeTile::paintName(QPainter& painter) const
{
    const auto& style = m_isChosen ? windowText::strongSubtitle : windowText::subtitle;
    painter.setFont(style.font());
    painter.setPen(m_isChosen ? m_colours.primaryText : m_colours.quietText);
    const auto top = pictureRect().bottom() + 1 + pictureToName;
    painter.drawText(QRect(0, top, width(), style.line()), Qt::AlignCenter | Qt::TextSingleLine, text());
}

void ThemeTile::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF picture = pictureRect();
    paintPicture(painter, picture);
    const auto around = picture.adjusted(-ringDistance, -ringDistance, ringDistance, ringDistance);
    if (m_isChosen)
        strokeInside(painter, around, ringRadius, 2, m_colours.focusRing);
    else if (isHovered())
        strokeInside(painter, around, ringRadius, 2, m_colours.border);
    paintName(painter);
    if (showsFocusRing())
        strokeInside(painter, QRectF(rect()), ringRadius + room - ringDistance, 2, m_colours.focusRing);
}

} // namespace orrinvale
