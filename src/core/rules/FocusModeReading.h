#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace ravlin {

// Reads the system's Focus records: which mode is asserted now, and its name. The records
// are the system's own files, whose shape is not promised: anything unexpected reads as
// "cannot tell", never as a mode.
class FocusModeReading {
public:
    // The name of the Focus mode on now; "" when none is; absent when the records say nothing
    // that can be read.
    static std::optional<QString> activeMode(const QByteArray& assertions,
                                             const QByteArray& modeConfigurations);
};

} // namespace ravlin
