// The item spacing control: the preview follows the fields before anything is stored, Apply
// and Reset write the system's settings, the offer names the apps that can restart, and where
// the system draws its own items the note says they keep their spacing.
#include "SettingsWorld.h"

#include "core/app/AppDelegate.h"
#include "platform/sim/SimMenuBarSpacing.h"
#include "ui/settings/NumberField.h"
#include "ui/settings/SettingsRow.h"
#include "ui/settings/SpacingPreview.h"
#include "ui/settings/TextLabel.h"

#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

QString shown(QLabel* label)
{
    auto* t = qobject_cast<TextLabel*>(label);
    return t ? t->plainText() : label->text();
}

bool notesSay(test::SettingsWorld& world, const QString& text)
{
    for (QLabel* label : world.window().view()->findChildren<QLabel*>())
        if (shown(label).contains(text))
            return true;
    return false;
}

} // namespace

TEST(ItemSpacingSection, PreviewsAppliesAndResets)
{
    test::SettingsWorld world;
    world.script(QStringLiteral("app com.example.sync \"Sync\" policy=accessory\n"
                                "item com.example.sync \"Sync Status\"\nspacing system 12 8\n"));
    world.start();
    world.open(1);
    auto* spacing = world.find<NumberField>(QStringLiteral("itemSpacing"));
    auto* padding = world.find<NumberField>(QStringLiteral("itemPadding"));
    auto* preview = world.find<SpacingPreview>(QStringLiteral("spacingPreview"));
    ASSERT_TRUE(spacing && padding && preview);
    EXPECT_EQ(spacing->value(), 12);
    EXPECT_EQ(shown(world.find<QLabel>(QStringLiteral("spacingState"))),
              QStringLiteral("Now: 12 and 8 points"));
    spacing->spinBox()->setValue(4);
    EXPECT_EQ(preview->spacing(), 4);
    EXPECT_EQ(world.session().menuBarSpacing().writes(), 0);
    world.find<QPushButton>(QStringLiteral("spacingApply"))->click();
    EXPECT_EQ(world.session().menuBarSpacing().stored(), (SpacingValues{4, 8}));
    auto* offer = world.find<SettingsRow>(QStringLiteral("spacingOffer"));
    ASSERT_NE(offer, nullptr);
    EXPECT_TRUE(offer->isVisibleTo(world.window().view()));
    EXPECT_TRUE(shown(offer->hintLabel()).contains(QStringLiteral("Sync")));
    world.find<QPushButton>(QStringLiteral("spacingReset"))->click();
    EXPECT_TRUE(world.session().menuBarSpacing().stored().isDefault());
    EXPECT_EQ(spacing->value(), 16);
    EXPECT_EQ(shown(world.find<QLabel>(QStringLiteral("spacingState"))),
              QStringLiteral("Now: system default"));
    EXPECT_FALSE(notesSay(world, QStringLiteral("keep their spacing")));
}

TEST(ItemSpacingSection, SaysWhereTheSystemsOwnItemsKeepTheirSpacing)
{
    test::SettingsWorld world;
    world.script(QStringLiteral("system 27\n"));
    world.start();
    world.open(1);
    EXPECT_TRUE(notesSay(world, QStringLiteral("keep their spacing")));
}
