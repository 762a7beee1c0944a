#pragma once

#include "PanelPalette.h"
#include "core/bar/TilePanel.h"
#include "core/settings/TileStyle.h"
#include "core/tiles/PanelContent.h"
#include "platform/Screens.h"

#include <QPointer>

#include <memory>
#include <optional>

class QWidget;

namespace ravlin {

class Appearance;
class HudContainer;
class LanguageManager;
class PaintCache;
class PanelWindow;
class PermissionManager;
class Preferences;
class RavlinBarView;
class Scheduler;
class Screens;
class SystemStats;
class TileModel;
class WeatherService;
class Workspace;

// What the tile panel reads and acts on; the application object owns all of it.
struct RavlinBarServices {
    Scheduler& scheduler;
    Screens& screens;
    Preferences& preferences;
    LanguageManager& language;
    SystemStats& stats;
    WeatherService& weather;
    TileModel& tiles;
    PermissionManager& permissions;
    Workspace& workspace;
    // The system's light or dark appearance, which the panel follows (none: dark).
    Appearance* appearance = nullptr;
};

// The floating tile panel under the main status item (in the bar style, a row of the
// hidden items' pictures right under the menu bar). The window is made once
// and kept; its content is made anew on every show. It fades in on its first
// show only, follows its content's height twice after showing (figures, weather
// and images arrive late) and closes when it loses key status or when the
// controller hides it. It never reaches past the visible area of its screen: what
// does not fit scrolls.
class RavlinBar final : public TilePanel {
public:
    static constexpr double fadeSeconds = 0.16;
    static constexpr double resizeSeconds = 0.14;
    static constexpr double firstRefit = 0.4;
    static constexpr double secondRefit = 1.3;

    explicit RavlinBar(RavlinBarServices services);
    ~RavlinBar() override;

    void show(const std::vector<BarGroup>& groups, const ScreenRect& anchor,
              ItemCallback onActivate, StatCallback onStat) override;
    void hide() override;
    bool isVisible() const override;
    void search(const QString& text) override;

    // The window lost key status (the user clicked elsewhere).
    void resignKey();
    // Escape with nothing typed: the panel closes as when it loses key status.
    void dismiss() { resignKey(); }
    // Off, fades and resizes happen at once (virtual time has no animation frames).
    void setAnimated(bool animated) { m_animated = animated; }

    // For the sandbox and tests.
    std::optional<ScreenRect> frame() const; // screen coordinates
    ScreenRect anchor() const { return m_anchor; }
    int fadeCount() const { return m_fades; }
    QWidget* window() const;
    RavlinBarView* view() const;

private:
    void makePanel();
    RavlinBarView* makeView(const std::vector<BarGroup>& groups, ItemCallback onActivate,
                            StatCallback onStat);
    void replaceContent(RavlinBarView* view);
    PanelRequest requestFor(TileStyle style) const;
    double barHeight() const;
    std::optional<ScreenInfo> screen() const;
    void placePanel();
    void resizeToFit();
    void fadeIn();
    void applyFrame(bool animate);
    void openWeather();
    void askForPermission(const QString& key);
    double mainDisplayHeight() const;
    QString accessibleName(const PanelTile& tile) const;
    PanelPalette palette() const;
    void followAppearance();

    RavlinBarServices m_s;
    PanelContent m_content;
    std::unique_ptr<PanelWindow> m_panel;
    std::unique_ptr<PaintCache> m_paintCache;
    // Made anew on every show; held loosely because the old ones are deleted later.
    QPointer<QWidget> m_container;
    QPointer<QWidget> m_view;
    ScreenRect m_anchor;
    ScreenRect m_frame;
    bool m_animated = true;
    int m_fades = 0;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace ravlin
