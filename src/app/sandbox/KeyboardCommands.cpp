// Sandbox commands of the keyboard: key, type, hotkey; the section shortcuts.
#include "SandboxCommands.h"
#include "SandboxSession.h"
#include "ScriptRunner.h"

#include "core/app/AppDelegate.h"
#include "core/app/GlobalShortcuts.h"
#include "core/settings/KeyChord.h"
#include "core/settings/Preferences.h"
#include "platform/sim/SimHotKeys.h"
#include "ui/RavlinBar.h"
#include "ui/RavlinBarView.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonObject>
#include <QKeyEvent>

namespace ravlin::sandbox {
namespace {

using Phase = ScriptRunner::Phase;

KeyChord chordOf(CommandContext& c, qsizetype word)
{
    const QString text = c.need(word, QStringLiteral("a key chord such as ctrl+opt+cmd+M"));
    const std::optional<KeyChord> chord = KeyChord::parse(text);
    if (!chord)
        c.fail(QStringLiteral("%1 is not a key chord (modifiers control, option, command, "
                              "shift joined by + to a key: M, 5, Space, Return, Escape, Tab, "
                              "Left, F5, \",\" …)")
                   .arg(text));
    return *chord;
}

// key CHORD: a person presses the chord.
void keyCommand(CommandContext& c)
{
    const KeyChord chord = chordOf(c, 1);
    c.session.pressKey(chord);
    c.session.scheduler().runDue();
}

// The key a character stands on, where Qt has one; otherwise the text alone says it.
int qtKeyFor(QChar c)
{
    const char16_t u = c.toUpper().unicode();
    if ((u >= u'A' && u <= u'Z') || (u >= u'0' && u <= u'9'))
        return u;
    return c == u' ' ? int(Qt::Key_Space) : int(Qt::Key_unknown);
}

// type TEXT: the user types the text into the open panel, one key at a time.
void typeCommand(CommandContext& c)
{
    const QString text = c.need(1, QStringLiteral("the text to type"));
    RavlinBar* bar = c.session.tilePanel();
    if (!bar || !bar->isVisible() || !bar->view())
        c.fail(QStringLiteral("type needs the tile panel open: it is what takes the keys"));
    for (qsizetype i = 0; i < text.size(); ++i) {
        // A character outside the basic plane arrives as one key press with two code units.
        const qsizetype length = text[i].isHighSurrogate() && i + 1 < text.size() ? 2 : 1;
        const QString typed = text.mid(i, length);
        i += length - 1;
        RavlinBarView* view = bar->view();
        if (!view)
            break;
        QKeyEvent press(QEvent::KeyPress, qtKeyFor(typed[0]), Qt::NoModifier, typed);
        QCoreApplication::sendEvent(view, &press);
        c.session.scheduler().runDue();
    }
}

// hotkey taken CHORD / hotkey free CHORD: another application holds the chord, or lets go.
void hotkeyCommand(CommandContext& c)
{
    const QString verb = c.need(1, QStringLiteral("taken or free"));
    if (verb != u"taken" && verb != u"free")
        c.fail(QStringLiteral("hotkey takes taken CHORD or free CHORD"));
    const KeyChord chord = chordOf(c, 2);
    c.session.hotKeys().setTakenElsewhere(chord.virtualKeyCode(), chord.hotKeyModifiers(),
                                          verb == u"taken");
}

QJsonValue chordJson(const std::optional<KeyChord>& chord)
{
    return chord ? QJsonValue(chord->storedText()) : QJsonValue();
}

QJsonObject shortcutJson(SandboxSession& s, Shortcut which)
{
    const std::optional<KeyChord> chord = s.app().preferences().shortcut(which);
    const GlobalShortcuts* shortcuts = s.app().shortcuts();
    const std::optional<QString> problem = shortcuts ? shortcuts->problem(which) : std::nullopt;
    return {{QStringLiteral("chord"), chordJson(chord)},
            {QStringLiteral("display"), chord ? QJsonValue(chord->displayText()) : QJsonValue()},
            {QStringLiteral("active"), chordJson(shortcuts ? shortcuts->active(which) : std::nullopt)},
            {QStringLiteral("problem"), problem ? QJsonValue(*problem) : QJsonValue()}};
}

// The items' shortcuts by item key, as the global ones are shown.
QJsonObject itemShortcutsJson(SandboxSession& s)
{
    const GlobalShortcuts* shortcuts = s.app().shortcuts();
    QJsonObject items;
    const QMap<QString, KeyChord> chords = s.app().preferences().itemShortcuts();
    for (auto it = chords.cbegin(); it != chords.cend(); ++it) {
        const std::optional<QString> problem =
            shortcuts ? shortcuts->itemProblem(it.key()) : std::nullopt;
        items.insert(it.key(),
                     QJsonObject{{QStringLiteral("chord"), it.value().storedText()},
                                 {QStringLiteral("display"), it.value().displayText()},
                                 {QStringLiteral("active"),
                                  chordJson(shortcuts ? shortcuts->activeItem(it.key())
                                                      : std::nullopt)},
                                 {QStringLiteral("problem"),
                                  problem ? QJsonValue(*problem) : QJsonValue()}});
    }
    return items;
}

// What the preferences say, what the system registered and why not.
QJsonValue shortcutsSection(SandboxSession& s, bool)
{
    if (!s.hasApp())
        return QJsonValue();
    QJsonArray registered;
    for (const auto& [id, r] : s.hotKeys().registrations())
        registered.append(QJsonObject{{QStringLiteral("id"), qint64(id)},
                                      {QStringLiteral("keyCode"), qint64(r.keyCode)},
                                      {QStringLiteral("modifiers"), qint64(r.modifiers)}});
    return QJsonObject{{QStringLiteral("panel"), shortcutJson(s, Shortcut::Panel)},
                       {QStringLiteral("hiddenSection"), shortcutJson(s, Shortcut::HiddenSection)},
                       {QStringLiteral("items"), itemShortcutsJson(s)},
                       {QStringLiteral("registered"), registered}};
}

} // namespace

void registerKeyboardCommands(ScriptRunner& runner)
{
    runner.addCommand(QStringLiteral("key"), Phase::AfterStart, keyCommand);
    runner.addCommand(QStringLiteral("type"), Phase::AfterStart, typeCommand);
    runner.addCommand(QStringLiteral("hotkey"), Phase::Any, hotkeyCommand);
    runner.addSection(QStringLiteral("shortcuts"), shortcutsSection);
}

} // namespace ravlin::sandbox
