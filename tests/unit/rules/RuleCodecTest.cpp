// Rules as the settings keep them: written and read back as they were, what another version
// wrote kept unchanged, and damaged parts kept as they are without ever widening a rule.
#include "core/rules/RuleBook.h"
#include "core/rules/RuleCodec.h"
#include "core/rules/RuleEvaluator.h"
#include "foundation/DefaultsStore.h"

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

PlistDict dict(std::initializer_list<std::pair<const char*, PlistValue>> entries)
{
    PlistDict d;
    for (const auto& [key, value] : entries)
        d.insert(QString::fromLatin1(key), value);
    return d;
}

std::vector<Rule> everyKind()
{
    Rule rule;
    rule.id = QStringLiteral("r1");
    rule.name = QStringLiteral("Büro");
    const std::vector<RuleCondition::Kind> kinds = {
        RuleCondition::Kind::Display, RuleCondition::Kind::Power, RuleCondition::Kind::Wifi,
        RuleCondition::Kind::Application, RuleCondition::Kind::Focus, RuleCondition::Kind::Time};
    for (RuleCondition::Kind kind : kinds) {
        RuleCondition c;
        c.kind = kind;
        c.on = kind != RuleCondition::Kind::Power;
        c.text = kind == RuleCondition::Kind::Focus ? QString() : QStringLiteral("x y");
        c.frontmost = kind == RuleCondition::Kind::Application;
        c.fromMinute = kind == RuleCondition::Kind::Time ? 22 * 60 : 0;
        c.toMinute = kind == RuleCondition::Kind::Time ? 6 * 60 + 15 : 0;
        if (kind != RuleCondition::Kind::Wifi && kind != RuleCondition::Kind::Application)
            c.text.clear();
        rule.conditions.push_back(c);
    }
    for (RuleAction::Kind kind : {RuleAction::Kind::Layout, RuleAction::Kind::ShowItem,
                                  RuleAction::Kind::Reveal, RuleAction::Kind::PanelStyle}) {
        RuleAction a;
        a.kind = kind;
        a.text = kind == RuleAction::Kind::Reveal ? QString() : QStringLiteral("v");
        a.seconds = kind == RuleAction::Kind::Reveal ? 45 : 30;
        rule.actions.push_back(a);
    }
    Rule off = rule;
    off.id = QStringLiteral("r2");
    off.name.clear();
    off.enabled = false;
    return {rule, off};
}

} // namespace

TEST(RuleCodec, WritesAndReadsEveryKindAsItWas)
{
    const std::vector<Rule> rules = everyKind();
    EXPECT_EQ(RuleCodec::fromPlist(RuleCodec::toPlist(rules)), rules);
}

TEST(RuleCodec, KeepsWhatAnotherVersionWroteAndWritesItBackUnchanged)
{
    const PlistValue later = dict({{"kind", QStringLiteral("bluetooth")}, {"device", QStringLiteral("Pods")}});
    const PlistValue laterAction = dict({{"kind", QStringLiteral("dim")}, {"level", 3}});
    const PlistArray stored = {dict({{"id", QStringLiteral("a")},
                                     {"when", PlistArray{later}},
                                     {"then", PlistArray{laterAction}}})};
    const std::vector<Rule> rules = RuleCodec::fromPlist(stored);
    ASSERT_EQ(rules.size(), 1u);
    ASSERT_EQ(rules[0].conditions.size(), 1u);
    EXPECT_EQ(rules[0].conditions[0].kind, RuleCondition::Kind::Unknown);
    EXPECT_EQ(rules[0].actions[0].kind, RuleAction::Kind::Unknown);
    // Never in force: what such a condition means is not known here.
    const PlistValue written = RuleCodec::toPlist(rules);
    EXPECT_EQ((*written.asArray())[0][QStringLiteral("when")], PlistValue(PlistArray{later}));
    EXPECT_EQ((*written.asArray())[0][QStringLiteral("then")], PlistValue(PlistArray{laterAction}));
}

