// Sandbox command and dump section of the named layouts and of the items seen for the first
// time: layout save|switch|delete|export|import|when; the sections layouts and newItems.
#include "SandboxCommands.h"
#include "SandboxSession.h"
#include "ScriptRunner.h"

#include "core/app/AppDelegate.h"
#include "core/bar/StatusBarController.h"
#include "core/rules/Rules.h"
#include "foundation/Scheduler.h"

#include <QJsonArray>
#include <QJsonObject>

namespace ravlin::sandbox {
namespace {

using Phase = ScriptRunner::Phase;

StatusBarController& controller(CommandContext& c)
{
    StatusBarController* controller = c.session.app().statusBar();
    if (!controller)
        c.fail(QStringLiteral("the application has no status items"));
    return *controller;
}

// The rest of the line from word i on, so that a name may hold spaces.
QString rest(CommandContext& c, qsizetype i, const QString& what)
{
    c.need(i, what);
    QStringList words;
    for (qsizetype w = i; w < c.wordCount(); ++w)
        words.append(c.word(w));
    return words.join(u' ');
}

// The two occasions of earlier versions are rules now: this makes, changes or removes them.
void whenCommand(CommandContext& c, StatusBarController& bar)
{
    const QString occasion = c.need(2, QStringLiteral("display or battery"));
    const QString name = rest(c, 3, QStringLiteral("a layout's name or off"));
    const QString layout = name == u"off" ? QString() : name;
    if (!layout.isEmpty() && !bar.layouts().layout(layout))
        c.fail(QStringLiteral("there is no layout %1").arg(layout));
    Rules* rules = c.session.app().rules();
    if (!rules)
        c.fail(QStringLiteral("the application has no rules"));
    if (occasion == u"display")
        rules->book().setOccasionLayout(RuleBook::displayRuleId, layout);
    else if (occasion == u"battery")
        rules->book().setOccasionLayout(RuleBook::batteryRuleId, layout);
    else
        c.fail(QStringLiteral("layout when takes display or battery, not %1").arg(occasion));
}

void layoutCommand(CommandContext& c)
{
    StatusBarController& bar = controller(c);
    const QString what = c.need(1, QStringLiteral("save, switch, delete, export, import or when"));
    QString error;
    if (what == u"save") {
        // A refused name is the user's mistake, not the script's: it is logged, as in the
        // application, and the script goes on.
        bar.saveLayout(rest(c, 2, QStringLiteral("the layout's name")), &error);
    } else if (what == u"switch") {
        const QString name = rest(c, 2, QStringLiteral("the layout's name"));
        if (!bar.switchLayout(name, QStringLiteral("the user's choice")))
            c.fail(QStringLiteral("there is no layout %1").arg(name));
    } else if (what == u"delete") {
        const QString name = rest(c, 2, QStringLiteral("the layout's name"));
        if (!bar.deleteLayout(name))
            c.fail(QStringLiteral("there is no layout %1").arg(name));
    } else if (what == u"export") {
        const QString path = c.need(2, QStringLiteral("the file"));
        if (!bar.exportLayout(rest(c, 3, QStringLiteral("the layout's name")), path, &error))
            c.fail(QStringLiteral("could not export: %1").arg(error));
    } else if (what == u"import") {
        // A file that is not a layout is refused in the log, as in the application.
        bar.importLayout(c.need(2, QStringLiteral("the file")), &error);
    } else if (what == u"when") {
        whenCommand(c, bar);
    } else {
        c.fail(QStringLiteral("layout takes save, switch, delete, export, import or when, not %1")
                   .arg(what));
    }
    c.session.scheduler().runDue();
}

QString occasion(SandboxSession& s, const QString& ruleId)
{
    const Rules* rules = s.app().rules();
    return rules ? rules->book().occasionLayout(ruleId) : QString();
}

QJsonValue layoutsSection(SandboxSession& s, bool)
{
    const StatusBarController* bar = s.hasApp() ? s.app().statusBar() : nullptr;
    if (!bar)
        return QJsonValue();
    const LayoutLibrary& library = bar->layouts();
    auto orNull = [](const QString& text) { return text.isEmpty() ? QJsonValue() : text; };
    QJsonObject saved;
    for (const QString& name : library.names()) {
        const std::optional<SavedLayout> layout = library.layout(name);
        QJsonObject placements;
        for (auto it = layout->placements.begin(); it != layout->placements.end(); ++it)
            placements.insert(it.key(), itemPlacementName(it.value()));
        saved.insert(name, QJsonObject{{QStringLiteral("sequence"),
                                        QJsonArray::fromStringList(layout->arrangement.sequence())},
                                       {QStringLiteral("placements"), placements}});
    }
    return QJsonObject{{QStringLiteral("names"), QJsonArray::fromStringList(library.names())},
                       {QStringLiteral("active"), orNull(library.active())},
                       {QStringLiteral("onDisplay"), orNull(occasion(s, RuleBook::displayRuleId))},
                       {QStringLiteral("onBattery"), orNull(occasion(s, RuleBook::batteryRuleId))},
                       {QStringLiteral("saved"), saved}};
}

QJsonValue newItemsSection(SandboxSession& s, bool)
{
    const StatusBarController* bar = s.hasApp() ? s.app().statusBar() : nullptr;
    if (!bar)
        return QJsonValue();
    return QJsonArray::fromStringList(bar->newItems().newSince(s.scheduler().currentDate()));
}

} // namespace

void registerLayoutCommands(ScriptRunner& runner)
{
    runner.addCommand(QStringLiteral("layout"), Phase::AfterStart, layoutCommand);
    runner.addSection(QStringLiteral("layouts"), layoutsSection);
    runner.addSection(QStringLiteral("newItems"), newItemsSection);
}

} // namespace ravlin::sandbox
