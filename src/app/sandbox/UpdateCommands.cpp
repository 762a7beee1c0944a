// The simulated updater: what the update feed holds, the updater's own background check,
// and the section that shows the update settings and what the updater showed.
#include "SandboxCommands.h"
#include "SandboxSession.h"
#include "ScriptRunner.h"

#include "core/app/AppDelegate.h"
#include "core/app/SoftwareUpdate.h"
#include "platform/sim/SimUpdater.h"

#include <QJsonArray>
#include <QJsonObject>

namespace ravlin::sandbox {
namespace {

using Phase = ScriptRunner::Phase;

SimUpdater& updater(CommandContext& c)
{
    SimUpdater* u = c.session.updater();
    if (!u)
        c.fail(QStringLiteral("this desktop has no updater (update absent)"));
    return *u;
}

void updateCommand(CommandContext& c)
{
    const QString verb = c.need(1, QStringLiteral("offer, none, fail, check or absent"));
    if (verb == u"offer") {
        const QString version = c.need(2, QStringLiteral("the offered version"));
        const QMap<QString, QString> options = c.options(3);
        for (auto it = options.cbegin(); it != options.cend(); ++it)
            if (it.key() != u"channel")
                c.fail(QStringLiteral("update offer knows the option channel=, not %1=")
                           .arg(it.key()));
        updater(c).offer(version, options.value(QStringLiteral("channel")));
    } else if (verb == u"none") {
        updater(c).offerNothing();
    } else if (verb == u"fail") {
        updater(c).fail(c.need(2, QStringLiteral("the error's message")));
    } else if (verb == u"check") {
        if (!c.session.started())
            c.fail(QStringLiteral("update check needs a started application"));
        updater(c).backgroundCheck();
    } else if (verb == u"absent") {
        if (c.session.hasApp())
            c.fail(QStringLiteral("update absent must come before the application exists"));
        c.session.removeUpdater();
    } else {
        c.fail(QStringLiteral("update knows offer, none, fail, check and absent, not %1").arg(verb));
    }
}

QJsonValue shownWindow(const SimUpdateWindow& w)
{
    QJsonObject o{{QStringLiteral("kind"), SimUpdater::kindName(w.kind)}};
    if (w.kind == SimUpdateWindow::Kind::Offer)
        o.insert(QStringLiteral("version"), w.version);
    if (w.kind == SimUpdateWindow::Kind::Error)
        o.insert(QStringLiteral("message"), w.message);
    return o;
}

QJsonValue updatesSection(SandboxSession& s, bool)
{
    QJsonObject o;
    if (s.hasApp()) {
        const SoftwareUpdate& updates = s.app().softwareUpdate();
        o.insert(QStringLiteral("available"), updates.available());
        o.insert(QStringLiteral("automatic"), updates.automaticChecks());
        o.insert(QStringLiteral("channel"), updateChannelRawValue(updates.channel()));
    }
    const SimUpdater* u = s.updater();
    if (!u)
        return o;
    QJsonArray shown;
    for (const SimUpdateWindow& w : u->shown())
        shown.append(shownWindow(w));
    o.insert(QStringLiteral("updater"),
             QJsonObject{{QStringLiteral("automatic"), u->automatic()},
                         {QStringLiteral("channels"), QJsonArray::fromStringList(u->allowedChannels())},
                         {QStringLiteral("userChecks"), u->userChecks()},
                         {QStringLiteral("backgroundChecks"), u->backgroundChecks()},
                         {QStringLiteral("shown"), shown}});
    return o;
}

} // namespace

void registerUpdateCommands(ScriptRunner& runner)
{
    runner.addCommand(QStringLiteral("update"), Phase::Any, updateCommand);
    runner.addSection(QStringLiteral("updates"), updatesSection);
}

} // namespace ravlin::sandbox
