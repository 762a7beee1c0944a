// What a hand-edited or hostile settings file can make Ravlin do: long records are read once,
// in one pass, only as far as the limits, with a log line when a limit cuts.
#include "TestSupport.h"

#include "core/bar/ArrangementStore.h"
#include "core/bar/SavedLayout.h"
#include "core/settings/KeyChord.h"
#include "core/tiles/SearchText.h"
#include "foundation/DefaultsStore.h"

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

QStringList manyKeys(int count)
{
    QStringList keys;
    keys.reserve(count);
    for (int i = 0; i < count; ++i)
        keys.append(QStringLiteral("n:Item %1").arg(i));
    return keys;
}

PlistValue arrangementOf(const QStringList& hidden, const QStringList& visible = {})
{
    return PlistDict{{QStringLiteral("hidden"), PlistValue::fromStringList(hidden)},
                     {QStringLiteral("visible"), PlistValue::fromStringList(visible)}};
}

} // namespace

TEST(ArrangementLimits, AHugeRecordIsReadOnceAndOnlyAsFarAsTheLimit)
{
    InMemoryDefaultsStore defaults;
    defaults.set(ArrangementStore::defaultsKey, arrangementOf(manyKeys(100'000)));
    ArrangementStore store(defaults);
    test::LogCapture log;
    for (int look = 0; look < 3; ++look) {
        const std::optional<BarArrangement> recorded = store.recorded();
        ASSERT_TRUE(recorded);
        EXPECT_EQ(recorded->hidden.size(), BarArrangement::maxItems);
        EXPECT_EQ(recorded->hidden.front(), QStringLiteral("n:Item 0"));
    }
    EXPECT_EQ(log.count(QStringLiteral("the stored arrangement ravlin.arrangement holds more "
                                       "than 1000 items")),
              1);
    // A change by hand is seen at the next look.
    defaults.set(ArrangementStore::defaultsKey, arrangementOf({QStringLiteral("n:A")}));
    EXPECT_EQ(store.recorded()->hidden, QStringList{QStringLiteral("n:A")});
}

TEST(ArrangementLimits, TheRecordNeverGrowsPastWhatIsReadBack)
{
    BarArrangement recorded;
    recorded.hidden = manyKeys(BarArrangement::maxItems);
    BarArrangement seen;
    seen.visible = {QStringLiteral("n:Chat"), QStringLiteral("n:Mail")};
    seen.hidden = {QStringLiteral("n:Item 5")};
    const BarArrangement merged = BarArrangement::merged(recorded, seen);
    EXPECT_EQ(merged.allKeys().size(), BarArrangement::maxItems);
    // What is in the bar always keeps its place.
    EXPECT_EQ(merged.visible, seen.visible);
    EXPECT_TRUE(merged.hidden.contains(QStringLiteral("n:Item 5")));
    bool cut = true;
    EXPECT_EQ(BarArrangement::fromPlist(merged.toPlist(), &cut), merged);
    EXPECT_FALSE(cut);
}

TEST(ArrangementLimits, AnImportedLayoutIsCutToTheLimitWithALogLine)
{
    const QStringList keys = manyKeys(100'000);
    PlistDict placements;
    for (const QString& key : keys)
        placements.insert(key, QStringLiteral("bar"));
    const PlistValue layout =
        PlistDict{{QStringLiteral("name"), QStringLiteral("Big")},
                  {QStringLiteral("arrangement"), arrangementOf(keys)},
                  {QStringLiteral("placements"), placements}};
    test::LogCapture log;
    const std::optional<SavedLayout> read = SavedLayout::fromPlist(layout);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->arrangement.hidden.size(), BarArrangement::maxItems);
    EXPECT_EQ(read->placements.size(), BarArrangement::maxItems);
    EXPECT_EQ(log.count(QStringLiteral("the layout \"Big\" names more than 1000 items")), 1);
}

TEST(ArrangementLimits, AShortcutTextLongerThanAnyChordIsNotRead)
{
    QString text;
    for (int i = 0; i < 200'000; ++i)
        text += QStringLiteral("control+");
    test::LogCapture log;
    EXPECT_FALSE(KeyChord::parse(text + QStringLiteral("M")));
    EXPECT_EQ(log.count(QStringLiteral("a shortcut text of 1600001 characters")), 1);
    // The longest real chord, with blanks, still reads.
    EXPECT_TRUE(KeyChord::parse(QStringLiteral(" control + option + command + shift + ForwardDelete ")));
}

TEST(SearchText, TypingPastTheLimitIsCutAtACharacter)
{
    const QString long_ = QString(SearchText::maxLength - 1, u'a') + QStringLiteral("\U0001F600");
    EXPECT_EQ(SearchText::capped(long_).size(), SearchText::maxLength - 1);
    EXPECT_EQ(SearchText::capped(QString(100'000, u'x')).size(), SearchText::maxLength);
    EXPECT_EQ(SearchText::capped(QStringLiteral("chat")), QStringLiteral("chat"));
    // A query cut to the limit still finds what its first words name.
    EXPECT_TRUE(SearchText(QStringLiteral("chat ") + QString(100'000, u'x').replace(u'x', u' '))
                    .matches({QStringLiteral("Chat Status")}));
}
