// Layouts taken to and from files through the application: special files are refused without
// hanging, an import keeps the user's layouts, and an export writes nowhere it must not.
#include "TestSupport.h"

#include "core/app/AppDelegate.h"
#include "core/bar/StatusBarController.h"
#include "support/ScriptedSession.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace ravlin;
using namespace ravlin::sandbox;

namespace {

struct Started : test::ScriptedSession {
    Started()
    {
        const int status = run(QStringLiteral(
            "app com.example.chat \"Chat\"\nitem com.example.chat \"Chat Status\"\n"
            "app com.example.mail \"Mail\"\nitem com.example.mail \"Mail Status\"\n"
            "start\nadvance 3\n"));
        EXPECT_EQ(status, 0) << err.toStdString();
    }
    StatusBarController& bar() { return *session.app().statusBar(); }
};

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

TEST(LayoutFiles, SpecialFilesAreRefusedAtOnce)
{
    Started s;
    QTemporaryDir dir;
    const QString pipe = dir.filePath(QStringLiteral("pipe"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    QString why;
    EXPECT_FALSE(s.bar().importLayout(QStringLiteral("/dev/zero"), &why));
    EXPECT_EQ(why, QStringLiteral("it is not a regular file"));
    EXPECT_FALSE(s.bar().importLayout(pipe, &why));
    EXPECT_EQ(why, QStringLiteral("it is not a regular file"));
    EXPECT_TRUE(s.bar().layouts().names().isEmpty());
}

TEST(LayoutFiles, AnImportOfATakenNameKeepsTheSavedLayout)
{
    Started s;
    QTemporaryDir dir;
    ASSERT_TRUE(s.bar().saveLayout(QStringLiteral("Work")));
    const SavedLayout before = *s.bar().layouts().layout(QStringLiteral("Work"));
    const QString file = dir.filePath(QStringLiteral("work.ravlinlayout"));
    QFile out(file);
    ASSERT_TRUE(out.open(QIODevice::WriteOnly));
    out.write(R"({"format": "ravlin.layout", "name": "Work",
                  "arrangement": {"hidden": ["n:Other"], "visible": []}})");
    out.close();
    test::LogCapture log;
    EXPECT_EQ(s.bar().importLayout(file), QStringLiteral("Work 2"));
    EXPECT_EQ(log.count(QStringLiteral("imported the layout \"Work\" from")), 1);
    EXPECT_EQ(*s.bar().layouts().layout(QStringLiteral("Work")), before);
    EXPECT_EQ(s.bar().layouts().active(), QStringLiteral("Work"));
    EXPECT_EQ(s.bar().layouts().layout(QStringLiteral("Work 2"))->arrangement.hidden,
              QStringList{QStringLiteral("n:Other")});
}

TEST(LayoutFiles, AnExportNeverReplacesTheSettingsFileOrFollowsALink)
{
    Started s;
    ASSERT_TRUE(s.bar().saveLayout(QStringLiteral("Work")));
    const QString settings = s.session.defaultsPath();
    const QByteArray settingsBefore = contents(settings);
    ASSERT_FALSE(settingsBefore.isEmpty());
    QString why;
    EXPECT_FALSE(s.bar().exportLayout(QStringLiteral("Work"), settings, &why));
    EXPECT_EQ(why, QStringLiteral("it is Ravlin's own settings file"));
    EXPECT_EQ(contents(settings), settingsBefore);

    QTemporaryDir chosen, elsewhere;
    const QString outside = elsewhere.filePath(QStringLiteral("notes.txt"));
    QFile note(outside);
    ASSERT_TRUE(note.open(QIODevice::WriteOnly));
    note.write("mine");
    note.close();
    const QString link = chosen.filePath(QStringLiteral("Work.ravlinlayout"));
    ASSERT_TRUE(QFile::link(outside, link));
    EXPECT_FALSE(s.bar().exportLayout(QStringLiteral("Work"), link, &why));
    EXPECT_EQ(contents(outside), QByteArray("mine"));
    const QString plain = chosen.filePath(QStringLiteral("Plain.ravlinlayout"));
    EXPECT_TRUE(s.bar().exportLayout(QStringLiteral("Work"), plain, &why));
    EXPECT_EQ(s.bar().importLayout(plain), QStringLiteral("Work"));
}

TEST(LayoutFiles, NamesThatWouldLoseDataAreRefusedWhenTyped)
{
    Started s;
    QString why;
    EXPECT_FALSE(s.bar().saveLayout(QStringLiteral("Work") + QChar(u'\0') + QStringLiteral("A"), &why));
    EXPECT_FALSE(s.bar().saveLayout(QStringLiteral("Work") + QChar(u'\0') + QStringLiteral("B"), &why));
    EXPECT_TRUE(why.contains(QStringLiteral("control characters")));
    EXPECT_TRUE(s.bar().layouts().names().isEmpty());
    EXPECT_TRUE(s.bar().saveLayout(QStringLiteral("  Work  ")));
    EXPECT_EQ(s.bar().layouts().names(), QStringList{QStringLiteral("Work")});
}
