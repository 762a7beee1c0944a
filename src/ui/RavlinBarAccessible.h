#pragma once

#include <QAccessibleWidget>
#include <QHash>

namespace ravlin {

class RavlinBarView;

// The tile panel as a screen reader sees it: a list whose entries are the tiles in
// reading order, then the settings gear. Each entry has the tile's spoken name and
// a press action that opens it as a click does.
class RavlinBarAccessible final : public QAccessibleWidget {
public:
    explicit RavlinBarAccessible(RavlinBarView* view);
    ~RavlinBarAccessible() override;

    // Makes the interface for panel views; installed once by the first view.
    static QAccessibleInterface* factory(const QString& className, QObject* object);
    // The keys of the list's entries in their order: the tiles, the note's mark, the gear.
    static QStringList entryKeys(const RavlinBarView& view);

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    QString text(QAccessible::Text t) const override;

    RavlinBarView* view() const;
    // The entry for a tile key (or the gear's), made on first use.
    QAccessibleInterface* entry(const QString& key) const;

private:
    mutable QHash<QString, QAccessible::Id> m_entries;
};

} // namespace ravlin
