// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tray/StatusItemAnchor.h"
#include "tray/StatusMenu.h"

#include <QIcon>

#include <functional>
#include <memory>

namespace orrinvale
{

class MainQueue;

// Our place in the desktop's tray or menu bar. Left and right click are one and the same, but where the tray shows a
// menu in their place. Main thread.
class StatusItem
{
public:
    virtual ~StatusItem() = default;

    void setIcon(const QIcon& icon);
    // Plain text.
    void setToolTip(const QString& text);
    // For the trays that insist on one; before there is a tray.
    void setMenu(StatusMenu menu) { m_menu = std::move(menu); }
    QIcon icon() const { return m_icon; }
    QString toolTip() const { return m_toolTip; }
    const StatusMenu& menu() const { return m_menu; }

    virtual StatusItemAnchor anchor() const = 0;
    // No window comes of the last click, so none that comes later may use what the desktop granted with it.
    virtual void forgetClick() = 0;

    std::function<void()> onClick;

protected:
    virtual void showIcon() = 0;
    virtual void showToolTip() = 0;
    void click() const;

private:
    QIcon m_icon;
    QString m_toolTip;
    StatusMenu m_menu;
};

// The item of this system's tray; defined with the one that is built for it.
std::unique_ptr<StatusItem> makeStatusItem(MainQueue& queue);

} // namespace orrinvale
