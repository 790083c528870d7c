// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orrinvale
{

// Owns what a Create or Copy function returned; null owns nothing.
template <typename Reference>
class CFObject
{
public:
    explicit CFObject(Reference created) : m_object(created) {}
    ~CFObject()
    {
        if (m_object)
            CFRelease(m_object);
    }
    CFObject(const CFObject&) = delete;
    CFObject& operator=(const CFObject&) = delete;

    Reference get() const { return m_object; }
    explicit operator bool() const { return m_object != nullptr; }

private:
    Reference m_object;
};

// A string of the system's from any bytes: what is no UTF-8 is replaced first. Null when there is no memory.
class CFText : public CFObject<CFStringRef>
{
public:
    explicit CFText(std::string_view text);
};

// Each is nullopt for null and for an object of another type. Texts are UTF-8.
std::optional<std::string> textOf(CFTypeRef object);
std::optional<std::int64_t> integerOf(CFTypeRef object);
std::optional<double> fractionOf(CFTypeRef object);
std::optional<bool> booleanOf(CFTypeRef object);
// Null for null and for an object of another type; belongs to whom `object` belongs to.
CFArrayRef arrayOf(CFTypeRef object);
CFDictionaryRef dictionaryOf(CFTypeRef object);

} // namespace orrinvale
