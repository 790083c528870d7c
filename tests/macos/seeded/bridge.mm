// expect: requires a bridged cast
#import <Foundation/Foundation.h>
void* seeded(NSString* text) { return (void*)text; }
