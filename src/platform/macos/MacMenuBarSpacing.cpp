#include "MacMenuBarSpacing.h"

#include "CFRef.h"

#include <CoreFoundation/CoreFoundation.h>

namespace ravlin {
namespace {

void setGlobalInteger(CFStringRef key, int value)
{
    CFRef<CFNumberRef> number(CFNumberCreate(kCFAllocatorDefault, kCFNumberIntType, &value));
    CFPreferencesSetValue(key, number.get(), kCFPreferencesAnyApplication,
                          kCFPreferencesCurrentUser, kCFPreferencesCurrentHost);
}

} // namespace

bool MacMenuBarSpacing::apply(int spacing, int padding)
{
    // The status bar reads these from the by-host global domain, not from ours.
    setGlobalInteger(CFSTR("NSStatusItemSpacing"), spacing);
    setGlobalInteger(CFSTR("NSStatusItemSelectionPadding"), padding);
    return CFPreferencesSynchronize(kCFPreferencesAnyApplication, kCFPreferencesCurrentUser,
                                    kCFPreferencesCurrentHost);
}

} // namespace ravlin
