// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
// What the adapters use of the system's framework, declared by hand from its public documentation.
#pragma once
#include <MacTypes.h>

#ifdef __cplusplus
extern "C" {
#endif
#pragma clang arc_cf_code_audited begin

#define CF_RELEASES_ARGUMENT __attribute__((cf_consumed))
typedef const void *CFTypeRef, *CFPropertyListRef;
typedef signed long CFIndex;
typedef unsigned long CFTypeID;
typedef double CFTimeInterval, CFAbsoluteTime;
typedef UInt32 CFOptionFlags;
typedef const struct __CFAllocator* CFAllocatorRef;
typedef const struct __attribute__((objc_bridge(NSString))) __CFString* CFStringRef;
typedef const struct __attribute__((objc_bridge(NSArray))) __CFArray* CFArrayRef;
typedef const struct __attribute__((objc_bridge(NSDictionary))) __CFDictionary* CFDictionaryRef;
typedef struct __attribute__((objc_bridge_mutable(NSMutableDictionary))) __CFDictionary* CFMutableDictionaryRef;
typedef const struct __attribute__((objc_bridge(NSNumber))) __CFNumber* CFNumberRef;
typedef const struct __attribute__((objc_bridge(NSNumber))) __CFBoolean* CFBooleanRef;
typedef const struct __attribute__((objc_bridge(NSData))) __CFData* CFDataRef;
typedef const struct __attribute__((objc_bridge(NSDate))) __CFDate* CFDateRef;
typedef const struct __attribute__((objc_bridge(NSLocale))) __CFLocale* CFLocaleRef;
typedef CFStringRef CFLocaleIdentifier;
typedef UInt32 CFStringEncoding;
typedef CFIndex CFNumberType;
enum { kCFStringEncodingUTF8 = 0x08000100 };
enum { kCFNumberSInt64Type = 4, kCFNumberDoubleType = 13 };

extern const CFAllocatorRef kCFAllocatorDefault;
extern const CFBooleanRef kCFBooleanTrue, kCFBooleanFalse;
extern const CFTimeInterval kCFAbsoluteTimeIntervalSince1970;
extern const CFStringRef kCFPreferencesCurrentApplication;

void CFRelease(CFTypeRef object);
CFTypeRef CFRetain(CFTypeRef object);
CFTypeID CFGetTypeID(CFTypeRef object);
CFTypeID CFStringGetTypeID(void);
CFTypeID CFNumberGetTypeID(void);
CFTypeID CFBooleanGetTypeID(void);
CFTypeID CFDataGetTypeID(void);
CFTypeID CFDateGetTypeID(void);
CFTypeID CFArrayGetTypeID(void);
CFTypeID CFDictionaryGetTypeID(void);

CFStringRef CFStringCreateWithBytes(CFAllocatorRef allocator, const UInt8* bytes, CFIndex count,
                                    CFStringEncoding encoding, Boolean isExternalRepresentation);
CFIndex CFStringGetLength(CFStringRef string);
CFIndex CFStringGetMaximumSizeForEncoding(CFIndex length, CFStringEncoding encoding);
Boolean CFStringGetCString(CFStringRef string, char* buffer, CFIndex size, CFStringEncoding encoding);
Boolean CFBooleanGetValue(CFBooleanRef boolean);
CFNumberRef CFNumberCreate(CFAllocatorRef allocator, CFNumberType type, const void* value);
Boolean CFNumberIsFloatType(CFNumberRef number);
Boolean CFNumberGetValue(CFNumberRef number, CFNumberType type, void* value);
CFDataRef CFDataCreate(CFAllocatorRef allocator, const UInt8* bytes, CFIndex length);
CFIndex CFDataGetLength(CFDataRef data);
const UInt8* CFDataGetBytePtr(CFDataRef data);
CFDateRef CFDateCreate(CFAllocatorRef allocator, CFAbsoluteTime at);
CFAbsoluteTime CFDateGetAbsoluteTime(CFDateRef date);
CFIndex CFArrayGetCount(CFArrayRef array);
const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index);
const void* CFDictionaryGetValue(CFDictionaryRef dictionary, const void* key);

CFPropertyListRef CFPreferencesCopyAppValue(CFStringRef key, CFStringRef application);
void CFPreferencesSetAppValue(CFStringRef key, CFPropertyListRef value, CFStringRef application);
Boolean CFPreferencesAppSynchronize(CFStringRef application);

CFLocaleRef CFLocaleCopyCurrent(void);
CFLocaleIdentifier CFLocaleGetIdentifier(CFLocaleRef locale);
CFArrayRef CFLocaleCopyPreferredLanguages(void);

#pragma clang arc_cf_code_audited end
#ifdef ORRINVALE_FAKED
CFStringRef fakeConstantString(const char* text);
#define CFSTR(text) fakeConstantString("" text "")
#else
#define CFSTR(text) ((CFStringRef)__builtin___CFStringMakeConstantString("" text ""))
#endif
#ifdef __cplusplus
}
#endif
