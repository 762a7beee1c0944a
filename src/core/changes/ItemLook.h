#pragma once

#include <QSizeF>
#include <QString>

#include <cstddef>
#include <optional>

namespace ravlin {

// What could be read of an item's looks at one moment: its picture (as a digest), its size and
// the texts its accessibility element carries. Each part is absent when it could not be read
// then (a picture of an item off screen, an element that did not answer); a text the element
// does not have reads as empty, so that a badge appearing is a change.
struct ItemLook {
    std::optional<std::size_t> picture;
    std::optional<QSizeF> size;
    std::optional<QString> title;
    std::optional<QString> description;
    std::optional<QString> value;

    // Whether `later` shows a change. Only what both looks read counts: an item that went off
    // screen has no picture, and that is no change.
    bool changedIn(const ItemLook& later) const;
    // Nothing at all could be read.
    bool isEmpty() const;
};

} // namespace ravlin
