#include "ItemChanges.h"

#include "core/app/MenuBarServices.h"
#include "core/settings/LanguageManager.h"
#include "platform/Platform.h"

namespace ravlin {

ItemChanges::ItemChanges(Platform& platform, Scheduler& scheduler, MenuBarServices& menuBar,
                         const ScannerModel& scanner, const WatchList& list,
                         StatusBarController& bar, const LanguageManager& language)
    : m_reader(*platform.accessibility, *platform.windowServer, menuBar.itemCapture(),
               menuBar.reader()),
      m_spotlight(scheduler, bar,
                  [&language] { return language.L(QStringLiteral("bar.changedSection")); })
{
    m_watch = std::make_unique<ItemChangeWatch>(
        ItemChangeWatch::Services{scheduler, scanner, *platform.workspace, m_reader, list},
        [this](const QString& key) { m_spotlight.changed(key); });
    m_watch->refresh();
}

ItemChanges::~ItemChanges() = default;

} // namespace ravlin
