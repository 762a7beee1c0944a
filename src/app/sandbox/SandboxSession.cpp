#include "SandboxSession.h"

#include "core/app/AppDelegate.h"
#include "core/foundation/ResourceBundle.h"
#include "platform/linux/PlistFileDefaultsStore.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimLoginItems.h"
#include "platform/sim/SimPlatform.h"

#include <QCoreApplication>

namespace ravlin::sandbox {

SandboxSession::SandboxSession(Options options)
    : m_options(std::move(options)), m_desktop(std::make_unique<SimDesktop>())
{
    m_defaultsPath = m_options.defaultsPath.isEmpty() ? m_tempDir.filePath(QStringLiteral("de.vexa.Ravlin.plist"))
                                                      : m_options.defaultsPath;
    m_platform.defaults = std::make_unique<PlistFileDefaultsStore>(m_defaultsPath);
    auto login = std::make_unique<SimLoginItems>();
    m_login = login.get();
    m_platform.loginItems = std::move(login);
    installSimServices(m_platform, *m_desktop);
    m_desktop->setDefaults(m_platform.defaults.get());
    m_desktop->setScheduler(&m_scheduler);
}

SandboxSession::~SandboxSession() = default;

bool SandboxSession::setSystemLanguages(const QStringList& languages)
{
    if (m_app)
        return false;
    m_systemLanguages = languages;
    return true;
}

AppDelegate& SandboxSession::app()
{
    if (!m_app) {
        QString dir = m_options.resourcesDir;
        if (dir.isEmpty())
            dir = qEnvironmentVariable("RAVLIN_RESOURCES");
        if (dir.isEmpty())
            dir = Resources::locate(QCoreApplication::applicationDirPath());
        m_platform.preferredLanguages = m_systemLanguages;
        m_resources = std::make_unique<Resources>(dir, m_systemLanguages);
        m_app = std::make_unique<AppDelegate>(m_platform, m_scheduler, *m_resources);
        m_app->setLogDirectory(m_options.logDir);
    }
    return *m_app;
}

void SandboxSession::start(const QStringList& arguments)
{
    m_process.running = true;
    app().applicationDidFinishLaunching(arguments);
    m_scheduler.runDue();
}

} // namespace ravlin::sandbox
