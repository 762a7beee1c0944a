#include "AppDelegate.h"

#include "core/foundation/NotificationCenter.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/Preferences.h"
#include "platform/Platform.h"

namespace ravlin {

AppDelegate::AppDelegate(Platform& platform, Scheduler& scheduler, const Resources& resources)
    : m_platform(platform),
      m_scheduler(scheduler),
      m_notifications(std::make_unique<NotificationCenter>()),
      m_preferences(std::make_unique<Preferences>(*platform.defaults, *m_notifications, platform.loginItems.get())),
      m_language(std::make_unique<LanguageManager>(resources, *platform.defaults, *m_preferences))
{
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching(const QStringList& arguments)
{
    Q_UNUSED(arguments);
    m_launched = true;
    m_preferences->registerDefaults();
    m_language->applyStored();
}

} // namespace ravlin
