// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/WindowEdge.h"

#include <QBackingStore>
#include <QImage>

#include <algorithm>
#include <cmath>

namespace orrinvale
{

namespace
{

// The pixels of a window that widgets can paint.
QSize paintable(const QSize& window, const QImage& pixels)
{
    const auto ratio = pixels.devicePixelRatioF();
    return {static_cast<int>(std::lround(window.width() * ratio)),
            static_cast<int>(std::lround(window.height() * ratio))};
}

void repeatLastColumn(QImage& pixels, int column)
{
    for (int y = 0; y < pixels.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(pixels.scanLine(y));
        std::fill(line + column, line + pixels.width(), line[column - 1]);
    }
}

void repeatLastRow(QImage& pixels, int row)
{
    for (int y = row; y < pixels.height(); ++y)
        std::copy_n(pixels.constScanLine(row - 1), pixels.bytesPerLine(), pixels.scanLine(y));
}

} // namespace

WindowEdge::WindowEdge(QWidget* window) : QWidget(window)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

// Over the last pixels only, so that nothing else is painted because of it.
void WindowEdge::resizeEvent(QResizeEvent*)
{
    setMask(QRegion(rect()) - rect().adjusted(0, 0, -1, -1));
}

void WindowEdge::paintEvent(QPaintEvent*)
{
    auto* store = window()->backingStore();
    auto* pixels = store ? dynamic_cast<QImage*>(store->paintDevice()) : nullptr;
    if (!pixels || pixels->depth() != 32)
        return;
    const auto painted = paintable(window()->size(), *pixels);
    if (painted.width() > 0 && painted.width() < pixels->width())
        repeatLastColumn(*pixels, painted.width());
    if (painted.height() > 0 && painted.height() < pixels->height())
        repeatLastRow(*pixels, painted.height());
}

} // namespace orrinvale
