// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LoginItem.h"

#include <memory>

namespace orrinvale
{

// The system's service for the application that runs, which must be a signed bundle. It decides nothing.
class LoginService
{
public:
    enum class Status { notRegistered, enabled, requiresApproval, notFound };
    using Error = std::optional<std::string>; // nullopt: none

    virtual ~LoginService() = default;
    virtual Status status() = 0;
    virtual Error registerApplication() = 0;
    virtual Error unregisterApplication() = 0;
};

std::unique_ptr<LoginService> makeLoginService();

class MacLoginItem final : public LoginItem
{
public:
    explicit MacLoginItem(LoginService& service) : m_service(service) {}

    // An item that waits for the user's approval is one that went wrong, with a text that says so.
    std::optional<std::string> registerApplication() override;
    std::optional<std::string> unregisterApplication() override;

private:
    LoginService& m_service;
};

} // namespace orrinvale
