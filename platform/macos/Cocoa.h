// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Text.h"

#include <optional>
#include <string>
#include <string_view>

#import <Foundation/Foundation.h>

namespace orrinvale
{

// Any bytes: what is no UTF-8 is replaced.
inline NSString* cocoaText(std::string_view text)
{
    NSString* made = [NSString stringWithUTF8String:validUtf8(text).c_str()];
    return made ? made : @"";
}

// UTF-8; nullopt for nil, for what is no string, and for half a surrogate pair.
inline std::optional<std::string> textOf(id object)
{
    if (![object isKindOfClass:[NSString class]])
        return std::nullopt;
    const char* text = [static_cast<NSString*>(object) UTF8String];
    return text ? std::optional<std::string>(text) : std::nullopt;
}

} // namespace orrinvale
