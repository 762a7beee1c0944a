#pragma once

#include <QString>

namespace ravlin::ItemTitles {

// Window titles and owners of the menu bar that the rules single out.
inline const QString ownOwner = QStringLiteral("Ravlin");
inline const QString ownTitlePrefix = QStringLiteral("Ravlin");
inline const QString ownItemPrefix = QStringLiteral("Ravlin.");
inline const QString ownBundleId = QStringLiteral("de.vexa.Ravlin");
// The title many applications leave on their items.
inline const QString generic = QStringLiteral("Item-0");
inline const QString clock = QStringLiteral("Clock");
inline const QString controlCentre = QStringLiteral("BentoBox-0");
// The statistics application names each of its items by module behind this prefix.
inline const QString istatPrefix = QStringLiteral("com.bjango.istatmenus.");
inline const QString istatLabelPrefix = QStringLiteral("iStat · ");
inline const QString applePrefix = QStringLiteral("com.apple.");

} // namespace ravlin::ItemTitles
