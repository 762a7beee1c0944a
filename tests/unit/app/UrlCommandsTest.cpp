// The URL scheme's requests carried out on the running application: what the log says of a
// URL that names an item ambiguously, and that no URL can write a log line of its own.
#include "TestSupport.h"

#include "core/app/AppDelegate.h"
#include "core/app/UrlCommands.h"
#include "support/ScriptedSession.h"


#include <gtest/gtest.h>

using namespace ravlin;
using namespace ravlin::sandbox;

namespace {

// Two items whose names differ only in letter case: a name in a URL matches both. (Items
// that would read alike are named apart, so only letter case can make a name ambiguous.)
struct Started : test::ScriptedSession {
    Started()
    {
        const int status =
            run(QStringLiteral("app com.example.a \"Sync\"\n"
                                      "item com.example.a \"A Status\" ax.title=\"Sync\"\n"
                                      "app com.example.b \"SYNC\"\n"
                                      "item com.example.b \"B Status\" ax.title=\"SYNC\"\n"
                                      "start\nadvance 3\n"));
        EXPECT_EQ(status, 0) << err.toStdString();
    }
};

QStringList matching(const test::LogCapture& log, const QString& text)
{
    QStringList found;
    for (const QString& line : log.lines())
        if (line.contains(text))
            found << line;
    return found;
}

} // namespace

TEST(UrlCommands, ANameSeveralItemsShareOpensOneAndTheLogNamesTheOthersKeys)
{
    Started s;
    test::LogCapture log;
    EXPECT_TRUE(s.session.app().openURL(QStringLiteral("ravlin://item/sync/open")));
    const QStringList said = matching(log, QStringLiteral("several items are named"));
    ASSERT_EQ(said.size(), 1) << log.lines().join(u'\n').toStdString();
    EXPECT_TRUE(said.front().contains(QStringLiteral("n:A Status")));
    EXPECT_TRUE(said.front().contains(QStringLiteral("n:B Status")));
}

TEST(UrlCommands, NoURLWritesALineOfItsOwn)
{
    Started s;
    test::LogCapture log;
    for (const QString& url :
         {QStringLiteral("ravlin://nothing\n2026-01-01 de.vexa.Ravlin.app: forged"),
          QStringLiteral("ravlin://item/Nobody\u202E/open"),
          QStringLiteral("ravlin://item/") + QString(3000, u'x') + QStringLiteral("/open")})
        s.session.app().openURL(url);
    ASSERT_FALSE(log.lines().isEmpty());
    for (const QString& line : log.lines()) {
        EXPECT_FALSE(line.contains(u'\n')) << line.toStdString();
        EXPECT_FALSE(line.contains(QChar(0x202E))) << line.toStdString();
        EXPECT_LT(line.size(), 400);
    }
}

// URLs that arrive while Ravlin starts wait for it, but only a few: a flood is dropped with a
// line, and what waited is done once the start is over.
TEST(UrlCommands, OnlyAFewWaitForTheStart)
{
    SandboxSession session(test::ScriptedSession::options());
    UrlCommands urls(session.app());
    ASSERT_EQ(session.app().statusBar(), nullptr);
    int waiting = 0;
    for (int i = 0; i < UrlCommands::maxWaiting + 5; ++i)
        waiting += urls.handle(QStringLiteral("ravlin://panel/toggle")) ? 1 : 0;
    EXPECT_EQ(waiting, UrlCommands::maxWaiting);
}
