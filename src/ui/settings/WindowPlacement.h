#pragma once

#include <QPoint>
#include <QSize>

namespace ravlin {

class Screens;

// Where a new window of the application goes: on the main display's visible part (below the
// menu bar, beside the Dock), centred and a little above the middle, as the system places a
// new window. The display is the one the platform reports, so that the simulated desktop and
// a Mac agree; without one, Qt's primary screen.
QPoint newWindowOrigin(Screens* screens, QSize size);

} // namespace ravlin
