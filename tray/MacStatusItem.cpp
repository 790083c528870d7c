// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/Agent.h"
#include "tray/SystemStatusItem.h"

namespace orrinvale
{

namespace
{

// A click makes the application the active one: the windows of an agent would open behind all others.
class MacStatusItem final : public SystemStatusItem
{
public:
    MacStatusItem() : SystemStatusItem(ToolTip::plainText) { show(); }

    void forgetClick() override { deactivateApplication(); }
    void activate(QSystemTrayIcon::ActivationReason reason) override
    {
        activateApplication();
        SystemStatusItem::activate(reason);
    }
};

} // namespace

std::unique_ptr<StatusItem> makeStatusItem(MainQueue&)
{
    return std::make_unique<MacStatusItem>();
}

} // namespace orrinvale
