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
{}

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
    ResolvedItem item;
    item.title = string(*element, QStringLiteral("AXTitle"));
    if (!item.title)
        item.title = string(*element, QStringLiteral("AXDescription"));
    if (!item.title)
        item.title = string(*element, QStringLiteral("AXHelp"));
    const AXResult<std::int32_t> pid = m_accessibility.pid(*element);
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
    std::optional<AXElement> element = hitTest(x, y);
    if (!element)
        return false;
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
