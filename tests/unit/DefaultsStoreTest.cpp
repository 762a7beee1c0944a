#include "TestSupport.h"

#include "core/settings/Preferences.h"
#include "foundation/DefaultsStore.h"
#include "foundation/NotificationCenter.h"
#include "platform/linux/PlistCodec.h"
#include "platform/linux/PlistFileDefaultsStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <unistd.h>

using namespace ravlin;

namespace {

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
}

QByteArray readFile(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

QStringList corruptCopies(const QTemporaryDir& dir)
{
    return QDir(dir.path())
        .entryList({QStringLiteral("de.vexa.Ravlin.plist.corrupt-*")}, QDir::Files);
}

QStringList unreadableCopies(const QTemporaryDir& dir)
{
    return QDir(dir.path())
        .entryList({QStringLiteral("de.vexa.Ravlin.plist.unreadable-*")}, QDir::Files | QDir::Dirs);
}

const QByteArray usersSettings =
    PlistCodec::toXml(PlistDict{{QStringLiteral("rehideInterval"), 7}});

// Something at `path` that exists and cannot be read: a file without read permission, or, for
// root, who reads every file, a directory holding the user's file.
void makeUnreadable(const QString& path)
{
    if (::geteuid() == 0) {
        QDir().mkpath(path);
        writeFile(path + QStringLiteral("/inside"), usersSettings);
    } else {
        writeFile(path, usersSettings);
        QFile::setPermissions(path, QFileDevice::WriteOwner);
    }
}

// What the unreadable thing at `path` holds, read past the obstacle.
QByteArray unreadableContent(const QString& path)
{
    if (QFileInfo(path).isDir())
        return readFile(path + QStringLiteral("/inside"));
    QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    const QByteArray bytes = readFile(path);
    QFile::setPermissions(path, QFileDevice::WriteOwner);
    return bytes;
}

void makeReadableAgain(const QString& path)
{
    if (QFileInfo(path).isDir()) {
        QDir(path).removeRecursively();
        writeFile(path, usersSettings);
    } else {
        QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    }
}

} // namespace

TEST(DefaultsStore, BooleansAndIntegersReadFromNumbersAndText)
{
    InMemoryDefaultsStore d;
    const QList<std::pair<PlistValue, bool>> bools = {{true, true},
                                                      {0, false},
                                                      {2, true},
                                                      {0.5, true},
                                                      {QStringLiteral("YES"), true},
                                                      {QStringLiteral("true"), true},
                                                      {QStringLiteral("1"), true},
                                                      {QStringLiteral("no"), false},
                                                      {QStringLiteral("maybe"), false},
                                                      {PlistArray{}, false}};
    for (const auto& [value, expected] : bools) {
        d.set(QStringLiteral("k"), value);
        EXPECT_EQ(d.boolForKey(QStringLiteral("k")), expected);
    }
    const QList<std::pair<PlistValue, std::int64_t>> ints = {
        {15, 15},
        {15.9, 15},
        {QStringLiteral("15"), 15},
        {QStringLiteral(" -5 "), -5},
        {QStringLiteral("12abc"), 12},
        {QStringLiteral("x"), 0},
        {true, 1},
        {PlistDict{}, 0},
        {1e300, std::numeric_limits<std::int64_t>::max()}};
    for (const auto& [value, expected] : ints) {
        d.set(QStringLiteral("k"), value);
        EXPECT_EQ(d.integerForKey(QStringLiteral("k")), expected);
    }
}

