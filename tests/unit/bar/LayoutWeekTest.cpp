// Nothing the system does loses the user's arrangement: seeded random weeks of restarts,
// reset and shuffled positions, wakes, displays plugged in and out and applications that
// quit and start again, mixed with the user's own moves. After every step the bar shows
// what the user last made, and the record changes only by the user's hand.
#include "TestSupport.h"

#include "sandbox/JsonPointer.h"
#include "sandbox/SandboxCommands.h"
#include "sandbox/SandboxSession.h"
#include "sandbox/ScriptRunner.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTextStream>

#include <gtest/gtest.h>

#include <random>

using namespace ravlin;
using namespace ravlin::sandbox;

namespace {

const QStringList apps = {QStringLiteral("Chat"), QStringLiteral("Sync"), QStringLiteral("Notes"),
                          QStringLiteral("Mail"), QStringLiteral("Radio"), QStringLiteral("Timer")};

QString desktopScript(bool alwaysHidden)
{
    QString script = QStringLiteral("app com.apple.controlcenter \"Control Center\"\n");
    for (const QString& app : apps)
        script += QStringLiteral("app com.example.%1 \"%2\"\n").arg(app.toLower(), app);
    script += QStringLiteral("item com.apple.controlcenter \"Clock\" fixed width=80\n");
    for (const QString& app : apps)
        script += QStringLiteral("item com.example.%1 \"%2 Status\"\n").arg(app.toLower(), app);
    if (alwaysHidden)
        script += QStringLiteral("defaults write enableAlwaysHidden true\n");
    return script + QStringLiteral("start\nadvance 3\n");
}

class Week {
public:
    Week(unsigned seed, bool alwaysHidden)
        : m_random(seed), m_out(&m_text), m_err(&m_text), m_alwaysHidden(alwaysHidden)
    {
        SandboxSession::Options options;
        options.resourcesDir = test::resourcesDir();
        m_session = std::make_unique<SandboxSession>(options);
        m_runner = std::make_unique<ScriptRunner>(*m_session, m_out, m_err);
        registerAll(*m_runner);
        run(desktopScript(alwaysHidden));
    }

    void run(const QString& lines)
    {
        m_log += lines;
        ASSERT_EQ(m_runner->run(lines), 0) << m_log.toStdString() << m_text.toStdString();
    }

    // The bar's movable items and separators, left to right, as keys and markers.
    QStringList barSequence()
    {
        QStringList tokens;
        const QJsonArray bar = m_runner->dump({QStringLiteral("bar")}, false)
                                   .value(QStringLiteral("bar"))
                                   .toArray();
        for (const QJsonValue& entry : bar) {
            const QString title = entry[QStringLiteral("title")].toString();
            if (title == u"Ravlin.HiddenSeparator")
                tokens << QStringLiteral("|hidden");
            else if (title == u"Ravlin.AlwaysHiddenSeparator")
                tokens << QStringLiteral("|always");
            else if (title.endsWith(QStringLiteral(" Status")))
                tokens << QStringLiteral("n:") + title;
        }
        return tokens;
    }

    QStringList recordFor(const QStringList& present)
    {
        const QJsonObject record = m_runner->dump({QStringLiteral("defaults")}, false)
                                       .value(QStringLiteral("defaults"))
                                       .toObject()
                                       .value(QStringLiteral("ravlin.arrangement"))
                                       .toObject();
        QStringList tokens;
        if (m_alwaysHidden) {
            for (const QJsonValue& key : record.value(QStringLiteral("alwaysHidden")).toArray())
                if (present.contains(key.toString()))
                    tokens << key.toString();
            tokens << QStringLiteral("|always");
        }
        for (const QJsonValue& key : record.value(QStringLiteral("hidden")).toArray())
            if (present.contains(key.toString()))
                tokens << key.toString();
        tokens << QStringLiteral("|hidden");
        for (const QJsonValue& key : record.value(QStringLiteral("visible")).toArray())
            if (present.contains(key.toString()))
                tokens << key.toString();
        return tokens;
    }

