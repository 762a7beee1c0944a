#pragma once

#include "platform/AssessmentMode.h"

#include <QSet>

#include <vector>

namespace ravlin {

class Scheduler;
class SimDesktop;
struct SimItem;

// The assessment-mode service of the simulated desktop: present and granting
// every activation 0.1 s after it is asked, absent, or present and refusing.
// While an assertion is held, items it does not allow are hidden from the bar.
class SimAssessmentMode final : public AssessmentMode {
public:
    enum class Behaviour { Available, Unavailable, Refuse };

    SimAssessmentMode(SimDesktop& desktop, Scheduler& scheduler);
    ~SimAssessmentMode() override;

    void setBehaviour(Behaviour behaviour) { m_behaviour = behaviour; }
    Behaviour behaviour() const { return m_behaviour; }

    bool isAvailable() const override { return m_behaviour != Behaviour::Unavailable; }
    std::shared_ptr<AssessmentAssertion>
    activate(const std::vector<int>& allowedSystemItems, const QStringList& allowedBundleIDs,
             std::function<void(std::optional<PlatformError>)> completion) override;

    int activeAssertions() const;
    // The system-item number of a status item (the control centre's own items), if it has one.
    static std::optional<int> systemItemID(const SimItem& item);

private:
    struct Grant;
    class SimAssertion;
    bool hides(const SimItem& item) const;

    SimDesktop& m_desktop;
    Scheduler& m_scheduler;
    Behaviour m_behaviour = Behaviour::Unavailable;
    std::vector<std::weak_ptr<Grant>> m_grants;
};

} // namespace ravlin
