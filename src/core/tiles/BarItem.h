#pragma once

#include "core/discovery/MenuBarItemInfo.h"

#include <QImage>
#include <QString>
#include <QStringList>

#include <optional>

namespace ravlin {

// One menu-bar item as the tile panel shows it. Its identity is its key: two
// items with equal keys are the same item for the panel, wherever they stand.
struct BarItem {
    MenuBarItemInfo info;
    std::optional<QImage> image;
    // The image is the owner's application icon rather than a picture of the item.
    bool imageIsApplicationIcon = false;
    std::optional<QString> symbolName;
    QString label;
    bool isApple = false;
    QString key;
    // The process that made it and its application, as far as they could be read.
    std::int32_t pid = 0;
    QString bundleId;
    // First seen in the bar within the last day: the panel marks it.
    bool isNew = false;
    // The user placed it in the bar, but it is out of sight: the panel offers it, marked.
    bool placedInBar = false;
    // It changed while out of sight, where it could not be shown in the bar: marked until seen.
    bool changed = false;
    // More names a search finds the item by: its application's, its accessibility
    // title and description.
    QStringList searchTerms;
    // The item's own accessibility title and description, which tell apart two items
    // of one application that its name alone does not.
    QString ownTitle;
    QString ownDescription;

    const QString& id() const { return key; }
    bool operator==(const BarItem& other) const;
};

} // namespace ravlin
