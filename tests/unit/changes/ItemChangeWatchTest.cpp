// Looking at watched items costs a bounded rate: a quiet item every two seconds, a busy one
// ever more rarely, at most four items in one round, nothing at all while nothing is watched;
// and only a real change counts (an item going off screen loses its picture, which is none).
#include "TestSupport.h"

#include "core/app/AppDelegate.h"
#include "core/changes/ItemChanges.h"
#include "core/changes/ItemLook.h"
#include "sandbox/SandboxCommands.h"
#include "sandbox/SandboxSession.h"
#include "sandbox/ScriptRunner.h"

#include <QJsonObject>
#include <QTextStream>

#include <gtest/gtest.h>

using namespace ravlin;
using namespace ravlin::sandbox;

namespace {

class Desktop {
public:
    explicit Desktop(const QString& script) : m_out(&m_text), m_err(&m_text)
    {
        SandboxSession::Options options;
        options.resourcesDir = test::resourcesDir();
        m_session = std::make_unique<SandboxSession>(options);
        m_runner = std::make_unique<ScriptRunner>(*m_session, m_out, m_err);
        registerAll(*m_runner);
        run(script);
    }
    void run(const QString& lines)
    {
        ASSERT_EQ(m_runner->run(lines), 0) << lines.toStdString() << m_text.toStdString();
    }
    const ItemChangeWatch& watch() { return m_session->app().itemChanges()->watch(); }
    ItemChangeWatch::Watched item(const QString& key) { return watch().watched().value(key); }
    SandboxSession& session() { return *m_session; }

private:
    QString m_text;
    QTextStream m_out;
    QTextStream m_err;
    std::unique_ptr<SandboxSession> m_session;
    std::unique_ptr<ScriptRunner> m_runner;
};

QString desktopWith(int items)
{
    QString script = QStringLiteral("app com.apple.controlcenter \"Control Center\"\n"
                                    "item com.apple.controlcenter \"Clock\" fixed width=80\n");
    for (int i = 0; i < items; ++i)
        script += QStringLiteral("app com.example.a%1 \"A%1\" policy=accessory\n"
                                 "item com.example.a%1 \"A%1 Status\" ax.value=\"0\"\n")
                      .arg(i);
    return script + QStringLiteral("defaults write ravlin.welcomeShown true\nstart\nadvance 5\n");
}

} // namespace

TEST(ItemLook, CountsOnlyWhatBothLooksRead)
{
    ItemLook before;
    before.picture = 7;
    before.value = QStringLiteral("1");
    ItemLook offScreen = before;
    offScreen.picture.reset();
    EXPECT_FALSE(before.changedIn(offScreen));
    EXPECT_FALSE(offScreen.changedIn(before));
    ItemLook badge = before;
    badge.picture = 8;
    EXPECT_TRUE(before.changedIn(badge));
    // A value that appears where there was none is a change; one that cannot be read is not.
    ItemLook empty;
    empty.value = QString();
    ItemLook three;
    three.value = QStringLiteral("3");
    EXPECT_TRUE(empty.changedIn(three));
    EXPECT_FALSE(empty.changedIn(ItemLook{}));
    EXPECT_TRUE(ItemLook{}.isEmpty());
}

TEST(ItemChangeWatch, LooksAtABusyItemEverMoreRarelyAndAgainOftenOnceItIsQuiet)
{
    Desktop d(desktopWith(1));
    const QString key = QStringLiteral("n:A0 Status");
    d.run(QStringLiteral("watch \"n:A0 Status\" on\nadvance 2\nbusy \"A0 Status\" every=0.5 what=value\n"));
    QList<double> intervals;
    for (int i = 0; i < 9; ++i) {
        const int looks = d.item(key).looks;
        while (d.item(key).looks == looks)
            d.session().scheduler().advance(0.5);
        intervals.append(d.item(key).interval);
    }
    EXPECT_EQ(intervals, (QList<double>{2, 2, 4, 8, 16, 32, 60, 60, 60}));
    EXPECT_TRUE(d.item(key).busy);
    d.run(QStringLiteral("busy \"A0 Status\" off\nadvance 61\n"));
    EXPECT_LT(d.item(key).interval, 60);
    d.run(QStringLiteral("advance 200\n"));
    EXPECT_FALSE(d.item(key).busy);
    EXPECT_EQ(d.item(key).interval, 2);
}

TEST(ItemChangeWatch, LooksAtNoMoreThanFourItemsInARoundAndRestsWithNothingWatched)
{
    Desktop d(desktopWith(6));
    for (int i = 0; i < 6; ++i)
        d.run(QStringLiteral("watch \"n:A%1 Status\" on\n").arg(i));
    d.run(QStringLiteral("advance 2\n"));
    EXPECT_EQ(d.watch().looks(), 4);
    d.run(QStringLiteral("advance 2\n"));
    EXPECT_EQ(d.watch().looks(), 8);
    // Those left over are looked at first in the next round: no item waits for ever.
    d.run(QStringLiteral("advance 4\n"));
    for (int i = 0; i < 6; ++i)
        EXPECT_GE(d.item(QStringLiteral("n:A%1 Status").arg(i)).looks, 2) << i;
    // An item whose application quit is not looked at; none left, no timer.
    for (int i = 0; i < 6; ++i)
        d.run(QStringLiteral("terminate com.example.a%1\n").arg(i));
    d.run(QStringLiteral("advance 1\n"));
    EXPECT_TRUE(d.watch().watched().isEmpty());
    EXPECT_FALSE(d.watch().looking());
    d.run(QStringLiteral("launch com.example.a3\nadvance 3\n"));
    EXPECT_TRUE(d.watch().looking());
    EXPECT_EQ(d.watch().watched().keys(), QStringList{QStringLiteral("n:A3 Status")});
}

TEST(ItemChangeWatch, ReadsThePictureOnlyWhereTheItemStandsOnADisplay)
{
    // Without the accessibility texts only the picture tells: the window server has one of an
    // item on a display, and a single pixel of one pushed off it.
    Desktop d(desktopWith(2));
    d.run(QStringLiteral("cmd-drag item:\"A0 Status\" to 1300\nadvance 2\npermission accessibility off\n"
                         "watch \"n:A0 Status\" on\nwatch \"n:A1 Status\" on\nadvance 2\n"
                         "change \"A0 Status\" badge=2\nchange \"A1 Status\" badge=5\nadvance 2\n"));
    EXPECT_EQ(d.item(QStringLiteral("n:A0 Status")).changes, 1);
    EXPECT_EQ(d.item(QStringLiteral("n:A1 Status")).changes, 0);
}
