#include "support/SimWorld.h"

#include "core/settings/PrefKey.h"
#include "core/tiles/BarItemFactory.h"

#include <gtest/gtest.h>

using namespace ravlin;
using namespace ravlin::test;

namespace {

class BarItemFactoryTest : public ::testing::Test {
protected:
    SimWorld w;
    BarItemFactory& factory() { return w.services().itemFactory(); }

    std::int64_t put(const QString& bundle, const QString& appName, const QString& title)
    {
        if (!w.desktop.app(bundle))
            w.app(bundle, appName);
        return w.item(bundle, title);
    }
    MenuBarItemInfo info(std::int64_t window)
    {
        const SimPlacedItem p = w.placed(window);
        return {window,         p.frame.x,    p.frame.y,   p.frame.width,
                p.frame.height, p.item.owner, p.item.title};
    }
    std::optional<BarItem> make(std::int64_t window) { return factory().makeItem(info(window)); }
};

ResolvedItem resolved(std::optional<QString> title, std::optional<QString> bundle = std::nullopt,
                      std::optional<QString> app = std::nullopt)
{
    return {std::move(title), std::move(bundle), std::move(app), 42};
}

} // namespace

TEST_F(BarItemFactoryTest, NeverMakesTilesOfOwnClockControlCentreOrStatisticsItems)
{
    const auto own = w.desktop.addOwnItem(QStringLiteral("Ravlin.Main"), 24);
    const auto foreignNamed =
        put(QStringLiteral("com.example.x"), QStringLiteral("X"), QStringLiteral("Ravlin.Copy"));
    const auto istat = put(QStringLiteral("com.bjango.istatmenus"), QStringLiteral("iStat"),
                           QStringLiteral("com.bjango.istatmenus.cpu"));
    const auto clock = put(QStringLiteral("com.apple.controlcenter"), QStringLiteral("CC"),
                           QStringLiteral("Clock"));
    const auto bento = put(QStringLiteral("com.apple.controlcenter"), QStringLiteral("CC"),
                           QStringLiteral("BentoBox-0"));
    for (auto id : {own, foreignNamed, istat, clock, bento})
        EXPECT_FALSE(make(id)) << id;
}

TEST_F(BarItemFactoryTest, DropsItemsResolvingToThisApplicationAndTheRecordingIndicator)
{
    const auto recording =
        put(QStringLiteral("com.apple.controlcenter"), QStringLiteral("Control Center"),
            QStringLiteral("com.apple.menuextra.screencapture"));
    w.itemRef(recording).ax.title = QStringLiteral("Bildschirmaufnahme läuft");
    EXPECT_FALSE(make(recording));
    // An own window whose owner name the window server got wrong still resolves to this
    // application.
    SimItem own;
    own.bundleId = SimDesktop::ownBundleId;
    own.owner = QStringLiteral("Helper");
    own.title = QStringLiteral("Item-0");
    EXPECT_FALSE(make(w.desktop.addItem(own)));
}

// The battery's item is one the user can hide and place like any other, beside the panel's
// battery statistic.
TEST_F(BarItemFactoryTest, TheBatteryItemIsAnItemLikeAnyOther)
{
    const auto akku = put(QStringLiteral("com.apple.controlcenter"), QStringLiteral("CC"),
                          QStringLiteral("com.apple.menuextra.battery"));
    w.itemRef(akku).ax.title = QStringLiteral("Akku, 80 %");
    ASSERT_TRUE(make(akku));
    EXPECT_EQ(make(akku)->label, QStringLiteral("Akku"));
    EXPECT_EQ(make(akku)->symbolName, QStringLiteral("battery.100"));
    // Another application's weather item is a tile all the same.
    const auto weather = put(QStringLiteral("com.example.weather"), QStringLiteral("Weather Pro"),
                             QStringLiteral("Item-0"));
    ASSERT_TRUE(make(weather));
    EXPECT_EQ(make(weather)->label, QStringLiteral("Weather Pro"));
}

TEST_F(BarItemFactoryTest, SystemItemTitlesAreCutAtTheCommaAndGetASymbol)
{
    const auto wifi =
        put(QStringLiteral("com.apple.controlcenter"), QStringLiteral("Control Center"),
            QStringLiteral("com.apple.menuextra.wifi"));
    w.itemRef(wifi).ax.title = QStringLiteral("Wi-Fi, connected");
    const auto item = make(wifi);
    ASSERT_TRUE(item);
    EXPECT_EQ(item->label, QStringLiteral("Wi-Fi"));
    EXPECT_TRUE(item->isApple);
    EXPECT_EQ(item->symbolName, QStringLiteral("wifi"));
    EXPECT_EQ(item->key, QStringLiteral("n:com.apple.menuextra.wifi"));
    EXPECT_TRUE(item->image.has_value());
}

