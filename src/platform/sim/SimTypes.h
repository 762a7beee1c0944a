#pragma once

#include "foundation/Geometry.h"
#include "platform/Events.h"
#include "platform/Workspace.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

namespace ravlin {

// One display of the simulated desktop. Displays stand left to right with their
// top edges aligned; the first carries the menu bar.
struct SimScreen {
    double width = 1440;
    double height = 900;
    double menuBarHeight = 24;
    double notch = 0; // the camera housing's width, centred in the menu bar; 0: none
};

// Whether an application's accessibility element has an extras-menu-bar element.
enum class SimExtras {
    Auto,   // one with children while the application has items in the bar
    Yes,    // one with children, items or not
    No,     // one without children
    Absent, // no such attribute at all
};

struct SimApp {
    QString bundleId;
    QString name;
    std::int32_t pid = 0;
    ActivationPolicy policy = ActivationPolicy::Regular;
    bool running = true;
    bool hung = false; // answers no accessibility request
    // False for a helper process that runs without a bundle identifier of its own: the
    // workspace names none, and the assessment mode cannot be told to allow its items.
    bool reportsBundleId = true;
    SimExtras extras = SimExtras::Auto;
};

// The accessibility element at a status item's centre. Its attributes sit on the
// element that is hit; its actions on the element `depth` levels above it.
struct SimAXSpec {
    bool present = true; // false: no element answers at the item's position
    std::optional<QString> title;
    std::optional<QString> description;
    std::optional<QString> help;
    std::optional<QString> value;
    QStringList actions{QStringLiteral("AXPress")};
    int result = 0;                    // what performing an action answers...
    QMap<QString, int> resultByAction; // ...unless given per action
    int depth = 0;
    bool parentIsNotElement = false; // the actions element's parent answers with a text
};

// An item that changes all the time (a clock, a graph): every `every` seconds from `since` on,
// its badge (or, with `value`, its element's value) moves on by one. Read when asked, so that
// it costs the simulated desktop no timer.
struct SimBusy {
    double every = 0; // 0: not busy
    double since = 0;
    bool value = false;
};

struct SimItem {
    std::int64_t window = 0;
    QString bundleId;
    QString title;
    QString owner;
    double width = 22;
    std::optional<double> height; // the menu bar's height when not given
    int layer = 25;
    bool fixed = false; // stays at the right end (the clock, the control centre)
    bool own = false;   // one of this application's own status items
    SimAXSpec ax;
    // Where items are accessibility elements only: the identifier the item's element carries
    // (the system's items com.apple.menuextra.…, others their title); empty: derived.
    QString identifier;
    // The system dropped this item for good (it grew longer than it keeps items).
    bool discarded = false;
    // A count the item draws in a badge on its picture (0: none), as a mail or chat item does.
    int badge = 0;
    SimBusy busy;
};

// A status item where it stands now.
struct SimPlacedItem {
    SimItem item;
    std::int32_t pid = 0;
    WindowServerRect frame;
    bool onScreen = false;
    bool inOverflow = false;  // in the system's overflow menu rather than in the bar
    bool behindNotch = false; // where the camera housing covers the menu bar
};

// What the desktop was asked to do with the pointer.
struct SimPostedEvent {
    enum class Kind { Mouse, Warp };
    Kind kind = Kind::Mouse;
    MouseEvent event; // for a warp, only the location counts
    EventTap tap = EventTap::Session;
};

// Something happened to another application's status item.
struct SimActivation {
    QString bundle;
    QString title;
    QString how; // the accessibility action's name, or "click"
};

// What Ravlin's looks at other applications cost: requests to each process's accessibility
// interface (by bundle identifier, the bar's agent included), pictures and window lists taken.
struct SimCosts {
    QMap<QString, int> axRequests;
    int windowImages = 0;
    int windowLists = 0;
};

// A click of the person in front of the screen.
struct SimUserClick {
    WindowServerPoint point;
    MouseButton button = MouseButton::Left;
    std::uint64_t flags = 0; // EventFlag bits held
};

} // namespace ravlin
