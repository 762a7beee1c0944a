#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace ravlin {

// What the accessibility interface tells of the element at a point.
struct ResolvedItem {
    std::optional<QString> title;
    std::optional<QString> bundleId;
    std::optional<QString> appName;
    std::int32_t pid = 0; // 0 when it could not be read
    // The element's description when it has one beside its title.
    std::optional<QString> description;

    bool operator==(const ResolvedItem&) const = default;
};

} // namespace ravlin
