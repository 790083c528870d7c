// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#pragma once
#include <IOKit/IOReturn.h>
#include <mach/mach.h>

typedef mach_port_t io_object_t, io_iterator_t, io_service_t, io_registry_entry_t;
#define IO_OBJECT_NULL ((io_object_t)0)
#ifdef __cplusplus
extern "C" {
#endif
extern const mach_port_t kIOMainPortDefault;
CFMutableDictionaryRef IOServiceMatching(const char* name) __attribute__((cf_returns_retained));
kern_return_t IOServiceGetMatchingServices(mach_port_t mainPort, CFDictionaryRef CF_RELEASES_ARGUMENT matching,
                                           io_iterator_t* existing);
io_object_t IOIteratorNext(io_iterator_t iterator);
CFTypeRef IORegistryEntryCreateCFProperty(io_registry_entry_t entry, CFStringRef key, CFAllocatorRef allocator,
                                          CFOptionFlags options);
kern_return_t IOObjectRelease(io_object_t object);
#ifdef __cplusplus
}
#endif
