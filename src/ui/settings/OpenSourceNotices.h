#pragma once

#include <QString>

#include <vector>

namespace ravlin {

// One library or font that the program ships with, and its licence.
struct OpenSourceNotice {
    QString name;
    QString holder;  // who holds the copyright
    QString licence; // the licence's short name
};

namespace OpenSourceNotices {
// Exactly what this build carries: the macOS build draws with the system's own
// fonts and symbols and keeps its settings in the user defaults.
const std::vector<OpenSourceNotice>& all();
} // namespace OpenSourceNotices

} // namespace ravlin
