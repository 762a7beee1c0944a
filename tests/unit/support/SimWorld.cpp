#include "SimWorld.h"

#include "platform/sim/SimPlatform.h"

#include <QFile>

namespace ravlin::test {

SimWorld::SimWorld()
    : m_resources(QStringLiteral(RAVLIN_SOURCE_RESOURCES), {QStringLiteral("en")}),
      m_logs(m_dir.path())
{
    platform.defaults = std::make_unique<InMemoryDefaultsStore>();
    installSimServices(platform, desktop);
    desktop.setDefaults(platform.defaults.get());
    desktop.setScheduler(&scheduler);
    m_preferences = std::make_unique<Preferences>(*platform.defaults, m_center, nullptr);
    m_language = std::make_unique<LanguageManager>(m_resources, *platform.defaults, *m_preferences);
    m_services = std::make_unique<MenuBarServices>(platform, scheduler, *platform.defaults,
                                                   *m_language, m_logs);
}

SimWorld::~SimWorld() = default;

QString SimWorld::readLog(const QString& name) const
{
    QFile file(m_logs.path(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll());
}

std::int32_t SimWorld::app(const QString& bundle, const QString& name)
{
    SimApp a;
    a.bundleId = bundle;
    a.name = name;
    return desktop.addApp(a);
}

std::int64_t SimWorld::item(const QString& bundle, const QString& title, double width)
{
    SimItem i;
    i.bundleId = bundle;
    i.title = title;
    i.width = width;
    return desktop.addItem(i);
}

} // namespace ravlin::test
