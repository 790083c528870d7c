// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/Cocoa.h"
#include "platform/macos/MacLoginItem.h"

#import <ServiceManagement/ServiceManagement.h>

namespace orrinvale
{

namespace
{

LoginService::Error textOfFailure(NSError* error)
{
    return textOf(error.localizedDescription).value_or("the system gives no reason");
}

class SystemLoginService final : public LoginService
{
public:
    Status status() override
    {
        switch (SMAppService.mainAppService.status) {
        case SMAppServiceStatusNotRegistered:
            return Status::notRegistered;
        case SMAppServiceStatusEnabled:
            return Status::enabled;
        case SMAppServiceStatusRequiresApproval:
            return Status::requiresApproval;
        case SMAppServiceStatusNotFound:
            break;
        }
        return Status::notFound;
    }

    Error registerApplication() override
    {
        NSError* error = nil;
        return [SMAppService.mainAppService registerAndReturnError:&error] ? std::nullopt : textOfFailure(error);
    }

    Error unregisterApplication() override
    {
        NSError* error = nil;
        return [SMAppService.mainAppService unregisterAndReturnError:&error] ? std::nullopt : textOfFailure(error);
    }
};

} // namespace

std::unique_ptr<LoginService> makeLoginService()
{
    return std::make_unique<SystemLoginService>();
}

} // namespace orrinvale
