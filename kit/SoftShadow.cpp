// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "kit/SoftShadow.h"

#include <QPainter>

#include <cmath>
#include <vector>

namespace orrinvale
{

namespace
{

constexpr auto coarseness = 4; // logical pixels for each of the image's, which is smooth anyway

// How much of the shadow falls on each pixel along one side: an edge that a Gaussian has blurred is its error function.
std::vector<double> profile(int length, int blur)
{
    const auto sigma = blur / 2.0;
    const auto edge = [&](double distance) { return std::erf(distance / (sigma * std::sqrt(2.0))); };
    std::vector<double> shares;
    for (auto at = coarseness / 2.0 - blur; at < length + blur; at += coarseness)
        shares.push_back((edge(at) - edge(at - length)) / 2);
    return shares;
}

QImage shadowOf(const QSize& size, const SoftShadow::Style& style)
{
    const auto columns = profile(size.width(), style.blur);
    const auto rows = profile(size.height(), style.blur);
    QImage image(static_cast<int>(columns.size()), static_cast<int>(rows.size()), QImage::Format_ARGB32_Premultiplied);
    auto colour = style.colour;
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            colour.setAlphaF(static_cast<float>(style.colour.alphaF() * columns[x] * rows[y]));
            line[x] = qPremultiply(colour.rgba());
        }
    }
    return image;
}

} // namespace

void SoftShadow::paint(QPainter& painter, const QRect& rect, const Style& style)
{
    if (rect.size() != m_size || style != m_style) {
        m_size = rect.size();
        m_style = style;
        m_image = shadowOf(m_size, m_style);
    }
    const QRect target(rect.topLeft() + QPoint(-style.blur, style.offset - style.blur), m_image.size() * coarseness);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(target, m_image);
}

} // namespace orrinvale
