#include "Theme.h"

#include <QFontDatabase>

namespace ravlin::Theme {

QFont font(double pointSize, QFont::Weight weight)
{
#ifdef Q_OS_MACOS
    QFont f = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
#else
    QFont f(QStringLiteral("Noto Sans"));
    f.setFamilies({QStringLiteral("Noto Sans"), QStringLiteral("Noto Sans Hebrew"),
                   QStringLiteral("Noto Sans Arabic"), QStringLiteral("Noto Sans CJK JP"),
                   QStringLiteral("DejaVu Sans")});
#endif
#ifdef Q_OS_MACOS
    f.setPointSizeF(pointSize);
#else
    // A macOS point is one logical pixel; sizing by pixels keeps layouts the same
    // whatever DPI the Linux display reports.
    f.setPixelSize(qMax(1, qRound(pointSize)));
#endif
    f.setWeight(weight);
    f.setStyleStrategy(QFont::PreferAntialias);
    return f;
}

} // namespace ravlin::Theme