    // One thing the system does to the bar, and the time the bar needs to settle.
    void systemStep()
    {
        switch (pick(6)) {
        case 0:
            run(QStringLiteral("restart\nadvance 3\n"));
            break;
        case 1:
            run(QStringLiteral("positions reset\nwake\nadvance 2\n"));
            break;
        case 2:
            run(QStringLiteral("positions shuffle %1\nwake\nadvance 2\n").arg(pick(1000)));
            break;
        case 3:
            if (m_displays == 1) {
                run(QStringLiteral("screen 1280 800\nadvance 2\n"));
                m_displays = 2;
            } else {
                run(QStringLiteral("screen remove 1\nadvance 2\n"));
                m_displays = 1;
            }
            break;
        case 4:
            run(QStringLiteral("positions shuffle %1\nrestart\nadvance 3\n").arg(pick(1000)));
            break;
        default: {
            const QString app = apps[pick(apps.size())].toLower();
            run(QStringLiteral("terminate com.example.%1\nadvance 2\nlaunch com.example.%1\n"
                               "advance 3\n")
                    .arg(app));
        }
        }
    }

    // The user's own hand: in arrange mode, or a command-drag at any time.
    void userStep()
    {
        const QString item = apps[pick(apps.size())] + QStringLiteral(" Status");
        const int x = 1000 + pick(330);
        const QStringList inSight = visibleItems();
        if (pick(2) == 0 || inSight.isEmpty())
            run(QStringLiteral("click main right\nmenu text:menu.arrange\n"
                               "cmd-drag item:\"%1\" to %2\nhud done\nadvance 1\n")
                    .arg(item)
                    .arg(x));
        else
            run(QStringLiteral("cmd-drag item:\"%1\" to %2\nclick main\npanel resign\nadvance 1\n")
                    .arg(inSight[pick(inSight.size())])
                    .arg(x));
    }

    // Only what is on screen can be grabbed outside arrange mode.
    QStringList visibleItems()
    {
        QStringList titles;
        const QJsonArray bar = m_runner->dump({QStringLiteral("bar")}, false)
                                   .value(QStringLiteral("bar"))
                                   .toArray();
        for (const QJsonValue& entry : bar) {
            const QString title = entry[QStringLiteral("title")].toString();
            if (title.endsWith(QStringLiteral(" Status")) && entry[QStringLiteral("onScreen")].toBool() &&
                entry[QStringLiteral("x")].toDouble() > 900)
                titles << title;
        }
        return titles;
    }

    int pick(qsizetype n) { return int(std::uniform_int_distribution<qsizetype>(0, n - 1)(m_random)); }
    const QString& log() const { return m_log; }

private:
    std::mt19937 m_random;
    QString m_text;
    QTextStream m_out, m_err;
    std::unique_ptr<SandboxSession> m_session;
    std::unique_ptr<ScriptRunner> m_runner;
    QString m_log;
    int m_displays = 1;
    bool m_alwaysHidden;
};

} // namespace

TEST(LayoutWeek, RandomWeeksEndWithEveryItemWhereTheUserPutIt)
{
    for (unsigned seed : {1u, 7u, 42u, 2026u}) {
        Week week(seed, seed % 2 == 0);
        QStringList made = week.barSequence();
        for (int step = 0; step < 120; ++step) {
            const bool byHand = week.pick(4) == 0;
            if (byHand)
                week.userStep();
            else
                week.systemStep();
            if (::testing::Test::HasFatalFailure())
                return;
            const QStringList bar = week.barSequence();
            if (byHand) {
                made = bar;
                continue;
            }
            ASSERT_EQ(bar, made) << "seed " << seed << ", step " << step << ":\n"
                                 << week.log().toStdString();
            ASSERT_EQ(week.recordFor(bar), bar) << "seed " << seed << ", step " << step;
        }
    }
}

// A quarter of a year: thirteen weeks of restarts, wakes, displays and installs on one bar,
// long enough for anything that piles up (records, timers, windows) to show. It found a
// reorder by the system, between a start's look at the bar and the end of its reveal, taken
// for the user's arrangement: only a look after a drag by hand takes the bar's order now.
TEST(LayoutWeek, AQuarterYearEndsWithEveryItemWhereTheUserPutIt)
{
    Week week(91, true);
    QStringList made = week.barSequence();
    for (int step = 0; step < 13 * 60; ++step) {
        const bool byHand = week.pick(6) == 0;
        if (byHand)
            week.userStep();
        else
            week.systemStep();
        if (::testing::Test::HasFatalFailure())
            return;
        const QStringList bar = week.barSequence();
        if (byHand) {
            made = bar;
            continue;
        }
        ASSERT_EQ(bar, made) << "step " << step << ":\n" << week.log().toStdString();
    }
}
