#include "SimPermissions.h"

#include "SimDesktop.h"

namespace ravlin {

bool SimPermissions::preflightScreenCaptureAccess()
{
    return m_desktop.screenRecording;
}

bool SimPermissions::requestScreenCaptureAccess()
{
    if (!m_desktop.screenRecording)
        ++m_desktop.screenRecordingPrompts;
    return m_desktop.screenRecording;
}

} // namespace ravlin
