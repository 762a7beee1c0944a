#pragma once

#include <QString>

namespace ravlin::PrefKey {

// The stored names of the settings. Note hiddenSystemItems, whose stored name differs.
inline const QString launchAtLogin = QStringLiteral("launchAtLogin");
inline const QString autoRehide = QStringLiteral("autoRehide");
inline const QString rehideInterval = QStringLiteral("rehideInterval");
inline const QString enableAlwaysHidden = QStringLiteral("enableAlwaysHidden");
inline const QString revealOnHover = QStringLiteral("revealOnHover");
inline const QString clickShowsInBar = QStringLiteral("clickShowsInBar");
inline const QString appLanguage = QStringLiteral("appLanguage");
inline const QString tileStyle = QStringLiteral("tileStyle");
inline const QString showSystemTiles = QStringLiteral("showSystemTiles");
inline const QString showWeather = QStringLiteral("showWeather");
inline const QString hiddenItems = QStringLiteral("hiddenItems");
inline const QString barPinnedItems = QStringLiteral("barPinnedItems");
inline const QString hiddenBundleIDs = QStringLiteral("hiddenBundleIDs");
inline const QString hiddenSystemItems = QStringLiteral("hiddenSystemItemIDs");
inline const QString hideSpotlight = QStringLiteral("hideSpotlight");
inline const QString newItemPlacement = QStringLiteral("newItemPlacement");
inline const QString panelShortcut = QStringLiteral("panelShortcut");
inline const QString hiddenSectionShortcut = QStringLiteral("hiddenSectionShortcut");
inline const QString itemShortcuts = QStringLiteral("itemShortcuts");
inline const QString revealOnMenuBarClick = QStringLiteral("revealOnMenuBarClick");
inline const QString revealOnMenuBarScroll = QStringLiteral("revealOnMenuBarScroll");
inline const QString revealOnMenuBarHover = QStringLiteral("revealOnMenuBarHover");
inline const QString barShowsStatistics = QStringLiteral("barShowsStatistics");

// Keys kept beside the settings.
inline const QString appleLanguages = QStringLiteral("AppleLanguages");
inline const QString seededPositions = QStringLiteral("seededPositionsV1");
inline const QString tileOrder = QStringLiteral("ravlin.tileOrder");
inline const QString labelCache = QStringLiteral("ravlin.labelCache");
// Learnt of the bar: it drops items as long as half a display.
inline const QString barDropsLongItems = QStringLiteral("ravlin.barDropsLongItems");
// The hide engine's lists of applications and system items became placements.
inline const QString engineListsRead = QStringLiteral("ravlin.engineListsRead");

} // namespace ravlin::PrefKey
