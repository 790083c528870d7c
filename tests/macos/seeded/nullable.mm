// expect: nullability.NullablePassedToNonnull
#import <Foundation/Foundation.h>
void seeded(NSMutableArray<NSString*>* texts, const char* text) { [texts addObject:[NSString stringWithUTF8String:text]]; }
