#pragma once

#include "core/app/MenuBarServices.h"
#include "foundation/DefaultsStore.h"
#include "foundation/DiagnosticLogs.h"
#include "foundation/NotificationCenter.h"
#include "foundation/ResourceBundle.h"
#include "foundation/VirtualScheduler.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/Preferences.h"
#include "platform/Platform.h"
#include "platform/sim/SimDesktop.h"

#include <QTemporaryDir>

#include <memory>

namespace ravlin::test {

// A simulated desktop with the discovery services over it, in virtual time.
// Tests set the desktop up and then ask the services; both read it live.
class SimWorld {
public:
    SimWorld();
    ~SimWorld();

    SimDesktop desktop;
    VirtualScheduler scheduler;
    Platform platform;

    DefaultsStore& defaults() { return *platform.defaults; }
    MenuBarServices& services() { return *m_services; }
    LanguageManager& language() { return *m_language; }
    DiagnosticLogs& logs() { return m_logs; }
    QString readLog(const QString& name) const;

    std::int32_t app(const QString& bundle, const QString& name);
    // An item at the left end of the movable items declared so far.
    std::int64_t item(const QString& bundle, const QString& title, double width = 22);
    SimItem& itemRef(std::int64_t window) { return *desktop.item(window); }
    SimPlacedItem placed(std::int64_t window) const { return *desktop.placed(window); }

private:
    QTemporaryDir m_dir;
    NotificationCenter m_center;
    Resources m_resources;
    std::unique_ptr<Preferences> m_preferences;
    std::unique_ptr<LanguageManager> m_language;
    DiagnosticLogs m_logs;
    std::unique_ptr<MenuBarServices> m_services;
};

} // namespace ravlin::test
