#include "Rules.h"

#include "core/discovery/ScannerModel.h"
#include "core/settings/Preferences.h"
#include "platform/Workspace.h"

namespace ravlin {
namespace {

// Items by the name the panel gives them; applications by their own.
RuleDescription::Namer itemNamer(const ScannerModel& scanner)
{
    return [&scanner](const QString& key) {
        for (const BarItem& item : scanner.detected())
            if (item.key == key)
                return item.label.isEmpty() ? item.info.owner : item.label;
        return key;
    };
}

RuleDescription::Namer applicationNamer(Workspace& workspace)
{
    return [&workspace](const QString& bundle) {
        for (const RunningApplication& app : workspace.runningApplications())
            if (app.bundleIdentifier == bundle && app.localizedName)
                return *app.localizedName;
        return bundle;
    };
}

} // namespace

Rules::Rules(SituationSources sources, StatusBarController& bar, Preferences& preferences,
             const LanguageManager& language, const ScannerModel& scanner)
    : m_book(preferences.defaults()), m_effects(bar, preferences),
      m_description(language, itemNamer(scanner), applicationNamer(sources.workspace))
{
    m_watch = std::make_unique<SituationWatch>(sources, [this](const QString& why) {
        if (m_engine)
            m_engine->evaluate(why);
    });
    m_engine = std::make_unique<RuleEngine>(m_book, *m_watch, m_effects, preferences.defaults());
}

Rules::~Rules()
{
    m_engine.reset();
    m_watch.reset();
}

void Rules::start()
{
    m_book.adoptLayoutSwitches();
    m_engine->start();
}

QString Rules::inForceLine() const
{
    return m_description.inForceLine(m_book.rules(), m_engine->outcome().inForce);
}

} // namespace ravlin
