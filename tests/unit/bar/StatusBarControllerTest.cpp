#include "TestSupport.h"

#include "core/app/AppDelegate.h"
#include "core/bar/StatusBarController.h"
#include "core/settings/Preferences.h"
#include "foundation/NotificationCenter.h"
#include "platform/sim/SimStatusBar.h"
#include "support/ScriptedSession.h"

#include <QTextStream>

#include <gtest/gtest.h>

using namespace ravlin;
using namespace ravlin::sandbox;

namespace {

using Started = test::ScriptedSession;

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

namespace {

// Three applications' items and the own items at their first-launch places, with the
// always-hidden section on: [Far][Mid][always][Near][hidden][main].
const QString alwaysHiddenDesktop =
    QStringLiteral("app com.example.near \"Near\"\n"
                   "app com.example.mid \"Mid\"\n"
                   "app com.example.far \"Far\"\n"
                   "item com.example.near \"Near Status\"\n"
                   "item com.example.mid \"Mid Status\"\n"
                   "item com.example.far \"Far Status\"\n"
                   "defaults write enableAlwaysHidden true\n"
                   "start\n"
                   "advance 3\n"
                   "expect /bar/0/title == \"Far Status\"\n"
                   "expect /bar/2/title == \"Ravlin.AlwaysHiddenSeparator\"\n"
                   "expect /bar/3/title == \"Near Status\"\n"
                   "expect /bar/4/title == \"Ravlin.HiddenSeparator\"\n");

} // namespace

TEST(StatusBarControllerLayout, AnItemThatEscapedTheAlwaysHiddenSectionGoesBackThere)
{
    // A wide item keeps Far off screen even with the separators shrunk: opening Far from the
    // panel moves it into view next to the chevron. When the reveal ends it goes back left
    // of the always-hidden separator, where it came from.
    Started s;
    EXPECT_EQ(s.run(QStringLiteral("app com.example.near \"Near\"\n"
                                   "app com.example.mid \"Mid\"\n"
                                   "app com.example.wide \"Wide\"\n"
                                   "app com.example.far \"Far\"\n"
                                   "item com.example.near \"Near Status\"\n"
                                   "item com.example.mid \"Mid Status\"\n"
                                   "item com.example.wide \"Wide Status\" width=1400\n"
                                   "item com.example.far \"Far Status\"\n"
                                   "defaults write enableAlwaysHidden true\n"
                                   "start\n"
                                   "advance 3\n"
                                   "click main\n"
                                   "tile click \"n:Far Status\"\n"
                                   "advance 1\n"
                                   "expect /activations/0/title == \"Far Status\"\n"
                                   "expect /bar/5/title == \"Far Status\"\n"
                                   "expect /bar/5/onScreen == true\n"
                                   "click desktop\n"
                                   "advance 0.5\n"
                                   "expect /bar/0/title == \"Far Status\"\n"
                                   "expect /bar/3/title == \"Ravlin.AlwaysHiddenSeparator\"\n"
                                   "expect /bar/4/title == \"Near Status\"\n"
                                   "expect /bar/5/title == \"Ravlin.HiddenSeparator\"\n")),
              0)
        << s.err.toStdString();
}

TEST(StatusBarControllerLayout, ArrangeModeStoresItsPlacementsAtOnceAndLeavesOffItemsOff)
{
    Started s;
    ASSERT_EQ(s.run(alwaysHiddenDesktop + QStringLiteral("placement \"n:Near Status\" off\n"
                                                         "click main right\n"
                                                         "menu text:menu.arrange\n"
                                                         "cmd-drag item:\"Near Status\" to 1430\n"
                                                         "cmd-drag item:\"Mid Status\" to 1430\n")),
              0)
        << s.err.toStdString();
    int announced = 0;
    auto token =
        s.session.app().notificationCenter().addObserver(ravlinPrefsChanged, [&] { ++announced; });
    EXPECT_EQ(s.run(QStringLiteral("hud done\n"
                                   "expect /preferences/barPinnedKeys == [\"n:Mid Status\"]\n"
                                   "expect /preferences/hiddenItemKeys == [\"n:Near Status\"]\n"
                                   // Off goes behind the separator once arranging is over.
                                   "expect /bar/4/title == \"Near Status\"\n"
                                   "advance 0.2\n"
                                   "expect /bar/0/title == \"Far Status\"\n"
                                   "expect /bar/2/title == \"Near Status\"\n"
                                   "expect /bar/2/onScreen == false\n"
                                   "expect /bar/3/title == \"Ravlin.HiddenSeparator\"\n"
                                   "expect /bar/5/title == \"Mid Status\"\n"
                                   "expect /bar/5/onScreen == true\n")),
              0)
        << s.err.toStdString();
    EXPECT_EQ(announced, 1);
}

TEST(StatusBarControllerLayout, AStartMovesNothingButItemsPlacedOff)
{
    // Mid stands right of the chevron, Near between the separator and the chevron.
    Started s;
    EXPECT_EQ(s.run(QStringLiteral(
                  "app com.example.near \"Near\"\n"
                  "app com.example.mid \"Mid\"\n"
                  "app com.example.far \"Far\"\n"
                  "item com.example.mid \"Mid Status\"\n"
                  "item com.example.near \"Near Status\"\n"
                  "item com.example.far \"Far Status\"\n"
                  "defaults write seededPositionsV1 true\n"
                  "defaults write \"NSStatusItem Preferred Position Ravlin.Main\" 22\n"
                  "defaults write \"NSStatusItem Preferred Position Ravlin.HiddenSeparator\" 68\n"
                  "defaults write hiddenItems [\"n:Near Status\"]\n"
                  "start\n"
                  "expect /bar/0/title == \"Far Status\"\n"
                  "expect /bar/1/title == \"Ravlin.HiddenSeparator\"\n"
                  "expect /bar/2/title == \"Near Status\"\n"
                  "expect /bar/4/title == \"Mid Status\"\n"
                  "advance 3\n"
                  "expect /controller/didFullBuild == true\n"
                  "expect /bar/1/title == \"Near Status\"\n"
                  "expect /bar/1/onScreen == false\n"
                  "expect /bar/2/title == \"Ravlin.HiddenSeparator\"\n"
                  "expect /bar/3/title == \"Ravlin.Main\"\n"
                  "expect /bar/4/title == \"Mid Status\"\n"
                  "expect /bar/4/onScreen == true\n"
                  "expect /preferences/barPinnedKeys == []\n")),
              0)
        << s.err.toStdString();
}
