// Table-driven runs: one script over each macOS generation and hiding technique. `when` holds
// a line for some of them, `upgrade` takes the user to the run's own system, and the section
// `items` says of every item what the desktop shows and what the application makes of it.
#include "ItemSight.h"
#include "SandboxCommands.h"
#include "SandboxSession.h"
#include "ScriptRunner.h"

#include "core/app/AppDelegate.h"
#include "core/bar/StatusBarController.h"
#include "core/settings/Preferences.h"
#include "platform/sim/SimAssessmentMode.h"
#include "platform/sim/SimDesktop.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QSet>

namespace ravlin::sandbox {
namespace {

QString techniqueOf(SandboxSession& s)
{
    return s.assessmentMode().isAvailable() ? QStringLiteral("engine")
                                            : QStringLiteral("separators");
}

// `system=27`, `system!=15`, `technique=engine`, `technique!=separators`; nullopt: not a
// condition but the first word of the command.
std::optional<bool> condition(CommandContext& c, const QString& word)
{
    const qsizetype eq = word.indexOf(u'=');
    if (eq <= 0)
        return std::nullopt;
    const bool negated = word[eq - 1] == u'!';
    const QString name = word.left(negated ? eq - 1 : eq);
    const QString value = word.mid(eq + 1);
    QString actual;
    if (name == u"system")
        actual = QString::number(c.session.desktop().generation());
    else if (name == u"technique")
        actual = techniqueOf(c.session);
    else
        return std::nullopt;
    return (actual == value) != negated;
}

void whenCommand(CommandContext& c)
{
    qsizetype first = 1;
    bool holds = true;
    while (first < c.wordCount()) {
        const std::optional<bool> met = condition(c, c.word(first));
        if (!met)
            break;
        holds = holds && *met;
        ++first;
    }
    if (first == 1)
        c.fail(QStringLiteral("when needs a condition: system=N, system!=N, technique=engine, "
                              "technique=separators"));
    if (first >= c.wordCount())
        c.fail(QStringLiteral("when needs a command after its conditions"));
    if (!holds)
        return;
    ScriptLine inner;
    inner.number = c.line.number;
    const qsizetype offset = c.line.words[first].rawStart;
    inner.raw = c.line.raw.mid(offset);
    for (qsizetype i = first; i < c.wordCount(); ++i)
        inner.words.append({c.line.words[i].text, c.line.words[i].rawStart - offset});
    c.runner.executeLine(inner);
}

// `upgrade [system=N] [engine=available|unavailable]`: the Mac is updated: Ravlin quits, the
// menu bar becomes that release's (the run's own by default) and Ravlin starts again.
void upgradeCommand(CommandContext& c)
{
    const QMap<QString, QString> options = c.options(1);
    int system = c.session.desktop().generation();
    bool engine = c.session.assessmentMode().isAvailable();
    if (const auto& cell = c.runner.cell()) {
        system = cell->system;
        engine = cell->engine;
    }
    if (options.contains(QStringLiteral("system")))
        system = options.value(QStringLiteral("system")).toInt();
    if (options.contains(QStringLiteral("engine")))
        engine = options.value(QStringLiteral("engine")) == u"available";
    c.session.quit();
    if (!c.session.desktop().setGeneration(system))
        c.fail(QStringLiteral("upgrade takes system=15, 26 or 27"));
    c.session.assessmentMode().setBehaviour(engine ? SimAssessmentMode::Behaviour::Available
                                                   : SimAssessmentMode::Behaviour::Unavailable);
    c.session.start({});
}

QJsonValue itemsSection(SandboxSession& s, bool)
{
    if (!s.hasApp() || !s.app().statusBar())
        return QJsonValue();
    const StatusBarController& bar = *s.app().statusBar();
    const ItemSights sights = itemSights(s);
    QSet<QString> offered;
    for (const BarGroup& group : bar.outOfSight().groups)
        for (const BarItem& item : group.items)
            offered.insert(item.key);
    const Preferences& preferences = s.app().preferences();
    QJsonObject items;
    for (const SimPlacedItem& p : s.desktop().bar()) {
        if (p.item.own)
            continue;
        const ItemSight sight = sights.value({p.pid, p.item.title});
        const QString name = sight.key.isEmpty() ? p.item.title : sight.key;
        items.insert(
            name,
            QJsonObject{{QStringLiteral("title"), p.item.title},
                        {QStringLiteral("bundle"), p.item.bundleId},
                        {QStringLiteral("inSight"), p.onScreen},
                        {QStringLiteral("hiddenBy"), sight.hiddenBy
                                                         ? QJsonValue(hiddenByName(*sight.hiddenBy))
                                                         : QJsonValue()},
                        {QStringLiteral("placement"),
                         sight.key.isEmpty()
                             ? QJsonValue()
                             : QJsonValue(itemPlacementName(preferences.placement(sight.key)))},
                        {QStringLiteral("offered"), offered.contains(sight.key)}});
    }
    return items;
}

} // namespace

ItemSights itemSights(SandboxSession& session)
{
    ItemSights sights;
    if (!session.hasApp() || !session.app().statusBar())
        return sights;
    const StatusBarController& bar = *session.app().statusBar();
    const std::vector<BarEntry> entries = bar.knownEntries(false);
    const std::vector<std::optional<HiddenBy>> reasons = bar.hiddenBy(entries);
    for (std::size_t i = 0; i < entries.size(); ++i)
        sights.insert({entries[i].raw.pid, entries[i].raw.name},
                      ItemSight{entries[i].key, reasons[i]});
    return sights;
}

void registerCellCommands(ScriptRunner& runner)
{
    runner.addCommand(QStringLiteral("when"), ScriptRunner::Phase::Any, whenCommand);
    runner.addCommand(QStringLiteral("upgrade"), ScriptRunner::Phase::AfterStart, upgradeCommand);
    runner.addSection(QStringLiteral("items"), itemsSection);
}

} // namespace ravlin::sandbox
