#pragma once

#include "MenuBarCapabilities.h"
#include "StatusWindow.h"
#include "platform/Accessibility.h"

#include <QMutex>

#include <map>
#include <optional>
#include <tuple>
#include <vector>

namespace ravlin {

class Screens;
class StatusItem;
class WindowServer;
class Workspace;
enum class WindowListOption : std::uint32_t;

// Reads the bar's status items the way the running system lets them be read: from the
// window list; from the window list with each window's owner taken from the applications'
// extras menu bars, where the list names the system as the owner of every item; or, where
// items have no windows, from the bar's accessibility tree, each slot standing in for a
// window under a number of its own that stays the same while Ravlin runs. Every reader of
// the bar in the core goes through it, so that the rules above it stay the same everywhere.
// Background scans use it too: its bookkeeping is guarded.
class MenuBarReader {
public:
    // Answers from another application are waited for this long, so that one that hangs
    // cannot stall a scan.
    static constexpr float messagingTimeout = 0.25f;
    // Numbers given to items without windows start here, far above real window numbers.
    static constexpr std::uint32_t firstElementNumber = 0x40000000;

    MenuBarReader(WindowServer& windowServer, Accessibility& accessibility, Workspace& workspace,
                  Screens& screens);

    void setCapabilities(const MenuBarCapabilities& capabilities);
    MenuBarCapabilities capabilities() const;

    // Every status item, own ones included, in the source's order; nothing when the
    // source cannot be read.
    std::optional<std::vector<StatusWindow>> statusWindows(WindowListOption option) const;
    // Where one of our own items stands, in screen coordinates: its window's frame, or
    // where items have no windows, its slot's.
    std::optional<ScreenRect> frameOf(const StatusItem& item) const;
    // Whether the bar still holds the item (a bar that drops long items may not).
    bool keeps(const StatusItem& item) const;
    // The element that stands for a listed item where items have no windows.
    std::optional<AXElement> elementFor(std::uint32_t number) const;

private:
    struct Slot {
        QString identifier;
        std::optional<WindowServerRect> frame;
        AXElement child;
        std::int32_t pid = 0;
    };
    struct ExtrasItem {
        WindowServerRect frame;
        std::int32_t pid = 0;
        QString owner;
    };

    std::optional<std::vector<StatusWindow>> fromWindowList(WindowListOption option) const;
    void takeOwnersFromExtras(std::vector<StatusWindow>& windows) const;
    std::vector<ExtrasItem> extrasItems() const;
    std::optional<std::vector<StatusWindow>> fromAccessibilityTree(WindowListOption option) const;
    std::optional<std::vector<Slot>> slots() const;
    std::vector<AXElement> children(const AXElement& element) const;
    std::optional<QString> text(const AXElement& element, const QString& attribute) const;
    std::optional<WindowServerRect> frame(const AXElement& element) const;
    bool isOnScreen(const WindowServerRect& frame) const;
    QString ownerName(std::int32_t pid) const;
    double mainDisplayHeight() const;

    WindowServer& m_windowServer;
    Accessibility& m_accessibility;
    Workspace& m_workspace;
    Screens& m_screens;
    mutable QMutex m_mutex;
    MenuBarCapabilities m_capabilities;
    mutable std::map<std::tuple<std::int32_t, QString, int>, std::uint32_t> m_numbers;
    mutable std::map<std::uint32_t, AXElement> m_elements;
};

} // namespace ravlin
