#include "BarItem.h"

namespace ravlin {

bool BarItem::operator==(const BarItem& other) const
{
    return info == other.info && image == other.image &&
           imageIsApplicationIcon == other.imageIsApplicationIcon &&
           symbolName == other.symbolName && label == other.label && isApple == other.isApple &&
           key == other.key && pid == other.pid && bundleId == other.bundleId &&
           isNew == other.isNew && placedInBar == other.placedInBar && changed == other.changed &&
           searchTerms == other.searchTerms && ownTitle == other.ownTitle &&
           ownDescription == other.ownDescription;
}

} // namespace ravlin
