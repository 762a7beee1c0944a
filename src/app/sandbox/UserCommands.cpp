// Sandbox command and dump section of the person at the Mac: what their hands do (typing,
// moving the pointer, holding a button or modifier keys), so that scenarios can show that
// Ravlin never takes the pointer from them; the section user.
#include "SandboxCommands.h"
#include "SandboxSession.h"
#include "ScriptRunner.h"

#include "core/app/AppDelegate.h"
#include "core/app/MenuBarServices.h"
#include "core/bar/MoveEngine.h"
#include "core/bar/StatusBarController.h"
#include "platform/sim/SimDesktop.h"

#include <QJsonArray>
#include <QJsonObject>

#include <cmath>

namespace ravlin::sandbox {
namespace {

using Phase = ScriptRunner::Phase;

const std::pair<const char16_t*, std::uint64_t> modifierNames[] = {
    {u"command", EventFlag::command},
    {u"option", EventFlag::option},
    {u"control", EventFlag::control},
    {u"shift", EventFlag::shift},
};

std::optional<std::uint64_t> modifierNamed(const QString& name)
{
    for (const auto& [text, flag] : modifierNames)
        if (name == QStringView(text))
            return flag;
    return std::nullopt;
}

double seconds(CommandContext& c)
{
    bool ok = false;
    const double value = c.need(2, QStringLiteral("the number of seconds")).toDouble(&ok);
    if (!ok || !std::isfinite(value) || value < 0)
        c.fail(QStringLiteral("%1 takes a number of seconds, not %2").arg(c.word(1), c.word(2)));
    return value;
}

// hold/release: "button" or modifier names; release without a name lets go of everything.
void holdOrRelease(CommandContext& c, SimUserHands& hands, bool hold)
{
    if (!hold && c.wordCount() == 2) {
        hands.holdButton(false);
        hands.releaseModifiers(~std::uint64_t(0));
        return;
    }
    c.need(2, QStringLiteral("button or a modifier"));
    for (qsizetype i = 2; i < c.wordCount(); ++i) {
        const QString what = c.word(i);
        if (what == u"button") {
            hands.holdButton(hold);
        } else if (const std::optional<std::uint64_t> flag = modifierNamed(what)) {
            if (hold)
                hands.holdModifiers(*flag);
            else
                hands.releaseModifiers(*flag);
        } else {
            c.fail(QStringLiteral("user %1 takes button, command, option, control or shift, not %2")
                       .arg(c.word(1), what));
        }
    }
}

void userCommand(CommandContext& c)
{
    SimUserHands& hands = c.session.desktop().hands();
    const QString what = c.need(1, QStringLiteral("typing, moving, input, hold, release or rest"));
    if (what == u"typing")
        hands.typeFor(seconds(c));
    else if (what == u"moving")
        hands.movePointerFor(seconds(c));
    else if (what == u"input")
        hands.input();
    else if (what == u"hold" || what == u"release")
        holdOrRelease(c, hands, what == u"hold");
    else if (what == u"rest")
        hands.rest();
    else
        c.fail(QStringLiteral("user takes typing, moving, input, hold, release or rest, not %1")
                   .arg(what));
    if (c.session.hasApp())
        c.session.scheduler().runDue();
}

QJsonValue userSection(SandboxSession& s, bool)
{
    const SimDesktop& desktop = s.desktop();
    const SimUserHands& hands = desktop.hands();
    QJsonArray modifiers;
    for (const auto& [text, flag] : modifierNames)
        if (hands.modifiers() & flag)
            modifiers.append(QString::fromUtf16(text));
    const double since = hands.secondsSinceInput();
    QJsonObject section{
        {QStringLiteral("secondsSinceInput"), std::isfinite(since) ? QJsonValue(since) : QJsonValue()},
        {QStringLiteral("buttonHeld"), hands.buttonHeld()},
        {QStringLiteral("modifiers"), modifiers},
        {QStringLiteral("cursor"), QJsonArray{desktop.cursor().x, desktop.cursor().y}},
    };
    if (s.hasApp()) {
        const std::optional<QString> busy = s.app().menuBar().moveEngine().guard().busy();
        section.insert(QStringLiteral("pointerFree"), !busy.has_value());
        section.insert(QStringLiteral("busy"), busy ? QJsonValue(*busy) : QJsonValue());
        const StatusBarController* bar = s.app().statusBar();
        section.insert(QStringLiteral("restoreWaiting"), bar && bar->restoreWaiting());
    }
    return section;
}

} // namespace

void registerUserCommands(ScriptRunner& runner)
{
    runner.addCommand(QStringLiteral("user"), Phase::Any, userCommand);
    runner.addSection(QStringLiteral("user"), userSection);
}

} // namespace ravlin::sandbox
