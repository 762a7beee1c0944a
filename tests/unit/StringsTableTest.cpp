#include "TestSupport.h"

#include "foundation/PrintfFormat.h"
#include "foundation/StringsTable.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace ravlin;

TEST(StringsTable, ReadsEntriesCommentsAndEscapes)
{
    const QByteArray text = "/* a comment with \"quotes\" */\n"
                            "// a line comment\n"
                            "\"plain\" = \"Plain\";\n"
                            "\"escaped\" = \"a \\\"b\\\" \\\\ c\\nd \\U00e9\";\n"
                            "bare.key = value;\n"
                            "\"alone\";\n"
                            "\"multi\nline\" = \"x\"; \"dup\" = \"1\"; \"dup\" = \"2\";";
    const auto t = StringsTable::parse(text);
    ASSERT_TRUE(t);
    EXPECT_EQ(t->value(QStringLiteral("plain")), QStringLiteral("Plain"));
    EXPECT_EQ(t->value(QStringLiteral("escaped")), QStringLiteral("a \"b\" \\ c\nd é"));
    EXPECT_EQ(t->value(QStringLiteral("bare.key")), QStringLiteral("value"));
    EXPECT_EQ(t->value(QStringLiteral("alone")), QStringLiteral("alone"));
    EXPECT_EQ(t->value(QStringLiteral("dup")), QStringLiteral("2"));
    EXPECT_FALSE(t->value(QStringLiteral("missing")).has_value());
}

TEST(StringsTable, ReportsTheLineOfAMistake)
{
    QString error;
    EXPECT_FALSE(StringsTable::parse("\"a\" = \"b\";\n\"c\" = \"d\"\n\"e\" = \"f\";", &error));
    EXPECT_TRUE(error.startsWith(QStringLiteral("line 3"))) << error.toStdString();
    for (const char* bad : {"\"open", "/* never closed", "\"a\" = ;", "= \"b\";"})
        EXPECT_FALSE(StringsTable::parse(bad)) << bad;
}

TEST(StringsTable, ReadsUtf16WithByteOrderMark)
{
    const QString text = QStringLiteral("\"k\" = \"Grüße\";");
    QByteArray bytes("\xFF\xFE", 2);
    bytes.append(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
    const auto t = StringsTable::parse(bytes);
    ASSERT_TRUE(t);
    EXPECT_EQ(t->value(QStringLiteral("k")), QStringLiteral("Grüße"));
}

TEST(PrintfFormat, FillsThePlatformsPlaceholders)
{
    EXPECT_EQ(formatPrintf(QStringLiteral("Version %@"), {QStringLiteral("1.0")}),
              QStringLiteral("Version 1.0"));
    EXPECT_EQ(formatPrintf(QStringLiteral("%d items, %.1f MB/s, 100%%"), {3, 1.04}),
              QStringLiteral("3 items, 1.0 MB/s, 100%"));
    EXPECT_EQ(formatPrintf(QStringLiteral("%2$@ before %1$@"),
                           {QStringLiteral("a"), QStringLiteral("b")}),
              QStringLiteral("b before a"));
    EXPECT_EQ(formatPrintf(QStringLiteral("%.0f KB/s"), {999.6}), QStringLiteral("1000 KB/s"));
    EXPECT_EQ(
        formatPrintf(QStringLiteral("%lld|%5d|%-3@|"), {qint64(1) << 40, 42, QStringLiteral("x")}),
        QStringLiteral("1099511627776|   42|x  |"));
    EXPECT_EQ(formatPrintf(QStringLiteral("missing %@ and %d, odd 100 %"), {}),
              QStringLiteral("missing  and 0, odd 100 %"));
    EXPECT_EQ(printfPlaceholders(QStringLiteral("a %@ b %1$d %% c %.1f")),
              (QStringList{QStringLiteral("%@"), QStringLiteral("%1$d"), QStringLiteral("%.1f")}));
}

TEST(PrintfFormat, OutlandishWidthsAndPrecisionsFromATranslationAreHeldInCheck)
{
    EXPECT_EQ(formatPrintf(QStringLiteral("%66666666666666666666e"), {1.5}).size(), 64);
    EXPECT_EQ(formatPrintf(QStringLiteral("%.99999f"), {1.5}),
              QStringLiteral("1.5000000000000000"));
    QFile file(QStringLiteral(RAVLIN_TEST_DATA "/strings-huge-width.strings"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    if (const auto table = StringsTable::parse(file.readAll()))
        for (const auto& entry : table->entries())
            (void)formatPrintf(entry.value, {QStringLiteral("x"), 42, 1.5});
}
