#pragma once

namespace ravlin {

class SimDesktop;
struct Platform;

// Fills the platform's desktop services (window server, screens, accessibility,
// events, workspace, permissions) with the simulated ones over that desktop.
void installSimServices(Platform& platform, SimDesktop& desktop);

} // namespace ravlin
