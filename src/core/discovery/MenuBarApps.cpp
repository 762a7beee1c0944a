#include "MenuBarApps.h"

#include "PermissionManager.h"
#include "core/bar/MenuBarHideEngine.h"
#include "foundation/Logging.h"
#include "platform/Accessibility.h"
#include "platform/Workspace.h"

#include <QCollator>
#include <QHashFunctions>
#include <QLocale>
#include <QSet>

#include <algorithm>

namespace ravlin {

namespace {

const QSet<QString>& systemBundleIDs()
{
    static const QSet<QString> ids = [] {
        const QStringList all = MenuBarHideEngine::alwaysAllowedBundleIDs();
        return QSet<QString>(all.cbegin(), all.cend());
    }();
    return ids;
}

} // namespace

MenuBarApps::MenuBarApps(Workspace& workspace, Accessibility& accessibility,
                         const PermissionManager& permissions)
    : m_workspace(workspace), m_accessibility(accessibility), m_permissions(permissions)
{}

std::vector<MenuBarApps::Entry> MenuBarApps::scanThirdParty()
{
    if (!m_permissions.hasAccessibility())
        return {};
    const std::int32_t self = m_workspace.currentProcessIdentifier();
    std::vector<Entry> entries;
    for (const RunningApplication& app : m_workspace.runningApplications()) {
        if (app.activationPolicy == ActivationPolicy::Prohibited || app.pid == self ||
            !app.bundleIdentifier)
            continue;
        if (systemBundleIDs().contains(*app.bundleIdentifier) || !appHasMenuBarExtra(app.pid))
            continue;
        entries.push_back(
            {*app.bundleIdentifier, app.localizedName.value_or(*app.bundleIdentifier)});
    }
    // The user's own order of names; a bare C locale would put "Äther" after "zip".
    QLocale locale;
    if (locale.language() == QLocale::C)
        locale = QLocale(QLocale::English);
    QCollator collator(locale);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::stable_sort(entries.begin(), entries.end(), [&](const Entry& a, const Entry& b) {
        return collator.compare(a.name, b.name) < 0;
    });
    return entries;
}

QStringList MenuBarApps::scanBundleIDs()
{
    QStringList ids;
    for (const Entry& entry : scanThirdParty())
        ids.append(entry.bundleID);
    return ids;
}

bool MenuBarApps::appHasMenuBarExtra(std::int32_t pid)
{
    const AXElement app = m_accessibility.applicationElement(pid);
    m_accessibility.setMessagingTimeout(app, messagingTimeout);
    const AXResult<AXValue> extras =
        m_accessibility.copyAttributeValue(app, QStringLiteral("AXExtrasMenuBar"));
    if (extras.error == AXError::cannotComplete) {
        qCWarning(lcDiscovery) << "application" << pid << "did not answer within"
                               << messagingTimeout << "s; not listed";
        return false;
    }
    if (!extras.ok() || extras.value.kind != AXValue::Kind::Element ||
        extras.value.element.isNull())
        return false;
    const AXResult<AXValue> children =
        m_accessibility.copyAttributeValue(extras.value.element, QStringLiteral("AXChildren"));
    return children.ok() && children.value.kind == AXValue::Kind::ElementList &&
           !children.value.elements.empty();
}

size_t qHash(const MenuBarApps::Entry& entry, size_t seed)
{
    return qHashMulti(seed, entry.bundleID, entry.name);
}

} // namespace ravlin
