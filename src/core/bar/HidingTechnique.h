#pragma once

#include "BarArrangement.h"
#include "BarEntry.h"
#include "HiddenBy.h"
#include "core/discovery/MenuBarTechniques.h"
#include "foundation/Geometry.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace ravlin {

class BarWishes;
class DefaultsStore;
class MenuBarHideEngine;
class MenuBarReader;
class MenuBarSystem;
class Scheduler;
class StatusBar;
class StatusItem;

// What the bar should show now: the controller's state, which every technique realises.
struct HidingState {
    bool hiddenShown = false; // the hidden section is shown in the bar
    bool alwaysShown = false; // the always-hidden section too
    bool arranging = false;   // arrange mode: everything shows, with the sections' markers
    // An activation under way: this item must be within reach, as little else as can be.
    std::optional<BarEntry> reaching;
};

// What a technique works with; the controller owns all of it.
struct HidingContext {
    Scheduler& scheduler;
    StatusBar& statusBar;
    MenuBarReader& reader;
    MenuBarSystem& system;
    MenuBarHideEngine& hideEngine;
    DefaultsStore& defaults;
    const BarWishes& wishes;
    QString ownBundleId;
    // Every item of other applications in the bar now, left to right, named where it can be.
    std::function<std::vector<BarEntry>()> entries;
    // The running applications that have items in the menu bar (asked of each application,
    // not of the bar, so that it answers also for items hidden from the bar).
    std::function<QStringList()> applicationsWithItems;
    // Where Ravlin's main item stands (screen coordinates).
    std::function<std::optional<ScreenRect>()> mainFrame;
    // Whether the bar shows Ravlin's own items at all (the system can switch them off).
    std::function<bool()> ownItemsShown;
    // A click on one of the technique's own items is a click on the chevron.
    std::function<void()> ownItemClicked;
    // The technique's hiding changed on its own (an answer came, a refusal): the chevron follows.
    std::function<void()> changed;
    // The technique found it cannot work here: the controller chooses another.
    std::function<void(const QString& why)> cannotGoOn;
};

// One way of keeping items out of sight: long separators, short separators spread over the
// bar, or the system's assessment mode. The controller chooses one in one place and asks it to
// realise the user's wishes for the state it keeps and to say, for every item, whether it keeps
// the item out of sight; nothing else in the program asks which technique runs.
class HidingTechnique {
public:
    using Kind = MenuBarTechniques::Hiding;

    explicit HidingTechnique(HidingContext& context) : m_context(context) {}
    virtual ~HidingTechnique() = default;
    HidingTechnique(const HidingTechnique&) = delete;
    HidingTechnique& operator=(const HidingTechnique&) = delete;

    static std::unique_ptr<HidingTechnique> make(Kind kind, HidingContext& context);

    virtual Kind kind() const = 0;
    // Makes the technique's own items, where the user's arrangement wants them (at start,
    // and when it takes over from another technique while running).
    virtual void install() = 0;
    // Takes the technique's own items out of the bar (before another technique takes over).
    virtual void uninstall() = 0;
    // Realises the wishes for the state; every change of state or of the wishes ends here.
    virtual void apply(const HidingState& state) = 0;
    // Everything within reach for a moment (to picture or move items); apply() ends it.
    virtual void exposeAll() = 0;
    // Makes one item reachable for an activation; `ready` runs once it can be pressed.
    virtual void bringIntoReach(const HidingState& state, std::function<void()> ready) = 0;
    // After a collapse: whether it took. One that did not may end in cannotGoOn.
    virtual void verify() {}
    // False while nothing is hidden that should be (a refusal, a dropped separator).
    virtual bool holds() const = 0;
    // Why this technique keeps the item out of sight; null when it does not.
    virtual std::optional<HiddenBy> hiddenBy(const BarEntry& entry) const = 0;
    // The same for many items, with one look at the bar.
    virtual std::vector<std::optional<HiddenBy>> hiddenBy(const std::vector<BarEntry>& entries) const
    {
        std::vector<std::optional<HiddenBy>> reasons;
        reasons.reserve(entries.size());
        for (const BarEntry& entry : entries)
            reasons.push_back(hiddenBy(entry));
        return reasons;
    }
    // Whether items keep their sides by where they stand in the bar (true for separators),
    // so that the order of the bar is the user's arrangement.
    virtual bool keepsArrangement() const = 0;
    // The item that marks where a section begins (its right end), where there is one now.
    virtual const StatusItem* marker(BarArrangement::Section section) const = 0;
    // How many of Ravlin's items make up the hidden section's separator (0: none).
    virtual int separatorCount() const { return 0; }
    // The user placed items anew; a technique that cannot move other items may move itself.
    virtual void placementsChanged() {}
    // The always-hidden section was switched on or off.
    virtual void alwaysHiddenSectionChanged(bool on) { (void)on; }
    virtual void displaysChanged() {}
    // Whether it keeps or hides an application's items all together, whatever their placements.
    virtual bool hidesWholeApplications() const { return false; }

protected:
    HidingContext& m_context;
};

} // namespace ravlin
