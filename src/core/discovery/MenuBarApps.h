#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

namespace ravlin {

class Accessibility;
class PermissionManager;
class Workspace;

// The running applications of other vendors that own menu-bar extras: the ones
// the user may choose to hide.
class MenuBarApps {
public:
    struct Entry {
        QString bundleID;
        QString name; // the localised name, or the bundle identifier without one
        const QString& id() const { return bundleID; }
        bool operator==(const Entry&) const = default;
    };

    // How long one application may take to answer; a hung one must not stall the scan.
    static constexpr float messagingTimeout = 0.25f;

    MenuBarApps(Workspace& workspace, Accessibility& accessibility,
                const PermissionManager& permissions);

    std::vector<Entry> scanThirdParty();
    QStringList scanBundleIDs();

private:
    bool appHasMenuBarExtra(std::int32_t pid);

    Workspace& m_workspace;
    Accessibility& m_accessibility;
    const PermissionManager& m_permissions;
};

size_t qHash(const MenuBarApps::Entry& entry, size_t seed = 0);

} // namespace ravlin
