#pragma once

#include <QStringList>

namespace ravlin::LinuxSystem {

// The user's preferred interface languages from LANGUAGE, LC_ALL, LC_MESSAGES and LANG.
QStringList preferredLanguages();

} // namespace ravlin::LinuxSystem
