// Built with automatic reference counting (see src/CMakeLists.txt).

#include "MacSituation.h"

#import <AppKit/AppKit.h>
#include <IOKit/ps/IOPowerSources.h>
#include <fcntl.h>
#include <notify.h>
#include <notify_keys.h>
#include <unistd.h>

namespace ravlin {
namespace {

NSString* focusFolder()
{
    return [NSHomeDirectory() stringByAppendingPathComponent:@"Library/DoNotDisturb/DB"];
}

std::optional<QByteArray> fileBytes(NSString* path)
{
    NSData* data = [NSData dataWithContentsOfFile:path];
    if (!data)
        return std::nullopt;
    return QByteArray::fromNSData(data);
}

// CoreWLAN is loaded when first needed and asked through Objective-C's own lookup, so that
// a Mac without Wi-Fi hardware (or the framework) answers "no network".
id valueOf(id object, NSString* key)
{
    if (!object)
        return nil;
    @try {
        return [object valueForKey:key];
    } @catch (NSException*) {
        return nil;
    }
}

} // namespace

struct MacSituation::Impl {
    std::vector<int> notifyTokens;
    NSMutableArray* observers = [NSMutableArray array];
    NSMutableArray* workspaceObservers = [NSMutableArray array];
    dispatch_source_t focusWatch = nil;
    int focusFolderDescriptor = -1;
    bool wifiLoaded = false;
};

MacSituation::MacSituation() : m_impl(std::make_unique<Impl>())
{
    auto onNotifyKey = [this](const char* key, SituationChange change) {
        int token = 0;
        if (notify_register_dispatch(key, &token, dispatch_get_main_queue(), ^(int) {
              notify(change);
            }) == NOTIFY_STATUS_OK)
            m_impl->notifyTokens.push_back(token);
    };
    onNotifyKey(kIOPSNotifyPowerSource, SituationChange::PowerSource);
    onNotifyKey(kNotifySCNetworkChange, SituationChange::WifiNetwork);

    NSNotificationCenter* workspace = NSWorkspace.sharedWorkspace.notificationCenter;
    [m_impl->workspaceObservers
        addObject:[workspace addObserverForName:NSWorkspaceDidActivateApplicationNotification
                                         object:nil
                                          queue:NSOperationQueue.mainQueue
                                     usingBlock:^(NSNotification*) {
                                       notify(SituationChange::FrontmostApplication);
                                     }]];
    NSNotificationCenter* center = NSNotificationCenter.defaultCenter;
    for (NSNotificationName name in @[ NSSystemClockDidChangeNotification,
                                       NSSystemTimeZoneDidChangeNotification ]) {
        [m_impl->observers addObject:[center addObserverForName:name
                                                         object:nil
                                                          queue:NSOperationQueue.mainQueue
                                                     usingBlock:^(NSNotification*) {
                                                       [NSTimeZone resetSystemTimeZone];
                                                       notify(SituationChange::Clock);
                                                     }]];
    }

    // Full Disk Access is often granted while Ravlin runs: the folder is tried again each time
    // an application comes to the front (the person just left System Settings), so that Focus
    // rules start to hold without a restart and nothing is tried on a timer.
    watchFocusFolder();
    [m_impl->workspaceObservers
        addObject:[workspace addObserverForName:NSWorkspaceDidActivateApplicationNotification
                                         object:nil
                                          queue:NSOperationQueue.mainQueue
                                     usingBlock:^(NSNotification*) {
                                       if (!m_impl->focusWatch && watchFocusFolder())
                                           notify(SituationChange::FocusMode);
                                     }]];
}

// The system replaces its Focus records in that folder (a new file renamed over the old one)
// whenever a mode goes on or off, which changes the folder itself.
bool MacSituation::watchFocusFolder()
{
    const int descriptor = open(focusFolder().fileSystemRepresentation, O_EVTONLY);
    if (descriptor < 0)
        return false;
    m_impl->focusFolderDescriptor = descriptor;
    m_impl->focusWatch = dispatch_source_create(
        DISPATCH_SOURCE_TYPE_VNODE, uintptr_t(descriptor),
        DISPATCH_VNODE_WRITE | DISPATCH_VNODE_EXTEND | DISPATCH_VNODE_ATTRIB,
        dispatch_get_main_queue());
    dispatch_source_set_event_handler(m_impl->focusWatch, ^{
      notify(SituationChange::FocusMode);
    });
    dispatch_source_set_cancel_handler(m_impl->focusWatch, ^{
      close(descriptor);
    });
    dispatch_resume(m_impl->focusWatch);
    return true;
}

MacSituation::~MacSituation()
{
    for (int token : m_impl->notifyTokens)
        notify_cancel(token);
    for (id observer in m_impl->observers)
        [NSNotificationCenter.defaultCenter removeObserver:observer];
    for (id observer in m_impl->workspaceObservers)
        [NSWorkspace.sharedWorkspace.notificationCenter removeObserver:observer];
    if (m_impl->focusWatch)
        dispatch_source_cancel(m_impl->focusWatch);
}

std::optional<QString> MacSituation::wifiNetworkName()
{
    if (!m_impl->wifiLoaded) {
        m_impl->wifiLoaded = true;
        [[NSBundle bundleWithPath:@"/System/Library/Frameworks/CoreWLAN.framework"] load];
    }
    Class clientClass = NSClassFromString(@"CWWiFiClient");
    id client = valueOf(clientClass, @"sharedWiFiClient");
    id interface = valueOf(client, @"interface");
    id ssid = valueOf(interface, @"ssid");
    if (![ssid isKindOfClass:NSString.class] || [ssid length] == 0)
        return std::nullopt;
    return QString::fromNSString(ssid);
}

std::optional<QString> MacSituation::frontmostApplication()
{
    NSString* bundle = NSWorkspace.sharedWorkspace.frontmostApplication.bundleIdentifier;
    if (!bundle)
        return std::nullopt;
    return QString::fromNSString(bundle);
}

std::optional<FocusRecords> MacSituation::focusRecords()
{
    NSString* folder = focusFolder();
    const std::optional<QByteArray> assertions =
        fileBytes([folder stringByAppendingPathComponent:@"Assertions.json"]);
    const std::optional<QByteArray> modes =
        fileBytes([folder stringByAppendingPathComponent:@"ModeConfigurations.json"]);
    if (!assertions || !modes)
        return std::nullopt;
    return FocusRecords{*assertions, *modes};
}

QTimeZone MacSituation::timeZone()
{
    return QTimeZone::systemTimeZone();
}

} // namespace ravlin
