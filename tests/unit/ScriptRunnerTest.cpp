#include "TestSupport.h"

#include "sandbox/JsonPointer.h"
#include "sandbox/SandboxCommands.h"
#include "sandbox/SandboxSession.h"
#include "sandbox/ScriptLine.h"
#include "sandbox/ScriptRunner.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTextStream>

#include <gtest/gtest.h>

using namespace ravlin;
using namespace ravlin::sandbox;

namespace {

struct ScriptOutcome {
    int status = -1;
    QString out;
    QString err;
};

ScriptOutcome runScript(const QString& script, SandboxSession::Options options = {})
{
    ScriptOutcome run;
    QTextStream out(&run.out), err(&run.err);
    options.resourcesDir = test::resourcesDir();
    SandboxSession session(options);
    ScriptRunner runner(session, out, err);
    registerAll(runner);
    run.status = runner.run(script);
    out.flush();
    err.flush();
    return run;
}

} // namespace

TEST(ScriptLine, WordsQuotesCommentsAndRawRest)
{
    const auto line = ScriptLine::parse(
        QStringLiteral(R"(item com.x "A \"b\" c" ax.title="Wi-Fi, on" key=o:Foo#Bar  # note)"), 3,
        nullptr);
    ASSERT_TRUE(line);
    EXPECT_EQ(line->words.size(), 5);
    EXPECT_EQ(line->word(2), QStringLiteral("A \"b\" c"));
    EXPECT_EQ(line->word(3), QStringLiteral("ax.title=Wi-Fi, on"));
    EXPECT_EQ(line->word(4), QStringLiteral("key=o:Foo#Bar"));
    const auto value =
        ScriptLine::parse(QStringLiteral("defaults write k [7, \"12\", \"x\"]"), 1, nullptr);
    EXPECT_EQ(value->rest(3), QStringLiteral("[7, \"12\", \"x\"]"));
    EXPECT_TRUE(ScriptLine::parse(QStringLiteral("   # only a comment"), 1, nullptr)->isEmpty());
    QString error;
    EXPECT_FALSE(ScriptLine::parse(QStringLiteral("app x \"open"), 1, &error));
}

TEST(JsonPointer, ResolvesObjectsArraysAndEscapes)
{
    const QJsonObject doc{
        {QStringLiteral("a/b"), QJsonArray{10, QJsonObject{{QStringLiteral("~k"), true}}}}};
    EXPECT_EQ(JsonPointer::resolve(doc, QStringLiteral("/a~1b/0"))->toInt(), 10);
    EXPECT_TRUE(JsonPointer::resolve(doc, QStringLiteral("/a~1b/1/~0k"))->toBool());
    EXPECT_FALSE(JsonPointer::resolve(doc, QStringLiteral("/a~1b/2")));
    EXPECT_FALSE(JsonPointer::resolve(doc, QStringLiteral("/a~1b/01")));
    EXPECT_FALSE(JsonPointer::resolve(doc, QStringLiteral("/missing/0")));
}

TEST(ScriptRunner, EveryOperatorHoldsOrFailsAsWritten)
{
    const ScriptOutcome ok = runScript(
        QStringLiteral(R"(
defaults write list ["a", "b"]
defaults write n 15
start
expect /defaults/n == 15.0
expect /defaults/n != 16
expect /defaults/n < 16
expect /defaults/n <= 15
expect /defaults/n > 14
expect /defaults/n >= 15
expect /defaults/list contains "a"
expect /defaults/list lacks "c"
expect /defaults/list count 2
expect /language/activeCode contains ""
expect /defaults/nothing absent
expect /defaults/nothing == null
expect /defaults/list exists
expect /preferences/appLanguage == text:no.such.key.so.itself
)")
            .replace(QStringLiteral("text:no.such.key.so.itself"), QStringLiteral("\"\"")));
    EXPECT_EQ(ok.status, 0) << ok.err.toStdString();

    const ScriptOutcome failed = runScript(
        QStringLiteral("start\nexpect /preferences/rehideInterval == 16\nexpect /time == 0\n"));
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(failed.err.trimmed(),
              QStringLiteral("expect failed at line 2: /preferences/rehideInterval == 16 / 15"));
}

TEST(ScriptRunner, TextValuesFollowTheCurrentLanguage)
{
    const ScriptOutcome run = runScript(QStringLiteral(
        "start\nlanguage \"de\"\nprint text menu.quit\nexpect /language/activeCode == \"de\"\n"));
    EXPECT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_TRUE(run.out.startsWith(QStringLiteral("{\"text\":\"")));
    EXPECT_FALSE(run.out.contains(QStringLiteral("Quit Ravlin")));
}

TEST(ScriptRunner, ScriptMistakesEndWithStatusTwoAndTheLineNumber)
{
    const QList<std::pair<QString, QString>> cases = {
        {QStringLiteral("frobnicate"), QStringLiteral("unknown command: frobnicate")},
        {QStringLiteral("advance 1"), QStringLiteral("advance needs start first")},
        {QStringLiteral("start\nlocale de"), QStringLiteral("locale must come before start")},
        {QStringLiteral("start\nprefs set rehideInterval \"x\""), QStringLiteral("whole number")},
        {QStringLiteral("start\nexpect /time ~= 1"), QStringLiteral("unknown operator")},
        {QStringLiteral("start\ndefaults write k [1,"), QStringLiteral("bad value")},
        {QStringLiteral("dump nosuchsection"), QStringLiteral("unknown dump section")},
    };
    for (const auto& [script, message] : cases) {
        const ScriptOutcome run = runScript(script);
        EXPECT_EQ(run.status, 2) << script.toStdString();
        EXPECT_TRUE(run.err.contains(message)) << run.err.toStdString();
    }
}

TEST(ScriptRunner, ATileScrolledOutOfSightCannotBeClicked)
{
    QString script = QStringLiteral("screen 1280 400\n");
    for (int i = 0; i < 20; ++i)
        script +=
            QStringLiteral("app com.example.a%1 \"A%1\"\nitem com.example.a%1 \"I%1\"\n").arg(i);
    script += QStringLiteral("start\nadvance 3\nclick main\n");
    const ScriptOutcome hidden = runScript(script + QStringLiteral("tile click \"n:I0\""));
    EXPECT_EQ(hidden.status, 2);
    EXPECT_TRUE(hidden.err.contains(QStringLiteral("scrolled out of sight")))
        << hidden.err.toStdString();
    const ScriptOutcome scrolled = runScript(
        script + QStringLiteral("panel scroll 5000\ntile click \"n:I0\"\nexpect /panel/visible == false"));
    EXPECT_EQ(scrolled.status, 0) << scrolled.err.toStdString();
    EXPECT_EQ(runScript(script + QStringLiteral("panel scroll far")).status, 2);
}

TEST(ScriptRunner, SettingsWindowCommandsNeedTheOpenWindowAndAControlItHas)
{
    const QList<std::pair<QString, QString>> cases = {
        {QStringLiteral("start\nsettings toggle showWeather"),
         QStringLiteral("the settings window is not open")},
        {QStringLiteral("start\nsettings close"),
         QStringLiteral("the settings window is not open")},
        {QStringLiteral("start\nsettings open 5"), QStringLiteral("a number from 0 to 4")},
        {QStringLiteral("start\nsettings open\nsettings toggle wings"),
         QStringLiteral("has no switch wings")},
        {QStringLiteral("start\nsettings open\nsettings place nokey bar"),
         QStringLiteral("has no item place:nokey")},
        {QStringLiteral("start\nsettings open\nsettings set rehideInterval 0"),
         QStringLiteral("from 1 to 3600")},
        {QStringLiteral("start\nsettings open\nsettings set tileStyle rings"),
         QStringLiteral("offers no rings")},
        {QStringLiteral("start\nsettings open\nsettings language xx"),
         QStringLiteral("offers no xx")},
        {QStringLiteral("engine available\nstart\nsettings open\nsettings toggle "
                        "bundle:com.example.chat"),
         QStringLiteral("has no switch bundle:com.example.chat")},
        {QStringLiteral("start\nsettings fly"), QStringLiteral("settings knows open, close")},
    };
    for (const auto& [script, message] : cases) {
        const ScriptOutcome run = runScript(script);
        EXPECT_EQ(run.status, 2) << script.toStdString();
        EXPECT_TRUE(run.err.contains(message)) << run.err.toStdString();
    }
}

TEST(ScriptRunner, CommandsOfLaterPartsSayTheyAreNotSupportedYet)
{
    QString out, err;
    QTextStream o(&out), e(&err);
    SandboxSession::Options options;
    options.resourcesDir = test::resourcesDir();
    SandboxSession session(options);
    ScriptRunner runner(session, o, e);
    registerAll(runner);
    runner.addUnsupported(
        {QStringLiteral("teleport"), QStringLiteral("start")}); // a served command stays served
    EXPECT_EQ(runner.run(QStringLiteral("start\nteleport home\n")), 2);
    e.flush();
    EXPECT_TRUE(err.contains(QStringLiteral("line 2: not supported yet: teleport")))
        << err.toStdString();
}

TEST(ScriptRunner, DefaultsFileIsReadAtStartAndWrittenThrough)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("prefs.plist"));
    SandboxSession::Options options;
    options.defaultsPath = path;
    EXPECT_EQ(
        runScript(QStringLiteral(
                      "defaults write tileStyle \"grid\"\nstart\nprefs set showWeather false\n"),
                  options)
            .status,
        0);
    const ScriptOutcome second =
        runScript(QStringLiteral("start\nexpect /preferences/tileStyle == \"grid\"\nexpect "
                                 "/defaults/showWeather == false\n"),
                  options);
    EXPECT_EQ(second.status, 0) << second.err.toStdString();
}

TEST(ScriptRunner, LoginStatusAndFailuresComeFromTheScript)
{
    const ScriptOutcome run = runScript(QStringLiteral(R"(
login requiresApproval
start
prefs set launchAtLogin false
expect /login/status == "requiresApproval"
login enabled
login fail "Operation not permitted"
prefs set launchAtLogin false
expect /login/status == "enabled"
expect /preferences/launchAtLogin == false
)"));
    EXPECT_EQ(run.status, 0) << run.err.toStdString();
}
