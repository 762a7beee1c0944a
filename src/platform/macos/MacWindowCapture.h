#pragma once

#include <QImage>

#include <cstdint>

namespace ravlin::MacWindowCapture {

// The image of one window within its own bounds, one pixel per point, as the window server's
// interface promises it. The technique is chosen here: ScreenCaptureKit's screenshots where the
// system has them (macOS 14 and later), the window-list image call before.
QImage capture(std::uint32_t windowNumber);

} // namespace ravlin::MacWindowCapture
