#include "BarItemFactory.h"

#include "core/discovery/AXResolver.h"
#include "core/discovery/ItemCapture.h"
#include "core/discovery/ItemTitles.h"
#include "core/discovery/MenuBarReader.h"
#include "core/discovery/MenuBarSystem.h"
#include "core/discovery/PermissionManager.h"
#include "core/settings/PrefKey.h"
#include "foundation/DefaultsStore.h"
#include "platform/Workspace.h"

#include <limits>

namespace ravlin {

namespace {

bool containsAny(const QString& text, std::initializer_list<const char16_t*> words)
{
    for (const char16_t* word : words) {
        if (text.contains(QStringView(word)))
            return true;
    }
    return false;
}

} // namespace

BarItemFactory::BarItemFactory(AXResolver& resolver, const ItemCapture& capture,
                               const PermissionManager& permissions, DefaultsStore& defaults,
                               const LanguageManager& language)
    : m_resolver(resolver), m_capture(capture), m_permissions(permissions), m_defaults(defaults),
      m_language(language)
{}

void BarItemFactory::setMenuBar(const MenuBarReader& reader, const MenuBarSystem& system,
                                Workspace& workspace)
{
    m_reader = &reader;
    m_system = &system;
    m_workspace = &workspace;
}

std::optional<ResolvedItem> BarItemFactory::resolve(const MenuBarItemInfo& info)
{
    if (m_reader && info.id >= 0 && info.id <= std::numeric_limits<std::uint32_t>::max()) {
        if (const std::optional<AXElement> element = m_reader->elementFor(std::uint32_t(info.id)))
            return m_resolver.resolve(*element);
    }
    return m_resolver.resolve(info.centerX(), info.centerY());
}

// Own items, the statistics application's items, the clock and the control centre.
bool BarItemFactory::isNeverATile(const MenuBarItemInfo& info)
{
    return info.owner == ItemTitles::ownOwner || info.name.startsWith(ItemTitles::ownItemPrefix) ||
           info.name.startsWith(ItemTitles::istatPrefix) || info.name == ItemTitles::clock ||
           info.name == ItemTitles::controlCentre;
}

// The system's screen-recording indicator is never a tile.
bool BarItemFactory::isRecordingIndicator(const std::optional<ResolvedItem>& resolved)
{
    if (!resolved || !resolved->title)
        return false;
    return containsAny(resolved->title->toLower(),
                       {u"bildschirmaufnahme", u"screen recording", u"recording"});
}

std::optional<BarItem> BarItemFactory::makeItem(const MenuBarItemInfo& info)
{
    if (isNeverATile(info))
        return std::nullopt;
    const std::optional<ResolvedItem> resolved = resolve(info);
    if (resolved && resolved->bundleId == ItemTitles::ownBundleId)
        return std::nullopt;
    if (isRecordingIndicator(resolved))
        return std::nullopt;

    BarItem item;
    item.info = info;
    if (resolved) {
        item.pid = resolved->pid;
        item.bundleId = resolved->bundleId.value_or(QString());
    }
    item.isApple = info.isSystem() || (resolved && resolved->bundleId &&
                                       resolved->bundleId->startsWith(ItemTitles::applePrefix));
    item.label = label(info, resolved, item.isApple);
    // The key comes from the first label, before the cache is asked.
    item.key = stableKey(info, resolved, item.label);
    if (item.label.isEmpty())
        item.label = cachedLabel(item.key).value_or(resolved ? resolved->appName.value_or(QString())
                                                             : QString());
    else
        cacheLabel(item.key, item.label);
    if (item.label.isEmpty())
        return std::nullopt;

    if (resolved) {
        item.ownTitle = resolved->title.value_or(QString());
        item.ownDescription = resolved->description.value_or(QString());
        for (const std::optional<QString>& term :
             {resolved->appName, resolved->title, resolved->description})
            if (term && !term->isEmpty() && !item.searchTerms.contains(*term))
                item.searchTerms.append(*term);
    }
    item.image = icon(info, resolved, item.isApple);
    item.imageIsApplicationIcon =
        item.image && m_system && !m_system->techniques().canCaptureItems();
    if (item.isApple)
        item.symbolName = symbol(item.label, resolved);
    return item;
}

std::optional<QImage> BarItemFactory::icon(const MenuBarItemInfo& info,
                                           const std::optional<ResolvedItem>& resolved,
                                           bool isApple) const
{
    // Where items cannot be pictured one by one, an application's item shows the
    // application's icon; the system's items show their symbols.
    if (m_system && !m_system->techniques().canCaptureItems()) {
        if (isApple || !resolved || resolved->pid <= 0 || !m_workspace)
            return std::nullopt;
        const QImage icon = m_workspace->applicationIcon(resolved->pid);
        return icon.isNull() ? std::nullopt : std::optional(icon);
    }
    if (!m_permissions.hasScreenRecording())
        return std::nullopt;
    return m_capture.image(info.id);
}

// A stored value that is not a dictionary of texts counts as an empty cache.
QMap<QString, QString> BarItemFactory::labelCache() const
{
    QMap<QString, QString> cache;
    const std::optional<PlistDict> stored = m_defaults.dictionaryForKey(PrefKey::labelCache);
    if (!stored)
        return cache;
    for (auto it = stored->cbegin(); it != stored->cend(); ++it) {
        if (!it.value().isString())
            return {};
        cache.insert(it.key(), *it.value().asString());
    }
    return cache;
}

std::optional<QString> BarItemFactory::cachedLabel(const QString& key) const
{
    const QMutexLocker lock(&m_labelMutex);
    const QMap<QString, QString> cache = labelCache();
    auto it = cache.constFind(key);
    if (it == cache.cend())
        return std::nullopt;
    return *it;
}

void BarItemFactory::cacheLabel(const QString& key, const QString& label)
{
    const QMutexLocker lock(&m_labelMutex);
    QMap<QString, QString> cache = labelCache();
    auto it = cache.constFind(key);
    if (it != cache.cend() && *it == label)
        return;
    cache.insert(key, label);
    PlistDict stored;
    for (auto i = cache.cbegin(); i != cache.cend(); ++i)
        stored.insert(i.key(), i.value());
    m_defaults.set(PrefKey::labelCache, stored);
}

} // namespace ravlin
