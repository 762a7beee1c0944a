#include "NativeWindow.h"

namespace ravlin::NativeWindow {

void makeMenuBarPanel(QWidget*)
{
    // Qt's tool-window flags are all there is off macOS.
}

bool addHudBackground(QWidget*, double)
{
    return false;
}

} // namespace ravlin::NativeWindow
