// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/StatusIcon.h"

#include "kit/Colours.h"
#include "kit/Look.h"
#include "kit/Typography.h"
#include "kit/VisibleText.h"
#include "orrinvale/WakeState.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

namespace orrinvale
{

namespace
{

constexpr int sizes[] = {16, 18, 22, 24, 32, 36, 44, 48, 64}; // what trays ask for, at pixel ratios of 1 to 3
constexpr auto drawnSide = 18;
constexpr auto emojiAlphaWhileIdle = 0.4;

QPixmap drawn(QSvgRenderer& picture, int side)
{
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    const auto inner = pictureSide(side);
    const auto margin = (side - inner) / 2;
    picture.render(&painter, QRectF(margin, margin, inner, inner));
    return pixmap;
}

QPixmap emoji(const WakeState& state, int side)
{
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    auto font = QGuiApplication::font();
    font.setPixelSize(side * 14 / drawnSide);
    font.setWeight(QFont::Medium);
    painter.setFont(font);
    painter.setOpacity(state.isIdle() ? emojiAlphaWhileIdle : 1.0); // a colour glyph takes no alpha from the pen
    painter.setPen(state.isIdle() ? QGuiApplication::palette().color(QPalette::WindowText) : rgb(0.29, 0.55, 0.22));
    painter.drawText(pixmap.rect(), Qt::AlignCenter, state.isIdle() ? QStringLiteral("☕️") : QStringLiteral("🍵"));
    return pixmap;
}

const char* labelOf(const WakeState& state)
{
    switch (state.kind()) {
    case WakeState::Case::awake:
        return "Awake";
    case WakeState::Case::cooldown:
        return "Cooling Down";
    case WakeState::Case::idle:
        break;
    }
    return "Idle";
}

} // namespace

int pictureSide(int side)
{
    return side < drawnSide ? side : side / drawnSide * drawnSide + (side % drawnSide >= 9 ? 9 : 0);
}

QIcon statusIcon(const WakeState& state, const QString& imageFolder)
{
    const auto name = state.isIdle() ? QStringLiteral("inaktiv") : QStringLiteral("aktiv");
    const auto path = imageFolder + name + QStringLiteral(".svg");
    QSvgRenderer picture;
    if (QFile::exists(path)) // the renderer would complain of a missing file
        picture.load(path);
    QIcon icon;
    for (const auto side : sizes)
        icon.addPixmap(picture.isValid() ? drawn(picture, side) : emoji(state, side));
    return icon;
}

QString statusToolTip(const WakeState& state)
{
    return visibleText(std::string(labelOf(state)) + ": " + state.statusText());
}

} // namespace orrinvale
