// The engine over a simulated Mac: it hears only of what the rules need, keeps one timer for
// the next time boundary, changes only what differs, gives the user's choices back when no
// rule wants them, leaves alone what the user changed meanwhile, and remembers what it did
// across a restart.
#include "core/rules/RuleBook.h"
#include "core/rules/RuleEffects.h"
#include "core/rules/RuleEngine.h"
#include "core/rules/SituationWatch.h"
#include "foundation/DefaultsStore.h"
#include "foundation/VirtualScheduler.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimScreens.h"
#include "platform/sim/SimSituation.h"
#include "platform/sim/SimSystemProbe.h"
#include "platform/sim/SimWorkspace.h"

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

// Records what the rules asked for.
class FakeEffects final : public RuleEffects {
public:
    QString activeLayout() const override { return layout; }
    bool hasLayout(const QString& name) const override { return layouts.contains(name); }
    void switchLayout(const QString& name, const QString&) override
    {
        layout = name;
        switches.append(name);
    }
    QString panelStyle() const override { return style; }
    bool setPanelStyle(const QString& raw) override
    {
        style = raw;
        return true;
    }
    ItemPlacement placement(const QString& key) const override
    {
        return placements.value(key, ItemPlacement::Panel);
    }
    void place(const QString& key, ItemPlacement p) override { placements.insert(key, p); }
    void revealFor(int seconds) override { reveals.append(seconds); }

    QStringList layouts{QStringLiteral("Home"), QStringLiteral("Desk"), QStringLiteral("Night")};
    QString layout = QStringLiteral("Home");
    QStringList switches;
    QString style = QStringLiteral("dashboard");
    QHash<QString, ItemPlacement> placements;
    QList<int> reveals;
};

class RuleEngineTest : public ::testing::Test {
protected:
    RuleEngineTest() : workspace(desktop), screens(desktop), probe(scheduler) { desktop.setScheduler(&scheduler); }

    void start()
    {
        book = std::make_unique<RuleBook>(defaults);
        watch = std::make_unique<SituationWatch>(
            SituationSources{scheduler, screens, workspace, &probe, &situation},
            [this](const QString& why) {
                heard.append(why);
                engine->evaluate(why);
            });
        engine = std::make_unique<RuleEngine>(*book, *watch, effects, defaults);
        engine->start();
    }

    void add(const QString& id, RuleCondition condition, RuleAction action)
    {
        std::vector<Rule> rules = book->rules();
        Rule r;
        r.id = id;
        r.conditions = {condition};
        r.actions = {action};
        rules.push_back(r);
        book->setRules(rules);
    }

    static RuleCondition display()
    {
        RuleCondition c;
        c.kind = RuleCondition::Kind::Display;
        return c;
    }
    static RuleAction layout(const QString& name)
    {
        RuleAction a;
        a.kind = RuleAction::Kind::Layout;
        a.text = name;
        return a;
    }

    VirtualScheduler scheduler;
    SimDesktop desktop;
    SimWorkspace workspace;
    SimScreens screens;
    SimSystemProbe probe;
    SimSituation situation;
    InMemoryDefaultsStore defaults;
    FakeEffects effects;
    QStringList heard;
    std::unique_ptr<RuleBook> book;
    std::unique_ptr<SituationWatch> watch;
    std::unique_ptr<RuleEngine> engine;
};

} // namespace

TEST_F(RuleEngineTest, HearsOnlyOfWhatItsRulesLookAt)
{
    start();
    SimApp app;
    app.bundleId = QStringLiteral("com.example.a");
    app.name = QStringLiteral("A");
    app.running = false;
    desktop.addApp(app);
    desktop.launch(app.bundleId);
    situation.setWifiNetwork(QStringLiteral("Office"));
    desktop.plugInScreen({});
    EXPECT_TRUE(heard.isEmpty());
    EXPECT_FALSE(watch->nextBoundaryIn());

    add(QStringLiteral("desk"), display(), layout(QStringLiteral("Desk")));
    EXPECT_EQ(effects.layout, QStringLiteral("Desk")); // a second display is there already
    desktop.terminate(app.bundleId);
    situation.setWifiNetwork(std::nullopt);
    EXPECT_TRUE(heard.isEmpty());
    desktop.removeScreen(1);
    EXPECT_EQ(heard, QStringList{QStringLiteral("the displays changed")});
    EXPECT_EQ(effects.layout, QStringLiteral("Home"));
}

