#pragma once

#include <QString>

namespace ravlin::sandbox {

// The script the sandbox runs headless when there is no display to show its window on.
inline QString demoScript()
{
    return QStringLiteral(R"(# A short tour of Ravlin over the simulated desktop, in virtual time.
defaults write rehideInterval 0
defaults write tileStyle "Grid"
start
# Odd stored values read sanely: the interval is at least 1, an unknown style reads dashboard.
dump preferences
prefs set rehideInterval 20
placement "n:Dropbox" off
dump defaults
# The interface speaks 26 languages; Hebrew and Arabic run right to left.
language "de"
print text menu.settings
language "ja"
print text menu.settings
language "he"
print text menu.settings
expect /language/isRTL == true
language ""
dump language
# Statistics and weather come from this machine: /proc, /sys, statvfs, getifaddrs, and
# the location service where the system has one (without one the tile shows "denied").
advance 0.5
dump stats weather
# A click on Ravlin's chevron opens the tile panel under it; losing focus closes it.
click main
expect /panel/visible == true
dump panel
panel resign
# The login item follows the setting.
prefs set launchAtLogin true
dump login
advance 15
dump time process
)");
}

} // namespace ravlin::sandbox
