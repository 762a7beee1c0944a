#include "RavlinBarAccessible.h"

#include "RavlinBarView.h"

#include <QPointer>
#include <QWindow>

namespace ravlin {
namespace {

// One entry of the list: a tile, the gear, or the bar style's note mark. It holds the view loosely and finds its
// tile by key on every question, so a refilled panel never leaves it pointing at a
// tile that is gone: it simply stops being valid.
class TileEntry final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    TileEntry(RavlinBarView* view, QString key) : m_view(view), m_key(std::move(key)) {}

    bool isValid() const override
    {
        if (!m_view)
            return false;
        if (isNote())
            return m_view->footnoteMarkRect().has_value();
        return isGear() ? m_view->settingsRect().has_value() : bool(m_view->tile(m_key));
    }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override
    {
        return m_view ? m_view->window()->windowHandle() : nullptr;
    }
    QAccessibleInterface* parent() const override
    {
        return m_view ? QAccessible::queryAccessibleInterface(m_view.data()) : nullptr;
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* focusChild() const override { return nullptr; }
    void setText(QAccessible::Text, const QString&) override {}

    QString text(QAccessible::Text t) const override
    {
        if (!isValid())
            return {};
        if (t == QAccessible::Name && isNote())
            return m_view->footnote();
        if (t == QAccessible::Name)
            return isGear() ? m_view->settingsName() : m_view->accessibleNameOf(*m_view->tile(m_key));
        return {};
    }
    QAccessible::Role role() const override
    {
        if (isNote())
            return m_view && m_view->onFootnote ? QAccessible::Button : QAccessible::StaticText;
        return isGear() ? QAccessible::Button : QAccessible::ListItem;
    }
    QAccessible::State state() const override
    {
        QAccessible::State s;
        if (!isValid()) {
            s.invalid = true;
            return s;
        }
        s.focusable = true;
        s.focused = m_view->focusedKey() == m_key;
        s.invisible = !isGear() && !isNote() && !m_view->isTileVisible(m_key);
        s.offscreen = s.invisible;
        return s;
    }
    QRect rect() const override
    {
        if (!isValid())
            return {};
        const std::optional<QRectF> r = isNote()   ? m_view->footnoteMarkRect()
                                        : isGear() ? m_view->settingsRect()
                                                   : m_view->tileRect(m_key);
        const QRectF inView = m_view->toView(*r);
        return QRect(m_view->mapToGlobal(inView.topLeft().toPoint()), inView.size().toSize());
    }
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }

    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override
    {
        if (name == pressAction() && isValid())
            m_view->clickTile(m_key);
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    bool isGear() const { return m_key == RavlinBarView::settingsKey; }
    bool isNote() const { return m_key == RavlinBarView::footnoteKey; }

    QPointer<RavlinBarView> m_view;
    QString m_key;
};

} // namespace

QStringList RavlinBarAccessible::entryKeys(const RavlinBarView& view)
{
    QStringList keys = view.tileKeys();
    // In the order they stand: the note's mark comes before the gear beside it.
    if (view.footnoteMarkRect())
        keys.append(RavlinBarView::footnoteKey);
    if (view.settingsRect())
        keys.append(RavlinBarView::settingsKey);
    return keys;
}

RavlinBarAccessible::RavlinBarAccessible(RavlinBarView* view)
    : QAccessibleWidget(view, QAccessible::List)
{}

RavlinBarAccessible::~RavlinBarAccessible()
{
    for (QAccessible::Id id : std::as_const(m_entries))
        QAccessible::deleteAccessibleInterface(id);
}

QAccessibleInterface* RavlinBarAccessible::factory(const QString& className, QObject* object)
{
    if (className == u"ravlin::RavlinBarView" && object && object->isWidgetType())
        return new RavlinBarAccessible(static_cast<RavlinBarView*>(object));
    return nullptr;
}

RavlinBarView* RavlinBarAccessible::view() const
{
    return static_cast<RavlinBarView*>(widget());
}

QAccessibleInterface* RavlinBarAccessible::entry(const QString& key) const
{
    if (const auto it = m_entries.constFind(key); it != m_entries.cend())
        return QAccessible::accessibleInterface(*it);
    auto* made = new TileEntry(view(), key);
    m_entries.insert(key, QAccessible::registerAccessibleInterface(made));
    return made;
}

int RavlinBarAccessible::childCount() const
{
    return int(entryKeys(*view()).size());
}

QAccessibleInterface* RavlinBarAccessible::child(int index) const
{
    const QStringList keys = entryKeys(*view());
    return index >= 0 && index < keys.size() ? entry(keys[index]) : nullptr;
}

int RavlinBarAccessible::indexOfChild(const QAccessibleInterface* child) const
{
    const QStringList keys = entryKeys(*view());
    for (qsizetype i = 0; i < keys.size(); ++i)
        if (m_entries.contains(keys[i]) &&
            QAccessible::accessibleInterface(m_entries.value(keys[i])) == child)
            return int(i);
    return -1;
}

QAccessibleInterface* RavlinBarAccessible::childAt(int x, int y) const
{
    const QStringList keys = entryKeys(*view());
    for (const QString& key : keys) {
        QAccessibleInterface* e = entry(key);
        if (e->rect().contains(x, y))
            return e;
    }
    return nullptr;
}

QAccessibleInterface* RavlinBarAccessible::focusChild() const
{
    const std::optional<QString> focused = view()->focusedKey();
    return focused ? entry(*focused) : nullptr;
}

QString RavlinBarAccessible::text(QAccessible::Text t) const
{
    if (t == QAccessible::Description && !view()->query().isEmpty())
        return view()->query();
    return QAccessibleWidget::text(t);
}

} // namespace ravlin
