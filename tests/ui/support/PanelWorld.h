#pragma once

#include "foundation/NotificationCenter.h"
#include "foundation/ResourceBundle.h"
#include "foundation/VirtualScheduler.h"
#include "core/tiles/BarGroup.h"
#include "platform/Platform.h"
#include "platform/sim/SimDesktop.h"

#include <memory>

namespace ravlin {
class LanguageManager;
class PermissionManager;
class Preferences;
class RavlinBar;
class SystemStats;
class TileModel;
class WeatherService;
class SimSystemProbe;
} // namespace ravlin

namespace ravlin::test {

// Everything the tile panel reads, over the simulated desktop and in virtual time.
class PanelWorld {
public:
    PanelWorld();
    ~PanelWorld();

    SimDesktop desktop;
    VirtualScheduler scheduler;
    Platform platform;

    Preferences& preferences() { return *m_preferences; }
    LanguageManager& language() { return *m_language; }
    SystemStats& stats() { return *m_stats; }
    WeatherService& weather() { return *m_weather; }
    TileModel& tiles() { return *m_tiles; }
    PermissionManager& permissions() { return *m_permissions; }
    SimSystemProbe& probe() { return *m_probe; }

    // A panel over this world that fades and resizes at once.
    std::unique_ptr<RavlinBar> makePanel();

    // n application items "Item 1"… and, when asked, a system group with Wi-Fi and Sound.
    static std::vector<BarGroup> groups(int appItems, bool withSystem = true);

private:
    NotificationCenter m_center;
    Resources m_resources;
    SimSystemProbe* m_probe = nullptr;
    std::unique_ptr<Preferences> m_preferences;
    std::unique_ptr<LanguageManager> m_language;
    std::unique_ptr<SystemStats> m_stats;
    std::unique_ptr<WeatherService> m_weather;
    std::unique_ptr<TileModel> m_tiles;
    std::unique_ptr<PermissionManager> m_permissions;
};

} // namespace ravlin::test
