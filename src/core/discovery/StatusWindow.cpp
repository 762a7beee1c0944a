#include "StatusWindow.h"

#include "ItemTitles.h"

namespace ravlin {

bool StatusWindow::isOwn() const
{
    return owner == ItemTitles::ownOwner || name.startsWith(ItemTitles::ownTitlePrefix);
}

} // namespace ravlin
