#pragma once

#include "foundation/Geometry.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace ravlin {

// One display: its whole frame and the part left after the menu bar and the Dock,
// both in screen coordinates.
struct ScreenInfo {
    ScreenRect frame;
    ScreenRect visibleFrame;
    // The part of the menu bar the camera housing covers, on a display with a notch.
    std::optional<ScreenRect> notch;
};

class Screens {
public:
    // An observer stays registered while its token lives.
    using ObserverToken = std::shared_ptr<void>;

    virtual ~Screens() = default;

    // Every display; the first is the one with the menu bar (screen coordinates' origin).
    virtual std::vector<ScreenInfo> screens() = 0;
    // The display with the key window, which is not always the first.
    virtual std::optional<ScreenInfo> mainScreen() = 0;
    virtual ScreenPoint mouseLocation() = 0;

    // Told when a display is added or removed or changes its size or arrangement.
    [[nodiscard]] ObserverToken addChangeObserver(std::function<void()> observer);

protected:
    // Backends call this when the platform reports a change of the displays.
    void notifyChanged();

private:
    std::vector<std::weak_ptr<std::function<void()>>> m_observers;
};

} // namespace ravlin
