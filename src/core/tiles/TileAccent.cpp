#include "TileAccent.h"

#include "foundation/SystemColor.h"

#include <QStringList>

#include <vector>

namespace ravlin {
namespace {

struct AccentRow {
    QStringList keywords;
    QColor colour;
};

// Tried in order; the first row with a keyword in the label wins, so a
// "Bluetooth Button" is blue although "ton" stands in it too.
const std::vector<AccentRow>& accentRows()
{
    static const std::vector<AccentRow> rows = {
        {{QStringLiteral("wlan"), QStringLiteral("wi-fi"), QStringLiteral("wifi"),
          QStringLiteral("airport"), QStringLiteral("airdrop")},
         SystemColor::blue()},
        {{QStringLiteral("bluetooth")}, SystemColor::blue()},
        {{QStringLiteral("batterie"), QStringLiteral("battery"), QStringLiteral("akku")},
         SystemColor::green()},
        {{QStringLiteral("wetter"), QStringLiteral("weather")},
         QColor::fromRgbF(0.39f, 0.82f, 0.94f)},
        {{QStringLiteral("fokus"), QStringLiteral("focus"), QStringLiteral("nicht stören")},
         SystemColor::indigo()},
        {{QStringLiteral("ton"), QStringLiteral("sound"), QStringLiteral("lautstärke"),
          QStringLiteral("volume"), QStringLiteral("audio"), QStringLiteral("musik"),
          QStringLiteral("music"), QStringLiteral("läuft")},
         SystemColor::pink()},
        {{QStringLiteral("spotlight"), QStringLiteral("suche"), QStringLiteral("search")},
         SystemColor::gray()},
    };
    return rows;
}

} // namespace

QColor tileAccent(const QString& label)
{
    const QString text = label.toLower();
    for (const AccentRow& row : accentRows())
        for (const QString& keyword : row.keywords)
            if (text.contains(keyword))
                return row.colour;
    return SystemColor::blue();
}

} // namespace ravlin
