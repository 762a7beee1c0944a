#pragma once

namespace ravlin {

class Scheduler;
class SimDesktop;
struct Platform;

// Fills the platform's desktop services (window server, screens, accessibility,
// events, workspace, permissions, appearance) with the simulated ones over that desktop.
void installSimServices(Platform& platform, SimDesktop& desktop);

// Adds the status bar, the global event monitors, the assessment mode (absent
// until a script makes it available), the application object, the item spacing, the
// global shortcuts and the updater.
void installSimBarServices(Platform& platform, SimDesktop& desktop, Scheduler& scheduler);

} // namespace ravlin
