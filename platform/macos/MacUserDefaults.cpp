// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/MacUserDefaults.h"

#include "platform/macos/CFObject.h"

#include <cmath>

namespace orrinvale
{

namespace
{

std::optional<Instant> instantOf(CFAbsoluteTime seconds)
{
    const Seconds sinceEpoch(seconds + kCFAbsoluteTimeIntervalSince1970);
    if (!(abs(sinceEpoch) < Seconds(Instant::max().time_since_epoch()))) // which NaN is not either
        return std::nullopt;
    return Instant(std::chrono::duration_cast<Instant::duration>(sinceEpoch));
}

CFAbsoluteTime absoluteTimeOf(Instant instant)
{
    return Seconds(instant.time_since_epoch()).count() - kCFAbsoluteTimeIntervalSince1970;
}

std::optional<DefaultsValue> valueOf(CFTypeRef object)
{
    if (const auto boolean = booleanOf(object))
        return *boolean;
    if (const auto integer = integerOf(object))
        return *integer;
    if (const auto fraction = fractionOf(object); fraction && std::isfinite(*fraction))
        return *fraction;
    if (auto text = textOf(object))
        return std::move(*text);
    if (CFGetTypeID(object) == CFDataGetTypeID()) {
        const auto data = static_cast<CFDataRef>(object);
        return DefaultsData{
            {reinterpret_cast<const char*>(CFDataGetBytePtr(data)), static_cast<std::size_t>(CFDataGetLength(data))}};
    }
    if (CFGetTypeID(object) == CFDateGetTypeID()) {
        if (const auto instant = instantOf(CFDateGetAbsoluteTime(static_cast<CFDateRef>(object))))
            return *instant;
    }
    return std::nullopt;
}

// The caller owns what each returns.
struct Create {
    CFTypeRef operator()(bool value) const { return CFRetain(value ? kCFBooleanTrue : kCFBooleanFalse); }
    CFTypeRef operator()(std::int64_t value) const
    {
        return CFNumberCreate(kCFAllocatorDefault, kCFNumberSInt64Type, &value);
    }
    CFTypeRef operator()(double value) const
    {
        return CFNumberCreate(kCFAllocatorDefault, kCFNumberDoubleType, &value);
    }
    CFTypeRef operator()(const std::string& value) const
    {
        const CFText text(value);
        return text ? CFRetain(text.get()) : nullptr;
    }
    CFTypeRef operator()(const DefaultsData& value) const
    {
        return CFDataCreate(kCFAllocatorDefault, reinterpret_cast<const UInt8*>(value.bytes.data()),
                            static_cast<CFIndex>(value.bytes.size()));
    }
    CFTypeRef operator()(Instant value) const { return CFDateCreate(kCFAllocatorDefault, absoluteTimeOf(value)); }
};

} // namespace

std::optional<DefaultsValue> MacUserDefaults::object(const std::string& key)
{
    const CFText name(key);
    if (!name)
        return std::nullopt;
    const CFObject<CFTypeRef> stored(CFPreferencesCopyAppValue(name.get(), kCFPreferencesCurrentApplication));
    return stored ? valueOf(stored.get()) : std::nullopt;
}

void MacUserDefaults::set(const std::string& key, DefaultsValue value)
{
    const CFText name(key);
    const CFObject<CFTypeRef> object(std::visit(Create(), value));
    if (!name || !object)
        return; // a null would remove the key
    CFPreferencesSetAppValue(name.get(), object.get(), kCFPreferencesCurrentApplication);
    // The process ends without running what still waits.
    CFPreferencesAppSynchronize(kCFPreferencesCurrentApplication);
}

} // namespace orrinvale
