// Sandbox commands of automation: url (the system hands over a URL of Ravlin's scheme, as
// when a launcher, Shortcuts or a script opens it); the section urls.
#include "SandboxCommands.h"
#include "SandboxSession.h"
#include "ScriptRunner.h"

#include "core/app/AppDelegate.h"
#include "core/app/UrlCommand.h"

#include <QJsonArray>
#include <QJsonObject>

namespace ravlin::sandbox {
namespace {

using Phase = ScriptRunner::Phase;

QString actionName(UrlCommand::Action action)
{
    using A = UrlCommand::Action;
    switch (action) {
    case A::OpenPanel:
        return QStringLiteral("openPanel");
    case A::ClosePanel:
        return QStringLiteral("closePanel");
    case A::TogglePanel:
        return QStringLiteral("togglePanel");
    case A::Reveal:
        return QStringLiteral("reveal");
    case A::Hide:
        return QStringLiteral("hide");
    case A::SwitchLayout:
        return QStringLiteral("switchLayout");
    case A::OpenItem:
        return QStringLiteral("openItem");
    case A::Search:
        return QStringLiteral("search");
    }
    return {};
}

// url TEXT: before start the URL waits for the application, as at a launch by URL.
void urlCommand(CommandContext& c)
{
    const QString url = c.need(1, QStringLiteral("the URL"));
    if (c.wordCount() > 2)
        c.fail(QStringLiteral("url takes one URL (quote it if it holds blanks)"));
    const bool understood = c.session.app().openURL(url);
    QString why;
    const std::optional<UrlCommand> command = UrlCommand::parse(url, &why);
    c.session.handledUrls().append(QJsonObject{
        {QStringLiteral("url"), url},
        {QStringLiteral("understood"), understood},
        {QStringLiteral("action"), command ? QJsonValue(actionName(command->action)) : QJsonValue()},
        {QStringLiteral("argument"),
         command && !command->argument.isEmpty() ? QJsonValue(command->argument) : QJsonValue()},
        {QStringLiteral("problem"), command ? QJsonValue() : QJsonValue(why)}});
    c.session.scheduler().runDue();
}

// The URLs handed over since the previous dump that included this section.
QJsonValue urlsSection(SandboxSession& s, bool consume)
{
    const QJsonArray urls = s.handledUrls();
    if (consume)
        s.handledUrls() = QJsonArray();
    return urls;
}

} // namespace

void registerAutomationCommands(ScriptRunner& runner)
{
    runner.addCommand(QStringLiteral("url"), Phase::Any, urlCommand);
    runner.addSection(QStringLiteral("urls"), urlsSection);
}

} // namespace ravlin::sandbox
