#pragma once

#include "BarRuleEffects.h"
#include "RuleBook.h"
#include "RuleDescription.h"
#include "RuleEngine.h"
#include "SituationWatch.h"

#include <memory>

namespace ravlin {

class DefaultsStore;
class LanguageManager;
class Preferences;
class ScannerModel;
class StatusBarController;

// The rules of the application: the book the user writes, the watch of the situation and the
// engine that puts them into force, over the status-bar controller. The application object
// owns one, made with the controller.
class Rules {
public:
    Rules(SituationSources sources, StatusBarController& bar, Preferences& preferences,
          const LanguageManager& language, const ScannerModel& scanner);
    ~Rules();

    // Adopts the switches of earlier versions and puts the rules into force for the first time.
    void start();

    RuleBook& book() { return m_book; }
    const RuleBook& book() const { return m_book; }
    RuleEngine& engine() { return *m_engine; }
    const RuleEngine& engine() const { return *m_engine; }
    const SituationWatch& watch() const { return *m_watch; }
    const RuleDescription& description() const { return m_description; }
    // The panel's line naming the rules in force (empty when none is).
    QString inForceLine() const;

private:
    RuleBook m_book;
    BarRuleEffects m_effects;
    RuleDescription m_description;
    std::unique_ptr<SituationWatch> m_watch;
    std::unique_ptr<RuleEngine> m_engine;
};

} // namespace ravlin
