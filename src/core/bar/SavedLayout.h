#pragma once

#include "BarArrangement.h"
#include "core/settings/ItemPlacement.h"

#include <QByteArray>
#include <QMap>

#include <optional>

namespace ravlin {

// A layout the user saved under a name: the order of the bar's sections and where each item
// goes. Keys of items that are not in the bar now are kept, for when they come back (or for
// the Mac the layout is taken to).
struct SavedLayout {
    QString name;
    BarArrangement arrangement;
    QMap<QString, ItemPlacement> placements; // only bar and off; the rest go to the panel

    PlistValue toPlist() const;
    // Absent (with the reason in `error`) when the value is not such a layout.
    static std::optional<SavedLayout> fromPlist(const PlistValue& value, QString* error = nullptr);

    // The file a layout is exported to and imported from: JSON, readable and portable.
    QByteArray toJson() const;
    static std::optional<SavedLayout> fromJson(const QByteArray& json, QString* error = nullptr);

    bool operator==(const SavedLayout&) const = default;
};

} // namespace ravlin
