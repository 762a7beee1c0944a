// Which conditions hold, which rules are in force and what they want together, which events
// they need, and when the next time condition turns.
#include "core/rules/FocusModeReading.h"
#include "core/rules/RuleEvaluator.h"

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

RuleCondition condition(RuleCondition::Kind kind, QString text = {}, bool on = true)
{
    RuleCondition c;
    c.kind = kind;
    c.text = std::move(text);
    c.on = on;
    return c;
}

RuleCondition between(int from, int to)
{
    RuleCondition c = condition(RuleCondition::Kind::Time);
    c.fromMinute = from;
    c.toMinute = to;
    return c;
}

Rule rule(QString id, std::vector<RuleCondition> when, std::vector<RuleAction> then)
{
    Rule r;
    r.id = std::move(id);
    r.conditions = std::move(when);
    r.actions = std::move(then);
    return r;
}

RuleAction action(RuleAction::Kind kind, QString text = {})
{
    RuleAction a;
    a.kind = kind;
    a.text = std::move(text);
    return a;
}

} // namespace

TEST(RuleEvaluator, EachConditionHoldsOnlyInItsOwnCircumstance)
{
    Circumstances now;
    now.displays = 2;
    now.wifi = QStringLiteral("Office");
    now.running = {QStringLiteral("com.example.meet")};
    now.frontmost = QStringLiteral("com.example.notes");
    now.focus = QStringLiteral("Work");
    EXPECT_TRUE(RuleEvaluator::holds(condition(RuleCondition::Kind::Display), now));
    EXPECT_FALSE(RuleEvaluator::holds(condition(RuleCondition::Kind::Display, {}, false), now));
    // A Mac that does not say what it runs on counts as on external power.
    EXPECT_FALSE(RuleEvaluator::holds(condition(RuleCondition::Kind::Power), now));
    EXPECT_TRUE(RuleEvaluator::holds(condition(RuleCondition::Kind::Power, {}, false), now));
    EXPECT_TRUE(RuleEvaluator::holds(condition(RuleCondition::Kind::Wifi, QStringLiteral("Office")), now));
    // Network names are told apart by case, as the system does.
    EXPECT_FALSE(RuleEvaluator::holds(condition(RuleCondition::Kind::Wifi, QStringLiteral("office")), now));
    EXPECT_TRUE(RuleEvaluator::holds(
        condition(RuleCondition::Kind::Application, QStringLiteral("com.example.meet")), now));
    RuleCondition front = condition(RuleCondition::Kind::Application, QStringLiteral("com.example.meet"));
    front.frontmost = true;
    EXPECT_FALSE(RuleEvaluator::holds(front, now));
    front.text = QStringLiteral("com.example.notes");
    EXPECT_TRUE(RuleEvaluator::holds(front, now));
    EXPECT_TRUE(RuleEvaluator::holds(condition(RuleCondition::Kind::Focus), now));
    EXPECT_TRUE(RuleEvaluator::holds(condition(RuleCondition::Kind::Focus, QStringLiteral("work")), now));
    EXPECT_FALSE(RuleEvaluator::holds(condition(RuleCondition::Kind::Focus, QStringLiteral("Sleep")), now));
    // No Focus on, or records that cannot be read: no Focus condition holds.
    now.focus = QString();
    EXPECT_FALSE(RuleEvaluator::holds(condition(RuleCondition::Kind::Focus), now));
    now.focus.reset();
    EXPECT_FALSE(RuleEvaluator::holds(condition(RuleCondition::Kind::Focus), now));
    EXPECT_FALSE(RuleEvaluator::holds(condition(RuleCondition::Kind::Unknown), now));
}

TEST(RuleEvaluator, TimesOfDayIncludeTheirStartAndCrossMidnight)
{
    Circumstances now;
    auto at = [&](int minute) {
        now.minuteOfDay = minute;
        return now;
    };
    const RuleCondition office = between(9 * 60, 17 * 60 + 30);
    EXPECT_FALSE(RuleEvaluator::holds(office, at(9 * 60 - 1)));
    EXPECT_TRUE(RuleEvaluator::holds(office, at(9 * 60)));
    EXPECT_TRUE(RuleEvaluator::holds(office, at(17 * 60 + 29)));
    EXPECT_FALSE(RuleEvaluator::holds(office, at(17 * 60 + 30)));
    const RuleCondition night = between(22 * 60, 6 * 60);
    EXPECT_TRUE(RuleEvaluator::holds(night, at(23 * 60)));
    EXPECT_TRUE(RuleEvaluator::holds(night, at(0)));
    EXPECT_FALSE(RuleEvaluator::holds(night, at(6 * 60)));
    EXPECT_FALSE(RuleEvaluator::holds(night, at(12 * 60)));
    // The same start and end: all day, and no moment to wake up for.
    EXPECT_TRUE(RuleEvaluator::holds(between(600, 600), at(3)));
    EXPECT_TRUE(RuleEvaluator::needs({rule(QStringLiteral("a"), {between(600, 600)}, {})}).boundaries.empty());
}

