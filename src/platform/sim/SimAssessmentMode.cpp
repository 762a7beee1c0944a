#include "SimAssessmentMode.h"

#include "SimDesktop.h"
#include "foundation/Scheduler.h"

#include <QHash>

namespace ravlin {

struct SimAssessmentMode::Grant {
    QSet<int> systemItems;
    QSet<QString> owners;
    bool active = false;
};

class SimAssessmentMode::SimAssertion final : public AssessmentAssertion {
public:
    explicit SimAssertion(std::shared_ptr<Grant> grant) : grant(std::move(grant)) {}
    void invalidate() override { grant->active = false; }
    std::shared_ptr<Grant> grant;
};

SimAssessmentMode::SimAssessmentMode(SimDesktop& desktop, Scheduler& scheduler)
    : m_desktop(desktop), m_scheduler(scheduler)
{
    m_desktop.setItemHider([this](const SimItem& item) { return hides(item); });
}

SimAssessmentMode::~SimAssessmentMode()
{
    m_desktop.setItemHider({});
}

std::optional<int> SimAssessmentMode::systemItemID(const SimItem& item)
{
    static const QHash<QString, int> ids = {
        {QStringLiteral("Battery"), 0},         {QStringLiteral("Bluetooth"), 1},
        {QStringLiteral("Clock"), 2},           {QStringLiteral("Display"), 3},
        {QStringLiteral("Displays"), 3},        {QStringLiteral("KeyboardBrightness"), 4},
        {QStringLiteral("Keyboard"), 4},        {QStringLiteral("Sound"), 5},
        {QStringLiteral("Volume"), 5},          {QStringLiteral("WiFi"), 6},
        {QStringLiteral("ScreenMirroring"), 7}, {QStringLiteral("BentoBox-0"), 8},
        // The Control Center's modules: hidden unless allowed one by one.
        {QStringLiteral("FocusModes"), 9},      {QStringLiteral("NowPlaying"), 10},
    };
    if (item.bundleId != u"com.apple.controlcenter" && item.bundleId != u"com.apple.systemuiserver")
        return std::nullopt;
    auto it = ids.constFind(item.title);
    return it == ids.constEnd() ? std::nullopt : std::optional<int>(*it);
}

std::shared_ptr<AssessmentAssertion>
SimAssessmentMode::activate(const std::vector<int>& allowedSystemItems,
                            const QStringList& allowedBundleIDs,
                            std::function<void(std::optional<PlatformError>)> completion)
{
    if (!isAvailable())
        return nullptr;
    auto grant = std::make_shared<Grant>();
    grant->systemItems = QSet<int>(allowedSystemItems.begin(), allowedSystemItems.end());
    grant->owners = QSet<QString>(allowedBundleIDs.cbegin(), allowedBundleIDs.cend());
    auto assertion = std::make_shared<SimAssertion>(grant);
    const bool refuse = m_behaviour == Behaviour::Refuse;
    std::weak_ptr<Grant> weak = grant;
    m_scheduler.after(0.1, [this, weak, refuse, completion = std::move(completion)] {
        if (refuse) {
            completion(PlatformError{
                QStringLiteral("MBAssessmentModeErrorDomain"), 3,
                QStringLiteral("Assessment mode is not permitted for this application.")});
            return;
        }
        if (auto g = weak.lock()) {
            g->active = true;
            m_grants.push_back(g);
        }
        completion(std::nullopt);
    });
    return assertion;
}

int SimAssessmentMode::activeAssertions() const
{
    int n = 0;
    for (const auto& weak : m_grants)
        if (auto g = weak.lock(); g && g->active)
            ++n;
    return n;
}

bool SimAssessmentMode::hides(const SimItem& item) const
{
    if (item.own)
        return false;
    for (const auto& weak : m_grants) {
        auto g = weak.lock();
        if (!g || !g->active)
            continue;
        const std::optional<int> id = systemItemID(item);
        const bool allowed = id ? g->systemItems.contains(*id) : g->owners.contains(item.bundleId);
        if (!allowed)
            return true;
    }
    return false;
}

} // namespace ravlin
