// Feeds arbitrary values to what the program decodes from its settings itself: the shortcut
// texts, the recorded arrangement, the record of items first seen, the layout library, the
// rules. The
// input is a property list (XML or binary) whose values are put under those keys, and the raw
// bytes are also a shortcut text.
#include "core/bar/ArrangementStore.h"
#include "core/bar/LayoutLibrary.h"
#include "core/bar/NewItemTracker.h"
#include "core/rules/RuleBook.h"
#include "core/rules/RuleCodec.h"
#include "core/rules/RuleEvaluator.h"
#include "core/settings/KeyChord.h"
#include "core/settings/PrefKey.h"
#include "core/settings/Preferences.h"
#include "foundation/DefaultsStore.h"
#include "foundation/NotificationCenter.h"
#include "platform/linux/PlistCodec.h"

#include <QLoggingCategory>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace ravlin;

namespace {

const QDateTime noon = QDateTime(QDate(2026, 11, 25), QTime(12, 0), Qt::UTC);

void arrangement(DefaultsStore& defaults)
{
    const std::optional<BarArrangement> recorded = ArrangementStore(defaults).recorded();
    if (!recorded)
        return;
    if (recorded->allKeys().size() > BarArrangement::maxItems)
        std::abort();
    BarArrangement seen;
    seen.visible = {QStringLiteral("n:Chat"), QStringLiteral("n:Mail")};
    seen.hidden = {QStringLiteral("n:Sync")};
    const BarArrangement merged = BarArrangement::merged(*recorded, seen);
    if (merged.allKeys().size() > BarArrangement::maxItems || !merged.contains(QStringLiteral("n:Chat")))
        std::abort();
    const BarArrangement restored = BarArrangement::restored(*recorded, seen);
    if (restored.allKeys().size() != seen.allKeys().size())
        std::abort();
    ArrangementStore(defaults).record(merged);
}

void layouts(DefaultsStore& defaults)
{
    LayoutLibrary library(defaults);
    const QStringList names = library.names();
    if (names.size() > LayoutLibrary::maxLayouts)
        std::abort();
    for (const QString& name : names)
        if (!library.layout(name))
            std::abort();
    SavedLayout imported;
    imported.name = names.isEmpty() ? QStringLiteral("Work") : names.front();
    if (const std::optional<QString> kept = library.addImported(imported))
        if (!library.layout(*kept))
            std::abort();
}

void shortcuts(DefaultsStore& defaults)
{
    NotificationCenter center;
    Preferences prefs(defaults, center, nullptr);
    prefs.registerDefaults();
    for (Shortcut which : {Shortcut::Panel, Shortcut::HiddenSection})
        if (const std::optional<KeyChord> chord = prefs.shortcut(which))
            if (KeyChord::parse(chord->storedText()) != chord)
                std::abort();
    (void)prefs.rehideInterval();
}

// Whatever the stored rules are, reading them stays within its limits, writing them back and
// reading again gives the same rules, and evaluating them decides something.
void rules(DefaultsStore& defaults)
{
    const std::vector<Rule> read = RuleBook(defaults).rules();
    if (int(read.size()) > RuleCodec::maxRules)
        std::abort();
    for (const Rule& rule : read)
        if (int(rule.conditions.size()) > Rule::maxConditions || int(rule.actions.size()) > Rule::maxActions)
            std::abort();
    if (RuleCodec::fromPlist(RuleCodec::toPlist(read)) != read)
        std::abort();
    Circumstances now;
    now.wifi = QStringLiteral("Office");
    now.running = {QStringLiteral("com.example.chat")};
    now.focus = QString();
    now.minuteOfDay = 23 * 60 + 59;
    (void)RuleEvaluator::outcome(read, now);
    (void)RuleEvaluator::needs(read);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    QLoggingCategory::setFilterRules(QStringLiteral("de.vexa.Ravlin.*=false"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    if (const std::optional<KeyChord> chord = KeyChord::parse(QString::fromUtf8(bytes)))
        if (KeyChord::parse(chord->storedText()) != chord)
            std::abort();
    const std::optional<PlistValue> root = PlistCodec::parse(bytes);
    if (!root || !root->isDict())
        return 0;
    InMemoryDefaultsStore defaults;
    // Each value of the list is tried under every key the program decodes.
    const PlistDict& dict = *root->asDict();
    for (auto it = dict.cbegin(); it != dict.cend(); ++it) {
        for (const QString& key :
             {ArrangementStore::defaultsKey, LayoutLibrary::layoutsKey, NewItemTracker::defaultsKey,
              PrefKey::panelShortcut, PrefKey::hiddenSectionShortcut, PrefKey::rehideInterval,
              RuleBook::defaultsKey})
            defaults.set(key, it.value());
        arrangement(defaults);
        layouts(defaults);
        NewItemTracker tracker(defaults);
        tracker.notice({QStringLiteral("n:Chat"), QStringLiteral("n:New")}, noon);
        (void)tracker.newSince(noon);
        shortcuts(defaults);
        rules(defaults);
    }
    return 0;
}
