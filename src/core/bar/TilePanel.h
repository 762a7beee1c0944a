#pragma once

#include "foundation/Geometry.h"

#include <QString>

#include <functional>
#include <vector>

namespace ravlin {

struct BarGroup;
struct BarItem;
struct Stat;

// The floating tile panel, as the controller sees it.
class TilePanel {
public:
    using ItemCallback = std::function<void(const BarItem&)>;
    using StatCallback = std::function<void(const Stat&)>;

    virtual ~TilePanel() = default;
    // Fills and shows the panel hanging below anchor (screen coordinates).
    virtual void show(const std::vector<BarGroup>& groups, const ScreenRect& anchor,
                      ItemCallback onActivate, StatCallback onStat) = 0;
    // Takes the panel off screen without telling onClose.
    virtual void hide() = 0;
    virtual bool isVisible() const = 0;
    // The open panel's search takes this text, as if the user had typed it.
    virtual void search(const QString& text) { (void)text; }

    // Told when the panel closes because it lost key status.
    std::function<void()> onClose;
    // Told when the user asks the panel for the settings window (its gear, ⌘,).
    std::function<void()> onSettings;
    // Asked on every show for a line to put under everything else (empty: none).
    std::function<QString()> footnote;
    // Told when the user clicks that line.
    std::function<void()> onFootnote;
};

} // namespace ravlin
