// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UserNotifications.h"

namespace orrinvale
{

class FakeUserNotifications final : public UserNotifications
{
public:
    int authorizationRequests = 0;
    std::vector<UserNotification> posted;
    std::vector<std::string> removed;
    std::vector<std::string> calls; // "post <identifier>" and "remove <identifier>", in order

    void requestAuthorization() override { ++authorizationRequests; }
    void post(const UserNotification& notification) override
    {
        posted.push_back(notification);
        calls.push_back("post " + notification.identifier);
    }
    void removeDelivered(const std::vector<std::string>& identifiers) override
    {
        for (const auto& identifier : identifiers) {
            removed.push_back(identifier);
            calls.push_back("remove " + identifier);
        }
    }
};

} // namespace orrinvale
