#include "RavlinBar.h"

#include "HudContainer.h"
#include "NativeWindow.h"
#include "PaintCache.h"
#include "PanelWindow.h"
#include "RavlinBarView.h"
#include "core/discovery/PermissionManager.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/Preferences.h"
#include "core/sysinfo/RateText.h"
#include "core/sysinfo/SystemStats.h"
#include "core/sysinfo/WeatherService.h"
#include "core/tiles/BarPlacement.h"
#include "core/tiles/PanelPlacement.h"
#include "core/tiles/TileModel.h"
#include "foundation/Logging.h"
#include "foundation/Scheduler.h"
#include "platform/Appearance.h"
#include "platform/Screens.h"
#include "platform/Workspace.h"

#include <QPropertyAnimation>

#include <cmath>

namespace ravlin {

namespace P = PanelPlacement;

RavlinBar::RavlinBar(RavlinBarServices services)
    : m_s(services), m_content(services.stats, services.weather, services.tiles, services.language),
      m_paintCache(std::make_unique<PaintCache>())
{
    if (m_s.appearance) {
        std::weak_ptr<bool> alive = m_alive;
        m_s.appearance->whenChanged([this, alive] {
            if (alive.lock())
                followAppearance();
        });
    }
}

PanelPalette RavlinBar::palette() const
{
    return PanelPalette::forAppearance(!m_s.appearance || m_s.appearance->isDark());
}

// The open panel takes the system's new appearance at once, as the system's own do.
void RavlinBar::followAppearance()
{
    if (auto* container = static_cast<HudContainer*>(m_container.data()))
        container->setPalette(palette());
    if (RavlinBarView* v = view())
        v->setPalette(palette());
}

RavlinBar::~RavlinBar()
{
    *m_alive = false;
}

QWidget* RavlinBar::window() const
{
    return m_panel.get();
}

RavlinBarView* RavlinBar::view() const
{
    return static_cast<RavlinBarView*>(m_view.data());
}

void RavlinBar::makePanel()
{
    m_panel = std::make_unique<PanelWindow>();
    m_panel->onResignKey = [this] { resignKey(); };
    // The panel style must be in place before the window is first shown.
    NativeWindow::makeMenuBarPanel(m_panel.get());
}

void RavlinBar::show(const std::vector<BarGroup>& groups, const ScreenRect& anchor,
                     ItemCallback onActivate, StatCallback onStat)
{
    const bool figures = m_s.preferences.tileStyle() == TileStyle::Bar
                             ? m_s.preferences.barShowsStatistics()
                             : m_s.preferences.showSystemTiles();
    if (figures)
        m_s.stats.start();
    else
        m_s.stats.stop();
    if (m_s.preferences.showWeather() && m_s.preferences.tileStyle() != TileStyle::Bar)
        m_s.weather.refreshIfStale();
    const bool wasVisible = isVisible();
    // Content refilled while the panel is open keeps the place the user scrolled to.
    const double keptScroll = wasVisible && view() ? view()->scrollOffset() : 0;
    // So does what the user typed, and where the focus ring stood.
    const QString keptQuery = wasVisible && view() ? view()->query() : QString();
    const std::optional<QString> keptFocus =
        wasVisible && view() ? view()->focusedKey() : std::nullopt;
    m_anchor = anchor;
    RavlinBarView* view = makeView(groups, std::move(onActivate), std::move(onStat));
    view->setQuery(keptQuery);
    if (!m_panel)
        makePanel();
    replaceContent(view);
    placePanel();
    view->setScrollOffset(keptScroll);
    if (keptFocus)
        view->setFocusedKey(keptFocus);
    if (!wasVisible && m_animated)
        m_panel->setWindowOpacity(0);
    m_panel->show();
    NativeWindow::makeMenuBarPanel(m_panel.get());
    m_panel->raise();
    m_panel->activateWindow();
    view->setFocus(Qt::PopupFocusReason);
    if (!wasVisible)
        fadeIn();
    for (double delay : {firstRefit, secondRefit}) {
        m_s.scheduler.after(delay, [this, alive = std::weak_ptr<bool>(m_alive)] {
            if (auto a = alive.lock(); a && *a)
                resizeToFit();
        });
    }
}

// The new content goes into a new container; the old one is hidden at once and deleted
// later, because this show may come from inside the old view's own event handling.
void RavlinBar::replaceContent(RavlinBarView* view)
{
    if (m_container) {
        // Until it is gone the old view must not redraw for every new figure.
        for (QObject* source :
             {static_cast<QObject*>(&m_s.stats), static_cast<QObject*>(&m_s.weather),
              static_cast<QObject*>(&m_s.tiles)})
            QObject::disconnect(source, nullptr, m_view, nullptr);
        m_container->hide();
        m_container->deleteLater();
    }
    auto* container = new HudContainer(m_panel.get());
    container->setPalette(palette());
    // The bar's row is as high as the menu bar: its corners are rounded as a menu's are.
    if (view->isRow())
        container->setCornerRadius(std::min(9.0, view->contentHeight() / 2));
    container->setNativeBackground(
        NativeWindow::addHudBackground(m_panel.get(), container->cornerRadius()));
    container->setContent(view);
    // A child made while its window is already on screen stays hidden until it is shown
    // itself: without this a panel filled again while open is an empty frame.
    container->show();
    m_container = container;
    m_view = view;
}
RavlinBarView* RavlinBar::makeView(const std::vector<BarGroup>& groups, ItemCallback onActivate,
                                   StatCallback onStat)
{
    const TileStyle style = m_s.preferences.tileStyle();
    PanelRequest request = requestFor(style);
    request.groups = groups;
    const RavlinBarView::Sources sources{m_content,
                                         m_s.tiles,
                                         m_s.stats,
                                         m_s.weather,
                                         m_s.language.L(QStringLiteral("bar.empty")),
                                         m_s.language.L(QStringLiteral("search.noMatches")),
                                         m_s.language.L(QStringLiteral("a11y.settings")),
                                         m_paintCache.get(),
                                         palette(),
                                         barHeight()};
    auto* view = new RavlinBarView(sources, std::move(request), style);
    view->setLayoutDirection(m_s.language.isRTL() ? Qt::RightToLeft : Qt::LeftToRight);
    view->onActivate = std::move(onActivate);
    view->onStat = std::move(onStat);
    if (onFootnote)
        view->onFootnote = [this] {
            if (onFootnote)
                onFootnote();
        };
    view->onWeather = [this] { openWeather(); };
    view->onPermission = [this](const QString& key) { askForPermission(key); };
    // The settings window comes forward; the panel gives way to it.
    view->onSettings = [this] {
        dismiss();
        if (onSettings)
            onSettings();
    };
    view->onDismiss = [this] { dismiss(); };
    view->onContentSizeChanged = [this] { resizeToFit(); };
    view->accessibleNamer = [this](const PanelTile& tile) { return accessibleName(tile); };
    view->setAccessibleName(m_s.language.L(QStringLiteral("a11y.panel")));
    return view;
}

// The bar style's row has room for the items and, when the user wants them, the statistics
// as chips: no weather, no permission tiles; its note is a mark beside the gear.
PanelRequest RavlinBar::requestFor(TileStyle style) const
{
    PanelRequest request;
    // The note (a rule in force, items Ravlin cannot bring into sight) matters in every
    // style: the bar folds it to a mark beside its gear.
    if (footnote)
        request.footnote = footnote();
    if (style == TileStyle::Bar) {
        request.showWeather = false;
        request.showSystemTiles = m_s.preferences.barShowsStatistics();
        request.offerPermissions = false;
        return request;
    }
    request.showWeather = m_s.preferences.showWeather();
    request.showSystemTiles = m_s.preferences.showSystemTiles();
    request.hasScreenRecording = m_s.permissions.hasScreenRecording();
    request.hasAccessibility = m_s.permissions.hasAccessibility();
    return request;
}

double RavlinBar::barHeight() const
{
    const std::optional<ScreenInfo> on = screen();
    return on ? BarPlacement::menuBarHeight(*on) : 24.0;
}

void RavlinBar::hide()
{
    m_s.stats.stop();
    if (m_panel)
        m_panel->hide();
}

void RavlinBar::search(const QString& text)
{
    if (isVisible() && view())
        view()->setQuery(text);
}

bool RavlinBar::isVisible() const
{
    return m_panel && m_panel->isVisible();
}

void RavlinBar::resignKey()
{
    if (!isVisible())
        return;
    hide();
    if (onClose)
        onClose();
}

double RavlinBar::mainDisplayHeight() const
{
    const std::vector<ScreenInfo> screens = m_s.screens.screens();
    return screens.empty() ? 900.0 : screens.front().frame.height;
}

std::optional<ScreenInfo> RavlinBar::screen() const
{
    return P::screenFor(m_anchor, m_s.screens.screens(), m_s.screens.mainScreen());
}

// Sizes the panel to its content, as far as the screen below the anchor allows, and
// hangs it under the anchor.
void RavlinBar::placePanel()
{
    const std::optional<ScreenInfo> on = screen();
    if (!on) {
        qCWarning(lcUi) << "no screen to show the tile panel on";
        return;
    }
    if (view()->isRow()) {
        m_frame = BarPlacement::frame(m_anchor, *on, view()->contentWidth());
    } else {
        const double width = P::widthOn(on->frame);
        const double height =
            P::fittedHeight(view()->heightForWidth(int(width)), P::maximumHeight(m_anchor, *on));
        const ScreenPoint origin = P::origin(m_anchor, on->frame, height, width);
        m_frame = {origin.x, origin.y, width, height};
    }
    m_container->resize(int(m_frame.width), int(m_frame.height));
    applyFrame(false);
}

// The window's geometry follows m_frame; Qt's global coordinates are the window server's.
void RavlinBar::applyFrame(bool animate)
{
    const WindowServerRect g = Geometry::toWindowServer(m_frame, mainDisplayHeight());
    const QRect target(qRound(g.x), qRound(g.y), qRound(g.width), qRound(g.height));
    if (!animate || !m_animated || !m_panel->isVisible()) {
        m_panel->setGeometry(target);
        return;
    }
    auto* move = new QPropertyAnimation(m_panel.get(), "geometry", m_panel.get());
    move->setDuration(int(resizeSeconds * 1000));
    move->setEasingCurve(QEasingCurve::OutCubic);
    move->setEndValue(target);
    move->start(QAbstractAnimation::DeleteWhenStopped);
}

void RavlinBar::fadeIn()
{
    ++m_fades;
    if (!m_animated)
        return;
    auto* fade = new QPropertyAnimation(m_panel.get(), "windowOpacity", m_panel.get());
    fade->setDuration(int(fadeSeconds * 1000));
    fade->setEasingCurve(QEasingCurve::OutCubic);
    fade->setStartValue(0.0);
    fade->setEndValue(1.0);
    fade->start(QAbstractAnimation::DeleteWhenStopped);
}

void RavlinBar::resizeToFit()
{
    if (!m_panel || !m_container || !m_view)
        return;
    const std::optional<ScreenInfo> on = screen();
    std::optional<ScreenRect> refitted;
    if (view()->isRow()) {
        // The row grows and shrinks along its length as a search narrows it.
        const ScreenRect wanted =
            on ? BarPlacement::frame(m_anchor, *on, view()->contentWidth()) : m_frame;
        if (std::abs(wanted.width - m_frame.width) > P::refitTolerance)
            refitted = wanted;
    } else {
        const double maximum = on ? P::maximumHeight(m_anchor, *on) : m_frame.height;
        refitted = P::refit(m_frame, view()->heightForWidth(int(m_frame.width)), maximum);
    }
    if (!refitted)
        return;
    m_frame = *refitted;
    m_container->resize(int(m_frame.width), int(m_frame.height));
    applyFrame(true);
}

std::optional<ScreenRect> RavlinBar::frame() const
{
    if (!m_panel)
        return std::nullopt;
    return m_frame;
}

// What a screen reader says for a tile: the item's name; a statistic with its value in
// words ("CPU 23 percent"); the weather with its place and temperature.
QString RavlinBar::accessibleName(const PanelTile& tile) const
{
    switch (tile.kind) {
    case TileKind::Stat:
        if (tile.percent)
            return tile.label + u' ' +
                   m_s.language.L(QStringLiteral("a11y.percent"), qRound(*tile.percent));
        return tile.label;
    case TileKind::Network:
        if (tile.content && std::holds_alternative<NetworkRates>(*tile.content)) {
            const NetworkRates& rates = std::get<NetworkRates>(*tile.content);
            return tile.label + QStringLiteral(", ") +
                   m_s.language.L(QStringLiteral("a11y.network"),
                                  rateText(rates.down, m_s.language.decimalPoint()),
                                  rateText(rates.up, m_s.language.decimalPoint()));
        }
        return tile.label;
    case TileKind::Weather: {
        QStringList parts{tile.label, tile.subtitle, tile.note};
        parts.removeAll(QString());
        return parts.join(QStringLiteral(", "));
    }
    case TileKind::Item:
    case TileKind::Permission:
        break;
    }
    return tile.label;
}

// The weather opens the forecast; without location access it asks for access instead,
// through the system where it still asks, else in the privacy settings.
void RavlinBar::openWeather()
{
    if (!m_s.weather.hasLocationAccess()) {
        if (!m_s.weather.askForLocationAccess())
            m_s.permissions.openLocationSettings();
        return;
    }
    if (const std::optional<QString> url =
            m_s.workspace.urlForApplication(QStringLiteral("com.apple.weather")))
        m_s.workspace.openApplication(*url, true);
}

void RavlinBar::askForPermission(const QString& key)
{
    if (key == PanelContent::screenRecordingKey) {
        m_s.permissions.requestScreenRecording();
        m_s.permissions.openScreenRecordingSettings();
    } else if (key == PanelContent::accessibilityKey) {
        m_s.permissions.requestAccessibility();
        m_s.permissions.openAccessibilitySettings();
    }
}

} // namespace ravlin
