// Layouts the user saved under a name: switched from the status menu, taken to another Mac as
// a file, and switched to by rules (core/rules).
#include "StatusBarController.h"

#include "ArrangementPlanner.h"
#include "LayoutName.h"
#include "core/app/SettingsPresenter.h"
#include "core/discovery/MenuBarSystem.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/Preferences.h"
#include "foundation/BoundedFileReader.h"
#include "foundation/DefaultsStore.h"
#include "foundation/Logging.h"
#include "foundation/SafeFileWriter.h"
#include "platform/StatusBar.h"


namespace ravlin {
namespace {

// A layout file of a real bar is a few kilobytes.
constexpr qint64 maxLayoutFileBytes = 4 * 1024 * 1024;

} // namespace

SavedLayout StatusBarController::currentLayout(const QString& name)
{
    recordArrangement();
    SavedLayout layout;
    layout.name = name;
    layout.arrangement = m_arrangements.recorded().value_or(BarArrangement{});
    for (const QString& key : m_s.preferences.barPinnedKeys())
        layout.placements.insert(key, ItemPlacement::Bar);
    for (const QString& key : m_s.preferences.hiddenItemKeys())
        layout.placements.insert(key, ItemPlacement::Off);
    return layout;
}

bool StatusBarController::saveLayout(const QString& name, QString* error)
{
    QString why;
    const std::optional<QString> valid = LayoutName::validated(name, &why);
    if (!valid) {
        qCWarning(lcBar).noquote() << "the layout" << LayoutName::quoted(name)
                                   << "is not saved:" << why;
        if (error)
            *error = why;
        return false;
    }
    if (!m_layouts.save(currentLayout(*valid)))
        return false;
    m_layouts.setActive(*valid);
    qCInfo(lcBar).noquote() << "saved the bar as the layout" << LayoutName::quoted(*valid);
    return true;
}

bool StatusBarController::switchLayout(const QString& name, const QString& occasion)
{
    const std::optional<SavedLayout> layout = m_layouts.layout(name);
    if (!layout) {
        qCWarning(lcBar).noquote() << "there is no layout" << LayoutName::quoted(name)
                                   << "to switch to";
        return false;
    }
    qCInfo(lcBar).noquote() << "switching to the layout" << LayoutName::quoted(name) << "-"
                            << occasion;
    // Items the layout does not know keep their placement; the ones it knows take its.
    QHash<QString, ItemPlacement> placements;
    QStringList known = layout->arrangement.allKeys();
    known.append(layout->placements.keys());
    for (const QString& key : known) {
        const ItemPlacement wanted = layout->placements.value(key, ItemPlacement::Panel);
        if (m_s.preferences.placement(key) != wanted)
            placements.insert(key, wanted);
    }
    m_layouts.setActive(name);
    m_s.preferences.setPlacements(placements);
    if (keepsArrangement()) {
        const BarArrangement seen = seenArrangement();
        m_arrangements.record(BarArrangement::merged(
            layout->arrangement, BarArrangement::restored(layout->arrangement, seen)));
        restoreArrangement(occasion);
        if (m_s.system.techniques().canMoveItems()) {
            bringPlacedInBar(*layout);
            hideItemsPlacedOff(HiddenSide{});
        }
    }
    applyItemFilter();
    return true;
}

// A layout's placement "bar" wins over an arrangement that has the item hidden (a layout
// edited by hand, or saved from a bar the user had not arranged yet).
void StatusBarController::bringPlacedInBar(const SavedLayout& layout)
{
    const BarArrangement seen = seenArrangement();
    bool moved = false;
    for (auto it = layout.placements.begin(); it != layout.placements.end(); ++it) {
        const std::optional<BarArrangement::Section> section = seen.sectionOf(it.key());
        if (it.value() != ItemPlacement::Bar || !section ||
            section == BarArrangement::Section::Visible)
            continue;
        if (!moved)
            shrinkOwnItems();
        moved = true;
        performMove({it.key(), BarArrangement::hiddenMarker, true});
    }
    if (moved) {
        restoreOwnItems();
        recordArrangement();
    }
}

bool StatusBarController::deleteLayout(const QString& name)
{
    const bool removed = m_layouts.remove(name);
    if (removed)
        qCInfo(lcBar).noquote() << "deleted the layout" << LayoutName::quoted(name);
    return removed;
}

bool StatusBarController::exportLayout(const QString& name, const QString& path, QString* error)
{
    // The layout in use (or one not saved yet) is exported as the bar stands now.
    std::optional<SavedLayout> layout = m_layouts.layout(name);
    if (!layout || name == m_layouts.active())
        layout = currentLayout(name);
    const SafeFileWriter writer({m_s.preferences.defaults().storagePath()});
    QString why;
    if (!writer.write(path, layout->toJson(), &why)) {
        if (error)
            *error = why;
        qCWarning(lcBar).noquote() << "could not export the layout" << LayoutName::quoted(name)
                                   << "to" << path << "-" << why;
        return false;
    }
    qCInfo(lcBar).noquote() << "exported the layout" << LayoutName::quoted(name) << "to" << path;
    return true;
}

std::optional<QString> StatusBarController::importLayout(const QString& path, QString* error)
{
    QString why;
    std::optional<SavedLayout> layout;
    if (const std::optional<QByteArray> bytes = BoundedFileReader(maxLayoutFileBytes).read(path, &why))
        layout = SavedLayout::fromJson(*bytes, &why);
    const std::optional<QString> kept = layout ? m_layouts.addImported(*layout) : std::nullopt;
    if (!kept) {
        if (layout)
            why = QStringLiteral("the library holds %1 layouts already").arg(LayoutLibrary::maxLayouts);
        qCWarning(lcBar).noquote() << "could not import a layout from" << path << "-" << why;
        if (error)
            *error = why;
        return std::nullopt;
    }
    if (*kept != layout->name)
        qCInfo(lcBar).noquote() << "imported the layout" << LayoutName::quoted(layout->name)
                                << "from" << path << "as" << LayoutName::quoted(*kept)
                                << "- a layout of that name is saved already";
    else
        qCInfo(lcBar).noquote() << "imported the layout" << LayoutName::quoted(*kept) << "from"
                                << path;
    return kept;
}

MenuEntry StatusBarController::layoutsEntry()
{
    const QStringList names = m_layouts.names();
    MenuEntry entry;
    entry.title = m_s.language.L(QStringLiteral("menu.layouts"));
    const QString active = m_layouts.active();
    for (const QString& name : names) {
        MenuEntry choice;
        choice.title = name;
        choice.checked = name == active;
        choice.action = weakly([this, name] { switchLayout(name, QStringLiteral("the user's choice")); });
        entry.submenu.push_back(std::move(choice));
    }
    if (!names.isEmpty())
        entry.submenu.push_back(MenuEntry::separatorEntry());
    MenuEntry save;
    save.title = m_s.language.L(QStringLiteral("menu.saveLayout"));
    save.action = weakly([this] {
        if (m_s.settings)
            m_s.settings->showLayoutNaming();
    });
    entry.submenu.push_back(std::move(save));
    return entry;
}

} // namespace ravlin
