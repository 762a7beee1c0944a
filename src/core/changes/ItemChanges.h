#pragma once

#include "ChangeSpotlight.h"
#include "ItemChangeWatch.h"
#include "ItemLookReader.h"

#include <memory>

namespace ravlin {

class LanguageManager;
class MenuBarServices;
class ScannerModel;
class StatusBarController;
class WatchList;
struct Platform;

// Items that show themselves when they change: the watch that notices, the reader it looks
// through and the spotlight that shows them. The application object owns one, made with the
// status-bar controller.
class ItemChanges {
public:
    ItemChanges(Platform& platform, Scheduler& scheduler, MenuBarServices& menuBar,
                const ScannerModel& scanner, const WatchList& list, StatusBarController& bar,
                const LanguageManager& language);
    ~ItemChanges();

    ItemChangeWatch& watch() { return *m_watch; }
    const ItemChangeWatch& watch() const { return *m_watch; }
    ChangeSpotlight& spotlight() { return m_spotlight; }
    const ChangeSpotlight& spotlight() const { return m_spotlight; }

private:
    ItemLookReader m_reader;
    ChangeSpotlight m_spotlight;
    std::unique_ptr<ItemChangeWatch> m_watch;
};

} // namespace ravlin
