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
    // The stored value is parsed once, and again only when it changed.
    std::optional<BarArrangement> recorded() const;
    void record(const BarArrangement& arrangement);

private:
    DefaultsStore& m_defaults;
    mutable PlistValue m_parsedFrom;
    mutable std::optional<BarArrangement> m_parsed;
};

} // namespace ravlin
