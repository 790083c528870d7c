// expect: Reference-counted object is used after it is released
#include <CoreFoundation/CoreFoundation.h>
CFIndex seeded()
{
    CFArrayRef languages = CFLocaleCopyPreferredLanguages();
    CFRelease(languages);
    return CFArrayGetCount(languages);
}