TEST_F(RuleEngineTest, KeepsOneTimerForTheNextTimeBoundaryInTheLocalZone)
{
    situation.setTimeZone(QTimeZone("Europe/Berlin")); // 09:00 UTC is 10:00 here
    start();
    RuleCondition evening;
    evening.kind = RuleCondition::Kind::Time;
    evening.fromMinute = 18 * 60;
    evening.toMinute = 22 * 60;
    add(QStringLiteral("evening"), evening, layout(QStringLiteral("Night")));
    ASSERT_TRUE(watch->nextBoundaryIn());
    EXPECT_DOUBLE_EQ(*watch->nextBoundaryIn(), 8 * 3600.0);
    const std::uint64_t before = scheduler.firedCount();
    scheduler.advance(8 * 3600.0 - 1);
    EXPECT_EQ(scheduler.firedCount(), before);
    EXPECT_EQ(effects.layout, QStringLiteral("Home"));
    scheduler.advance(1);
    EXPECT_EQ(effects.layout, QStringLiteral("Night"));
    EXPECT_DOUBLE_EQ(*watch->nextBoundaryIn(), 4 * 3600.0);
    scheduler.advance(4 * 3600.0);
    EXPECT_EQ(effects.layout, QStringLiteral("Home"));
    EXPECT_EQ(scheduler.firedCount(), before + 2);
    // Another time zone: 21:00 there, within the evening, and its end is an hour away.
    situation.setTimeZone(QTimeZone::utc());
    EXPECT_EQ(effects.layout, QStringLiteral("Night"));
    EXPECT_DOUBLE_EQ(*watch->nextBoundaryIn(), 3600.0);
}

TEST_F(RuleEngineTest, GivesBackWhatTheUserHadUnlessTheyChangedItMeanwhile)
{
    start();
    add(QStringLiteral("desk"), display(), layout(QStringLiteral("Desk")));
    RuleAction show;
    show.kind = RuleAction::Kind::ShowItem;
    show.text = QStringLiteral("n:Mail");
    RuleAction grid;
    grid.kind = RuleAction::Kind::PanelStyle;
    grid.text = QStringLiteral("grid");
    std::vector<Rule> rules = book->rules();
    rules[0].actions.push_back(show);
    rules[0].actions.push_back(grid);
    effects.placements.insert(QStringLiteral("n:Mail"), ItemPlacement::Off);
    book->setRules(rules);

    desktop.plugInScreen({});
    EXPECT_EQ(effects.layout, QStringLiteral("Desk"));
    EXPECT_EQ(effects.placements.value(QStringLiteral("n:Mail")), ItemPlacement::Bar);
    EXPECT_EQ(effects.style, QStringLiteral("grid"));
    // The user picks another style while the rule holds: theirs stays afterwards.
    effects.style = QStringLiteral("capsules");
    desktop.removeScreen(1);
    EXPECT_EQ(effects.layout, QStringLiteral("Home"));
    EXPECT_EQ(effects.placements.value(QStringLiteral("n:Mail")), ItemPlacement::Off);
    EXPECT_EQ(effects.style, QStringLiteral("capsules"));
    EXPECT_TRUE(defaults.persistentValue(RuleEngine::stateKey).isNull());
}

TEST_F(RuleEngineTest, UndoesAfterARestartWhatItDidBefore)
{
    start();
    add(QStringLiteral("desk"), display(), layout(QStringLiteral("Desk")));
    desktop.plugInScreen({});
    EXPECT_EQ(effects.layout, QStringLiteral("Desk"));
    // Ravlin quits; the display goes while it is not running; it starts again.
    engine.reset();
    watch.reset();
    book.reset();
    desktop.removeScreen(1);
    start();
    EXPECT_EQ(effects.layout, QStringLiteral("Home"));
}

TEST_F(RuleEngineTest, RevealsOnlyWhenARuleComesIntoForceAndSkipsMissingLayouts)
{
    desktop.plugInScreen({});
    start();
    RuleAction reveal;
    reveal.kind = RuleAction::Kind::Reveal;
    reveal.seconds = 20;
    add(QStringLiteral("desk"), display(), reveal);
    EXPECT_EQ(effects.reveals, QList<int>{20});
    situation.setFocus(QStringLiteral("Work")); // heard of by nobody: nothing again
    EXPECT_EQ(effects.reveals, QList<int>{20});
    add(QStringLiteral("gone"), display(), layout(QStringLiteral("Deleted")));
    EXPECT_EQ(effects.layout, QStringLiteral("Home"));
    EXPECT_TRUE(effects.switches.isEmpty());
}
