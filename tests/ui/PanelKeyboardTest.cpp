// The tile panel from the keyboard and a screen reader: typing filters, the focus
// ring moves in reading order, Return, Space and Escape do what they say, and every
// tile has a spoken name, a role and a press action.
#include "support/PanelWorld.h"

#include "core/sysinfo/SystemStats.h"
#include "core/tiles/PanelContent.h"
#include "ui/RavlinBarView.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QKeyEvent>

#include <gtest/gtest.h>

using namespace ravlin;
using namespace ravlin::test;

namespace {

BarItem item(const QString& key, const QString& label, const QString& owner,
             const QStringList& terms = {})
{
    BarItem i;
    i.key = key;
    i.label = label;
    i.info.owner = owner;
    i.info.name = label;
    i.searchTerms = terms;
    return i;
}

// Items named in several of the interface's languages.
std::vector<BarGroup> worldlyGroups()
{
    BarGroup apps{QStringLiteral("Apps"), {}};
    apps.items = {
        item(QStringLiteral("n:drop"), QStringLiteral("ドロップボックス"), QStringLiteral("Dropbox")),
        item(QStringLiteral("n:size"), QStringLiteral("Größe"), QStringLiteral("Messer")),
        item(QStringLiteral("n:news"), QStringLiteral("أخبار"), QStringLiteral("Akhbar")),
        item(QStringLiteral("n:peace"), QStringLiteral("שָׁלוֹם"), QStringLiteral("Shalom")),
        item(QStringLiteral("n:vpn"), QStringLiteral("Item-0"), QStringLiteral("Tunnel"),
             {QStringLiteral("Tunnel"), QStringLiteral("Secure connection")}),
    };
    return {apps};
}

class KeyboardTest : public ::testing::Test {
protected:
    KeyboardTest() { world.stats().refresh(); }

    std::unique_ptr<RavlinBarView> view(std::vector<BarGroup> groups, TileStyle style,
                                        Qt::LayoutDirection direction = Qt::LeftToRight)
    {
        PanelRequest request;
        request.groups = std::move(groups);
        request.showWeather = false;
        auto v = std::make_unique<RavlinBarView>(
            RavlinBarView::Sources{content, world.tiles(), world.stats(), world.weather(),
                                   QStringLiteral("none"), QStringLiteral("no matches"),
                                   QStringLiteral("Settings")},
            request, style);
        v->setLayoutDirection(direction);
        v->resize(308, int(v->contentHeight()));
        v->onActivate = [this](const BarItem& i) { opened.append(i.key); };
        v->onStat = [this](const Stat& s) { opened.append(s.key); };
        v->onSettings = [this] { opened.append(QStringLiteral("settings")); };
        v->onDismiss = [this] { opened.append(QStringLiteral("dismissed")); };
        return v;
    }

    static void press(QWidget& w, int key, Qt::KeyboardModifiers mods = Qt::NoModifier,
                      const QString& text = QString())
    {
        QKeyEvent event(QEvent::KeyPress, key, mods, text);
        QCoreApplication::sendEvent(&w, &event);
    }

    static void type(QWidget& w, const QString& text)
    {
        for (QChar c : text)
            press(w, Qt::Key_unknown, Qt::NoModifier, QString(c));
    }

    PanelWorld world;
    PanelContent content{world.stats(), world.weather(), world.tiles(), world.language()};
    QStringList opened;
};

QStringList itemKeys(const RavlinBarView& v)
{
    QStringList keys = v.tileKeys();
    keys.removeIf([](const QString& k) { return k.startsWith(QStringLiteral("sys.")); });
    return keys;
}

} // namespace

TEST_F(KeyboardTest, TypingFiltersInEveryLanguageAndKeepsTheOrder)
{
    auto v = view(worldlyGroups(), TileStyle::Dashboard);
    const double fullHeight = v->contentHeight();
    struct Case {
        const char* typed;
        QStringList keys;
    };
    const Case cases[] = {
        {"どろっぷ", {QStringLiteral("n:drop")}},
        {"grosse", {QStringLiteral("n:size")}},
        {"اخبار", {QStringLiteral("n:news")}},
        {"שלום", {QStringLiteral("n:peace")}},
        {"secure", {QStringLiteral("n:vpn")}}, // the accessibility description
        {"e", {QStringLiteral("n:size"), QStringLiteral("n:vpn")}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.typed);
        v->setQuery(QString());
        type(*v, QString::fromUtf8(c.typed));
        EXPECT_EQ(v->query(), QString::fromUtf8(c.typed));
        EXPECT_EQ(itemKeys(*v), c.keys);
        EXPECT_TRUE(v->panelLayout().searchField);
    }
    v->setQuery(QString());
    type(*v, QStringLiteral("cpu"));
    EXPECT_EQ(v->tileKeys(), QStringList{QStringLiteral("sys.cpu")});
    EXPECT_LT(v->contentHeight(), fullHeight);
    type(*v, QStringLiteral("zzz"));
    EXPECT_TRUE(v->tileKeys().isEmpty());
    EXPECT_EQ(v->emptyText(), QStringLiteral("no matches"));
}

TEST_F(KeyboardTest, EscapeClearsThenDismissesAndReturnOpensTheOnlyMatch)
{
    auto v = view(worldlyGroups(), TileStyle::Grid);
    type(*v, QStringLiteral("tun"));
    press(*v, Qt::Key_Backspace);
    EXPECT_EQ(v->query(), QStringLiteral("tu"));
    press(*v, Qt::Key_Return);
    EXPECT_EQ(opened, QStringList{QStringLiteral("n:vpn")});
    press(*v, Qt::Key_Escape);
    EXPECT_TRUE(v->query().isEmpty());
    EXPECT_FALSE(v->panelLayout().searchField);
    EXPECT_EQ(opened.size(), 1);
    press(*v, Qt::Key_Escape);
    EXPECT_EQ(opened.last(), QStringLiteral("dismissed"));
    // Several matches: Return waits for the user to choose.
    type(*v, QStringLiteral("e"));
    press(*v, Qt::Key_Return);
    EXPECT_EQ(opened.last(), QStringLiteral("dismissed"));
}

