// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/AppIcons.h"

#include "base/MainQueue.h"
#include "kit/Symbols.h"

#include <QDir>
#include <QIcon>
#include <QPainter>

namespace orrinvale
{

namespace
{

constexpr auto keptIcons = 64;          // more than a list shows at a time
constexpr auto symbolGrowth = 1.0 / 12; // on each side: symbols leave more room around them than icons do

} // namespace

QPixmap appIconPixmap(const QString& icon, int size, qreal devicePixelRatio)
{
    if (icon.isEmpty())
        return {};
    const auto found = QDir::isAbsolutePath(icon) ? QIcon(icon) : QIcon::fromTheme(icon);
    return found.pixmap(QSize(size, size), devicePixelRatio);
}

void paintAppIcon(QPainter& painter, const QRectF& square, const QPixmap& pixmap, const QColor& colour)
{
    if (pixmap.isNull()) {
        const auto growth = square.width() * symbolGrowth;
        return paintSymbol(painter, QStringLiteral("app.fill"), square.adjusted(-growth, -growth, growth, growth),
                           colour);
    }
    QRectF target({}, QSizeF(pixmap.size()).scaled(square.size(), Qt::KeepAspectRatio));
    target.moveCenter(square.center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(target, pixmap, QRectF(pixmap.rect()));
}

AppIcons::AppIcons(MainQueue& queue, int size) : m_queue(queue), m_size(size), m_loaded(keptIcons) {}

const QPixmap* AppIcons::find(const QString& icon, qreal devicePixelRatio)
{
    const Key key(icon, devicePixelRatio);
    const auto* loaded = m_loaded.object(key);
    if (!loaded && !m_next)
        m_next = m_queue.after(std::chrono::nanoseconds::zero(), [this, key] { load(key); });
    return loaded;
}

void AppIcons::load(const Key& key)
{
    m_next.cancel();
    m_loaded.insert(key, new QPixmap(appIconPixmap(key.first, m_size, key.second)));
    if (onLoaded)
        onLoaded();
}

} // namespace orrinvale
