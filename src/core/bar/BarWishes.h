#pragma once

#include "BarArrangement.h"
#include "core/settings/ItemPlacement.h"

#include <QSet>
#include <QString>

#include <optional>

namespace ravlin {

class ArrangementStore;
class Preferences;

// What the user wants of the bar, and nothing else: where each item goes (bar, panel or
// nowhere), where new items go, whether there is an always-hidden section and the order the
// user arranged. Every hiding technique realises this one model; none keeps a model of its own.
class BarWishes {
public:
    // One reading of the settings, for a decision about the whole bar.
    struct Now {
        QSet<QString> inBar;
        QSet<QString> off;
        ItemPlacement newItems = ItemPlacement::Panel;
        bool alwaysHiddenSection = false;
        std::optional<BarArrangement> arrangement;

        // An item without a key is one no look has named: a new item.
        ItemPlacement placement(const QString& key) const;
        // In the bar: placed there, or placed in the panel but arranged by the user on the
        // visible side (an item that stood right of the separators from the start).
        bool wantsInSight(const QString& key) const;
        // Hidden even when the hidden section is shown.
        bool inAlwaysHiddenSection(const QString& key) const;
    };

    BarWishes(const Preferences& preferences, const ArrangementStore& arrangements)
        : m_preferences(preferences), m_arrangements(arrangements)
    {}

    Now now() const;

private:
    const Preferences& m_preferences;
    const ArrangementStore& m_arrangements;
};

} // namespace ravlin
