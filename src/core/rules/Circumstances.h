#pragma once

#include <QSet>
#include <QString>

#include <optional>

namespace ravlin {

// What the rules' conditions look at, as it stands at one moment.
struct Circumstances {
    int displays = 1;
    std::optional<bool> onBattery;   // absent: no battery, or the system does not say
    std::optional<QString> wifi;     // the network joined, if any and if the system tells
    QSet<QString> running;           // bundle identifiers of the running applications
    std::optional<QString> frontmost;
    std::optional<QString> focus;    // the Focus mode on ("" for none); absent: cannot be read
    int minuteOfDay = 0;             // local time
};

} // namespace ravlin
