// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/Symbols.h"

#include <QFile>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <cmath>

namespace orrinvale
{

namespace
{

QString pathOf(const QString& name)
{
    return QStringLiteral(":/symbols/") + name + QStringLiteral(".svg");
}

QPixmap rendered(const QString& name, double size, const QColor& colour, qreal devicePixelRatio)
{
    const auto pixels = static_cast<int>(std::lround(size * devicePixelRatio));
    QPixmap pixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QSvgRenderer renderer(pathOf(name));
    QPainter painter(&pixmap);
    renderer.render(&painter);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), colour);
    painter.end();
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}

} // namespace

bool isSymbol(const QString& name)
{
    return !name.isEmpty() && QFile::exists(pathOf(name));
}

QPixmap symbolPixmap(const QString& name, double size, const QColor& colour, qreal devicePixelRatio)
{
    if (!isSymbol(name))
        return {};
    const auto key =
        QStringLiteral("symbol:%1:%2:%3:%4").arg(name).arg(size).arg(colour.rgba(), 0, 16).arg(devicePixelRatio);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = rendered(name, size, colour, devicePixelRatio);
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

void paintSymbol(QPainter& painter, const QString& name, const QRectF& rect, const QColor& colour)
{
    const auto pixmap = symbolPixmap(name, rect.width(), colour, painter.device()->devicePixelRatioF());
    if (!pixmap.isNull())
        painter.drawPixmap(rect.topLeft(), pixmap);
}

} // namespace orrinvale
