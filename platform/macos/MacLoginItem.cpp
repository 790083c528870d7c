// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/MacLoginItem.h"

namespace orrinvale
{

constexpr auto notAllowed = "orrinvale must first be allowed in System Settings, under Login Items";

std::optional<std::string> MacLoginItem::registerApplication()
{
    auto error = m_service.registerApplication();
    // The service's own words for this name no place where it could be changed.
    if (m_service.status() == LoginService::Status::requiresApproval)
        return notAllowed;
    return m_service.status() == LoginService::Status::enabled ? std::nullopt : error;
}

std::optional<std::string> MacLoginItem::unregisterApplication()
{
    const auto status = m_service.status();
    if (status == LoginService::Status::notRegistered || status == LoginService::Status::notFound)
        return std::nullopt; // to the service an error
    return m_service.unregisterApplication();
}

} // namespace orrinvale
