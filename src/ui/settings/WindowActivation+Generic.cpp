#include "WindowActivation.h"

#include <QWidget>

namespace ravlin::WindowActivation {

void bringToFront(QWidget* window)
{
    window->raise();
    window->activateWindow();
}

} // namespace ravlin::WindowActivation
