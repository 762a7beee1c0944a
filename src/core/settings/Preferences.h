#pragma once

#include "ItemPlacement.h"
#include "ShortcutRules.h"
#include "TileStyle.h"

#include <QHash>
#include <QMap>
#include <QObject>
#include <QSet>
#include <QString>

#include <optional>
#include <set>

namespace ravlin {

class DefaultsStore;
class LoginItems;
class NotificationCenter;
class PlistValue;

inline const QString ravlinPrefsChanged = QStringLiteral("de.vexa.Ravlin.prefsChanged");

// The user's settings: every read goes to the defaults store, every setter
// writes through at once and then announces the change (will-change signal
// first, then the prefsChanged notification).
class Preferences : public QObject {
    Q_OBJECT
public:
    Preferences(DefaultsStore& defaults, NotificationCenter& center, LoginItems* loginItems);

    // Longer than anyone waits for items to hide again, and well within what a timer holds.
    static constexpr int longestRehideInterval = 24 * 60 * 60;

    // Registers the defaults that answer reads of keys the user never set (never written to disk).
    void registerDefaults();

    bool launchAtLogin() const;
    void setLaunchAtLogin(bool on);
    bool autoRehide() const;
    void setAutoRehide(bool on);
    int rehideInterval() const; // 1 to longestRehideInterval
    void setRehideInterval(std::int64_t seconds);
    bool enableAlwaysHidden() const;
    void setEnableAlwaysHidden(bool on);
    bool revealOnHover() const;
    void setRevealOnHover(bool on);
    // A left click on Ravlin's icon shows the hidden items in the bar instead of the panel.
    bool clickShowsInBar() const;
    void setClickShowsInBar(bool on);
    QString appLanguage() const;
    void setAppLanguage(const QString& code);
    TileStyle tileStyle() const;
    void setTileStyle(TileStyle style);
    bool showSystemTiles() const;
    void setShowSystemTiles(bool on);
    bool showWeather() const;
    void setShowWeather(bool on);
    bool hideSpotlight() const;
    void setHideSpotlight(bool on);
    // A global shortcut, or nothing when the user chose none. The panel's is ⌃⌥⌘M until
    // changed, the hidden section's none; a stored value that is not a chord, or one the
    // rules refuse, reads as that default (with a log line).
    std::optional<KeyChord> shortcut(Shortcut which) const;
    // Stores the chord as it is given (nothing: none); the settings window checks it first.
    void setShortcut(Shortcut which, const std::optional<KeyChord>& chord);

    QSet<QString> hiddenItemKeys() const;
    void setHiddenItemKeys(const QSet<QString>& keys);
    QSet<QString> barPinnedKeys() const;
    void setBarPinnedKeys(const QSet<QString>& keys);
    QSet<QString> hiddenBundleIDs() const;
    void setHiddenBundleIDs(const QSet<QString>& ids);
    std::set<std::int64_t> hiddenSystemItemIDs() const;
    void setHiddenSystemItemIDs(const std::set<std::int64_t>& ids);

    bool isItemHidden(const QString& key) const { return hiddenItemKeys().contains(key); }
    bool isPinned(const QString& key) const { return barPinnedKeys().contains(key); }
    bool isBundleHidden(const QString& bundleID) const
    {
        return hiddenBundleIDs().contains(bundleID);
    }
    bool isSystemItemHidden(std::int64_t id) const { return hiddenSystemItemIDs().count(id) > 0; }

    void setItem(const QString& key, bool hidden);
    void setBundle(const QString& bundleID, bool hidden);
    void setSystemItem(std::int64_t id, bool hidden);

    ItemPlacement placement(const QString& key) const;
    void setPlacement(const QString& key, ItemPlacement placement);
    // Several placements at once, written and announced once (nothing when empty).
    void setPlacements(const QHash<QString, ItemPlacement>& placements);
    // Where an item seen for the first time goes (the panel unless the user said otherwise).
    ItemPlacement newItemPlacement() const;
    void setNewItemPlacement(ItemPlacement placement);

    // Reveal gestures on the menu bar, each off until chosen: a click on an empty part opens
    // the panel (or shows the hidden items, as clickShowsInBar says), scrolling up and down
    // shows and hides the hidden items, resting the pointer anywhere on it opens the panel.
    bool revealOnMenuBarClick() const;
    void setRevealOnMenuBarClick(bool on);
    bool revealOnMenuBarScroll() const;
    void setRevealOnMenuBarScroll(bool on);
    bool revealOnMenuBarHover() const;
    void setRevealOnMenuBarHover(bool on);
    // The bar style shows the statistics as compact chips before the items.
    bool barShowsStatistics() const;
    void setBarShowsStatistics(bool on);
    // The shortcuts that open single items, by item key (see ItemShortcuts for what is left
    // out of a hand-edited file); a chord is stored as it is given (nothing: the item's goes).
    QMap<QString, KeyChord> itemShortcuts() const;
    void setItemShortcut(const QString& key, const std::optional<KeyChord>& chord);

    DefaultsStore& defaults() const { return m_defaults; }

Q_SIGNALS:
    void willChange();

private:
    QSet<QString> stringSet(const QString& key) const;
    void writeStringSet(const QString& key, const QSet<QString>& set);
    void writeBool(const QString& key, bool on);
    void changed();

    DefaultsStore& m_defaults;
    NotificationCenter& m_center;
    LoginItems* m_loginItems;
    std::optional<KeyChord> storedShortcut(Shortcut which) const;
    std::optional<KeyChord> defaultShortcut(Shortcut which) const;

    mutable std::optional<QString> m_reportedInterval;   // the stored value last logged
    mutable QHash<QString, QString> m_reportedShortcuts;     // stored texts already logged
};

} // namespace ravlin