TEST(DefaultsStore, StringListIsAbsentWhenAnyElementIsNotText)
{
    InMemoryDefaultsStore d;
    d.set(QStringLiteral("ok"),
          PlistValue::fromStringList({QStringLiteral("a"), QStringLiteral("b")}));
    d.set(QStringLiteral("mixed"), PlistArray{QStringLiteral("a"), 1});
    d.set(QStringLiteral("text"), QStringLiteral("a"));
    EXPECT_EQ(d.stringArrayForKey(QStringLiteral("ok")),
              (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_FALSE(d.stringArrayForKey(QStringLiteral("mixed")).has_value());
    EXPECT_FALSE(d.stringArrayForKey(QStringLiteral("text")).has_value());
    EXPECT_EQ(d.stringForKey(QStringLiteral("text")), QStringLiteral("a"));
}

TEST(DefaultsStore, RegisteredDefaultsAnswerOnlyUnsetKeysAndAreNeverStored)
{
    InMemoryDefaultsStore d;
    d.registerDefaults({{QStringLiteral("interval"), 15}});
    EXPECT_EQ(d.integerForKey(QStringLiteral("interval")), 15);
    EXPECT_TRUE(d.persistentDomain().isEmpty());
    d.set(QStringLiteral("interval"), 3);
    EXPECT_EQ(d.integerForKey(QStringLiteral("interval")), 3);
    d.remove(QStringLiteral("interval"));
    EXPECT_EQ(d.integerForKey(QStringLiteral("interval")), 15);
}

TEST(PlistFileDefaultsStore, WritesThroughAsXmlAndReadsBackEveryType)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("sub/de.vexa.Ravlin.plist"));
    const PlistDict values = {
        {QStringLiteral("b"), true},
        {QStringLiteral("i"), -5},
        {QStringLiteral("r"), 1.5},
        {QStringLiteral("s"), QStringLiteral("Grüße ✓")},
        {QStringLiteral("a"), PlistArray{7, QStringLiteral("12")}},
        {QStringLiteral("d"), PlistDict{{QStringLiteral("n:WiFi"), QStringLiteral("Wi-Fi")}}},
        {QStringLiteral("t"), QDateTime(QDate(2026, 1, 5), QTime(9, 0), Qt::UTC)},
        {QStringLiteral("x"), QByteArray("\x00\xff", 2)},
    };
    {
        PlistFileDefaultsStore store(path);
        for (auto it = values.cbegin(); it != values.cend(); ++it)
            store.set(it.key(), it.value());
    }
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("<plist version=\"1.0\">"));
    PlistFileDefaultsStore reopened(path);
    EXPECT_EQ(reopened.persistentDomain(), values);
}

TEST(PlistFileDefaultsStore, GarbageIsMovedAsideNeverOverwrittenAndTheStoreStartsEmpty)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("de.vexa.Ravlin.plist"));
    for (int round = 0; round < 2; ++round) {
        writeFile(path, "this is not a property list \x01\x02");
        test::LogCapture log;
        PlistFileDefaultsStore store(path);
        EXPECT_TRUE(store.persistentDomain().isEmpty());
        EXPECT_EQ(log.lines().size(), 1);
        EXPECT_TRUE(log.lines().value(0).contains(QStringLiteral("moved to")));
    }
    const QStringList copies = corruptCopies(dir);
    ASSERT_EQ(copies.size(), 2); // the second is not written over the first
    QFile first(dir.filePath(copies[0]));
    ASSERT_TRUE(first.open(QIODevice::ReadOnly));
    EXPECT_TRUE(first.readAll().startsWith("this is not"));
}

TEST(PlistFileDefaultsStore, TopLevelThatIsNotADictionaryCountsAsUnreadable)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("de.vexa.Ravlin.plist"));
    writeFile(path, PlistCodec::toXml(PlistArray{1, 2}));
    test::LogCapture log;
    PlistFileDefaultsStore store(path);
    EXPECT_TRUE(store.persistentDomain().isEmpty());
    EXPECT_EQ(corruptCopies(dir).size(), 1);
}

TEST(PlistFileDefaultsStore, EditsByHandArePickedUpAndBrokenEditsDoNotLoseTheSettings)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("de.vexa.Ravlin.plist"));
    PlistFileDefaultsStore store(path);
    store.set(QStringLiteral("autoRehide"), false);
    writeFile(path, PlistCodec::toXml(PlistDict{{QStringLiteral("autoRehide"), true},
                                                {QStringLiteral("extra"), 1}}));
    EXPECT_TRUE(store.boolForKey(QStringLiteral("autoRehide")));
    EXPECT_EQ(store.integerForKey(QStringLiteral("extra")), 1);

    writeFile(path, "<plist><dict><key>broken");
    test::LogCapture log;
    EXPECT_EQ(store.integerForKey(QStringLiteral("extra")), 1); // kept in memory
    EXPECT_EQ(corruptCopies(dir).size(), 1);
    PlistFileDefaultsStore reopened(path); // and written back
    EXPECT_EQ(reopened.integerForKey(QStringLiteral("extra")), 1);
}

TEST(PlistFileDefaultsStore, AFileNestedTooDeeplyIsKeptAsideWholeAndTheStoreStartsEmpty)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("de.vexa.Ravlin.plist"));
    const QByteArray deep = "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>k</key>" +
                            QByteArray("<array>").repeated(200000) +
                            QByteArray("</array>").repeated(200000) + "</dict></plist>";
    writeFile(path, deep);
    test::LogCapture log;
    PlistFileDefaultsStore store(path);
    EXPECT_TRUE(store.persistentDomain().isEmpty());
    const QStringList copies = corruptCopies(dir);
    ASSERT_EQ(copies.size(), 1);
    EXPECT_EQ(readFile(dir.filePath(copies[0])), deep);
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines()[0].contains(path));
    EXPECT_TRUE(log.lines()[0].contains(QStringLiteral("nested more than 512 levels deep")));
    EXPECT_TRUE(log.lines()[0].contains(dir.filePath(copies[0])));
}