TEST(RuleEvaluator, TheLaterRuleWinsAndItemsAddUp)
{
    Circumstances now;
    now.displays = 2;
    std::vector<Rule> rules = {
        rule(QStringLiteral("a"), {condition(RuleCondition::Kind::Display)},
             {action(RuleAction::Kind::Layout, QStringLiteral("Desk")),
              action(RuleAction::Kind::ShowItem, QStringLiteral("n:Mail")),
              action(RuleAction::Kind::PanelStyle, QStringLiteral("grid"))}),
        rule(QStringLiteral("b"), {condition(RuleCondition::Kind::Power, {}, false)},
             {action(RuleAction::Kind::Layout, QStringLiteral("Plugged")),
              action(RuleAction::Kind::ShowItem, QStringLiteral("n:Sync")),
              action(RuleAction::Kind::ShowItem, QStringLiteral("n:Mail"))}),
        // Not in force: off, and one without any condition.
        rule(QStringLiteral("c"), {condition(RuleCondition::Kind::Display)},
             {action(RuleAction::Kind::Layout, QStringLiteral("Never"))}),
        rule(QStringLiteral("d"), {}, {action(RuleAction::Kind::Layout, QStringLiteral("Never"))}),
    };
    rules[2].enabled = false;
    const RuleOutcome out = RuleEvaluator::outcome(rules, now);
    EXPECT_EQ(out.inForce, (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_EQ(out.layout, QStringLiteral("Plugged"));
    EXPECT_EQ(out.layoutRule, QStringLiteral("b"));
    EXPECT_EQ(out.panelStyle, QStringLiteral("grid"));
    EXPECT_EQ(out.panelStyleRule, QStringLiteral("a"));
    EXPECT_EQ(out.shownItems, (QStringList{QStringLiteral("n:Mail"), QStringLiteral("n:Sync")}));
    // A rule is in force only while every condition holds.
    rules[1].conditions.push_back(condition(RuleCondition::Kind::Wifi, QStringLiteral("Home")));
    EXPECT_EQ(RuleEvaluator::outcome(rules, now).layout, QStringLiteral("Desk"));
}

TEST(RuleEvaluator, NeedsOnlyWhatEnabledRulesLookAt)
{
    RuleCondition front = condition(RuleCondition::Kind::Application, QStringLiteral("x"));
    front.frontmost = true;
    std::vector<Rule> rules = {
        rule(QStringLiteral("a"), {front, between(18 * 60, 22 * 60)}, {}),
        rule(QStringLiteral("b"), {condition(RuleCondition::Kind::Wifi, QStringLiteral("n")),
                                   between(22 * 60, 7 * 60)}, {}),
        rule(QStringLiteral("c"), {condition(RuleCondition::Kind::Focus)}, {}),
    };
    rules[2].enabled = false;
    const RuleNeeds needs = RuleEvaluator::needs(rules);
    EXPECT_TRUE(needs.frontmost);
    EXPECT_FALSE(needs.applications);
    EXPECT_TRUE(needs.wifi);
    EXPECT_FALSE(needs.focus);
    EXPECT_FALSE(needs.displays || needs.power);
    EXPECT_EQ(needs.boundaries, (std::vector<int>{7 * 60, 18 * 60, 22 * 60}));
    EXPECT_FALSE(RuleEvaluator::needs({}).any());
    // The next moment a condition turns, counted in minutes, across midnight too.
    EXPECT_EQ(RuleEvaluator::minutesToNextBoundary(needs.boundaries, 17 * 60), 60);
    EXPECT_EQ(RuleEvaluator::minutesToNextBoundary(needs.boundaries, 23 * 60), 8 * 60);
    EXPECT_EQ(RuleEvaluator::minutesToNextBoundary(needs.boundaries, 18 * 60), 4 * 60);
    EXPECT_EQ(RuleEvaluator::minutesToNextBoundary({600}, 600), 1440);
    EXPECT_FALSE(RuleEvaluator::minutesToNextBoundary({}, 0));
}

TEST(FocusModeReading, ReadsTheAssertedModeByItsNameAndNothingFromOddRecords)
{
    const QByteArray modes =
        R"({"data":[{"modeConfigurations":{"com.apple.focus.work":{"mode":{"name":"Arbeit"}}}}]})";
    EXPECT_EQ(FocusModeReading::activeMode(
                  R"({"data":[{"storeAssertionRecords":[{"assertionDetails":{"assertionDetailsModeIdentifier":"com.apple.focus.work"}}]}]})",
                  modes),
              QStringLiteral("Arbeit"));
    // A mode without a configured name is called by its identifier.
    EXPECT_EQ(FocusModeReading::activeMode(
                  R"({"data":[{"storeAssertionRecords":[{"assertionDetails":{"assertionDetailsModeIdentifier":"com.apple.donotdisturb.mode.default"}}]}]})",
                  modes),
              QStringLiteral("default"));
    EXPECT_EQ(FocusModeReading::activeMode(R"({"data":[{"storeAssertionRecords":[]}]})", modes),
              QString());
    EXPECT_EQ(FocusModeReading::activeMode(R"({"data":[{}]})", modes), QString());
    EXPECT_FALSE(FocusModeReading::activeMode("not json", modes));
    EXPECT_FALSE(FocusModeReading::activeMode(R"({"data":[]})", modes));
    EXPECT_FALSE(FocusModeReading::activeMode(QByteArray(2 * 1024 * 1024, ' '), modes));
}

TEST(RuleTimes, AreReadAsHoursAndMinutesOnly)
{
    EXPECT_EQ(minuteFromText(QStringLiteral("09:30")), 570);
    EXPECT_EQ(minuteFromText(QStringLiteral(" 7:05 ")), 425);
    EXPECT_EQ(minuteText(570), QStringLiteral("09:30"));
    for (const char* bad : {"24:00", "9:5", "12:60", "-1:00", "noon", "", "1:2:3"})
        EXPECT_FALSE(minuteFromText(QString::fromLatin1(bad))) << bad;
}
