#pragma once

#include "MenuBarCapabilities.h"
#include "MenuBarTechniques.h"
#include "foundation/Geometry.h"

#include <QString>

#include <optional>
#include <vector>

namespace ravlin {

class MenuBarReader;
class Screens;
class StatusItem;
class WindowServer;
class Workspace;
struct StatusWindow;

// What the running system's menu bar does and the techniques Ravlin uses on it. It
// learns by watching its own items: whether the window list shows a window where the
// main item stands and whose process it names, and whether the bar keeps a long
// separator. It decides once per look and tells the reader; the controller asks it
// instead of testing versions.
class MenuBarSystem {
public:
    // Kept inside the longest item the bar keeps, so that a separator is never dropped.
    static constexpr double shortSeparatorMargin = 16;

    MenuBarSystem(MenuBarReader& reader, WindowServer& windowServer, Workspace& workspace,
                  Screens& screens);

    // Looks at the bar where the main item stands (at start and after a display change).
    void detect(const StatusItem& mainItem, bool engineAvailable);
    // The bar dropped one of our items for its length: from now on separators stay shorter.
    void noteLongItemsDropped();
    // Displays changed: a known limit follows the narrowest display.
    void displaysChanged();
    // The assessment mode refused: for the rest of the run it is not chosen again.
    void engineStoppedWorking();

    const MenuBarCapabilities& capabilities() const { return m_capabilities; }
    const MenuBarTechniques& techniques() const { return m_techniques; }
    // The length a collapsed separator may have, and how many separators it takes to span
    // the widest display at that length.
    double collapsedSeparatorLength(double wanted) const;
    int separatorsToSpan(double wanted) const;

private:
    void apply(MenuBarCapabilities capabilities);
    std::optional<StatusWindow> windowAt(const ScreenRect& frame,
                                         const std::vector<StatusWindow>& windows) const;
    std::optional<StatusWindow> barWindow(const std::vector<StatusWindow>& windows) const;
    double narrowestDisplay() const;
    double widestDisplay() const;
    double mainDisplayHeight() const;
    QString processName(std::int32_t pid) const;

    MenuBarReader& m_reader;
    WindowServer& m_windowServer;
    Workspace& m_workspace;
    Screens& m_screens;
    bool m_engineAvailable = false;
    bool m_engineStopped = false;
    MenuBarCapabilities m_capabilities;
    MenuBarTechniques m_techniques;
};

} // namespace ravlin
