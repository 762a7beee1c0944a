#include "AXResolver.h"

#include "PermissionManager.h"
#include "foundation/Logging.h"
#include "platform/Accessibility.h"
#include "platform/Workspace.h"

namespace ravlin {

const QStringList& AXResolver::wantedActions()
{
    static const QStringList actions{QStringLiteral("AXPress"), QStringLiteral("AXShowMenu"),
                                     QStringLiteral("AXOpen"), QStringLiteral("AXPick")};
    return actions;
}

AXResolver::AXResolver(Accessibility& accessibility, Workspace& workspace,
                       const PermissionManager& permissions)
    : m_accessibility(accessibility), m_workspace(workspace), m_permissions(permissions)
{
    // The default for every element from now on, also for the elements other parts find.
    m_accessibility.setMessagingTimeout(m_accessibility.systemWideElement(), messagingTimeout);
}

std::optional<AXElement> AXResolver::hitTest(double x, double y)
{
    const AXResult<AXElement> hit =
        m_accessibility.elementAtPosition(m_accessibility.systemWideElement(), float(x), float(y));
    if (hit.error == AXError::cannotComplete)
        qCWarning(lcDiscovery) << "the application at" << x << y
                               << "does not answer accessibility requests";
    if (!hit.ok() || hit.value.isNull())
        return std::nullopt;
    return hit.value;
}

std::optional<QString> AXResolver::string(const AXElement& element, const QString& attribute)
{
    const AXResult<AXValue> value = m_accessibility.copyAttributeValue(element, attribute);
    if (!value.ok() || value.value.kind != AXValue::Kind::Text || value.value.text.isEmpty())
        return std::nullopt;
    return value.value.text;
}

std::optional<ResolvedItem> AXResolver::resolve(double x, double y)
{
    if (!m_permissions.hasAccessibility())
        return std::nullopt;
    const std::optional<AXElement> element = hitTest(x, y);
    if (!element)
        return std::nullopt;
    return describe(*element, title(*element));
}

// An item's element (where items have no windows, the one the bar's slot holds) may
// carry its name itself or on an element further down.
std::optional<ResolvedItem> AXResolver::resolve(const AXElement& element)
{
    if (!m_permissions.hasAccessibility() || element.isNull())
        return std::nullopt;
    std::optional<QString> name = title(element);
    AXElement below = element;
    for (int level = 0; !name && level < maxParents; ++level) {
        const AXResult<AXValue> children =
            m_accessibility.copyAttributeValue(below, QStringLiteral("AXChildren"));
        if (!children.ok() || children.value.kind != AXValue::Kind::ElementList ||
            children.value.elements.empty())
            break;
        below = children.value.elements.front();
        name = title(below);
    }
    return describe(element, name);
}

std::optional<QString> AXResolver::title(const AXElement& element)
{
    for (const char16_t* attribute : {u"AXTitle", u"AXDescription", u"AXHelp"})
        if (std::optional<QString> text = string(element, QString::fromUtf16(attribute)))
            return text;
    return std::nullopt;
}

ResolvedItem AXResolver::describe(const AXElement& element, std::optional<QString> title)
{
    ResolvedItem item;
    item.title = std::move(title);
    item.description = string(element, QStringLiteral("AXDescription"));
    const AXResult<std::int32_t> pid = m_accessibility.pid(element);
    item.pid = pid.ok() ? pid.value : 0;
    if (item.pid > 0) {
        if (const std::optional<RunningApplication> app =
                m_workspace.runningApplication(item.pid)) {
            item.bundleId = app->bundleIdentifier;
            item.appName = app->localizedName;
        }
    }
    return item;
}

bool AXResolver::press(double x, double y)
{
    if (!m_permissions.hasAccessibility())
        return false;
    const std::optional<AXElement> element = hitTest(x, y);
    return element && pressFrom(*element);
}

bool AXResolver::press(const AXElement& element)
{
    return m_permissions.hasAccessibility() && !element.isNull() && pressFrom(element);
}

// The element and at most five of its parents are offered the press.
bool AXResolver::pressFrom(AXElement start)
{
    std::optional<AXElement> element = std::move(start);
    for (int tried = 0; tried <= maxParents; ++tried) {
        if (performWantedAction(*element))
            return true;
        if (tried == maxParents)
            break;
        element = parent(*element);
        if (!element)
            return false;
    }
    return false;
}

// The element's own order decides which action goes first, not the wanted list's.
bool AXResolver::performWantedAction(const AXElement& element)
{
    const AXResult<QStringList> names = m_accessibility.copyActionNames(element);
    if (!names.ok())
        return false;
    for (const QString& name : names.value) {
        if (!wantedActions().contains(name))
            continue;
        const int result = m_accessibility.performAction(element, name);
        // Items that open a menu often answer "cannot complete" although the menu opened.
        if (result == AXError::success || result == AXError::cannotComplete)
            return true;
        qCDebug(lcDiscovery) << "action" << name << "answered" << result;
    }
    return false;
}

std::optional<AXElement> AXResolver::parent(const AXElement& element)
{
    const AXResult<AXValue> value =
        m_accessibility.copyAttributeValue(element, QStringLiteral("AXParent"));
    if (!value.ok() || value.value.kind != AXValue::Kind::Element || value.value.element.isNull())
        return std::nullopt;
    return value.value.element;
}

} // namespace ravlin
