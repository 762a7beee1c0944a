// Items seen for the first time and the layouts the user saves: kept in the settings,
// taken to another Mac as a file, and never a crash on a damaged value.
#include "core/bar/LayoutLibrary.h"
#include "core/bar/NewItemTracker.h"
#include "foundation/DefaultsStore.h"

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

const QDateTime noon = QDateTime(QDate(2026, 11, 25), QTime(12, 0), Qt::UTC);

SavedLayout workLayout()
{
    SavedLayout layout;
    layout.name = QStringLiteral("Work");
    layout.arrangement = BarArrangement::fromSequence(
        {QStringLiteral("n:Mail"), BarArrangement::hiddenMarker, QStringLiteral("n:Chat")});
    layout.placements.insert(QStringLiteral("n:Chat"), ItemPlacement::Bar);
    layout.placements.insert(QStringLiteral("n:Gone"), ItemPlacement::Off);
    return layout;
}

} // namespace

TEST(NewItemTracker, TheFirstLookLearnsThenLaterArrivalsAreNewForADay)
{
    InMemoryDefaultsStore defaults;
    NewItemTracker tracker(defaults);
    EXPECT_TRUE(tracker.notice({QStringLiteral("n:A"), QStringLiteral("n:B")}, noon).isEmpty());
    EXPECT_FALSE(tracker.isNew(QStringLiteral("n:A"), noon));

    const QDateTime later = noon.addSecs(3600);
    EXPECT_EQ(tracker.notice({QStringLiteral("n:A"), QStringLiteral("n:C")}, later),
              QStringList{QStringLiteral("n:C")});
    // Seen again: not new a second time, and the first sighting is what counts.
    EXPECT_TRUE(tracker.notice({QStringLiteral("n:C")}, later.addSecs(60)).isEmpty());
    EXPECT_EQ(tracker.firstSeen(QStringLiteral("n:C")), later);
    EXPECT_TRUE(tracker.isNew(QStringLiteral("n:C"), later.addSecs(23 * 3600)));
    EXPECT_FALSE(tracker.isNew(QStringLiteral("n:C"), later.addSecs(24 * 3600)));

    tracker.notice({QStringLiteral("n:D")}, later.addSecs(120));
    EXPECT_EQ(tracker.newSince(later.addSecs(300)),
              (QStringList{QStringLiteral("n:C"), QStringLiteral("n:D")}));
    EXPECT_EQ(tracker.earliestNew(later.addSecs(300)), later);
}

TEST(NewItemTracker, ADamagedRecordIsStartedAfreshAndDamagedEntriesAreNotNew)
{
    InMemoryDefaultsStore defaults;
    defaults.set(NewItemTracker::defaultsKey, QStringLiteral("garbage"));
    NewItemTracker tracker(defaults);
    // Not a dictionary: this look only learns, as a first start would.
    EXPECT_TRUE(tracker.notice({QStringLiteral("n:A")}, noon).isEmpty());
    defaults.set(NewItemTracker::defaultsKey,
                 PlistDict{{QStringLiteral("n:A"), PlistValue(QStringLiteral("yesterday"))}});
    EXPECT_FALSE(tracker.isNew(QStringLiteral("n:A"), noon));
    EXPECT_TRUE(tracker.notice({QStringLiteral("n:A")}, noon).isEmpty());
    EXPECT_EQ(tracker.notice({QStringLiteral("n:B")}, noon), QStringList{QStringLiteral("n:B")});
}

TEST(SavedLayout, SurvivesTheSettingsFileAndTheExportFile)
{
    const SavedLayout layout = workLayout();
    EXPECT_EQ(SavedLayout::fromPlist(layout.toPlist()), layout);
    EXPECT_EQ(SavedLayout::fromJson(layout.toJson()), layout);
    // Keys of items this Mac has never seen are kept.
    EXPECT_EQ(SavedLayout::fromJson(layout.toJson())->placements.value(QStringLiteral("n:Gone")),
              ItemPlacement::Off);
}

TEST(SavedLayout, RefusesWhatIsNotALayoutInWords)
{
    QString why;
    EXPECT_FALSE(SavedLayout::fromJson("{", &why));
    EXPECT_TRUE(why.startsWith(QStringLiteral("not JSON")));
    EXPECT_FALSE(SavedLayout::fromJson(R"({"format": "other.thing", "name": "X"})", &why));
    EXPECT_TRUE(why.contains(QStringLiteral("other.thing")));
    EXPECT_FALSE(SavedLayout::fromJson(R"({"name": "  ", "arrangement": {}})", &why));
    EXPECT_FALSE(SavedLayout::fromJson(R"({"name": "X", "arrangement": {"hidden": [1]}})", &why));
    EXPECT_FALSE(
        SavedLayout::fromJson(R"({"name": "X", "arrangement": {}, "placements": []})", &why));
    // Unknown placements are dropped rather than refused: the rest of the layout is good.
    const auto lenient = SavedLayout::fromJson(
        R"({"name": "X", "arrangement": {}, "placements": {"n:A": "sideways", "n:B": "bar"}})");
    ASSERT_TRUE(lenient);
    EXPECT_EQ(lenient->placements.size(), 1);
}

TEST(LayoutLibrary, KeepsLayoutsByNameAndForgetsADeletedOneInUse)
{
    InMemoryDefaultsStore defaults;
    LayoutLibrary library(defaults);
    SavedLayout work = workLayout();
    SavedLayout away = work;
    away.name = QStringLiteral("away");
    library.save(work);
    library.save(away);
    EXPECT_EQ(library.names(), (QStringList{QStringLiteral("away"), QStringLiteral("Work")}));
    library.setActive(QStringLiteral("Work"));
    EXPECT_TRUE(library.remove(QStringLiteral("Work")));
    EXPECT_FALSE(library.remove(QStringLiteral("Work")));
    EXPECT_TRUE(library.active().isEmpty());
    // A damaged entry is left out, with a log line, and the others stay usable.
    PlistDict stored = *defaults.dictionaryForKey(LayoutLibrary::layoutsKey);
    stored.insert(QStringLiteral("broken"), PlistValue(7));
    defaults.set(LayoutLibrary::layoutsKey, stored);
    EXPECT_EQ(library.names(), QStringList{QStringLiteral("away")});
    EXPECT_FALSE(library.layout(QStringLiteral("broken")));
}
