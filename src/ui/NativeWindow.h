#pragma once

class QWidget;

namespace ravlin::NativeWindow {

// Gives a floating panel the native traits of a menu-bar panel: the status-window
// level, a place on every space and beside full-screen windows. No-op off macOS.
void makeMenuBarPanel(QWidget* window);

} // namespace ravlin::NativeWindow