TEST_F(KeyboardTest, ArrowsWalkTheReadingOrderMirroredRightToLeft)
{
    for (Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        SCOPED_TRACE(int(direction));
        auto v = view(PanelWorld::groups(5, false), TileStyle::Dashboard, direction);
        const QStringList keys = v->tileKeys();
        const int forward = direction == Qt::LeftToRight ? Qt::Key_Right : Qt::Key_Left;
        const int backward = direction == Qt::LeftToRight ? Qt::Key_Left : Qt::Key_Right;
        EXPECT_FALSE(v->focusedKey());
        press(*v, forward);
        EXPECT_EQ(v->focusedKey(), keys[0]);
        press(*v, forward);
        EXPECT_EQ(v->focusedKey(), keys[1]);
        // Down goes to the tile under this one: two half tiles make a row.
        press(*v, Qt::Key_Down);
        EXPECT_EQ(v->focusedKey(), keys[3]);
        EXPECT_NEAR(v->tileRect(keys[3])->center().x(), v->tileRect(keys[1])->center().x(), 1);
        press(*v, backward);
        EXPECT_EQ(v->focusedKey(), keys[2]);
        press(*v, Qt::Key_Up);
        EXPECT_EQ(v->focusedKey(), keys[0]);
        press(*v, Qt::Key_Up); // nothing above: it stays
        EXPECT_EQ(v->focusedKey(), keys[0]);
    }
}

TEST_F(KeyboardTest, ReturnAndSpaceOpenTheFocusedTileAndTabReachesTheGear)
{
    auto v = view(PanelWorld::groups(3, false), TileStyle::Strip);
    const QStringList keys = v->tileKeys();
    press(*v, Qt::Key_Down);
    press(*v, Qt::Key_Down);
    press(*v, Qt::Key_Return);
    press(*v, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
    EXPECT_EQ(opened, (QStringList{keys[1], keys[1]}));
    press(*v, Qt::Key_Tab);
    EXPECT_EQ(v->focusedKey(), RavlinBarView::settingsKey);
    press(*v, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
    EXPECT_EQ(opened.last(), QStringLiteral("settings"));
    press(*v, Qt::Key_Tab);
    EXPECT_EQ(v->focusedKey(), keys.first());
    press(*v, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(v->focusedKey(), RavlinBarView::settingsKey);
    // ⌘, (Qt's Control on a Mac) opens the settings and types nothing.
    opened.clear();
    press(*v, Qt::Key_Comma, Qt::ControlModifier, QStringLiteral(","));
    EXPECT_EQ(opened, QStringList{QStringLiteral("settings")});
    EXPECT_TRUE(v->query().isEmpty());
    // Typing hides the ring: Space is then part of the search.
    type(*v, QStringLiteral("item "));
    EXPECT_FALSE(v->focusedKey());
    EXPECT_EQ(v->query(), QStringLiteral("item "));
}

TEST_F(KeyboardTest, AScreenReaderReadsAListOfNamedTilesAndPressesThem)
{
    auto v = view(PanelWorld::groups(2, false), TileStyle::Dashboard);
    v->accessibleNamer = [](const PanelTile& t) {
        return t.percent ? t.label + QStringLiteral(" %1 percent").arg(qRound(*t.percent))
                         : t.label;
    };
    v->setAccessibleName(QStringLiteral("Hidden items"));
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(v.get());
    ASSERT_TRUE(list);
    EXPECT_EQ(list->role(), QAccessible::List);
    EXPECT_EQ(list->text(QAccessible::Name), QStringLiteral("Hidden items"));
    const QStringList keys = v->tileKeys();
    ASSERT_EQ(list->childCount(), keys.size() + 1);
    QStringList names;
    for (int i = 0; i < list->childCount(); ++i) {
        QAccessibleInterface* entry = list->child(i);
        ASSERT_TRUE(entry && entry->isValid());
        EXPECT_EQ(list->indexOfChild(entry), i);
        EXPECT_EQ(entry->parent(), list);
        EXPECT_EQ(entry->role(), i + 1 < list->childCount() ? QAccessible::ListItem
                                                             : QAccessible::Button);
        names << entry->text(QAccessible::Name);
    }
    const PanelTile* cpu = v->tile(QStringLiteral("sys.cpu"));
    ASSERT_TRUE(cpu && cpu->percent);
    EXPECT_TRUE(names.contains(QStringLiteral("CPU %1 percent").arg(qRound(*cpu->percent))))
        << names.join(u'|').toStdString();
    EXPECT_TRUE(names.contains(QStringLiteral("Item 2")));
    EXPECT_EQ(names.last(), QStringLiteral("Settings"));

    QAccessibleInterface* second = list->child(int(keys.indexOf(QStringLiteral("n:Item 2"))));
    ASSERT_TRUE(second->actionInterface());
    EXPECT_EQ(second->actionInterface()->actionNames(),
              QStringList{QAccessibleActionInterface::pressAction()});
    second->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(opened, QStringList{QStringLiteral("n:Item 2")});
    // The focus ring is the screen reader's focus too; a search hides tiles from it.
    press(*v, Qt::Key_Right);
    EXPECT_EQ(list->focusChild(), list->child(0));
    type(*v, QStringLiteral("item 1"));
    EXPECT_FALSE(second->isValid());
    EXPECT_EQ(list->childCount(), 2);
}
