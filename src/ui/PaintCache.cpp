#include "PaintCache.h"

#include "SymbolRenderer.h"
#include "Theme.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace ravlin {
namespace {

// Figures change every second; a bound keeps the lines of old ones from piling up.
constexpr int mostEntries = 4000;

} // namespace

quint64 PaintCache::fontKey(const QFont& font)
{
    const double size = font.pixelSize() > 0 ? font.pixelSize() : font.pointSizeF();
    return (quint64(qRound(size * 8)) << 16) | quint64(font.weight());
}

QFont PaintCache::font(double pointSize, QFont::Weight weight)
{
    const quint64 key = (quint64(qRound(pointSize * 8)) << 16) | quint64(weight);
    auto it = m_fonts.find(key);
    if (it == m_fonts.end())
        it = m_fonts.insert(key, Theme::font(pointSize, weight));
    return *it;
}

const PaintCache::Line& PaintCache::line(const QString& text, const QFont& font, double width,
                                         bool rightToLeft)
{
    LineKey key{text, fontKey(font), int(width * 4), rightToLeft};
    auto it = m_lines.find(key);
    if (it != m_lines.end())
        return *it;
    trim();
    const QFontMetricsF metrics(font);
    Line line;
    line.shown = metrics.elidedText(text, Qt::ElideRight, width);
    line.text = QStaticText(line.shown);
    QTextOption option;
    option.setTextDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    option.setWrapMode(QTextOption::NoWrap);
    line.text.setTextOption(option);
    line.text.setTextFormat(Qt::PlainText);
    line.text.setPerformanceHint(QStaticText::AggressiveCaching);
    line.text.prepare(QTransform(), font);
    line.size = QSizeF(metrics.horizontalAdvance(line.shown), metrics.height());
    return *m_lines.insert(std::move(key), std::move(line));
}

QFont PaintCache::fitting(const QString& text, double pointSize, QFont::Weight weight,
                                 double width)
{
    const QString key = QStringLiteral("%1|%2|%3|%4")
                            .arg(text)
                            .arg(pointSize)
                            .arg(int(weight))
                            .arg(qRound(width * 4));
    auto it = m_fitting.find(key);
    if (it != m_fitting.end())
        return *it;
    trim();
    double size = pointSize;
    for (; size > 6.5; size -= 0.5)
        if (QFontMetricsF(font(size, weight)).horizontalAdvance(text) <= width)
            break;
    return *m_fitting.insert(key, font(std::max(size, 7.0), weight));
}

const QPixmap& PaintCache::symbol(const QString& name, double side, const QColor& color,
                                  double devicePixelRatio)
{
    const SymbolKey key{name, qRound(side * 4), color.rgba(), qRound(devicePixelRatio * 100)};
    auto it = m_symbols.find(key);
    if (it != m_symbols.end())
        return *it;
    trim();
    const QImage image = SymbolRenderer::image(name, side, color, devicePixelRatio);
    return *m_symbols.insert(key, image.isNull() ? QPixmap() : QPixmap::fromImage(image));
}

QRectF PaintCache::inkBounds(const QImage& picture)
{
    auto it = m_ink.find(picture.cacheKey());
    if (it != m_ink.end())
        return *it;
    trim();
    return *m_ink.insert(picture.cacheKey(), measureInk(picture));
}

QRectF PaintCache::measureInk(const QImage& picture)
{
    const QImage argb = picture.convertToFormat(QImage::Format_ARGB32);
    int left = argb.width(), right = -1, top = argb.height(), bottom = -1;
    for (int y = 0; y < argb.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(argb.constScanLine(y));
        for (int x = 0; x < argb.width(); ++x) {
            if (qAlpha(row[x]) < 16)
                continue;
            left = std::min(left, x);
            right = std::max(right, x);
            top = std::min(top, y);
            bottom = std::max(bottom, y);
        }
    }
    if (right < 0)
        return {};
    const double w = argb.width(), h = argb.height();
    return {left / w, top / h, (right + 1 - left) / w, (bottom + 1 - top) / h};
}

int PaintCache::entries() const
{
    return int(m_fonts.size() + m_lines.size() + m_fitting.size() + m_symbols.size() +
               m_ink.size());
}

void PaintCache::trim()
{
    if (entries() >= mostEntries)
        clear();
}

void PaintCache::clear()
{
    m_lines.clear();
    m_fitting.clear();
    m_symbols.clear();
    m_ink.clear();
}

} // namespace ravlin
