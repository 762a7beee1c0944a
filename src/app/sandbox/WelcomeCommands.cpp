// The welcome window: its controls used as a person would use them, and what it shows.
#include "SandboxCommands.h"
#include "SandboxSession.h"
#include "ScriptRunner.h"

#include "core/app/AppDelegate.h"
#include "core/app/WelcomeGuide.h"
#include "ui/settings/ToggleSwitch.h"
#include "ui/welcome/WelcomeView.h"
#include "ui/welcome/WelcomeWindowController.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QLabel>
#include <QPushButton>

namespace ravlin::sandbox {
namespace {

using Phase = ScriptRunner::Phase;

WelcomeView& openWindow(CommandContext& c)
{
    WelcomeWindowController& window = c.session.welcomeWindow();
    if (!window.isVisible())
        c.fail(QStringLiteral("the welcome window is not open"));
    return *window.view();
}

template <class Control>
Control* control(CommandContext& c, const QString& name, const QString& what)
{
    Control* found = nullptr;
    for (Control* candidate : openWindow(c).findChildren<Control*>(name))
        if (candidate->isVisibleTo(c.session.welcomeWindow().view()))
            found = candidate;
    if (!found)
        c.fail(QStringLiteral("the welcome window shows no %1 %2").arg(what, name));
    return found;
}

void welcomeCommand(CommandContext& c)
{
    const QString verb = c.need(1, QStringLiteral("press, toggle or close"));
    if (verb == u"press") {
        control<QPushButton>(c, c.need(2, QStringLiteral("the button's name")),
                             QStringLiteral("button"))
            ->click();
    } else if (verb == u"toggle") {
        control<ToggleSwitch>(c, c.need(2, QStringLiteral("the switch's name")),
                              QStringLiteral("switch"))
            ->click();
    } else if (verb == u"close") {
        openWindow(c).close();
    } else {
        c.fail(QStringLiteral("welcome knows press, toggle and close, not %1").arg(verb));
    }
    c.session.scheduler().runDue();
}

QJsonArray shownButtons(const WelcomeView& view)
{
    QJsonArray names;
    for (const QPushButton* button : view.findChildren<QPushButton*>())
        if (!button->objectName().isEmpty() && button->isVisibleTo(&view))
            names.append(button->objectName());
    return names;
}

// Without the marks that keep the text's direction on screen.
QJsonValue shownText(const WelcomeView& view, const QString& name)
{
    for (const QLabel* label : view.findChildren<QLabel*>(name)) {
        if (!label->isVisibleTo(&view))
            continue;
        QString text = label->text();
        text.remove(QChar(0x200E));
        text.remove(QChar(0x200F));
        return text;
    }
    return QJsonValue();
}

QJsonValue shownSwitch(const WelcomeView& view, const QString& name)
{
    for (const ToggleSwitch* toggle : view.findChildren<ToggleSwitch*>(name))
        if (toggle->isVisibleTo(&view))
            return toggle->isChecked();
    return QJsonValue();
}

QJsonValue welcomeSection(SandboxSession& s, bool)
{
    if (!s.hasApp())
        return QJsonValue();
    const WelcomeGuide& guide = s.app().welcomeGuide();
    const WelcomeWindowController& window = s.welcomeWindow();
    QJsonObject o{
        {QStringLiteral("visible"), window.isVisible()},
        {QStringLiteral("page"), guide.page() == WelcomePage::Introduction
                                     ? QStringLiteral("introduction")
                                     : QStringLiteral("itemNotShown")},
        {QStringLiteral("completed"), guide.completed()},
        {QStringLiteral("screenRecording"), guide.screenRecording()},
        {QStringLiteral("accessibility"), guide.accessibility()},
    };
    if (const WelcomeView* view = window.isVisible() ? window.view() : nullptr) {
        o.insert(QStringLiteral("title"), view->windowTitle());
        o.insert(QStringLiteral("buttons"), shownButtons(*view));
        o.insert(QStringLiteral("shortcut"), shownText(*view, QStringLiteral("shortcut")));
        o.insert(QStringLiteral("launchAtLogin"), shownSwitch(*view, QStringLiteral("launchAtLogin")));
    }
    return o;
}

} // namespace

void registerWelcomeCommands(ScriptRunner& runner)
{
    runner.addCommand(QStringLiteral("welcome"), Phase::AfterStart, welcomeCommand);
    runner.addSection(QStringLiteral("welcome"), welcomeSection);
}

} // namespace ravlin::sandbox
