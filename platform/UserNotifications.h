// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace orrinvale
{

struct UserNotification {
    std::string identifier; // a new one replaces the delivered one of the same identifier
    std::string title;
    std::string body; // plain text, UTF-8
};

// The desktop's notifications. Nothing is answered and no call waits; a failure is silent. Main thread.
class UserNotifications
{
public:
    virtual ~UserNotifications() = default;
    virtual void requestAuthorization() = 0;
    virtual void post(const UserNotification& notification) = 0;
    virtual void removeDelivered(const std::vector<std::string>& identifiers) = 0;
};

} // namespace orrinvale
