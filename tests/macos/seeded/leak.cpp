// expect: Potential leak of an object
#include <IOKit/ps/IOPowerSources.h>
bool seeded() { return IOPSCopyPowerSourcesInfo() != nullptr; }
