#include "TestSupport.h"

#include "foundation/PlistJson.h"

#include <QJsonArray>
#include <QJsonObject>

#include <gtest/gtest.h>

using namespace ravlin;

TEST(PlistJson, NumbersWithoutFractionAreIntegersOthersReals)
{
    EXPECT_TRUE(PlistJson::parse(u"15")->isInteger());
    EXPECT_TRUE(PlistJson::parse(u"-5")->isInteger());
    EXPECT_TRUE(PlistJson::parse(u"1.0")->isReal());
    EXPECT_TRUE(PlistJson::parse(u"1e3")->isReal());
    const auto list = PlistJson::parse(u"[7, \"12\", \"x\", {\"k\": [true, null]}]");
    ASSERT_TRUE(list && list->isArray());
    ASSERT_EQ(list->asArray()->size(), 4u);
    EXPECT_EQ(*list->asArray()->at(1).asString(), QStringLiteral("12"));
    EXPECT_TRUE((*list->asArray()->at(3).asDict())[QStringLiteral("k")].isArray());
}

// int64_t is long on Linux and long long on Apple: every standard signed integer type must
// build an integer value, on both, without an ambiguous or duplicated constructor.
TEST(PlistValue, EverySignedIntegerTypeBecomesAnInteger)
{
    const long long big = 5'000'000'000LL;
    for (const PlistValue& v : {PlistValue(int(-3)), PlistValue(long(-3)), PlistValue(-3LL),
                                PlistValue(std::int64_t(-3)), PlistValue(qint64(-3))}) {
        EXPECT_TRUE(v.isInteger());
        EXPECT_EQ(v.asInteger(), -3);
    }
    EXPECT_EQ(PlistValue(std::int64_t(big)).asInteger(), big);
    EXPECT_EQ(PlistValue(big), PlistValue(std::int64_t(big)));
    EXPECT_TRUE(PlistValue(true).isBool());
}

TEST(PlistJson, RejectsBrokenTextWithAReason)
{
    for (const char16_t* bad : {u"", u"[1,", u"{\"a\" 1}", u"tru", u"\"open", u"1 2", u"[1] x"}) {
        QString error;
        EXPECT_FALSE(PlistJson::parse(bad, &error).has_value())
            << QString::fromUtf16(bad).toStdString();
        EXPECT_FALSE(error.isEmpty());
    }
    QString deep(200, u'[');
    EXPECT_FALSE(PlistJson::parse(deep).has_value());
}

TEST(PlistJson, EscapesAndUnicodeSurvive)
{
    const auto s = PlistJson::parse(u"\"a\\\"b\\\\c\\u00e9\\n\"");
    ASSERT_TRUE(s);
    EXPECT_EQ(*s->asString(), QStringLiteral("a\"b\\cé\n"));
}

TEST(PlistJson, NumbersCompareByValueAlsoInsideContainers)
{
    EXPECT_TRUE(PlistJson::equalByValue(QJsonValue(10000), QJsonValue(10000.0)));
    EXPECT_TRUE(PlistJson::equalByValue(QJsonArray{1, 2.0}, QJsonArray{1.0, 2}));
    EXPECT_TRUE(PlistJson::equalByValue(QJsonObject{{QStringLiteral("a"), 1}},
                                        QJsonObject{{QStringLiteral("a"), 1.0}}));
    EXPECT_FALSE(PlistJson::equalByValue(QJsonArray{1, 2}, QJsonArray{2, 1}));
    EXPECT_FALSE(PlistJson::equalByValue(QJsonValue(1), QJsonValue(QStringLiteral("1"))));
}

TEST(PlistJson, DatesAndDataBecomeTextInDumps)
{
    const PlistValue date(QDateTime(QDate(2026, 1, 5), QTime(9, 0), Qt::UTC));
    EXPECT_EQ(PlistJson::toJson(date).toString(), QStringLiteral("2026-01-05T09:00:00Z"));
    EXPECT_EQ(PlistJson::toJson(PlistValue(QByteArray("\x00\x01", 2))).toString(),
              QStringLiteral("AAE="));
}
