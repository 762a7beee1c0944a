#pragma once

#include "ui/RavlinBarView.h"

#include <QImage>

#include <benchmark/benchmark.h>

namespace ravlin::bench {

// Where a benchmark paints the panel: a buffer at Retina density kept from frame to frame, as
// a window's backing store is, so that only the painting is measured.
class BackingStore {
public:
    void paint(RavlinBarView& view)
    {
        const QSize pixels = view.size() * 2;
        if (m_image.size() != pixels) {
            m_image = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
            m_image.setDevicePixelRatio(2);
        }
        m_image.fill(Qt::transparent);
        view.render(&m_image);
        benchmark::DoNotOptimize(m_image.constBits());
    }

private:
    QImage m_image;
};

} // namespace ravlin::bench
