#include "TestSupport.h"

#include "platform/linux/XdgLoginItems.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace ravlin;

TEST(XdgLoginItems, RegisteringWritesAnAutostartEntryAndUnregisteringRemovesIt)
{
    QTemporaryDir dir;
    XdgLoginItems items(QStringLiteral("/opt/ravlin dir/ravlin"),
                        dir.filePath(QStringLiteral("autostart/de.vexa.Ravlin.desktop")));
    EXPECT_EQ(items.status(), LoginItemStatus::NotRegistered);
    EXPECT_FALSE(items.registerItem().has_value());
    EXPECT_EQ(items.status(), LoginItemStatus::Enabled);
    QFile entry(items.entryPath());
    ASSERT_TRUE(entry.open(QIODevice::ReadOnly));
    const QByteArray text = entry.readAll();
    EXPECT_TRUE(text.contains("Exec=\"/opt/ravlin dir/ravlin\""));
    EXPECT_TRUE(text.startsWith("[Desktop Entry]"));
    EXPECT_FALSE(items.unregisterItem().has_value());
    EXPECT_EQ(items.status(), LoginItemStatus::NotRegistered);
}

TEST(XdgLoginItems, AHiddenEntryIsNotEnabledAndAnUnwritablePlaceReportsAnError)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("de.vexa.Ravlin.desktop"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[Desktop Entry]\nType=Application\nHidden=true\n");
    file.close();
    EXPECT_EQ(XdgLoginItems(QStringLiteral("/x"), path).status(), LoginItemStatus::NotRegistered);

    XdgLoginItems blocked(QStringLiteral("/x"),
                          path + QStringLiteral("/inside/entry.desktop")); // parent is a file
    const auto error = blocked.registerItem();
    ASSERT_TRUE(error.has_value());
    EXPECT_FALSE(error->isEmpty());
}
