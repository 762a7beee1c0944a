#pragma once

#include "SimTypes.h"

#include <QImage>

namespace ravlin {

// What a menu-bar extra looks like here: a white template glyph drawn from the item's
// name, at the backing scale of a Retina display. The window server gives it as the
// item's picture where items are windows; the desktop draws it in every release's bar. A
// badge above 0 is drawn as a red dot with its count in the top right corner.
QImage simItemPicture(const SimPlacedItem& placed, int badge = 0);

} // namespace ravlin
