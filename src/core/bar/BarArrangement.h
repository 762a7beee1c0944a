#pragma once

#include "foundation/PlistValue.h"

#include <QStringList>

#include <optional>

namespace ravlin {

// Where the user put the bar's items: their keys, left to right, in each of the sections
// that Ravlin's separators make. Keys of items that are not in the bar now are kept, so an
// item that comes back (an application started again, a layout taken to another Mac)
// finds its place.
struct BarArrangement {
    enum class Section { AlwaysHidden, Hidden, Visible };
    // The separators as they stand in a sequence of tokens.
    static inline const QString alwaysMarker = QStringLiteral("|always");
    static inline const QString hiddenMarker = QStringLiteral("|hidden");
    // A bar holds a few dozen items and the record keeps those that left it too; a record far
    // longer was made by hand or by someone hostile, and only this many of its keys are read.
    static constexpr int maxItems = 1000;

    QStringList alwaysHidden; // left of the always-hidden separator
    QStringList hidden;       // between the separators
    QStringList visible;      // right of the hidden separator

    QStringList& keys(Section section);
    const QStringList& keys(Section section) const;
    std::optional<Section> sectionOf(const QString& key) const;
    bool contains(const QString& key) const { return sectionOf(key).has_value(); }
    bool isEmpty() const { return alwaysHidden.isEmpty() && hidden.isEmpty() && visible.isEmpty(); }
    QStringList allKeys() const;

    // Left to right, with the markers between the sections.
    QStringList sequence() const;
    static BarArrangement fromSequence(const QStringList& tokens);

    // Only these keys, in this arrangement's order.
    BarArrangement restrictedTo(const QStringList& keys) const;
    // The order seen now for the items seen now; every key recorded but not seen stays in
    // its recorded section, right of the nearest recorded key before it still seen there,
    // as far as maxItems keys in all.
    static BarArrangement merged(const BarArrangement& recorded, const BarArrangement& seen);
    // The order the record wants for the items seen now: recorded items as recorded,
    // items without a record where they are seen, right of the token they follow there.
    static BarArrangement restored(const BarArrangement& recorded, const BarArrangement& seen);

    PlistValue toPlist() const;
    // Absent when the value is not such a dictionary of lists of texts. Keys past maxItems are
    // left out, and `cut` says so.
    static std::optional<BarArrangement> fromPlist(const PlistValue& value, bool* cut = nullptr);

    bool operator==(const BarArrangement&) const = default;
};

} // namespace ravlin
