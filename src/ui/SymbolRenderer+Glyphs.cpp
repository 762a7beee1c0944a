// Symbols off macOS: each symbol name maps to a glyph of the Material Design icon font.
#include "SymbolRenderer.h"

#include "SymbolGlyphs.h"

#include "foundation/Logging.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QHash>
#include <QPainter>

namespace ravlin {
namespace {

QString fontFamily()
{
    static const QString family = [] {
        const QString path = QStringLiteral(
            "/usr/share/fonts/truetype/material-design-icons-iconfont/MaterialIcons-Regular.ttf");
        const int id = QFontDatabase::addApplicationFont(path);
        const QStringList families =
            id >= 0 ? QFontDatabase::applicationFontFamilies(id) : QStringList();
        if (families.isEmpty()) {
            qCWarning(lcUi) << "the Material Design icon font was not found at" << path;
            return QStringLiteral("Material Icons");
        }
        return families.first();
    }();
    return family;
}

} // namespace

bool SymbolRenderer::hasSymbol(const QString& name)
{
    auto it = symbolGlyphs().constFind(name);
    if (it == symbolGlyphs().constEnd())
        return false;
    QFont font(fontFamily());
    return QFontMetricsF(font).inFontUcs4(uint(*it));
}

bool SymbolRenderer::paint(QPainter& painter, const QRectF& rect, const QString& name,
                           const QColor& color)
{
    auto it = symbolGlyphs().constFind(name);
    if (it == symbolGlyphs().constEnd())
        return false;
    QFont font(fontFamily());
    font.setPixelSize(qMax(1, int(rect.height() * 1.0 + 0.5)));
    font.setStyleStrategy(QFont::PreferAntialias);
    painter.save();
    painter.setFont(font);
    painter.setPen(color);
    const char32_t code = *it;
    painter.drawText(rect, Qt::AlignCenter, QString::fromUcs4(&code, 1));
    painter.restore();
    return true;
}

} // namespace ravlin
