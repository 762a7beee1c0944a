#include "support/PanelWorld.h"

#include "core/sysinfo/SystemStats.h"
#include "core/sysinfo/WeatherService.h"
#include "core/tiles/PanelContent.h"
#include "ui/SymbolRenderer.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

// Dotted lower-case literals that are not symbol names.
const QSet<QString> notSymbols = {
    QStringLiteral("sys.cpu"),  QStringLiteral("sys.ram"), QStringLiteral("sys.disk"),
    QStringLiteral("sys.batt"), QStringLiteral("sys.net"), QStringLiteral("n.a"),
    QStringLiteral("ravlin.layout"), // the format name of an exported layout
};

bool isBundleIdentifier(const QString& name)
{
    static const QStringList prefixes = {QStringLiteral("com."), QStringLiteral("de."),
                                         QStringLiteral("org."), QStringLiteral("net."),
                                         QStringLiteral("io.")};
    for (const QString& prefix : prefixes)
        if (name.startsWith(prefix))
            return true;
    return false;
}

// Every literal in the sources that names a symbol: dotted lower-case names
// anywhere, and lower-case words on lines that speak of symbols.
QSet<QString> symbolNamesInSources()
{
    static const QRegularExpression literal(
        QStringLiteral(R"re((?:QStringLiteral|u)\("([a-z][a-z0-9]*(?:\.[a-z0-9]+)*)"\))re"));
    static const QRegularExpression dotted(QStringLiteral(R"(^[a-z][a-z0-9]*(\.[a-z0-9]+)+$)"));
    // The last entry of a table row after a list of keywords: `{{u"wlan", …}, u"wifi"},`.
    static const QRegularExpression rowResult(
        QStringLiteral(R"re(\},\s*u"([a-z][a-z0-9.]*)"\})re"));
    QSet<QString> names;
    QDirIterator it(QStringLiteral(RAVLIN_SOURCE_DIR "/src"),
                    {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        if (path.contains(QStringLiteral("/app/sandbox/")) ||
            path.contains(QStringLiteral("/platform/")))
            continue; // scripts and platform keys are not drawn
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
        for (const QString& line : lines) {
            if (const auto row = rowResult.match(line); row.hasMatch())
                names.insert(row.captured(1));
            const bool speaksOfSymbols =
                line.contains(QStringLiteral("symbol"), Qt::CaseInsensitive);
            auto matches = literal.globalMatch(line);
            while (matches.hasNext()) {
                const QString name = matches.next().captured(1);
                const bool candidate = dotted.match(name).hasMatch()
                                           ? !line.contains(QStringLiteral("L(")) &&
                                                 !line.contains(QStringLiteral("Key"))
                                           : speaksOfSymbols;
                if (candidate && !notSymbols.contains(name) &&
                    !name.startsWith(QStringLiteral("sysitem.")) &&
                    !name.contains(QStringLiteral(".strings")) && !isBundleIdentifier(name))
                    names.insert(name);
            }
        }
    }
    return names;
}

} // namespace

TEST(SymbolRenderer, EverySymbolNameInTheCodeHasAGlyph)
{
    const QSet<QString> used = symbolNamesInSources();
    EXPECT_GE(used.size(), 10);
    for (const QString& name : used)
        EXPECT_TRUE(SymbolRenderer::knownSymbols().contains(name))
            << "no glyph mapped for symbol " << name.toStdString();
    for (const QString& name : SymbolRenderer::knownSymbols())
        EXPECT_TRUE(SymbolRenderer::hasSymbol(name))
            << "the icon font lacks the glyph for " << name.toStdString();
}

TEST(SymbolRenderer, DrawsKnownSymbolsAndNothingForUnknownOnes)
{
    const QImage chevron = SymbolRenderer::image(QStringLiteral("chevron.left"), 16, Qt::white);
    ASSERT_FALSE(chevron.isNull());
    int inked = 0;
    for (int y = 0; y < chevron.height(); ++y)
        for (int x = 0; x < chevron.width(); ++x)
            inked += qAlpha(chevron.pixel(x, y)) > 128 ? 1 : 0;
    EXPECT_GT(inked, 20);
    EXPECT_TRUE(SymbolRenderer::image(QStringLiteral("no.such.symbol"), 16, Qt::white).isNull());
}

TEST(SymbolRenderer, EveryTileAndWeatherSymbolHasAGlyph)
{
    test::PanelWorld world;
    world.stats().refresh(); // with a battery
    const PanelContent content(world.stats(), world.weather(), world.tiles(), world.language());
    std::vector<PanelTile> tiles = content.statisticsTiles();
    for (const PanelTile& t : content.permissionTiles(false, false))
        tiles.push_back(t);
    ASSERT_EQ(tiles.size(), 7u);
    for (const PanelTile& t : tiles)
        EXPECT_TRUE(SymbolRenderer::hasSymbol(t.symbol)) << t.key.toStdString();
    for (int code = -1; code <= 100; ++code)
        EXPECT_TRUE(SymbolRenderer::hasSymbol(WeatherService::describe(code).symbol)) << code;
    EXPECT_TRUE(SymbolRenderer::hasSymbol(WeatherService::describe(std::nullopt).symbol));
}
