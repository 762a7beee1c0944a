#include "SimWorkspace.h"

#include "SimDesktop.h"

#include <QCryptographicHash>
#include <QPainter>
#include <QPainterPath>

namespace ravlin {

namespace {
const QString applicationsFolder = QStringLiteral("/Applications/");
} // namespace

SimWorkspace::SimWorkspace(SimDesktop& desktop) : m_desktop(desktop)
{
    m_desktop.addLifecycleListener([this](const SimApp& app, bool launched) {
        notify(launched ? WorkspaceNotification::DidLaunchApplication
                        : WorkspaceNotification::DidTerminateApplication,
               describe(app));
    });
}

RunningApplication SimWorkspace::describe(const SimApp& app)
{
    RunningApplication r;
    if (!app.bundleId.isEmpty() && app.reportsBundleId)
        r.bundleIdentifier = app.bundleId;
    if (!app.name.isEmpty())
        r.localizedName = app.name;
    r.pid = app.pid;
    r.activationPolicy = app.policy;
    return r;
}

std::vector<RunningApplication> SimWorkspace::runningApplications()
{
    std::vector<RunningApplication> result;
    for (const SimApp& app : m_desktop.apps()) {
        if (app.running)
            result.push_back(describe(app));
    }
    return result;
}

std::optional<RunningApplication> SimWorkspace::runningApplication(std::int32_t pid)
{
    const SimApp* app = m_desktop.appByPid(pid);
    if (!app || !app->running)
        return std::nullopt;
    return describe(*app);
}

std::int32_t SimWorkspace::currentProcessIdentifier()
{
    return SimDesktop::ownPid;
}

bool SimWorkspace::openURL(const QString& url)
{
    m_desktop.recordOpened(url);
    // The settings panes open in System Settings, which starts if it is not running.
    if (url.startsWith(QStringLiteral("x-apple.systempreferences:"))) {
        const SimApp* settings = m_desktop.installedApp(SimDesktop::systemSettingsId);
        if (settings && !settings->running)
            m_desktop.launch(SimDesktop::systemSettingsId);
    }
    return true;
}

std::optional<QString> SimWorkspace::urlForApplication(const QString& bundleIdentifier)
{
    const SimApp* app = m_desktop.installedApp(bundleIdentifier);
    if (!app)
        return std::nullopt;
    return applicationsFolder + app->name + QStringLiteral(".app");
}

bool SimWorkspace::openApplication(const QString& applicationURL, bool activates)
{
    Q_UNUSED(activates);
    std::vector<const SimApp*> candidates;
    for (const SimApp& app : m_desktop.apps())
        candidates.push_back(&app);
    for (const SimApp& app : SimDesktop::preinstalledApps()) {
        if (m_desktop.installedApp(app.bundleId) == &app)
            candidates.push_back(&app);
    }
    for (const SimApp* app : candidates) {
        if (applicationsFolder + app->name + QStringLiteral(".app") != applicationURL)
            continue;
        const QString bundle = app->bundleId; // launching may move the desktop's list
        const bool running = app->running;
        m_desktop.recordOpened(bundle);
        if (!running)
            m_desktop.launch(bundle);
        return true;
    }
    return false;
}

bool SimWorkspace::activate(std::int32_t pid)
{
    return m_desktop.appByPid(pid) != nullptr;
}

void SimWorkspace::terminateSelf()
{
    m_desktop.terminateRequested = true;
}

// The simulated applications all quit when asked, at once.
bool SimWorkspace::terminate(std::int32_t pid)
{
    const SimApp* app = m_desktop.appByPid(pid);
    if (!app || !app->running || app->bundleId == SimDesktop::ownBundleId)
        return false;
    const QString bundle = app->bundleId; // ending it may move the desktop's list
    return m_desktop.terminate(bundle);
}

// What an application's icon looks like here: a rounded square in a colour of its own,
// lit from above, with the application's initial, at the backing scale of a Retina display.
QImage SimWorkspace::applicationIcon(std::int32_t pid)
{
    const SimApp* app = m_desktop.appByPid(pid);
    if (!app || app->bundleId == SimDesktop::ownBundleId)
        return {};
    constexpr int points = 32;
    constexpr double scale = 2.0;
    QImage icon(int(points * scale), int(points * scale), QImage::Format_ARGB32_Premultiplied);
    icon.fill(Qt::transparent);
    icon.setDevicePixelRatio(scale);
    const QByteArray digest =
        QCryptographicHash::hash(app->bundleId.toUtf8(), QCryptographicHash::Md5);
    const QColor base = QColor::fromHsv(int(quint8(digest[0])) * 360 / 256, 175, 200);
    QPainter p(&icon);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF square(2, 2, points - 4, points - 4);
    QPainterPath shape;
    shape.addRoundedRect(square, 7, 7);
    QLinearGradient light(square.topLeft(), square.bottomLeft());
    light.setColorAt(0, base.lighter(118));
    light.setColorAt(1, base.darker(112));
    p.fillPath(shape, light);
    QFont font;
    font.setPixelSize(15);
    font.setBold(true);
    p.setFont(font);
    p.setPen(Qt::white);
    p.drawText(square, Qt::AlignCenter, app->name.left(1).toUpper());
    return icon;
}

} // namespace ravlin
