#include "SettingsWorld.h"

#include "core/app/AppDelegate.h"
#include "platform/sim/SimDesktop.h"
#include "ui/settings/OpenSourceNotices.h"
#include "ui/settings/SettingsActions.h"
#include "ui/settings/SettingsRow.h"
#include "ui/settings/TextLabel.h"

#include <QPushButton>

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

class AboutTab : public ::testing::Test {
protected:
    void SetUp() override
    {
        world.start();
        world.open(3);
    }
    QString text(const char* name)
    {
        return world.find<TextLabel>(QString::fromLatin1(name))->plainText();
    }

    test::SettingsWorld world;
};

} // namespace

TEST_F(AboutTab, ShowsTheNameTheTaglineAndTheBuildsVersion)
{
    EXPECT_EQ(text("name"), QStringLiteral("Ravlin"));
    EXPECT_EQ(text("tagline"), QStringLiteral("A calm, tidy menu bar."));
    EXPECT_EQ(text("version"), QStringLiteral("Version " RAVLIN_VERSION));
}

TEST_F(AboutTab, NamesEveryLibraryAndFontItShipsWithAndItsLicence)
{
    QWidget* notices = world.find<QWidget>(QStringLiteral("notices"));
    ASSERT_NE(notices, nullptr);
    const QList<SettingsRow*> rows = notices->findChildren<SettingsRow*>();
    ASSERT_EQ(rows.size(), qsizetype(OpenSourceNotices::all().size()));
    QStringList names, licences;
    for (SettingsRow* row : rows) {
        names << static_cast<TextLabel*>(row->titleLabel())->plainText();
        licences << row->findChild<TextLabel*>(QStringLiteral("licence"))->plainText();
    }
    EXPECT_EQ(names, (QStringList{QStringLiteral("Qt 6"), QStringLiteral("libplist"),
                                  QStringLiteral("Material Design icon font"),
                                  QStringLiteral("Noto Sans fonts")}));
    EXPECT_EQ(licences, (QStringList{QStringLiteral("GNU LGPL v3"), QStringLiteral("GNU LGPL v2.1"),
                                     QStringLiteral("Apache License 2.0"),
                                     QStringLiteral("SIL Open Font License 1.1")}));
}

TEST_F(AboutTab, TheControlCentreLinkOpensTheSystemsSettings)
{
    world.session().desktop().takeOpened();
    world.find<QPushButton>(QStringLiteral("controlCenter"))->click();
    EXPECT_EQ(world.session().desktop().takeOpened(),
              QStringList{SettingsActions::controlCentreURL});
}