TEST(PlistFileDefaultsStore, AFileThatCannotBeReadIsNeverWrittenOverByTheProgramsOwnWrites)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("de.vexa.Ravlin.plist"));
    makeUnreadable(path);
    test::LogCapture log;
    PlistFileDefaultsStore store(path);
    EXPECT_TRUE(store.persistentDomain().isEmpty()); // the defaults
    store.set(QStringLiteral("seededPositionsV1"), true);
    store.set(QStringLiteral("ravlin.labelCache"), PlistDict{});
    EXPECT_TRUE(store.boolForKey(QStringLiteral("seededPositionsV1")));
    EXPECT_EQ(unreadableContent(path), usersSettings);
    EXPECT_TRUE(unreadableCopies(dir).isEmpty());
    ASSERT_EQ(log.lines().size(), 1) << log.lines().join(u'\n').toStdString();
    EXPECT_TRUE(log.lines()[0].contains(path));
    EXPECT_TRUE(log.lines()[0].contains(QStringLiteral("cannot be read")));
}

TEST(PlistFileDefaultsStore, AChangeByTheUserIsSavedInPlaceWithTheUnreadableFileKeptBesideIt)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("de.vexa.Ravlin.plist"));
    makeUnreadable(path);
    test::LogCapture log;
    PlistFileDefaultsStore store(path);
    NotificationCenter center;
    Preferences prefs(store, center, nullptr);
    prefs.registerDefaults();
    store.set(QStringLiteral("seededPositionsV1"), true);
    EXPECT_TRUE(store.isHoldingBack());
    prefs.setAutoRehide(false);
    EXPECT_FALSE(store.isHoldingBack());
    const QStringList kept = unreadableCopies(dir);
    ASSERT_EQ(kept.size(), 1);
    EXPECT_EQ(unreadableContent(dir.filePath(kept[0])), usersSettings);
    PlistFileDefaultsStore reopened(path);
    EXPECT_FALSE(reopened.boolForKey(QStringLiteral("autoRehide")));
    EXPECT_TRUE(reopened.boolForKey(QStringLiteral("seededPositionsV1")));
    ASSERT_EQ(log.lines().size(), 2);
    EXPECT_TRUE(log.lines()[1].contains(dir.filePath(kept[0])));
}

TEST(PlistFileDefaultsStore, AFileThatBecomesReadableAgainIsUsed)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("de.vexa.Ravlin.plist"));
    makeUnreadable(path);
    test::LogCapture log;
    PlistFileDefaultsStore store(path);
    store.set(QStringLiteral("seededPositionsV1"), true);
    EXPECT_EQ(store.integerForKey(QStringLiteral("rehideInterval")), 0);
    makeReadableAgain(path);
    EXPECT_EQ(store.integerForKey(QStringLiteral("rehideInterval")), 7);
    store.set(QStringLiteral("seededPositionsV1"), true); // now written through
    PlistFileDefaultsStore reopened(path);
    EXPECT_EQ(reopened.integerForKey(QStringLiteral("rehideInterval")), 7);
    EXPECT_TRUE(reopened.boolForKey(QStringLiteral("seededPositionsV1")));
}

TEST(PlistFileDefaultsStore, AnEmptyFileIsAnEmptyStore)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("de.vexa.Ravlin.plist"));
    writeFile(path, "");
    test::LogCapture log;
    PlistFileDefaultsStore store(path);
    EXPECT_TRUE(store.persistentDomain().isEmpty());
    EXPECT_TRUE(log.lines().isEmpty());
    EXPECT_TRUE(corruptCopies(dir).isEmpty());
}

TEST(PlistFileDefaultsStore, AFailedWriteIsLoggedAndTheValueStaysReadable)
{
    QTemporaryDir dir;
    const QString blocker = dir.filePath(QStringLiteral("file"));
    writeFile(blocker, "x");
    PlistFileDefaultsStore store(blocker +
                                 QStringLiteral("/de.vexa.Ravlin.plist")); // parent is a file
    test::LogCapture log;
    store.set(QStringLiteral("k"), 3);
    EXPECT_EQ(store.integerForKey(QStringLiteral("k")), 3);
    EXPECT_GE(log.count(QStringLiteral("cannot write the settings file")), 1);
}

TEST(PlistCodec, RefusesBytesTheLibraryWouldAbortOnAndBrokenBinaryLists)
{
    QFile nul(QStringLiteral(RAVLIN_TEST_DATA "/plist/nul-in-string.plist"));
    ASSERT_TRUE(nul.open(QIODevice::ReadOnly));
    QString error;
    EXPECT_FALSE(PlistCodec::parse(nul.readAll(), &error).has_value());
    EXPECT_TRUE(error.contains(QStringLiteral("NUL")));
    EXPECT_FALSE(PlistCodec::parse(QByteArray("bplist00\x00\x01", 10)).has_value());
}
