// Layout names: checked where they enter, refused in words, quoted in logs; a layout taken
// from a file never replaces one the user saved.
#include "TestSupport.h"

#include "core/bar/LayoutLibrary.h"
#include "core/bar/LayoutName.h"
#include "foundation/DefaultsStore.h"
#include "foundation/PlistJson.h"

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

QString repeated(const QString& text, int times)
{
    QString out;
    for (int i = 0; i < times; ++i)
        out += text;
    return out;
}

SavedLayout layoutNamed(const QString& name, const QString& key)
{
    SavedLayout layout;
    layout.name = name;
    layout.arrangement = BarArrangement::fromSequence({key, BarArrangement::hiddenMarker});
    return layout;
}

} // namespace

TEST(LayoutName, TakesWhatPeopleTypeAndTrimsIt)
{
    EXPECT_EQ(LayoutName::validated(QStringLiteral("  Work  ")), QStringLiteral("Work"));
    EXPECT_EQ(LayoutName::validated(QStringLiteral("Büro – 2")), QStringLiteral("Büro – 2"));
    // Sixty emoji, each two units and one with a skin tone four: characters, not units, count.
    const QString thumbs = QStringLiteral("\U0001F44D\U0001F3FD");
    EXPECT_TRUE(LayoutName::validated(repeated(thumbs, 60)));
    const QString family = QStringLiteral("\U0001F468\u200D\U0001F469\u200D\U0001F467");
    EXPECT_TRUE(LayoutName::validated(repeated(family, 20)));
}

TEST(LayoutName, RefusesWhatWouldBeCutOrBreakTheFileAndTheLog)
{
    QString why;
    EXPECT_FALSE(LayoutName::validated(QStringLiteral("   "), &why));
    EXPECT_EQ(why, QStringLiteral("a layout needs a name"));
    EXPECT_FALSE(LayoutName::validated(repeated(QStringLiteral("\U0001F600"), 61), &why));
    EXPECT_TRUE(why.contains(QStringLiteral("60 characters")));
    EXPECT_FALSE(LayoutName::validated(QStringLiteral("e") + repeated(QStringLiteral("\u0301"), 300)));
    const QString bad[] = {QStringLiteral("Work") + QChar(u'\0') + QStringLiteral("Home"),
                           QStringLiteral("two\nlines"),
                           QStringLiteral("tab\there"),
                           QStringLiteral("\x1b[31mred"),
                           QStringLiteral("next\u2028line"),
                           QStringLiteral("lone ") + QChar(char16_t(0xD83D)),
                           QStringLiteral("lone ") + QChar(char16_t(0xDE00)) + QStringLiteral("x"),
                           QStringLiteral("not\uFFFFa char")};
    for (const QString& name : bad) {
        EXPECT_FALSE(LayoutName::validated(name, &why)) << PlistJson::toJson(name).toString().toStdString();
        EXPECT_TRUE(why.contains(QStringLiteral("control characters")));
    }
}

TEST(LayoutName, QuotesNamesSoALogLineStaysOneLine)
{
    EXPECT_EQ(LayoutName::quoted(QStringLiteral("Work")), QStringLiteral("\"Work\""));
    EXPECT_EQ(LayoutName::quoted(QStringLiteral("a\nb\x1b[0m\"c\"")),
              QStringLiteral("\"a\\u000ab\\u001b[0m\\\"c\\\"\""));
    EXPECT_EQ(LayoutName::quoted(QStringLiteral("\U0001F600")), QStringLiteral("\"\U0001F600\""));
    EXPECT_EQ(LayoutName::quoted(QString(QChar(char16_t(0xD800)))), QStringLiteral("\"\\ud800\""));
}

TEST(LayoutName, AnImportedNameIsCheckedAsATypedOneIs)
{
    QString why;
    EXPECT_FALSE(SavedLayout::fromJson(
        R"({"name": "Work\u0000Home", "arrangement": {}})", &why));
    EXPECT_TRUE(why.contains(QStringLiteral("control characters")));
    EXPECT_FALSE(SavedLayout::fromJson(
        QByteArray(R"({"name": ")") + repeated(QStringLiteral("\U0001F600"), 61).toUtf8() +
        R"(", "arrangement": {}})"));
    // JSON itself has no raw control characters inside strings.
    EXPECT_FALSE(SavedLayout::fromJson("{\"name\": \"two\nlines\", \"arrangement\": {}}", &why));
    EXPECT_TRUE(why.contains(QStringLiteral("control character"))) << why.toStdString();
    EXPECT_FALSE(PlistJson::parse(QStringLiteral("\"a\tb\"")));
    EXPECT_EQ(PlistJson::parse(QStringLiteral("\"a\\tb\"")), PlistValue(QStringLiteral("a\tb")));
}

TEST(LayoutLibrary, AnImportNeverReplacesASavedLayout)
{
    InMemoryDefaultsStore defaults;
    LayoutLibrary library(defaults);
    const SavedLayout mine = layoutNamed(QStringLiteral("Work"), QStringLiteral("n:Mine"));
    library.save(mine);
    const SavedLayout theirs = layoutNamed(QStringLiteral("Work"), QStringLiteral("n:Theirs"));
    EXPECT_EQ(library.addImported(theirs), QStringLiteral("Work 2"));
    EXPECT_EQ(library.addImported(layoutNamed(QStringLiteral("Work"), QStringLiteral("n:Third"))),
              QStringLiteral("Work 3"));
    EXPECT_EQ(library.layout(QStringLiteral("Work"))->arrangement, mine.arrangement);
    // The same file again adds nothing.
    EXPECT_EQ(library.addImported(mine), QStringLiteral("Work"));
    EXPECT_EQ(library.names().size(), 3);
    // A numbered name still fits the length a name may have.
    const QString longest = repeated(QStringLiteral("\U0001F600"), 60);
    library.save(layoutNamed(longest, QStringLiteral("n:A")));
    const std::optional<QString> renamed =
        library.addImported(layoutNamed(longest, QStringLiteral("n:B")));
    ASSERT_TRUE(renamed);
    EXPECT_TRUE(LayoutName::validated(*renamed));
    EXPECT_TRUE(renamed->endsWith(QStringLiteral(" 2")));
}

TEST(LayoutLibrary, HoldsABoundedNumberOfLayouts)
{
    InMemoryDefaultsStore defaults;
    LayoutLibrary library(defaults);
    for (int i = 0; i < LayoutLibrary::maxLayouts; ++i)
        ASSERT_TRUE(library.save(layoutNamed(QString::number(i), QStringLiteral("n:A"))));
    test::LogCapture log;
    EXPECT_FALSE(library.save(layoutNamed(QStringLiteral("one more"), QStringLiteral("n:A"))));
    EXPECT_FALSE(library.addImported(layoutNamed(QStringLiteral("one more"), QStringLiteral("n:A"))));
    EXPECT_EQ(log.count(QStringLiteral("the layout \"one more\" is not saved")), 2);
    // Replacing one that is there is still possible.
    EXPECT_TRUE(library.save(layoutNamed(QStringLiteral("7"), QStringLiteral("n:B"))));
    // A hand-made file with far more is read only as far as the limit.
    PlistDict stored = *defaults.dictionaryForKey(LayoutLibrary::layoutsKey);
    for (int i = 0; i < 500; ++i)
        stored.insert(QStringLiteral("x%1").arg(i), layoutNamed(QStringLiteral("x"), QStringLiteral("n:A")).toPlist());
    defaults.set(LayoutLibrary::layoutsKey, stored);
    EXPECT_EQ(library.names().size(), LayoutLibrary::maxLayouts);
}
