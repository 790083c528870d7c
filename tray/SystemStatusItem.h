// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tray/StatusItem.h"

#include <QSystemTrayIcon>

namespace orrinvale
{

// Qt's own item: the menu bar of macOS, and the older protocol of X11.
class SystemStatusItem : public StatusItem
{
public:
    enum class ToolTip { plainText, markup }; // what the system takes the text for
    explicit SystemStatusItem(ToolTip toolTip);

    StatusItemAnchor anchor() const override;
    void forgetClick() override {}
    // What Qt tells of a click. The second one of a double click came as a click before.
    virtual void activate(QSystemTrayIcon::ActivationReason reason);
    void show() { m_item.show(); }

protected:
    void showIcon() override { m_item.setIcon(icon()); }
    void showToolTip() override;

private:
    ToolTip m_kind;
    QSystemTrayIcon m_item;
};

} // namespace orrinvale
