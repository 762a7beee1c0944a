#pragma once

#include "platform/Screens.h"

#include <vector>

namespace ravlin {

class Preferences;

// The style a new user starts with. On a notched display it is the bar style: hanging right
// under the menu bar, the row of hidden items never meets the camera housing that hides them
// there. Anyone who chose a style, or who ran Ravlin before, keeps what they have.
namespace StartingStyle {

// Whether it chose the bar style (and stored it) for this first start.
bool chooseForNewUser(Preferences& preferences, const std::vector<ScreenInfo>& screens);

} // namespace StartingStyle

} // namespace ravlin
