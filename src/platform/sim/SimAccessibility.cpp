#include "SimAccessibility.h"

#include "SimDesktop.h"

namespace ravlin {

namespace {

AXResult<AXValue> textValue(const std::optional<QString>& text)
{
    if (!text)
        return {AXError::attributeUnsupported, {}};
    AXValue v;
    v.kind = AXValue::Kind::Text;
    v.text = *text;
    return {AXError::success, v};
}

AXResult<AXValue> elementValue(AXElement element)
{
    AXValue v;
    v.kind = AXValue::Kind::Element;
    v.element = std::move(element);
    return {AXError::success, v};
}

AXResult<AXValue> elementList(std::vector<AXElement> elements)
{
    AXValue v;
    v.kind = AXValue::Kind::ElementList;
    v.elements = std::move(elements);
    return {AXError::success, v};
}

} // namespace

AXElement SimAccessibility::make(const Node& node)
{
    return AXElement(std::make_shared<Node>(node));
}

const SimAccessibility::Node* SimAccessibility::node(const AXElement& element)
{
    return static_cast<const Node*>(element.handle());
}

bool SimAccessibility::isProcessTrusted()
{
    return m_desktop.accessibilityTrusted;
}

bool SimAccessibility::isProcessTrustedWithPrompt()
{
    if (!m_desktop.accessibilityTrusted)
        ++m_desktop.accessibilityPrompts;
    return m_desktop.accessibilityTrusted;
}

AXElement SimAccessibility::systemWideElement()
{
    return make({});
}

AXElement SimAccessibility::applicationElement(std::int32_t pid)
{
    return make({Node::Kind::Application, pid, 0, 0});
}

const SimItem* SimAccessibility::itemOf(const Node& node) const
{
    const std::optional<SimPlacedItem> placed = m_desktop.placed(node.window);
    return placed ? m_desktop.item(node.window) : nullptr;
}

float SimAccessibility::timeoutFor(const Node& node) const
{
    auto it = m_timeouts.find(node.key());
    return it == m_timeouts.end() ? m_globalTimeout : it->second;
}

int SimAccessibility::gate(const Node& n)
{
    if (!m_desktop.accessibilityTrusted)
        return AXError::apiDisabled;
    if (n.kind == Node::Kind::SystemWide || n.kind == Node::Kind::AppMenu)
        return AXError::success;
    m_desktop.countAXRequest(n.pid);
    const SimApp* app = m_desktop.appByPid(n.pid);
    if (!app || !app->running)
        return AXError::invalidElement;
    if ((n.kind == Node::Kind::ItemPart || n.kind == Node::Kind::Slot) && !itemOf(n))
        return AXError::invalidElement;
    if (app->hung) {
        m_desktop.blockFor(timeoutFor(n));
        return AXError::cannotComplete;
    }
    return AXError::success;
}

AXResult<AXElement> SimAccessibility::elementAtPosition(const AXElement& root, float x, float y)
{
    const Node* r = node(root);
    if (!r || r->kind != Node::Kind::SystemWide)
        return {AXError::illegalArgument, {}};
    if (!m_desktop.accessibilityTrusted)
        return {AXError::apiDisabled, {}};
    if (m_desktop.onAppMenus({x, y}))
        return {AXError::success, make({Node::Kind::AppMenu, 0, 0, 0})};
    const std::optional<SimPlacedItem> hit = m_desktop.itemAt({x, y});
    if (!hit || !hit->item.ax.present)
        return {AXError::noValue, {}};
    m_desktop.countAXRequest(hit->pid);
    if (const SimApp* app = m_desktop.appByPid(hit->pid); app && app->hung) {
        m_desktop.blockFor(timeoutFor(*r));
        return {AXError::cannotComplete, {}};
    }
    return {AXError::success,
            make({Node::Kind::ItemPart, hit->pid, hit->item.window, hit->item.ax.depth})};
}

AXResult<AXValue> SimAccessibility::copyAttributeValue(const AXElement& element,
                                                       const QString& attribute)
{
    const Node* n = node(element);
    if (!n)
        return {AXError::illegalArgument, {}};
    if (const int error = gate(*n); error != AXError::success)
        return {error, {}};
    switch (n->kind) {
    case Node::Kind::Application:
        return applicationAttribute(*n, attribute);
    case Node::Kind::ExtrasBar:
        return extrasAttribute(*n, attribute);
    case Node::Kind::ItemPart:
        return itemAttribute(*n, attribute);
    case Node::Kind::Placeholder:
        if (attribute == u"AXParent")
            return elementValue(make({Node::Kind::ExtrasBar, n->pid, 0, 0}));
        break;
    case Node::Kind::AgentBar:
        return barAttribute(*n, attribute);
    case Node::Kind::Slot:
    case Node::Kind::Overflow:
        return slotAttribute(*n, attribute);
    case Node::Kind::AppMenu:
        if (attribute == u"AXRole")
            return textValue(QStringLiteral("AXMenuBarItem"));
        break;
    case Node::Kind::SystemWide:
        break;
    }
    return {AXError::attributeUnsupported, {}};
}

bool SimAccessibility::isAgent(std::int32_t pid) const
{
    const SimApp* app = m_desktop.appByPid(pid);
    return !m_desktop.itemsAreWindows() && app && app->bundleId == SimDesktop::agentBundleId;
}

AXResult<AXValue> SimAccessibility::frameAttribute(const WindowServerRect& frame,
                                                   const QString& attribute)
{
    AXValue v;
    if (attribute == u"AXPosition") {
        v.kind = AXValue::Kind::Point;
        v.point = QPointF(frame.x, frame.y);
    } else if (attribute == u"AXSize") {
        v.kind = AXValue::Kind::Size;
        v.size = QSizeF(frame.width, frame.height);
    } else {
        return {AXError::attributeUnsupported, {}};
    }
    return {AXError::success, v};
}

// The agent's element: one menu bar per display.
AXResult<AXValue> SimAccessibility::agentAttribute(const Node& n, const QString& attribute)
{
    if (attribute != u"AXChildren")
        return {AXError::attributeUnsupported, {}};
    std::vector<AXElement> bars;
    for (std::size_t i = 0; i < m_desktop.screens().size(); ++i)
        bars.push_back(make({Node::Kind::AgentBar, n.pid, std::int64_t(i), 0}));
    return elementList(std::move(bars));
}

// A display's menu bar: on the main display a slot per item, left to right, items
// waiting in the overflow menu included, and the overflow menu's own slot when it holds any.
AXResult<AXValue> SimAccessibility::barAttribute(const Node& n, const QString& attribute)
{
    const std::size_t display = std::size_t(n.window);
    if (display >= m_desktop.screens().size())
        return {AXError::invalidElement, {}};
    const WindowServerRect screen = m_desktop.screenFrame(display);
    if (attribute == u"AXRole")
        return textValue(QStringLiteral("AXMenuBar"));
    if (attribute == u"AXParent")
        return elementValue(make({Node::Kind::Application, n.pid, 0, 0}));
    if (attribute == u"AXPosition" || attribute == u"AXSize")
        return frameAttribute(
            {screen.x, 0, screen.width, m_desktop.screens()[display].menuBarHeight}, attribute);
    if (attribute != u"AXChildren")
        return {AXError::attributeUnsupported, {}};
    std::vector<AXElement> slots;
    if (display == 0) {
        bool overflowing = false;
        for (const SimPlacedItem& p : m_desktop.bar()) {
            overflowing = overflowing || p.inOverflow;
            if (p.frame.x > -10000 || p.inOverflow) // not taken out by the assessment mode
                slots.push_back(make({Node::Kind::Slot, n.pid, p.item.window, 0}));
        }
        if (overflowing)
            slots.insert(slots.begin(), make({Node::Kind::Overflow, n.pid, 0, 0}));
    }
    return elementList(std::move(slots));
}

AXResult<AXValue> SimAccessibility::slotAttribute(const Node& n, const QString& attribute)
{
    if (attribute == u"AXRole")
        return textValue(QStringLiteral("AXMenuBarItem"));
    if (attribute == u"AXParent")
        return elementValue(make({Node::Kind::AgentBar, n.pid, 0, 0}));
    if (n.kind == Node::Kind::Overflow) {
        if (attribute == u"AXIdentifier")
            return textValue(QStringLiteral("com.apple.menuextra.overflow"));
        if (attribute == u"AXPosition" || attribute == u"AXSize")
            return frameAttribute({0, 0, 26, m_desktop.mainScreen().menuBarHeight}, attribute);
        if (attribute == u"AXChildren")
            return elementList({});
        return {AXError::attributeUnsupported, {}};
    }
    const std::optional<SimPlacedItem> placed = m_desktop.placed(n.window);
    if (attribute == u"AXIdentifier")
        return textValue(SimDesktop::identifierOf(placed->item));
    if (attribute == u"AXPosition" || attribute == u"AXSize")
        return frameAttribute(placed->frame, attribute);
    if (attribute != u"AXChildren")
        return {AXError::attributeUnsupported, {}};
    std::vector<AXElement> children;
    if (placed->item.ax.present)
        children.push_back(make({Node::Kind::ItemPart, placed->pid, n.window, 0}));
    return elementList(std::move(children));
}

AXResult<AXValue> SimAccessibility::applicationAttribute(const Node& n, const QString& attribute)
{
    const SimApp* app = m_desktop.appByPid(n.pid);
    if (attribute == u"AXTitle")
        return textValue(app->name);
    if (isAgent(n.pid))
        return agentAttribute(n, attribute);
    if (attribute != u"AXExtrasMenuBar")
        return {AXError::attributeUnsupported, {}};
    if (app->extras == SimExtras::Absent)
        return {AXError::noValue, {}};
    return elementValue(make({Node::Kind::ExtrasBar, n.pid, 0, 0}));
}

AXResult<AXValue> SimAccessibility::extrasAttribute(const Node& n, const QString& attribute)
{
    if (attribute == u"AXParent")
        return elementValue(make({Node::Kind::Application, n.pid, 0, 0}));
    if (attribute != u"AXChildren")
        return {AXError::attributeUnsupported, {}};
    const SimApp* app = m_desktop.appByPid(n.pid);
    AXValue v;
    v.kind = AXValue::Kind::ElementList;
    if (app->extras != SimExtras::No) {
        for (const SimPlacedItem& p : m_desktop.bar()) {
            if (p.pid == n.pid && p.item.ax.present)
                v.elements.push_back(make({Node::Kind::ItemPart, n.pid, p.item.window, 0}));
        }
        if (v.elements.empty() && app->extras == SimExtras::Yes)
            v.elements.push_back(make({Node::Kind::Placeholder, n.pid, 0, 0}));
    }
    return {AXError::success, v};
}

AXResult<AXValue> SimAccessibility::itemAttribute(const Node& n, const QString& attribute)
{
    const SimItem* item = itemOf(n);
    if (attribute == u"AXParent") {
        if (n.level > 0)
            return elementValue(make({Node::Kind::ItemPart, n.pid, n.window, n.level - 1}));
        if (item->ax.parentIsNotElement)
            return textValue(QStringLiteral("AXMenuBar"));
        if (!m_desktop.itemsAreWindows())
            return elementValue(
                make({Node::Kind::Slot, m_desktop.menuBarOwner().pid, n.window, 0}));
        return elementValue(make({Node::Kind::ExtrasBar, n.pid, 0, 0}));
    }
    // The element with the actions knows where the item stands.
    if (n.level == 0 && (attribute == u"AXPosition" || attribute == u"AXSize"))
        return frameAttribute(m_desktop.placed(n.window)->frame, attribute);
    if (n.level != item->ax.depth)
        return {AXError::attributeUnsupported, {}};
    if (attribute == u"AXTitle")
        return textValue(item->ax.title);
    if (attribute == u"AXDescription")
        return textValue(item->ax.description);
    if (attribute == u"AXHelp")
        return textValue(item->ax.help);
    if (attribute == u"AXValue")
        return textValue(m_desktop.valueOf(*item));
    return {AXError::attributeUnsupported, {}};
}

AXResult<QStringList> SimAccessibility::copyActionNames(const AXElement& element)
{
    const Node* n = node(element);
    if (!n)
        return {AXError::illegalArgument, {}};
    if (const int error = gate(*n); error != AXError::success)
        return {error, {}};
    if (n->kind == Node::Kind::ItemPart && n->level == 0)
        return {AXError::success, itemOf(*n)->ax.actions};
    return {AXError::success, {}};
}

int SimAccessibility::performAction(const AXElement& element, const QString& action)
{
    const Node* n = node(element);
    if (!n)
        return AXError::illegalArgument;
    if (const int error = gate(*n); error != AXError::success)
        return error;
    if (n->kind != Node::Kind::ItemPart || n->level != 0)
        return AXError::actionUnsupported;
    const SimItem* item = itemOf(*n);
    if (!item->ax.actions.contains(action))
        return AXError::actionUnsupported;
    const int result = item->ax.resultByAction.value(action, item->ax.result);
    // The menu of an item that answers "cannot complete" usually opened all the same.
    if (result == AXError::success || result == AXError::cannotComplete)
        m_desktop.recordActivation(*item, action);
    return result;
}

AXResult<std::int32_t> SimAccessibility::pid(const AXElement& element)
{
    const Node* n = node(element);
    if (!n || n->kind == Node::Kind::SystemWide)
        return {AXError::illegalArgument, 0};
    return {AXError::success, n->pid};
}

int SimAccessibility::setMessagingTimeout(const AXElement& element, float seconds)
{
    const Node* n = node(element);
    if (!n || seconds < 0)
        return AXError::illegalArgument;
    if (n->kind == Node::Kind::SystemWide)
        m_globalTimeout = seconds > 0 ? seconds : defaultTimeout;
    else if (seconds > 0)
        m_timeouts[n->key()] = seconds;
    else
        m_timeouts.erase(n->key());
    return AXError::success;
}

} // namespace ravlin
