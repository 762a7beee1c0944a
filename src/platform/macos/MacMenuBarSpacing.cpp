#include "MacMenuBarSpacing.h"

#include "CFRef.h"

#include <CoreFoundation/CoreFoundation.h>

namespace ravlin {
namespace {

// The status bar reads these from the by-host global domain, not from ours.
std::optional<int> globalInteger(CFStringRef key)
{
    CFRef<CFPropertyListRef> value(CFPreferencesCopyValue(
        key, kCFPreferencesAnyApplication, kCFPreferencesCurrentUser, kCFPreferencesCurrentHost));
    if (!value || CFGetTypeID(value.get()) != CFNumberGetTypeID())
        return std::nullopt;
    int number = 0;
    if (!CFNumberGetValue(static_cast<CFNumberRef>(value.get()), kCFNumberIntType, &number))
        return std::nullopt;
    return number;
}

void setGlobalInteger(CFStringRef key, std::optional<int> value)
{
    if (!value) {
        CFPreferencesSetValue(key, nullptr, kCFPreferencesAnyApplication,
                              kCFPreferencesCurrentUser, kCFPreferencesCurrentHost);
        return;
    }
    int number = *value;
    CFRef<CFNumberRef> cfNumber(CFNumberCreate(kCFAllocatorDefault, kCFNumberIntType, &number));
    CFPreferencesSetValue(key, cfNumber.get(), kCFPreferencesAnyApplication,
                          kCFPreferencesCurrentUser, kCFPreferencesCurrentHost);
}

} // namespace

SpacingValues MacMenuBarSpacing::stored()
{
    return {globalInteger(CFSTR("NSStatusItemSpacing")),
            globalInteger(CFSTR("NSStatusItemSelectionPadding"))};
}

bool MacMenuBarSpacing::store(const SpacingValues& values)
{
    setGlobalInteger(CFSTR("NSStatusItemSpacing"), values.spacing);
    setGlobalInteger(CFSTR("NSStatusItemSelectionPadding"), values.padding);
    return CFPreferencesSynchronize(kCFPreferencesAnyApplication, kCFPreferencesCurrentUser,
                                    kCFPreferencesCurrentHost);
}

} // namespace ravlin
