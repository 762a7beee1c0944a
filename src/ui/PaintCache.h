#pragma once

#include <QColor>
#include <QFont>
#include <QHash>
#include <QImage>
#include <QPixmap>
#include <QStaticText>
#include <QString>

namespace ravlin {

// What painting the panel would otherwise work out again on every frame: the
// panel's fonts, each line of text shaped and elided once for its font and width,
// each symbol rendered once for its size, colour and pixel density. The tile panel
// keeps one for its whole life, so a panel shown again paints from it at once.
// (Tile faces are not kept as pictures: blending a picture of a translucent face
// costs as much as filling the face, and more where it stands between pixels.)
class PaintCache {
    Q_DISABLE_COPY_MOVE(PaintCache)

public:
    PaintCache() = default;

public:
    struct Line {
        QStaticText text;
        QString shown; // elided where it had to be
        QSizeF size;
    };

    // Theme::font, made once per size and weight.
    QFont font(double pointSize, QFont::Weight weight = QFont::Normal);
    // One line of text in that font, elided to `width` at its end, laid out once.
    const Line& line(const QString& text, const QFont& font, double width, bool rightToLeft);
    // The largest font of that weight, from pointSize down in half points to 7, in which
    // the text is at most `width` wide.
    QFont fitting(const QString& text, double pointSize, QFont::Weight weight,
                         double width);
    // The symbol `side` points tall at that pixel density (null: unknown symbol).
    const QPixmap& symbol(const QString& name, double side, const QColor& color,
                          double devicePixelRatio);

    // The part of a picture that is not clear, as fractions of its width and height (empty
    // for a clear picture): once per picture.
    QRectF inkBounds(const QImage& picture);
    static QRectF measureInk(const QImage& picture);

    int entries() const;
    void clear();

private:
    // Texts are keyed by their font's size and weight: the panel's fonts differ in nothing else.
    struct LineKey {
        QString text;
        quint64 font;
        int width;
        bool rtl;
        bool operator==(const LineKey&) const = default;
    };
    friend size_t qHash(const LineKey& k, size_t seed)
    {
        return qHashMulti(seed, k.text, k.font, k.width, k.rtl);
    }
    struct SymbolKey {
        QString name;
        int side;
        QRgb color;
        int ratio;
        bool operator==(const SymbolKey&) const = default;
    };
    friend size_t qHash(const SymbolKey& k, size_t seed)
    {
        return qHashMulti(seed, k.name, k.side, k.color, k.ratio);
    }
    static quint64 fontKey(const QFont& font);
    void trim();

    QHash<quint64, QFont> m_fonts;
    QHash<LineKey, Line> m_lines;
    QHash<QString, QFont> m_fitting;
    QHash<qint64, QRectF> m_ink;
    QHash<SymbolKey, QPixmap> m_symbols;
};

} // namespace ravlin
