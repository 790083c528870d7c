// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "tray/StatusItem.h"

namespace orrinvale
{

void StatusItem::setIcon(const QIcon& icon)
{
    if (icon.cacheKey() == m_icon.cacheKey())
        return; // a countdown brings the same one every second
    m_icon = icon;
    showIcon();
}

void StatusItem::setToolTip(const QString& text)
{
    m_toolTip = text;
    showToolTip();
}

void StatusItem::click() const
{
    if (onClick)
        onClick();
}

} // namespace orrinvale
