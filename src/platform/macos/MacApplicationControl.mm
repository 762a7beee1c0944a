#include "MacApplicationControl.h"

#include "MacActivation.h"

#import <AppKit/AppKit.h>

#include <QCoreApplication>

namespace ravlin {

ApplicationControl::Policy MacApplicationControl::activationPolicy() const
{
    return NSApp.activationPolicy == NSApplicationActivationPolicyRegular ? Policy::Regular
                                                                          : Policy::Accessory;
}

void MacApplicationControl::setActivationPolicy(Policy policy)
{
    [NSApp setActivationPolicy:policy == Policy::Regular ? NSApplicationActivationPolicyRegular
                                                         : NSApplicationActivationPolicyAccessory];
    if (policy == Policy::Regular)
        MacActivation::activateSelf();
}

void MacApplicationControl::activate()
{
    MacActivation::activateSelf();
}

void MacApplicationControl::terminate()
{
    [NSApp terminate:nil];
}

void MacApplicationControl::exit(int status)
{
    QCoreApplication::exit(status);
}

} // namespace ravlin
