// Sandbox commands and the dump section of the settings window. The commands act
// through the window's own controls, as a person clicking them would, so a script
// tests the window and not a shortcut around it.
#include "SandboxCommands.h"
#include "SandboxSession.h"
#include "ScriptRunner.h"

#include "platform/sim/SimMenuBarSpacing.h"
#include "ui/settings/NumberField.h"
#include "ui/settings/PopupButton.h"
#include "ui/settings/SegmentedControl.h"
#include "ui/settings/SettingsActions.h"
#include "ui/settings/SettingsToolbar.h"
#include "ui/settings/SettingsView.h"
#include "ui/settings/SettingsWindowController.h"
#include "ui/settings/SettingsRow.h"
#include "ui/settings/ShortcutField.h"
#include "ui/settings/ToggleSwitch.h"

#include <QAbstractButton>
#include <QJsonArray>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>

namespace ravlin::sandbox {
namespace {

using Phase = ScriptRunner::Phase;

int tabNumber(CommandContext& c, qsizetype i)
{
    bool ok = false;
    const int tab = c.word(i).toInt(&ok);
    if (!ok || tab < 0 || tab >= SettingsView::tabCount)
        c.fail(QStringLiteral("a settings tab is a number from 0 to %1, not %2")
                   .arg(SettingsView::tabCount - 1)
                   .arg(c.word(i)));
    return tab;
}

// The open window, or a script error: its controls can only be used while it shows.
SettingsView& openWindow(CommandContext& c)
{
    SettingsWindowController& window = c.session.settingsWindow();
    if (!window.isVisible())
        c.fail(QStringLiteral("the settings window is not open"));
    return *window.view();
}

template <class Control>
Control* control(CommandContext& c, const QString& name, const QString& what)
{
    Control* found = openWindow(c).findChild<Control*>(name);
    if (!found)
        c.fail(QStringLiteral("the settings window has no %1 %2").arg(what, name));
    if (!found->isEnabled() || !found->window()->isEnabled())
        c.fail(QStringLiteral("%1 is greyed out").arg(name));
    return found;
}

void place(CommandContext& c)
{
    const QString key = c.need(2, QStringLiteral("the item key"));
    const QString choice = c.need(3, QStringLiteral("bar, panel or off"));
    auto* segments =
        control<SegmentedControl>(c, QStringLiteral("place:") + key, QStringLiteral("item"));
    QPushButton* segment = segments->segment(choice);
    if (!segment)
        c.fail(
            QStringLiteral("an item is placed in the bar, the panel or off, not %1").arg(choice));
    segment->click();
}

void setValue(CommandContext& c)
{
    const QString name = c.need(2, QStringLiteral("the control's name"));
    const QString value = c.need(3, QStringLiteral("the value"));
    if (openWindow(c).findChild<NumberField*>(name)) {
        bool ok = false;
        const int number = value.toInt(&ok);
        QSpinBox* spin = control<NumberField>(c, name, QStringLiteral("field"))->spinBox();
        if (!ok || number < spin->minimum() || number > spin->maximum())
            c.fail(QStringLiteral("%1 takes a whole number from %2 to %3")
                       .arg(name)
                       .arg(spin->minimum())
                       .arg(spin->maximum()));
        spin->setValue(number);
        return;
    }
    if (openWindow(c).findChild<QLineEdit*>(name)) {
        auto* field = control<QLineEdit>(c, name, QStringLiteral("field"));
        field->setFocus(Qt::OtherFocusReason);
        field->setText(value);
        // As the person typing it presses Return: the fields that take their value when
        // editing ends take it now.
        Q_EMIT field->editingFinished();
        return;
    }
    auto* popup = control<PopupButton>(c, name, QStringLiteral("control"));
    int index = popup->findData(value);
    if (index < 0)
        index = popup->findText(value);
    if (index < 0)
        c.fail(QStringLiteral("%1 offers no %2").arg(name, value));
    // As a person picks the entry: the choice changes, and the pick is announced.
    popup->setCurrentIndex(index);
    Q_EMIT popup->activated(index);
}

void pickLanguage(CommandContext& c)
{
    const QString code = c.wordCount() > 2 ? c.word(2) : QString();
    auto* picker = control<PopupButton>(c, QStringLiteral("language"), QStringLiteral("picker"));
    const int index = picker->findData(code);
    if (index < 0)
        c.fail(QStringLiteral("the language picker offers no %1").arg(code));
    picker->setCurrentIndex(index);
}

// The tab in front scrolls to its end or back to its top, as the scroll wheel would.
void scrollTab(CommandContext& c)
{
    const QString where = c.need(2, QStringLiteral("end or top"));
    if (where != u"end" && where != u"top")
        c.fail(QStringLiteral("settings scroll takes end or top, not %1").arg(where));
    for (QScrollArea* area : openWindow(c).findChildren<QScrollArea*>()) {
        if (!area->isVisible())
            continue;
        QScrollBar* bar = area->verticalScrollBar();
        bar->setValue(where == u"end" ? bar->maximum() : bar->minimum());
    }
}

void settingsCommand(CommandContext& c)
{
    const QString verb =
        c.need(1, QStringLiteral("open, close, tab, place, toggle, set, language or press"));
    SettingsWindowController& window = c.session.settingsWindow();
    if (verb == u"open") {
        window.show(c.wordCount() > 2 ? tabNumber(c, 2) : 0);
    } else if (verb == u"close") {
        openWindow(c);
        window.close();
    } else if (verb == u"tab") {
        const int tab = tabNumber(c, 2);
        openWindow(c).toolbar()->tabButton(tab)->click();
    } else if (verb == u"place") {
        place(c);
    } else if (verb == u"toggle") {
        control<ToggleSwitch>(c, c.need(2, QStringLiteral("the switch's name")),
                              QStringLiteral("switch"))
            ->click();
    } else if (verb == u"set") {
        setValue(c);
    } else if (verb == u"language") {
        pickLanguage(c);
    } else if (verb == u"record" || verb == u"clear") {
        auto* field = control<ShortcutField>(c, c.need(2, QStringLiteral("the shortcut's name")),
                                             QStringLiteral("shortcut field"));
        if (verb == u"record")
            field->startRecording();
        else
            field->clear();
    } else if (verb == u"scroll") {
        scrollTab(c);
    } else if (verb == u"press") {
        control<QPushButton>(c, c.need(2, QStringLiteral("the button's name")),
                             QStringLiteral("button"))
            ->click();
    } else {
        c.fail(QStringLiteral(
            "settings knows open, close, tab, place, toggle, set, language, scroll and press"));
    }
    c.session.scheduler().runDue();
}

QJsonArray placements(const SettingsView& view)
{
    QJsonArray items;
    for (const SegmentedControl* s : view.findChildren<SegmentedControl*>()) {
        if (s->objectName().startsWith(QStringLiteral("place:")))
            items.append(QJsonObject{{QStringLiteral("key"), s->objectName().mid(6)},
                                     {QStringLiteral("label"), s->accessibleName()},
                                     {QStringLiteral("placement"), s->value()}});
    }
    return items;
}

// The label marks the text's direction for the screen; the words are what counts.
QString withoutDirectionMarks(QString text)
{
    text.remove(QChar(0x200E));
    text.remove(QChar(0x200F));
    return text;
}

QJsonObject shortcutFieldJson(const ShortcutField& f)
{
    const auto* row = qobject_cast<const SettingsRow*>(f.parentWidget());
    const QLabel* hint = row ? row->hintLabel() : nullptr;
    return {{QStringLiteral("name"), f.objectName()},
            {QStringLiteral("shown"), f.shownText()},
            {QStringLiteral("recording"), f.isRecording()},
            {QStringLiteral("hint"), hint && !hint->isHidden()
                                         ? QJsonValue(withoutDirectionMarks(hint->text()))
                                         : QJsonValue()}};
}

// The General tab's fields.
QJsonArray shortcutFields(const SettingsView& view)
{
    QJsonArray list;
    for (const ShortcutField* f : view.findChildren<ShortcutField*>())
        if (!f->objectName().startsWith(QStringLiteral("shortcut:")))
            list.append(shortcutFieldJson(*f));
    return list;
}

// The Menu Bar tab's, one in each item's row, by item key.
QJsonObject itemShortcutFields(const SettingsView& view)
{
    const QString prefix = QStringLiteral("shortcut:");
    QJsonObject items;
    for (const ShortcutField* f : view.findChildren<ShortcutField*>())
        if (f->objectName().startsWith(prefix))
            items.insert(f->objectName().mid(prefix.size()), shortcutFieldJson(*f));
    return items;
}

QJsonArray switches(const SettingsView& view, const QString& prefix, const QString& idName)
{
    QJsonArray list;
    for (const ToggleSwitch* t : view.findChildren<ToggleSwitch*>()) {
        if (!t->objectName().startsWith(prefix))
            continue;
        const QString id = t->objectName().mid(prefix.size());
        bool numeric = false;
        const int number = id.toInt(&numeric);
        list.append(QJsonObject{{idName, numeric ? QJsonValue(number) : QJsonValue(id)},
                                {QStringLiteral("label"), t->accessibleName()},
                                {QStringLiteral("hidden"), t->isChecked()}});
    }
    return list;
}

// Whether the whole of the control stands in its page's visible part.
bool inSight(const QWidget& control)
{
    for (const QWidget* w = control.parentWidget(); w; w = w->parentWidget()) {
        if (const auto* scroll = qobject_cast<const QScrollArea*>(w)) {
            const QWidget* port = scroll->viewport();
            const QRect r(control.mapTo(port, QPoint(0, 0)), control.size());
            return port->rect().contains(r);
        }
    }
    return control.isVisible();
}

// The layout name field and its Save button, as the window shows them.
QJsonValue layoutNaming(const SettingsView& view)
{
    const auto* field = view.findChild<QLineEdit*>(QStringLiteral("layoutName"));
    const auto* save = view.findChild<QPushButton*>(QStringLiteral("saveLayout"));
    if (!field || !save)
        return QJsonValue();
    const auto* row = qobject_cast<const SettingsRow*>(save->parentWidget());
    const QLabel* hint = row ? row->hintLabel() : nullptr;
    return QJsonObject{{QStringLiteral("text"), field->text()},
                       {QStringLiteral("focused"), field->window()->focusWidget() == field},
                       {QStringLiteral("inSight"), field->isVisible() && inSight(*field)},
                       {QStringLiteral("button"), save->text()},
                       {QStringLiteral("enabled"), save->isEnabled()},
                       {QStringLiteral("note"),
                        hint && !hint->isHidden() ? QJsonValue(hint->text()) : QJsonValue()}};
}

QJsonValue settingsSection(SandboxSession& s, bool)
{
    if (!s.hasApp())
        return QJsonValue();
    SettingsWindowController& window = s.settingsWindow();
    const SettingsView* view = window.view();
    if (!view)
        return QJsonValue();
    const SpacingValues spacing = s.menuBarSpacing().stored();
    auto number = [](const std::optional<int>& n) { return n ? QJsonValue(*n) : QJsonValue(); };
    const auto* picker = view->findChild<PopupButton*>(QStringLiteral("language"));
    return QJsonObject{
        {QStringLiteral("visible"), window.isVisible()},
        {QStringLiteral("tab"), window.currentTab()},
        {QStringLiteral("frame"), QJsonArray{view->x(), view->y(), view->width(), view->height()}},
        {QStringLiteral("title"), view->windowTitle()},
        {QStringLiteral("rtl"), view->layoutDirection() == Qt::RightToLeft},
        {QStringLiteral("mode"),
         window.actions().hidesWholeApplications() ? QStringLiteral("engine") : QStringLiteral("plain")},
        {QStringLiteral("language"),
         picker ? QJsonValue(picker->currentData().toString()) : QJsonValue()},
        {QStringLiteral("items"), placements(*view)},
        {QStringLiteral("shortcuts"), shortcutFields(*view)},
        {QStringLiteral("itemShortcuts"), itemShortcutFields(*view)},
        {QStringLiteral("layoutNaming"), layoutNaming(*view)},
        {QStringLiteral("apps"),
         switches(*view, QStringLiteral("bundle:"), QStringLiteral("bundleID"))},
        {QStringLiteral("systemItems"),
         switches(*view, QStringLiteral("system:"), QStringLiteral("id"))},
        {QStringLiteral("spacing"),
         spacing.isDefault() ? QJsonValue()
                             : QJsonValue(QJsonObject{{QStringLiteral("spacing"), number(spacing.spacing)},
                                                      {QStringLiteral("padding"), number(spacing.padding)}})},
    };
}

} // namespace

void registerSettingsWindowCommands(ScriptRunner& runner)
{
    runner.addCommand(QStringLiteral("settings"), Phase::AfterStart, settingsCommand);
    runner.addSection(QStringLiteral("settings"), settingsSection);
}

} // namespace ravlin::sandbox
