#include "MenuBarServices.h"

#include "core/bar/MoveEngine.h"
#include "core/discovery/AXResolver.h"
#include "core/discovery/CaptureEngine.h"
#include "core/discovery/ItemCapture.h"
#include "core/discovery/MenuBarApps.h"
#include "core/discovery/MenuBarReader.h"
#include "core/discovery/MenuBarScanner.h"
#include "core/discovery/MenuBarSystem.h"
#include "core/discovery/PermissionManager.h"
#include "core/tiles/BarGrouping.h"
#include "core/tiles/BarItemFactory.h"
#include "platform/Platform.h"

#include <QtGlobal>

namespace ravlin {

MenuBarServices::MenuBarServices(Platform& platform, Scheduler& scheduler, DefaultsStore& defaults,
                                 const LanguageManager& language, const DiagnosticLogs& logs)
{
    if (const QStringList missing = platform.missingMenuBarServices(); !missing.isEmpty())
        qFatal("the platform lacks the menu-bar services %s",
               qPrintable(missing.join(QStringLiteral(", "))));
    m_permissions = std::make_unique<PermissionManager>(
        *platform.permissions, *platform.accessibility, *platform.workspace);
    m_capture = std::make_unique<ItemCapture>(*platform.windowServer, *m_permissions);
    m_resolver =
        std::make_unique<AXResolver>(*platform.accessibility, *platform.workspace, *m_permissions);
    m_reader = std::make_unique<MenuBarReader>(*platform.windowServer, *platform.accessibility,
                                               *platform.workspace, *platform.screens);
    m_system = std::make_unique<MenuBarSystem>(*m_reader, *platform.windowServer,
                                               *platform.workspace, *platform.screens);
    m_scanner = std::make_unique<MenuBarScanner>(*m_reader);
    m_apps =
        std::make_unique<MenuBarApps>(*platform.workspace, *platform.accessibility, *m_permissions);
    m_mover =
        std::make_unique<MoveEngine>(*platform.events, *m_reader, scheduler, *m_permissions, logs);
    m_factory = std::make_unique<BarItemFactory>(*m_resolver, *m_capture, *m_permissions, defaults,
                                                 language);
    m_factory->setMenuBar(*m_reader, *m_system, *platform.workspace);
    m_captureEngine = std::make_unique<CaptureEngine>(*m_reader, *m_capture, *m_mover, *m_factory,
                                                      scheduler, logs);
    m_captureEngine->setSystem(*m_system);
    m_grouping = std::make_unique<BarGrouping>(*m_factory, language);
}

MenuBarServices::~MenuBarServices() = default;

} // namespace ravlin
