#pragma once

class QWidget;

namespace ravlin::NativeWindow {

// Gives a floating panel the native traits of a menu-bar panel: the status-window
// level, a place on every space and beside full-screen windows. No-op off macOS.
void makeMenuBarPanel(QWidget* window);

// Puts the system's HUD material behind the window's content, rounded with a thin
// light border; false where there is no such material (the content paints its own).
bool addHudBackground(QWidget* window, double cornerRadius);

} // namespace ravlin::NativeWindow
