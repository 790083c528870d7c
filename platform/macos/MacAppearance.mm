// SPDX-FileCopyrightText: 2026 The orrinvale developers
// SPDX-License-Identifier: MIT
#include "platform/macos/MacAppearance.h"

#import <AppKit/AppKit.h>

@interface OrrinvaleAppearanceObserver : NSObject
@property(copy) void (^onChange)(void);
@end

@implementation OrrinvaleAppearanceObserver
- (void)observeValueForKeyPath:(NSString*)keyPath
                      ofObject:(id)object
                        change:(NSDictionary*)change
                       context:(void*)context
{
    self.onChange();
}
@end

namespace orrinvale
{

namespace
{

NSString* const effectiveAppearance = @"effectiveAppearance";

NSAppearance* appearanceOf(AppearanceChoice choice)
{
    switch (choice) {
    case AppearanceChoice::light:
        return [NSAppearance appearanceNamed:NSAppearanceNameAqua];
    case AppearanceChoice::dark:
        return [NSAppearance appearanceNamed:NSAppearanceNameDarkAqua];
    case AppearanceChoice::followSystem:
        break;
    }
    return nil;
}

Cancellable observeEffectiveAppearance(void (^onChange)(void))
{
    NSApplication* application = NSApplication.sharedApplication;
    OrrinvaleAppearanceObserver* observer = [[OrrinvaleAppearanceObserver alloc] init];
    observer.onChange = onChange;
    [application addObserver:observer forKeyPath:effectiveAppearance options:0 context:nil];
    return Cancellable([application, observer] { [application removeObserver:observer forKeyPath:effectiveAppearance]; });
}

} // namespace

MacAppearance::MacAppearance(MainQueue& queue)
    : m_queue(queue), m_observer(observeEffectiveAppearance(^{
          m_changes.set(m_changes.get() + 1);
      }))
{
}

void MacAppearance::apply(AppearanceChoice choice)
{
    NSApplication.sharedApplication.appearance = appearanceOf(choice);
}

bool MacAppearance::isDark() const
{
    NSArray<NSAppearanceName>* names = @[ NSAppearanceNameAqua, NSAppearanceNameDarkAqua ];
    NSAppearance* effective = NSApplication.sharedApplication.effectiveAppearance;
    return [[effective bestMatchFromAppearancesWithNames:names] isEqualToString:NSAppearanceNameDarkAqua];
}

bool MacAppearance::reducesMotion() const
{
    return NSWorkspace.sharedWorkspace.accessibilityDisplayShouldReduceMotion;
}

Cancellable MacAppearance::observeChanges(std::function<void()> onChange)
{
    return m_changes.observeOn(
        m_queue, [onChange = std::move(onChange)](int) { onChange(); }, Deliver::changesOnly);
}

} // namespace orrinvale
