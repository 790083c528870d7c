// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "orrinvale/AdaptiveView.h"

#include <QPainter>

namespace orrinvale
{

AdaptiveView::AdaptiveView(std::function<QColor()> colorProvider, QWidget* parent)
    : QWidget(parent), m_colorProvider(std::move(colorProvider))
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void AdaptiveView::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), m_colorProvider());
}

} // namespace orrinvale
