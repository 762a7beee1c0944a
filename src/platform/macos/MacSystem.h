#pragma once

#include <QStringList>

namespace ravlin::MacSystem {

// The user's preferred languages from the system's list.
QStringList preferredLanguages();
// The bundle identifier of this process, empty without one.
QString bundleIdentifier();

} // namespace ravlin::MacSystem
