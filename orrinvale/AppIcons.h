// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Cancellable.h"

#include <QCache>
#include <QPixmap>

#include <functional>

class QPainter;

namespace orrinvale
{

class MainQueue;

// `icon` is a name in the icon theme or a file's absolute path. Null when there is no such icon. Main thread; reads and
// draws a file.
QPixmap appIconPixmap(const QString& icon, int size, qreal devicePixelRatio);
// In the middle of the square; the symbol of an application in `colour` when the pixmap is null.
void paintAppIcon(QPainter& painter, const QRectF& square, const QPixmap& pixmap, const QColor& colour);

// The icons that a list shows, loaded one by one in turns of their own, so that none makes the list wait. Main thread.
class AppIcons
{
public:
    AppIcons(MainQueue& queue, int size);

    // nullptr while it is not loaded. It is about to be then, unless another one is: what is still missing after
    // `onLoaded` is to be asked for again.
    const QPixmap* find(const QString& icon, qreal devicePixelRatio);

    std::function<void()> onLoaded;

private:
    using Key = std::pair<QString, qreal>;

    void load(const Key& key);

    MainQueue& m_queue;
    int m_size;
    QCache<Key, QPixmap> m_loaded;
    Cancellable m_next;
};

} // namespace orrinvale
