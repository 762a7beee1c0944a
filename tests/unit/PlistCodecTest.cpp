#include "TestSupport.h"

#include "platform/linux/PlistCodec.h"

#include <QFile>

#include <gtest/gtest.h>

#include <limits>

using namespace ravlin;

namespace {

constexpr std::int64_t int64Max = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t int64Min = std::numeric_limits<std::int64_t>::min();

QByteArray xmlPlist(const QByteArray& rootDictBody)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<dict>" +
           rootDictBody + "</dict>\n</plist>\n";
}

// A root dictionary whose key "deep" holds containers nested `levels` deep counting the root.
QByteArray deepXml(int levels, bool dictionaries)
{
    const int inner = levels - 1;
    const QByteArray open = dictionaries ? "<dict><key>k</key>" : "<array>";
    const QByteArray close = dictionaries ? "</dict>" : "</array>";
    return xmlPlist("<key>rehideInterval</key><integer>7</integer><key>deep</key>" +
                    open.repeated(inner - 1) + (dictionaries ? "<dict/>" : "<array/>") +
                    close.repeated(inner - 1));
}

int nesting(const PlistValue& value)
{
    int depth = 0;
    const PlistValue* v = &value;
    while (v->isArray() || v->isDict()) {
        ++depth;
        if (v->isArray())
            v = v->asArray()->empty() ? nullptr : &v->asArray()->front();
        else
            v = v->asDict()->isEmpty() ? nullptr : &v->asDict()->first();
        if (!v)
            break;
    }
    return depth;
}

