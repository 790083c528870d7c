// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT

// render_icon PICTURE.svg SIZE ICON.png: what the build makes the installed icons with.
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

int main(int argc, char** argv)
{
    if (argc != 4)
        return 2;
    QSvgRenderer picture(QString::fromLocal8Bit(argv[1]));
    const auto size = QByteArray(argv[2]).toInt();
    QImage icon(size, size, QImage::Format_ARGB32);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    picture.render(&painter);
    painter.end();
    if (!picture.isValid() || !icon.save(QString::fromLocal8Bit(argv[3]), "PNG")) {
        std::fprintf(stderr, "render_icon: could not make %s from %s\n", argv[3], argv[1]);
        return 1;
    }
}
