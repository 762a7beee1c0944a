#pragma once

#include "ItemLook.h"
#include "foundation/Geometry.h"
#include "platform/Accessibility.h"

#include <QHash>

#include <optional>

namespace ravlin {

class ItemCapture;
class MenuBarReader;
class WindowServer;
struct BarItem;

// Reads an item's looks the way the running system lets them be read, costing as little as can
// be: where items are windows, one window list per round gives every item's size, the picture
// is taken where the item stands on a display (off screen the window server has none), and the
// texts come from the item's element in its application's extras menu bar, found once by its
// frame; where items are only elements (macOS 27), the element the bar's last reading found is
// asked directly, so that the system's menu-bar agent is never asked at all.
class ItemLookReader {
public:
    ItemLookReader(Accessibility& accessibility, WindowServer& windowServer,
                   const ItemCapture& capture, const MenuBarReader& reader);

    // Before a round of looks: where items are windows, one reading of the window list.
    void beginRound();
    ItemLook look(const BarItem& item);
    // The item is no longer watched: its element is let go.
    void forget(const QString& key) { m_elements.remove(key); }

private:
    std::optional<AXElement> elementOf(const BarItem& item,
                                       const std::optional<WindowServerRect>& frame);
    std::optional<AXElement> findInExtras(std::int32_t pid, const WindowServerRect& frame);
    // The process that draws the item: as the panel knows it, else as the window list names it
    // (where it names the real owners), else as the applications' extras menu bars tell.
    std::int32_t ownerOf(const BarItem& item);
    // The attribute's text; "" when the element has no such attribute; absent when it did not
    // answer (then `lost` says whether the element is gone).
    std::optional<QString> text(const AXElement& element, const QString& attribute, bool* lost);

    Accessibility& m_accessibility;
    WindowServer& m_windowServer;
    const ItemCapture& m_capture;
    const MenuBarReader& m_reader;
    QHash<std::uint32_t, WindowServerRect> m_frames; // of this round, by window
    QHash<std::uint32_t, std::int32_t> m_owners;     // of this round, as the window list names them
    QHash<QString, AXElement> m_elements;           // by item key
};

} // namespace ravlin
