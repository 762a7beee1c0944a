#pragma once

#include <QString>

#include <vector>

namespace ravlin {

struct AppLanguage {
    QString code;    // also the name of the language's .lproj folder
    QString autonym; // the language's own name, shown in the picker
    QString id() const { return code; }
    bool operator==(const AppLanguage&) const = default;
};

namespace Languages {
// The 26 interface languages in the picker's order.
const std::vector<AppLanguage>& all();
} // namespace Languages

} // namespace ravlin