TEST_F(BarItemFactoryTest, OtherApplicationsAreLabelledByTheirCleanedNameWithoutSymbol)
{
    const auto foo = put(QStringLiteral("com.example.foo"), QStringLiteral("Foo Helper Agent"),
                         QStringLiteral("Item-0"));
    const auto item = make(foo);
    ASSERT_TRUE(item);
    EXPECT_EQ(item->label, QStringLiteral("Foo Helper"));
    EXPECT_FALSE(item->isApple);
    EXPECT_FALSE(item->symbolName);
    EXPECT_EQ(item->key, QStringLiteral("b:com.example.foo#Item-0"));
}

TEST_F(BarItemFactoryTest, AnAppleBundleMakesASystemItem)
{
    const auto agent = put(QStringLiteral("com.apple.TextInputMenuAgent"),
                           QStringLiteral("TextInputMenuAgent"), QStringLiteral("Item-0"));
    const auto item = make(agent);
    ASSERT_TRUE(item);
    EXPECT_TRUE(item->isApple);
    EXPECT_EQ(item->label, w.language().L(QStringLiteral("sysitem.inputmenu")));
}

TEST_F(BarItemFactoryTest, LabelRulesInOrder)
{
    auto label = [&](const QString& name, std::optional<ResolvedItem> r, bool apple) {
        return factory().label({1, 0, 0, 22, 24, QStringLiteral("Owner"), name}, r, apple);
    };
    EXPECT_EQ(label(QStringLiteral("com.bjango.istatmenus.mem"), std::nullopt, false),
              QStringLiteral("iStat · mem"));
    EXPECT_EQ(label(QStringLiteral("WiFi"), resolved(QStringLiteral("Other")), true),
              w.language().L(QStringLiteral("sysitem.wifi")));
    EXPECT_EQ(label(QStringLiteral("Bluetooth"), std::nullopt, true), QStringLiteral("Bluetooth"));
    // The control centre's name is no label; the title is used instead.
    EXPECT_EQ(label(QStringLiteral("Item-0"),
                    resolved(QStringLiteral("Focus, on"), std::nullopt,
                             QStringLiteral("Kontrollzentrum")),
                    false),
              QStringLiteral("Focus"));
    EXPECT_EQ(label(QStringLiteral("Sync"), resolved(std::nullopt), false), QStringLiteral("Sync"));
    EXPECT_EQ(label(QStringLiteral("Item-0"), resolved(std::nullopt), false), QString());
    EXPECT_EQ(label(QString(), std::nullopt, false), QString());
}

TEST_F(BarItemFactoryTest, ApplicationNamesLoseOneSuffixAndKnownBrowsersTheirVendor)
{
    EXPECT_EQ(BarItemFactory::cleanAppName(QStringLiteral("Foo Helper Agent")),
              QStringLiteral("Foo Helper"));
    EXPECT_EQ(BarItemFactory::cleanAppName(QStringLiteral("Helper")), QStringLiteral("Helper"));
    EXPECT_EQ(BarItemFactory::cleanAppName(QStringLiteral("Google Chrome Helper")),
              QStringLiteral("Google Chrome"));
    EXPECT_EQ(BarItemFactory::cleanAppName(QStringLiteral("Google Chrome")),
              QStringLiteral("Chrome"));
    EXPECT_EQ(BarItemFactory::cleanAppName(QStringLiteral("Microsoft Edge")),
              QStringLiteral("Edge"));
    EXPECT_EQ(BarItemFactory::cleanAppName(QStringLiteral("Renderer (GPU)")),
              QStringLiteral("Renderer"));
    EXPECT_EQ(BarItemFactory::cleanAppName(QStringLiteral("SyncAgent")), QStringLiteral("Sync"));
}

TEST_F(BarItemFactoryTest, KeysPreferTheTitleThenTheBundleThenOwnerAndLabel)
{
    const MenuBarItemInfo generic{1, 0, 0, 22, 24, QStringLiteral("Foo"), QStringLiteral("Item-0")};
    EXPECT_EQ(BarItemFactory::stableKey(
                  {1, 0, 0, 22, 24, QStringLiteral("Foo"), QStringLiteral("Sync")},
                  resolved(std::nullopt, QStringLiteral("com.foo")), QStringLiteral("L")),
              QStringLiteral("n:Sync"));
    EXPECT_EQ(BarItemFactory::stableKey(generic, resolved(std::nullopt, QStringLiteral("com.foo")),
                                        QStringLiteral("L")),
              QStringLiteral("b:com.foo#Item-0"));
    // Two unidentifiable items of one owner are told apart by their labels only.
    EXPECT_EQ(BarItemFactory::stableKey(generic, resolved(std::nullopt, QString()),
                                        QStringLiteral("Upload")),
              QStringLiteral("o:Foo#Upload"));
    EXPECT_EQ(BarItemFactory::stableKey(generic, std::nullopt, QString()),
              QStringLiteral("o:Foo#"));
}

