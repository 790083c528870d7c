// expect: use of undeclared identifier 'NSWorkspaceScreensDidSlepNotification'
#import <AppKit/AppKit.h>
void seeded() { (void)NSWorkspaceScreensDidSlepNotification; }
