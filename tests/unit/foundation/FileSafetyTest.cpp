// Files the user points Ravlin at: a layout to import is read only up to a limit and only when
// it is a regular file; an export never writes through a link, onto a pipe or a device, or over
// Ravlin's own settings.
#include "foundation/BoundedFileReader.h"
#include "foundation/SafeFileWriter.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

using namespace ravlin;

namespace {

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

void put(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

} // namespace

TEST(BoundedFileReader, ReadsRegularFilesWhateverTheirReportedSizeUpToTheLimit)
{
    QTemporaryDir dir;
    const QString small = dir.filePath(QStringLiteral("small"));
    put(small, "12345");
    QString why;
    EXPECT_EQ(BoundedFileReader(5).read(small, &why), QByteArray("12345"));
    EXPECT_FALSE(BoundedFileReader(4).read(small, &why));
    EXPECT_TRUE(why.contains(QStringLiteral("larger than 4 bytes"))) << why.toStdString();
    // /proc reports a size of 0 for text it makes up as it is read.
    const std::optional<QByteArray> status = BoundedFileReader(1 << 20).read(
        QStringLiteral("/proc/self/status"));
    ASSERT_TRUE(status);
    EXPECT_TRUE(status->contains("Pid:"));
    EXPECT_FALSE(BoundedFileReader(10).read(dir.filePath(QStringLiteral("missing")), &why));
    EXPECT_FALSE(why.isEmpty());
}

TEST(BoundedFileReader, RefusesDevicesPipesAndFoldersWithoutReadingOrBlocking)
{
    QTemporaryDir dir;
    QString why;
    // Without end, and reporting a size of 0.
    EXPECT_FALSE(BoundedFileReader(1 << 20).read(QStringLiteral("/dev/zero"), &why));
    EXPECT_EQ(why, QStringLiteral("it is not a regular file"));
    // Nobody writes to this pipe: a plain open would wait forever.
    const QString pipe = dir.filePath(QStringLiteral("pipe"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_FALSE(BoundedFileReader(1 << 20).read(pipe, &why));
    EXPECT_EQ(why, QStringLiteral("it is not a regular file"));
    EXPECT_FALSE(BoundedFileReader(1 << 20).read(dir.path(), &why));
    EXPECT_EQ(why, QStringLiteral("it is a folder"));
}

TEST(SafeFileWriter, WritesNewFilesAndReplacesRegularOnesWhole)
{
    QTemporaryDir dir;
    const QString target = dir.filePath(QStringLiteral("layout.json"));
    ASSERT_TRUE(SafeFileWriter().write(target, "first"));
    EXPECT_EQ(contents(target), QByteArray("first"));
    EXPECT_EQ(QFileInfo(target).permissions() & QFile::ReadOther, QFile::ReadOther);
    ASSERT_TRUE(SafeFileWriter().write(target, "second"));
    EXPECT_EQ(contents(target), QByteArray("second"));
    // Nothing is left beside it.
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList{QStringLiteral("layout.json")});
}

TEST(SafeFileWriter, NeverWritesThroughALinkOrOntoSomethingElse)
{
    QTemporaryDir chosen, elsewhere;
    const QString outside = elsewhere.filePath(QStringLiteral("precious"));
    put(outside, "keep me");
    const QString link = chosen.filePath(QStringLiteral("link.json"));
    ASSERT_TRUE(QFile::link(outside, link));
    QString why;
    EXPECT_FALSE(SafeFileWriter().write(link, "exported", &why));
    EXPECT_EQ(why, QStringLiteral("it is a symbolic link"));
    EXPECT_EQ(contents(outside), QByteArray("keep me"));
    EXPECT_TRUE(QFileInfo(link).isSymLink());

    // A dangling link would create its target outside the chosen folder.
    const QString dangling = chosen.filePath(QStringLiteral("dangling.json"));
    const QString wouldBe = elsewhere.filePath(QStringLiteral("created"));
    ASSERT_TRUE(QFile::link(wouldBe, dangling));
    EXPECT_FALSE(SafeFileWriter().write(dangling, "exported", &why));
    EXPECT_FALSE(QFileInfo::exists(wouldBe));

    const QString pipe = chosen.filePath(QStringLiteral("pipe"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_FALSE(SafeFileWriter().write(pipe, "exported", &why));
    EXPECT_EQ(why, QStringLiteral("it is not a regular file"));
    struct stat info {};
    ASSERT_EQ(::lstat(QFile::encodeName(pipe).constData(), &info), 0);
    EXPECT_TRUE(S_ISFIFO(info.st_mode));
    EXPECT_FALSE(SafeFileWriter().write(chosen.path(), "exported", &why));
    EXPECT_EQ(QDir(chosen.path()).entryList(QDir::Files | QDir::System).size(), 3);
}

TEST(SafeFileWriter, RefusesTheProtectedFileByAnyName)
{
    QTemporaryDir dir;
    const QString settings = dir.filePath(QStringLiteral("de.vexa.Ravlin.plist"));
    put(settings, "<plist/>");
    const QString hardLink = dir.filePath(QStringLiteral("other-name"));
    ASSERT_EQ(::link(QFile::encodeName(settings).constData(),
                     QFile::encodeName(hardLink).constData()),
              0);
    const SafeFileWriter writer({settings});
    QString why;
    for (const QString& path : {settings, hardLink,
                                dir.path() + QStringLiteral("/./de.vexa.Ravlin.plist")}) {
        EXPECT_FALSE(writer.write(path, "exported", &why)) << path.toStdString();
        EXPECT_EQ(why, QStringLiteral("it is Ravlin's own settings file"));
    }
    EXPECT_EQ(contents(settings), QByteArray("<plist/>"));
    EXPECT_TRUE(writer.write(dir.filePath(QStringLiteral("elsewhere.json")), "exported"));
}
