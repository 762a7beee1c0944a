#include "TestSupport.h"

#include "foundation/DiagnosticLogs.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <unistd.h>

using namespace ravlin;

namespace {

QByteArray readFile(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
}

} // namespace

TEST(DiagnosticLogs, EachReportReplacesThePreviousOneWholeAndLeavesNothingElse)
{
    QTemporaryDir dir;
    DiagnosticLogs logs(dir.path());
    ASSERT_TRUE(logs.write(DiagnosticLogs::moveLog, QStringLiteral("a long first report\n")));
    ASSERT_TRUE(logs.write(DiagnosticLogs::moveLog, QStringLiteral("second\n")));
    EXPECT_EQ(readFile(logs.path(DiagnosticLogs::moveLog)), "second\n");
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden | QDir::System),
              QStringList{DiagnosticLogs::moveLog});
}

TEST(DiagnosticLogs, ALinkAtTheLogsPlaceIsNeverFollowed)
{
    QTemporaryDir dir;
    const QString victim = dir.filePath(QStringLiteral("someone-elses-file"));
    writeFile(victim, "precious");
    DiagnosticLogs logs(dir.path());
    const QString logPath = logs.path(DiagnosticLogs::hideLog);
    ASSERT_TRUE(QFile::link(victim, logPath));
    const QString dangling = logs.path(DiagnosticLogs::captureLog);
    ASSERT_TRUE(QFile::link(dir.filePath(QStringLiteral("not-yet")), dangling));

    test::LogCapture log;
    EXPECT_FALSE(logs.write(DiagnosticLogs::hideLog, QStringLiteral("report")));
    EXPECT_FALSE(logs.write(DiagnosticLogs::captureLog, QStringLiteral("report")));
    EXPECT_EQ(readFile(victim), "precious");
    EXPECT_FALSE(QFileInfo::exists(dir.filePath(QStringLiteral("not-yet"))));
    EXPECT_TRUE(QFileInfo(logPath).isSymLink());
    ASSERT_EQ(log.lines().size(), 2);
    EXPECT_TRUE(log.lines()[0].contains(logPath));
    EXPECT_TRUE(log.lines()[0].contains(QStringLiteral("symbolic link")));
}

TEST(DiagnosticLogs, AFileOwnedBySomeoneElseIsNotWrittenInto)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can give a file to another user";
    QTemporaryDir dir;
    DiagnosticLogs logs(dir.path());
    const QString logPath = logs.path(DiagnosticLogs::moveLog);
    writeFile(logPath, "theirs");
    ASSERT_EQ(::chown(QFile::encodeName(logPath).constData(), 65534, 65534), 0);
    test::LogCapture log;
    EXPECT_FALSE(logs.write(DiagnosticLogs::moveLog, QStringLiteral("report")));
    EXPECT_EQ(readFile(logPath), "theirs");
    EXPECT_EQ(QFileInfo(logPath).ownerId(), 65534u);
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines()[0].contains(QStringLiteral("belongs to another user")));
}
