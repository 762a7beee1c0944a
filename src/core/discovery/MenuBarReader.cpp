#include "MenuBarReader.h"

#include "MenuBarScanner.h"
#include "WindowListReader.h"
#include "foundation/Logging.h"
#include "platform/MenuExtras.h"
#include "platform/Screens.h"
#include "platform/StatusBar.h"
#include "platform/WindowServer.h"
#include "platform/Workspace.h"

#include <QMutexLocker>

#include <cmath>

namespace ravlin {

namespace {

// Two frames that differ by no more than this are the same item's.
constexpr double sameFrameSlack = 1.5;

bool sameFrame(const WindowServerRect& a, const WindowServerRect& b)
{
    return std::abs(a.x - b.x) <= sameFrameSlack && std::abs(a.width - b.width) <= sameFrameSlack;
}

} // namespace

MenuBarReader::MenuBarReader(WindowServer& windowServer, Accessibility& accessibility,
                             Workspace& workspace, Screens& screens)
    : m_windowServer(windowServer), m_accessibility(accessibility), m_workspace(workspace),
      m_screens(screens)
{}

void MenuBarReader::setCapabilities(const MenuBarCapabilities& capabilities)
{
    QMutexLocker lock(&m_mutex);
    m_capabilities = capabilities;
}

MenuBarCapabilities MenuBarReader::capabilities() const
{
    QMutexLocker lock(&m_mutex);
    return m_capabilities;
}

std::optional<std::vector<StatusWindow>> MenuBarReader::statusWindows(WindowListOption option) const
{
    const MenuBarCapabilities c = capabilities();
    if (!c.itemWindows)
        return fromAccessibilityTree(option);
    std::optional<std::vector<StatusWindow>> windows = fromWindowList(option);
    if (windows && !c.windowOwnersAreReal)
        takeOwnersFromExtras(*windows);
    return windows;
}

std::optional<std::vector<StatusWindow>>
MenuBarReader::fromWindowList(WindowListOption option) const
{
    return WindowListReader(m_windowServer).statusWindows(option);
}

// The window list names the system as every item's owner; each application's extras
// menu bar lists its own items with their frames, and a frame names the window's owner.
void MenuBarReader::takeOwnersFromExtras(std::vector<StatusWindow>& windows) const
{
    const std::vector<ExtrasItem> extras = extrasItems();
    const std::int32_t self = m_workspace.currentProcessIdentifier();
    for (StatusWindow& w : windows) {
        if (w.isOwn()) {
            w.pid = self;
            w.owner = ownerName(self);
        }
        if (!w.bounds || w.isOwn())
            continue;
        for (const ExtrasItem& e : extras) {
            if (sameFrame(*w.bounds, e.frame)) {
                w.pid = e.pid;
                w.owner = e.owner;
                break;
            }
        }
    }
}

std::vector<MenuBarReader::ExtrasItem> MenuBarReader::extrasItems() const
{
    std::vector<ExtrasItem> items;
    const std::int32_t self = m_workspace.currentProcessIdentifier();
    for (const RunningApplication& app : m_workspace.runningApplications()) {
        if (app.pid == self || app.activationPolicy == ActivationPolicy::Prohibited)
            continue;
        const AXElement element = m_accessibility.applicationElement(app.pid);
        m_accessibility.setMessagingTimeout(element, messagingTimeout);
        const AXResult<AXValue> extras =
            m_accessibility.copyAttributeValue(element, QStringLiteral("AXExtrasMenuBar"));
        if (!extras.ok() || extras.value.kind != AXValue::Kind::Element)
            continue;
        for (const AXElement& child : children(extras.value.element)) {
            if (const std::optional<WindowServerRect> f = frame(child))
                items.push_back({*f, app.pid, app.localizedName.value_or(QString())});
        }
    }
    return items;
}

std::optional<std::vector<StatusWindow>>
MenuBarReader::fromAccessibilityTree(WindowListOption option) const
{
    const std::optional<std::vector<Slot>> all = slots();
    if (!all)
        return std::nullopt;
    std::vector<StatusWindow> windows;
    std::map<std::pair<std::int32_t, QString>, int> seen;
    QMutexLocker lock(&m_mutex);
    for (const Slot& slot : *all) {
        if (slot.identifier == MenuExtras::overflowIdentifier || !slot.frame)
            continue;
        const int occurrence = seen[{slot.pid, slot.identifier}]++;
        const auto key = std::tuple(slot.pid, slot.identifier, occurrence);
        auto number = m_numbers.find(key);
        if (number == m_numbers.end())
            number =
                m_numbers.emplace(key, firstElementNumber + std::uint32_t(m_numbers.size())).first;
        if (!slot.child.isNull())
            m_elements[number->second] = slot.child;
        if (option == WindowListOption::OnScreenOnly && !isOnScreen(*slot.frame))
            continue;
        StatusWindow w;
        w.number = number->second;
        w.pid = slot.pid;
        w.bounds = slot.frame;
        w.owner = ownerName(slot.pid);
        // The system's items are named as their windows were, so that what was learnt
        // of an item on one system holds on the other.
        w.name = MenuExtras::windowTitleFor(slot.identifier).value_or(slot.identifier);
        windows.push_back(std::move(w));
    }
    return windows;
}

std::optional<std::vector<MenuBarReader::Slot>> MenuBarReader::slots() const
{
    const std::optional<std::int32_t> barOwner = capabilities().barOwnerPid;
    if (!barOwner) {
        qCWarning(lcDiscovery) << "no process is known to hold the menu bar; no items can be read";
        return std::nullopt;
    }
    const AXElement agent = m_accessibility.applicationElement(*barOwner);
    m_accessibility.setMessagingTimeout(agent, messagingTimeout);
    const AXResult<AXValue> bars =
        m_accessibility.copyAttributeValue(agent, QStringLiteral("AXChildren"));
    if (!bars.ok() || bars.value.kind != AXValue::Kind::ElementList) {
        qCWarning(lcDiscovery) << "the menu bar's accessibility tree cannot be read (error"
                               << bars.error << ")";
        return std::nullopt;
    }
    std::vector<Slot> result;
    for (const AXElement& bar : bars.value.elements) {
        for (const AXElement& element : children(bar)) {
            Slot slot;
            slot.identifier = text(element, QStringLiteral("AXIdentifier")).value_or(QString());
            slot.frame = frame(element);
            const std::vector<AXElement> parts = children(element);
            slot.child = parts.empty() ? AXElement() : parts.front();
            const AXResult<std::int32_t> pid =
                m_accessibility.pid(slot.child.isNull() ? element : slot.child);
            slot.pid = pid.ok() ? pid.value : *barOwner;
            result.push_back(std::move(slot));
        }
    }
    return result;
}

std::vector<AXElement> MenuBarReader::children(const AXElement& element) const
{
    const AXResult<AXValue> value =
        m_accessibility.copyAttributeValue(element, QStringLiteral("AXChildren"));
    if (!value.ok() || value.value.kind != AXValue::Kind::ElementList)
        return {};
    return value.value.elements;
}

std::optional<QString> MenuBarReader::text(const AXElement& element, const QString& attribute) const
{
    const AXResult<AXValue> value = m_accessibility.copyAttributeValue(element, attribute);
    if (!value.ok() || value.value.kind != AXValue::Kind::Text || value.value.text.isEmpty())
        return std::nullopt;
    return value.value.text;
}

std::optional<WindowServerRect> MenuBarReader::frame(const AXElement& element) const
{
    const AXResult<AXValue> position =
        m_accessibility.copyAttributeValue(element, QStringLiteral("AXPosition"));
    const AXResult<AXValue> size =
        m_accessibility.copyAttributeValue(element, QStringLiteral("AXSize"));
    if (!position.ok() || position.value.kind != AXValue::Kind::Point || !size.ok() ||
        size.value.kind != AXValue::Kind::Size)
        return std::nullopt;
    const QSizeF s = size.value.size;
    if (!std::isfinite(s.width()) || !std::isfinite(s.height()) || s.height() <= 0 ||
        s.height() > MenuBarScanner::maxItemHeight || s.width() <= 0)
        return std::nullopt;
    return WindowServerRect{position.value.point.x(), position.value.point.y(), s.width(),
                            s.height()};
}

bool MenuBarReader::isOnScreen(const WindowServerRect& frame) const
{
    const double mainHeight = mainDisplayHeight();
    for (const ScreenInfo& screen : m_screens.screens()) {
        const WindowServerRect s = Geometry::toWindowServer(screen.frame, mainHeight);
        if (frame.x >= s.x && frame.maxX() <= s.maxX() + 0.5 && frame.y >= s.y &&
            frame.y < s.maxY())
            return true;
    }
    return false;
}

QString MenuBarReader::ownerName(std::int32_t pid) const
{
    if (const std::optional<RunningApplication> app = m_workspace.runningApplication(pid))
        return app->localizedName.value_or(app->bundleIdentifier.value_or(QString()));
    return {};
}

double MenuBarReader::mainDisplayHeight() const
{
    const std::vector<ScreenInfo> screens = m_screens.screens();
    return screens.empty() ? 900.0 : screens.front().frame.height;
}

std::optional<ScreenRect> MenuBarReader::frameOf(const StatusItem& item) const
{
    if (capabilities().itemWindows)
        return item.windowFrame();
    const std::optional<std::vector<Slot>> all = slots();
    for (const Slot& slot : all.value_or(std::vector<Slot>{})) {
        if (slot.identifier == item.autosaveName() && slot.frame)
            return Geometry::toScreen(*slot.frame, mainDisplayHeight());
    }
    return std::nullopt;
}

bool MenuBarReader::keeps(const StatusItem& item) const
{
    if (capabilities().itemWindows)
        return item.windowFrame().has_value();
    const std::optional<std::vector<Slot>> all = slots();
    for (const Slot& slot : all.value_or(std::vector<Slot>{})) {
        if (slot.identifier == item.autosaveName())
            return true;
    }
    return false;
}

std::optional<AXElement> MenuBarReader::elementFor(std::uint32_t number) const
{
    QMutexLocker lock(&m_mutex);
    auto it = m_elements.find(number);
    if (it == m_elements.end())
        return std::nullopt;
    return it->second;
}

} // namespace ravlin
