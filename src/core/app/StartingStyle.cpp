#include "StartingStyle.h"

#include "core/settings/PrefKey.h"
#include "core/settings/Preferences.h"
#include "foundation/DefaultsStore.h"
#include "foundation/Logging.h"

#include <algorithm>

namespace ravlin::StartingStyle {

bool chooseForNewUser(Preferences& preferences, const std::vector<ScreenInfo>& screens)
{
    const DefaultsStore& defaults = preferences.defaults();
    // Ravlin places its own items at its very first start; a stored style is a choice made.
    const bool firstStart = defaults.persistentValue(PrefKey::seededPositions).isNull();
    const bool chosen = !defaults.persistentValue(PrefKey::tileStyle).isNull();
    const bool notched = std::any_of(screens.begin(), screens.end(),
                                     [](const ScreenInfo& s) { return s.notch.has_value(); });
    if (!firstStart || chosen || !notched)
        return false;
    qCInfo(lcApp) << "a notched display at the first start: the panel starts in the bar style";
    preferences.setTileStyle(TileStyle::Bar);
    return true;
}

} // namespace ravlin::StartingStyle
