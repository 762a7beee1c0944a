#pragma once

class QWidget;

namespace ravlin::WindowActivation {

// Puts the window in front of every other application's and gives it the keyboard.
// An agent application has to ask the system to activate it first, or the window
// opens behind the one the user is working in.
void bringToFront(QWidget* window);

} // namespace ravlin::WindowActivation
