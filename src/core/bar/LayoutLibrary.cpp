#include "LayoutLibrary.h"

#include "LayoutName.h"

#include "foundation/DefaultsStore.h"
#include "foundation/Logging.h"

#include <algorithm>

namespace ravlin {

QStringList LayoutLibrary::names() const
{
    QStringList names;
    const std::optional<PlistDict> stored = m_defaults.dictionaryForKey(layoutsKey);
    if (!stored)
        return names;
    for (auto it = stored->begin(); it != stored->end(); ++it) {
        if (names.size() == maxLayouts) {
            qCWarning(lcBar).noquote() << "the settings hold" << stored->size()
                                       << "layouts; only the first" << maxLayouts << "are offered";
            break;
        }
        if (SavedLayout::fromPlist(it.value()))
            names.append(it.key());
    }
    std::sort(names.begin(), names.end(), [](const QString& a, const QString& b) {
        return a.compare(b, Qt::CaseInsensitive) < 0;
    });
    return names;
}

std::optional<SavedLayout> LayoutLibrary::layout(const QString& name) const
{
    const std::optional<PlistDict> stored = m_defaults.dictionaryForKey(layoutsKey);
    if (!stored || !stored->contains(name))
        return std::nullopt;
    QString why;
    std::optional<SavedLayout> layout = SavedLayout::fromPlist(stored->value(name), &why);
    if (!layout) {
        qCWarning(lcBar).noquote() << "the saved layout" << name << "cannot be read:" << why;
        return std::nullopt;
    }
    layout->name = name;
    return layout;
}

bool LayoutLibrary::save(const SavedLayout& layout)
{
    PlistDict stored = m_defaults.dictionaryForKey(layoutsKey).value_or(PlistDict{});
    if (!stored.contains(layout.name) && stored.size() >= maxLayouts) {
        qCWarning(lcBar).noquote() << "the layout" << LayoutName::quoted(layout.name)
                                   << "is not saved: the library holds" << maxLayouts
                                   << "layouts already";
        return false;
    }
    stored.insert(layout.name, layout.toPlist());
    m_defaults.set(layoutsKey, stored);
    return true;
}

std::optional<QString> LayoutLibrary::addImported(SavedLayout layout)
{
    const PlistDict stored = m_defaults.dictionaryForKey(layoutsKey).value_or(PlistDict{});
    if (stored.contains(layout.name)) {
        if (this->layout(layout.name) == layout)
            return layout.name;
        layout.name = LayoutName::unused(
            layout.name, [&stored](const QString& name) { return stored.contains(name); });
    }
    if (!save(layout))
        return std::nullopt;
    return layout.name;
}

bool LayoutLibrary::remove(const QString& name)
{
    PlistDict stored = m_defaults.dictionaryForKey(layoutsKey).value_or(PlistDict{});
    if (!stored.remove(name))
        return false;
    m_defaults.set(layoutsKey, stored);
    if (active() == name)
        m_defaults.remove(activeKey);
    return true;
}

QString LayoutLibrary::text(const QString& key) const
{
    return m_defaults.stringForKey(key).value_or(QString());
}

void LayoutLibrary::setText(const QString& key, const QString& value)
{
    if (value.isEmpty())
        m_defaults.remove(key);
    else
        m_defaults.set(key, value);
}

QString LayoutLibrary::active() const { return text(activeKey); }
void LayoutLibrary::setActive(const QString& name) { setText(activeKey, name); }

} // namespace ravlin
