#include "AppDelegate.h"

#include "MenuBarServices.h"
#include "core/discovery/MenuBarScanner.h"
#include "core/discovery/ScannerModel.h"
#include "core/foundation/DiagnosticLogs.h"
#include "core/foundation/NotificationCenter.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/Preferences.h"
#include "core/sysinfo/SystemStats.h"
#include "core/sysinfo/WeatherService.h"
#include "core/tiles/TileModel.h"
#include "platform/Platform.h"

#include <QPointer>

namespace ravlin {

AppDelegate::AppDelegate(Platform& platform, Scheduler& scheduler, const Resources& resources)
    : m_platform(platform),
      m_scheduler(scheduler),
      m_notifications(std::make_unique<NotificationCenter>()),
      m_preferences(std::make_unique<Preferences>(*platform.defaults, *m_notifications, platform.loginItems.get())),
      m_language(std::make_unique<LanguageManager>(resources, *platform.defaults, *m_preferences)),
      m_stats(std::make_unique<SystemStats>(scheduler, *platform.systemProbe)),
      m_weather(std::make_unique<WeatherService>(scheduler, *platform.location, *platform.geocoder, *platform.http)),
      m_logs(std::make_unique<DiagnosticLogs>()),
      m_menuBar(std::make_unique<MenuBarServices>(platform, scheduler, *platform.defaults, *m_language, *m_logs)),
      m_scannerModel(std::make_unique<ScannerModel>(m_menuBar->scanner(), m_menuBar->apps())),
      m_tileModel(std::make_unique<TileModel>(*platform.defaults))
{
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::setLogDirectory(const QString& directory)
{
    m_logs->setDirectory(directory);
}

void AppDelegate::applicationDidFinishLaunching(const QStringList& arguments)
{
    Q_UNUSED(arguments);
    m_launched = true;
    m_preferences->registerDefaults();
    m_language->applyStored();
    if (m_preferences->showWeather())
        m_weather->refreshIfStale();
    // A first reading at launch primes the sampler; the tile panel starts it again when it shows figures.
    m_stats->start(SystemStats::defaultInterval);
    m_scheduler.after(1.0, [stats = QPointer<SystemStats>(m_stats.get())] {
        if (stats)
            stats->stop();
    });
}

} // namespace ravlin
