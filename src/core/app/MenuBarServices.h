#pragma once

#include <memory>

namespace ravlin {

class AXResolver;
class BarGrouping;
class BarItemFactory;
class CaptureEngine;
class DefaultsStore;
class DiagnosticLogs;
class ItemCapture;
class LanguageManager;
class MenuBarApps;
class MenuBarReader;
class MenuBarSystem;
class MenuBarScanner;
class MoveEngine;
class PermissionManager;
class Scheduler;
struct Platform;

// The stateless workers of menu-bar discovery, built once over the platform's
// services and handed out by reference. The application object owns one set.
class MenuBarServices {
public:
    MenuBarServices(Platform& platform, Scheduler& scheduler, DefaultsStore& defaults,
                    const LanguageManager& language, const DiagnosticLogs& logs);
    ~MenuBarServices();

    PermissionManager& permissions() const { return *m_permissions; }
    ItemCapture& itemCapture() const { return *m_capture; }
    AXResolver& resolver() const { return *m_resolver; }
    MenuBarReader& reader() const { return *m_reader; }
    MenuBarSystem& system() const { return *m_system; }
    MenuBarScanner& scanner() const { return *m_scanner; }
    MenuBarApps& apps() const { return *m_apps; }
    MoveEngine& moveEngine() const { return *m_mover; }
    BarItemFactory& itemFactory() const { return *m_factory; }
    CaptureEngine& captureEngine() const { return *m_captureEngine; }
    BarGrouping& grouping() const { return *m_grouping; }

private:
    std::unique_ptr<PermissionManager> m_permissions;
    std::unique_ptr<ItemCapture> m_capture;
    std::unique_ptr<AXResolver> m_resolver;
    std::unique_ptr<MenuBarReader> m_reader;
    std::unique_ptr<MenuBarSystem> m_system;
    std::unique_ptr<MenuBarScanner> m_scanner;
    std::unique_ptr<MenuBarApps> m_apps;
    std::unique_ptr<MoveEngine> m_mover;
    std::unique_ptr<BarItemFactory> m_factory;
    std::unique_ptr<CaptureEngine> m_captureEngine;
    std::unique_ptr<BarGrouping> m_grouping;
};

} // namespace ravlin
