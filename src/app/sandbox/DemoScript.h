#pragma once

#include "SampleDesktop.h"

#include <QRegularExpression>
#include <QString>
#include <QStringList>

namespace ravlin::sandbox {

// The sample desktop for a run over this machine's own statistics and network: its
// simulated system figures are left out.
inline QString sampleDesktopForMachine()
{
    QStringList lines;
    for (const QString& line : sampleDesktopScript().split(u'\n')) {
        if (!line.startsWith(QStringLiteral("probe ")) &&
            !line.startsWith(QStringLiteral("location ")) &&
            !line.startsWith(QStringLiteral("forecast ")))
            lines << line;
    }
    return lines.join(u'\n');
}

// The tours write their pictures into the folder.
inline QString inFolder(QString tour, const QString& folder)
{
    static const QRegularExpression shot(QStringLiteral("screenshot FOLDER/(\\S+)"));
    return tour.replace(shot, QStringLiteral("screenshot \"%1/\\1\"").arg(folder));
}

// The tour the sandbox runs headless when there is no display: the sample desktop,
// the bar collapsed and expanded, the panel in each style, arrange mode and every
// settings tab, each photographed into `folder`.
inline QString demoScript(const QString& folder)
{
    QString tour = QStringLiteral(R"(
# Ravlin starts for the first time: its items stand right of everything, the bar collapses
# after 0.7 s, a full rebuild captures every hidden item 0.6 s later, and the welcome window
# introduces Ravlin with the two permissions, the shortcut and launch at login.
permission accessibility off
start
advance 3
dump controller welcome
screenshot FOLDER/00-welcome.png region=welcome
permission accessibility on
advance 1
welcome press done
screenshot FOLDER/01-bar-collapsed.png
# The status menu's show command expands the hidden section in place.
click main right
menu text:menu.show
advance 0.5
screenshot FOLDER/02-bar-expanded.png
click main right
menu text:menu.hide
# A click on the chevron opens the tile panel, in each of its styles.
prefs set tileStyle "dashboard"
click main
advance 1.5
screenshot FOLDER/03-panel-dashboard.png
dump panel
click main
advance 0.3
prefs set tileStyle "capsules"
click main
advance 1.5
screenshot FOLDER/04-panel-capsules.png
click main
advance 0.3
prefs set tileStyle "grid"
click main
advance 1.5
screenshot FOLDER/05-panel-grid.png
click main
advance 0.3
prefs set tileStyle "strip"
click main
advance 1.5
screenshot FOLDER/06-panel-strip.png
click main
advance 0.3
prefs set tileStyle "bar"
click main
advance 1.5
screenshot FOLDER/06a-panel-bar.png
click main
advance 0.3
prefs set tileStyle "strip"
click main
advance 1.5
# A click on a tile brings the hidden item out and opens it (the strip scrolls to it).
panel scroll 240
tile click "n:Tunnel VPN"
dump activations
click desktop
advance 0.5
# ⌃⌥⌘M opens the panel from any application; typing keeps what matches and the arrows
# move the focus ring.
prefs set tileStyle "dashboard"
key ctrl+opt+cmd+M
advance 1.5
type "cl"
key Right
key Right
screenshot FOLDER/06b-panel-search.png
dump panel
key Escape
key Escape
advance 0.3
# Arrange mode opens every section and explains how to move items.
click main right
menu text:menu.arrange
screenshot FOLDER/07-arrange-mode.png
hud done
# The settings window, tab by tab.
settings open 0
screenshot FOLDER/08-settings-general.png
settings tab 1
screenshot FOLDER/09-settings-menubar.png
settings tab 2
screenshot FOLDER/10-settings-language.png
settings tab 3
screenshot FOLDER/11-settings-about.png
# The About tab checks for updates as the status menu does; the updater shows what it found.
settings press checkForUpdates
dump updates
settings close
# An application starts for the first time: its item goes to the panel, marked as new.
launch com.example.paste
advance 2
click main
advance 1.5
screenshot FOLDER/14-panel-new-item.png
click main
advance 0.3
# Layouts saved under a name, switched from the status menu.
layout save Work
placement "n:Tunes Mini" off
layout save Presenting
click main right
menu point text:menu.layouts
screenshot FOLDER/15-menu-layouts.png
menu close
# Check for Updates… in the status menu; the General tab's update settings.
click main right
screenshot FOLDER/16-menu-updates.png
menu text:menu.checkForUpdates
dump updates
settings open 0
settings scroll end
screenshot FOLDER/17-settings-updates.png
settings close
dump controller process
)");
    return sampleDesktopForMachine() + inFolder(tour, folder);
}

// macOS 26 with Ravlin switched off under "Allow in the Menu Bar": no icon to click, so the
// welcome window opens on the way back, and closes once the icon is there again.
inline QString iconSwitchedOffDemoScript(const QString& folder)
{
    const QString tour = QStringLiteral(R"(
# macOS 26: Ravlin is switched off in System Settings › Menu Bar.
system 26
allow de.vexa.Ravlin off
defaults write ravlin.welcomeShown true
start
advance 2
dump welcome
screenshot FOLDER/18-welcome-icon-off.png region=welcome
welcome press openMenuBarSettings
dump opened
allow de.vexa.Ravlin on
advance 1
dump welcome
screenshot FOLDER/19-icon-back.png
)");
    return sampleDesktopForMachine() + inFolder(tour, folder);
}

// A crowded bar on a laptop's screen: forty items of twenty applications hidden, every
// statistic of this machine shown. The panel stops above the bottom of the screen and scrolls.
inline QString crowdedDemoScript(const QString& folder)
{
    QStringList lines{QStringLiteral("# A crowded bar on a 1280×800 laptop screen."),
                      QStringLiteral("screen 1280 800 menubar=24")};
    static const char* const names[] = {"Atlas",   "Beacon", "Cinder",   "Drift",   "Ember",
                                        "Fathom",  "Glint",  "Harbor",   "Inkwell", "Juniper",
                                        "Kestrel", "Lumen",  "Meridian", "Nimbus",  "Orbit",
                                        "Pylon",   "Quill",  "Relay",    "Sable",   "Tandem"};
    for (const char* name : names)
        lines << QStringLiteral("app com.example.%1 \"%2\"")
                     .arg(QString::fromLatin1(name).toLower(), QString::fromLatin1(name));
    for (const char* name : names) {
        const QString id = QString::fromLatin1(name).toLower();
        lines << QStringLiteral("item com.example.%1 \"%2 Status\" ax.title=\"%2\"")
                     .arg(id, QString::fromLatin1(name))
              << QStringLiteral("item com.example.%1 \"%2 Extra\" ax.title=\"%2 Extra\"")
                     .arg(id, QString::fromLatin1(name));
    }
    const QString tour = QStringLiteral(R"(
start
advance 3
click main
advance 1.5
screenshot FOLDER/12-panel-crowded.png
dump panel
panel scroll 600
screenshot FOLDER/13-panel-crowded-scrolled.png
)");
    return lines.join(u'\n') + inFolder(tour, folder);
}

// The same desktop read right to left, on a notched laptop display, and on macOS 27,
// whose bar has no window per item: each on a desktop of its own.
inline QStringList worldDemoScripts(const QString& folder)
{
    const QString desktop = sampleDesktopForMachine();
    const QString hebrew = QStringLiteral(R"(
# Hebrew: the panel and the status menu read right to left.
start
advance 3
language he
click main
advance 1.5
screenshot FOLDER/20-panel-hebrew.png region=panel
click main
advance 0.3
click main right
menu point text:menu.style
screenshot FOLDER/21-menu-hebrew.png
menu close
)");
    QString notched = desktop;
    notched.replace(QStringLiteral("screen 1440 900 menubar=24"),
                    QStringLiteral("screen 1512 982 menubar=37 notch=190"));
    const QString notch = QStringLiteral(R"(
# A laptop display with a notch: the items reach under the camera housing when shown, and
# Ravlin's icon stays right of it.
start
advance 3
welcome press done
click main right
menu text:menu.show
advance 0.5
screenshot FOLDER/22-notch-bar.png
click main right
menu text:menu.hide
advance 0.3
# A new user here starts with the bar style: one row of the hidden items' pictures right
# under the menu bar, aligned with the chevron.
click main
advance 1.5
screenshot FOLDER/23-notch-panel.png
screenshot FOLDER/23a-notch-bar-style.png region=panel
# Typing keeps what matches; the arrows walk the row.
type "cl"
key Right
screenshot FOLDER/23b-notch-bar-style-search.png region=panel
key Escape
key Escape
advance 0.3
# In the light appearance, opened by a click on an empty part of the menu bar: the row hangs
# under the click.
appearance light
prefs set revealOnMenuBarClick true
click point 480 18
advance 1.5
screenshot FOLDER/23c-notch-bar-style-light.png
click point 480 18
advance 0.3
)");
    const QString system27 = QStringLiteral(R"(
# macOS 27: the bar draws every item in sight; arrange mode shows them all.
start
advance 3
screenshot FOLDER/24-bar-27.png
click main right
menu text:menu.arrange
screenshot FOLDER/25-arrange-27.png
hud done
)");
    const QString always = QStringLiteral(R"(
# The always-hidden section, switched on: nothing changes until an item is dragged past its
# marker at the far end; then the panel offers that item in a section of its own.
start
advance 3
prefs set enableAlwaysHidden true
advance 0.5
click main right
menu text:menu.show
advance 0.5
screenshot FOLDER/26-always-hidden-on.png
click main right
menu text:menu.hide
advance 0.3
click main right
menu text:menu.arrange
cmd-drag item:"Tunes Mini" to 0
hud done
advance 1
click main
advance 1.5
panel scroll 1000
screenshot FOLDER/27-panel-always-hidden.png region=panel
)");
    return {desktop + inFolder(hebrew, folder), notched + inFolder(notch, folder),
            QStringLiteral("system 27\n") + desktop + inFolder(system27, folder),
            desktop + inFolder(always, folder)};
}

} // namespace ravlin::sandbox
