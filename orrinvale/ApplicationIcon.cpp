// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/ApplicationIcon.h"

#include <QPainter>
#include <QSvgRenderer>

namespace orrinvale
{

namespace
{

constexpr int sizes[] = {16, 24, 32, 48, 64, 128}; // what title bars, task lists and switchers ask for

QIcon drawn()
{
    QSvgRenderer picture(QStringLiteral(":/images/orrinvale.svg"));
    QIcon icon;
    for (const auto size : sizes) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        picture.render(&painter);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace

const QIcon& applicationIcon()
{
    static const auto icon = drawn();
    return icon;
}

} // namespace orrinvale
