#pragma once

#include "BarItem.h"
#include "core/discovery/ResolvedItem.h"

#include <QMutex>

#include <optional>

namespace ravlin {

class AXResolver;
class DefaultsStore;
class ItemCapture;
class LanguageManager;
class MenuBarReader;
class MenuBarSystem;
class PermissionManager;
class Workspace;

// Turns status-item windows into tile-panel items: decides which items never
// become tiles, identifies each through the accessibility interface and gives it
// a short label, a key that survives relaunches, an image and a symbol. Labels
// found once are remembered, so an item that later can't be identified keeps its name.
class BarItemFactory {
public:
    BarItemFactory(AXResolver& resolver, const ItemCapture& capture,
                   const PermissionManager& permissions, DefaultsStore& defaults,
                   const LanguageManager& language);
    // Where the bar's items have no windows, an item is resolved through the element the
    // reader found for it and pictured by its application's icon.
    void setMenuBar(const MenuBarReader& reader, const MenuBarSystem& system, Workspace& workspace);

    std::optional<BarItem> makeItem(const MenuBarItemInfo& info);

    QString label(const MenuBarItemInfo& info, const std::optional<ResolvedItem>& resolved,
                  bool isApple) const;
    static QString stableKey(const MenuBarItemInfo& info,
                             const std::optional<ResolvedItem>& resolved, const QString& label);

    std::optional<QString> cachedLabel(const QString& key) const;
    void cacheLabel(const QString& key, const QString& label);

    static QString cleanAppName(const QString& name);
    static QString clean(const QString& text);
    std::optional<QString> moduleLabel(const QString& name) const;
    std::optional<QString> friendlyName(const std::optional<QString>& bundle) const;
    std::optional<QImage> icon(const MenuBarItemInfo& info,
                               const std::optional<ResolvedItem>& resolved, bool isApple) const;
    static QString symbol(const QString& label, const std::optional<ResolvedItem>& resolved);

private:
    static bool isNeverATile(const MenuBarItemInfo& info);
    static bool isRecordingIndicator(const std::optional<ResolvedItem>& resolved);
    QMap<QString, QString> labelCache() const;
    std::optional<ResolvedItem> resolve(const MenuBarItemInfo& info);

    AXResolver& m_resolver;
    const ItemCapture& m_capture;
    const PermissionManager& m_permissions;
    DefaultsStore& m_defaults;
    const LanguageManager& m_language;
    const MenuBarReader* m_reader = nullptr;
    const MenuBarSystem* m_system = nullptr;
    Workspace* m_workspace = nullptr;
    // Full rebuilds make items on a background thread while the main thread makes them too:
    // the label cache's read and its read-modify-write go through this lock.
    mutable QMutex m_labelMutex;
};

} // namespace ravlin
