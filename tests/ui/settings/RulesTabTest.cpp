// The Rules tab: a rule is written through its controls, moved, switched off and deleted; the
// tab follows rules changed elsewhere and says which rule is in force.
#include "SettingsWorld.h"

#include "core/app/AppDelegate.h"
#include "core/rules/Rules.h"
#include "ui/settings/PopupButton.h"
#include "ui/settings/SettingsRow.h"
#include "ui/settings/TextLabel.h"
#include "ui/settings/ToggleSwitch.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

class RulesTabTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        world.typicalDesktop();
        world.start();
        world.script(QStringLiteral("placement \"%1\" bar\nlayout save Desk\n")
                         .arg(world.keyOf(QStringLiteral("Chat"))));
        world.open(4);
    }
    std::vector<Rule> rules() { return world.app().rules()->book().rules(); }
    template <class T> T* control(const QString& name)
    {
        T* found = world.find<T>(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return found;
    }
    void pick(const QString& name, const QString& data)
    {
        auto* popup = control<PopupButton>(name);
        const int index = popup->findData(data);
        ASSERT_GE(index, 0) << data.toStdString();
        popup->setCurrentIndex(index);
        Q_EMIT popup->activated(index);
        world.advance(0.1);
    }
    void type(const QString& name, const QString& text)
    {
        auto* field = control<QLineEdit>(name);
        field->setText(text);
        Q_EMIT field->editingFinished();
        world.advance(0.1);
    }
    void press(const QString& name)
    {
        control<QPushButton>(name)->click();
        world.advance(0.1);
    }

    test::SettingsWorld world;
};

} // namespace

TEST_F(RulesTabTest, WritesARuleThroughItsControls)
{
    EXPECT_EQ(world.window().view()->windowTitle(), QStringLiteral("Rules"));
    press(QStringLiteral("rules.add"));
    ASSERT_EQ(rules().size(), 1u);
    EXPECT_EQ(rules()[0].conditions[0].kind, RuleCondition::Kind::Display);
    type(QStringLiteral("rule0.name"), QStringLiteral("Office"));
    pick(QStringLiteral("rule0.addCondition"), QStringLiteral("wifi"));
    type(QStringLiteral("rule0.condition1"), QStringLiteral("Office-Net"));
    pick(QStringLiteral("rule0.addCondition"), QStringLiteral("time"));
    type(QStringLiteral("rule0.condition2"), QStringLiteral("08:30"));
    type(QStringLiteral("rule0.condition2.to"), QStringLiteral("not a time"));
    // A time it cannot read changes nothing, and the field says so at once.
    EXPECT_EQ(control<QLineEdit>(QStringLiteral("rule0.condition2.to"))->text(), QStringLiteral("17:00"));
    pick(QStringLiteral("rule0.addAction"), QStringLiteral("layout"));
    pick(QStringLiteral("rule0.action0"), QStringLiteral("Desk"));
    pick(QStringLiteral("rule0.addAction"), QStringLiteral("reveal"));
    // The number of seconds says what it counts.
    EXPECT_EQ(static_cast<TextLabel*>(control<QLabel>(QStringLiteral("rule0.action1.unit")))->plainText(),
              QStringLiteral("seconds"));
    press(QStringLiteral("rule0.condition0.remove"));
    const Rule rule = rules().at(0);
    EXPECT_EQ(rule.name, QStringLiteral("Office"));
    ASSERT_EQ(rule.conditions.size(), 2u);
    EXPECT_EQ(rule.conditions[0].text, QStringLiteral("Office-Net"));
    EXPECT_EQ(rule.conditions[1].fromMinute, 8 * 60 + 30);
    EXPECT_EQ(rule.conditions[1].toMinute, 17 * 60); // a time it cannot read changes nothing
    ASSERT_EQ(rule.actions.size(), 2u);
    EXPECT_EQ(rule.actions[0].text, QStringLiteral("Desk"));
    EXPECT_EQ(rule.actions[1].kind, RuleAction::Kind::Reveal);
    // The group is headed by the rule's name; its controls show what is stored.
    EXPECT_EQ(control<QLineEdit>(QStringLiteral("rule0.condition1"))->text(), QStringLiteral("08:30"));
    QStringList headings;
    for (QLabel* l : world.window().view()->findChildren<QLabel*>(QStringLiteral("heading")))
        if (auto* t = qobject_cast<TextLabel*>(l); t && l->isVisibleTo(l->window()))
            headings << t->plainText();
    EXPECT_TRUE(headings.contains(QStringLiteral("Office")));
}

TEST_F(RulesTabTest, MovesSwitchesOffAndDeletesRulesAndShowsTheOneInForce)
{
    world.script(QStringLiteral("rule add a when ac then style=grid\n"
                                "rule add b when battery then style=strip\n"));
    world.advance(0.1);
    EXPECT_EQ(control<QLabel>(QStringLiteral("rule0.state"))->isVisibleTo(world.window().view()), true);
    EXPECT_EQ(static_cast<TextLabel*>(control<QLabel>(QStringLiteral("rule0.state")))->plainText(),
              QStringLiteral("In force now"));
    EXPECT_FALSE(control<QPushButton>(QStringLiteral("rule0.up"))->isEnabled());
    EXPECT_FALSE(control<QPushButton>(QStringLiteral("rule1.down"))->isEnabled());
    press(QStringLiteral("rule1.up"));
    EXPECT_EQ(rules()[0].id, QStringLiteral("b"));
    control<ToggleSwitch>(QStringLiteral("rule1.enabled"))->click();
    world.advance(0.1);
    EXPECT_FALSE(rules()[1].enabled);
    EXPECT_TRUE(world.app().rules()->engine().outcome().inForce.isEmpty());
    press(QStringLiteral("rule0.delete"));
    ASSERT_EQ(rules().size(), 1u);
    EXPECT_EQ(rules()[0].id, QStringLiteral("a"));
}
