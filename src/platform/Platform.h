#pragma once

#include <QStringList>

#include <memory>

namespace ravlin {

class Accessibility;
class Appearance;
class ApplicationControl;
class AssessmentMode;
class EventMonitors;
class StatusBar;
class DefaultsStore;
class Geocoder;
class HotKeys;
class HttpClient;
class LocationService;
class LoginItems;
class MenuBarSpacing;
class Situation;
class SystemProbe;
class Updater;
class Events;
class LoginItems;
class Permissions;
class Screens;
class WindowServer;
class Workspace;

// The services the core asks of the operating system. Each backend (macOS, the
// simulated desktop, real Linux services) fills in its own; the application
// object borrows them for its whole life. A new Platform starts with stand-ins
// for the system-information services that fail quietly, so a backend that
// lacks one still runs.
struct Platform {
    Platform();
    ~Platform();
    Platform(Platform&&) noexcept;
    Platform& operator=(Platform&&) noexcept;

    std::unique_ptr<DefaultsStore> defaults;
    std::unique_ptr<LoginItems> loginItems;
    std::unique_ptr<SystemProbe> systemProbe;
    std::unique_ptr<LocationService> location;
    std::unique_ptr<Geocoder> geocoder;
    // Fetches the weather forecast.
    std::unique_ptr<HttpClient> http;
    std::unique_ptr<WindowServer> windowServer;
    std::unique_ptr<Screens> screens;
    std::unique_ptr<Accessibility> accessibility;
    std::unique_ptr<Events> events;
    std::unique_ptr<Workspace> workspace;
    std::unique_ptr<Permissions> permissions;
    // The status bar, global event monitors, the hide engine's framework and the application
    // object.
    std::unique_ptr<StatusBar> statusBar;
    std::unique_ptr<EventMonitors> eventMonitors;
    std::unique_ptr<AssessmentMode> assessmentMode; // may stay empty: no framework
    std::unique_ptr<ApplicationControl> application;
    // The gaps between status items; may stay empty where they cannot be changed.
    std::unique_ptr<MenuBarSpacing> menuBarSpacing;
    // The Wi-Fi network, the application in front, the Focus mode and the clock, with an event
    // for each change; may stay empty (then rules on them never hold).
    std::unique_ptr<Situation> situation;
    // System-wide keyboard shortcuts; may stay empty where there are none.
    std::unique_ptr<HotKeys> hotKeys;
    // Finds and installs new versions; may stay empty where the build has no updater.
    std::unique_ptr<Updater> updater;
    // The system's light or dark appearance; may stay empty (then windows are dark).
    std::unique_ptr<Appearance> appearance;
    // The system's preferred interface languages, most wanted first (tags such as "de-DE").
    QStringList preferredLanguages;
    // This application's bundle identifier ("de.vexa.Ravlin"); empty without one.
    QString bundleIdentifier;

    // The names of the menu-bar services this platform lacks (empty when it has them all).
    QStringList missingMenuBarServices() const;
};

} // namespace ravlin
