#pragma once

#include <QStringList>

#include <memory>

namespace ravlin {

class DefaultsStore;
class LoginItems;

// The services the core asks of the operating system. Each backend (macOS, the
// simulated desktop, real Linux services) fills in its own; the application
// object borrows them for its whole life.
struct Platform {
    Platform();
    ~Platform();
    Platform(Platform&&) noexcept;
    Platform& operator=(Platform&&) noexcept;

    std::unique_ptr<DefaultsStore> defaults;
    std::unique_ptr<LoginItems> loginItems;
    // The system's preferred interface languages, most wanted first (tags such as "de-DE").
    QStringList preferredLanguages;
    // This application's bundle identifier ("de.vexa.Ravlin"); empty without one.
    QString bundleIdentifier;
};

} // namespace ravlin
