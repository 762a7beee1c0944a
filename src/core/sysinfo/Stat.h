#pragma once

#include <QColor>
#include <QList>
#include <QString>

namespace ravlin {

class LanguageManager;
class SystemStats;

// One statistics tile's figure.
struct Stat {
    QString key;      // also the tile's key in the saved tile order
    QString label;    // in the interface language
    double value = 0; // percent; 0 for the network tile, which shows rates
    QColor accent;

    bool operator==(const Stat&) const = default;
};

// The statistics tiles in panel order: processor, memory, disk, the battery
// only while there is one, and the network.
QList<Stat> makeStats(const SystemStats& stats, const LanguageManager& language);

} // namespace ravlin
