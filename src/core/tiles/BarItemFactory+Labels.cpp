// Labels, keys and symbols: the wording side of the item factory.

#include "BarItemFactory.h"

#include "core/discovery/ItemTitles.h"
#include "core/settings/LanguageManager.h"

#include <array>
#include <vector>

namespace ravlin {

namespace {

bool nonEmpty(const std::optional<QString>& text)
{
    return text && !text->isEmpty();
}

struct SymbolRow {
    std::vector<const char16_t*> keywords;
    const char16_t* symbol;
};

// First match wins; plain substrings on purpose, so "ton" also finds longer words.
const std::array<SymbolRow, 13>& symbolRows()
{
    static const std::array<SymbolRow, 13> rows{{
        {{u"wlan", u"wi-fi", u"wifi", u"airport"}, u"wifi"},
        {{u"bluetooth"}, u"dot.radiowaves.right"},
        {{u"batterie", u"battery", u"akku"}, u"battery.100"},
        {{u"spotlight", u"suche", u"search"}, u"magnifyingglass"},
        {{u"wetter", u"weather"}, u"cloud.sun"},
        {{u"läuft", u"playing", u"musik", u"music", u"audio"}, u"play.circle"},
        {{u"ton", u"sound", u"lautstärke", u"volume"}, u"speaker.wave.2"},
        {{u"fokus", u"focus", u"nicht stören", u"do not disturb"}, u"moon"},
        {{u"uhr", u"clock", u"zeit", u"datum", u"time", u"date"}, u"clock"},
        {{u"tastatur", u"keyboard", u"eingabe", u"input"}, u"keyboard"},
        {{u"kontrollzentrum", u"control center", u"steuerung"}, u"switch.2"},
        {{u"display", u"bildschirm", u"helligkeit"}, u"sun.max"},
        {{u"vpn", u"netzwerk", u"network"}, u"network"},
    }};
    return rows;
}

} // namespace

QString BarItemFactory::label(const MenuBarItemInfo& info,
                              const std::optional<ResolvedItem>& resolved, bool isApple) const
{
    if (info.name.startsWith(ItemTitles::istatPrefix))
        return ItemTitles::istatLabelPrefix + QString(info.name).remove(ItemTitles::istatPrefix);
    if (std::optional<QString> module = moduleLabel(info.name); nonEmpty(module))
        return *module;
    const std::optional<QString> title = resolved ? resolved->title : std::nullopt;
    if (isApple && nonEmpty(title))
        return clean(*title);
    if (std::optional<QString> friendly =
            friendlyName(resolved ? resolved->bundleId : std::nullopt);
        nonEmpty(friendly))
        return *friendly;
    const std::optional<QString> appName = resolved ? resolved->appName : std::nullopt;
    if (!isApple && nonEmpty(appName) && *appName != u"Kontrollzentrum" &&
        *appName != u"Control Center")
        return cleanAppName(*appName);
    if (nonEmpty(title))
        return clean(*title);
    if (!info.name.isEmpty() && info.name != ItemTitles::generic)
        return info.name;
    return {};
}

QString BarItemFactory::stableKey(const MenuBarItemInfo& info,
                                  const std::optional<ResolvedItem>& resolved, const QString& label)
{
    if (!info.name.isEmpty() && info.name != ItemTitles::generic)
        return QStringLiteral("n:") + info.name;
    if (resolved && nonEmpty(resolved->bundleId))
        return QStringLiteral("b:") + *resolved->bundleId + u'#' + info.name;
    return QStringLiteral("o:") + info.owner + u'#' + label;
}

std::optional<QString> BarItemFactory::moduleLabel(const QString& name) const
{
    if (name == u"WiFi")
        return m_language.L(QStringLiteral("sysitem.wifi"));
    if (name == u"Bluetooth")
        return QStringLiteral("Bluetooth"); // the same word in every language
    if (name == u"NowPlaying")
        return m_language.L(QStringLiteral("sysitem.nowplaying"));
    return std::nullopt;
}

std::optional<QString> BarItemFactory::friendlyName(const std::optional<QString>& bundle) const
{
    if (bundle == u"com.apple.TextInputMenuAgent")
        return m_language.L(QStringLiteral("sysitem.inputmenu"));
    return std::nullopt;
}

// Accessibility titles often add a state after a comma ("Wi-Fi, connected").
QString BarItemFactory::clean(const QString& text)
{
    const qsizetype comma = text.indexOf(QStringLiteral(", "));
    return comma < 0 ? text : text.left(comma);
}

QString BarItemFactory::cleanAppName(const QString& name)
{
    if (name == u"Google Chrome")
        return QStringLiteral("Chrome");
    if (name == u"Microsoft Edge")
        return QStringLiteral("Edge");
    QString cut = name;
    for (const QString& suffix :
         {QStringLiteral(" Helper"), QStringLiteral("Helper"), QStringLiteral(" Agent"),
          QStringLiteral("Agent"), QStringLiteral(" (GPU)")}) {
        if (cut.endsWith(suffix)) {
            cut.chop(suffix.size());
            break;
        }
    }
    cut = cut.trimmed();
    return cut.isEmpty() ? name : cut;
}

QString BarItemFactory::symbol(const QString& label, const std::optional<ResolvedItem>& resolved)
{
    const QString text =
        (label + u' ' + (resolved ? resolved->title.value_or(QString()) : QString())).toLower();
    for (const SymbolRow& row : symbolRows()) {
        for (const char16_t* keyword : row.keywords) {
            if (text.contains(QStringView(keyword)))
                return QString::fromUtf16(row.symbol);
        }
    }
    return QStringLiteral("circle.grid.2x2");
}

} // namespace ravlin
