#pragma once

#include <QImage>

typedef struct CGImage* CGImageRef;

namespace ravlin::CGImageConvert {

// The image's pixels as a premultiplied ARGB QImage; null when it cannot be drawn.
QImage toQImage(CGImageRef image);

} // namespace ravlin::CGImageConvert
