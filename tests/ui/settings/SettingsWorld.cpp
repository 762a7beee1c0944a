#include "SettingsWorld.h"

#include "SandboxCommands.h"
#include "core/app/AppDelegate.h"
#include "core/discovery/ScannerModel.h"

#include <gtest/gtest.h>

namespace ravlin::test {
namespace {

sandbox::SandboxSession::Options options()
{
    sandbox::SandboxSession::Options o;
    o.resourcesDir = QStringLiteral(RAVLIN_SOURCE_DIR "/resources");
    return o;
}

} // namespace

SettingsWorld::SettingsWorld() : m_session(options()), m_out(&m_output)
{
    m_runner = std::make_unique<sandbox::ScriptRunner>(m_session, m_out, m_out);
    sandbox::registerAll(*m_runner);
}

SettingsWorld::~SettingsWorld() = default;

void SettingsWorld::script(const QString& lines)
{
    const int status = m_runner->run(lines);
    m_out.flush();
    ASSERT_EQ(status, 0) << m_output.toStdString();
}

void SettingsWorld::typicalDesktop(bool engine)
{
    if (engine)
        script(QStringLiteral("engine available"));
    script(QStringLiteral(R"(
app com.apple.controlcenter "Control Center"
app com.example.chat "Chat"
app com.example.tunnel "Tunnel"
item com.apple.controlcenter "Clock" fixed width=80
item com.apple.controlcenter "WiFi" ax.description="Wi-Fi"
item com.apple.controlcenter "Bluetooth" ax.description="Bluetooth"
item com.example.chat "Chat Status" ax.description="Chat"
item com.example.tunnel "Tunnel Status" ax.description="Tunnel"
)"));
}

void SettingsWorld::start(const QString& arguments)
{
    script(QStringLiteral("start ") + arguments + QStringLiteral("\nadvance 3"));
}

void SettingsWorld::advance(double seconds)
{
    m_session.scheduler().advance(seconds);
}

AppDelegate& SettingsWorld::app()
{
    return m_session.app();
}

SettingsWindowController& SettingsWorld::window()
{
    return m_session.settingsWindow();
}

SettingsView& SettingsWorld::open(int tab)
{
    window().show(tab);
    m_session.scheduler().runDue();
    return *window().view();
}

QString SettingsWorld::keyOf(const QString& label)
{
    for (const BarItem& item : app().scannerModel().detected())
        if (item.label == label)
            return item.key;
    ADD_FAILURE() << "no detected item is labelled " << label.toStdString();
    return {};
}

} // namespace ravlin::test
