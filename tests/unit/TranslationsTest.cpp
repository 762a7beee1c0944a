#include "TestSupport.h"

#include "foundation/PrintfFormat.h"
#include "foundation/StringsTable.h"
#include "core/settings/Languages.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

std::optional<StringsTable> table(const QString& code)
{
    return StringsTable::load(test::resourcesDir() + u'/' + code +
                              QStringLiteral(".lproj/Localizable.strings"));
}

QStringList normalisedPlaceholders(const QString& text)
{
    QStringList list = printfPlaceholders(text);
    for (QString& p : list)
        p.remove(QRegularExpression(QStringLiteral("^%\\d+\\$"))).prepend(u'%');
    list.replaceInStrings(QStringLiteral("%%"), QStringLiteral("%"));
    list.sort();
    return list;
}

} // namespace

TEST(Translations, EveryTableHasTheEnglishKeysItsPlaceholdersAndIsTranslated)
{
    const auto english = table(QStringLiteral("en"));
    ASSERT_TRUE(english);
    QStringList englishKeys = english->keys();
    englishKeys.sort();
    ASSERT_GE(englishKeys.size(), 80);
    for (const AppLanguage& language : Languages::all()) {
        SCOPED_TRACE(language.code.toStdString());
        QString error;
        const auto t = StringsTable::load(test::resourcesDir() + u'/' + language.code +
                                              QStringLiteral(".lproj/Localizable.strings"),
                                          &error);
        ASSERT_TRUE(t) << error.toStdString();
        QStringList keys = t->keys();
        keys.sort();
        EXPECT_EQ(keys, englishKeys);
        int different = 0;
        for (const QString& key : englishKeys) {
            const QString value = t->value(key).value_or(QString());
            const QString reference = *english->value(key);
            EXPECT_FALSE(value.isEmpty()) << key.toStdString();
            EXPECT_EQ(normalisedPlaceholders(value), normalisedPlaceholders(reference))
                << key.toStdString();
            different += value != reference ? 1 : 0;
        }
        if (language.code != u"en") {
            EXPECT_GT(different, englishKeys.size() / 2);
        }
    }
}

TEST(Translations, RightToLeftTablesAreWrittenInTheirScripts)
{
    auto hasScript = [](const QString& text, QChar::Script script) {
        for (QChar c : text)
            if (c.script() == script)
                return true;
        return false;
    };
    EXPECT_TRUE(hasScript(*table(QStringLiteral("ar"))->value(QStringLiteral("menu.quit")),
                          QChar::Script_Arabic));
    EXPECT_TRUE(hasScript(*table(QStringLiteral("he"))->value(QStringLiteral("menu.quit")),
                          QChar::Script_Hebrew));
}
