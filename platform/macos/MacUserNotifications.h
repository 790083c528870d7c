// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UserNotifications.h"

#include <memory>

namespace orrinvale
{

// The system's notification centre. It serves bundles alone: a program outside one stays silent. Main thread.
class MacUserNotifications final : public UserNotifications
{
public:
    MacUserNotifications();
    ~MacUserNotifications() override;

    void requestAuthorization() override;
    void post(const UserNotification& notification) override;
    void removeDelivered(const std::vector<std::string>& identifiers) override;

private:
    struct Centre;
    std::unique_ptr<Centre> m_centre;
};

} // namespace orrinvale
