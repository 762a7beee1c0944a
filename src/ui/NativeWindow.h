#pragma once

class QWidget;

namespace ravlin::NativeWindow {

// Gives a floating panel the native traits of a menu-bar panel: the status-window
// level, a place on every space and beside full-screen windows, and a panel that does
// not activate Ravlin. Call it before the window is first shown (and again after a show
// is harmless). No-op off macOS.
void makeMenuBarPanel(QWidget* window);

// Gives the window a clear native background for a rounded panel. True only where a
// native material stands behind the content; false where the content paints its own
// glass (everywhere at present: the window stays Qt's own).
bool addHudBackground(QWidget* window, double cornerRadius);

} // namespace ravlin::NativeWindow