TEST(RuleCodec, KeepsWhatCannotBeReadAndNeverLetsItWidenARule)
{
    const PlistValue badTime = dict({{"kind", QStringLiteral("time")},
                                     {"from", QStringLiteral("25:00")},
                                     {"to", QStringLiteral("06:00")}});
    const PlistValue noNetwork = dict({{"kind", QStringLiteral("wifi")}});
    const PlistValue sun = dict({{"kind", QStringLiteral("power")}, {"source", QStringLiteral("sun")}});
    const PlistValue noSeconds = dict({{"kind", QStringLiteral("reveal")}});
    const PlistArray stored = {
        PlistValue(7),
        dict({{"name", QStringLiteral("no id")}, {"when", PlistArray{dict({{"kind", QStringLiteral("display")}})}}}),
        dict({{"id", QStringLiteral("a")},
              {"when", PlistArray{badTime, noNetwork, sun, dict({{"kind", QStringLiteral("display")}})}},
              {"then", PlistArray{dict({{"kind", QStringLiteral("reveal")}, {"seconds", 100000}}),
                                  dict({{"kind", QStringLiteral("layout")}, {"name", QStringLiteral("  ")}}),
                                  noSeconds}}}),
        dict({{"id", QStringLiteral("a")}}),     // the same id again
        dict({{"id", QStringLiteral("rule1")}}), // the id the first would be given
    };
    const std::vector<Rule> rules = RuleCodec::fromPlist(stored);
    // Only the entry that is no rule at all is left out; the others get ids of their own.
    ASSERT_EQ(rules.size(), 4u);
    EXPECT_EQ(rules[0].id, QStringLiteral("rule2"));
    EXPECT_EQ(rules[0].name, QStringLiteral("no id"));
    EXPECT_EQ(rules[1].id, QStringLiteral("a"));
    EXPECT_EQ(rules[2].id, QStringLiteral("rule3"));
    EXPECT_EQ(rules[3].id, QStringLiteral("rule1"));
    // The conditions that cannot be read stay: left out, the rule would hold whenever a display
    // is connected, which is not what was written.
    const Rule& a = rules[1];
    ASSERT_EQ(a.conditions.size(), 4u);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(a.conditions[std::size_t(i)].kind, RuleCondition::Kind::Unknown) << i;
    EXPECT_EQ(a.conditions[3].kind, RuleCondition::Kind::Display);
    Circumstances twoDisplays;
    twoDisplays.displays = 2;
    EXPECT_FALSE(RuleEvaluator::inForce(a, twoDisplays));
    EXPECT_TRUE(RuleEvaluator::inForce(rules[0], twoDisplays));
    ASSERT_EQ(a.actions.size(), 3u);
    EXPECT_EQ(a.actions[0].seconds, Rule::longestReveal);
    // A name not filled in yet is kept: the action does nothing until it is.
    EXPECT_EQ(a.actions[1].kind, RuleAction::Kind::Layout);
    EXPECT_TRUE(a.actions[1].text.isEmpty());
    EXPECT_EQ(a.actions[2].kind, RuleAction::Kind::Unknown);
    // Written back, what could not be read is as it was.
    const PlistValue written = RuleCodec::toPlist(rules);
    const PlistArray when = *(*written.asArray())[1][QStringLiteral("when")].asArray();
    EXPECT_EQ(when[0], badTime);
    EXPECT_EQ(when[1], noNetwork);
    EXPECT_EQ(when[2], sun);
    EXPECT_EQ((*(*written.asArray())[1][QStringLiteral("then")].asArray())[2], noSeconds);
    EXPECT_TRUE(RuleCodec::fromPlist(PlistValue(QStringLiteral("rules"))).empty());
    const std::vector<Rule> odd = RuleCodec::fromPlist(PlistArray{
        dict({{"id", QStringLiteral("b")},
              {"when", PlistArray{dict({{"kind", QStringLiteral("display")},
                                        {"connected", QStringLiteral("yes")}})}}})});
    ASSERT_EQ(odd.size(), 1u);
    EXPECT_EQ(odd[0].conditions[0].kind, RuleCondition::Kind::Unknown);
}

TEST(RuleCodec, ReadsAtMostFiftyRulesOfTenParts)
{
    PlistArray many;
    PlistArray conditions(30, dict({{"kind", QStringLiteral("display")}}));
    for (int i = 0; i < 80; ++i)
        many.push_back(dict({{"id", QStringLiteral("r%1").arg(i)}, {"when", conditions}}));
    const std::vector<Rule> rules = RuleCodec::fromPlist(many);
    ASSERT_EQ(int(rules.size()), RuleCodec::maxRules);
    EXPECT_EQ(int(rules.front().conditions.size()), Rule::maxConditions);
}

TEST(RuleBook, AdoptsTheLayoutSwitchesOfEarlierVersionsOnce)
{
    InMemoryDefaultsStore defaults;
    defaults.set(QStringLiteral("ravlin.layoutOnDisplay"), QStringLiteral("Desk"));
    defaults.set(QStringLiteral("ravlin.layoutOnBattery"), QString());
    RuleBook book(defaults);
    int told = 0;
    QObject::connect(&book, &RuleBook::changed, [&] { ++told; });
    book.adoptLayoutSwitches();
    ASSERT_EQ(book.rules().size(), 1u);
    EXPECT_EQ(book.rules()[0].id, RuleBook::displayRuleId);
    EXPECT_EQ(book.occasionLayout(RuleBook::displayRuleId), QStringLiteral("Desk"));
    EXPECT_TRUE(defaults.persistentValue(QStringLiteral("ravlin.layoutOnDisplay")).isNull());
    EXPECT_TRUE(defaults.persistentValue(QStringLiteral("ravlin.layoutOnBattery")).isNull());
    book.adoptLayoutSwitches();
    EXPECT_EQ(book.rules().size(), 1u);
    EXPECT_EQ(told, 1);
    // The occasion's rule is changed in place, and goes with "off".
    book.setOccasionLayout(RuleBook::displayRuleId, QStringLiteral("Away"));
    EXPECT_EQ(book.occasionLayout(RuleBook::displayRuleId), QStringLiteral("Away"));
    book.setOccasionLayout(RuleBook::batteryRuleId, QStringLiteral("Away"));
    EXPECT_EQ(book.rules().size(), 2u);
    book.setOccasionLayout(RuleBook::displayRuleId, QString());
    ASSERT_EQ(book.rules().size(), 1u);
    EXPECT_EQ(book.rules()[0].id, RuleBook::batteryRuleId);
    EXPECT_EQ(book.freshId(), QStringLiteral("rule1"));
}
