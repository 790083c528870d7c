// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/CFObject.h"
#include "platform/macos/MediaHardware.h"

#include <IOKit/IOKitLib.h>

namespace orrinvale
{

namespace
{

// Owns a reference to an object of the registry.
class RegistryObject
{
public:
    explicit RegistryObject(io_object_t object) : m_object(object) {}
    ~RegistryObject()
    {
        if (m_object != IO_OBJECT_NULL)
            IOObjectRelease(m_object);
    }
    RegistryObject(const RegistryObject&) = delete;
    RegistryObject& operator=(const RegistryObject&) = delete;

    io_object_t get() const { return m_object; }
    explicit operator bool() const { return m_object != IO_OBJECT_NULL; }

private:
    io_object_t m_object;
};

bool isActive(io_registry_entry_t service)
{
    const CFObject<CFTypeRef> active(
        IORegistryEntryCreateCFProperty(service, CFSTR("deviceActive"), kCFAllocatorDefault, 0));
    return booleanOf(active.get()).value_or(false);
}

} // namespace

bool isAnyUSBCameraActive()
{
    const auto matching = IOServiceMatching("AppleUSBVDCDriver");
    io_iterator_t found = IO_OBJECT_NULL;
    // The call owns what it is given, whether it succeeds or not.
    if (!matching || IOServiceGetMatchingServices(kIOMainPortDefault, matching, &found) != KERN_SUCCESS)
        return false;
    const RegistryObject services(found);
    while (const RegistryObject service{IOIteratorNext(services.get())}) {
        if (isActive(service.get()))
            return true;
    }
    return false;
}

} // namespace orrinvale
