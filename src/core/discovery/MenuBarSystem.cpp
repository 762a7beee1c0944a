#include "MenuBarSystem.h"

#include "MenuBarReader.h"
#include "MenuBarScanner.h"
#include "WindowListReader.h"
#include "foundation/Logging.h"
#include "platform/Screens.h"
#include "platform/StatusBar.h"
#include "platform/WindowServer.h"
#include "platform/Workspace.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ravlin {

namespace {

// A window at the status level this much of a display wide holds the whole bar.
constexpr double barWindowShare = 0.9;
constexpr double sameFrameSlack = 1.5;

} // namespace

MenuBarSystem::MenuBarSystem(MenuBarReader& reader, WindowServer& windowServer,
                             Workspace& workspace, Screens& screens)
    : m_reader(reader), m_windowServer(windowServer), m_workspace(workspace), m_screens(screens)
{}

void MenuBarSystem::detect(const StatusItem& mainItem, bool engineAvailable)
{
    m_engineAvailable = engineAvailable && !m_engineStopped;
    const std::optional<std::vector<StatusWindow>> windows =
        WindowListReader(m_windowServer).statusWindows(WindowListOption::AllWindows);
    if (!windows) {
        qCWarning(lcDiscovery) << "the window list cannot be read; the menu bar's ways stay as"
                               << "they were";
        return;
    }
    MenuBarCapabilities c;
    c.longestItem = m_capabilities.longestItem; // what the bar dropped stays learnt
    const std::optional<ScreenRect> frame = mainItem.windowFrame();
    const std::optional<StatusWindow> own = frame ? windowAt(*frame, *windows) : std::nullopt;
    if (own) {
        const std::int32_t self = m_workspace.currentProcessIdentifier();
        c.windowOwnersAreReal = own->pid == self;
        c.findings << QStringLiteral("each item is a window of its own");
        c.findings << (c.windowOwnersAreReal
                           ? QStringLiteral("the window list names each item's application")
                           : QStringLiteral("the window list names %1 as the owner of every item")
                                 .arg(own->owner.isEmpty() ? QStringLiteral("the system")
                                                           : own->owner));
    } else {
        c.itemWindows = false;
        c.windowOwnersAreReal = false;
        const std::optional<StatusWindow> bar = barWindow(*windows);
        if (bar && bar->pid)
            c.barOwnerPid = *bar->pid;
        c.findings << (frame ? QStringLiteral("no window stands where the main item says it is")
                             : QStringLiteral("the main item reports no frame"));
        c.findings << (bar ? QStringLiteral("one window of %1 holds the bar; its items are "
                                            "accessibility elements")
                                 .arg(bar->owner.isEmpty() ? processName(*bar->pid) : bar->owner)
                           : QStringLiteral("no window holds the bar"));
    }
    if (c.longestItem)
        c.findings << QStringLiteral("the bar drops items of %1 points or more")
                          .arg(std::round(narrowestDisplay() / 2));
    apply(std::move(c));
}

void MenuBarSystem::noteLongItemsDropped()
{
    MenuBarCapabilities c = m_capabilities;
    c.longestItem = narrowestDisplay() / 2;
    c.findings.removeIf([](const QString& f) { return f.startsWith(u"the bar drops"); });
    c.findings << QStringLiteral("the bar drops items of %1 points or more; items without room "
                                 "wait in its overflow menu")
                      .arg(std::round(*c.longestItem));
    apply(std::move(c));
}

void MenuBarSystem::displaysChanged()
{
    if (!m_capabilities.longestItem)
        return;
    MenuBarCapabilities c = m_capabilities;
    c.longestItem = narrowestDisplay() / 2;
    apply(std::move(c));
}

void MenuBarSystem::engineStoppedWorking()
{
    m_engineStopped = true;
    m_engineAvailable = false;
    apply(m_capabilities);
}

void MenuBarSystem::apply(MenuBarCapabilities capabilities)
{
    const MenuBarTechniques techniques = MenuBarTechniques::choose(capabilities, m_engineAvailable);
    const bool changed =
        techniques != m_techniques || capabilities.findings != m_capabilities.findings;
    m_capabilities = std::move(capabilities);
    m_techniques = techniques;
    m_reader.setCapabilities(m_capabilities);
    if (!changed)
        return;
    qCInfo(lcDiscovery).noquote() << "menu bar:"
                                  << m_capabilities.findings.join(QStringLiteral("; "));
    qCInfo(lcDiscovery).noquote() << "techniques: discovery"
                                  << MenuBarTechniques::name(m_techniques.discovery) << "| hiding"
                                  << MenuBarTechniques::name(m_techniques.hiding) << "| activation"
                                  << MenuBarTechniques::name(m_techniques.activation)
                                  << "| pictures" << MenuBarTechniques::name(m_techniques.pictures);
}

double MenuBarSystem::collapsedSeparatorLength(double wanted) const
{
    if (!m_capabilities.longestItem)
        return wanted;
    return std::min(wanted, std::floor(*m_capabilities.longestItem - shortSeparatorMargin));
}

int MenuBarSystem::separatorsToSpan(double wanted) const
{
    const double length = collapsedSeparatorLength(wanted);
    if (length >= wanted || length <= 0)
        return 1;
    return std::max(1, int(std::ceil(widestDisplay() / length)));
}

std::optional<StatusWindow> MenuBarSystem::windowAt(const ScreenRect& frame,
                                                    const std::vector<StatusWindow>& windows) const
{
    const WindowServerRect at = Geometry::toWindowServer(frame, mainDisplayHeight());
    for (const StatusWindow& w : windows) {
        if (w.bounds && w.bounds->height <= MenuBarScanner::maxItemHeight &&
            std::abs(w.bounds->x - at.x) <= sameFrameSlack &&
            std::abs(w.bounds->width - at.width) <= sameFrameSlack &&
            std::abs(w.bounds->y - at.y) <= sameFrameSlack)
            return w;
    }
    return std::nullopt;
}

std::optional<StatusWindow> MenuBarSystem::barWindow(const std::vector<StatusWindow>& windows) const
{
    const double narrowest = narrowestDisplay();
    for (const StatusWindow& w : windows) {
        if (w.bounds && w.pid && w.bounds->height <= MenuBarScanner::maxItemHeight &&
            w.bounds->width >= narrowest * barWindowShare)
            return w;
    }
    return std::nullopt;
}

double MenuBarSystem::narrowestDisplay() const
{
    double narrowest = std::numeric_limits<double>::infinity();
    for (const ScreenInfo& s : m_screens.screens())
        narrowest = std::min(narrowest, s.frame.width);
    return std::isfinite(narrowest) ? narrowest : 1440.0;
}

double MenuBarSystem::widestDisplay() const
{
    double widest = 0;
    for (const ScreenInfo& s : m_screens.screens())
        widest = std::max(widest, s.frame.width);
    return widest > 0 ? widest : 1440.0;
}

double MenuBarSystem::mainDisplayHeight() const
{
    const std::vector<ScreenInfo> screens = m_screens.screens();
    return screens.empty() ? 900.0 : screens.front().frame.height;
}

QString MenuBarSystem::processName(std::int32_t pid) const
{
    if (const std::optional<RunningApplication> app = m_workspace.runningApplication(pid))
        return app->localizedName.value_or(QStringLiteral("process %1").arg(pid));
    return QStringLiteral("process %1").arg(pid);
}

} // namespace ravlin
