#include "JsonPointer.h"
#include "SandboxCommands.h"
#include "SandboxSession.h"
#include "ScriptRunner.h"

#include "core/app/AppDelegate.h"
#include "core/settings/LanguageManager.h"
#include "foundation/PlistJson.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace ravlin::sandbox {
namespace {

using Phase = ScriptRunner::Phase;

QString compact(const std::optional<QJsonValue>& value)
{
    if (!value || value->isNull() || value->isUndefined())
        return QStringLiteral("nothing");
    if (value->isArray())
        return QString::fromUtf8(QJsonDocument(value->toArray()).toJson(QJsonDocument::Compact));
    if (value->isObject())
        return QString::fromUtf8(QJsonDocument(value->toObject()).toJson(QJsonDocument::Compact));
    const QByteArray wrapped = QJsonDocument(QJsonArray{*value}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(wrapped.mid(1, wrapped.size() - 2));
}

// A VALUE word: a JSON literal, or text:KEY for the text of KEY in the current language.
QJsonValue parseValue(CommandContext& c, qsizetype from)
{
    const QString text = c.line.rest(from);
    if (text.isEmpty())
        c.fail(QStringLiteral("a value is missing"));
    if (text.startsWith(QStringLiteral("text:")))
        return c.session.app().languageManager().L(text.mid(5));
    QString error;
    auto value = PlistJson::parse(text, &error);
    if (!value)
        c.fail(QStringLiteral("bad value %1: %2").arg(text, error));
    return PlistJson::toJson(*value);
}

std::optional<bool> compareNumbers(const QString& op, double a, double b)
{
    if (op == u"<")
        return a < b;
    if (op == u"<=")
        return a <= b;
    if (op == u">")
        return a > b;
    if (op == u">=")
        return a >= b;
    return std::nullopt;
}

bool contains(const std::optional<QJsonValue>& found, const QJsonValue& wanted)
{
    if (!found)
        return false;
    if (found->isString() && wanted.isString())
        return found->toString().contains(wanted.toString());
    if (found->isArray()) {
        for (const QJsonValue& element : found->toArray())
            if (PlistJson::equalByValue(element, wanted))
                return true;
    }
    return false;
}

void expect(CommandContext& c)
{
    const QString pointer = c.need(1, QStringLiteral("the JSON pointer"));
    const QString op = c.need(2, QStringLiteral("the operator"));
    if (!pointer.isEmpty() && !pointer.startsWith(u'/'))
        c.fail(QStringLiteral("a JSON pointer starts with '/': %1").arg(pointer));
    // Only the section the pointer names is built.
    const QString section = JsonPointer::tokens(pointer).value(0);
    const QJsonObject state =
        c.runner.dump(section.isEmpty() ? QStringList() : QStringList{section}, false);
    std::optional<QJsonValue> found = JsonPointer::resolve(state, pointer);
    if (found && (found->isNull() || found->isUndefined()))
        found.reset();

    const QString shown = QStringLiteral("%1 %2").arg(pointer, op);
    if (op == u"exists" || op == u"absent") {
        if (found.has_value() != (op == u"exists"))
            throw ExpectFailure{shown, compact(found)};
        return;
    }
    const QJsonValue wanted = parseValue(c, 3);
    const QString expected = shown + u' ' + c.line.rest(3);
    bool holds = false;
    if (op == u"==" || op == u"!=") {
        const bool equal = found ? PlistJson::equalByValue(*found, wanted) : wanted.isNull();
        holds = (op == u"==") == equal;
    } else if (op == u"contains" || op == u"lacks") {
        holds = contains(found, wanted) == (op == u"contains");
    } else if (op == u"count") {
        holds = found && found->isArray() && wanted.isDouble() &&
                found->toArray().size() == wanted.toDouble();
    } else if (auto ordered = compareNumbers(op, 0, 0); ordered.has_value()) {
        if (found && found->isDouble() && wanted.isDouble())
            holds = *compareNumbers(op, found->toDouble(), wanted.toDouble());
        else if (found && found->isString() && wanted.isString())
            holds = *compareNumbers(op, QString::compare(found->toString(), wanted.toString()), 0);
    } else {
        c.fail(QStringLiteral("unknown operator %1").arg(op));
    }
    if (!holds)
        throw ExpectFailure{expected, op == u"count" && found && found->isArray()
                                          ? QString::number(found->toArray().size())
                                          : compact(found)};
}

} // namespace

void registerCoreCommands(ScriptRunner& runner)
{
    runner.addCommand(QStringLiteral("start"), Phase::BeforeStart, [](CommandContext& c) {
        QStringList arguments;
        for (qsizetype i = 1; i < c.wordCount(); ++i)
            arguments.append(c.word(i));
        c.session.start(arguments);
    });
    runner.addCommand(QStringLiteral("restart"), Phase::AfterStart, [](CommandContext& c) {
        QStringList arguments;
        for (qsizetype i = 1; i < c.wordCount(); ++i)
            arguments.append(c.word(i));
        c.session.restart(arguments);
    });
    runner.addCommand(QStringLiteral("background"), Phase::Any, [](CommandContext& c) {
        bool ok = false;
        const double seconds = c.need(1, QStringLiteral("the number of seconds")).toDouble(&ok);
        if (!ok || !std::isfinite(seconds) || seconds < 0)
            c.fail(QStringLiteral("background takes a number of seconds, not %1").arg(c.word(1)));
        c.session.scheduler().setBackgroundDuration(seconds);
    });
    runner.addCommand(QStringLiteral("advance"), Phase::AfterStart, [](CommandContext& c) {
        bool ok = false;
        const double seconds = c.need(1, QStringLiteral("the number of seconds")).toDouble(&ok);
        if (!ok || seconds < 0)
            c.fail(QStringLiteral("advance takes a number of seconds, not %1").arg(c.word(1)));
        c.session.scheduler().advance(seconds);
    });
    runner.addCommand(QStringLiteral("dump"), Phase::Any, [](CommandContext& c) {
        QStringList sections;
        for (qsizetype i = 1; i < c.wordCount(); ++i)
            sections.append(c.word(i));
        c.runner.print(c.runner.dump(sections, true));
    });
    runner.addCommand(QStringLiteral("print"), Phase::Any, [](CommandContext& c) {
        if (c.word(1) != u"text")
            c.fail(QStringLiteral("print knows only: print text KEY"));
        const QString key = c.need(2, QStringLiteral("the text key"));
        c.runner.print(
            QJsonObject{{QStringLiteral("text"), c.session.app().languageManager().L(key)}});
    });
    runner.addCommand(QStringLiteral("expect"), Phase::Any, expect);
}

void registerPendingCommands(ScriptRunner& runner)
{
    runner.addUnsupported({});
}

void registerAll(ScriptRunner& runner)
{
    registerCoreCommands(runner);
    registerSettingsCommands(runner);
    registerCoreSections(runner);
    registerSysinfoCommands(runner);
    registerDiscoveryCommands(runner);
    registerBarCommands(runner);
    registerLayoutCommands(runner);
    registerPanelCommands(runner);
    registerSettingsWindowCommands(runner);
    registerKeyboardCommands(runner);
    registerCellCommands(runner);
    registerUpdateCommands(runner);
    registerWelcomeCommands(runner);
    registerUserCommands(runner);
    registerReactionCommands(runner);
    registerGestureCommands(runner);
    registerAutomationCommands(runner);
    registerPendingCommands(runner);
}

} // namespace ravlin::sandbox
