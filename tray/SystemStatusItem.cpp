// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "tray/SystemStatusItem.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

namespace orrinvale
{

SystemStatusItem::SystemStatusItem(ToolTip toolTip) : m_kind(toolTip)
{
    QObject::connect(&m_item, &QSystemTrayIcon::activated, &m_item,
                     [this](QSystemTrayIcon::ActivationReason reason) { activate(reason); });
}

void SystemStatusItem::activate(QSystemTrayIcon::ActivationReason reason)
{
    if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::Context)
        click();
}

void SystemStatusItem::showToolTip()
{
    const auto isMarkup = m_kind == ToolTip::markup;
    m_item.setToolTip(isMarkup ? QStringLiteral("<qt>%1</qt>").arg(toolTip().toHtmlEscaped()) : toolTip());
}

StatusItemAnchor SystemStatusItem::anchor() const
{
    StatusItemAnchor anchor;
    anchor.pointer = QCursor::pos();
    if (const auto icon = m_item.geometry(); isPlausibleIcon(icon, QGuiApplication::primaryScreen()->virtualGeometry()))
        anchor.icon = icon;
    return anchor;
}

} // namespace orrinvale
