#include "TestSupport.h"

#include "core/app/AppDelegate.h"
#include "core/bar/StatusBarController.h"
#include "platform/sim/SimStatusBar.h"
#include "sandbox/SandboxCommands.h"
#include "sandbox/SandboxSession.h"
#include "sandbox/ScriptRunner.h"

#include <QTextStream>

#include <gtest/gtest.h>

using namespace ravlin;
using namespace ravlin::sandbox;

namespace {

struct Started {
    QString out, err;
    QTextStream o{&out}, e{&err};
    SandboxSession session{[] {
        SandboxSession::Options options;
        options.resourcesDir = test::resourcesDir();
        return options;
    }()};
    ScriptRunner runner{session, o, e};
    Started() { registerAll(runner); }
    int run(const QString& script) { return runner.run(script); }
};

} // namespace

TEST(StatusBarController, WithoutChevronSymbolsTheMainItemReadsR)
{
    Started s;
    s.session.statusBar().missingSymbols = {QStringLiteral("chevron.left"),
                                            QStringLiteral("chevron.right")};
    ASSERT_EQ(s.run(QStringLiteral("start\nadvance 1\n")), 0) << s.err.toStdString();
    const SimStatusItem* main = s.session.statusBar().item(StatusBarController::mainName);
    ASSERT_TRUE(main);
    EXPECT_EQ(main->title(), QStringLiteral("R"));
    EXPECT_TRUE(main->image().isEmpty());
}

TEST(StatusBarController, SyntheticClickHintsMatchCaseSensitively)
{
    EXPECT_TRUE(
        StatusBarController::prefersSyntheticClick(QStringLiteral("b:com.example.chatgpt#Item-0")));
    EXPECT_TRUE(StatusBarController::prefersSyntheticClick(QStringLiteral("n:geminimacos-status")));
    EXPECT_FALSE(StatusBarController::prefersSyntheticClick(QStringLiteral("n:Chatgpt")));
    EXPECT_FALSE(StatusBarController::prefersSyntheticClick(QStringLiteral("n:chat")));
}

TEST(StatusBarController, SeedingHappensOncePerUser)
{
    Started first;
    ASSERT_EQ(first.run(QStringLiteral("start\ncmd-drag item:\"Ravlin.Main\" to 100\n")), 0)
        << first.err.toStdString();
    // A second launch over the same settings keeps the user's arrangement.
    const QString path = first.session.defaultsPath();
    SandboxSession::Options options;
    options.resourcesDir = test::resourcesDir();
    options.defaultsPath = path;
    QString out, err;
    QTextStream o(&out), e(&err);
    SandboxSession second(options);
    ScriptRunner runner(second, o, e);
    registerAll(runner);
    EXPECT_EQ(runner.run(QStringLiteral(
                  "start\n"
                  "expect /defaults/seededPositionsV1 == true\n"
                  "expect \"/defaults/NSStatusItem Preferred Position Ravlin.Main\" > 0\n")),
              0)
        << err.toStdString();
}