TEST_F(BarItemFactoryTest, SymbolsFollowTheFirstMatchingRow)
{
    auto symbol = [](const QString& label, std::optional<QString> title = std::nullopt) {
        return BarItemFactory::symbol(label, resolved(std::move(title)));
    };
    EXPECT_EQ(symbol(QStringLiteral("WLAN")), QStringLiteral("wifi"));
    EXPECT_EQ(symbol(QStringLiteral("Lautstärke")), QStringLiteral("speaker.wave.2"));
    EXPECT_EQ(symbol(QStringLiteral("Button")),
              QStringLiteral("speaker.wave.2")); // "ton" inside a word
    EXPECT_EQ(symbol(QStringLiteral("Now"), QStringLiteral("Music playing")),
              QStringLiteral("play.circle"));
    EXPECT_EQ(symbol(QStringLiteral("Bluetooth Battery")), QStringLiteral("dot.radiowaves.right"));
    EXPECT_EQ(symbol(QStringLiteral("Datum")), QStringLiteral("clock"));
    EXPECT_EQ(symbol(QStringLiteral("VPN")), QStringLiteral("network"));
    EXPECT_EQ(symbol(QStringLiteral("Mystery")), QStringLiteral("circle.grid.2x2"));
}

TEST_F(BarItemFactoryTest, ALabelFoundOnceOutlivesTheItemsIdentity)
{
    const auto foo =
        put(QStringLiteral("com.example.foo"), QStringLiteral("Foo"), QStringLiteral("Item-0"));
    w.itemRef(foo).ax.title = QStringLiteral("Uploads");
    w.desktop.app(QStringLiteral("com.example.foo"))->name.clear();
    ASSERT_EQ(make(foo)->label, QStringLiteral("Uploads"));
    EXPECT_EQ(factory().cachedLabel(QStringLiteral("b:com.example.foo#Item-0")),
              QStringLiteral("Uploads"));

    // Later the element has no title any more: only the key can be formed.
    w.itemRef(foo).ax.title.reset();
    const auto later = make(foo);
    ASSERT_TRUE(later);
    EXPECT_EQ(later->label, QStringLiteral("Uploads"));
}

TEST_F(BarItemFactoryTest, AnItemThatCannotBeNamedIsDroppedUnlessItsKeyWasNamedBefore)
{
    const auto foo =
        put(QStringLiteral("com.example.foo"), QStringLiteral("Foo"), QStringLiteral("Item-0"));
    w.itemRef(foo).ax.present = false;
    EXPECT_FALSE(make(foo));
    factory().cacheLabel(QStringLiteral("o:Foo#"), QStringLiteral("Remembered"));
    const auto remembered = make(foo);
    ASSERT_TRUE(remembered);
    EXPECT_EQ(remembered->label, QStringLiteral("Remembered"));
    EXPECT_EQ(remembered->key, QStringLiteral("o:Foo#"));
}

TEST_F(BarItemFactoryTest, TheLabelCacheIsWrittenOnlyOnChangeAndIgnoredWhenMalformed)
{
    factory().cacheLabel(QStringLiteral("k"), QStringLiteral("A"));
    EXPECT_EQ(w.defaults().persistentValue(PrefKey::labelCache),
              PlistValue(PlistDict{{QStringLiteral("k"), QStringLiteral("A")}}));
    w.defaults().set(PrefKey::labelCache, PlistDict{{QStringLiteral("k"), 5}});
    EXPECT_FALSE(factory().cachedLabel(QStringLiteral("k")));
    w.defaults().set(PrefKey::labelCache, QStringLiteral("not a dictionary"));
    EXPECT_FALSE(factory().cachedLabel(QStringLiteral("k")));
}

TEST_F(BarItemFactoryTest, NoImageWithoutScreenRecording)
{
    const auto foo =
        put(QStringLiteral("com.example.foo"), QStringLiteral("Foo"), QStringLiteral("Item-0"));
    w.desktop.screenRecording = false;
    ASSERT_TRUE(make(foo));
    EXPECT_FALSE(make(foo)->image);
}
