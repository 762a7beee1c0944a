#pragma once

#include <QColor>
#include <QImage>
#include <QString>
#include <QStringList>

class QPainter;
class QRectF;

namespace ravlin {

// Draws the symbol images the program names ("chevron.left", "cloud.sun.fill", …).
// macOS draws the system's own symbols; elsewhere each name maps to a glyph of
// the Material Design icon font.
class SymbolRenderer {
public:
    // Every symbol name the program uses.
    static const QStringList& knownSymbols();
    static bool hasSymbol(const QString& name);

    // Draws the symbol centred in rect, about rect's height tall; false when the name is unknown.
    static bool paint(QPainter& painter, const QRectF& rect, const QString& name,
                      const QColor& color);
    // The symbol as an image of pointSize points at the given pixel ratio.
    static QImage image(const QString& name, double pointSize, const QColor& color,
                        double devicePixelRatio = 2.0);
};

} // namespace ravlin
