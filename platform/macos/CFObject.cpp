// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/CFObject.h"

#include "base/Text.h"

#include <cstring>

namespace orrinvale
{

namespace
{

CFStringRef makeString(const std::string& text)
{
    return CFStringCreateWithBytes(kCFAllocatorDefault, reinterpret_cast<const UInt8*>(text.data()),
                                   static_cast<CFIndex>(text.size()), kCFStringEncodingUTF8, false);
}

bool isOfType(CFTypeRef object, CFTypeID type)
{
    return object && CFGetTypeID(object) == type;
}

template <typename Number>
std::optional<Number> numberOf(CFTypeRef object, bool isFloat, CFNumberType type)
{
    if (!isOfType(object, CFNumberGetTypeID()))
        return std::nullopt;
    const auto number = static_cast<CFNumberRef>(object);
    Number value{};
    if (static_cast<bool>(CFNumberIsFloatType(number)) != isFloat || !CFNumberGetValue(number, type, &value))
        return std::nullopt;
    return value;
}

} // namespace

CFText::CFText(std::string_view text) : CFObject(makeString(validUtf8(text))) {}

std::optional<std::string> textOf(CFTypeRef object)
{
    if (!isOfType(object, CFStringGetTypeID()))
        return std::nullopt;
    const auto string = static_cast<CFStringRef>(object);
    const auto size = CFStringGetMaximumSizeForEncoding(CFStringGetLength(string), kCFStringEncodingUTF8) + 1;
    std::string text(static_cast<std::size_t>(size), '\0');
    if (!CFStringGetCString(string, text.data(), size, kCFStringEncodingUTF8))
        return std::nullopt; // half a surrogate pair
    text.resize(std::strlen(text.c_str()));
    return text;
}

std::optional<std::int64_t> integerOf(CFTypeRef object)
{
    return numberOf<std::int64_t>(object, false, kCFNumberSInt64Type);
}

std::optional<double> fractionOf(CFTypeRef object)
{
    return numberOf<double>(object, true, kCFNumberDoubleType);
}

std::optional<bool> booleanOf(CFTypeRef object)
{
    if (!isOfType(object, CFBooleanGetTypeID()))
        return std::nullopt;
    return CFBooleanGetValue(static_cast<CFBooleanRef>(object)) != 0;
}

CFArrayRef arrayOf(CFTypeRef object)
{
    return isOfType(object, CFArrayGetTypeID()) ? static_cast<CFArrayRef>(object) : nullptr;
}

CFDictionaryRef dictionaryOf(CFTypeRef object)
{
    return isOfType(object, CFDictionaryGetTypeID()) ? static_cast<CFDictionaryRef>(object) : nullptr;
}

} // namespace orrinvale
