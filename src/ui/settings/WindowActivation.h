#pragma once

class QWidget;

namespace ravlin::WindowActivation {

// Puts the window in front and gives it the keyboard. An agent application has to be
// activated first (ApplicationControl::activate), or the window opens behind the one the
// user is working in.
void bringToFront(QWidget* window);

} // namespace ravlin::WindowActivation
