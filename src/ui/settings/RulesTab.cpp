#include "RulesTab.h"

#include "SettingsGroup.h"
#include "SettingsRow.h"
#include "core/app/AppDelegate.h"
#include "core/bar/StatusBarController.h"
#include "core/app/MenuBarServices.h"
#include "core/discovery/PermissionManager.h"
#include "core/discovery/ScannerModel.h"
#include "core/rules/Rules.h"
#include "core/settings/LanguageManager.h"
#include "core/sysinfo/WeatherService.h"
#include "foundation/Scheduler.h"
#include "platform/Platform.h"
#include "platform/Situation.h"
#include "platform/Workspace.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace ravlin {

RulesTab::RulesTab(AppDelegate& app, SettingsActions& actions, QWidget* parent)
    : SettingsPage(parent), m_app(app), m_actions(actions)
{
    addText(m_app.languageManager().L(QStringLiteral("rules.help")));
    auto* holder = new QWidget(this);
    m_holder = new QVBoxLayout(holder);
    m_holder->setContentsMargins(0, 0, 0, 0);
    addWidget(holder, 20);
    addNote(m_app.languageManager().L(QStringLiteral("rules.note")));
    finish();
    connect(&m_app.weatherService(), &WeatherService::locationAccessChanged, this,
            &RulesTab::scheduleRebuild);
    rebuild();
}

void RulesTab::refresh()
{
    // The rules come later than the window at start-up: follow them once they are there.
    if (!m_watching && m_app.rules())
        scheduleRebuild();
}

void RulesTab::activated()
{
    scheduleRebuild();
}

void RulesTab::scheduleRebuild()
{
    if (m_rebuildPending)
        return;
    m_rebuildPending = true;
    m_app.scheduler().async([page = QPointer<RulesTab>(this)] {
        if (!page)
            return;
        page->m_rebuildPending = false;
        page->rebuild();
    });
}

RuleChoices RulesTab::choices() const
{
    RuleChoices c;
    if (const StatusBarController* bar = m_app.statusBar())
        c.layouts = bar->layouts().names();
    for (const BarItem& item : m_app.scannerModel().detected())
        c.items.emplace_back(item.key, item.label.isEmpty() ? item.info.owner : item.label);
    const std::int32_t self = m_app.platform().workspace->currentProcessIdentifier();
    for (const RunningApplication& app : m_app.platform().workspace->runningApplications()) {
        if (app.pid == self || !app.bundleIdentifier ||
            app.activationPolicy == ActivationPolicy::Prohibited)
            continue;
        c.applications.emplace_back(*app.bundleIdentifier,
                                    app.localizedName.value_or(*app.bundleIdentifier));
    }
    std::sort(c.applications.begin(), c.applications.end(),
              [](const auto& a, const auto& b) { return a.second.localeAwareCompare(b.second) < 0; });
    if (Situation* situation = m_app.platform().situation.get())
        c.currentNetwork = situation->wifiNetworkName().value_or(QString());
    return c;
}

void RulesTab::rebuild()
{
    Rules* rules = m_app.rules();
    if (rules && !m_watching) {
        m_watching = true;
        connect(&rules->book(), &RuleBook::changed, this, &RulesTab::scheduleRebuild);
        connect(&rules->engine(), &RuleEngine::inForceChanged, this, &RulesTab::scheduleRebuild);
    }
    if (m_list) {
        m_list->hide();
        m_list->setParent(nullptr);
        m_list->deleteLater();
    }
    m_choices = choices();
    m_list = new SettingsColumn(QMargins(0, 0, 0, 0));
    fill(*m_list);
    m_holder->addWidget(m_list);
    m_list->show();
    Q_EMIT contentChanged();
}

void RulesTab::fill(SettingsColumn& column)
{
    const LanguageManager& lm = m_app.languageManager();
    Rules* rules = m_app.rules();
    const std::vector<Rule> list = rules ? rules->book().rules() : std::vector<Rule>{};
    const QStringList inForce = rules ? rules->engine().outcome().inForce : QStringList();
    for (int i = 0; i < int(list.size()); ++i) {
        RuleEditor::Callbacks callbacks{[this, i](const Rule& rule) { replace(i, rule); },
                                        [this, i](int delta) { move(i, delta); },
                                        [this, i] { remove(i); }};
        new RuleEditor(list[std::size_t(i)], i, int(list.size()),
                       inForce.contains(list[std::size_t(i)].id), lm, rules->description(),
                       m_choices, std::move(callbacks), column);
    }
    if (RuleEvaluator::needs(list).wifi && !m_app.weatherService().hasLocationAccess())
        addLocationRow(column);
    SettingsGroup* group = column.addSection(QString());
    auto* row = new SettingsRow(list.empty() ? lm.L(QStringLiteral("rules.empty")) : QString(),
                                QString());
    QPushButton* add =
        SettingsColumn::makeButton(QStringLiteral("rules.add"), lm.L(QStringLiteral("rules.add")), row);
    add->setEnabled(rules != nullptr);
    connect(add, &QPushButton::clicked, this, &RulesTab::addRule);
    row->addTrailing(add);
    group->addRow(row);
}

// A Wi-Fi condition can only hold once macOS tells Ravlin the network's name, which it does
// for applications allowed to use the location: say so where the condition is written.
void RulesTab::addLocationRow(SettingsColumn& column)
{
    const LanguageManager& lm = m_app.languageManager();
    SettingsGroup* group = column.addSection(QString());
    auto* row = new SettingsRow(lm.L(QStringLiteral("rules.wifi.location")), QString());
    QPushButton* allow = SettingsColumn::makeButton(
        QStringLiteral("rules.allowLocation"), lm.L(QStringLiteral("rules.wifi.allow")), row);
    connect(allow, &QPushButton::clicked, this, [this] {
        if (!m_app.weatherService().askForLocationAccess())
            m_app.menuBar().permissions().openLocationSettings();
    });
    row->addTrailing(allow);
    group->addRow(row);
}

void RulesTab::replace(int index, const Rule& rule)
{
    Rules* rules = m_app.rules();
    if (!rules)
        return;
    std::vector<Rule> list = rules->book().rules();
    if (index < 0 || index >= int(list.size()))
        return;
    list[std::size_t(index)] = rule;
    rules->book().setRules(list);
}

void RulesTab::move(int index, int delta)
{
    Rules* rules = m_app.rules();
    if (!rules)
        return;
    std::vector<Rule> list = rules->book().rules();
    const int to = index + delta;
    if (index < 0 || to < 0 || index >= int(list.size()) || to >= int(list.size()))
        return;
    std::swap(list[std::size_t(index)], list[std::size_t(to)]);
    rules->book().setRules(list);
}

void RulesTab::remove(int index)
{
    Rules* rules = m_app.rules();
    if (!rules)
        return;
    std::vector<Rule> list = rules->book().rules();
    if (index < 0 || index >= int(list.size()))
        return;
    list.erase(list.begin() + index);
    rules->book().setRules(list);
}

// A new rule starts as the most common wish: a layout when a display is connected.
void RulesTab::addRule()
{
    Rules* rules = m_app.rules();
    if (!rules)
        return;
    std::vector<Rule> list = rules->book().rules();
    Rule rule;
    rule.id = rules->book().freshId();
    RuleCondition condition;
    condition.kind = RuleCondition::Kind::Display;
    rule.conditions.push_back(condition);
    list.push_back(rule);
    rules->book().setRules(list);
}

} // namespace ravlin
