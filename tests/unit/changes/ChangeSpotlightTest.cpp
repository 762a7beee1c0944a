// A changed item that cannot come into sight waits at the top of the panel, marked, until the
// user has looked; one shown often lately is marked instead of being shown again.
#include "TestSupport.h"

#include "core/app/AppDelegate.h"
#include "core/changes/ItemChanges.h"
#include "sandbox/SandboxCommands.h"
#include "sandbox/SandboxSession.h"
#include "sandbox/ScriptRunner.h"

#include <QTextStream>

#include <gtest/gtest.h>

using namespace ravlin;
using namespace ravlin::sandbox;

namespace {

BarItem item(const QString& key)
{
    BarItem i;
    i.key = key;
    i.label = key;
    return i;
}

class Spotlight : public ::testing::Test {
protected:
    Spotlight() : m_out(&m_text), m_err(&m_text)
    {
        SandboxSession::Options options;
        options.resourcesDir = test::resourcesDir();
        session = std::make_unique<SandboxSession>(options);
        runner = std::make_unique<ScriptRunner>(*session, m_out, m_err);
        registerAll(*runner);
        run(QStringLiteral("app com.example.mail \"Mail\"\nitem com.example.mail \"Mail Status\"\n"
                           "defaults write ravlin.welcomeShown true\nstart\nadvance 5\n"));
    }
    void run(const QString& lines) { ASSERT_EQ(runner->run(lines), 0) << m_text.toStdString(); }
    ChangeSpotlight& spotlight() { return session->app().itemChanges()->spotlight(); }

    std::unique_ptr<SandboxSession> session;
    std::unique_ptr<ScriptRunner> runner;

private:
    QString m_text;
    QTextStream m_out;
    QTextStream m_err;
};

} // namespace

TEST_F(Spotlight, ShowsAnItemAtMostOnceAMinuteAndThreeTimesInTenMinutes)
{
    const QString key = QStringLiteral("n:Mail Status");
    QStringList how;
    for (int i = 0; i < 6; ++i) {
        spotlight().changed(key);
        run(QStringLiteral("advance 0.5\n"));
        how.append(spotlight().events().back().how);
        run(QStringLiteral("advance 10\n"));
        if (i % 2 == 1)
            run(QStringLiteral("advance 60\n"));
    }
    EXPECT_EQ(how, (QStringList{QStringLiteral("bar"), QStringLiteral("pause"), QStringLiteral("bar"),
                               QStringLiteral("pause"), QStringLiteral("bar"), QStringLiteral("pause")}));
    spotlight().changed(key);
    run(QStringLiteral("advance 61\n"));
    spotlight().changed(key);
    EXPECT_EQ(spotlight().events().back().how, QStringLiteral("pause"));
    EXPECT_EQ(spotlight().marked(), QStringList{key});
}

TEST_F(Spotlight, PutsMarkedItemsInASectionOfTheirOwnUntilThePanelWasSeen)
{
    spotlight().changed(QStringLiteral("n:Mail Status"));
    run(QStringLiteral("advance 10\n"));
    spotlight().changed(QStringLiteral("n:Mail Status")); // too soon: marked
    ASSERT_EQ(spotlight().marked(), QStringList{QStringLiteral("n:Mail Status")});
    std::vector<BarGroup> groups = {
        {QStringLiteral("Apps"), {item(QStringLiteral("n:Chat Status")), item(QStringLiteral("n:Mail Status"))}},
        {QStringLiteral("Mail only"), {item(QStringLiteral("n:Mail Status"))}}};
    const std::vector<BarGroup> arranged = spotlight().arrange(groups);
    ASSERT_EQ(arranged.size(), 2u);
    EXPECT_EQ(arranged[0].title, QStringLiteral("Changed"));
    ASSERT_EQ(arranged[0].items.size(), 2u);
    EXPECT_TRUE(arranged[0].items[0].changed);
    EXPECT_EQ(arranged[1].items.size(), 1u);
    EXPECT_FALSE(arranged[1].items[0].changed);
    spotlight().seen();
    EXPECT_TRUE(spotlight().marked().isEmpty());
    // A mark the panel did not show (the item is in sight by then) goes too.
    spotlight().changed(QStringLiteral("n:Mail Status"));
    spotlight().arrange({});
    EXPECT_TRUE(spotlight().marked().isEmpty());
}
