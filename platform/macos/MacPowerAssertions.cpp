// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/MacPowerAssertions.h"

#include "base/Text.h"
#include "platform/macos/CFObject.h"

#include <IOKit/pwr_mgt/IOPMLib.h>

namespace orrinvale
{

constexpr std::size_t longestName = 128; // characters, as IOPMAssertionCreateWithName is documented

std::string_view firstCharacters(std::string_view text, std::size_t most)
{
    std::size_t characters = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto isContinuation = (static_cast<unsigned char>(text[i]) & 0xC0) == 0x80;
        if (!isContinuation && ++characters > most)
            return text.substr(0, i);
    }
    return text;
}

PowerAssertions::Created MacPowerAssertions::create(std::string_view type, std::uint32_t level, std::string_view name)
{
    const CFText typeText(type);
    const CFText nameText(firstCharacters(validUtf8(name), longestName));
    if (!typeText || !nameText)
        return {kIOReturnBadArgument, kIOPMNullAssertionID};
    IOPMAssertionID id = kIOPMNullAssertionID;
    const auto status = IOPMAssertionCreateWithName(typeText.get(), level, nameText.get(), &id);
    return {status, id};
}

void MacPowerAssertions::release(std::uint32_t id)
{
    IOPMAssertionRelease(id);
}

} // namespace orrinvale
