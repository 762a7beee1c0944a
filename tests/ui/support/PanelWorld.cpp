#include "PanelWorld.h"

#include "core/discovery/PermissionManager.h"
#include "foundation/DefaultsStore.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/Preferences.h"
#include "core/sysinfo/SystemStats.h"
#include "core/sysinfo/WeatherService.h"
#include "core/tiles/TileModel.h"
#include "platform/sim/SimGeocoder.h"
#include "platform/sim/SimHttpClient.h"
#include "platform/sim/SimLocationService.h"
#include "platform/sim/SimPlatform.h"
#include "platform/sim/SimSystemProbe.h"
#include "ui/RavlinBar.h"

namespace ravlin::test {

PanelWorld::PanelWorld()
    : m_resources(QStringLiteral(RAVLIN_SOURCE_RESOURCES), {QStringLiteral("en")})
{
    platform.defaults = std::make_unique<InMemoryDefaultsStore>();
    installSimServices(platform, desktop);
    desktop.setDefaults(platform.defaults.get());
    desktop.setScheduler(&scheduler);
    auto probe = std::make_unique<SimSystemProbe>(scheduler);
    m_probe = probe.get();
    probe->setCpu(CpuTicks{100, 100, 800, 0});
    probe->setMemory(MemoryUsage{6, 16});
    probe->setVolume(VolumeCapacity{1000, 400});
    probe->setBattery(PowerSource{80, 100});
    platform.systemProbe = std::move(probe);
    platform.location = std::make_unique<SimLocationService>(scheduler);
    platform.geocoder = std::make_unique<SimGeocoder>(scheduler);
    platform.http = std::make_unique<SimHttpClient>(scheduler);
    m_preferences = std::make_unique<Preferences>(*platform.defaults, m_center, nullptr);
    m_preferences->registerDefaults();
    m_language = std::make_unique<LanguageManager>(m_resources, *platform.defaults, *m_preferences);
    m_stats = std::make_unique<SystemStats>(scheduler, *platform.systemProbe);
    m_weather = std::make_unique<WeatherService>(scheduler, *platform.location, *platform.geocoder,
                                                 *platform.http);
    m_tiles = std::make_unique<TileModel>(*platform.defaults);
    m_permissions = std::make_unique<PermissionManager>(
        *platform.permissions, *platform.accessibility, *platform.workspace);
}

PanelWorld::~PanelWorld() = default;

std::unique_ptr<RavlinBar> PanelWorld::makePanel()
{
    auto bar = std::make_unique<RavlinBar>(RavlinBarServices{
        scheduler, *platform.screens, *m_preferences, *m_language, *m_stats, *m_weather, *m_tiles,
        *m_permissions, *platform.workspace, platform.appearance.get()});
    bar->setAnimated(false);
    return bar;
}

std::vector<BarGroup> PanelWorld::groups(int appItems, bool withSystem)
{
    BarGroup apps{QStringLiteral("Apps"), {}};
    for (int i = 1; i <= appItems; ++i) {
        BarItem item;
        item.key = QStringLiteral("n:Item %1").arg(i);
        item.label = QStringLiteral("Item %1").arg(i);
        item.info = {1000 + i,  -100.0 * i, 0, 22, 24, QStringLiteral("Owner %1").arg(i),
                     item.label};
        apps.items.push_back(item);
    }
    std::vector<BarGroup> result{apps};
    if (withSystem) {
        BarGroup system{QStringLiteral("System"), {}};
        for (const QString& name : {QStringLiteral("Wi-Fi"), QStringLiteral("Sound")}) {
            BarItem item;
            item.key = QStringLiteral("n:") + name;
            item.label = name;
            item.isApple = true;
            item.symbolName =
                name == u"Wi-Fi" ? QStringLiteral("wifi") : QStringLiteral("speaker.wave.2");
            system.items.push_back(item);
        }
        result.push_back(system);
    }
    return result;
}

} // namespace ravlin::test
