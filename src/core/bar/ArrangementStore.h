#pragma once

#include "BarArrangement.h"

#include <optional>

namespace ravlin {

class DefaultsStore;

// The arrangement last made by the user, kept in the settings under "ravlin.arrangement".
class ArrangementStore {
public:
    static inline const QString defaultsKey = QStringLiteral("ravlin.arrangement");

    explicit ArrangementStore(DefaultsStore& defaults) : m_defaults(defaults) {}

    // Absent before the first record, and (with a log line) when the stored value is not one.
    std::optional<BarArrangement> recorded() const;
    void record(const BarArrangement& arrangement);

private:
    DefaultsStore& m_defaults;
};

} // namespace ravlin
