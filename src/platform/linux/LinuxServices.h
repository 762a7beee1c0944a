#pragma once

namespace ravlin {

class Scheduler;
struct Platform;

namespace LinuxServices {

// Puts the machine's real system-information services into a platform: the
// /proc and /sys probe, Qt Positioning, Nominatim and Qt's HTTP.
void install(Platform& platform, Scheduler& scheduler);

} // namespace LinuxServices

} // namespace ravlin