QByteArray readData(const QString& name)
{
    QFile file(QStringLiteral(RAVLIN_TEST_DATA "/plist/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Writes binary property lists object by object, for shapes no ordinary writer makes.
class BinaryPlistBuilder {
public:
    int add(QByteArray object)
    {
        m_objects.append(std::move(object));
        return int(m_objects.size() - 1);
    }
    static QByteArray ref(std::uint32_t index) { return be(index, 4); }
    static QByteArray be(std::uint64_t v, int bytes)
    {
        QByteArray out;
        for (int i = bytes - 1; i >= 0; --i)
            out.append(char((v >> (8 * i)) & 0xff));
        return out;
    }
    static QByteArray ascii(const QByteArray& text)
    {
        return QByteArray(1, char(0x50 | text.size())) + text;
    }
    // An array, or a dictionary (its keys' references first, then its values').
    static QByteArray container(int marker, const QList<std::uint32_t>& refs)
    {
        const qsizetype count = marker == 0xD ? refs.size() / 2 : refs.size();
        QByteArray out(1, char(marker << 4 | 0x0f));
        out += QByteArray("\x12", 1) + be(std::uint64_t(count), 4); // the count, a 4-byte int
        for (std::uint32_t r : refs)
            out += ref(r);
        return out;
    }
    QByteArray bytes(std::uint64_t top = 0) const
    {
        QByteArray out("bplist00");
        QList<std::uint64_t> offsets;
        for (const QByteArray& object : m_objects) {
            offsets.append(std::uint64_t(out.size()));
            out += object;
        }
        const std::uint64_t table = std::uint64_t(out.size());
        for (std::uint64_t offset : offsets)
            out += be(offset, 4);
        out += QByteArray(6, '\0') + QByteArray("\x04\x04", 2) +
               be(std::uint64_t(m_objects.size()), 8) + be(top, 8) + be(table, 8);
        return out;
    }

private:
    QList<QByteArray> m_objects;
};

// {"deep": [[[…]]]} with `levels` containers counting the root dictionary.
QByteArray deepBinary(int levels)
{
    BinaryPlistBuilder b;
    b.add(BinaryPlistBuilder::container(0xD, {1, 2}));
    b.add(BinaryPlistBuilder::ascii("deep"));
    for (int i = 0; i < levels - 2; ++i)
        b.add(BinaryPlistBuilder::container(0xA, {std::uint32_t(3 + i)}));
    b.add(QByteArray(1, char(0xA0)));
    return b.bytes();
}

} // namespace

TEST(PlistCodec, NestingBeyondTheLimitIsRefusedWholeAndNothingWithinItIsCut)
{
    for (bool dictionaries : {false, true}) {
        SCOPED_TRACE(dictionaries ? "dictionaries" : "arrays");
        for (int levels : {200000, 100000, PlistCodec::maxNesting + 1}) {
            QString error;
            EXPECT_FALSE(PlistCodec::parse(deepXml(levels, dictionaries), &error).has_value())
                << levels;
            EXPECT_TRUE(error.contains(QStringLiteral("nested more than 512 levels deep")))
                << error.toStdString();
        }
        const auto whole = PlistCodec::parse(deepXml(PlistCodec::maxNesting, dictionaries));
        ASSERT_TRUE(whole.has_value());
        EXPECT_EQ(nesting(*whole), PlistCodec::maxNesting); // "deep" is the first key
        EXPECT_EQ(nesting((*whole)[QStringLiteral("deep")]), PlistCodec::maxNesting - 1);
    }
}

TEST(PlistCodec, TheDepthCheckIsNotFooledByTextThatLooksLikeTags)
{
    // Tags inside comments, strings and processing instructions build nothing.
    const QByteArray noise = "<!-- " + QByteArray("<array>").repeated(1000) + " -->" +
                             "<key>s</key><string>&lt;array&gt;</string>";
    const auto parsed = PlistCodec::parse(xmlPlist(noise));
    ASSERT_TRUE(parsed.has_value());
    EXPECT_EQ((*parsed)[QStringLiteral("s")], PlistValue(QStringLiteral("<array>")));
    // A deep file after a quoted "?>" in a processing instruction is still seen whole.
    QByteArray tricky = deepXml(100000, false);
    tricky.insert(tricky.indexOf("<plist"), "<?x a=\"?>\" <!-- ?>");
    EXPECT_FALSE(PlistCodec::parse(tricky).has_value());
}

TEST(PlistCodec, IntegersBeyondSixtyFourBitsClampWithAWarningNamingTheKey)
{
    const QByteArray body = "<key>rehideInterval</key><integer>99999999999999999999</integer>"
                            "<key>low</key><integer> -99999999999999999999 </integer>"
                            "<key>unsigned</key><integer>18446744073709551615</integer>"
                            "<key>justAbove</key><integer>9223372036854775808</integer>"
                            "<key>max</key><integer>9223372036854775807</integer>"
                            "<key>min</key><integer>-9223372036854775808</integer>"
                            "<key>minusOne</key><integer>-1</integer>"
                            "<key>hex</key><integer>0x10</integer>"
                            "<key>list</key><array><integer>1</integer>"
                            "<integer>0x1ffffffffffffffff</integer></array>";
    QStringList warnings;
    const auto parsed = PlistCodec::parse(xmlPlist(body), nullptr, &warnings);
    ASSERT_TRUE(parsed.has_value());
    const PlistValue& v = *parsed;
    const PlistValue uint64Max = PlistValue::fromUnsigned(std::numeric_limits<std::uint64_t>::max());
    EXPECT_EQ(v[QStringLiteral("rehideInterval")], uint64Max);
    EXPECT_EQ(v[QStringLiteral("low")], PlistValue(int64Min));
    // Unsigned 64-bit values are valid: read as they are, without a warning.
    EXPECT_EQ(v[QStringLiteral("unsigned")], uint64Max);
    EXPECT_EQ(v[QStringLiteral("justAbove")].asUnsigned(), std::uint64_t(1) << 63);
    EXPECT_EQ(v[QStringLiteral("max")], PlistValue(int64Max));
    EXPECT_EQ(v[QStringLiteral("min")], PlistValue(int64Min));
    EXPECT_EQ(v[QStringLiteral("minusOne")], PlistValue(-1));
    EXPECT_EQ(v[QStringLiteral("hex")], PlistValue(16));
    EXPECT_EQ(v[QStringLiteral("list")], PlistValue(PlistArray{1, uint64Max}));
    ASSERT_EQ(warnings.size(), 3) << warnings.join(u'\n').toStdString();
    EXPECT_TRUE(warnings[0].contains(QStringLiteral("/rehideInterval")));
    EXPECT_TRUE(warnings[0].contains(QStringLiteral("99999999999999999999")));
    EXPECT_TRUE(warnings[0].contains(QStringLiteral("18446744073709551615")));
    EXPECT_TRUE(warnings[1].contains(QStringLiteral("/low")));
    EXPECT_TRUE(warnings[2].contains(QStringLiteral("/list/1")));
}

TEST(PlistCodec, EveryValueIsWrittenBackAsItWasRead)
{
    for (const QString& sample :
         {QStringLiteral("apple-sample.xml.plist"), QStringLiteral("apple-sample.binary.plist")}) {
        QStringList warnings;
        const auto read = PlistCodec::parse(readData(sample), nullptr, &warnings);
        ASSERT_TRUE(read) << sample.toStdString();
        EXPECT_TRUE(warnings.isEmpty()) << warnings.join(u'\n').toStdString();
        const QByteArray written = PlistCodec::encode(*read);
        EXPECT_EQ(PlistCodec::parse(written), read) << sample.toStdString();
    }
    const auto binary = *PlistCodec::parse(readData(QStringLiteral("apple-sample.binary.plist")));
    // Fractions of a second, far from the reference date too, and UIDs stay what they are.
    EXPECT_EQ(binary[QStringLiteral("someone.else.when")].asPlistDate()->seconds,
              120479613.25);
    EXPECT_EQ(binary[QStringLiteral("someone.else.early")].asDate(),
              QDateTime(QDate(1900, 1, 1), QTime(12, 0, 0, 500), Qt::UTC));
    EXPECT_EQ(binary[QStringLiteral("someone.else.archive")][QStringLiteral("big")].asUid(),
              PlistUid{300});
    EXPECT_FALSE(PlistCodec::xmlHoldsAll(binary));
    // XML holds what an XML file held, so such a file stays XML.
    const auto xml = *PlistCodec::parse(readData(QStringLiteral("apple-sample.xml.plist")));
    EXPECT_TRUE(PlistCodec::xmlHoldsAll(xml));
    EXPECT_TRUE(PlistCodec::encode(xml).startsWith("<?xml"));
    EXPECT_TRUE(PlistCodec::encode(PlistDict{{QStringLiteral("a"), QStringLiteral("x\ry")}})
                    .startsWith("bplist00"));
}

TEST(PlistCodec, TheBinaryFormWidensReferencesAndCountsAsTheListGrows)
{
    PlistDict many;
    for (int i = 0; i < 400; ++i)
        many.insert(QStringLiteral("key %1").arg(i),
                    PlistArray{i, -i, QString(i % 40, u'x'), PlistUid{std::uint64_t(i) << 20},
                               QByteArray(i % 20, 'b'), PlistDate{i + 0.125}});
    many.insert(QStringLiteral("lone"), QString(QChar(char16_t(0xD800))));
    const PlistValue value(many);
    const QByteArray binary = PlistCodec::encode(value);
    ASSERT_TRUE(binary.startsWith("bplist00"));
    QString error;
    EXPECT_EQ(PlistCodec::parse(binary, &error), value) << error.toStdString();
}

TEST(PlistCodec, ReadsABinaryListAsTheSystemWritesIt)
{
    QStringList warnings;
    QString error;
    const auto parsed =
        PlistCodec::parse(readData(QStringLiteral("every-type.binary.plist")), &error, &warnings);
    ASSERT_TRUE(parsed.has_value()) << error.toStdString();
    const PlistDict expected = {
        {QStringLiteral("autoRehide"), false},
        {QStringLiteral("rehideInterval"), 7},
        {QStringLiteral("negative"), -5},
        {QStringLiteral("big"), std::int64_t(1) << 40},
        {QStringLiteral("beyond"), PlistValue::fromUnsigned(std::numeric_limits<std::uint64_t>::max())},
        {QStringLiteral("ratio"), 1.5},
        {QStringLiteral("tileStyle"), QStringLiteral("grid")},
        {QStringLiteral("greeting"), QStringLiteral("Grüße ✓")},
        {QStringLiteral("blob"), QByteArray("\x00\xff", 2)},
        {QStringLiteral("when"), QDateTime(QDate(2026, 1, 5), QTime(9, 0), Qt::UTC)},
        {QStringLiteral("hiddenItems"),
         PlistValue::fromStringList({QStringLiteral("a"), QStringLiteral("b")})},
        {QStringLiteral("ravlin.labelCache"),
         PlistDict{{QStringLiteral("n:WiFi"), QStringLiteral("Wi-Fi")},
                   {QStringLiteral("nested"),
                    PlistArray{PlistArray{1, 2}, PlistDict{{QStringLiteral("k"), true}}}}}},
    };
    EXPECT_EQ(*parsed, PlistValue(expected));
    EXPECT_TRUE(warnings.isEmpty());
}

TEST(PlistCodec, BinaryListsThatAreTooDeepCyclicOrHugeWhenExpandedAreRefused)
{
    QString error;
    for (int levels : {200000, PlistCodec::maxNesting + 1}) {
        EXPECT_FALSE(PlistCodec::parse(deepBinary(levels), &error).has_value());
        EXPECT_TRUE(error.contains(QStringLiteral("nested more than 512 levels deep")))
            << error.toStdString();
    }
    const auto whole = PlistCodec::parse(deepBinary(PlistCodec::maxNesting));
    ASSERT_TRUE(whole.has_value());
    EXPECT_EQ(nesting((*whole)[QStringLiteral("deep")]), PlistCodec::maxNesting - 1);

    BinaryPlistBuilder cycle; // a dictionary that holds itself
    cycle.add(BinaryPlistBuilder::container(0xD, {1, 0}));
    cycle.add(BinaryPlistBuilder::ascii("me"));
    EXPECT_FALSE(PlistCodec::parse(cycle.bytes(), &error).has_value());

    // Forty arrays each holding the next one twice: a few hundred bytes that read as 2^40 values.
    BinaryPlistBuilder shared;
    shared.add(BinaryPlistBuilder::container(0xD, {1, 2}));
    shared.add(BinaryPlistBuilder::ascii("x"));
    for (std::uint32_t i = 2; i < 42; ++i)
        shared.add(BinaryPlistBuilder::container(0xA, {i + 1, i + 1}));
    shared.add(QByteArray(1, char(0x09)));
    EXPECT_FALSE(PlistCodec::parse(shared.bytes(), &error).has_value());
    EXPECT_TRUE(error.contains(QStringLiteral("values"))) << error.toStdString();
}

TEST(PlistCodec, MalformedBinaryListsAreRefusedWithoutReadingOutsideTheBytes)
{
    BinaryPlistBuilder ok;
    ok.add(BinaryPlistBuilder::container(0xD, {1, 2}));
    ok.add(BinaryPlistBuilder::ascii("k"));
    ok.add(BinaryPlistBuilder::ascii("value"));
    const QByteArray good = ok.bytes();
    ASSERT_TRUE(PlistCodec::parse(good).has_value());

    QList<QByteArray> broken;
    broken << good.left(good.size() - 1) << good.left(20) << QByteArray("bplist00\x00\x01", 10);
    QByteArray badRef = good;
    badRef[8 + 6 + 3] = char(9); // the dictionary's key points past the last object
    broken << badRef;
    QByteArray badTop = good;
    badTop[badTop.size() - 9] = char(7); // the top object does not exist
    broken << badTop;
    QByteArray longString = good;
    longString[good.indexOf("value") - 1] = char(0x5e); // a string running into the table
    broken << longString;
    QByteArray keyNotText = good;
    keyNotText[good.indexOf("\x51k")] = char(0x10); // a key that is an integer
    broken << keyNotText;
    for (const QByteArray& bytes : broken)
        EXPECT_FALSE(PlistCodec::parse(bytes).has_value()) << bytes.toHex().toStdString();
}
