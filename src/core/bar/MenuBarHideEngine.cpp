#include "MenuBarHideEngine.h"

#include "foundation/Logging.h"

#include <QSet>

namespace ravlin {

const std::vector<MenuBarHideEngine::SystemItem>& MenuBarHideEngine::knownSystemItems()
{
    static const std::vector<SystemItem> items = {
        {6, QStringLiteral("sysitem.wifi"), QStringLiteral("wifi")},
        {1, QStringLiteral("sysitem.bluetooth"), QStringLiteral("dot.radiowaves.left.and.right")},
        {0, QStringLiteral("sysitem.battery"), QStringLiteral("battery.100")},
        {5, QStringLiteral("sysitem.volume"), QStringLiteral("speaker.wave.2.fill")},
        {2, QStringLiteral("sysitem.clock"), QStringLiteral("clock")},
        {3, QStringLiteral("sysitem.displays"), QStringLiteral("display")},
        {4, QStringLiteral("sysitem.keyboard"), QStringLiteral("keyboard")},
        {7, QStringLiteral("sysitem.screenMirror"), QStringLiteral("rectangle.on.rectangle")},
        {8, QStringLiteral("sysitem.controlCenter"), QStringLiteral("switch.2")},
    };
    return items;
}

const QStringList& MenuBarHideEngine::mandatoryBundleIDs()
{
    static const QStringList ids = {
        QStringLiteral("com.apple.controlcenter"),
        QStringLiteral("com.apple.MenuBarAgent"),
        QStringLiteral("com.apple.systemuiserver"),
        QStringLiteral("com.apple.TextInputMenuAgent"),
        QStringLiteral("com.apple.wifi.WiFiAgent"),
        QStringLiteral("com.apple.ScreenTimeAgent"),
        QStringLiteral("com.apple.AirPlayUIAgent"),
        QStringLiteral("com.apple.UserNotificationCenter"),
        QStringLiteral("com.apple.notificationcenterui"),
        QStringLiteral("com.apple.loginwindow"),
    };
    return ids;
}

const QStringList& MenuBarHideEngine::spotlightBundleIDs()
{
    static const QStringList ids = {QStringLiteral("com.apple.campo"),
                                    QStringLiteral("com.apple.Spotlight"),
                                    QStringLiteral("com.apple.Siri")};
    return ids;
}

QStringList MenuBarHideEngine::alwaysAllowedBundleIDs()
{
    return mandatoryBundleIDs() + spotlightBundleIDs();
}

std::vector<int> MenuBarHideEngine::allowedSystemItems()
{
    return allowedSystemItems({});
}

std::vector<int> MenuBarHideEngine::allowedSystemItems(const std::set<std::int64_t>& hiding)
{
    std::vector<int> allowed;
    for (int id = 0; id <= 63; ++id) {
        if (!hiding.count(id))
            allowed.push_back(id);
    }
    return allowed;
}

MenuBarHideEngine::MenuBarHideEngine(AssessmentMode* assessmentMode) : m_mode(assessmentMode)
{
    qCDebug(lcHideEngine) << "assessment mode available:" << isAvailable();
}

MenuBarHideEngine::~MenuBarHideEngine()
{
    *m_alive = false;
}

bool MenuBarHideEngine::isAvailable() const
{
    return m_mode && m_mode->isAvailable();
}

MenuBarHideEngine::State MenuBarHideEngine::state() const
{
    if (!isAvailable())
        return State::Unavailable;
    if (!m_waiting.empty() && !m_released)
        return State::Pending;
    return m_active ? State::Restricted : State::Idle;
}

QString MenuBarHideEngine::stateName() const
{
    switch (state()) {
    case State::Unavailable:
        return QStringLiteral("unavailable");
    case State::Idle:
        return QStringLiteral("idle");
    case State::Pending:
        return QStringLiteral("pending");
    case State::Restricted:
        return QStringLiteral("restricted");
    }
    return QStringLiteral("unavailable");
}

void MenuBarHideEngine::report(std::optional<PlatformError> error, const Completion& completion)
{
    if (error) {
        m_lastError = error;
        qCWarning(lcHideEngine).noquote()
            << "restrict failed:" << error->domain << error->code << error->description;
    }
    if (completion)
        completion(std::move(error));
}

void MenuBarHideEngine::restrict(const QStringList& keepVisibleBundleIDs,
                                 std::optional<std::vector<int>> allowedSystemItems,
                                 Completion completion)
{
    if (!isAvailable()) {
        report(PlatformError{errorDomain, 1, QStringLiteral("MenuBarClientCore nicht verfügbar")},
               completion);
        return;
    }
    QSet<QString> owners(keepVisibleBundleIDs.cbegin(), keepVisibleBundleIDs.cend());
    for (const QString& id : mandatoryBundleIDs())
        owners.insert(id);
    QStringList allowedOwners(owners.cbegin(), owners.cend());
    allowedOwners.sort();
    const std::vector<int> systemItems =
        allowedSystemItems.value_or(MenuBarHideEngine::allowedSystemItems());
    m_lastBundleIDs = allowedOwners;
    m_lastSystemItems = systemItems;

    m_released = false;
    // The engine holds each assertion while it waits for an answer; the completion
    // refers to it by ticket, so a framework that keeps the completion keeps no cycle.
    const int ticket = m_nextTicket++;
    std::weak_ptr<bool> alive = m_alive;
    auto assertion =
        m_mode->activate(systemItems, allowedOwners,
                         [this, alive, ticket, completion](std::optional<PlatformError> error) {
                             if (alive.expired() || !*alive.lock())
                                 return;
                             std::shared_ptr<AssessmentAssertion> answered;
                             if (auto it = m_waiting.find(ticket); it != m_waiting.end()) {
                                 answered = std::move(it->second);
                                 m_waiting.erase(it);
                             }
                             finish(answered, std::move(error), completion);
                         });
    if (!assertion) {
        report(PlatformError{errorDomain, 2, QStringLiteral("Konfiguration fehlgeschlagen")},
               completion);
        return;
    }
    m_waiting.emplace(ticket, std::move(assertion));
}

void MenuBarHideEngine::finish(const std::shared_ptr<AssessmentAssertion>& assertion,
                               std::optional<PlatformError> error, const Completion& completion)
{
    if (error) {
        if (assertion)
            assertion->invalidate();
        report(std::move(error), completion);
        return;
    }
    if (m_released) {
        // Released while the activation was under way: let the new one go at once.
        if (assertion)
            assertion->invalidate();
    } else {
        if (m_active && m_active != assertion)
            m_active->invalidate();
        m_active = assertion;
    }
    m_lastError.reset();
    if (completion)
        completion(std::nullopt);
}

void MenuBarHideEngine::release()
{
    m_released = true;
    if (m_active) {
        m_active->invalidate();
        m_active.reset();
    }
}

} // namespace ravlin
